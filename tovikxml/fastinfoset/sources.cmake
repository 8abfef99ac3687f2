tovikxml_sources(fastinfoset dropped_items encoding_algorithms name_memory octet_input
                 octet_output octet_text reader reader_vocabulary restricted_alphabet vocabulary
                 vocabulary_tables well_formedness writer)
tovikxml_internal_headers(fastinfoset algorithm_codes codes dropped_items name_memory octet_input
                          octet_output octet_text reader restricted_alphabet vocabulary_tables well_formedness
                          writer)
