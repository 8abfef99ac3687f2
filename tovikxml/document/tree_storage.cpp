#include "tovikxml/document/tree_storage.h"

#include <new>

#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

constexpr wchar kNamespaceSeparator = u'|';
constexpr std::size_t kFirstSlots = 64;
// A freed node keeps the room of its text for the next one, unless it was an unusually long one.
constexpr std::size_t kKeptTextCapacity = 4096;

void ForgetText(WString& text) {
  if (text.capacity() > kKeptTextCapacity) {
    WString().swap(text);
  } else {
    text.clear();
  }
}

bool IsSameCString(const wchar* a, const wchar* b) {
  while (*a == *b && *a) ++a, ++b;
  return *a == *b;
}

}  // namespace

const CXmlName* CXmlNameTable::Keep(WStringView qualified) {
  if (m_names.size() * 2 >= m_slots.size()) Grow();
  const std::uint64_t hash = Hash(qualified);
  const std::size_t at = Find(qualified, hash);
  if (m_slots[at].name) return m_slots[at].name;
  const std::size_t separator = qualified.find(kNamespaceSeparator);
  CXmlName name{WString(qualified), WString(), WString(qualified), nullptr};
  if (separator != WStringView::npos) {
    name.namespaceUri = qualified.substr(0, separator);
    name.localName = qualified.substr(separator + 1);
  }
  m_names.push_back(std::move(name));
  m_slots[at] = {hash, &m_names.back()};
  return &m_names.back();
}

const CXmlName* CXmlNameTable::KeepNext(const wchar* qualified, const CXmlName* previous) {
  if (previous && previous->successor &&
      IsSameCString(previous->successor->qualified.c_str(), qualified)) {
    return previous->successor;
  }
  const CXmlName* name = Keep(WStringView(qualified));
  if (previous) previous->successor = name;
  return name;
}

// Words are mixed by multiplication from a start that differs between documents and processes, so
// that input cannot be made to collide.
std::uint64_t CXmlNameTable::Hash(WStringView text) const {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15u;
  std::uint64_t hash = reinterpret_cast<std::uintptr_t>(this) * kFactor ^ text.size();
  const auto mix = [&](std::uint64_t word) {
    hash = (hash ^ word) * kFactor;
    hash ^= hash >> 32;
  };
  const wchar* at = text.data();
  std::size_t left = text.size() * sizeof(wchar);
  for (std::uint64_t word; left >= sizeof word; left -= sizeof word, at += 4) {
    std::memcpy(&word, at, sizeof word);
    mix(word);
  }
  std::uint64_t rest = 0;
  if (left != 0) std::memcpy(&rest, at, left);
  mix(rest);
  return hash;
}

std::size_t CXmlNameTable::Find(WStringView qualified, std::uint64_t hash) const {
  const std::size_t mask = m_slots.size() - 1;
  std::size_t at = static_cast<std::size_t>(hash) & mask;
  while (m_slots[at].name &&
         !(m_slots[at].hash == hash && EqualText(m_slots[at].name->qualified, qualified))) {
    at = (at + 1) & mask;
  }
  return at;
}

void CXmlNameTable::Grow() {
  m_slots.assign(std::max(kFirstSlots, m_slots.size() * 2), Slot());
  for (const CXmlName& name : m_names) {
    const std::uint64_t hash = Hash(name.qualified);
    m_slots[Find(name.qualified, hash)] = {hash, &name};
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
      ForgetText(attribute->m_value);
      attributes.Recycle(attribute);
    }
    element->m_attributes.clear();
    ForgetText(element->m_text);
    element->m_parent = element->m_nextSibling = element->m_firstChild = element->m_lastChild =
        nullptr;
    elements.Recycle(element);
  }
}

}  // namespace TovikXmlLib16
