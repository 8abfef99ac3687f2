#include "tools/convert/prefixes.h"

#include <string>

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

const WString kXmlNamespace = u"http://www.w3.org/XML/1998/namespace";

// What follows an element in document order; null behind the last.
const CXmlElement* Next(const CXmlElement* element) {
  if (element->GetFirstElement()) return element->GetFirstElement();
  while (element && !element->GetNextSiblingElement()) element = element->GetParentElm();
  return element ? element->GetNextSiblingElement() : nullptr;
}

bool IsNameUnit(wchar unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
         (unit >= u'0' && unit <= u'9') || unit == u'_' || unit == u'-' || unit == u'.' ||
         unit >= 0x80;
}

}  // namespace

Prefixes::Prefixes(const CXmlDocument& document) : m_document(document) {
  for (const CXmlElement* at = document.GetDocumentElement(); at; at = Next(at)) Visit(*at);
}

void Prefixes::Visit(const CXmlElement& element) {
  m_elementNamespaces.insert(element.GetNamespaceURI());
  VisitValue(element.GetText());
  for (const CXmlAttribute* attribute : element.GetAttributes()) {
    m_attributeNamespaces.insert(attribute->GetNamespaceURI());
    VisitValue(attribute->GetValue());
  }
}

// Notes every bound name in front of a colon.
void Prefixes::VisitValue(const WString& value) {
  for (auto colon = value.find(u':'); colon != WString::npos; colon = value.find(u':', colon + 1)) {
    auto start = colon;
    while (start > 0 && IsNameUnit(value[start - 1])) --start;
    const WString prefix = value.substr(start, colon - start);
    if (prefix.empty() || prefix == u"xml") continue;
    if (!m_document.LookupNamespaceFromAlias(prefix.c_str()).empty()) {
      m_prefixesInValues.insert(prefix);
    }
  }
}

WString Prefixes::DefaultNamespace() const {
  if (m_elementNamespaces.count(WString()) != 0) return WString();
  const WString& root = m_document.GetDocumentElement()->GetNamespaceURI();
  return m_document.LookupAliasFromNamespace(root.c_str()).empty()
             ? root
             : m_document.LookupNamespaceFromAlias(u"");
}

WString Prefixes::MakePrefix(const CNamespaceAliasMap& taken) const {
  for (int number = 1;; ++number) {
    const std::string digits = std::to_string(number);
    const WString prefix = u"ns" + WString(digits.begin(), digits.end());
    if (taken.DoesAliasExist(prefix.c_str())) continue;
    if (m_document.LookupNamespaceFromAlias(prefix.c_str()).empty()) return prefix;
  }
}

void Prefixes::ApplyTo(CSerializationContext& context) const {
  const WString defaultNamespace = DefaultNamespace();
  context.SetDefaultNamespaceURI(defaultNamespace.c_str());
  CNamespaceAliasMap& aliases = context.GetNamespaceAliases();
  for (const WString& prefix : m_prefixesInValues) {
    aliases.Add(prefix.c_str(), m_document.LookupNamespaceFromAlias(prefix.c_str()).c_str());
  }
  std::set<WString> needed = m_attributeNamespaces;
  for (const WString& uri : m_elementNamespaces) {
    if (uri != defaultNamespace) needed.insert(uri);
  }
  for (const WString& uri : needed) {
    if (uri.empty() || uri == kXmlNamespace || aliases.DoesNamespaceExist(uri.c_str())) continue;
    const WString known = m_document.LookupAliasFromNamespace(uri.c_str());
    aliases.Add((known.empty() ? MakePrefix(aliases) : known).c_str(), uri.c_str());
  }
}

}  // namespace TovikXmlConvert
