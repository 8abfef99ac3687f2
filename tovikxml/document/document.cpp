#include "tovikxml/document/document.h"

#include <utility>

#include "tovikxml/base/text.h"
#include "tovikxml/document/tree_storage.h"
#include "tovikxml/document/xml_names.h"
#include "tovikxml/settings/serialization_context.h"

namespace TovikXmlLib16 {
namespace {

bool EndsWith(WStringView text, WStringView end) {
  return text.size() >= end.size() && EqualText(text.substr(text.size() - end.size()), end);
}

void AppendPosition(WString& name, std::size_t position) {
  name.append(u"[").append(WidenAscii(std::to_string(position))).append(u"]");
}

}  // namespace

CXmlAttribute::CXmlAttribute() : CInstanceMonitor(u"CXmlAttribute") {}

CXmlAttribute::~CXmlAttribute() = default;

const WString& CXmlAttribute::GetLocalName() const {
  return m_name->localName;
}

const WString& CXmlAttribute::GetNamespaceURI() const {
  return *m_name->namespaceUri;
}

WString CXmlAttribute::GetXPath() const {
  WString path = m_element->GetXPath() + u"/@";
  if (!GetNamespaceURI().empty()) {
    const WString prefix = m_element->m_document->LookupAlias(GetNamespaceURI());
    if (!prefix.empty()) path.append(prefix).append(u":");
  }
  return path.append(GetLocalName());
}

bool CXmlAttribute::IsReserved() const {
  const WString& uri = GetNamespaceURI();
  return !uri.empty() && (EqualText(uri, kXsiNamespace) || EqualText(uri, kXmlnsNamespace));
}

bool CXmlAttribute::IsNamespaceAttribute() const {
  if (!IsReserved()) return false;
  const WString& name = GetLocalName();
  return name == u"xmlns" || name == u"type" || name == u"schemaLocation" ||
         name == u"noNamespaceSchemaLocation";
}

bool CXmlAttribute::IsNilAttribute() const {
  return IsReserved() && GetLocalName() == u"nil";
}

CXmlElement::CXmlElement() : CInstanceMonitor(u"CXmlElement") {}

CXmlElement::~CXmlElement() = default;

const WString& CXmlElement::GetLocalName() const {
  return m_name->localName;
}

const WString& CXmlElement::GetNamespaceURI() const {
  return *m_name->namespaceUri;
}

const WString& CXmlElement::GetAttribute(const WString& localName,
                                         const WString& namespaceUri) const {
  for (const CXmlAttribute* attribute : m_attributes) {
    if (EqualText(attribute->GetLocalName(), localName) &&
        EqualText(attribute->GetNamespaceURI(), namespaceUri)) {
      return attribute->GetValue();
    }
  }
  return EmptyText();
}

WString CXmlElement::GetXPath() const {
  std::vector<const CXmlElement*> ancestry;
  for (const CXmlElement* element = this; element; element = element->m_parent) {
    ancestry.push_back(element);
  }
  WString path;
  for (auto element = ancestry.rbegin(); element != ancestry.rend(); ++element) {
    path.append(u"/").append((*element)->GetNameWithPredicate());
  }
  return path;
}

WString CXmlElement::GetQName() const {
  if (!GetNamespaceURI().empty()) {
    const WString prefix = m_document->LookupAlias(GetNamespaceURI());
    if (!prefix.empty()) return prefix + u":" + GetLocalName();
  }
  return GetLocalName();
}

// The position counts namesakes only, from 1; an element without a namesake has none.
WString CXmlElement::GetNameWithPredicate() const {
  WString name = GetQName();
  if (!m_parent) return name;
  const CXmlName* lastOther = nullptr;
  const auto isNamesake = [&](const CXmlElement* sibling) {
    if (sibling->m_name == m_name) return true;
    if (sibling->m_name == lastOther) return false;
    if (EndsWith(name, sibling->GetLocalName()) && EqualText(sibling->GetQName(), name)) {
      return true;
    }
    lastOther = sibling->m_name;
    return false;
  };
  std::size_t position = 1;
  bool passed = false;
  for (const CXmlElement* sibling = m_parent->m_firstChild; sibling;
       sibling = sibling->m_nextSibling) {
    if (sibling == this) {
      passed = true;
      if (position > 1) break;
    } else if (isNamesake(sibling)) {
      if (passed) {
        AppendPosition(name, position);
        return name;
      }
      ++position;
    }
  }
  if (position > 1) AppendPosition(name, position);
  return name;
}

CXmlDocument::CXmlDocument() : CXmlDocument(nullptr, CSerializationContext::GetDefaultContext()) {}

CXmlDocument::CXmlDocument(const CSerializationContext& context) : CXmlDocument(nullptr, context) {}

CXmlDocument::CXmlDocument(ElementCallback callback)
    : CXmlDocument(callback, CSerializationContext::GetDefaultContext()) {}

CXmlDocument::CXmlDocument(ElementCallback callback, const CSerializationContext& context)
    : CInstanceMonitor(u"CXmlDocument"),
      m_schemaType(context.GetSchemaType()),
      m_callback(callback),
      m_context(&context) {}

CXmlDocument::~CXmlDocument() = default;

void CXmlDocument::Cleanup() {
  m_root = nullptr;
  m_lastName = nullptr;
  m_storage.reset();
  m_open.clear();
  m_aliases.clear();
  m_prefixes.reset();
  m_unreadEntity.clear();
}

WString CXmlDocument::LookupAliasFromNamespace(const wchar* uri) const {
  return LookupAlias(TextOf(uri));
}

WString CXmlDocument::LookupAlias(const WString& uri) const {
  if (!m_prefixes) {
    m_prefixes.emplace();
    for (const auto& [prefix, boundUri] : m_aliases) (*m_prefixes)[boundUri].insert(prefix);
  }
  const auto prefixes = m_prefixes->find(uri);
  return prefixes == m_prefixes->end() ? WString() : *prefixes->second.begin();
}

WString CXmlDocument::LookupNamespaceFromAlias(const wchar* alias) const {
  const auto entry = m_aliases.find(TextOf(alias));
  return entry == m_aliases.end() ? WString() : entry->second;
}

CXmlNameTable& CXmlDocument::Names() {
  if (!m_storage) m_storage = std::make_unique<CXmlTreeStorage>();
  return m_storage->names;
}

const CXmlName* CXmlDocument::KeepName(const wchar* qualified) {
  return m_lastName = Names().KeepNext(qualified, m_lastName);
}

const CXmlName* CXmlDocument::KeepName(WStringView namespaceUri, WStringView localName) {
  return Names().Keep(namespaceUri, localName);
}

CXmlElement* CXmlDocument::AddElement(const CXmlName* name) {
  CXmlElement* parent = TopElement();
  CXmlElement* previous = parent ? parent->m_lastChild : nullptr;
  CXmlElement* element = m_storage->TakeElement();
  element->m_document = this;
  element->m_name = name;
  element->m_parent = parent;
  if (!parent) {
    m_root = element;
  } else {
    (previous ? previous->m_nextSibling : parent->m_firstChild) = element;
    parent->m_lastChild = element;
  }
  m_open.push_back({element, previous});
  return element;
}

void CXmlDocument::AddElementAttribute(CXmlElement* element, const CXmlName* name,
                                       WStringView value) {
  CXmlAttribute* attribute = m_storage->TakeAttribute();
  attribute->m_element = element;
  attribute->m_name = name;
  attribute->m_value.Append(value, m_storage->texts, name->usualText);
  element->m_attributes.push_back(attribute);
}

void CXmlDocument::AppendText(WStringView text) {
  CXmlElement& element = *m_open.back().element;
  element.m_text.Append(text, m_storage->texts, element.m_name->usualText);
}

void CXmlDocument::AppendTextExcludingCR(WStringView text) {
  const wchar* at = text.data();
  const wchar* const end = at + text.size();
  while (at != end) {
    const wchar* const start = at;
    while (at != end && *at != u'\r' && *at != u'\0') ++at;
    AppendText({start, static_cast<std::size_t>(at - start)});
    if (at == end || *at == u'\0') return;
    ++at;
  }
}

void CXmlDocument::BindAlias(WString prefix, WString uri) {
  WString& boundUri = m_aliases[prefix];
  if (m_prefixes) {
    const auto former = m_prefixes->find(boundUri);
    if (former != m_prefixes->end() && former->second.erase(prefix) && former->second.empty()) {
      m_prefixes->erase(former);
    }
    (*m_prefixes)[uri].insert(std::move(prefix));
  }
  boundUri = std::move(uri);
}

void CXmlDocument::EndElement() {
  const OpenElement ended = m_open.back();
  m_open.pop_back();
  if (m_callback && m_callback(ended.element) && ended.element->m_parent) {
    RemoveLastChildElement(ended);
  }
}

void CXmlDocument::RemoveLastChildElement(const OpenElement& ended) {
  CXmlElement* parent = ended.element->m_parent;
  parent->m_lastChild = ended.previousSibling;
  (ended.previousSibling ? ended.previousSibling->m_nextSibling : parent->m_firstChild) = nullptr;
  m_storage->FreeSubtree(ended.element);
}

}  // namespace TovikXmlLib16
