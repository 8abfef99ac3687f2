#ifndef TOVIKXML_DOCUMENT_ALIAS_SCOPES_H_
#define TOVIKXML_DOCUMENT_ALIAS_SCOPES_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// Which generated aliases are taken: "AA", "AB" ... "AZ", "BA" and so on, past "ZZ" with the codes
/// that follow "Z".
class TOVIKXML_EXPORT CAliasCandidates {
 public:
  /// An alias comes into use, or one use of it ends. Aliases of another form change nothing.
  void Take(const WString& alias);
  void Release(const WString& alias);
  /// The first that no entry uses.
  WString GetFirstFree();

 private:
  std::map<std::size_t, std::uint32_t> m_uses;
  std::size_t m_firstFree = 0;  // none before it is free
};

/// The aliases in force while a document is written. An element adds to what its parent has, and
/// gives up its changes when it ends, so that no element costs more than it changes itself.
class TOVIKXML_EXPORT CAliasScopes {
 public:
  /// From namespace URI to alias, ordered by the 16-bit units of the URI.
  using AliasMap = std::map<WString, WString>;

  const AliasMap& GetAliases() const { return m_aliases; }
  /// Null if the namespace has no alias. Valid until the alias changes.
  const WString* Find(const WString& namespaceUri) const;
  const WString& Set(const WString& namespaceUri, const WString& alias);
  /// Gives the namespace the first generated alias that is free.
  const WString& SetGenerated(const WString& namespaceUri);

  /// The present state, to go back to.
  std::size_t GetMark() const { return m_changes.size(); }
  void Restore(std::size_t mark);

 private:
  struct Change {
    AliasMap::iterator entry;
    std::optional<WString> formerAlias;
  };

  AliasMap m_aliases;
  std::vector<Change> m_changes;
  CAliasCandidates m_candidates;
  /// The entry that was looked up last, since namespaces repeat; null if there is none.
  mutable const AliasMap::value_type* m_lastFound = nullptr;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_ALIAS_SCOPES_H_
