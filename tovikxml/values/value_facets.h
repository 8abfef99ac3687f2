#ifndef TOVIKXML_VALUES_VALUE_FACETS_H_
#define TOVIKXML_VALUES_VALUE_FACETS_H_

#include <concepts>
#include <cstddef>
#include <type_traits>

#include "tovikxml/base/item_type.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/values/date_time.h"
#include "tovikxml/values/restrictions.h"
#include "tovikxml/values/value_kinds.h"

/// The facet checks for each kind of values (XML Schema datatypes, constraining facets). Internal.
/// The facets that apply follow from the type of the value:
///
///     binary, string              minLength, maxLength, length
///     string                      pattern
///     all but binary, string and boolean
///                                 minInclusive, maxInclusive, minExclusive, maxExclusive
///     whole numbers, decimal      totalDigits
///     decimal                     fractionDigits
///
/// A year, a month and a day are numbers here, but have no digits to count. Other facets of a
/// record are passed over.
namespace TovikXmlLib16 {

namespace tovikxml_detail {

/// How a value stands to a bound, as a set of one or no member. A NaN stands in none of these ways,
/// so that no bound lets it pass; a date that cannot be ordered passes every bound.
enum Orders : unsigned { kNone = 0, kLess = 1, kEqual = 2, kGreater = 4, kIndeterminate = 8 };

template <class T>
unsigned OrderOf(const T& value, const T& bound) {
  // First, since a zero of either sign equals the other, and one may still be below the other.
  if (value == bound) return kEqual;
  if (value < bound) return kLess;
  return value > bound ? kGreater : kNone;
}

template <class T>
concept PartiallyOrdered = requires(const T& value) {
  { value.CompareTo(value) } -> std::same_as<CDateTime::DTCompareResult>;
};

template <PartiallyOrdered T>
unsigned OrderOf(const T& value, const T& bound) {
  constexpr Orders kOrders[] = {kEqual, kLess, kGreater, kIndeterminate};
  return kOrders[value.CompareTo(bound)];
}

template <class Row>
bool BoundHolds(const typename Row::Type& value, const WString& bound, unsigned passing) {
  if (bound.empty()) return true;
  return OrderOf(value, Row::FromText(bound, CWhitespaceUtils::ws_collapse)) & passing;
}

template <class Row>
bool BoundsHold(const typename Row::Type& value, const CPrimitiveRestrictions& r) {
  return BoundHolds<Row>(value, r.GetMinInclusive(), kGreater | kEqual | kIndeterminate) &&
         BoundHolds<Row>(value, r.GetMaxInclusive(), kLess | kEqual | kIndeterminate) &&
         BoundHolds<Row>(value, r.GetMinExclusive(), kGreater | kIndeterminate) &&
         BoundHolds<Row>(value, r.GetMaxExclusive(), kLess | kIndeterminate);
}

template <class Row>
WString TextOfValue(const typename Row::Type& value) {
  WString text;
  Row::ToText(value, nullptr, text);
  return text;
}

template <class Row>
bool DigitsHold(const typename Row::Type& value, const CPrimitiveRestrictions& r) {
  if (r.GetTotalDigits() < 0) return true;
  const WString text = TextOfValue<Row>(value);
  const std::size_t sign = text.front() == u'-' ? 1 : 0;
  return text.size() - sign <= static_cast<std::size_t>(r.GetTotalDigits());
}

bool DecimalDigitsHold(const CDecimal& value, const CPrimitiveRestrictions& restrictions);
bool LengthHolds(std::size_t length, const CPrimitiveRestrictions& restrictions);
bool PatternHolds(const WString& name, const WString& value,
                  const CPrimitiveRestrictions& restrictions);

template <ItemType kind>
constexpr bool kIsCalendarField = kind == it_year || kind == it_month || kind == it_day;

template <ItemType kind>
bool FacetsHold(const WString& name, const typename ValueKind<kind>::Type& value,
                const CPrimitiveRestrictions& r) {
  using Row = ValueKind<kind>;
  using T = typename Row::Type;
  if constexpr (std::is_same_v<T, bool>) {
    return true;
  } else if constexpr (std::is_same_v<T, CBinaryData>) {
    return LengthHolds(value.GetLength(), r);
  } else if constexpr (std::is_same_v<T, WString>) {
    return LengthHolds(value.size(), r) && PatternHolds(name, value, r);
  } else if constexpr (std::is_same_v<T, CDecimal>) {
    return BoundsHold<Row>(value, r) && DecimalDigitsHold(value, r);
  } else if constexpr ((std::is_integral_v<T> && !kIsCalendarField<kind>) ||
                       std::is_same_v<T, CBigInteger>) {
    return BoundsHold<Row>(value, r) && DigitsHold<Row>(value, r);
  } else {
    return BoundsHold<Row>(value, r);
  }
}

[[noreturn]] void RefuseNumber(const WString& name, int value);
[[noreturn]] void RefuseReal(const WString& name, double value);
[[noreturn]] void RefuseText(const WString& name, const WString& text);

template <ItemType kind>
[[noreturn]] void Refuse(const WString& name, const typename ValueKind<kind>::Type& value) {
  using T = typename ValueKind<kind>::Type;
  if constexpr (std::is_floating_point_v<T>) {
    RefuseReal(name, static_cast<double>(value));
  } else if constexpr (std::is_integral_v<T> && sizeof(T) <= 4) {
    RefuseNumber(name, static_cast<int>(value));
  } else {
    RefuseText(name, TextOfValue<ValueKind<kind>>(value));
  }
}

}  // namespace tovikxml_detail

/// Tests a value of a kind against the facets of its simple type. Throws `CTovikException` "Invalid
/// Value for %s [%s]." with the name and the value; the point is missing and the value is written
/// as by "%d" for numbers of up to 32 bits, as by "%f" for floating point. A bound that the kind
/// cannot read raises the exception of its conversion, and a pattern that cannot be used the
/// message of `MatchPattern`, a line feed and the message above.
template <ItemType kind>
void CheckFacets(const WString& name, const typename ValueKind<kind>::Type& value,
                 const CPrimitiveRestrictions& restrictions) {
  if (!restrictions.HasFacets()) return;
  if (!tovikxml_detail::FacetsHold<kind>(name, value, restrictions))
    tovikxml_detail::Refuse<kind>(name, value);
}

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_VALUE_FACETS_H_
