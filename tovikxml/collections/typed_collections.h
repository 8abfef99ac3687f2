#ifndef TOVIKXML_COLLECTIONS_TYPED_COLLECTIONS_H_
#define TOVIKXML_COLLECTIONS_TYPED_COLLECTIONS_H_

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/collections/type_collection.h"
#include "tovikxml/values/big_integer.h"
#include "tovikxml/values/binary_data.h"
#include "tovikxml/values/date_time.h"
#include "tovikxml/values/date_time_span.h"
#include "tovikxml/values/decimal.h"

/// @file
/// The lists of primitive values that stand for repeated elements of a simple type: one class for
/// each type, named after it.
///
///     CSmartPtr<Cui4Col> sizes(new Cui4Col(u"size", u"", 0, -1,             // at most 3 digits
///                                          u"", -1, -1, u"", u"", u"", u"", -1, 3, -1,
///                                          CWhitespaceUtils::ws_collapse, u""));
///     sizes->Add(12);
///     sizes->Add(1000);                       // throws: too many digits; the list is unchanged
///     for (std::uint32_t size : *sizes) Use(size);
///
/// All constructors take the name and namespace of the items' elements, the occurrence limits, the
/// facets in the order of `CPrimitiveRestrictions`, the whitespace rule for reading, and the format
/// with which `Cr4Col`, `Cr8Col` and `CdecimalCol` write their values.
///
/// A value that is added must meet the facets, whether it comes from a document or from the
/// application; occurrence limits count on writing and after reading. A value that is changed
/// through an iterator is not checked and fires no event.
///
/// Adding fires `CollectionAdd` before the checks, so that listeners also hear of values that are
/// then refused; only the lists of dates and times check the value, though not the index, before.
/// Item pointers that listeners are given point to the value and hold for the event only.
namespace TovikXmlLib16 {

namespace tovikxml_detail {

/// Values in order. Removing the first takes constant time on average, as clearing a list one by
/// one needs: it leaves a gap in front, which is closed when it is as long as the rest.
template <class T>
class ValueList {
 public:
  using iterator = typename std::vector<T>::iterator;
  using const_iterator = typename std::vector<T>::const_iterator;

  iterator begin() { return m_values.begin() + m_gap; }
  iterator end() { return m_values.end(); }
  const_iterator begin() const { return m_values.begin() + m_gap; }
  const_iterator end() const { return m_values.end(); }
  int GetCount() const { return static_cast<int>(end() - begin()); }

  void Insert(int index, const T& value) { m_values.insert(begin() + index, value); }
  void Erase(int index);

 private:
  std::vector<T> m_values;
  std::ptrdiff_t m_gap = 0;
};

/// How an operation takes a value: numbers and texts by value, value classes by reference.
template <class T>
using ValueArgument =
    std::conditional_t<std::is_arithmetic_v<T> || std::is_same_v<T, WString>, T, const T&>;

/// The list for a kind whose values have the type `T`.
template <ItemType kind, class T>
class TOVIKXML_EXPORT ValueCol : public CXmlTypeCollection, public CInstanceMonitor {
 public:
  using iterator = typename ValueList<T>::iterator;
  using const_iterator = typename ValueList<T>::const_iterator;

  ValueCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs, int maxOccurs,
           const wchar* pattern, long minLength, long maxLength, const wchar* minInclusive,
           const wchar* maxInclusive, const wchar* minExclusive, const wchar* maxExclusive,
           long length, long totalDigits, long fractionDigits,
           CWhitespaceUtils::WhitespaceRule whitespaceRule, const wchar* format);

  int GetCount() const override;
  /// Removes the values one by one, with their events.
  void Clear() override;
  /// Fires `CollectionRemove` and then throws `CTovikInvalidParamException` "Index %d is out of
  /// range, use 0 - %d" if there is no such value.
  void Remove(int index) override;

  void Add(ValueArgument<T> value);
  /// Inserts in front of the value at the index, or at the end. Throws
  /// `CTovikInvalidParamException` "Index out of range", and what the facets raise.
  void AddAt(int index, ValueArgument<T> value);
  /// Throws as `Remove` does, without an event.
  T Item(int index) const;

  iterator begin() { return m_values.begin(); }
  iterator end() { return m_values.end(); }
  const_iterator begin() const { return m_values.begin(); }
  const_iterator end() const { return m_values.end(); }

 protected:
  void AddFromString(WString text) override;
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                 const CSerializationContext& context, bool isOptionalChoice) const override;

 private:
  void Insert(int index, T value);

  ValueList<T> m_values;
};

}  // namespace tovikxml_detail

/// What the lists of dates and times share; they differ in the type that all values must have.
class TOVIKXML_EXPORT CdatetimeBaseCol : public CXmlTypeCollection {
 public:
  using iterator = tovikxml_detail::ValueList<CDateTime>::iterator;
  using const_iterator = tovikxml_detail::ValueList<CDateTime>::const_iterator;

  int GetCount() const override;
  void Clear() override;
  void Remove(int index) override;

  virtual void Add(const CDateTime& value);
  /// As for the other lists. Throws `CTovikInvalidParamException` "Dates added to this collection
  /// must be of type %s", such as "dt_date", for a value of another type.
  virtual void AddAt(int index, const CDateTime& value) = 0;
  virtual CDateTime Item(int index) const;

