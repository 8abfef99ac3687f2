#ifndef TOVIKXML_VALUES_VARIANT_H_
#define TOVIKXML_VALUES_VARIANT_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

#include "tovikxml/base/export.h"
#include "tovikxml/base/item_type.h"
#include "tovikxml/base/smart_ptr.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/values/whitespace.h"

namespace TovikXmlLib16 {

class CBigInteger;
class CBinaryData;
class CDateTime;
class CDateTimeSpan;
class CDecimal;
class CXmlCollectionBase;
class CXmlObjectBase;

/// The container in which a primitive value, or a reference on an object, passes between the
/// library and the accessors of generated classes.
///
///     TovikVariant value;
///     value.FromString(u" 42 ", it_i4, CWhitespaceUtils::ws_collapse);
///     std::int32_t number = value.GetI4();
///     WString text = value.ToString(nullptr);   // "42"
///
/// A variant never converts between kinds. An explicit nil keeps its kind and holds nothing. Value
/// classes and texts belong to the variant alone; objects and collections are shared, by one
/// reference for each variant. A variant belongs to one thread at a time.
///
/// A getter of a plain value (`GetI1` to `GetR8`, `GetChar`, `GetBoolean`, `GetYear`, `GetMonth`,
/// `GetDay`) does not look at the kind and reads the bytes that are stored, zero if there are none.
/// A getter of a text or of a value class throws `CTovikInvalidStateException` "The variant holds
/// no value of the type %s" unless the variant holds one of that class, of whichever kind. A getter
/// of a reference gives null where there is none of its class.
struct TOVIKXML_EXPORT TovikVariant {
 public:
  /// Kind `it_invalid`, not nil.
  TovikVariant() noexcept { ZeroValue(); }
  TovikVariant(const TovikVariant& other);
  /// Leaves `other` as a new variant.
  TovikVariant(TovikVariant&& other) noexcept { MoveFrom(other); }
  const TovikVariant& operator=(const TovikVariant& other);
  const TovikVariant& operator=(TovikVariant&& other) noexcept;
  virtual ~TovikVariant() { ReleaseValue(); }

  /// Makes it as new.
  void Clear();
  void SetInvalid() { Clear(); }
  /// Drops the value and keeps the kind.
  void SetNil();
  /// An explicit nil of the kind.
  void SetNil(ItemType type);

  void SetI1(std::int8_t value) { SetPlain(it_i1, value); }
  void SetI2(std::int16_t value) { SetPlain(it_i2, value); }
  void SetI4(std::int32_t value) { SetPlain(it_i4, value); }
  void SetI8(std::int64_t value) { SetPlain(it_i8, value); }
  void SetUI1(std::uint8_t value) { SetPlain(it_ui1, value); }
  void SetUI2(std::uint16_t value) { SetPlain(it_ui2, value); }
  void SetUI4(std::uint32_t value) { SetPlain(it_ui4, value); }
  void SetUI8(std::uint64_t value) { SetPlain(it_ui8, value); }
  void SetR4(float value) { SetPlain(it_r4, value); }
  void SetR8(double value) { SetPlain(it_r8, value); }
  void SetChar(wchar value) { SetPlain(it_char, value); }
  void SetBoolean(bool value) { SetPlain(it_boolean, static_cast<std::uint8_t>(value)); }
  void SetString(WString value);
  void SetHexBinary(const CBinaryData& value);
  void SetBase64Binary(const CBinaryData& value);
  void SetDecimal(const CDecimal& value);
  void SetInteger(const CBigInteger& value);
  void SetDuration(const CDateTimeSpan& value);
  /// The kind is that of the setter, whatever the type of the value.
  void SetDate(const CDateTime& value);
  void SetDateTime(const CDateTime& value);
  void SetTime(const CDateTime& value);
  void SetYearMonth(const CDateTime& value);
  void SetMonthDay(const CDateTime& value);
  void SetYear(std::uint16_t value) { SetPlain(it_year, value); }
  void SetMonth(std::uint8_t value) { SetPlain(it_month, value); }
  void SetDay(std::uint8_t value) { SetPlain(it_day, value); }
  /// Takes a reference unless the pointer is null.
  void SetXmlObject(CXmlObjectBase* object);
  void SetXmlCollection(CXmlCollectionBase* collection);

  std::int8_t GetI1() const { return Plain<std::int8_t>(); }
  std::int16_t GetI2() const { return Plain<std::int16_t>(); }
  std::int32_t GetI4() const { return Plain<std::int32_t>(); }
  std::int64_t GetI8() const { return Plain<std::int64_t>(); }
  std::uint8_t GetUI1() const { return Plain<std::uint8_t>(); }
  std::uint16_t GetUI2() const { return Plain<std::uint16_t>(); }
  std::uint32_t GetUI4() const { return Plain<std::uint32_t>(); }
  std::uint64_t GetUI8() const { return Plain<std::uint64_t>(); }
  float GetR4() const { return Plain<float>(); }
  double GetR8() const { return Plain<double>(); }
  wchar GetChar() const { return Plain<wchar>(); }
  bool GetBoolean() const { return Plain<std::uint8_t>() != 0; }
  WString GetString() const;
  CBinaryData GetHexBinary() const;
  CBinaryData GetBase64Binary() const;
  CDecimal GetDecimal() const;
  CBigInteger GetInteger() const;
  CDateTimeSpan GetDuration() const;
  CDateTime GetDate() const;
  CDateTime GetDateTime() const;
  CDateTime GetTime() const;
  CDateTime GetYearMonth() const;
  CDateTime GetMonthDay() const;
  std::uint16_t GetYear() const { return Plain<std::uint16_t>(); }
  std::uint8_t GetMonth() const { return Plain<std::uint8_t>(); }
  std::uint8_t GetDay() const { return Plain<std::uint8_t>(); }
  CSmartPtr<CXmlObjectBase> GetXmlObject() const;
  CSmartPtr<CXmlCollectionBase> GetXmlCollection() const;

