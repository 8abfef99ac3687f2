#include "tovikxml/settings/namespace_alias_map.h"

#include <algorithm>
#include <iterator>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {

void CNamespaceAliasMap::Add(const wchar* alias, const wchar* namespaceUri) {
  m_aliases[TextOf(namespaceUri)] = TextOf(alias);
}

void CNamespaceAliasMap::RemoveNamespace(const wchar* namespaceUri) {
  m_aliases.erase(TextOf(namespaceUri));
}

WString CNamespaceAliasMap::GetNamespaceAt(int index) const {
  return std::next(m_aliases.begin(), std::max(index, 0))->first;
}

WString CNamespaceAliasMap::GetAliasFromNamespace(const wchar* namespaceUri) const {
  return m_aliases[TextOf(namespaceUri)];
}

WString CNamespaceAliasMap::GetNamespaceFromAlias(const wchar* alias) const {
  const auto entry = FindAlias(alias);
  if (entry == m_aliases.end()) {
    throw CTovikException(FormatString(u"Namespace alias [%s] not found", TextOf(alias).c_str()));
  }
  return entry->first;
}

bool CNamespaceAliasMap::DoesNamespaceExist(const wchar* namespaceUri) const {
  return m_aliases.count(TextOf(namespaceUri)) != 0;
}

bool CNamespaceAliasMap::DoesAliasExist(const wchar* alias) const {
  return FindAlias(alias) != m_aliases.end();
}

std::map<WString, WString>::const_iterator CNamespaceAliasMap::FindAlias(const wchar* alias) const {
  const WStringView wanted = ViewOf(alias);
  return std::find_if(m_aliases.begin(), m_aliases.end(),
                      [&](const auto& entry) { return EqualText(entry.second, wanted); });
}

}  // namespace TovikXmlLib16
