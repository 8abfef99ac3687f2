#ifndef TOVIKXML_VALUES_VALUE_KINDS_H_
#define TOVIKXML_VALUES_VALUE_KINDS_H_

#include <algorithm>
#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>

#include "tovikxml/base/item_type.h"
#include "tovikxml/base/text.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/values/big_integer.h"
#include "tovikxml/values/binary_data.h"
#include "tovikxml/values/conversions.h"
#include "tovikxml/values/date_time.h"
#include "tovikxml/values/date_time_span.h"
#include "tovikxml/values/decimal.h"
#include "tovikxml/values/number_text.h"

/// The table of the kinds of primitive values: one row for each kind between `it_invalid` and
/// `it_xmlObject`, and one visitor that leads from a kind known at run time to its row. Internal.
/// A kind without a row does not compile. A row gives
///
///     Type                        what a variant stores
///     kOwned                      whether that is a value class rather than a plain value
///     kName                       the text name of the kind
///     ToText(value, format, out)  puts the lexical form into `out`; `format` may be null
///     FromText(text, rule)        reads the lexical form, with the exceptions of `CConversions`
namespace TovikXmlLib16 {

namespace tovikxml_detail {

/// The name of a kind as a template argument.
struct KindName {
  template <std::size_t size>
  consteval KindName(const wchar (&name)[size]) {
    static_assert(size <= 16);
    std::copy(name, name + size, text);
  }

  wchar text[16] = {};
};

/// What all rows have; `Read` is a function of `CConversions`.
template <KindName name, auto read>
struct AnyKind {
  static constexpr const wchar* kName = name.text;
  using Type = std::invoke_result_t<decltype(read), const WString&, CConversions::WhitespaceRule>;
  static constexpr bool kOwned = !std::is_arithmetic_v<Type>;

