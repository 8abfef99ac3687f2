#include "tovikxml/values/decimal.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/values/number_text.h"

namespace TovikXmlLib16 {

std::int32_t CDecimal::m_maxDivider = 30;

// Raises a divider of 0 to the 1 that a rationalised value has at least.
CDecimal::CDecimal(CBigInteger unscaled, int divider) : m_unscaled(std::move(unscaled)) {
  SetPlaces(divider);
}

void CDecimal::SetPlaces(int places) {
  m_divider = std::max(places, 1);
  if (m_divider != places) CBigInteger::ShiftLeft(m_unscaled.m_digits, m_divider - places);
}

void CDecimal::SetMaxDecimalPlaces(int places) {
  if (places < 0 || places > kMaxPlaces) {
    throw CTovikInvalidParamException(
        FormatString(u"The number of decimal places is out of range [%d]", places));
  }
  m_maxDivider = places;
}

// Takes zeros off the end of the fraction; one digit stays.
void CDecimal::Rationalise() {
  const int zeros = IsZero() ? m_divider : CBigInteger::TrailingZeros(m_unscaled.m_digits);
  const int dropped = std::min(zeros, m_divider - 1);
  if (dropped <= 0) return;
  CBigInteger::ShiftRight(m_unscaled.m_digits, dropped);
  m_divider -= dropped;
}

// Rounds to a smaller divider, a half toward zero, or appends zeros up to a larger one.
void CDecimal::ChangeFractionalDivider(int divider) {
  CBigInteger::Digits& digits = m_unscaled.m_digits;
  const int dropped = m_divider - divider;
  m_divider = divider;
  CBigInteger::ShiftLeft(digits, -dropped);
  if (dropped <= 0) return;
  const int first = CBigInteger::DigitAt(digits, dropped - 1);
  const bool more = first == 5 && CBigInteger::TrailingZeros(digits) < dropped - 1;
  CBigInteger::ShiftRight(digits, dropped);
  if (first > 5 || more) CBigInteger::Add(digits, CBigInteger(1).m_digits, digits);
}

void CDecimal::Finish() {
  Rationalise();
  if (m_divider > m_maxDivider) ChangeFractionalDivider(m_maxDivider);
}

int CDecimal::Normalize(CDecimal& a, CDecimal& b) {
  const int divider = std::max(a.m_divider, b.m_divider);
  a.ChangeFractionalDivider(divider);
  b.ChangeFractionalDivider(divider);
  return divider;
}

bool CDecimal::HasFraction() const {
  return !IsZero() && CBigInteger::TrailingZeros(m_unscaled.m_digits) < m_divider;
}

CBigInteger CDecimal::GetIntegerPart() const {
  CBigInteger part(m_unscaled);
  CBigInteger::ShiftRight(part.m_digits, m_divider);
  return part;
}

CBigInteger CDecimal::GetFractionPart() const {
  CBigInteger part(m_unscaled);
  CBigInteger::KeepLow(part.m_digits, m_divider);
  return part;
}

CBigInteger CDecimal::ToBigInteger() const {
  CDecimal rounded(*this);
  rounded.ChangeFractionalDivider(0);
  return std::move(rounded.m_unscaled);
}

long CDecimal::ToLong() const {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::optional<std::int64_t> value = ToBigInteger().ToInt64();
  if (!value || *value < Limits::min() || *value > Limits::max()) {
    throw CTovikOverFlowException(u"The Decimal value if to large to fit into a LONG");
  }
  return static_cast<long>(*value);
}

long long CDecimal::ToLongLong() const {
  using Limits = std::numeric_limits<long long>;
  CDecimal rounded(*this);
  rounded.ChangeFractionalDivider(1);
  if (rounded < CDecimal(Limits::min()) || rounded > CDecimal(Limits::max())) {
    throw CTovikOverFlowException(u"The Decimal value if to large to fit into a LONGLONG");
  }
  return rounded.GetIntegerPart();
}

double CDecimal::ToDouble() const {
  const CBigInteger part = GetIntegerPart();
  if (part > CBigInteger::MAX_DOUBLE || part < CBigInteger::MIN_DOUBLE) {
    throw CTovikOverFlowException(u"The Decimal value if to large to fit into a Double");
  }
  return ParseDouble(ToString()).value_or(0.0);
}

CDecimal CDecimal::operator+(const CDecimal& other) const {
  CDecimal a(*this);
  if (m_divider == other.m_divider) {
    a.m_unscaled += other.m_unscaled;
  } else {
    CDecimal b(other);
    Normalize(a, b);
    a.m_unscaled += b.m_unscaled;
  }
  a.Rationalise();
  return a;
}

CDecimal CDecimal::operator-(const CDecimal& other) const {
  return *this + other.GetNegative();
}

CDecimal CDecimal::operator*(const CDecimal& other) const {
  CDecimal product(m_unscaled * other.m_unscaled, m_divider + other.m_divider);
  if (product.IsZero()) product.m_unscaled.Abs();
  product.Finish();
  return product;
}

// The quotient is computed to two places more than are kept.
CDecimal CDecimal::operator/(const CDecimal& divisor) const {
  CDecimal a(*this), b(divisor);
  Normalize(a, b);
  const int places = m_maxDivider + 2;
  CBigInteger::ShiftLeft(a.m_unscaled.m_digits, places);
  CDecimal quotient(a.m_unscaled / b.m_unscaled, places);
  if (quotient.IsZero()) quotient.m_unscaled.Abs();
  quotient.Finish();
  return quotient;
}

CDecimal CDecimal::operator++(int) {
  CDecimal before(*this);
  ++*this;
  return before;
}

CDecimal CDecimal::operator--(int) {
  CDecimal before(*this);
  --*this;
  return before;
}

CDecimal CDecimal::GetNegative() const {
  CDecimal negative(*this);
  negative.Negate();
  return negative;
}

int CDecimal::Order(const CDecimal& other) const {
  if (IsZero() && other.IsZero()) return 0;
  if (m_divider == other.m_divider) return m_unscaled.OrderSigned(other.m_unscaled);
  CDecimal a(*this), b(other);
  Normalize(a, b);
  return a.m_unscaled.OrderSigned(b.m_unscaled);
}

}  // namespace TovikXmlLib16
