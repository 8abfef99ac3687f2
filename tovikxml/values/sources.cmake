tovikxml_sources(values
  base64
  big_integer
  big_integer_digits
  big_integer_division
  big_integer_text
  binary_data
  conversions
  decimal
  decimal_text
  facets
  float_format
  limb_array
  number_text
  restrictions
  variant
  whitespace)
tovikxml_internal_headers(values base64 float_format number_text value_kinds facets)
