#ifndef TOVIKXML_DOCUMENT_TREE_STORAGE_H_
#define TOVIKXML_DOCUMENT_TREE_STORAGE_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <unordered_set>
#include <vector>

#include "tovikxml/base/text_hash.h"
#include "tovikxml/document/document.h"

/// Where the nodes and names of one document live. Names repeat, so each is kept once and nodes
/// refer to it; nodes come from pools, and those that a streaming callback frees are used again
/// with the room that their texts had. Internal.
namespace TovikXmlLib16 {

/// A name of an element or attribute, as one document keeps it.
struct CXmlName {
  const WString* namespaceUri;  ///< kept once for all names; an empty text if there is none
  WString localName;
  /// The name that last came behind this one: documents repeat, so it is looked at first.
  mutable const CXmlName* successor = nullptr;
  /// The room that texts in nodes of this name wanted when they grew.
  mutable std::size_t usualText = 0;
};

/// The names of a document and their namespaces, by hashing. What is kept is valid as long as the
/// table.
class CXmlNameTable {
 public:
  const WString* KeepUri(WStringView uri);
  /// The kept name for a kept URI and a local name, which may hold any unit.
  const CXmlName* Keep(const WString* uri, WStringView localName);
  const CXmlName* Keep(WStringView uri, WStringView localName) {
    return Keep(KeepUri(uri), localName);
  }
  /// The same for a zero-terminated name as the parser gives it, URI, "|" and local name or a local
  /// name alone, that comes behind `previous`, which may be null.
  const CXmlName* KeepNext(const wchar* qualified, const CXmlName* previous);

 private:
  struct Slot {
    std::uint64_t hash = 0;
    const CXmlName* name = nullptr;
  };
  struct UriHash {
    std::size_t operator()(const WString& uri) const {
      return static_cast<std::size_t>(HashText(uri));
    }
  };

  void Grow();

  std::deque<CXmlName> m_names;
  std::vector<Slot> m_slots;
  std::unordered_set<WString, UriHash> m_uris;
  const WString m_none;
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
