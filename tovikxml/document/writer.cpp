#include "tovikxml/document/writer.h"

#include <set>
#include <utility>
#include <vector>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/xml_names.h"

namespace TovikXmlLib16 {
namespace {

constexpr unsigned kLetters = 26;

WString AliasCandidate(std::size_t index) {
  return {static_cast<wchar>(u'A' + index / kLetters), static_cast<wchar>(u'A' + index % kLetters)};
}

// A chain of contexts can be as long as the document is deep, so it is not left to the destructors
// of its members, which would recurse.
template <class Context>
void DestroyChain(std::unique_ptr<Context> context, std::unique_ptr<Context> Context::*parent) {
  while (context) context = std::move((*context).*parent);
}

}  // namespace

CXmlWriter::CXmlWriterContext::CXmlWriterContext() : CInstanceMonitor(u"CXmlWriterContext") {}

CXmlWriter::CXmlWriterContext::~CXmlWriterContext() {
  DestroyChain(std::move(m_parent), &CXmlWriterContext::m_parent);
}

const WString* CXmlWriter::CXmlWriterContext::FindAlias(const WString& namespaceUri) const {
  const auto* last = m_scope->lastFound;
  if (last && EqualText(last->first, namespaceUri)) return &last->second;
  const auto entry = m_scope->aliases.find(namespaceUri);
  if (entry == m_scope->aliases.end()) return nullptr;
  m_scope->lastFound = &*entry;
  return &entry->second;
}

const WString& CXmlWriter::CXmlWriterContext::GetAlias(const WString& namespaceUri) const {
  const WString* alias = FindAlias(namespaceUri);
  return alias ? *alias : m_scope->aliases[namespaceUri];
}

void CXmlWriter::CXmlWriterContext::SetDefaultNamespace(const WString& uri) {
  MakeOwnScope();
  m_scope->defaultNamespace = uri;
}

void CXmlWriter::CXmlWriterContext::AddAlias(const WString& namespaceUri, const WString& alias) {
  MakeOwnScope();
  m_scope->aliases[namespaceUri] = alias;
}

void CXmlWriter::CXmlWriterContext::MakeOwnScope() {
  if (m_ownScope) return;
  m_ownScope = m_scope ? std::make_unique<Scope>(*m_scope) : std::make_unique<Scope>();
  m_scope = m_ownScope.get();
  m_scope->lastFound = nullptr;
}

CXmlWriter::CXmlWriter(const wchar* className) : CInstanceMonitor(className) {
  m_aliases.emplace(kXmlNamespace, u"xml");
}

CXmlWriter::~CXmlWriter() = default;

void CXmlWriter::Open() {}

void CXmlWriter::Close() {
  if (m_current) throw CTovikException(u"An Element has not been closed.");
}

void CXmlWriter::SetDefaultNamespace(const WString& uri) {
  if (m_current) {
    m_current->SetDefaultNamespace(uri);
  } else {
    m_defaultNamespace = uri;
  }
}

void CXmlWriter::AddNamespaceAlias(const WString& alias, const WString& namespaceUri) {
  if (m_current) {
    m_current->AddAlias(namespaceUri, alias);
  } else {
    m_aliases[namespaceUri] = alias;
  }
}

void CXmlWriter::SetCollectionState(int state) {
  if (m_current) m_current->collectionState = state;
}

WString CXmlWriter::GenerateAlias(const AliasMap& aliases) {
  // Among the first size + 1 candidates at least one is free.
  std::vector<bool> used(aliases.size() + 1);
  for (const auto& [uri, alias] : aliases) {
    if (alias.size() != 2 || alias[0] < u'A' || alias[1] < u'A' || alias[1] > u'Z') continue;
    const std::size_t index = (alias[0] - u'A') * kLetters + (alias[1] - u'A');
    if (index < used.size()) used[index] = true;
  }
  std::size_t index = 0;
  while (used[index]) ++index;
  return AliasCandidate(index);
}

CXmlWriter::CXmlWriterContext* CXmlWriter::PushContext(const WString& localName,
                                                       const WString& namespaceUri) {
  auto context = TakeContext();
  context->m_localName = localName;
  context->m_namespaceUri = namespaceUri;
  if (m_current) {
    context->m_depth = m_current->m_depth + 1;
    context->m_scope = m_current->m_scope;
  } else {
    EnterRootScope(*context);
  }
  context->m_parent = std::move(m_current);
  m_current = std::move(context);
  return m_current.get();
}

void CXmlWriter::PopContext() {
  auto context = std::move(m_current);
  m_current = std::move(context->m_parent);
  context->m_scope = nullptr;
  context->m_ownScope.reset();
  context->m_parent = std::move(m_spare);
  m_spare = std::move(context);
}

void CXmlWriter::RequireOpenStartTag() const {
  if (!m_current->startTagOpen) throw CTovikException(u"Attributes must be added before elements");
}

std::unique_ptr<CXmlWriter::CXmlWriterContext> CXmlWriter::TakeContext() {
  if (!m_spare) return std::make_unique<CXmlWriterContext>();
  auto context = std::move(m_spare);
  m_spare = std::move(context->m_parent);
  context->childCount = 0;
  context->startTagOpen = true;
  context->hasAttributes = false;
  context->collectionState = 0;
  context->m_depth = 0;
  return context;
}

// The root takes over what the writer was told, but for what could not be declared: an empty
// alias or namespace, and an alias that stands for another namespace already. An entry of the
// latter kind gets a generated alias.
void CXmlWriter::EnterRootScope(CXmlWriterContext& root) const {
  root.MakeOwnScope();
  root.m_scope->defaultNamespace = m_defaultNamespace;
  AliasMap& aliases = root.m_scope->aliases;
  aliases.emplace(kXmlNamespace, u"xml");
  std::set<WString> taken{u"xml", u"xmlns"};
  std::vector<WString> clashing;
  for (const auto& [uri, alias] : m_aliases) {
    if (alias.empty() || uri.empty() || uri == kXmlNamespace) continue;
    if (taken.insert(alias).second) {
      aliases.emplace(uri, alias);
    } else {
      clashing.push_back(uri);
    }
  }
  for (const WString& uri : clashing) aliases.emplace(uri, GenerateAlias(aliases));
}

}  // namespace TovikXmlLib16
