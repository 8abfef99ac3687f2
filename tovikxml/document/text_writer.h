#ifndef TOVIKXML_DOCUMENT_TEXT_WRITER_H_
#define TOVIKXML_DOCUMENT_TEXT_WRITER_H_

#include "tovikxml/document/encoding.h"
#include "tovikxml/document/writer.h"

namespace TovikXmlLib16 {

class CTextStream;

/// Writes XML text to a stream, which the caller makes first and destroys last.
///
///     <?xml version="1.0" encoding="UTF-8"?>          WriteXmlDeclaration
///     <r xmlns="urn:d" xmlns:p="urn:p" p:i="1">       namespaces of the root, then attributes
///     <TAB><p:s/>                                     one indent per level if formatted
///     <TAB><AA:t xmlns:AA="urn:q">text</AA:t>         a generated alias, declared where needed
///     </r>
///
/// In element text "&", "<" and ">" are escaped, a line feed becomes the line end in force and a
/// carriage return is dropped; attribute values escape the double quote too and write a line feed
/// as "&#xA;". Text that begins with "<![CDATA[" is written as it stands.
class CXmlTextWriter : public CXmlWriter {
 public:
  explicit CXmlTextWriter(CTextStream* stream);

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

  /// Whether line ends and indentation stand between tags.
  void SetFormatted(bool formatted) { m_formatted = formatted; }
  bool GetFormatted() const { return m_formatted; }
  void SetIndentChars(const WString& chars) { m_indentChars = chars; }
  /// Throws `CTovikException` "Invalid EOL type." for a value outside the enumeration.
  void SetEOLType(EOLType type);
  EOLType GetEOLType() const { return m_eolType; }

  /// Names the stream's encoding; `Encoding_None` and `Encoding_UTF16_Undeclared` name none.
  void WriteXmlDeclaration();
  /// Closes the open start tag, as a child element would.
  void CloseStartTag();
  /// Writes text that is XML already.
  void WriteRawText(const WString& text);

 private:
  enum class Position { kElement, kAttribute };

  void Write(WStringView text);
  void WriteEol() { Write(m_endOfLine); }
  void WriteIndent(int depth);
  void WriteEscaped(WStringView text, Position position);
  void WriteEscape(wchar unit);
  void WriteName(const WString* alias, const WString& localName);
  void WriteDeclaration(const WString& alias, const WString& uri);
  void WriteRootDeclarations(const WString* generatedFor);
  bool IsDefaultOrNone(const WString& namespaceUri) const;
  void FlushIfFull();

  WString m_indentChars{u"\t"};
  WString m_endOfLine{u"\n"};
  EOLType m_eolType = EOL_LF;
  bool m_formatted = true;
  CTextStream* m_stream;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_TEXT_WRITER_H_
