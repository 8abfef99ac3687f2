#ifndef TOVIKXML_JSON_TEXT_WRITER_H_
#define TOVIKXML_JSON_TEXT_WRITER_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tovikxml/document/encoding.h"
#include "tovikxml/document/writer.h"
#include "tovikxml/settings/json_context.h"

namespace TovikXmlLib16 {

class CTextStream;

/// Writes JSON text (RFC 8259) to a stream, which the caller makes first and destroys last.
///
///     {                                            WriteStartDocument
///     <TAB>"r": {                                  an element with attributes or children
///     <TAB><TAB>"@xmlns:p": "urn:p",               namespaces of the root, in `jrt_Full`
///     <TAB><TAB>"@id": 7,                          an attribute; in `jrt_Bare` without the "@"
///     <TAB><TAB>"p:item": [                        a repeated element, by SetCollectionState
///     <TAB><TAB><TAB>"x",                          an element with text alone
///     <TAB><TAB><TAB>null                          an element with nothing, or nil
///     <TAB><TAB>],
///     <TAB><TAB>"#text": "v"                       text beside other members; in `jrt_Bare` ""
///     <TAB>}
///     }                                            WriteEndDocument
///
/// Numbers and booleans stand as they are spelled, so that a NaN or an infinity is no JSON; all
/// other values are strings. Names and namespaces are not escaped. In a string value a line feed
/// stands for the line end in force and a carriage return is dropped. Comments, which JSON does not
/// know, are written as /* */; processing instructions and inline schemas are not written.
///
/// The element below the root needs a known namespace in `jrt_Full`: `CTovikException` "Unknown
/// Namespace: %s." with the local name. An element that has a bare value already takes no further
/// content: `CTovikInvalidStateException`. Internal.
class CJsonTextWriter final : public CXmlWriter {
 public:
  explicit CJsonTextWriter(CTextStream* stream);

  void Open() override;
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
  /// 1 begins a repeated element and 3 ends it, at once. Items of another name in between get an
  /// array of their own, as does a repeated element inside another one on the same element.
  void SetCollectionState(int state) override;

  void SetFormatted(bool formatted) { m_formatted = formatted; }
  void SetIndentChars(const WString& chars);
  /// Throws `CTovikException` "Invalid EOL type." for a value outside the enumeration.
  void SetEOLType(EOLType type);
  void SetRoundTrip(JsonRoundTrip mode) { m_roundTrip = mode; }

  /// The object that holds the root element as its member.
  void WriteStartDocument();
  void WriteEndDocument();

 private:
  // What the innermost element has got behind its key so far.
  enum class Content { kNone, kValue, kObject };
  // What an open element has beside its context: how far it is indented, which an array inside it
  // changes, and what the items of that array are called.
  struct Level {
    std::int32_t depth;
    WString itemName;
    WString itemNamespace;
  };

  void Write(WStringView text);
  void WriteLineEnd();
  void WriteIndent(std::int32_t levels);
  void WriteEscaped(WStringView text);
  void WriteEscape(wchar unit);
  void WriteTypedValue(const WString& value, ItemType itemType);

  void EnterElement(const WString& localName, const WString& namespaceUri);
  void WriteElementKey();
  void WriteAlias(const WString& namespaceUri, const WString& name);
  const WString& RequireAlias(const WString& namespaceUri, const WString& name) const;
  const WString* MakeRootAlias();
  void WriteRootNamespaces(const WString* generatedFor);
  void WriteDeclaration(WStringView name, const WString& alias, const WString& uri);

  void OpenMember();
  void BeginMember();
  void OpenArray();
  void CloseArray();
  bool ContinuesArray(const WString& localName, const WString& namespaceUri) const;

  bool IsDefaultOrNone(const WString& namespaceUri) const;
  Level& Top() { return m_levels[m_openLevels - 1]; }
  void FlushIfFull();

  WString m_indentChars{u"\t"};
  WString m_indentation;  // the indent characters over and over
  WString m_endOfLine{u"\n"};
  EOLType m_eolType = EOL_LF;
  JsonRoundTrip m_roundTrip = jrt_Full;
  bool m_formatted = true;
  CTextStream* m_stream;
  Content m_content = Content::kObject;
  std::vector<Level> m_levels;  // those behind the open ones are kept for reuse
  std::size_t m_openLevels = 0;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_JSON_TEXT_WRITER_H_
