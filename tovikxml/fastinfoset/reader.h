#ifndef TOVIKXML_FASTINFOSET_READER_H_
#define TOVIKXML_FASTINFOSET_READER_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/fastinfoset/octet_input.h"
#include "tovikxml/fastinfoset/vocabulary_tables.h"
#include "tovikxml/fastinfoset/well_formedness.h"

namespace TovikXmlLib16 {

class CFastInfosetContext;
class CXmlDocument;
struct CXmlName;

/// Reads a Fast Infoset document (ITU-T X.891) into the tree of a document. The tree holds text
/// only: whatever the encoding of a value, it becomes its lexical form. Comments, processing
/// instructions, document types and references to entities are passed over, and so are the optional
/// components of the header: the tables start from the generated vocabulary of the context, if the
/// context says so, and otherwise empty. With `GetReadInitialVocabulary` they start from what the
/// document says. With `GetRequireWellFormed` it is held to what XML text could say, and with
/// `GetQualifiedNames` the tree has the prefixes of names and the attributes that declare them.
///
/// Bad input ends in `CTovikException` "Failed to parse FastInfoset. ..." or in one of the messages
/// of `CFastInfosetBinaryData`. Nothing outside the octets or a table is looked at, no stack is
/// taken for depth, and text and tables are limited by `SetMaxExpandedText` and
/// `SetMaxTableEntries` of the context. Internal.
class CFastInfosetReader : public CInstanceMonitor {
 public:
  CFastInfosetReader(const CFastInfosetContext& context, CXmlDocument& document);
  ~CFastInfosetReader() override;

  /// Whether the octets begin as a document of the format, version 1, does, with one of the nine
  /// declarations in front or none, and go on.
  static bool IsFastInfoset(const unsigned char* data, std::size_t length);
  /// Fills the tree; false, with nothing done, for octets of another kind. What follows the root is
  /// not looked at.
  bool Read(const unsigned char* data, std::size_t length);

 private:
  using StringTable = std::vector<WString>;
  // A name whose parts have indexes. It is kept in the document when it is first used.
  struct QName {
    const CXmlName* name;
    std::uint32_t prefixIndex;
    std::uint32_t namespaceIndex;
    std::uint32_t localIndex;
  };
  using QNameTable = std::vector<QName>;
  // A string of a name; the index is 0 for an absent one, and for one that found its table full.
  struct NamePart {
    const WString* text;
    std::uint32_t index;
  };

  void ReadOptionalComponents(CFIOctetInput& input);
  void ReadInitialVocabulary(CFIOctetInput& input);
  void TakeExternalVocabulary(CFIOctetInput& input);
  QName ReadNameSurrogate(CFIOctetInput& input);
  void StartFrom(const CFIVocabulary& vocabulary);

  void ReadDocumentChildren(CFIOctetInput& input);
  void ReadRoot(CFIOctetInput& input, unsigned octet);
  void RequireEnd(CFIOctetInput& input);
  void ReadContent(CFIOctetInput& input, unsigned octet);
  void ReadEntityReference(CFIOctetInput& input, unsigned octet);
  void StartElement(CFIOctetInput& input, unsigned octet);
  unsigned ReadNamespaces(CFIOctetInput& input);
  void ReadNamespaceAttribute(CFIOctetInput& input, unsigned octet);
  void AddDeclarations();
  unsigned ReadAttributes(CFIOctetInput& input);
  void ReadAttribute(CFIOctetInput& input, unsigned octet);
  WStringView ReadAttributeValue(CFIOctetInput& input);
  void ReadCharacterChunk(CFIOctetInput& input, unsigned octet);
  void ReadUtf8Chunk(CFIOctetInput& input, unsigned octet, bool isAdded);
  void AppendValue(bool isAdded);

  static void RequireNamespaceOfPrefix(bool hasPrefix, bool hasNamespace);
  const CXmlName* ReadLiteralName(CFIOctetInput& input, unsigned octet, QNameTable& table);
  const CXmlName* ResolveName(QNameTable& table, std::uint32_t index);
  const CXmlName* KeepName(const WString& prefix, const WString& namespaceUri,
                           const WString& localName);
  NamePart ReadNamePart(CFIOctetInput& input, StringTable& table, WString& literal);
  void ReadEncodedString(CFIOctetInput& input, const FIStringCode& code, unsigned octet);
  void CountText(std::size_t units);
  void AdmitText(WStringView text);
  bool HasOpenElement() const;
  /// False for a table that the format lets grow no more.
  template <class Entry>
  bool AddTo(std::vector<Entry>& table, const Entry& entry) {
    if (table.size() >= kMaxVocabularyTable) return false;
    if (table.size() >= m_tableLimit) ThrowTableLimit();
    table.push_back(entry);
    return true;
  }
  [[noreturn]] void ThrowTableLimit() const;

  const CFastInfosetContext& m_context;
  CXmlDocument& m_document;
  StringTable m_prefixNames;
  StringTable m_namespaceNames;
  StringTable m_localNames;
  StringTable m_attributeValues;
  StringTable m_characterChunks;
  QNameTable m_elementNames;
  QNameTable m_attributeNames;
  std::optional<CFIWellFormedness> m_wellFormedness;  // where it is required
  bool m_hasQualifiedNames;
  bool m_isEnded = false;  // the terminator of the document is read
  // Prefixes and namespaces that the element to come declares, where names are qualified.
  std::vector<std::pair<WString, WString>> m_declarations;
  WString m_qualifiedName;
  WString m_value;  // the literal value read last
  // Literal parts of a name that find their table full.
  WString m_prefix;
  WString m_namespace;
  WString m_localName;
  std::uint64_t m_textLimit;
  std::uint64_t m_textLeft;
  std::uint32_t m_tableLimit;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_READER_H_
