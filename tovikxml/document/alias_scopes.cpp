#include "tovikxml/document/alias_scopes.h"

#include <algorithm>
#include <utility>

#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

constexpr unsigned kLetters = 26;

WString AliasAt(std::size_t index) {
  return {static_cast<wchar>(u'A' + index / kLetters), static_cast<wchar>(u'A' + index % kLetters)};
}

std::optional<std::size_t> IndexOf(const WString& alias) {
  if (alias.size() != 2 || alias[0] < u'A' || alias[1] < u'A' || alias[1] > u'Z') {
    return std::nullopt;
  }
  return std::size_t{kLetters} * (alias[0] - u'A') + (alias[1] - u'A');
}

}  // namespace

void CAliasCandidates::Take(const WString& alias) {
  if (const auto index = IndexOf(alias)) ++m_uses[*index];
}

void CAliasCandidates::Release(const WString& alias) {
  const auto index = IndexOf(alias);
  if (!index) return;
  const auto uses = m_uses.find(*index);
  if (--uses->second != 0) return;
  m_uses.erase(uses);
  m_firstFree = std::min(m_firstFree, *index);
}

WString CAliasCandidates::GetFirstFree() {
  for (auto uses = m_uses.find(m_firstFree); uses != m_uses.end() && uses->first == m_firstFree;
       ++uses) {
    ++m_firstFree;
  }
  return AliasAt(m_firstFree);
}

const WString* CAliasScopes::Find(const WString& namespaceUri) const {
  if (m_lastFound && EqualText(m_lastFound->first, namespaceUri)) return &m_lastFound->second;
  const auto entry = m_aliases.find(namespaceUri);
  if (entry == m_aliases.end()) return nullptr;
  m_lastFound = &*entry;
  return &entry->second;
}

const WString& CAliasScopes::Set(const WString& namespaceUri, const WString& alias) {
  const auto [entry, isNew] = m_aliases.try_emplace(namespaceUri);
  m_changes.push_back({entry, std::nullopt});
  if (!isNew) {
    m_candidates.Release(entry->second);
    m_changes.back().formerAlias = std::move(entry->second);
  }
  entry->second = alias;
  m_candidates.Take(alias);
  return entry->second;
}

const WString& CAliasScopes::SetGenerated(const WString& namespaceUri) {
  return Set(namespaceUri, m_candidates.GetFirstFree());
}

void CAliasScopes::Restore(std::size_t mark) {
  for (; m_changes.size() > mark; m_changes.pop_back()) {
    Change& change = m_changes.back();
    m_candidates.Release(change.entry->second);
    if (change.formerAlias) {
      change.entry->second = *std::move(change.formerAlias);
      m_candidates.Take(change.entry->second);
    } else {
      m_aliases.erase(change.entry);
      m_lastFound = nullptr;
    }
  }
}

}  // namespace TovikXmlLib16
