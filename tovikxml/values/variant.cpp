#include "tovikxml/values/variant.h"

#include <cstddef>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/binding/object_base.h"
#include "tovikxml/collections/collection_base.h"
#include "tovikxml/values/value_kinds.h"

namespace TovikXmlLib16 {
namespace {

// The value of a class that lies in the storage of a variant.
template <class T>
T* ValueIn(const unsigned char* storage) {
  return std::launder(reinterpret_cast<T*>(const_cast<unsigned char*>(storage)));
}

bool IsReference(ItemType type) {
  return type == it_xmlObject || type == it_xmlCollection;
}

[[noreturn]] void ThrowNoText(ItemType type) {
  throw CTovikException(
      FormatString(u"Invalid Type %d to convert to string", static_cast<int>(type)));
}

const wchar* NameOf(ItemType type) {
  return VisitValueKind<const wchar*>(
      type, [](auto row) { return decltype(row)::kName; },
      [type]() -> const wchar* {
        throw CTovikException(FormatString(u"Invalid Type %d", static_cast<int>(type)));
      });
}

// Calls `visit(row)` for a kind whose value is owned; other kinds have nothing to visit.
template <class Visit>
void VisitOwned(ItemType type, Visit&& visit) {
  VisitValueKind<void>(
      type,
      [&](auto row) {
        if constexpr (decltype(row)::kOwned) visit(row);
      },
      [] {});
}

// Whether values of the kind are of the class `T`, as those of several kinds can be.
template <class T>
bool StoresAs(ItemType type) {
  bool same = false;
  VisitOwned(type, [&](auto row) { same = std::is_same_v<typename decltype(row)::Type, T>; });
  return same;
}

}  // namespace

TovikVariant::TovikVariant(const TovikVariant& other) {
  ZeroValue();
  CopyOther(other);
}

const TovikVariant& TovikVariant::operator=(const TovikVariant& other) {
  if (HoldsText() && other.HoldsText()) {
    Text() = other.Text();
  } else {
    *this = TovikVariant(other);
  }
  return *this;
}

// Copies into a variant that is as new.
void TovikVariant::CopyOther(const TovikVariant& other) {
  if (!other.m_holds) {
    std::memcpy(m_value, other.m_value, 8);
  } else if (IsReference(other.m_type)) {
    SetReference(other.m_type, other.Reference());
  } else {
    VisitOwned(other.m_type, [&](auto row) {
      using T = typename decltype(row)::Type;
      new (m_value) T(*ValueIn<T>(other.m_value));
    });
  }
  m_nil = other.m_nil;
  m_holds = other.m_holds;
  m_type = other.m_type;
}

// Moves anything but a text; `other` then holds nothing.
void TovikVariant::MoveOther(TovikVariant& other) noexcept {
  if (!m_holds || IsReference(m_type)) {
    std::memcpy(m_value, other.m_value, 8);
  } else {
    VisitOwned(m_type, [&](auto row) {
      using T = typename decltype(row)::Type;
      new (m_value) T(std::move(*ValueIn<T>(other.m_value)));
      ValueIn<T>(other.m_value)->~T();
    });
  }
  other.m_holds = false;
}

// Releases anything but a text.
void TovikVariant::ReleaseOther() noexcept {
  if (IsReference(m_type)) {
    Reference()->Release();
  } else {
    VisitOwned(m_type, [this](auto row) {
      using T = typename decltype(row)::Type;
      ValueIn<T>(m_value)->~T();
    });
  }
}

template <class T>
void TovikVariant::SetOwned(ItemType type, T&& value) {
  using Value = std::decay_t<T>;
  static_assert(sizeof(Value) <= kStorage && alignof(Value) <= 8 &&
                std::is_nothrow_move_constructible_v<Value>);
  Clear();
  new (m_value) Value(std::forward<T>(value));
  m_type = type;
  m_holds = true;
}

template <class T>
const T& TovikVariant::Owned(ItemType type) const {
  if (!m_holds || (m_type != type && !StoresAs<T>(m_type))) {
    throw CTovikInvalidStateException(
        FormatString(u"The variant holds no value of the type %s", NameOf(type)));
  }
  return *ValueIn<T>(m_value);
}

void TovikVariant::SetHexBinary(const CBinaryData& value) {
  SetOwned(it_hexBinary, value);
}

void TovikVariant::SetBase64Binary(const CBinaryData& value) {
  SetOwned(it_base64Binary, value);
}

void TovikVariant::SetDecimal(const CDecimal& value) {
  SetOwned(it_decimal, value);
}

void TovikVariant::SetInteger(const CBigInteger& value) {
  SetOwned(it_integer, value);
}

void TovikVariant::SetDuration(const CDateTimeSpan& value) {
  SetOwned(it_duration, value);
}

void TovikVariant::SetDate(const CDateTime& value) {
  SetOwned(it_date, value);
}

void TovikVariant::SetDateTime(const CDateTime& value) {
  SetOwned(it_datetime, value);
}

void TovikVariant::SetTime(const CDateTime& value) {
  SetOwned(it_time, value);
}

void TovikVariant::SetYearMonth(const CDateTime& value) {
  SetOwned(it_yearMonth, value);
}

void TovikVariant::SetMonthDay(const CDateTime& value) {
  SetOwned(it_monthDay, value);
}

WString TovikVariant::GetString() const {
  return Owned<WString>(it_string);
}

WString TovikVariant::TakeString() {
  Owned<WString>(it_string);
  return std::exchange(Text(), WString());
}

CBinaryData TovikVariant::GetHexBinary() const {
  return Owned<CBinaryData>(it_hexBinary);
}

CBinaryData TovikVariant::GetBase64Binary() const {
  return Owned<CBinaryData>(it_base64Binary);
}

CDecimal TovikVariant::GetDecimal() const {
  return Owned<CDecimal>(it_decimal);
}

CBigInteger TovikVariant::GetInteger() const {
  return Owned<CBigInteger>(it_integer);
}

CDateTimeSpan TovikVariant::GetDuration() const {
  return Owned<CDateTimeSpan>(it_duration);
}

CDateTime TovikVariant::GetDate() const {
  return Owned<CDateTime>(it_date);
}

CDateTime TovikVariant::GetDateTime() const {
  return Owned<CDateTime>(it_datetime);
}

CDateTime TovikVariant::GetTime() const {
  return Owned<CDateTime>(it_time);
}

CDateTime TovikVariant::GetYearMonth() const {
  return Owned<CDateTime>(it_yearMonth);
}

CDateTime TovikVariant::GetMonthDay() const {
  return Owned<CDateTime>(it_monthDay);
}

void TovikVariant::SetReference(ItemType type, CXmlObjectBase* object) {
  // First, since what is held so far may hold the object.
  if (object) object->AddRef();
  Clear();
  std::memcpy(m_value, &object, sizeof object);
  m_type = type;
  m_holds = object != nullptr;
}

CXmlObjectBase* TovikVariant::Reference() const {
  return m_holds && IsReference(m_type) ? Plain<CXmlObjectBase*>() : nullptr;
}

void TovikVariant::SetXmlObject(CXmlObjectBase* object) {
  SetReference(it_xmlObject, object);
}

void TovikVariant::SetXmlCollection(CXmlCollectionBase* collection) {
  SetReference(it_xmlCollection, collection);
}

CSmartPtr<CXmlObjectBase> TovikVariant::GetXmlObject() const {
  return Reference();
}

CSmartPtr<CXmlCollectionBase> TovikVariant::GetXmlCollection() const {
  if (m_type == it_xmlCollection) return static_cast<CXmlCollectionBase*>(Reference());
  return dynamic_cast<CXmlCollectionBase*>(Reference());
}

WString TovikVariant::GetType() const {
  return NameOf(m_type);
}

const WString& TovikVariant::WriteText(const wchar* format, WString& scratch) const {
  VisitValueKind<void>(
      m_type,
      [&](auto row) {
        using Row = decltype(row);
        if constexpr (Row::kOwned) {
          Row::ToText(Owned<typename Row::Type>(m_type), format, scratch);
        } else if constexpr (std::is_same_v<typename Row::Type, bool>) {
          Row::ToText(GetBoolean(), format, scratch);
        } else {
          Row::ToText(Plain<typename Row::Type>(), format, scratch);
        }
      },
      [this] { ThrowNoText(m_type); });
  return scratch;
}

void TovikVariant::FromString(const WString& text, ItemType type,
                              CWhitespaceUtils::WhitespaceRule rule) {
  VisitValueKind<void>(
      type,
      [&](auto row) {
        using Row = decltype(row);
        auto value = Row::FromText(text, rule);
        if constexpr (std::is_same_v<typename Row::Type, WString>) {
          SetString(std::move(value));
        } else if constexpr (Row::kOwned) {
          SetOwned(type, std::move(value));
        } else {
          SetPlain(type, value);
        }
      },
      [type] { ThrowNoText(type); });
}

}  // namespace TovikXmlLib16
