#include <algorithm>
#include <charconv>
#include <cmath>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/values/decimal.h"

namespace TovikXmlLib16 {
namespace {

bool IsSpace(wchar unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

bool IsSign(wchar unit) {
  return unit == u'-' || unit == u'+';
}

// Finds the parts of a decimal text and refuses what belongs to none.
class DecimalScanner {
 public:
  explicit DecimalScanner(WStringView text) : m_text(text) {}

  void Run() {
    ScanInteger();
    if (Peek() == u'.') ScanFraction();
    m_mantissa = m_text.substr(0, m_at);
    if (Peek() == u'e' || Peek() == u'E') ScanExponent();
    if (m_at < m_text.size()) Refuse();
  }

  bool IsNegative() const { return m_negative; }
  /// The text of integer and fraction, with `DigitCount` digits and other units among them.
  WStringView Mantissa() const { return m_mantissa; }
  std::size_t DigitCount() const { return m_integerDigits + m_fractionDigits; }
  std::size_t FractionDigits() const { return m_fractionDigits; }
  bool HasExponent() const { return m_exponentDigits; }
  bool IsExponentNegative() const { return m_negativeExponent; }
  /// Stops growing beyond what is accepted.
  int Exponent() const { return m_exponent; }

 private:
  wchar Peek() const { return m_at < m_text.size() ? m_text[m_at] : u'\0'; }

  [[noreturn]] void Refuse() const {
    throw CTovikInvalidValueException(FormatString(
        u"The string representing a Decimal, contained an invalid char at position %d [%s].",
        static_cast<int>(m_at), m_text.data()));
  }

  void ScanInteger() {
    for (; m_at < m_text.size(); ++m_at) {
      const wchar unit = m_text[m_at];
      if (IsAsciiDigit(unit)) {
        ++m_integerDigits;
      } else if (IsSign(unit)) {
        m_negative = unit == u'-';
      } else if (unit == u'.' || unit == u'e' || unit == u'E') {
        return;
      } else if (!IsSpace(unit)) {
        Refuse();
      }
    }
  }

  void ScanFraction() {
    for (++m_at; IsAsciiDigit(Peek()) || IsSpace(Peek()); ++m_at) {
      if (IsAsciiDigit(Peek())) ++m_fractionDigits;
    }
  }

  void ScanExponent() {
    for (++m_at; IsSign(Peek()) || IsSpace(Peek()); ++m_at) {
      if (IsSign(Peek())) m_negativeExponent = Peek() == u'-';
    }
    for (; IsAsciiDigit(Peek()); ++m_at) {
      m_exponentDigits = true;
      if (m_exponent <= CDecimal::kMaxExponent) m_exponent = m_exponent * 10 + (Peek() - u'0');
    }
  }

  WStringView m_text;
  std::size_t m_at = 0;
  WStringView m_mantissa;
  std::size_t m_integerDigits = 0;
  std::size_t m_fractionDigits = 0;
  int m_exponent = 0;
  bool m_negative = false;
  bool m_negativeExponent = false;
  bool m_exponentDigits = false;
};

}  // namespace

CDecimal::CDecimal(double value) {
  if (!std::isfinite(value)) {
    throw CTovikInvalidValueException(u"A NaN or an infinity can not be converted to a Decimal");
  }
  constexpr int kPlaces = 13;
  char digits[330];  // a sign, 309 digits, the point and the places
  const auto end =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, kPlaces).ptr;
  Parse(WString(digits, end).c_str());
}

void CDecimal::Parse(const wchar* text) {
  if (!text) throw CTovikInvalidParamException(u"The text of a Decimal is null");
  DecimalScanner scanner(text);
  scanner.Run();
  if (scanner.Exponent() > kMaxExponent) {
    throw CTovikInvalidValueException(FormatString(
        u"The string representing a Decimal, contained an exponent out of range [%s].", text));
  }
  CBigInteger::BuildDigits(scanner.Mantissa(), scanner.DigitCount(), m_unscaled.m_digits);
  if (scanner.IsNegative()) m_unscaled.Negate();
  SetPlaces(static_cast<int>(scanner.FractionDigits()));
  if (scanner.HasExponent()) Scale(scanner.IsExponentNegative(), scanner.Exponent());
  Finish();
}

// Multiplies or divides by 10 to the power of the exponent, as the operators do, which may leave
// zeros at the end of what they round.
void CDecimal::Scale(bool negativeExponent, int exponent) {
  if (negativeExponent) {
    const int surplus = m_divider + exponent - (m_maxDivider + 2);
    CBigInteger::ShiftRight(m_unscaled.m_digits, surplus);
    m_divider += exponent - std::max(surplus, 0);
  } else {
    CBigInteger::ShiftLeft(m_unscaled.m_digits, exponent);
  }
  if (IsZero()) m_unscaled.Abs();
  Finish();
}

// All digits, with at least one before the point, which is not written.
WString CDecimal::DigitText() const {
  WString text;
  CBigInteger::AppendText(m_unscaled.m_digits, static_cast<std::size_t>(m_divider) + 1, text);
  return text;
}

WString CDecimal::ToString() const {
  if (!HasFraction()) return GetIntegerPart().ToString();
  WString text = DigitText();
  text.insert(text.size() - static_cast<std::size_t>(m_divider), 1, u'.');
  if (m_unscaled.m_sign < 0) text.insert(text.begin(), u'-');
  return text;
}

WString CDecimal::ToString(int places) const {
  if (places < 0) {
    throw CTovikInvalidParamException(
        FormatString(u"The number of decimal places is out of range [%d]", places));
  }
  // Half a unit of the last place vanishes where it lies behind the places that are kept.
  CBigInteger half(places < m_maxDivider ? 5 : 0);
  half.m_sign = m_unscaled.m_sign;
  const CDecimal sum = *this + CDecimal(half, places < m_maxDivider ? places + 1 : 1);
  WString text = sum.DigitText();
  text.insert(text.size() - static_cast<std::size_t>(sum.m_divider), 1, u'.');
  if (sum.m_divider > places)
    text.resize(text.size() - static_cast<std::size_t>(sum.m_divider - places));
  if (sum.m_unscaled.m_sign < 0) text.insert(text.begin(), u'-');
  return text;
}

}  // namespace TovikXmlLib16
