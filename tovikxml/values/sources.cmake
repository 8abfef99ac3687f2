tovikxml_sources(values base64 binary_data)
tovikxml_internal_headers(values base64)
