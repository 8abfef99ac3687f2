#ifndef TOVIKXML_BASE_ITEM_TYPE_H_
#define TOVIKXML_BASE_ITEM_TYPE_H_

#include "tovikxml/base/export.h"

namespace TovikXmlLib16 {

/// The kinds of values that a property, an element or an attribute can have. The integer values
/// are part of the exported interface. Exported itself, since class templates that take a kind are
/// only as visible as its type.
enum TOVIKXML_EXPORT ItemType : int {
  it_invalid = 0,
  it_hexBinary = 1,
  it_base64Binary = 2,
  it_i1 = 3,
  it_i2 = 4,
  it_i4 = 5,
  it_i8 = 6,
  it_ui1 = 7,
  it_ui2 = 8,
  it_ui4 = 9,
  it_ui8 = 10,
  it_r4 = 11,
  it_r8 = 12,
  it_duration = 13,
  it_yearMonth = 14,
  it_monthDay = 15,
  it_year = 16,
  it_month = 17,
  it_day = 18,
  it_date = 19,
  it_datetime = 20,
  it_time = 21,
  it_char = 22,
  it_string = 23,
  it_boolean = 24,
  it_decimal = 25,
  it_integer = 26,
  it_xmlObject = 27,
  it_xmlCollection = 28
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_ITEM_TYPE_H_
