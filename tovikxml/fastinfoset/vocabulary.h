#ifndef TOVIKXML_FASTINFOSET_VOCABULARY_H_
#define TOVIKXML_FASTINFOSET_VOCABULARY_H_

#include <memory>
#include <vector>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

/// @file
/// The numbered tables of names and values through which a repeated string of a Fast Infoset
/// document becomes a small index (ITU-T X.891, clause 8). Generated code fills the vocabulary of
/// a context with what the schema is known to use, so that documents refer to it from the start:
///
///     CFIVocabulary* vocabulary = context.GetFIContext().GetVocabulary();
///     vocabulary->AddElement(u"", u"urn:orders", u"order");
///     vocabulary->AddAttributeValue(u"EUR");
///     context.GetFIContext().SetUseGeneratedVocabulary(true);
///
/// Both sides of an exchange must fill it with the same strings in the same order.
namespace TovikXmlLib16 {

struct CFITables;

/// Starts with the prefix "xml" and its namespace. Indexes count from 1. A table holds at most 2^20
/// strings or names: adding to a full one throws `CTovikInvalidStateException` "The vocabulary
/// table is full".
class TOVIKXML_EXPORT CFIVocabulary {
 public:
  /// A qualified name as indexes of its parts; 0 stands for an absent prefix or namespace.
  class TOVIKXML_EXPORT CQNameParts {
   public:
    CQNameParts(unsigned long prefix, unsigned long namespaceName, unsigned long local)
        : prefixIndex(prefix), namespaceIndex(namespaceName), localNameIndex(local) {}

    unsigned long prefixIndex;
    unsigned long namespaceIndex;
    unsigned long localNameIndex;
  };

  /// Strings in the order of their indexes.
  class TOVIKXML_EXPORT CFIStringTable {
   public:
    CFIStringTable() = default;
    CFIStringTable(const CFIStringTable&) = default;
    CFIStringTable& operator=(const CFIStringTable&) = default;
    virtual ~CFIStringTable() = default;

    std::vector<WString>::const_iterator begin() const { return m_strings.begin(); }
    std::vector<WString>::const_iterator end() const { return m_strings.end(); }

   private:
    friend class CFIIndexedStrings;
    std::vector<WString> m_strings;
  };

  /// Qualified names in the order of their indexes.
  class TOVIKXML_EXPORT CFIQNameTable {
   public:
    CFIQNameTable() = default;
    CFIQNameTable(const CFIQNameTable&) = default;
    CFIQNameTable& operator=(const CFIQNameTable&) = default;
    virtual ~CFIQNameTable() = default;

    std::vector<CQNameParts>::const_iterator begin() const { return m_names.begin(); }
    std::vector<CQNameParts>::const_iterator end() const { return m_names.end(); }

   private:
    friend class CFIIndexedNames;
    std::vector<CQNameParts> m_names;
  };

  CFIVocabulary();
  CFIVocabulary& operator=(const CFIVocabulary& other);
  virtual ~CFIVocabulary();

  /// @name Single strings
  /// The caller adds each once: a second time it takes another place in the table, and what is
  /// found by text no longer agrees with what is found by index.
  /// @{
  void AddPrefixName(WString name);
  void AddNamespaceName(WString name);
  void AddLocalName(WString name);
  void AddAttributeValue(WString value);
  void AddElementValue(WString value);
  /// @}
  /// @name Qualified names
  /// They are added with those of their parts that are new; an empty prefix or namespace is absent.
  /// A known name changes nothing.
  /// @{
  void AddAttribute(WString prefix, WString namespaceName, WString localName);
  void AddElement(WString prefix, WString namespaceName, WString localName);
  /// @}

  const CFIQNameTable& GetAttributeNamesTable() const;
  const CFIStringTable& GetAttributeValuesTable() const;
  const CFIStringTable& GetCharacterChunksTable() const;
  const CFIQNameTable& GetElementNamesTable() const;
  const CFIStringTable& GetLocalNamesTable() const;
  const CFIStringTable& GetNamespaceNamesTable() const;
  const CFIStringTable& GetPrefixNamesTable() const;

 private:
  friend class CFastInfosetWriter;
  CFIVocabulary(const CFIVocabulary& other);

  std::unique_ptr<CFITables> m_tables;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_VOCABULARY_H_
