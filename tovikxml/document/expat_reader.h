#ifndef TOVIKXML_DOCUMENT_EXPAT_READER_H_
#define TOVIKXML_DOCUMENT_EXPAT_READER_H_

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/document/utf16_input.h"

struct XML_ParserStruct;

namespace TovikXmlLib16 {

class CXmlDocument;

/// Feeds XML text to expat and builds the tree of a document from its events. One reader serves
/// one parse. What a callback throws ends the parse and reaches the caller of `ParseBuffer`.
class CExpatReader : public CInstanceMonitor {
 public:
  explicit CExpatReader(CXmlDocument* document);
  ~CExpatReader() override;

  /// Makes the parser: with namespaces unless the document's context says `st_NoNamespaces`.
  void Create();
  /// Parses the next bytes of the document. Throws `CTovikException` "%s at line %d" with the
  /// parser's words; lines are counted over all buffers.
  void ParseBuffer(const unsigned char* data, std::size_t length, bool isFinal);
  /// Parses a whole document that was UTF-16, whatever its first characters, and is UTF-8 now.
  void ParseText(std::string_view text);

 private:
  struct Handlers;
  struct FreeParser {
    void operator()(XML_ParserStruct* parser) const;
  };

  void BeginUtf16(CUtf16Input::Order order);
  void Parse(std::string_view bytes, bool isFinal);

  CXmlDocument* m_document;
  std::optional<CUtf16Input> m_utf16;
  bool m_hasBegun = false;
  std::unique_ptr<XML_ParserStruct, FreeParser> m_parser;
  std::unique_ptr<Handlers> m_handlers;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_EXPAT_READER_H_
