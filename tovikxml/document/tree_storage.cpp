#include "tovikxml/document/tree_storage.h"

#include <new>

#include "tovikxml/base/text.h"
#include "tovikxml/base/text_hash.h"

namespace TovikXmlLib16 {
namespace {

constexpr wchar kNamespaceSeparator = u'|';
constexpr std::size_t kFirstSlots = 64;

// Whether a zero-terminated text, whose length nobody has counted, is a known one. Four units a
// round: names of elements carry their namespace and are long.
bool IsSameText(const wchar* text, const WString& known) {
  const wchar* const units = known.data();
  const std::size_t size = known.size();
  std::size_t i = 0;
  for (; i + 4 <= size; i += 4) {
    if (text[i] != units[i] || text[i + 1] != units[i + 1] || text[i + 2] != units[i + 2] ||
        text[i + 3] != units[i + 3]) {
      return false;
    }
  }
  for (; i < size; ++i) {
    if (text[i] != units[i]) return false;
  }
  return text[size] == u'\0';
}

}  // namespace

const CXmlName* CXmlNameTable::Keep(WStringView qualified) {
  const std::size_t separator = qualified.find(kNamespaceSeparator);
  if (separator == WStringView::npos) return Keep(Key{qualified, WStringView(), qualified});
  return Keep(Key{qualified, qualified.substr(0, separator), qualified.substr(separator + 1)});
}

const CXmlName* CXmlNameTable::Keep(WStringView namespaceUri, WStringView localName) {
  if (namespaceUri.empty()) return Keep(Key{localName, namespaceUri, localName});
  WString qualified;
  qualified.reserve(namespaceUri.size() + 1 + localName.size());
  qualified.append(namespaceUri).append(1, kNamespaceSeparator).append(localName);
  return Keep(Key{qualified, namespaceUri, localName});
}

const CXmlName* CXmlNameTable::Keep(const Key& key) {
  if (m_names.size() * 2 >= m_slots.size()) Grow();
  const std::uint64_t hash = HashText(key.qualified);
  const std::size_t at = Find(key, hash);
  if (m_slots[at].name) return m_slots[at].name;
  m_names.push_back({WString(key.qualified), WString(key.namespaceUri), WString(key.localName)});
  m_slots[at] = {hash, &m_names.back()};
  return &m_names.back();
}

const CXmlName* CXmlNameTable::KeepNext(const wchar* qualified, const CXmlName* previous) {
  if (previous && previous->successor && IsSameText(qualified, previous->successor->qualified)) {
    return previous->successor;
  }
  const CXmlName* name = Keep(WStringView(qualified));
  if (previous) previous->successor = name;
  return name;
}

std::size_t CXmlNameTable::Find(const Key& key, std::uint64_t hash) const {
  const std::size_t mask = m_slots.size() - 1;
  const auto differs = [&](const Slot& slot) {
    return slot.hash != hash || !EqualText(slot.name->qualified, key.qualified) ||
           slot.name->namespaceUri.size() != key.namespaceUri.size() ||
           slot.name->localName.size() != key.localName.size();
  };
  std::size_t at = static_cast<std::size_t>(hash) & mask;
  while (m_slots[at].name && differs(m_slots[at])) at = (at + 1) & mask;
  return at;
}

void CXmlNameTable::Grow() {
  m_slots.assign(std::max(kFirstSlots, m_slots.size() * 2), Slot());
  for (const CXmlName& name : m_names) {
    const std::uint64_t hash = HashText(name.qualified);
    m_slots[Find({name.qualified, name.namespaceUri, name.localName}, hash)] = {hash, &name};
  }
}

CXmlTreeStorage::~CXmlTreeStorage() {
  elements.DestroyAll([](CXmlElement* element) { element->~CXmlElement(); });
  attributes.DestroyAll([](CXmlAttribute* attribute) { attribute->~CXmlAttribute(); });
}

CXmlElement* CXmlTreeStorage::TakeElement() {
  return elements.Take([](std::byte* place) { return new (place) CXmlElement(); });
}

CXmlAttribute* CXmlTreeStorage::TakeAttribute() {
  return attributes.Take([](std::byte* place) { return new (place) CXmlAttribute(); });
}

void CXmlTreeStorage::FreeSubtree(CXmlElement* element) {
  element->m_nextSibling = nullptr;
  for (CXmlElement* next = element; next;) {
    element = next;
    // The children take their place in the list of what is still to be freed.
    if (element->m_lastChild) {
      element->m_lastChild->m_nextSibling = element->m_nextSibling;
      next = element->m_firstChild;
    } else {
      next = element->m_nextSibling;
    }
    for (CXmlAttribute* attribute : element->m_attributes) {
      attribute->m_value.Reuse();
      attributes.Recycle(attribute);
    }
    element->m_attributes.clear();
    element->m_text.Reuse();
    element->m_parent = element->m_nextSibling = element->m_firstChild = element->m_lastChild =
        nullptr;
    elements.Recycle(element);
  }
}

}  // namespace TovikXmlLib16
