#ifndef TOVIKXML_VALUES_BIG_INTEGER_H_
#define TOVIKXML_VALUES_BIG_INTEGER_H_

#include <cstddef>
#include <cstdint>
#include <optional>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/values/limb_array.h"
#include "tovikxml/values/number_operators.h"

namespace TovikXmlLib16 {

class CDecimal;

/// An integer of any size, the value of `integer` of XML Schema datatypes.
///
///     CBigInteger price(u"123456789012345678901234567890");
///     price *= CBigInteger(-3);
///     WString text = price.ToString();   // "-370370367037037036703703703670"
///
/// The magnitude is held in base 10^9, so that reading, writing and scaling by powers of ten take
/// time in proportion to the length; multiplication, division and the square root take that time
/// squared. Values of up to 54 digits need no heap.
///
/// A zero can bear a minus sign, as the product of zero and a negative number does. It is written
/// "0" and equals the other zero, but `<` and `>` look at the signs first and put it below: a test
/// for "not below zero" that is to let it pass reads `value == zero || value > zero`.
///
/// A result beyond about 150 million digits raises `CTovikOverFlowException` "The number has too
/// many digits".
class TOVIKXML_EXPORT CBigInteger {
 public:
  /// The limits of 32 and 64 bits, and 17 * 10^307 as the limit of a double.
  static const CBigInteger MAX_LONG;
  static const CBigInteger MIN_LONG;
  static const CBigInteger MAX_LONGLONG;
  static const CBigInteger MIN_LONGLONG;
  static const CBigInteger MAX_DOUBLE;
  static const CBigInteger MIN_DOUBLE;

  CBigInteger() noexcept = default;
  CBigInteger(int value) : CBigInteger(static_cast<long long>(value)) {}
  CBigInteger(long value) : CBigInteger(static_cast<long long>(value)) {}
  CBigInteger(unsigned int value) : CBigInteger(static_cast<unsigned long long>(value)) {}
  CBigInteger(unsigned long value) : CBigInteger(static_cast<unsigned long long>(value)) {}
  CBigInteger(long long value);
  CBigInteger(unsigned long long value);
  /// The nearest integer, with a fraction of exactly one half rounded toward zero. Throws
  /// `CTovikInvalidValueException` for a NaN and the infinities.
  CBigInteger(double value);
  /// Rounded in the same way.
  CBigInteger(const CDecimal& value);
  /// As `Parse` does.
  CBigInteger(const wchar* text) { Parse(text); }
  CBigInteger(const CBigInteger& other) = default;
  CBigInteger(CBigInteger&& other) noexcept = default;
  CBigInteger& operator=(const CBigInteger& other) = default;
  CBigInteger& operator=(CBigInteger&& other) noexcept = default;
  virtual ~CBigInteger() = default;

  /// Reads digits behind an optional sign. Blanks at both ends are passed over, and a text of
  /// blanks is zero. Of a text with signs or white space elsewhere only the digits at its very end
  /// count: "12 34" reads as 34. A text with any other character is read as a `CDecimal` and
  /// rounded: "1.5E3" is 1500, "2.5" is 2; the messages are then those of `CDecimal`. Throws
  /// `CTovikInvalidValueException` for more than `GetMaxTextDigits()` digits, and
  /// `CTovikInvalidParamException` for a null pointer. After a failure the value is as it was.
  void Parse(const wchar* text);
  WString ToString() const;

  /// Number of digits that this class and `CDecimal` take from one text, so that a hostile document
  /// cannot plant a number whose arithmetic never ends. 100000 unless set; for the whole process,
  /// without a lock.
  static unsigned int GetMaxTextDigits() { return m_maxTextDigits; }
  static void SetMaxTextDigits(unsigned int digits) { m_maxTextDigits = digits; }

  /// Throws `CTovikInvalidValueException` "ERROR: Value out of bound of int." outside 32 bits.
  operator int() const;
  /// Throws `CTovikInvalidValueException` "ERROR: Value out of bound of LONGLONG." outside 64 bits.
  operator long long() const;

  void Abs() { m_sign = 1; }
  void Negate() { m_sign = -m_sign; }
  /// Negates the object itself; `GetNegative` leaves it as it is.
  CBigInteger& operator-();
  CBigInteger GetAbs() const;
  CBigInteger GetNegative() const;

  /// Division truncates toward zero, and a remainder has the sign of the dividend. A divisor of
  /// zero raises `CTovikInvalidValueException` "ERROR: Overflow in operator/.", and with the
  /// operator's own name in the others: "operator%.", "operator /=.", "operator%=.". One operand
  /// may be a built-in integer (number_operators.h).
  CBigInteger operator+(const CBigInteger& other) const;
  CBigInteger operator-(const CBigInteger& other) const;
  CBigInteger operator*(const CBigInteger& other) const;
  CBigInteger operator/(const CBigInteger& divisor) const;
  CBigInteger operator%(const CBigInteger& divisor) const;
  CBigInteger& operator+=(const CBigInteger& other) { return *this = *this + other; }
  CBigInteger& operator-=(const CBigInteger& other) { return *this = *this - other; }
  CBigInteger& operator*=(const CBigInteger& other) { return *this = *this * other; }
  CBigInteger& operator/=(const CBigInteger& divisor);
  CBigInteger& operator%=(const CBigInteger& divisor);

