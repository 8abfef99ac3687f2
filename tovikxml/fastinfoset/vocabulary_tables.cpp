#include "tovikxml/fastinfoset/vocabulary_tables.h"

#include <algorithm>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/base/text_hash.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::size_t kFirstSlots = 16;
constexpr unsigned kIndexBits = 21;

std::uint32_t HashOf(WStringView text) {
  return static_cast<std::uint32_t>(HashText(text));
}

std::uint64_t Pack(const CFINameKey& key) {
  return (std::uint64_t{key.prefix} << 2 * kIndexBits) |
         (std::uint64_t{key.namespaceName} << kIndexBits) | key.localName;
}

[[noreturn]] void ThrowFull() {
  throw CTovikInvalidStateException(u"The vocabulary table is full");
}

struct Part {
  std::uint32_t index;  // by which the writing side finds it
  std::uint32_t place;  // where the reading side finds it
};

Part AddPart(CFIIndexedStrings& table, WString text, std::uint32_t known) {
  if (known != 0) return {known, known};
  const std::uint32_t index = table.Add(std::move(text));
  if (index == 0) ThrowFull();
  return {index, table.GetSize()};
}

}  // namespace

std::uint32_t CFIIndexedStrings::Find(WStringView text) {
  if (m_count == 0 || text.size() > m_longest) return 0;
  if (m_last.index != 0 && EqualText(m_table.m_strings[m_last.position], text)) return m_last.index;
  const Slot& slot = SlotOf(text, HashOf(text));
  if (slot.index != 0) m_last = slot;
  return slot.index;
}

std::uint32_t CFIIndexedStrings::Add(WString text) {
  if (IsFull()) return 0;
  if (m_slots.size() <= std::size_t{2} * m_count) Grow();
  const std::uint32_t hash = HashOf(text);
  Slot& slot = SlotOf(text, hash);
  if (slot.index == 0) slot = {hash, ++m_count, GetSize()};
  m_longest = std::max(m_longest, text.size());
  m_table.m_strings.push_back(std::move(text));
  return slot.index;
}

CFIIndexedStrings::Slot& CFIIndexedStrings::SlotOf(WStringView text, std::uint32_t hash) {
  const std::size_t mask = m_slots.size() - 1;
  std::size_t at = hash & mask;
  while (m_slots[at].index != 0 &&
         !(m_slots[at].hash == hash && EqualText(m_table.m_strings[m_slots[at].position], text))) {
    at = (at + 1) & mask;
  }
  return m_slots[at];
}

void CFIIndexedStrings::Grow() {
  std::vector<Slot> slots(std::max(kFirstSlots, m_slots.size() * 2));
  for (const Slot& slot : m_slots) {
    if (slot.index == 0) continue;
    std::size_t at = slot.hash & (slots.size() - 1);
    while (slots[at].index != 0) at = (at + 1) & (slots.size() - 1);
    slots[at] = slot;
  }
  m_slots = std::move(slots);
}

std::uint32_t CFIIndexedNames::Find(const CFINameKey& key) const {
  return m_slots.empty() ? 0 : m_slots[SlotOf(Pack(key))].index;
}

bool CFIIndexedNames::Add(const CFINameKey& key, const CFIVocabulary::CQNameParts& parts) {
  if (IsFull()) return false;
  if (m_slots.size() <= 2 * m_table.m_names.size()) Grow();
  m_table.m_names.push_back(parts);
  const std::uint64_t packed = Pack(key);
  m_slots[SlotOf(packed)] = {packed, static_cast<std::uint32_t>(m_table.m_names.size())};
  return true;
}

std::size_t CFIIndexedNames::SlotOf(std::uint64_t key) const {
  const std::size_t mask = m_slots.size() - 1;
  std::size_t at = static_cast<std::size_t>(HashNumber(key)) & mask;
  while (m_slots[at].index != 0 && m_slots[at].key != key) at = (at + 1) & mask;
  return at;
}

void CFIIndexedNames::Grow() {
  const std::vector<Slot> old = std::move(m_slots);
  m_slots.assign(std::max(kFirstSlots, old.size() * 2), Slot());
  for (const Slot& slot : old) {
    if (slot.index != 0) m_slots[SlotOf(slot.key)] = slot;
  }
}

CFINameKey CFITables::FindName(WStringView prefix, WStringView namespaceName,
                               WStringView localName) {
  CFINameKey key;
  if (!prefix.empty()) key.prefix = prefixNames.Find(prefix);
  if (!namespaceName.empty()) key.namespaceName = namespaceNames.Find(namespaceName);
  key.localName = localNames.Find(localName);
  key.isComplete = (prefix.empty() || key.prefix != 0) &&
                   (namespaceName.empty() || key.namespaceName != 0) && key.localName != 0;
  return key;
}

void CFITables::AddName(CFIIndexedNames& names, WString prefix, WString namespaceName,
                        WString localName) {
  CFINameKey key = FindName(prefix, namespaceName, localName);
  if (key.isComplete && names.Find(key) != 0) return;
  if (names.IsFull()) ThrowFull();
  const auto add = [](CFIIndexedStrings& table, WString text, std::uint32_t known) {
    return text.empty() ? Part{0, 0} : AddPart(table, std::move(text), known);
  };
  const Part first = add(prefixNames, std::move(prefix), key.prefix);
  const Part second = add(namespaceNames, std::move(namespaceName), key.namespaceName);
  const Part third = AddPart(localNames, std::move(localName), key.localName);
  names.Add({first.index, second.index, third.index, true},
            {first.place, second.place, third.place});
}

}  // namespace TovikXmlLib16
