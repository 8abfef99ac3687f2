tovikxml_sources(values
  base64
  big_integer
  big_integer_digits
  big_integer_division
  big_integer_text
  binary_data
  calendar
  conversions
  date_time
  date_time_arithmetic
  date_time_span
  date_time_text
  decimal
  decimal_text
  facets
  float_format
  limb_array
  number_text
  pattern
  restrictions
  second_fraction
  variant
  whitespace)
tovikxml_internal_headers(values base64 float_format number_text value_kinds facets
  calendar date_time_fields pattern second_fraction value_facets)
