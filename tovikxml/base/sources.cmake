tovikxml_sources(base exception format_string utf8 version)
tovikxml_internal_headers(base text text_hash utf8_bytes)
