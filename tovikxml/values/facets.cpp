#include "tovikxml/values/facets.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/utf8.h"
#include "tovikxml/values/date_time_span.h"
#include "tovikxml/values/float_format.h"
#include "tovikxml/values/pattern.h"
#include "tovikxml/values/value_facets.h"
#include "tovikxml/values/variant.h"

namespace TovikXmlLib16 {
namespace {

bool Exceeds(std::size_t count, std::int32_t limit) {
  return limit >= 0 && count > static_cast<std::size_t>(limit);
}

// Digits of the magnitude, none for zero.
std::size_t DigitsOf(const CBigInteger& value) {
  const WString text = value.ToString();
  return text == u"0" ? 0 : text.size() - (text.front() == u'-' ? 1 : 0);
}

std::size_t FractionDigitsOf(const CDecimal& value) {
  if (value.GetFractionPart() == CBigInteger()) return 0;
  return static_cast<std::size_t>(value.GetFractionDivider());
}

bool MatchesPattern(const WString& pattern, const WString& value) {
  if (const std::optional<std::string> bytes = EncodeUtf8(pattern)) {
    return MatchPattern(*bytes, value);
  }
  throw CTovikException(FormatString(
      u"Invalid Regular Expression: %s Error: 'unpaired surrogate in the pattern'", value.c_str()));
}

[[noreturn]] void RefuseKind(const TovikVariant& value) {
  throw CTovikInvalidValueException(u"Unknown type [" + value.GetType() + u"].");
}

// The getter of a variant for values of a type, of whichever kind.
template <class T>
constexpr auto kGetter = nullptr;
// clang-format off
template <> constexpr auto kGetter<std::int8_t>   = &TovikVariant::GetI1;
template <> constexpr auto kGetter<std::int16_t>  = &TovikVariant::GetI2;
template <> constexpr auto kGetter<std::int32_t>  = &TovikVariant::GetI4;
template <> constexpr auto kGetter<std::int64_t>  = &TovikVariant::GetI8;
template <> constexpr auto kGetter<std::uint8_t>  = &TovikVariant::GetUI1;
template <> constexpr auto kGetter<std::uint16_t> = &TovikVariant::GetUI2;
template <> constexpr auto kGetter<std::uint32_t> = &TovikVariant::GetUI4;
template <> constexpr auto kGetter<std::uint64_t> = &TovikVariant::GetUI8;
template <> constexpr auto kGetter<float>         = &TovikVariant::GetR4;
template <> constexpr auto kGetter<double>        = &TovikVariant::GetR8;
template <> constexpr auto kGetter<bool>          = &TovikVariant::GetBoolean;
template <> constexpr auto kGetter<CBinaryData>   = &TovikVariant::GetHexBinary;
template <> constexpr auto kGetter<CDecimal>      = &TovikVariant::GetDecimal;
template <> constexpr auto kGetter<CBigInteger>   = &TovikVariant::GetInteger;
template <> constexpr auto kGetter<CDateTime>     = &TovikVariant::GetDateTime;
template <> constexpr auto kGetter<CDateTimeSpan> = &TovikVariant::GetDuration;
// clang-format on

template <ItemType kind>
void CheckVariant(ValueKind<kind> /*row*/, const WString& name, const TovikVariant& value,
                  const CPrimitiveRestrictions& restrictions) {
  const auto& getter = kGetter<typename ValueKind<kind>::Type>;
  CheckFacets<kind>(name, (value.*getter)(), restrictions);
}

void CheckVariant(ValueKind<it_char> /*row*/, const WString& /*name*/, const TovikVariant& value,
                  const CPrimitiveRestrictions& /*restrictions*/) {
  RefuseKind(value);
}

// Without a copy of the text.
void CheckVariant(ValueKind<it_string> /*row*/, const WString& name, const TovikVariant& value,
                  const CPrimitiveRestrictions& restrictions) {
  if (value.GetTypeAsEnum() != it_string) value.GetString();  // which throws
  WString unused;
  CheckFacets<it_string>(name, value.GetText(nullptr, unused), restrictions);
}

}  // namespace

namespace tovikxml_detail {

bool LengthHolds(std::size_t length, const CPrimitiveRestrictions& restrictions) {
  const std::int32_t minimum = restrictions.GetMinLength();
  if (minimum >= 0 && length < static_cast<std::size_t>(minimum)) return false;
  if (Exceeds(length, restrictions.GetMaxLength())) return false;
  const std::int32_t exact = restrictions.GetLength();
  return exact < 0 || length == static_cast<std::size_t>(exact);
}

bool DecimalDigitsHold(const CDecimal& value, const CPrimitiveRestrictions& restrictions) {
  const std::int32_t total = restrictions.GetTotalDigits();
  const std::int32_t fraction = restrictions.GetFractionDigits();
  if (total < 0 && fraction < 0) return true;
  const std::size_t count = FractionDigitsOf(value);
  if (total >= 0 && Exceeds(DigitsOf(value.GetIntegerPart()) + count, total)) return false;
  return !Exceeds(count, fraction);
}

bool PatternHolds(const WString& name, const WString& value,
                  const CPrimitiveRestrictions& restrictions) {
  const WString& pattern = restrictions.GetPattern();
  if (pattern.empty()) return true;
  try {
    return MatchesPattern(pattern, value);
  } catch (const CTovikException& e) {
    throw CTovikException(FormatString(u"%s\nInvalid Value for %s [%s].",
                                       e.GetFullMessage().c_str(), name.c_str(), value.c_str()));
  }
}

void RefuseNumber(const WString& name, int value) {
  throw CTovikException(FormatString(u"Invalid Value for %s [%d]", name.c_str(), value));
}

void RefuseReal(const WString& name, double value) {
  const WString text =
      std::isfinite(value) ? FormatFloat(value, u"%f") : CConversions::r8ToString(value);
  throw CTovikException(FormatString(u"Invalid Value for %s [%s]", name.c_str(), text.c_str()));
}

void RefuseText(const WString& name, const WString& text) {
  throw CTovikException(FormatString(u"Invalid Value for %s [%s].", name.c_str(), text.c_str()));
}

}  // namespace tovikxml_detail

void CheckFacets(const WString& name, const TovikVariant& value, ItemType kind,
                 const CPrimitiveRestrictions& restrictions) {
  const bool hasChecks = kind > it_invalid && kind < it_xmlObject && kind != it_char;
  if (hasChecks && !restrictions.HasFacets()) return;
  VisitValueKind<void>(
      kind, [&](auto row) { CheckVariant(row, name, value, restrictions); },
      [&] { RefuseKind(value); });
}

}  // namespace TovikXmlLib16
