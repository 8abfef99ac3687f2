tovikxml_sources(values
  base64
  binary_data
  conversions
  facets
  float_format
  number_text
  restrictions
  variant
  whitespace)
tovikxml_internal_headers(values base64 float_format number_text value_kinds facets)
