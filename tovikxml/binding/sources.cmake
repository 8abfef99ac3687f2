tovikxml_sources(binding attribute_info choice_helpers class_factory class_info element_info
                 entry_points generated_class generated_class_read generated_class_write
                 nesting_guard nil_attribute object_base version_check)
tovikxml_internal_headers(binding nesting_guard nil_attribute version_check)