  bool operator==(const CBigInteger& other) const;
  bool operator!=(const CBigInteger& other) const { return !(*this == other); }
  bool operator<(const CBigInteger& other) const { return OrderSigned(other) < 0; }
  bool operator>(const CBigInteger& other) const { return OrderSigned(other) > 0; }
  bool operator<=(const CBigInteger& other) const { return !(*this > other); }
  bool operator>=(const CBigInteger& other) const { return !(*this < other); }

  /// The floor of the square root. Throws `CTovikInvalidValueException` "ERROR: Negative Number in
  /// function SquareRoot()." for a value below zero.
  CBigInteger SquareRoot() const;
  /// 10 to the power `n`.
  static CBigInteger Pow10(unsigned int n);

 protected:
  /// A magnitude in limbs of base `kBase`, each of `kLimbDigits` decimal digits, without a zero
  /// limb at the high end. Zero is one zero limb or no limb.
  using Digits = tovikxml_detail::LimbArray;
  using Limb = Digits::Limb;

  static constexpr Limb kBase = 1000000000;
  static constexpr int kLimbDigits = 9;

  CBigInteger(int sign, const Digits& digits) : m_sign(sign), m_digits(digits) {}
  CBigInteger(int sign, Digits&& digits) noexcept;

  /// Operations on magnitudes. A result may be an operand too.

  /// Removes zeros at the high end, leaving at least one limb if there was one.
  static void Clean(Digits& digits);
  static bool IsZero(const Digits& digits);
  /// -1, 0 or 1.
  static int Compare(const Digits& a, const Digits& b);
  /// Number of decimal digits; 1 for zero.
  static int Position(const Digits& digits);
  /// Number of zeros at the low end in decimal; -1 for the value zero, where there is no end.
  static int TrailingZeros(const Digits& digits);
  /// The decimal digit behind `place` lower ones.
  static int DigitAt(const Digits& digits, int place);
  /// Multiplies by 10 to the power `n`; no effect for `n` below 1.
  static void ShiftLeft(Digits& digits, int n);
  /// Drops the `n` lowest decimal digits.
  static void ShiftRight(Digits& digits, int n);
  /// Drops all but the `n` lowest decimal digits.
  static void KeepLow(Digits& digits, int n);
  static void Pow10(unsigned int n, Digits& digits);

  static void Build(unsigned int value, Digits& digits) { BuildDWORDLONG(value, digits); }
  static void BuildDWORDLONG(unsigned long long value, Digits& digits);
  /// Takes a finite number that is not negative, rounded as by the constructor, with all its
  /// digits.
  static void BuildDouble(double value, Digits& digits);
  /// The digits at the very end of the text.
  static void Build(const wchar* text, Digits& digits) { BuildTail(WStringView(text), digits); }
  static void BuildTail(WStringView text, Digits& digits);
  /// All `count` digits of the text, whatever stands between them. Refuses too many digits as
  /// `Parse` does.
  static void BuildDigits(WStringView text, std::size_t count, Digits& digits);
  /// Appends at least `minimum` decimal digits, with zeros in front.
  static void AppendText(const Digits& digits, std::size_t minimum, WString& out);

  static void Add(const Digits& a, const Digits& b, Digits& result);
  /// `a` must not be smaller than `b`.
  static void Subtract(const Digits& a, const Digits& b, Digits& result);
  static void Multiply(const Digits& a, Limb limb, Digits& result);
  static void Multiply(const Digits& a, const Digits& b, Digits& result);
  /// `b` must not be zero.
  static void Divide(const Digits& a, const Digits& b, Digits& quotient, Digits& remainder);

 private:
  friend class CDecimal;

  static Limb DivideByLimb(const Digits& a, Limb divisor, Digits& quotient);
  static void DivideLong(const Digits& a, const Digits& b, Digits& quotient, Digits& remainder);

  bool IsZero() const { return IsZero(m_digits); }
  int OrderSigned(const CBigInteger& other) const;
  CBigInteger PlusSigned(const CBigInteger& other, int otherSign) const;
  CBigInteger Quotient(const CBigInteger& divisor, const wchar* message) const;
  CBigInteger Remainder(const CBigInteger& divisor, const wchar* message) const;
  std::optional<std::int64_t> ToInt64() const;

  static unsigned int m_maxTextDigits;

  std::int32_t m_sign = 1;
  Digits m_digits;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_BIG_INTEGER_H_
