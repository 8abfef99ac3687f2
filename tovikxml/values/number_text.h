#ifndef TOVIKXML_VALUES_NUMBER_TEXT_H_
#define TOVIKXML_VALUES_NUMBER_TEXT_H_

#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <type_traits>

#include "tovikxml/base/wide_string.h"

/// Numbers and 16-bit text without locale, streams or heap. Internal; `CConversions` adds the
/// whitespace rules and the messages.
///
/// Reading follows `strtol`, `strtoul` and `strtod` of C in the "C" locale with base 10: leading
/// white space (blank, \t \n \v \f \r) and a sign are accepted, a minus sign before an unsigned
/// number wraps, and a number must reach to the end of the text or to a zero unit, which ends the
/// text wherever it stands. A text that begins with a zero unit reads as 0.
namespace TovikXmlLib16 {

enum class NumberStatus { kRead, kNotANumber, kTooLarge };

/// The digits of a whole number before they are fitted to a type.
struct ScannedInteger {
  std::uint64_t magnitude = 0;
  bool negative = false;
  NumberStatus status = NumberStatus::kRead;
};

/// Reads digits of up to 64 bits. As in C, too many digits are reported before text behind them.
ScannedInteger ScanInteger(WStringView text);

template <class Integer>
struct ParsedInteger {
  Integer value;
  NumberStatus status;
};

/// A whole number of the given type; the value counts only with status `kRead`.
template <class Integer>
ParsedInteger<Integer> ParseInteger(WStringView text);

/// Decimal forms only: no hexadecimal, no infinity, no NaN. Nothing if the text is none. Beyond the
/// range it gives an infinity or zero.
std::optional<double> ParseDouble(WStringView text);

/// Puts ASCII characters into `out`, whose capacity is reused.
inline void AssignAscii(WString& out, const char* begin, const char* end) {
  out.resize(static_cast<std::size_t>(end - begin));
  for (wchar& unit : out) unit = static_cast<wchar>(*begin++);
}

/// Puts decimal digits, with a minus sign if negative, into `out`.
template <class Integer>
void AssignInteger(WString& out, Integer value) {
  char digits[24];
  AssignAscii(out, digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

/// Puts "NaN", "INF", "-INF" or the digits of a number into `out`: without a format as "%.7g" for
/// float and "%.16g" for double, else by `FormatFloat`, cut to the first 32 code units for float
/// and 48 for double.
void AssignReal(WString& out, float value, WStringView format);
void AssignReal(WString& out, double value, WStringView format);

template <class Integer>
ParsedInteger<Integer> ParseInteger(WStringView text) {
  using Limits = std::numeric_limits<Integer>;
  const ScannedInteger scanned = ScanInteger(text);
  const bool below = std::is_signed_v<Integer> && scanned.negative;
  const std::uint64_t limit = static_cast<std::uint64_t>(Limits::max()) + (below ? 1u : 0u);
  NumberStatus status = scanned.status;
  if (scanned.magnitude > limit) status = NumberStatus::kTooLarge;
  const std::uint64_t bits = scanned.negative ? 0 - scanned.magnitude : scanned.magnitude;
  return {static_cast<Integer>(bits), status};
}

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_NUMBER_TEXT_H_
