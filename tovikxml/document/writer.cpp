#include "tovikxml/document/writer.h"

#include <set>
#include <utility>
#include <vector>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/xml_names.h"

namespace TovikXmlLib16 {
namespace {

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

const WString& CXmlWriter::CXmlWriterContext::GetAlias(const WString& namespaceUri) const {
  const WString* alias = FindAlias(namespaceUri);
  return alias ? *alias : m_scopes->Set(namespaceUri, WString());
}

void CXmlWriter::CXmlWriterContext::AddAlias(const WString& namespaceUri, const WString& alias) {
  m_scopes->Set(namespaceUri, alias);
}

const WString& CXmlWriter::CXmlWriterContext::AddGeneratedAlias(const WString& namespaceUri) {
  return m_scopes->SetGenerated(namespaceUri);
}

void CXmlWriter::CXmlWriterContext::SetDefaultNamespace(const WString& uri) {
  m_ownDefaultNamespace = uri;
  m_defaultNamespace = &m_ownDefaultNamespace;
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
  CAliasCandidates candidates;
  for (const auto& entry : aliases) candidates.Take(entry.second);
  return candidates.GetFirstFree();
}

CXmlWriter::CXmlWriterContext* CXmlWriter::PushContext(const WString& localName,
                                                       const WString& namespaceUri) {
  auto context = TakeContext();
  context->m_localName = localName;
  context->m_namespaceUri = namespaceUri;
  context->m_scopes = &m_scopes;
  context->m_outerAliases = m_scopes.GetMark();
  if (m_current) {
    context->m_depth = m_current->m_depth + 1;
    context->m_defaultNamespace = m_current->m_defaultNamespace;
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
  if (m_scopes.GetMark() != context->m_outerAliases) m_scopes.Restore(context->m_outerAliases);
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
void CXmlWriter::EnterRootScope(CXmlWriterContext& root) {
  root.SetDefaultNamespace(m_defaultNamespace);
  m_scopes.Set(WString(kXmlNamespace), u"xml");
  std::set<WString> taken{u"xml", u"xmlns"};
  std::vector<WString> clashing;
  for (const auto& [uri, alias] : m_aliases) {
    if (alias.empty() || uri.empty() || uri == kXmlNamespace) continue;
    if (taken.insert(alias).second) {
      m_scopes.Set(uri, alias);
    } else {
      clashing.push_back(uri);
    }
  }
  for (const WString& uri : clashing) m_scopes.SetGenerated(uri);
}

}  // namespace TovikXmlLib16
