#ifndef TOVIKXML_DOCUMENT_TREE_STORAGE_H_
#define TOVIKXML_DOCUMENT_TREE_STORAGE_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "tovikxml/document/document.h"

/// Where the nodes and names of one document live. Names repeat, so each is kept once and nodes
/// refer to it; nodes come from pools, and those that a streaming callback frees are used again
/// with the room that their texts had. Internal.
namespace TovikXmlLib16 {

/// A name of an element or attribute, as one document keeps it.
struct CXmlName {
  WString qualified;  ///< URI, "|" and local name as the parser gives them, or a local name alone
  WString namespaceUri;
  WString localName;
  /// The name that last came behind this one: documents repeat, so it is looked at first.
  mutable const CXmlName* successor = nullptr;
  /// The room that texts in nodes of this name wanted when they grew.
  mutable std::size_t usualText = 0;
};

/// The names of a document, by hashing of their qualified form. Two names may have one qualified
/// form if a part holds "|".
class CXmlNameTable {
 public:
  /// The kept name for a qualified name, whose first "|" ends the namespace URI. Valid as long as
  /// the table.
  const CXmlName* Keep(WStringView qualified);
  /// The same for a zero-terminated name that comes behind `previous`, which may be null.
  const CXmlName* KeepNext(const wchar* qualified, const CXmlName* previous);
  /// The kept name for its two parts, which may hold any unit.
  const CXmlName* Keep(WStringView namespaceUri, WStringView localName);

 private:
  struct Slot {
    std::uint64_t hash = 0;
    const CXmlName* name = nullptr;
  };
  // A qualified name and where it is divided.
  struct Key {
    WStringView qualified;
    WStringView namespaceUri;
    WStringView localName;
  };

  const CXmlName* Keep(const Key& key);
  std::size_t Find(const Key& key, std::uint64_t hash) const;
  void Grow();

  std::deque<CXmlName> m_names;
  std::vector<Slot> m_slots;
};

/// The nodes of one kind. `Recycle` gives a node back in a state fit for reuse.
template <class Node>
class CXmlNodePool {
 public:
  CXmlNodePool() = default;
  CXmlNodePool(const CXmlNodePool&) = delete;
  CXmlNodePool& operator=(const CXmlNodePool&) = delete;

  template <class Make>
  Node* Take(Make make) {
    if (!m_free.empty()) {
      Node* node = m_free.back();
      m_free.pop_back();
      return node;
    }
    if (m_used == m_blockSize) AddBlock();
    Node* node = make(m_blocks.back().get() + m_used * sizeof(Node));
    ++m_used;
    return node;
  }
  void Recycle(Node* node) { m_free.push_back(node); }

  template <class Destroy>
  void DestroyAll(Destroy destroy) {
    for (std::size_t i = 0; i < m_blocks.size(); ++i) {
      const std::size_t used = i + 1 == m_blocks.size() ? m_used : BlockSize(i);
      for (std::size_t k = 0; k < used; ++k) {
        destroy(reinterpret_cast<Node*>(m_blocks[i].get() + k * sizeof(Node)));
      }
    }
  }

 private:
  static constexpr std::size_t kFirstBlock = 16;
  static constexpr std::size_t kLargestBlock = 512;

  // Blocks double, so that small documents stay small.
  static std::size_t BlockSize(std::size_t index) {
    return index >= 5 ? kLargestBlock : kFirstBlock << index;
  }
  void AddBlock() {
    const std::size_t size = BlockSize(m_blocks.size());
    m_blocks.push_back(std::make_unique_for_overwrite<std::byte[]>(size * sizeof(Node)));
    m_blockSize = size;
    m_used = 0;
  }

  std::vector<std::unique_ptr<std::byte[]>> m_blocks;
  std::size_t m_blockSize = 0;
  std::size_t m_used = 0;
  std::vector<Node*> m_free;
};

struct CXmlTreeStorage {
  CXmlTreeStorage() = default;
  CXmlTreeStorage(const CXmlTreeStorage&) = delete;
  CXmlTreeStorage& operator=(const CXmlTreeStorage&) = delete;
  ~CXmlTreeStorage();

  CXmlElement* TakeElement();
  CXmlAttribute* TakeAttribute();
  /// Makes an element with all below it free for reuse, without recursion.
  void FreeSubtree(CXmlElement* element);

  CXmlNameTable names;
  CXmlTextRoom texts;
  CXmlNodePool<CXmlElement> elements;
  CXmlNodePool<CXmlAttribute> attributes;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_TREE_STORAGE_H_
