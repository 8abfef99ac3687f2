#ifndef TOVIKXML_FASTINFOSET_VOCABULARY_TABLES_H_
#define TOVIKXML_FASTINFOSET_VOCABULARY_TABLES_H_

#include <cstdint>
#include <vector>

#include "tovikxml/fastinfoset/vocabulary.h"

/// What a vocabulary consists of: tables in index order with a hash table over each, by which the
/// writing side finds the index of a string. Internal.
namespace TovikXmlLib16 {

/// The most that a table of the format can number (ITU-T X.891, 7.2 note and C.25).
inline constexpr std::uint32_t kMaxVocabularyTable = 1u << 20;

class CFIIndexedStrings {
 public:
  /// The index of a string; 0 if it has none.
  std::uint32_t Find(WStringView text);
  /// Appends a string, which gets an index of its own if it has none yet, and gives its index; 0,
  /// and nothing done, if the table is full.
  std::uint32_t Add(WString text);
  bool IsFull() const { return m_table.m_strings.size() >= kMaxVocabularyTable; }
  std::uint32_t GetSize() const { return static_cast<std::uint32_t>(m_table.m_strings.size()); }
  const CFIVocabulary::CFIStringTable& GetTable() const { return m_table; }

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t index = 0;  // 0 where the slot is free
    std::uint32_t position = 0;
  };

  Slot& SlotOf(WStringView text, std::uint32_t hash);
  void Grow();

  CFIVocabulary::CFIStringTable m_table;
  std::vector<Slot> m_slots;
  std::uint32_t m_count = 0;  // strings with an index of their own
  std::size_t m_longest = 0;  // longer strings need not be looked for
  Slot m_last;                // what was found last, since namespaces and prefixes repeat
};

/// The indexes that the parts of a name were found under. One that is needed and not found leaves
/// the name incomplete, so that it can have no index itself.
struct CFINameKey {
  std::uint32_t prefix = 0;
  std::uint32_t namespaceName = 0;
  std::uint32_t localName = 0;
  bool isComplete = false;
};

class CFIIndexedNames {
 public:
  /// The index of a complete name; 0 if it has none.
  std::uint32_t Find(const CFINameKey& key) const;
  /// Appends a complete new name, with the places of its parts in their tables. False if the table
  /// is full.
  bool Add(const CFINameKey& key, const CFIVocabulary::CQNameParts& parts);
  bool Add(const CFINameKey& key) {
    return Add(key, {key.prefix, key.namespaceName, key.localName});
  }
  bool IsFull() const { return m_table.m_names.size() >= kMaxVocabularyTable; }
  const CFIVocabulary::CFIQNameTable& GetTable() const { return m_table; }

 private:
  struct Slot {
    std::uint64_t key = 0;
    std::uint32_t index = 0;  // 0 where the slot is free
  };

  std::size_t SlotOf(std::uint64_t key) const;
  void Grow();

  CFIVocabulary::CFIQNameTable m_table;
  std::vector<Slot> m_slots;
};

struct CFITables {
  /// What is known of a qualified name.
  CFINameKey FindName(WStringView prefix, WStringView namespaceName, WStringView localName);
  /// Adds a qualified name to one of the two tables of names, unless it is there.
  void AddName(CFIIndexedNames& names, WString prefix, WString namespaceName, WString localName);

  CFIIndexedStrings prefixNames;
  CFIIndexedStrings namespaceNames;
  CFIIndexedStrings localNames;
  CFIIndexedStrings attributeValues;
  CFIIndexedStrings characterChunks;
  CFIIndexedNames attributeNames;
  CFIIndexedNames elementNames;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_VOCABULARY_TABLES_H_
