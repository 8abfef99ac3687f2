#include "tovikxml/base/printf_field.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

constexpr int kDefaultPrecision = 6;

template <class Float>
std::string ToText(Float magnitude, std::chars_format format, std::optional<int> precision) {
  // Digits before the point of the largest number, point and exponent.
  constexpr std::size_t kRoomBesidePrecision = std::numeric_limits<Float>::max_exponent10 + 24;
  std::string text(kRoomBesidePrecision + static_cast<std::size_t>(precision.value_or(0)), '\0');
  char* const end = text.data() + text.size();
  const auto result = precision ? std::to_chars(text.data(), end, magnitude, format, *precision)
                                : std::to_chars(text.data(), end, magnitude, format);
  text.resize(static_cast<std::size_t>(result.ptr - text.data()));
  return text;
}

// "%#g" keeps the zeros at the end, which `chars_format::general` drops. The style is chosen by the
// exponent after rounding, as C tells for the conversion.
template <class Float>
std::string GeneralWithZeros(Float magnitude, int precision) {
  std::string scientific = ToText(magnitude, std::chars_format::scientific, precision - 1);
  const int exponent = std::atoi(scientific.c_str() + scientific.find('e') + 1);
  if (exponent < -4 || exponent >= precision) return scientific;
  return ToText(magnitude, std::chars_format::fixed, precision - 1 - exponent);
}

template <class Float>
std::string Digits(Float magnitude, const PrintfField& field) {
  const int precision = field.precision.value_or(kDefaultPrecision);
  switch (field.letter) {
    case 'a':
      return ToText(magnitude, std::chars_format::hex, field.precision);
    case 'e':
      return ToText(magnitude, std::chars_format::scientific, precision);
    case 'f':
      return ToText(magnitude, std::chars_format::fixed, precision);
    default:
      const int significant = precision == 0 ? 1 : precision;
      return field.alternate ? GeneralWithZeros(magnitude, significant)
                             : ToText(magnitude, std::chars_format::general, significant);
  }
}

void InsertPoint(std::string& digits, char letter) {
  if (digits.find('.') != std::string::npos) return;
  const std::size_t exponent = digits.find(letter == 'a' ? 'p' : 'e');
  digits.insert(exponent == std::string::npos ? digits.size() : exponent, 1, '.');
}

std::string Sign(const PrintfField& field, bool isNegative) {
  if (isNegative) return "-";
  if (field.plus) return "+";
  return field.blank ? " " : "";
}

// Zeros go between the prefix and the digits, blanks around both.
void AppendNumber(WString& out, const PrintfField& field, std::string prefix, std::string digits,
                  bool zeroPad) {
  const std::size_t length = prefix.size() + digits.size();
  const std::size_t fill = field.width > length ? field.width - length : 0;
  if (zeroPad && !field.leftAlign) prefix.append(fill, '0');
  std::string text = std::move(prefix) + digits;
  if (text.size() < field.width) text.insert(field.leftAlign ? text.size() : 0, fill, ' ');
  for (const char c : text) {
    const auto unit = static_cast<wchar>(c);
    out.push_back(field.upper ? ToAsciiUpper(unit) : unit);
  }
}

template <class Float>
void AppendFloat(WString& out, const PrintfField& field, Float value) {
  std::string prefix = Sign(field, std::signbit(value));
  if (!std::isfinite(value)) {
    return AppendNumber(out, field, std::move(prefix), std::isnan(value) ? "nan" : "inf", false);
  }
  if (field.letter == 'a') prefix += "0x";
  std::string digits = Digits(std::fabs(value), field);
  if (field.alternate) InsertPoint(digits, field.letter);
  AppendNumber(out, field, std::move(prefix), std::move(digits), field.zeroPad);
}

}  // namespace

bool PrintfField::TakeFlag(wchar unit) {
  switch (unit) {
    case u'-':
      return leftAlign = true;
    case u'+':
      return plus = true;
    case u' ':
      return blank = true;
    case u'#':
      return alternate = true;
    case u'0':
      return zeroPad = true;
    default:
      return false;
  }
}

void AppendField(WString& out, const PrintfField& field, WStringView text) {
  if (field.precision) text = text.substr(0, static_cast<std::size_t>(*field.precision));
  const std::size_t fill = field.width > text.size() ? field.width - text.size() : 0;
  if (!field.leftAlign) out.append(fill, u' ');
  out.append(text);
  if (field.leftAlign) out.append(fill, u' ');
}

void AppendField(WString& out, const PrintfField& field, bool isNegative, std::uint64_t magnitude) {
  const bool isDecimal = field.letter == 'd' || field.letter == 'u';
  char room[24];
  const int base = isDecimal ? 10 : field.letter == 'x' ? 16 : 8;
  const auto end = std::to_chars(room, room + sizeof room, magnitude, base).ptr;
  std::string digits(room, magnitude == 0 && field.precision == 0 ? room : end);
  const std::size_t least = static_cast<std::size_t>(field.precision.value_or(0));
  if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
  std::string prefix = field.letter == 'd' ? Sign(field, isNegative) : std::string();
  if (field.alternate && base == 16 && magnitude != 0) prefix = "0x";
  if (field.alternate && base == 8 && (digits.empty() || digits[0] != '0'))
    digits.insert(0, 1, '0');
  AppendNumber(out, field, std::move(prefix), std::move(digits), field.zeroPad && !field.precision);
}

void AppendField(WString& out, const PrintfField& field, double value) {
  AppendFloat(out, field, value);
}

void AppendField(WString& out, const PrintfField& field, long double value) {
  AppendFloat(out, field, value);
}

}  // namespace TovikXmlLib16
