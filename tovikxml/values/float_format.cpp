#include "tovikxml/values/float_format.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

constexpr int kMaxFieldDigits = 4;
constexpr int kDefaultPrecision = 6;
// Sign, the 309 digits before the point of the largest double, point, exponent.
constexpr std::size_t kRoomBesidePrecision = 330;

struct Conversion {
  bool leftAlign = false;
  bool plus = false;
  bool blank = false;
  bool alternate = false;
  bool zeroPad = false;
  std::size_t width = 0;
  std::optional<int> precision;
  char letter = 0;  // in lower case
  bool upper = false;
};

bool* FlagOf(Conversion& conversion, wchar unit) {
  switch (unit) {
    case u'-':
      return &conversion.leftAlign;
    case u'+':
      return &conversion.plus;
    case u' ':
      return &conversion.blank;
    case u'#':
      return &conversion.alternate;
    case u'0':
      return &conversion.zeroPad;
    default:
      return nullptr;
  }
}

// Reads the conversions and the text of a format from left to right.
class FormatCursor {
 public:
  explicit FormatCursor(WStringView format) : m_format(format.substr(0, format.find(u'\0'))) {}

  /// Adds text up to the next conversion, behind whose percent sign it stops; false at the end.
  bool CopyText(WString& out);
  Conversion ReadConversion();
  [[noreturn]] void Refuse() const;

 private:
  wchar Peek() const { return m_at < m_format.size() ? m_format[m_at] : u'\0'; }
  bool Accept(wchar unit);
  int ReadNumber();

  WStringView m_format;
  std::size_t m_at = 0;
};

void FormatCursor::Refuse() const {
  throw CTovikInvalidValueException(
      FormatString(u"Invalid number format [%s]", WString(m_format).c_str()));
}

bool FormatCursor::Accept(wchar unit) {
  if (Peek() != unit) return false;
  ++m_at;
  return true;
}

bool FormatCursor::CopyText(WString& out) {
  while (m_at < m_format.size()) {
    if (!Accept(u'%')) {
      out.push_back(m_format[m_at++]);
    } else if (Accept(u'%')) {
      out.push_back(u'%');
    } else {
      return true;
    }
  }
  return false;
}

int FormatCursor::ReadNumber() {
  int number = 0;
  for (int digits = 0; IsAsciiDigit(Peek()); ++m_at) {
    if (++digits > kMaxFieldDigits) Refuse();
    number = number * 10 + (Peek() - u'0');
  }
  return number;
}

Conversion FormatCursor::ReadConversion() {
  Conversion conversion;
  while (bool* const flag = FlagOf(conversion, Peek())) {
    *flag = true;
    ++m_at;
  }
  conversion.width = static_cast<std::size_t>(ReadNumber());
  if (Accept(u'.')) conversion.precision = ReadNumber();
  Accept(u'l');
  const wchar lower = ToAsciiLower(Peek());
  if (lower != u'a' && (lower < u'e' || lower > u'g')) Refuse();
  conversion.letter = static_cast<char>(lower);
  conversion.upper = Peek() != lower;
  ++m_at;
  return conversion;
}

std::string ToText(double magnitude, std::chars_format format, std::optional<int> precision) {
  std::string text(kRoomBesidePrecision + static_cast<std::size_t>(precision.value_or(0)), '\0');
  char* const end = text.data() + text.size();
  const auto result = precision ? std::to_chars(text.data(), end, magnitude, format, *precision)
                                : std::to_chars(text.data(), end, magnitude, format);
  text.resize(static_cast<std::size_t>(result.ptr - text.data()));
  return text;
}

// "%#g" keeps the zeros at the end, which `chars_format::general` drops. The style is chosen by the
// exponent after rounding, as C tells for the conversion.
std::string GeneralWithZeros(double magnitude, int precision) {
  std::string scientific = ToText(magnitude, std::chars_format::scientific, precision - 1);
  const int exponent = std::atoi(scientific.c_str() + scientific.find('e') + 1);
  if (exponent < -4 || exponent >= precision) return scientific;
  return ToText(magnitude, std::chars_format::fixed, precision - 1 - exponent);
}

std::string Digits(double magnitude, const Conversion& conversion) {
  const int precision = conversion.precision.value_or(kDefaultPrecision);
  switch (conversion.letter) {
    case 'a':
      return ToText(magnitude, std::chars_format::hex, conversion.precision);
    case 'e':
      return ToText(magnitude, std::chars_format::scientific, precision);
    case 'f':
      return ToText(magnitude, std::chars_format::fixed, precision);
    default:
      const int significant = precision == 0 ? 1 : precision;
      return conversion.alternate ? GeneralWithZeros(magnitude, significant)
                                  : ToText(magnitude, std::chars_format::general, significant);
  }
}

void InsertPoint(std::string& digits, char letter) {
  if (digits.find('.') != std::string::npos) return;
  const std::size_t exponent = digits.find(letter == 'a' ? 'p' : 'e');
  digits.insert(exponent == std::string::npos ? digits.size() : exponent, 1, '.');
}

std::string Prefix(double value, const Conversion& conversion) {
  std::string prefix;
  if (std::signbit(value)) {
    prefix = "-";
  } else if (conversion.plus || conversion.blank) {
    prefix = conversion.plus ? "+" : " ";
  }
  if (conversion.letter == 'a') prefix += "0x";
  return prefix;
}

void AppendNumber(WString& out, double value, const Conversion& conversion) {
  const std::string prefix = Prefix(value, conversion);
  std::string digits = Digits(std::fabs(value), conversion);
  if (conversion.alternate) InsertPoint(digits, conversion.letter);
  const std::size_t length = prefix.size() + digits.size();
  const std::size_t fill = conversion.width > length ? conversion.width - length : 0;
  const bool zeros = conversion.zeroPad && !conversion.leftAlign;
  std::string text = prefix + std::string(zeros ? fill : 0, '0') + digits;
  if (!zeros) text.insert(conversion.leftAlign ? text.size() : 0, fill, ' ');
  for (const char c : text) {
    const auto unit = static_cast<wchar>(c);
    out.push_back(conversion.upper ? ToAsciiUpper(unit) : unit);
  }
}

}  // namespace

WString FormatFloat(double value, WStringView format) {
  FormatCursor cursor(format);
  WString out;
  if (!cursor.CopyText(out)) cursor.Refuse();
  AppendNumber(out, value, cursor.ReadConversion());
  if (cursor.CopyText(out)) cursor.Refuse();
  return out;
}

}  // namespace TovikXmlLib16
