#include "tovikxml/collections/typed_collections.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/document/writer.h"
#include "tovikxml/values/value_facets.h"
#include "tovikxml/values/value_kinds.h"

namespace TovikXmlLib16 {
namespace {

// "CstringCol" for `it_string`.
template <ItemType kind>
constexpr auto kClassName = [] {
  constexpr WStringView kKind = ValueKind<kind>::kName;
  constexpr WStringView kEnd = u"Col";
  std::array<wchar, kKind.size() + kEnd.size() + 2> name = {u'C'};
  std::copy(kEnd.begin(), kEnd.end(), std::copy(kKind.begin(), kKind.end(), name.begin() + 1));
  return name;
}();

// Writes one element for each value.
class ItemWriter {
 public:
  ItemWriter(CXmlWriter& writer, WString name, WString namespaceUri)
      : m_writer(writer), m_name(std::move(name)), m_namespace(std::move(namespaceUri)) {}

  void Write(const WString& text, ItemType itemType) {
    m_writer.WriteStartElement(m_name, m_namespace);
    m_writer.WriteText(text, itemType);
    m_writer.WriteEndElement();
  }

 private:
  CXmlWriter& m_writer;
  WString m_name;
  WString m_namespace;
};

}  // namespace

namespace tovikxml_detail {

template <class T>
void ValueList<T>::Erase(int index) {
  if (index > 0) {
    m_values.erase(begin() + index);
    return;
  }
  *begin() = T();
  ++m_gap;
  if (m_gap < GetCount()) return;
  m_values.erase(m_values.begin(), begin());
  m_gap = 0;
}

template <ItemType kind, class T>
ValueCol<kind, T>::ValueCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                            int maxOccurs, const wchar* pattern, long minLength, long maxLength,
                            const wchar* minInclusive, const wchar* maxInclusive,
                            const wchar* minExclusive, const wchar* maxExclusive, long length,
                            long totalDigits, long fractionDigits,
                            CWhitespaceUtils::WhitespaceRule whitespaceRule, const wchar* format)
    : CXmlTypeCollection(kind, elementName, namespaceUri, minOccurs, maxOccurs, pattern, minLength,
                         maxLength, minInclusive, maxInclusive, minExclusive, maxExclusive, length,
                         totalDigits, fractionDigits, whitespaceRule, format),
      CInstanceMonitor(kClassName<kind>.data()) {}

template <ItemType kind, class T>
int ValueCol<kind, T>::GetCount() const {
  return m_values.GetCount();
}

template <ItemType kind, class T>
void ValueCol<kind, T>::Clear() {
  while (GetCount() > 0) Remove(0);
}

template <ItemType kind, class T>
void ValueCol<kind, T>::Remove(int index) {
  BeginRemove(index);
  m_values.Erase(index);
  EndRemove(index);
}

template <ItemType kind, class T>
void ValueCol<kind, T>::Add(ValueArgument<T> value) {
  Insert(GetCount(), std::forward<ValueArgument<T>>(value));
}

template <ItemType kind, class T>
void ValueCol<kind, T>::AddAt(int index, ValueArgument<T> value) {
  Insert(index, std::forward<ValueArgument<T>>(value));
}

// `value` is a copy, so that it outlives the change even where it came from this list.
template <ItemType kind, class T>
void ValueCol<kind, T>::Insert(int index, T value) {
  BeginAdd(index, &value);
  if (GetRestrictions().HasFacets()) CheckFacets<kind>(GetElementName(), value, GetRestrictions());
  m_values.Insert(index, value);
  EndAdd(&value);
}

template <ItemType kind, class T>
T ValueCol<kind, T>::Item(int index) const {
  RequireItem(index);
  return m_values.begin()[index];
}

template <ItemType kind, class T>
void ValueCol<kind, T>::AddFromString(WString text) {
  Insert(GetCount(), ValueKind<kind>::FromText(text, GetWhitespaceRule()));
}

template <ItemType kind, class T>
void ValueCol<kind, T>::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/,
                                  const wchar* /*namespaceUri*/,
                                  const CSerializationContext& context,
                                  bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  ItemWriter items(*writer, GetElementName(), GetNamespace());
  WString text;
  for (auto value = begin(); value != end(); ++value) {
    if constexpr (std::is_same_v<T, WString>) {
      items.Write(*value, GetItemType());
    } else {
      ValueKind<kind>::ToText(*value, GetFormat().c_str(), text);
      items.Write(text, GetItemType());
    }
  }
}

}  // namespace tovikxml_detail

