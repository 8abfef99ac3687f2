#include "tovikxml/settings/namespace_alias_map.h"

#include <algorithm>
#include <iterator>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {

void CNamespaceAliasMap::Add(const wchar* alias, const wchar* namespaceUri) {
  RemoveNamespace(namespaceUri);
  Store(TextOf(alias), TextOf(namespaceUri));
}

void CNamespaceAliasMap::RemoveNamespace(const wchar* namespaceUri) {
  const auto entry = m_aliases.find(TextOf(namespaceUri));
  if (entry == m_aliases.end()) return;
  const auto namespaces = m_namespaces.find(entry->second);
  namespaces->second.erase(entry->first);
  if (namespaces->second.empty()) m_namespaces.erase(namespaces);
  m_aliases.erase(entry);
}

WString CNamespaceAliasMap::GetNamespaceAt(int index) const {
  const int count = GetNamespaceCount();
  index = std::max(index, 0);
  if (index <= count / 2) return std::next(m_aliases.begin(), index)->first;
  return std::prev(m_aliases.end(), count - index)->first;
}

WString CNamespaceAliasMap::GetAliasFromNamespace(const wchar* namespaceUri) const {
  const WString uri = TextOf(namespaceUri);
  const auto entry = m_aliases.find(uri);
  if (entry != m_aliases.end()) return entry->second;
  Store(WString(), uri);
  return WString();
}

WString CNamespaceAliasMap::GetNamespaceFromAlias(const wchar* alias) const {
  const auto namespaces = m_namespaces.find(TextOf(alias));
  if (namespaces == m_namespaces.end()) {
    throw CTovikException(FormatString(u"Namespace alias [%s] not found", TextOf(alias).c_str()));
  }
  return *namespaces->second.begin();
}

bool CNamespaceAliasMap::DoesNamespaceExist(const wchar* namespaceUri) const {
  return m_aliases.count(TextOf(namespaceUri)) != 0;
}

bool CNamespaceAliasMap::DoesAliasExist(const wchar* alias) const {
  return m_namespaces.count(TextOf(alias)) != 0;
}

void CNamespaceAliasMap::Store(const WString& alias, const WString& namespaceUri) const {
  m_namespaces[alias].insert(namespaceUri);
  m_aliases.emplace(namespaceUri, alias);
}

}  // namespace TovikXmlLib16
