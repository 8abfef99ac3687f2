#ifndef TOVIKXML_COLLECTIONS_COLLECTION_H_
#define TOVIKXML_COLLECTIONS_COLLECTION_H_

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "tovikxml/base/smart_ptr.h"
#include "tovikxml/collections/collection_base.h"

namespace TovikXmlLib16 {

/// One item of a `CXmlCollection`.
struct CNode {
  CSmartPtr<CXmlObjectBase> item;
  CNode* next = nullptr;
  CNode* previous = nullptr;
};

/// Throws `CTovikException` "No More Elements in the Collection".
[[noreturn]] TOVIKXML_EXPORT void ThrowNoMoreElements();

/// Steps forward over the nodes of a collection and gives each item as a `T*`.
template <class T>
class CTovikIterator {
 public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = T*;
  using difference_type = std::ptrdiff_t;
  using pointer = T**;
  using reference = T*;

  CTovikIterator() = default;
  explicit CTovikIterator(CNode* node) : m_node(node) {}

  T* operator*() const { return static_cast<T*>(RequireNode()->item.Get()); }
  T* operator->() const { return **this; }
  CTovikIterator& operator++() {
    m_node = RequireNode()->next;
    return *this;
  }
  CTovikIterator operator++(int) {
    CTovikIterator before = *this;
    ++*this;
    return before;
  }
  /// Equal on the same node, or on two nodes that hold the same item.
  bool operator==(const CTovikIterator& other) const {
    return m_node == other.m_node ||
           (m_node && other.m_node && m_node->item.Get() == other.m_node->item.Get());
  }
  bool operator!=(const CTovikIterator& other) const { return !(*this == other); }

 private:
  CNode* RequireNode() const {
    if (!m_node) ThrowNoMoreElements();
    return m_node;
  }

  CNode* m_node = nullptr;
};

/// A linked list of objects, each held by a reference. A generated class derives its collections
/// from it and gives them `ToXml_Int`, `FromXml_Int` and typed operations built on the protected
/// ones here. Removals report the index -1 to listeners. A null item is refused with
/// `CTovikInvalidParamException`. An item that is being added is held from the start: one that
/// nobody else holds is freed if the adding fails.
class TOVIKXML_EXPORT CXmlCollection : public CXmlCollectionBase {
 public:
  CXmlCollection(const CXmlCollection&) = delete;
  CXmlCollection& operator=(const CXmlCollection&) = delete;

  int GetCount() const override { return m_count; }
  void Clear() override;
  /// Throws `CTovikInvalidParamException` "Index %d is out of range, use 0 - %d".
  void Remove(int index) override;

 protected:
  CXmlCollection() = default;
  CXmlCollection(const wchar* elementName, const wchar* namespaceUri, int minOccurs, int maxOccurs);
  ~CXmlCollection() override;

  /// Writes the attributes of all items on the element that is open.
  void AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext& context) const override;

  // Adding fires CollectionAdd, adds, and fires CollectionAddComplete and CollectionChange.
  void AppendItem(CXmlObjectBase* item);
  void PrependItem(CXmlObjectBase* item);
  /// With a null `existing` the item comes first. Throws `CTovikInvalidParamException` "The object
  /// was not found in the collection", behind CollectionAdd.
  void AddAfterItem(const CXmlObjectBase* existing, CXmlObjectBase* item);
  /// With a null `existing` the item comes last.
  void AddBeforeItem(const CXmlObjectBase* existing, CXmlObjectBase* item);
  /// Throws `CTovikInvalidParamException` "Index out of range" before any event.
  void AddItemAt(int index, CXmlObjectBase* item);

  CNode* GetFirstNode() const { return m_first; }
  /// Throws `CTovikInvalidParamException` "Index %d is out of range, use 0 - %d".
  CNode* GetNodeAtIndex(int index) const;
  /// Throws `CTovikInvalidParamException` "The object was not found in the collection".
  CNode* GetNodeForItem(const CXmlObjectBase* item) const;
  /// Changes nothing if a listener has removed the node when it heard of it.
  void RemoveNode(CNode* node);

 private:
  template <class FindNext>
  void AddInFrontOf(FindNext findNext, CXmlObjectBase* item);
  bool HasNode(const CNode* node, const CXmlObjectBase* item) const;
  void Link(CNode* node, CNode* next);
  void Unlink(CNode* node);

  CNode* m_first = nullptr;
  CNode* m_last = nullptr;
  std::int32_t m_count = 0;
  std::uint32_t m_removals = 0;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_COLLECTIONS_COLLECTION_H_
