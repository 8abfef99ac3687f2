#ifndef TOVIKXML_SETTINGS_NAMESPACE_ALIAS_MAP_H_
#define TOVIKXML_SETTINGS_NAMESPACE_ALIAS_MAP_H_

#include <map>
#include <set>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// The namespace prefixes ("aliases") that a caller wants to see in the output, set on
/// `CSerializationContext::GetNamespaceAliases()` and declared on the root element:
///
///     context.GetNamespaceAliases().Add(u"xsi", u"http://www.w3.org/2001/XMLSchema-instance");
///
/// There is one alias for each namespace; one alias may stand for several namespaces. Entries are
/// ordered by the 16-bit units of their URI.
class TOVIKXML_EXPORT CNamespaceAliasMap {
 public:
  CNamespaceAliasMap() = default;
  CNamespaceAliasMap(const CNamespaceAliasMap&) = default;
  CNamespaceAliasMap& operator=(const CNamespaceAliasMap&) = default;
  virtual ~CNamespaceAliasMap() = default;

  /// Stores the alias for the namespace, replacing the one that was there.
  void Add(const wchar* alias, const wchar* namespaceUri);
  /// Without effect if the namespace has no entry.
  void RemoveNamespace(const wchar* namespaceUri);

  int GetNamespaceCount() const { return static_cast<int>(m_aliases.size()); }
  /// The URI of the entry at a position. An index below 1 gives the first entry; the index must be
  /// below the count. The cost is that of the way from the nearer end; to see all entries, use
  /// `GetEntries`.
  WString GetNamespaceAt(int index) const;
  /// From URI to alias.
  const std::map<WString, WString>& GetEntries() const { return m_aliases; }
  /// The alias of the namespace. A namespace without an entry gives an empty alias and thereby
  /// gets an entry with that empty alias.
  WString GetAliasFromNamespace(const wchar* namespaceUri) const;
  /// The lowest URI that has the alias. Throws `CTovikException` "Namespace alias [%s] not found".
  WString GetNamespaceFromAlias(const wchar* alias) const;
  bool DoesNamespaceExist(const wchar* namespaceUri) const;
  bool DoesAliasExist(const wchar* alias) const;

 private:
  void Store(const WString& alias, const WString& namespaceUri) const;

  // Mutable because looking an alias up makes an entry for an unknown namespace.
  mutable std::map<WString, WString> m_aliases;
  mutable std::map<WString, std::set<WString>> m_namespaces;  // of each alias
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_SETTINGS_NAMESPACE_ALIAS_MAP_H_
