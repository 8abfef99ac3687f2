tovikxml_sources(document alias_scopes binary_stream byte_array compression document document_load
                 expat_reader file_text_stream name_check namespace_rule string_buffer text_stream
                 text_writer tree_storage tree_text unread_entities utf16_input utf_conversion writer
                 xml_scanner)
tovikxml_internal_headers(document binary_stream borrowed_text byte_array compression expat_reader
                          expat_text file_output file_text_stream name_check namespace_rule string_buffer
                          text_stream text_writer tree_storage unread_entities utf16_input
                          utf_conversion xml_names xml_scanner)
