#include "tovikxml/collections/collection.h"

#include <memory>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"

namespace TovikXmlLib16 {

void ThrowNoMoreElements() {
  throw CTovikException(u"No More Elements in the Collection");
}

CXmlCollection::CXmlCollection(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                               int maxOccurs)
    : CXmlCollectionBase(elementName, namespaceUri, minOccurs, maxOccurs) {}

CXmlCollection::~CXmlCollection() {
  // Listeners may hold the sender for a while, which must not free it once more.
  AddRef();
  // A listener that throws ends the events, not the freeing.
  try {
    CXmlCollection::Clear();
  } catch (...) {
    while (m_first) {
      const std::unique_ptr<CNode> node(m_first);
      Unlink(m_first);
    }
  }
}

void CXmlCollection::Clear() {
  while (m_count > 0) Remove(0);
}

void CXmlCollection::Remove(int index) {
  RemoveNode(GetNodeAtIndex(index));
}

void CXmlCollection::AttributesToXml_Int(CXmlWriter* writer,
                                         const CSerializationContext& context) const {
  for (const CNode* node = m_first; node; node = node->next) {
    CXmlObjectBase::AttributesToXml_Int(node->item->GetBase(), writer, context);
  }
}

void CXmlCollection::AppendItem(CXmlObjectBase* item) {
  AddInFrontOf([] { return nullptr; }, item);
}

void CXmlCollection::PrependItem(CXmlObjectBase* item) {
  AddInFrontOf([this] { return m_first; }, item);
}

void CXmlCollection::AddAfterItem(const CXmlObjectBase* existing, CXmlObjectBase* item) {
  AddInFrontOf([&] { return existing ? GetNodeForItem(existing)->next : m_first; }, item);
}

void CXmlCollection::AddBeforeItem(const CXmlObjectBase* existing, CXmlObjectBase* item) {
  AddInFrontOf([&] { return existing ? GetNodeForItem(existing) : nullptr; }, item);
}

void CXmlCollection::AddItemAt(int index, CXmlObjectBase* item) {
  if (index < 0 || index > m_count) throw CTovikInvalidParamException(u"Index out of range");
  AddInFrontOf([&] { return index == m_count ? nullptr : GetNodeAtIndex(index); }, item);
}

CNode* CXmlCollection::GetNodeAtIndex(int index) const {
  if (index < 0 || index >= m_count) {
    throw CTovikInvalidParamException(
        FormatString(u"Index %d is out of range, use 0 - %d", index, m_count - 1));
  }
  CNode* node = m_first;
  for (int i = 0; i < index; ++i) node = node->next;
  return node;
}

CNode* CXmlCollection::GetNodeForItem(const CXmlObjectBase* item) const {
  const CXmlObjectBase* wanted = item ? item->GetBase() : nullptr;
  for (CNode* node = m_first; node; node = node->next) {
    if (node->item->GetBase() == wanted) return node;
  }
  throw CTovikInvalidParamException(u"The object was not found in the collection");
}

void CXmlCollection::RemoveNode(CNode* node) {
  const CSmartPtr<CXmlObjectBase> item = node->item;
  const std::uint32_t removals = m_removals;
  FireOnCollectionRemove(-1);
  if (m_removals != removals && !HasNode(node, item)) return;
  Unlink(node);
  delete node;
  FireOnCollectionRemoveComplete(-1);
  FireOnCollectionChange();
}

// `findNext` gives the node in front of which the item goes, null for the end; it runs behind the
// first event.
template <class FindNext>
void CXmlCollection::AddInFrontOf(FindNext findNext, CXmlObjectBase* item) {
  if (!item) throw CTovikInvalidParamException(u"An item of a collection may not be NULL");
  auto node = std::make_unique<CNode>(CNode{item});
  FireOnCollectionAdd(item);
  CNode* next = findNext();
  Link(node.release(), next);
  FireOnCollectionAddComplete(item);
  FireOnCollectionChange();
}

bool CXmlCollection::HasNode(const CNode* node, const CXmlObjectBase* item) const {
  const CNode* known = m_first;
  while (known && known != node) known = known->next;
  return known && known->item.Get() == item;
}

void CXmlCollection::Link(CNode* node, CNode* next) {
  node->next = next;
  node->previous = next ? next->previous : m_last;
  (node->previous ? node->previous->next : m_first) = node;
  (next ? next->previous : m_last) = node;
  ++m_count;
}

void CXmlCollection::Unlink(CNode* node) {
  (node->previous ? node->previous->next : m_first) = node->next;
  (node->next ? node->next->previous : m_last) = node->previous;
  --m_count;
  ++m_removals;
}

}  // namespace TovikXmlLib16