CdatetimeBaseCol::CdatetimeBaseCol(ItemType itemType, const wchar* elementName,
                                   const wchar* namespaceUri, int minOccurs, int maxOccurs,
                                   const wchar* pattern, long minLength, long maxLength,
                                   const wchar* minInclusive, const wchar* maxInclusive,
                                   const wchar* minExclusive, const wchar* maxExclusive,
                                   long length, long totalDigits, long fractionDigits,
                                   CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                   const wchar* format)
    : CXmlTypeCollection(itemType, elementName, namespaceUri, minOccurs, maxOccurs, pattern,
                         minLength, maxLength, minInclusive, maxInclusive, minExclusive,
                         maxExclusive, length, totalDigits, fractionDigits, whitespaceRule,
                         format) {}

int CdatetimeBaseCol::GetCount() const {
  return m_values.GetCount();
}

void CdatetimeBaseCol::Clear() {
  while (GetCount() > 0) Remove(0);
}

void CdatetimeBaseCol::Remove(int index) {
  BeginRemove(index);
  m_values.Erase(index);
  EndRemove(index);
}

void CdatetimeBaseCol::Add(const CDateTime& value) {
  AddAt(GetCount(), value);
}

CDateTime CdatetimeBaseCol::Item(int index) const {
  RequireItem(index);
  return begin()[index];
}

void CdatetimeBaseCol::BaseAddAt(int index, const CDateTime& value) {
  // It may come from this list.
  CDateTime copy(value);
  BeginAdd(index, &copy);
  m_values.Insert(index, copy);
  EndAdd(&copy);
}

void CdatetimeBaseCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* /*namespaceUri*/,
                                 const CSerializationContext& context,
                                 bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  ItemWriter items(*writer, GetElementName(), GetNamespace());
  for (const CDateTime& value : *this) items.Write(ItemToString(value), it_datetime);
}

namespace tovikxml_detail {

template <ItemType kind, CDateTime::DTType type>
DateCol<kind, type>::DateCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                             int maxOccurs, const wchar* pattern, long minLength, long maxLength,
                             const wchar* minInclusive, const wchar* maxInclusive,
                             const wchar* minExclusive, const wchar* maxExclusive, long length,
                             long totalDigits, long fractionDigits,
                             CWhitespaceUtils::WhitespaceRule whitespaceRule, const wchar* format)
    : CdatetimeBaseCol(kind, elementName, namespaceUri, minOccurs, maxOccurs, pattern, minLength,
                       maxLength, minInclusive, maxInclusive, minExclusive, maxExclusive, length,
                       totalDigits, fractionDigits, whitespaceRule, format),
      CInstanceMonitor(kClassName<kind>.data()) {}

template <ItemType kind, CDateTime::DTType type>
void DateCol<kind, type>::AddAt(int index, const CDateTime& value) {
  if (value.GetType() != type) {
    throw CTovikInvalidParamException(u"Dates added to this collection must be of type dt_" +
                                      CDateTime(type).GetTypeAsString());
  }
  if (GetRestrictions().HasFacets()) CheckFacets<kind>(GetElementName(), value, GetRestrictions());
  BaseAddAt(index, value);
}

template <ItemType kind, CDateTime::DTType type>
void DateCol<kind, type>::AddFromString(WString text) {
  Add(ValueKind<kind>::FromText(text, GetWhitespaceRule()));
}

template <ItemType kind, CDateTime::DTType type>
WString DateCol<kind, type>::ItemToString(const CDateTime& value) const {
  WString text;
  ValueKind<kind>::ToText(value, nullptr, text);
  return text;
}

template class ValueCol<it_hexBinary, CBinaryData>;
template class ValueCol<it_base64Binary, CBinaryData>;
template class ValueCol<it_i1, std::int8_t>;
template class ValueCol<it_i2, std::int16_t>;
template class ValueCol<it_i4, std::int32_t>;
template class ValueCol<it_i8, std::int64_t>;
template class ValueCol<it_ui1, std::uint8_t>;
template class ValueCol<it_ui2, std::uint16_t>;
template class ValueCol<it_ui4, std::uint32_t>;
template class ValueCol<it_ui8, std::uint64_t>;
template class ValueCol<it_r4, float>;
template class ValueCol<it_r8, double>;
template class ValueCol<it_duration, CDateTimeSpan>;
template class ValueCol<it_year, std::uint16_t>;
template class ValueCol<it_month, std::uint8_t>;
template class ValueCol<it_day, std::uint8_t>;
template class ValueCol<it_string, WString>;
template class ValueCol<it_boolean, bool>;
template class ValueCol<it_decimal, CDecimal>;
template class ValueCol<it_integer, CBigInteger>;
template class DateCol<it_date, CDateTime::dt_date>;
template class DateCol<it_datetime, CDateTime::dt_dateTime>;
template class DateCol<it_time, CDateTime::dt_time>;
template class DateCol<it_yearMonth, CDateTime::dt_gYearMonth>;
template class DateCol<it_monthDay, CDateTime::dt_gMonthDay>;

}  // namespace tovikxml_detail

}  // namespace TovikXmlLib16
