#include "tovikxml/settings/serialization_context.h"

#include <mutex>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/collections/attribute_col.h"
#include "tovikxml/settings/fastinfoset_context.h"
#include "tovikxml/settings/json_context.h"

namespace TovikXmlLib16 {
namespace {

// Guards the members that are made when they are first asked for, in all contexts: a context that
// threads share is not changed by them, so far as they can tell.
std::mutex& LazyMembers() {
  static std::mutex mutex;
  return mutex;
}

[[noreturn]] void ThrowExclusiveFlags(const wchar* advice) {
  throw CTovikInvalidStateException(
      WString(u"The parser can only ignore additional elements, or ignore the fact that some "
              u"required ones are missing, you can not ignore both\n") +
      advice);
}

}  // namespace

template <class T>
CSerializationContext::MadeOnDemand<T>::MadeOnDemand() = default;

template <class T>
CSerializationContext::MadeOnDemand<T>::MadeOnDemand(const MadeOnDemand& other) {
  *this = other;
}

template <class T>
CSerializationContext::MadeOnDemand<T>& CSerializationContext::MadeOnDemand<T>::operator=(
    const MadeOnDemand& other) {
  const std::lock_guard lock(LazyMembers());
  if (m_settings) {
    *m_settings = other.m_settings ? *other.m_settings : T();
  } else if (other.m_settings) {
    m_settings = std::make_unique<T>(*other.m_settings);
  }
  return *this;
}

template <class T>
CSerializationContext::MadeOnDemand<T>::MadeOnDemand::~MadeOnDemand() = default;

template <class T>
T& CSerializationContext::MadeOnDemand<T>::Get() const {
  const std::lock_guard lock(LazyMembers());
  if (!m_settings) m_settings = std::make_unique<T>();
  return *m_settings;
}

CSerializationContext::RootAttributes::RootAttributes() = default;

CSerializationContext::RootAttributes::RootAttributes(const RootAttributes& other)
    : m_attributes(other.GetIfMade()) {}

// The former list is let go behind the lock, since its end may call listeners.
CSerializationContext::RootAttributes& CSerializationContext::RootAttributes::operator=(
    const RootAttributes& other) {
  CSmartPtr<CAttributeCol> attributes = other.GetIfMade();
  const std::lock_guard lock(LazyMembers());
  std::swap(m_attributes, attributes);
  return *this;
}

CSerializationContext::RootAttributes::~RootAttributes() = default;

CSmartPtr<CAttributeCol> CSerializationContext::RootAttributes::Get() const {
  const std::lock_guard lock(LazyMembers());
  if (!m_attributes) m_attributes = new CAttributeCol(u"", u"##any", u"");
  return m_attributes;
}

CSmartPtr<CAttributeCol> CSerializationContext::RootAttributes::GetIfMade() const {
  const std::lock_guard lock(LazyMembers());
  return m_attributes;
}

CSerializationContext::CSerializationContext() = default;
CSerializationContext::CSerializationContext(const CSerializationContext& other) = default;
CSerializationContext& CSerializationContext::operator=(const CSerializationContext& other) =
    default;
CSerializationContext::~CSerializationContext() = default;

CSerializationContext& CSerializationContext::GetDefaultContext() {
  static CSerializationContext m_defaultContext;
  return m_defaultContext;
}

void CSerializationContext::SetIndentChars(const wchar* chars) {
  const WStringView text = ViewOf(chars);
  if (text.find_first_not_of(u" \t") != WStringView::npos) {
    throw CTovikInvalidParamException(
        u"IndentChars can only contain Whitespace characters, i.e. \t or spaces");
  }
  m_indentChars = text;
}

void CSerializationContext::SetDefaultNamespaceURI(const wchar* uri) {
  m_defaultNamespaceUri = ViewOf(uri);
}

void CSerializationContext::SetInLineSchema(const wchar* text) {
  m_inLineSchema = ViewOf(text);
}

void CSerializationContext::SetIgnoreUnknownElements(bool value) {
  if (value && m_ignoreMissingMandatoryElements) {
    ThrowExclusiveFlags(
        u"Set IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to "
        u"true");
  }
  m_ignoreUnknownElements = value;
}

void CSerializationContext::SetIgnoreMissingMandatoryElements(bool value) {
  if (value && m_ignoreUnknownElements) {
    ThrowExclusiveFlags(
        u"Set IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to "
        u"true");
  }
  m_ignoreMissingMandatoryElements = value;
}

CJsonContext& CSerializationContext::GetJsonContext() const {
  return m_jsonContext.Get();
}

CFastInfosetContext& CSerializationContext::GetFIContext() const {
  return m_fastInfosetContext.Get();
}

CSmartPtr<CAttributeCol> CSerializationContext::GetAdditionalRootAttributes() const {
  return m_additionalRootAttributes.Get();
}

}  // namespace TovikXmlLib16