  /// Moves the text out of a variant of kind `it_string`, which then holds an empty text. Fails as
  /// `GetString` does.
  WString TakeString();

  /// False only for kind `it_invalid` without nil.
  bool IsValid() const { return m_type != it_invalid || m_nil; }
  bool IsNil() const { return m_nil; }
  ItemType GetTypeAsEnum() const { return m_type; }
  /// The name of the kind, such as "i4". Throws `CTovikException` "Invalid Type %d" for a kind that
  /// is no primitive value.
  WString GetType() const;

  /// The lexical form by `CConversions`; `format` may be null and counts for floating point and
  /// decimal values only. Throws `CTovikException` "Invalid Type %d to convert to string" for a
  /// kind that is no primitive value, and `CTovikInvalidStateException` as the getters for a nil
  /// text or value class. A nil plain value reads as zero.
  WString ToString(const wchar* format) const;
  /// The text of `ToString` without a copy: a reference on the text that a variant of kind
  /// `it_string` holds, else `scratch`, which received the text. Valid until either changes.
  const WString& GetText(const wchar* format, WString& scratch) const;

  /// Reads the lexical form of a kind by `CConversions`, whose exceptions pass through. Throws
  /// `CTovikException` "Invalid Type %d to convert to string" for a kind that is no primitive
  /// value. After a failure the variant is as it was.
  void FromString(const WString& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);

 private:
  // Room for a decimal, the largest of the usual values.
  static constexpr std::size_t kStorage = 72;

  void ZeroValue() { std::memset(m_value, 0, 8); }
  void ReleaseValue() noexcept;
  void ReleaseOther() noexcept;
  void MoveFrom(TovikVariant& other) noexcept;
  void MoveOther(TovikVariant& other) noexcept;
  void CopyOther(const TovikVariant& other);
  const WString& WriteText(const wchar* format, WString& scratch) const;
  void SetReference(ItemType type, CXmlObjectBase* object);
  CXmlObjectBase* Reference() const;

  template <class T>
  void SetPlain(ItemType type, T value);
  template <class T>
  T Plain() const;
  template <class T>
  void SetOwned(ItemType type, T&& value);
  template <class T>
  const T& Owned(ItemType type) const;

  bool HoldsText() const { return m_holds && m_type == it_string; }
  WString& Text() { return *std::launder(reinterpret_cast<WString*>(m_value)); }
  const WString& Text() const { return *std::launder(reinterpret_cast<const WString*>(m_value)); }

  bool m_nil = false;
  bool m_holds = false;  // whether the value needs to be destroyed or released
  ItemType m_type = it_invalid;
  // A plain value, a text or a value class in place, or the pointer of a reference. The first eight
  // bytes always have a value.
  alignas(8) unsigned char m_value[kStorage];
};

inline void TovikVariant::ReleaseValue() noexcept {
  if (!m_holds) return;
  if (m_type == it_string) {
    Text().~WString();
  } else {
    ReleaseOther();
  }
}

inline void TovikVariant::Clear() {
  ReleaseValue();
  m_holds = false;
  m_nil = false;
  m_type = it_invalid;
  ZeroValue();
}

inline void TovikVariant::SetNil() {
  SetNil(m_type);
}

inline void TovikVariant::SetNil(ItemType type) {
  Clear();
  m_type = type;
  m_nil = true;
}

template <class T>
void TovikVariant::SetPlain(ItemType type, T value) {
  static_assert(std::is_arithmetic_v<T> && sizeof(T) <= 8);
  Clear();
  m_type = type;
  std::memcpy(m_value, &value, sizeof value);
}

template <class T>
T TovikVariant::Plain() const {
  T value;
  std::memcpy(&value, m_value, sizeof value);
  return value;
}

inline void TovikVariant::SetString(WString value) {
  if (HoldsText()) {
    Text() = std::move(value);
    return;
  }
  Clear();
  new (m_value) WString(std::move(value));
  m_type = it_string;
  m_holds = true;
}

inline void TovikVariant::MoveFrom(TovikVariant& other) noexcept {
  m_nil = other.m_nil;
  m_holds = other.m_holds;
  m_type = other.m_type;
  if (HoldsText()) {
    new (m_value) WString(std::move(other.Text()));
  } else {
    MoveOther(other);
  }
  other.Clear();
}

inline const TovikVariant& TovikVariant::operator=(TovikVariant&& other) noexcept {
  if (this == &other) return *this;
  // What the old value held may hold `other`.
  TovikVariant moved(std::move(other));
  Clear();
  MoveFrom(moved);
  return *this;
}

inline const WString& TovikVariant::GetText(const wchar* format, WString& scratch) const {
  return HoldsText() ? Text() : WriteText(format, scratch);
}

inline WString TovikVariant::ToString(const wchar* format) const {
  if (HoldsText()) return Text();
  WString text;
  WriteText(format, text);
  return text;
}

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_VARIANT_H_
