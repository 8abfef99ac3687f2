#include "tovikxml/values/number_text.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "tovikxml/base/text.h"
#include "tovikxml/values/float_format.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::size_t kOrdinaryLength = 128;

bool IsCSpace(wchar unit) {
  return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

// A place in a text, behind which a zero unit stands.
class TextCursor {
 public:
  explicit TextCursor(WStringView text) : m_text(text) {}

  wchar Peek() const { return m_at < m_text.size() ? m_text[m_at] : u'\0'; }
  bool AtEnd() const { return Peek() == u'\0'; }
  std::size_t Position() const { return m_at; }
  void MoveTo(std::size_t position) { m_at = position; }
  void Advance() { ++m_at; }

  void SkipSpace() {
    while (IsCSpace(Peek())) ++m_at;
  }
  /// Whether a sign was passed that is a minus.
  bool SkipSign() {
    const wchar sign = Peek();
    if (sign == u'-' || sign == u'+') ++m_at;
    return sign == u'-';
  }
  /// Number of digits passed.
  std::size_t SkipDigits() {
    const std::size_t begin = m_at;
    while (IsAsciiDigit(Peek())) ++m_at;
    return m_at - begin;
  }

 private:
  WStringView m_text;
  std::size_t m_at = 0;
};

// Passes an exponent if one with digits stands here; a bare "e" stays.
void SkipExponent(TextCursor& cursor) {
  if (cursor.Peek() != u'e' && cursor.Peek() != u'E') return;
  const std::size_t begin = cursor.Position();
  cursor.Advance();
  cursor.SkipSign();
  if (cursor.SkipDigits() == 0) cursor.MoveTo(begin);
}

// Passes digits, point, digits and exponent; false if there is no digit before the exponent.
bool SkipDecimal(TextCursor& cursor) {
  std::size_t digits = cursor.SkipDigits();
  if (cursor.Peek() == u'.') {
    cursor.Advance();
    digits += cursor.SkipDigits();
  }
  if (digits == 0) return false;
  SkipExponent(cursor);
  return true;
}

long long ExponentOf(std::string_view decimal) {
  const std::size_t mark = decimal.find_first_of("eE");
  if (mark == std::string_view::npos) return 0;
  std::string_view digits = decimal.substr(mark + 1);
  if (digits.front() == '+') digits.remove_prefix(1);
  long long exponent = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  if (result.ec == std::errc()) return exponent;
  constexpr long long kBeyondAnyLength = 1LL << 62;
  return digits.front() == '-' ? -kBeyondAnyLength : kBeyondAnyLength;
}

// Whether a number that no double can hold is so by its size rather than by its smallness.
bool IsLarge(std::string_view decimal) {
  const std::size_t mantissaEnd = std::min(decimal.find_first_of("eE"), decimal.size());
  const std::string_view mantissa = decimal.substr(0, mantissaEnd);
  const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first = static_cast<long long>(mantissa.find_first_of("123456789"));
  return point - first + ExponentOf(decimal) > 0;
}

double MagnitudeOf(std::string_view decimal) {
  double value = 0;
  const auto result = std::from_chars(decimal.data(), decimal.data() + decimal.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  return IsLarge(decimal) ? std::numeric_limits<double>::infinity() : 0.0;
}

double MagnitudeOf(WStringView decimal) {
  if (decimal.size() > kOrdinaryLength) {
    return MagnitudeOf(std::string_view(std::string(decimal.begin(), decimal.end())));
  }
  char narrow[kOrdinaryLength];
  std::transform(decimal.begin(), decimal.end(), narrow, [](wchar unit) { return char(unit); });
  return MagnitudeOf(std::string_view(narrow, decimal.size()));
}

template <class Real>
void Assign(WString& out, Real value, WStringView format, int precision, std::size_t limit) {
  if (std::isnan(value)) {
    out = u"NaN";
  } else if (std::isinf(value)) {
    out = value < 0 ? u"-INF" : u"INF";
  } else if (!format.empty()) {
    out = FormatFloat(static_cast<double>(value), format);
    if (out.size() > limit) out.resize(limit);
  } else {
    char digits[32];
    const auto result = std::to_chars(digits, digits + sizeof digits, static_cast<double>(value),
                                      std::chars_format::general, precision);
    AssignAscii(out, digits, result.ptr);
  }
}

}  // namespace

ScannedInteger ScanInteger(WStringView text) {
  constexpr std::uint64_t kMax = std::numeric_limits<std::uint64_t>::max();
  ScannedInteger scanned;
  TextCursor cursor(text);
  cursor.SkipSpace();
  scanned.negative = cursor.SkipSign();
  if (!IsAsciiDigit(cursor.Peek())) cursor.MoveTo(0);
  bool overflow = false;
  for (; IsAsciiDigit(cursor.Peek()); cursor.Advance()) {
    const auto digit = static_cast<std::uint64_t>(cursor.Peek() - u'0');
    overflow = overflow || scanned.magnitude > (kMax - digit) / 10;
    scanned.magnitude = scanned.magnitude * 10 + digit;
  }
  if (overflow) {
    scanned.status = NumberStatus::kTooLarge;
  } else if (text.empty() || !cursor.AtEnd()) {
    scanned.status = NumberStatus::kNotANumber;
  }
  return scanned;
}

std::optional<double> ParseDouble(WStringView text) {
  TextCursor cursor(text);
  cursor.SkipSpace();
  const bool negative = cursor.SkipSign();
  const std::size_t begin = cursor.Position();
  const bool found = SkipDecimal(cursor);
  if (!found) cursor.MoveTo(0);
  if (text.empty() || !cursor.AtEnd()) return std::nullopt;
  if (!found) return 0.0;
  const double magnitude = MagnitudeOf(text.substr(begin, cursor.Position() - begin));
  return negative ? -magnitude : magnitude;
}

void AssignReal(WString& out, float value, WStringView format) {
  Assign(out, value, format, 7, 32);
}

void AssignReal(WString& out, double value, WStringView format) {
  Assign(out, value, format, 16, 48);
}

}  // namespace TovikXmlLib16
