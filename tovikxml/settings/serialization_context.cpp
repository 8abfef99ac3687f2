#include "tovikxml/settings/serialization_context.h"

#include <mutex>

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

template <class T>
T& MadeOnce(std::unique_ptr<T>& member) {
  const std::lock_guard lock(LazyMembers());
  if (!member) member = std::make_unique<T>();
  return *member;
}

template <class T>
std::unique_ptr<T> CopyOf(const std::unique_ptr<T>& source) {
  return source ? std::make_unique<T>(*source) : nullptr;
}

[[noreturn]] void ThrowExclusiveFlags(const wchar* advice) {
  throw CTovikInvalidStateException(
      WString(u"The parser can only ignore additional elements, or ignore the fact that some "
              u"required ones are missing, you can not ignore both\n") +
      advice);
}

}  // namespace

CSerializationContext::CSerializationContext() = default;

CSerializationContext::CSerializationContext(const CSerializationContext& other) {
  *this = other;
}

CSerializationContext& CSerializationContext::operator=(const CSerializationContext& other) {
  if (this == &other) return *this;
  {
    const std::lock_guard lock(LazyMembers());
    m_jsonContext = CopyOf(other.m_jsonContext);
    m_fastInfosetContext = CopyOf(other.m_fastInfosetContext);
    m_additionalRootAttributes = other.m_additionalRootAttributes;
  }
  m_defaultNamespaceUri = other.m_defaultNamespaceUri;
  m_namespaceAliases = other.m_namespaceAliases;
  m_instructions = other.m_instructions;
  m_inLineSchema = other.m_inLineSchema;
  m_indentChars = other.m_indentChars;
  m_schemaType = other.m_schemaType;
  m_maxNesting = other.m_maxNesting;
  m_maxDecompressedSize = other.m_maxDecompressedSize;
  m_maxExpandedText = other.m_maxExpandedText;
  m_writeTypeAttribute = other.m_writeTypeAttribute;
  m_noOptionalAttributeDefaults = other.m_noOptionalAttributeDefaults;
  m_writeDefaultElementValues = other.m_writeDefaultElementValues;
  m_ignoreUnknownElements = other.m_ignoreUnknownElements;
  m_ignoreMissingMandatoryElements = other.m_ignoreMissingMandatoryElements;
  m_ignoreUnknownAttributes = other.m_ignoreUnknownAttributes;
  m_ignoreInvalidCollectionCounts = other.m_ignoreInvalidCollectionCounts;
  m_ignoreMissingChoice = other.m_ignoreMissingChoice;
  m_ignoreNamespaces = other.m_ignoreNamespaces;
  m_stripCData = other.m_stripCData;
  return *this;
}

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
  return MadeOnce(m_jsonContext);
}

CFastInfosetContext& CSerializationContext::GetFIContext() const {
  return MadeOnce(m_fastInfosetContext);
}

CSmartPtr<CAttributeCol> CSerializationContext::GetAdditionalRootAttributes() const {
  const std::lock_guard lock(LazyMembers());
  if (!m_additionalRootAttributes) {
    m_additionalRootAttributes = new CAttributeCol(u"", u"##any", u"");
  }
  return m_additionalRootAttributes;
}

}  // namespace TovikXmlLib16