  static Type FromText(const WString& text, CConversions::WhitespaceRule rule) {
    return read(text, rule);
  }
};

template <KindName name, auto read>
struct IntegerKind : AnyKind<name, read> {
  static void ToText(typename AnyKind<name, read>::Type value, const wchar*, WString& out) {
    AssignInteger(out, value);
  }
};

template <KindName name, auto read>
struct RealKind : AnyKind<name, read> {
  static void ToText(typename AnyKind<name, read>::Type value, const wchar* format, WString& out) {
    AssignReal(out, value, ViewOf(format));
  }
};

/// A kind whose text does not depend on a format.
template <KindName name, auto read, auto write>
struct PlainKind : AnyKind<name, read> {
  static void ToText(const typename AnyKind<name, read>::Type& value, const wchar*, WString& out) {
    out = write(value);
  }
};

/// A kind whose format is the number of fraction digits.
template <KindName name, auto read>
struct DecimalKind : AnyKind<name, read> {
  static void ToText(const typename AnyKind<name, read>::Type& value, const wchar* format,
                     WString& out) {
    out = CConversions::decimalToString(value, TextOf(format));
  }
};

/// A date, time or duration.
template <KindName name, auto read>
struct DateKind : AnyKind<name, read> {
  static void ToText(const typename AnyKind<name, read>::Type& value, const wchar*, WString& out) {
    value.AssignString(out);
  }
};

template <ItemType>
constexpr bool kRowExists = false;

}  // namespace tovikxml_detail

template <ItemType kind>
struct ValueKind {
  static_assert(tovikxml_detail::kRowExists<kind>,
                "this kind of values has no row in value_kinds.h");
};

template <>
struct ValueKind<it_hexBinary>
    : tovikxml_detail::PlainKind<u"hexBinary", &CConversions::hexBinaryFromString,
                                 &CConversions::hexBinaryToString> {};
template <>
struct ValueKind<it_base64Binary>
    : tovikxml_detail::PlainKind<u"base64Binary", &CConversions::base64BinaryFromString,
                                 &CConversions::base64BinaryToString> {};
template <>
struct ValueKind<it_i1> : tovikxml_detail::IntegerKind<u"i1", &CConversions::i1FromString> {};
template <>
struct ValueKind<it_i2> : tovikxml_detail::IntegerKind<u"i2", &CConversions::i2FromString> {};
template <>
struct ValueKind<it_i4> : tovikxml_detail::IntegerKind<u"i4", &CConversions::i4FromString> {};
template <>
struct ValueKind<it_i8> : tovikxml_detail::IntegerKind<u"i8", &CConversions::i8FromString> {};
template <>
struct ValueKind<it_ui1> : tovikxml_detail::IntegerKind<u"ui1", &CConversions::ui1FromString> {};
template <>
struct ValueKind<it_ui2> : tovikxml_detail::IntegerKind<u"ui2", &CConversions::ui2FromString> {};
template <>
struct ValueKind<it_ui4> : tovikxml_detail::IntegerKind<u"ui4", &CConversions::ui4FromString> {};
template <>
struct ValueKind<it_ui8> : tovikxml_detail::IntegerKind<u"ui8", &CConversions::ui8FromString> {};
template <>
struct ValueKind<it_r4> : tovikxml_detail::RealKind<u"r4", &CConversions::r4FromString> {};
template <>
struct ValueKind<it_r8> : tovikxml_detail::RealKind<u"r8", &CConversions::r8FromString> {};
template <>
struct ValueKind<it_duration>
    : tovikxml_detail::DateKind<u"duration", &CConversions::durationFromString> {};
template <>
struct ValueKind<it_yearMonth>
    : tovikxml_detail::DateKind<u"yearMonth", &CConversions::yearMonthFromString> {};
template <>
struct ValueKind<it_monthDay>
    : tovikxml_detail::DateKind<u"monthDay", &CConversions::monthDayFromString> {};
template <>
struct ValueKind<it_year> : tovikxml_detail::IntegerKind<u"year", &CConversions::yearFromString> {};
template <>
struct ValueKind<it_month> : tovikxml_detail::PlainKind<u"month", &CConversions::monthFromString,
                                                        &CConversions::monthToString> {};
template <>
struct ValueKind<it_day>
    : tovikxml_detail::PlainKind<u"day", &CConversions::dayFromString, &CConversions::dayToString> {
};
template <>
struct ValueKind<it_date> : tovikxml_detail::DateKind<u"date", &CConversions::dateFromString> {};
template <>
struct ValueKind<it_datetime>
    : tovikxml_detail::DateKind<u"datetime", &CConversions::datetimeFromString> {};
template <>
struct ValueKind<it_time> : tovikxml_detail::DateKind<u"time", &CConversions::timeFromString> {};
template <>
struct ValueKind<it_char> : tovikxml_detail::PlainKind<u"char", &CConversions::charFromString,
                                                       &CConversions::charToString> {};
template <>
struct ValueKind<it_string> : tovikxml_detail::PlainKind<u"string", &CConversions::stringFromString,
                                                         &CConversions::stringToString> {};
template <>
struct ValueKind<it_boolean>
    : tovikxml_detail::PlainKind<u"boolean", &CConversions::booleanFromString,
                                 &CConversions::booleanToString> {};
template <>
struct ValueKind<it_decimal>
    : tovikxml_detail::DecimalKind<u"decimal", &CConversions::decimalFromString> {};
template <>
struct ValueKind<it_integer>
    : tovikxml_detail::PlainKind<u"integer", &CConversions::integerFromString,
                                 &CConversions::integerToString> {};

namespace tovikxml_detail {

template <class Result, class Visit, ItemType kind>
Result VisitRow(Visit& visit) {
  return visit(ValueKind<kind>());
}

template <class Result, class Visit>
using RowFunction = Result (*)(Visit&);

template <class Result, class Visit, std::size_t... offsets>
constexpr auto MakeRowFunctions(std::index_sequence<offsets...>) {
  return std::array<RowFunction<Result, Visit>, sizeof...(offsets)>{
      &VisitRow<Result, Visit, static_cast<ItemType>(it_invalid + 1 + offsets)>...};
}

}  // namespace tovikxml_detail

/// Returns `visit(row)` with the `ValueKind` of a kind in the table, else `otherwise()`.
template <class Result, class Visit, class Otherwise>
Result VisitValueKind(ItemType kind, Visit&& visit, Otherwise&& otherwise) {
  static constexpr auto kRows = tovikxml_detail::MakeRowFunctions<Result, Visit>(
      std::make_index_sequence<it_xmlObject - it_invalid - 1>());
  const auto index = static_cast<std::size_t>(kind) - 1;
  return index < kRows.size() ? kRows[index](visit) : otherwise();
}

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_VALUE_KINDS_H_
