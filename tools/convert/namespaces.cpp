#include "tools/convert/namespaces.h"

#include <algorithm>
#include <string>
#include <utility>

using namespace TovikXmlLib16;

namespace TovikXmlConvert {

const WString kXmlnsNamespace = u"http://www.w3.org/2000/xmlns/";

namespace {

const WString kXmlNamespace = u"http://www.w3.org/XML/1998/namespace";
const WString kNone;

WStringView PrefixOf(WStringView qualified) {
  const auto colon = qualified.find(u':');
  return qualified.substr(0, colon == WStringView::npos ? 0 : colon);
}

WStringView LocalPartOf(WStringView qualified) {
  return qualified.substr(qualified.find(u':') + 1);
}

bool IsXmlns(const WString& name) {
  return name == u"xmlns" || name.compare(0, 6, u"xmlns:") == 0;
}

// Whether a text that the parser took for a name, or for the end of one, is a name in itself.
bool IsName(WStringView text) {
  try {
    CXmlDocument probe;
    probe.LoadXml((u"<" + WString(text) + u"/>").c_str());
    return true;
  } catch (const CTovikException&) {
    return false;
  }
}

}  // namespace

Namespaces::Namespaces(Source source) : m_source(source) {
  Bind(u"xml", kXmlNamespace);
}

const Namespaces::StartTag& Namespaces::Enter(const CXmlElement& element) {
  m_element = &element;
  m_tag.declarations.clear();
  m_tag.attributes.clear();
  m_madeNames.clear();
  m_marks.push_back(m_changes.size());
  const WString& declaring = m_source == Source::kXmlText ? kNone : kXmlnsNamespace;
  const auto isDeclaration = [&](const CXmlAttribute& attribute) {
    return IsXmlns(attribute.GetLocalName()) && attribute.GetNamespaceURI() == declaring;
  };
  for (const CXmlAttribute* attribute : element.GetAttributes()) {
    if (isDeclaration(*attribute)) {
      TakeDeclaration(attribute->GetLocalName(), WString(attribute->GetValueView()));
    }
  }
  m_tag.name = ElementName(element);
  for (const CXmlAttribute* attribute : element.GetAttributes()) {
    if (!isDeclaration(*attribute)) {
      m_tag.attributes.push_back({AttributeName(*attribute), attribute});
    }
  }
  RequireDistinctAttributes();
  return m_tag;
}

void Namespaces::Leave() {
  for (; m_changes.size() > m_marks.back(); m_changes.pop_back()) {
    SetUri(m_changes.back().prefix, m_changes.back().uriBefore);
  }
  m_marks.pop_back();
}

void Namespaces::TakeDeclaration(const WString& name, const WString& uri) {
  const WString prefix = name.size() > 6 ? name.substr(6) : WString();
  if (name.size() > 5) RequireNamePart(prefix);
  if (prefix == u"xml" && uri == kXmlNamespace) return;
  if (prefix == u"xml" || prefix == u"xmlns") {
    Refuse(u"The prefix [" + prefix + u"] is reserved");
  }
  if (uri == kXmlNamespace || uri == kXmlnsNamespace) {
    Refuse(u"The namespace [" + uri + u"] is reserved");
  }
  if (uri.empty() && !prefix.empty()) {
    Refuse(u"The prefix [" + prefix + u"] is declared for no namespace");
  }
  Declare(prefix, uri);
}

void Namespaces::Declare(const WString& prefix, const WString& uri) {
  Bind(prefix, uri);
  m_tag.declarations.push_back({prefix, uri});
}

void Namespaces::Bind(const WString& prefix, const WString& uri) {
  m_changes.push_back({prefix, UriOf(prefix)});
  SetUri(prefix, uri);
}

void Namespaces::SetUri(const WString& prefix, const WString& uri) {
  WString& bound = m_uris[prefix];
  if (!bound.empty()) m_prefixes[bound].erase(prefix);
  if (!uri.empty()) m_prefixes[uri].insert(prefix);
  bound = uri;
}

// Empty for a prefix that is not declared.
const WString& Namespaces::UriOf(WStringView prefix) const {
  const auto entry = m_uris.find(prefix);
  return entry == m_uris.end() ? kNone : entry->second;
}

Namespaces::Name Namespaces::ElementName(const CXmlElement& element) {
  const WString& name = element.GetLocalName();
  if (m_source == Source::kXmlText) return NameByPrefix(name, UriOf(kNone));
  if (!element.GetNamespaceURI().empty()) {
    return NameInNamespace(name, element.GetNamespaceURI(), false);
  }
  if (!UriOf(kNone).empty()) DropDefaultNamespace();
  return {&name, &kNone};
}

Namespaces::Name Namespaces::AttributeName(const CXmlAttribute& attribute) {
  const WString& name = attribute.GetLocalName();
  if (IsXmlns(name)) Refuse(u"The name [" + name + u"] is reserved");
  if (m_source == Source::kXmlText) return NameByPrefix(name, kNone);
  if (attribute.GetNamespaceURI().empty()) return {&name, &kNone};
  return NameInNamespace(name, attribute.GetNamespaceURI(), true);
}

Namespaces::Name Namespaces::NameByPrefix(const WString& qualified,
                                          const WString& uriWithoutPrefix) {
  const auto colon = qualified.find(u':');
  if (colon == WString::npos) return {&qualified, &uriWithoutPrefix};
  if (colon == 0) Refuse(u"[" + qualified + u"] is not a name with a prefix");
  RequireNamePart(LocalPartOf(qualified));
  const WString& uri = UriOf(PrefixOf(qualified));
  if (uri.empty()) Refuse(u"The prefix of [" + qualified + u"] is not declared");
  return {&qualified, &uri};
}

// The prefix that comes with a name is kept where it stands for the namespace.
Namespaces::Name Namespaces::NameInNamespace(const WString& qualified, const WString& uri,
                                             bool isAttribute) {
  if (uri == kXmlnsNamespace) Refuse(u"The namespace [" + uri + u"] is reserved");
  const WStringView given = PrefixOf(qualified);
  if (UriOf(given) == uri && !(isAttribute && given.empty())) return {&qualified, &uri};
  WString name = PrefixFor(given, uri, isAttribute);
  if (!name.empty()) name += u':';
  m_madeNames.push_back(name.append(LocalPartOf(qualified)));
  return {&m_madeNames.back(), &uri};
}

// A prefix that is declared, else that which is wanted if it stands for nothing else, since values
// may use it, too; else a new one.
WString Namespaces::PrefixFor(WStringView wanted, const WString& uri, bool isAttribute) {
  const std::set<WString>& declared = m_prefixes[uri];
  auto found = declared.begin();
  if (isAttribute && found != declared.end() && found->empty()) ++found;
  if (found != declared.end()) return *found;
  WString prefix(wanted);
  while (prefix.empty() || prefix == u"xmlns" || !UriOf(prefix).empty()) {
    const std::string digits = std::to_string(++m_lastNumber);
    prefix.assign(u"ns").append(digits.begin(), digits.end());
  }
  Declare(prefix, uri);
  return prefix;
}

// For an element in no namespace.
void Namespaces::DropDefaultNamespace() {
  auto& declarations = m_tag.declarations;
  declarations.erase(std::remove_if(declarations.begin(), declarations.end(),
                                    [](const Declaration& d) { return d.prefix.empty(); }),
                     declarations.end());
  Declare(kNone, kNone);
}

// Two prefixes may stand for one namespace. Names without a prefix were compared in reading.
void Namespaces::RequireDistinctAttributes() {
  std::vector<std::pair<WStringView, WStringView>> names;
  for (const Attribute& attribute : m_tag.attributes) {
    if (attribute.name.uri->empty()) continue;
    names.emplace_back(*attribute.name.uri, LocalPartOf(*attribute.name.qualified));
  }
  if (names.size() < 2) return;
  std::sort(names.begin(), names.end());
  const auto twin = std::adjacent_find(names.begin(), names.end());
  if (twin == names.end()) return;
  Refuse(u"Two attributes have the name [" + WString(twin->second) + u"] in the namespace [" +
         WString(twin->first) + u"]");
}

// A part of a name that the parser has let pass. Only where it begins may it go wrong, and by a
// second colon.
void Namespaces::RequireNamePart(WStringView part) {
  const wchar first = part.empty() ? u'\0' : part.front();
  const bool beginsName =
      (first >= u'a' && first <= u'z') || (first >= u'A' && first <= u'Z') || first == u'_';
  if (beginsName && part.find(u':') == WStringView::npos) return;
  if (m_knownParts.find(part) != m_knownParts.end()) return;
  if (part.find(u':') != WStringView::npos || !IsName(part)) {
    Refuse(u"[" + WString(part) + u"] is not a name without a colon");
  }
  m_knownParts.insert(WString(part));
}

void Namespaces::Refuse(const WString& reason) const {
  throw CTovikException(reason + u", at " + m_element->GetXPath());
}

}  // namespace TovikXmlConvert
