tovikxml_sources(base exception format_string printf_field text_hash utf8 version)
tovikxml_internal_headers(base printf_field text text_hash utf8_bytes)
