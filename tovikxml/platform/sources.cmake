tovikxml_sources(platform async_files clock error_box file)
tovikxml_internal_headers(platform error_box file)
