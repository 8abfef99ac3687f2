tovikxml_sources(document binary_stream byte_array compression file_text_stream string_buffer
                 text_stream utf_conversion)
tovikxml_internal_headers(document binary_stream byte_array compression file_output
                          file_text_stream string_buffer text_stream utf_conversion)
