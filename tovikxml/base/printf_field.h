#ifndef TOVIKXML_BASE_PRINTF_FIELD_H_
#define TOVIKXML_BASE_PRINTF_FIELD_H_

#include <cstddef>
#include <cstdint>
#include <optional>

#include "tovikxml/base/wide_string.h"

/// One converted field of a printf format, with the meaning of C (ISO C, fprintf); no locale takes
/// part. Internal.
namespace TovikXmlLib16 {

/// What stands between the percent sign and the letter of a conversion, and the letter.
struct PrintfField {
  bool leftAlign = false;
  bool plus = false;
  bool blank = false;
  bool alternate = false;
  bool zeroPad = false;
  std::size_t width = 0;
  std::optional<int> precision;
  char letter = 0;  // in lower case
  bool upper = false;

  /// Takes one of the flags "-+ #0"; false if the unit is none.
  bool TakeFlag(wchar unit);
};

/// Appends a text, cut to the precision and filled with blanks to the width.
void AppendField(WString& out, const PrintfField& field, WStringView text);
/// Appends an integer of the letters "d", "u", "o" and "x".
void AppendField(WString& out, const PrintfField& field, bool isNegative, std::uint64_t magnitude);
/// Appends a number of the letters "a", "e", "f" and "g", NaN and infinities included.
void AppendField(WString& out, const PrintfField& field, double value);
void AppendField(WString& out, const PrintfField& field, long double value);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_PRINTF_FIELD_H_
