#ifndef TOVIKXML_VALUES_DECIMAL_H_
#define TOVIKXML_VALUES_DECIMAL_H_

#include <cstdint>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/values/big_integer.h"

namespace TovikXmlLib16 {

/// An exact decimal number, the value of `decimal` of XML Schema datatypes.
///
///     CDecimal total(u"0.1");
///     total += CDecimal(u"0.2");
///     WString exact = total.ToString();              // "0.3"
///     WString rounded = CDecimal(u"2.345").ToString(2);   // "2.35"
///
/// Addition and subtraction are exact. Reading, multiplication and division keep at most
/// `GetMaxDecimalPlaces()` decimal places and round what lies behind them; a rest of exactly one
/// half rounds toward zero there, unlike in `ToString(int)`.
///
/// A value is seen as an integer part, a fraction part and a divider: 12.05 is 12, 5 and 2. Both
/// parts bear the value's sign, zero parts too. The divider is the smallest possible one, at least
/// 1; only a rounding to the maximum can leave a larger one. Comparison goes by the number alone:
/// 1.5 equals 1.50, and the two zeros are equal and neither is below the other.
class TOVIKXML_EXPORT CDecimal {
 public:
  CDecimal() : CDecimal(0) {}
  CDecimal(int value) : CDecimal(CBigInteger(value)) {}
  CDecimal(long value) : CDecimal(CBigInteger(value)) {}
  CDecimal(long long value) : CDecimal(CBigInteger(value)) {}
  CDecimal(unsigned int value) : CDecimal(CBigInteger(value)) {}
  CDecimal(unsigned long value) : CDecimal(CBigInteger(value)) {}
  CDecimal(unsigned long long value) : CDecimal(CBigInteger(value)) {}
  CDecimal(const CBigInteger& value) : CDecimal(value, 0) {}
  /// The number rounded to thirteen decimal places. Throws `CTovikInvalidValueException` for a NaN
  /// and the infinities.
  CDecimal(double value);
  /// Reads digits with a decimal point and an exponent, such as "-12.05" and "1.5E-3"; all parts
  /// may be missing, so that "" is zero. White space is passed over, and among the integer digits
  /// and before the exponent digits signs may stand anywhere, of which the last counts. Throws
  /// `CTovikInvalidValueException`
  ///
  ///   - "The string representing a Decimal, contained an invalid char at position %d [%s]." with
  ///     the index and the text,
  ///   - "The string representing a Decimal, contained an exponent out of range [%s]." for an
  ///     exponent beyond `kMaxExponent` in either direction,
  ///   - "The number has more than %u digits" for more than `CBigInteger::GetMaxTextDigits()`
  ///   digits
  ///     of integer and fraction together,
  ///
  /// and `CTovikInvalidParamException` for a null pointer.
  CDecimal(const wchar* text) { Parse(text); }
  CDecimal(const CDecimal& other) = default;
  CDecimal(CDecimal&& other) noexcept = default;
  CDecimal& operator=(const CDecimal& other) = default;
  CDecimal& operator=(CDecimal&& other) noexcept = default;
  virtual ~CDecimal() = default;

  static constexpr int kMaxExponent = 10000;
  /// Upper limit of `SetMaxDecimalPlaces`.
  static constexpr int kMaxPlaces = 10000;

  /// The number of decimal places kept by later operations, 30 unless set; values already made keep
  /// theirs. For the whole process, without a lock: set it before threads use decimals. Throws
  /// `CTovikInvalidParamException` "The number of decimal places is out of range [%d]" for a number
  /// below 0 or above `kMaxPlaces`.
  static int GetMaxDecimalPlaces() { return m_maxDivider; }
  static void SetMaxDecimalPlaces(int places);

  /// All digits and no more, without a point for an integral number.
  WString ToString() const;
  /// At most `places` fraction digits, rounded half away from zero. There is always a point, and
  /// zeros at the end of the sum of the value and half a unit of the last place are not written:
  /// 3 gives "3.00" with two places, 1.995 gives "2.0", and 2.6 gives "3." with none. With as many
  /// places as `GetMaxDecimalPlaces()` or more, digits behind them are cut. Throws
  /// `CTovikInvalidParamException` "The number of decimal places is out of range [%d]" for a
  /// negative count.
  WString ToString(int places) const;

  /// Throws `CTovikOverFlowException` "The Decimal value if to large to fit into a Double" for an
  /// integer part beyond `CBigInteger::MAX_DOUBLE` or `MIN_DOUBLE`.
  double ToDouble() const;
  /// Rounded to an integer, a half toward zero. Throws `CTovikOverFlowException` "The Decimal value
  /// if to large to fit into a LONG" outside 32 bits.
  long ToLong() const;
  /// Rounded to one decimal place, a half toward zero, which is then dropped: 12.96 gives 13 and
  /// 12.94 gives 12. Throws `CTovikOverFlowException` "The Decimal value if to large to fit into a
  /// LONGLONG" if the rounded value lies outside 64 bits.
  long long ToLongLong() const;
  /// Rounded to an integer, a half toward zero.
  CBigInteger ToBigInteger() const;

  CBigInteger GetIntegerPart() const;
  /// The digits behind the point as a number, with the sign of the value.
  CBigInteger GetFractionPart() const;
  /// How many digits behind the point the fraction part stands for.
  int GetFractionDivider() const { return m_divider; }

  /// One operand may be a built-in integer (number_operators.h).
  CDecimal operator+(const CDecimal& other) const;
  CDecimal operator-(const CDecimal& other) const;
  CDecimal operator*(const CDecimal& other) const;
  /// Throws `CTovikInvalidValueException` "ERROR: Overflow in operator/." for a divisor of zero.
  CDecimal operator/(const CDecimal& divisor) const;
  CDecimal& operator+=(const CDecimal& other) { return *this = *this + other; }
  CDecimal& operator-=(const CDecimal& other) { return *this = *this - other; }
  CDecimal& operator*=(const CDecimal& other) { return *this = *this * other; }
  CDecimal& operator/=(const CDecimal& divisor) { return *this = *this / divisor; }
  CDecimal& operator++() { return *this += CDecimal(1); }
  CDecimal& operator--() { return *this -= CDecimal(1); }
  CDecimal operator++(int);
  CDecimal operator--(int);

  void Negate() { m_unscaled.Negate(); }
  CDecimal GetNegative() const;

  bool operator==(const CDecimal& other) const { return Order(other) == 0; }
  bool operator!=(const CDecimal& other) const { return Order(other) != 0; }
  bool operator<(const CDecimal& other) const { return Order(other) < 0; }
  bool operator>(const CDecimal& other) const { return Order(other) > 0; }
  bool operator<=(const CDecimal& other) const { return Order(other) <= 0; }
  bool operator>=(const CDecimal& other) const { return Order(other) >= 0; }

 private:
  CDecimal(CBigInteger unscaled, int divider);

  void Parse(const wchar* text);
  /// Lets the last digits of the unscaled number be places; there is at least one.
  void SetPlaces(int places);
  void Scale(bool negativeExponent, int exponent);
  void Rationalise();
  void ChangeFractionalDivider(int divider);
  void Finish();
  static int Normalize(CDecimal& a, CDecimal& b);

  bool IsZero() const { return m_unscaled.IsZero(); }
  bool HasFraction() const;
  int Order(const CDecimal& other) const;
  WString DigitText() const;

  static std::int32_t m_maxDivider;

  // The value times 10 to the power m_divider: both parts in one number.
  CBigInteger m_unscaled;
  std::int32_t m_divider = 1;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_DECIMAL_H_
