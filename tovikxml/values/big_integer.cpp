#include "tovikxml/values/big_integer.h"

#include <cmath>
#include <limits>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/values/decimal.h"

namespace TovikXmlLib16 {
namespace {

unsigned long long MagnitudeOf(long long value) {
  const auto bits = static_cast<unsigned long long>(value);
  return value < 0 ? 0 - bits : bits;
}

}  // namespace

unsigned int CBigInteger::m_maxTextDigits = 100000;

const CBigInteger CBigInteger::MAX_LONG{CDecimal(u"2147483647")};
const CBigInteger CBigInteger::MIN_LONG{CDecimal(u"-2147483648")};
const CBigInteger CBigInteger::MAX_LONGLONG{CDecimal(u"9223372036854775807")};
const CBigInteger CBigInteger::MIN_LONGLONG{CDecimal(u"-9223372036854775808")};
const CBigInteger CBigInteger::MAX_DOUBLE{CDecimal(u"1.7E+308")};
const CBigInteger CBigInteger::MIN_DOUBLE{CDecimal(u"-1.7E+308")};

CBigInteger::CBigInteger(long long value) : m_sign(value < 0 ? -1 : 1) {
  BuildDWORDLONG(MagnitudeOf(value), m_digits);
}

CBigInteger::CBigInteger(unsigned long long value) {
  BuildDWORDLONG(value, m_digits);
}

CBigInteger::CBigInteger(double value) : m_sign(value < 0 ? -1 : 1) {
  if (!std::isfinite(value)) {
    throw CTovikInvalidValueException(u"A NaN or an infinity can not be converted to an Integer");
  }
  BuildDouble(std::fabs(value), m_digits);
}

CBigInteger::CBigInteger(const CDecimal& value) : CBigInteger(value.ToBigInteger()) {}

CBigInteger::CBigInteger(int sign, Digits&& digits) noexcept
    : m_sign(sign), m_digits(std::move(digits)) {}

CBigInteger::operator int() const {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::optional<std::int64_t> value = ToInt64();
  if (value && *value >= Limits::min() && *value <= Limits::max()) return static_cast<int>(*value);
  throw CTovikInvalidValueException(u"ERROR: Value out of bound of int.");
}

CBigInteger::operator long long() const {
  if (const std::optional<std::int64_t> value = ToInt64()) return *value;
  throw CTovikInvalidValueException(u"ERROR: Value out of bound of LONGLONG.");
}

// Nothing if the value does not fit.
std::optional<std::int64_t> CBigInteger::ToInt64() const {
  const std::uint64_t limit = (std::uint64_t{1} << 63) - (m_sign < 0 ? 0u : 1u);
  std::uint64_t magnitude = 0;
  for (std::size_t i = m_digits.Size(); i-- > 0;) {
    if (magnitude > (limit - m_digits[i]) / kBase) return std::nullopt;
    magnitude = magnitude * kBase + m_digits[i];
  }
  return static_cast<std::int64_t>(m_sign < 0 ? 0 - magnitude : magnitude);
}

CBigInteger& CBigInteger::operator-() {
  Negate();
  return *this;
}

CBigInteger CBigInteger::GetAbs() const {
  return CBigInteger(1, m_digits);
}

CBigInteger CBigInteger::GetNegative() const {
  return CBigInteger(-m_sign, m_digits);
}

CBigInteger CBigInteger::PlusSigned(const CBigInteger& other, int otherSign) const {
  Digits result;
  if (m_sign == otherSign) {
    Add(m_digits, other.m_digits, result);
    return CBigInteger(m_sign, std::move(result));
  }
  const int order = Compare(m_digits, other.m_digits);
  if (order == 0) return CBigInteger();
  if (order > 0) {
    Subtract(m_digits, other.m_digits, result);
  } else {
    Subtract(other.m_digits, m_digits, result);
  }
  return CBigInteger(order > 0 ? m_sign : otherSign, std::move(result));
}

CBigInteger CBigInteger::Quotient(const CBigInteger& divisor, const wchar* message) const {
  if (divisor.IsZero()) throw CTovikInvalidValueException(message);
  if (IsZero()) return CBigInteger();
  Digits quotient, remainder;
  Divide(m_digits, divisor.m_digits, quotient, remainder);
  return CBigInteger(m_sign * divisor.m_sign, std::move(quotient));
}

CBigInteger CBigInteger::Remainder(const CBigInteger& divisor, const wchar* message) const {
  if (divisor.IsZero()) throw CTovikInvalidValueException(message);
  if (IsZero()) return CBigInteger();
  Digits quotient, remainder;
  Divide(m_digits, divisor.m_digits, quotient, remainder);
  return CBigInteger(m_sign, std::move(remainder));
}

CBigInteger CBigInteger::operator+(const CBigInteger& other) const {
  return PlusSigned(other, other.m_sign);
}

CBigInteger CBigInteger::operator-(const CBigInteger& other) const {
  return PlusSigned(other, -other.m_sign);
}

CBigInteger CBigInteger::operator*(const CBigInteger& other) const {
  Digits product;
  Multiply(m_digits, other.m_digits, product);
  return CBigInteger(m_sign * other.m_sign, std::move(product));
}

CBigInteger CBigInteger::operator/(const CBigInteger& divisor) const {
  return Quotient(divisor, u"ERROR: Overflow in operator/.");
}

CBigInteger CBigInteger::operator%(const CBigInteger& divisor) const {
  return Remainder(divisor, u"ERROR: Overflow in operator%.");
}

CBigInteger& CBigInteger::operator/=(const CBigInteger& divisor) {
  return *this = Quotient(divisor, u"ERROR: Overflow in operator /=.");
}

CBigInteger& CBigInteger::operator%=(const CBigInteger& divisor) {
  return *this = Remainder(divisor, u"ERROR: Overflow in operator%=.");
}

bool CBigInteger::operator==(const CBigInteger& other) const {
  return Compare(m_digits, other.m_digits) == 0 && (m_sign == other.m_sign || IsZero());
}

// Signs decide first, also those of zeros.
int CBigInteger::OrderSigned(const CBigInteger& other) const {
  if (m_sign != other.m_sign) return m_sign;
  return m_sign * Compare(m_digits, other.m_digits);
}

CBigInteger CBigInteger::SquareRoot() const {
  if (IsZero()) return CBigInteger();
  if (m_sign < 0) {
    throw CTovikInvalidValueException(u"ERROR: Negative Number in function SquareRoot().");
  }
  // Newton's iteration falls from a start above the root until it meets the floor of the root.
  const CBigInteger two(2);
  CBigInteger next = Pow10(static_cast<unsigned int>(Position(m_digits) + 1) / 2);
  CBigInteger root;
  do {
    root = std::move(next);
    next = (root + *this / root) / two;
  } while (next < root);
  return root;
}

CBigInteger CBigInteger::Pow10(unsigned int n) {
  CBigInteger power;
  Pow10(n, power.m_digits);
  return power;
}

}  // namespace TovikXmlLib16
