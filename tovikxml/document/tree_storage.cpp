#include "tovikxml/document/tree_storage.h"

#include <new>
#include <utility>

#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

constexpr wchar kNamespaceSeparator = u'|';
constexpr std::size_t kFirstSlots = 64;

// The end of a known text in front of a zero-terminated one, whose length nobody has counted; null
// if that begins otherwise. Four units a round: namespaces are long.
const wchar* PassText(const wchar* text, const WString& known) {
  const wchar* const units = known.data();
  const std::size_t size = known.size();
  std::size_t i = 0;
  for (; i + 4 <= size; i += 4) {
    if (text[i] != units[i] || text[i + 1] != units[i + 1] || text[i + 2] != units[i + 2] ||
        text[i + 3] != units[i + 3]) {
      return nullptr;
    }
  }
  for (; i < size; ++i) {
    if (text[i] != units[i]) return nullptr;
  }
  return text + size;
}

bool IsName(const wchar* qualified, const CXmlName& name) {
  if (!name.namespaceUri->empty()) {
    qualified = PassText(qualified, *name.namespaceUri);
    if (!qualified || *qualified++ != kNamespaceSeparator) return false;
  }
  qualified = PassText(qualified, name.localName);
  return qualified && *qualified == u'\0';
}

// The multiplier keeps the hashes of namespaces and of local names apart.
std::uint64_t HashOf(const WString* uri, WStringView localName) {
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15u;
  return HashText(localName) + kOdd * HashNumber(reinterpret_cast<std::uintptr_t>(uri));
}

}  // namespace

const WString* CXmlNameTable::KeepUri(WStringView uri) {
  return uri.empty() ? &m_none : &*m_uris.emplace(uri).first;
}

const CXmlName* CXmlNameTable::Keep(const WString* uri, WStringView localName) {
  if (m_names.size() * 2 >= m_slots.size()) Grow();
  const std::uint64_t hash = HashOf(uri, localName);
  const std::size_t mask = m_slots.size() - 1;
  std::size_t at = static_cast<std::size_t>(hash) & mask;
  for (; m_slots[at].name; at = (at + 1) & mask) {
    const CXmlName& name = *m_slots[at].name;
    if (m_slots[at].hash == hash && name.namespaceUri == uri &&
        EqualText(name.localName, localName)) {
      return &name;
    }
  }
  m_names.push_back({uri, WString(localName)});
  m_slots[at] = {hash, &m_names.back()};
  return &m_names.back();
}

const CXmlName* CXmlNameTable::KeepNext(const wchar* qualified, const CXmlName* previous) {
  if (previous && previous->successor && IsName(qualified, *previous->successor)) {
    return previous->successor;
  }
  const WStringView text(qualified);
  const std::size_t separator = text.find(kNamespaceSeparator);
  const bool hasUri = separator != WStringView::npos;
  const WStringView uri = text.substr(0, hasUri ? separator : 0);
  // Namespaces seldom change from one name to the next.
  const bool isSame = previous && EqualText(*previous->namespaceUri, uri);
  const CXmlName* name =
      Keep(isSame ? previous->namespaceUri : KeepUri(uri), text.substr(hasUri ? separator + 1 : 0));
  if (previous) previous->successor = name;
  return name;
}

void CXmlNameTable::Grow() {
  std::vector<Slot> slots(std::max(kFirstSlots, m_slots.size() * 2));
  const std::size_t mask = slots.size() - 1;
  for (const Slot& slot : m_slots) {
    if (!slot.name) continue;
    std::size_t at = static_cast<std::size_t>(slot.hash) & mask;
    while (slots[at].name) at = (at + 1) & mask;
    slots[at] = slot;
  }
  m_slots = std::move(slots);
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