  iterator begin() { return m_values.begin(); }
  iterator end() { return m_values.end(); }
  const_iterator begin() const { return m_values.begin(); }
  const_iterator end() const { return m_values.end(); }

 protected:
  CdatetimeBaseCol(ItemType itemType, const wchar* elementName, const wchar* namespaceUri,
                   int minOccurs, int maxOccurs, const wchar* pattern, long minLength,
                   long maxLength, const wchar* minInclusive, const wchar* maxInclusive,
                   const wchar* minExclusive, const wchar* maxExclusive, long length,
                   long totalDigits, long fractionDigits,
                   CWhitespaceUtils::WhitespaceRule whitespaceRule, const wchar* format);

  virtual WString ItemToString(const CDateTime& value) const = 0;
  /// Inserts with the events, under the check of the index alone.
  void BaseAddAt(int index, const CDateTime& value);
  /// Hands the values to the writer as `it_datetime`, whatever their kind.
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                 const CSerializationContext& context, bool isOptionalChoice) const override;

 private:
  tovikxml_detail::ValueList<CDateTime> m_values;
};

namespace tovikxml_detail {

/// The list for a kind whose values are dates or times of one type.
template <ItemType kind, CDateTime::DTType type>
class TOVIKXML_EXPORT DateCol : public CdatetimeBaseCol, public CInstanceMonitor {
 public:
  DateCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs, int maxOccurs,
          const wchar* pattern, long minLength, long maxLength, const wchar* minInclusive,
          const wchar* maxInclusive, const wchar* minExclusive, const wchar* maxExclusive,
          long length, long totalDigits, long fractionDigits,
          CWhitespaceUtils::WhitespaceRule whitespaceRule, const wchar* format);

  void AddAt(int index, const CDateTime& value) override;

 protected:
  void AddFromString(WString text) override;
  WString ItemToString(const CDateTime& value) const override;
};

}  // namespace tovikxml_detail

// clang-format off
class TOVIKXML_EXPORT ChexBinaryCol    : public tovikxml_detail::ValueCol<it_hexBinary,    CBinaryData>   { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Cbase64BinaryCol : public tovikxml_detail::ValueCol<it_base64Binary, CBinaryData>   { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Ci1Col           : public tovikxml_detail::ValueCol<it_i1,           std::int8_t>   { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Ci2Col           : public tovikxml_detail::ValueCol<it_i2,           std::int16_t>  { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Ci4Col           : public tovikxml_detail::ValueCol<it_i4,           std::int32_t>  { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Ci8Col           : public tovikxml_detail::ValueCol<it_i8,           std::int64_t>  { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Cui1Col          : public tovikxml_detail::ValueCol<it_ui1,          std::uint8_t>  { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Cui2Col          : public tovikxml_detail::ValueCol<it_ui2,          std::uint16_t> { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Cui4Col          : public tovikxml_detail::ValueCol<it_ui4,          std::uint32_t> { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Cui8Col          : public tovikxml_detail::ValueCol<it_ui8,          std::uint64_t> { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Cr4Col           : public tovikxml_detail::ValueCol<it_r4,           float>         { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT Cr8Col           : public tovikxml_detail::ValueCol<it_r8,           double>        { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT CdurationCol     : public tovikxml_detail::ValueCol<it_duration,     CDateTimeSpan> { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT CyearCol         : public tovikxml_detail::ValueCol<it_year,         std::uint16_t> { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT CmonthCol        : public tovikxml_detail::ValueCol<it_month,        std::uint8_t>  { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT CdayCol          : public tovikxml_detail::ValueCol<it_day,          std::uint8_t>  { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT CstringCol       : public tovikxml_detail::ValueCol<it_string,       WString>       { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT CbooleanCol      : public tovikxml_detail::ValueCol<it_boolean,      bool>          { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT CdecimalCol      : public tovikxml_detail::ValueCol<it_decimal,      CDecimal>      { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT CintegerCol      : public tovikxml_detail::ValueCol<it_integer,      CBigInteger>   { public: using ValueCol::ValueCol; };
class TOVIKXML_EXPORT CdateCol         : public tovikxml_detail::DateCol<it_date,      CDateTime::dt_date>       { public: using DateCol::DateCol; };
class TOVIKXML_EXPORT CdatetimeCol     : public tovikxml_detail::DateCol<it_datetime,  CDateTime::dt_dateTime>   { public: using DateCol::DateCol; };
class TOVIKXML_EXPORT CtimeCol         : public tovikxml_detail::DateCol<it_time,      CDateTime::dt_time>       { public: using DateCol::DateCol; };
class TOVIKXML_EXPORT CyearMonthCol    : public tovikxml_detail::DateCol<it_yearMonth, CDateTime::dt_gYearMonth> { public: using DateCol::DateCol; };
class TOVIKXML_EXPORT CmonthDayCol     : public tovikxml_detail::DateCol<it_monthDay,  CDateTime::dt_gMonthDay>  { public: using DateCol::DateCol; };
// clang-format on

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_COLLECTIONS_TYPED_COLLECTIONS_H_
