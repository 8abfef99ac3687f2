#ifndef TOVIKXML_FASTINFOSET_WRITER_H_
#define TOVIKXML_FASTINFOSET_WRITER_H_

#include <utility>
#include <vector>

#include "tovikxml/document/writer.h"
#include "tovikxml/fastinfoset/declaration.h"
#include "tovikxml/fastinfoset/name_memory.h"
#include "tovikxml/fastinfoset/octet_output.h"
#include "tovikxml/settings/fastinfoset_context.h"

namespace TovikXmlLib16 {

class CBinaryStream;
class CFIIndexedStrings;
struct CFINameKey;
struct FIValuePlace;

/// Writes a Fast Infoset document (ITU-T X.891) to a stream, which the caller makes first and
/// destroys last:
///
///     E0 00 00 01 00                  header                          WriteStartDocument
///     78                              element, with attributes and namespace attributes
///       CD 04 75 72 6E 3A 64          default namespace "urn:d"
///       CF 00 70 04 75 72 6E 3A 70    prefix "p" for "urn:p"
///     F0                              end of the namespace attributes
///     3D 81 00 72                     its name: namespace 2, literal "r"
///       7B 81 82 00 69                attribute name: prefix 2, namespace 3, literal "i"
///       40 31                         value "1", which enters the table
///     F0                              end of the attributes
///     ...                             content
///     FF                              end of the element and of the document
///
/// A name or short value that came before is an index into a table. What depends on what follows
/// is held back: the first octet of an element until it is known whether an attribute comes, and
/// the end of an element until it is known whether another end comes, which shares its octet.
/// Comments, processing instructions and inline schemas are dropped. Only the root has namespace
/// attributes, but with `GetQualifiedNames`. Internal.
class CFastInfosetWriter : public CXmlWriter {
 public:
  CFastInfosetWriter(const CFastInfosetContext& context, CBinaryStream* stream);
  ~CFastInfosetWriter() override;

  void Close() override;
  void WriteComment(const WString& text) override;
  void WriteProcessingInstruction(const WString& text) override;
  void WriteInlineSchema(const WString& text) override;
  void WriteStartElement(const WString& localName, const WString& namespaceUri) override;
  void WriteText(const WString& value, ItemType itemType) override;
  void WriteEndElement() override;
  void WriteAttribute(const WString& localName, const WString& namespaceUri, const WString& value,
                      ItemType itemType) override;
  void WriteXsiType(const WString& typeNamespaceUri, const WString& typeName,
                    ItemType itemType) override;
  void WriteXsiNil() override;

  /// Called behind `Open`. A value outside the enumeration throws `CTovikInvalidParamException`.
  void WriteStartDocument(FInfoDecl declaration);
  /// Called behind the end of the root; the stream is complete then.
  void WriteEndDocument();

 private:
  struct NameForm;

  void WriteElementHeader(bool hasAttributes);
  void WriteRootNamespaces();
  void WriteNamespace(const WString& prefix, const WString& namespaceUri);
  void DeclareNamespace(const WString& name, const WString& namespaceUri);
  void BeginAttribute();
  void CloseStartTag();
  void WritePendingTerminator();
  const WString& AliasFor(const WString& namespaceUri);
  void WriteIdentifyingString(CFIIndexedStrings& table, const WString& text);
  void WriteIdentifyingString(CFIIndexedStrings& table, const WString& text, std::uint32_t& index);
  void WritePrefixedName(const NameForm& form, unsigned bits, const WString& namespaceUri,
                         const WString& name);
  void WriteQualifiedName(const NameForm& form, unsigned bits, const WString& prefix,
                          const WString& namespaceUri, const WString& localName);
  void WriteNamePart(CFIIndexedStrings& table, const WString& text, std::uint32_t& index,
                     CFINameKey& key);
  void WriteAttributeValue(const WString& value, ItemType itemType);
  void WriteValue(const FIValuePlace& place, CFIIndexedStrings& table, unsigned long maxAddLength,
                  const WString& value, ItemType itemType);
  void WriteEncodedString(const FIValuePlace& place, unsigned bits, const WString& value,
                          ItemType itemType);
  void WriteOverAlphabet(const FIValuePlace& place, unsigned bits, std::uint32_t index,
                         const WString& value);
  void WriteByAlgorithm(const FIValuePlace& place, unsigned bits, std::uint32_t index,
                        const WString& value);

  CFIOctetOutput m_output;
  const CFastInfosetContext& m_context;
  CFIVocabulary m_vocabulary;
  CFITables& m_tables;
  bool m_hasQualifiedNames;
  CFINameMemory m_elementNames;
  CFINameMemory m_attributeNames;
  // What the current element declares, as long as its header is pending.
  std::vector<std::pair<WString, WString>> m_declarations;
  // The parts of the qualified name that was written last.
  WString m_prefix;
  WString m_localName;
  bool m_isHeaderPending = false;      // of the current element
  bool m_isTerminatorPending = false;  // of the element that ended last
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_WRITER_H_
