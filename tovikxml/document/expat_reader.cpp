#include "tovikxml/document/expat_reader.h"

#include <expat.h>

#include <exception>
#include <new>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/expat_text.h"
#include "tovikxml/document/unread_entities.h"
#include "tovikxml/document/xml_names.h"
#include "tovikxml/settings/serialization_context.h"

namespace TovikXmlLib16 {
namespace {

constexpr XML_Char kNamespaceSeparator = '|';
// expat keeps a copy of each piece, and looks again at what a piece leaves unfinished.
constexpr std::size_t kLargestPiece = std::size_t{1} << 24;

CTovikException Failure(XML_Parser parser, XML_Error error) {
  return CTovikException(
      FormatString(u"%S at line %lu", XML_ErrorString(error),
                   static_cast<unsigned long>(XML_GetCurrentLineNumber(parser))));
}

}  // namespace

// The functions that expat calls. An exception must not pass through its frames: it is kept, the
// parser is stopped, and `ParseBuffer` throws it on.
struct CExpatReader::Handlers {
  CXmlDocument* document;
  XML_Parser parser;
  CUtf16Input::Order order = CUtf16Input::Order::none;
  std::exception_ptr failure{};
  WString nameScratch{};
  WString valueScratch{};
  // Made where there is a document type, without which there are no entities.
  std::optional<CUnreadEntities> entities{};
  // Only where there may be declarations that are not read does the parser pass over an entity that
  // is not declared.
  bool mayMissDeclarations = false;

  template <class Action>
  static void Guard(void* userData, Action action) {
    auto& self = *static_cast<Handlers*>(userData);
    if (self.failure) return;
    try {
      action(self);
    } catch (...) {
      self.failure = std::current_exception();
      XML_StopParser(self.parser, XML_FALSE);
    }
  }

  static void XMLCALL OnStartElement(void* userData, const XML_Char* name,
                                     const XML_Char** attributes) {
    Guard(userData, [&](Handlers& self) {
      if (self.entities && self.mayMissDeclarations) {
        self.entities->LookAtStartTag();
        self.KeepUnreadEntity();
      }
      CXmlDocument& target = *self.document;
      CXmlElement* element = target.AddElement(target.KeepName(WidenName(name, self.nameScratch)));
      const XML_Char** end = attributes;
      while (*end) end += 2;
      if (end != attributes) {
        target.ReserveAttributes(element, static_cast<std::size_t>(end - attributes) / 2);
      }
      for (; *attributes; attributes += 2) {
        const CXmlName* kept = target.KeepName(WidenName(attributes[0], self.nameScratch));
        target.AddElementAttribute(element, kept, Widen(attributes[1], self.valueScratch));
      }
    });
  }

  static void XMLCALL OnEndElement(void* userData, const XML_Char* /*name*/) {
    Guard(userData, [](Handlers& self) { self.document->EndElement(); });
  }

  // A carriage return comes on its own, from a character reference, but for the text of an entity,
  // which needs a document type.
  static void XMLCALL OnCharacterData(void* userData, const XML_Char* text, int length) {
    Guard(userData, [&](Handlers& self) {
      if (length == 1 && *text == '\r') return;
      const auto size = static_cast<std::size_t>(length);
      const WStringView run = Widen(text, size, self.valueScratch);
      if (self.entities) {
        self.document->AppendTextExcludingCR(run);
      } else {
        self.document->AppendText(run);
      }
    });
  }

  static void XMLCALL OnStartDocumentType(void* userData, const XML_Char* /*name*/,
                                          const XML_Char* /*systemId*/,
                                          const XML_Char* /*publicId*/, int /*hasSubset*/) {
    Guard(userData, [](Handlers& self) {
      self.entities.emplace(self.parser);
      XML_SetEntityDeclHandler(self.parser, OnEntityDeclaration);
      XML_SetAttlistDeclHandler(self.parser, OnAttributeDeclaration);
      XML_SetSkippedEntityHandler(self.parser, OnSkippedEntity);
      XML_SetExternalEntityRefHandler(self.parser, OnExternalEntity);
    });
  }

  static int XMLCALL OnNotStandalone(void* userData) {
    static_cast<Handlers*>(userData)->mayMissDeclarations = true;
    return XML_STATUS_OK;
  }

  static void XMLCALL OnEntityDeclaration(void* userData, const XML_Char* name, int isParameter,
                                          const XML_Char* text, int length,
                                          const XML_Char* /*base*/, const XML_Char* /*systemId*/,
                                          const XML_Char* /*publicId*/,
                                          const XML_Char* /*notation*/) {
    if (isParameter) return;
    Guard(userData, [&](Handlers& self) {
      const WStringView widened =
          text ? Widen(text, static_cast<std::size_t>(length), self.valueScratch) : WStringView();
      const WString value(widened);
      self.entities->Declare(Widen(name, self.nameScratch), text ? &value : nullptr);
    });
  }

  // The parser is at the default value, if there is one.
  static void XMLCALL OnAttributeDeclaration(void* userData, const XML_Char* /*element*/,
                                             const XML_Char* /*attribute*/,
                                             const XML_Char* /*type*/, const XML_Char* value,
                                             int /*isRequired*/) {
    if (!value) return;
    Guard(userData, [](Handlers& self) {
      self.entities->LookAtDefaultValue();
      self.KeepUnreadEntity();
    });
  }

  static void XMLCALL OnSkippedEntity(void* userData, const XML_Char* name, int isParameter) {
    if (isParameter) return;
    Guard(userData, [&](Handlers& self) {
      self.entities->Note(Widen(name, self.nameScratch));
      self.KeepUnreadEntity();
    });
  }

  static int XMLCALL OnExternalEntity(XML_Parser parser, const XML_Char* openEntities,
                                      const XML_Char* /*base*/, const XML_Char* /*systemId*/,
                                      const XML_Char* /*publicId*/) {
    Guard(XML_GetUserData(parser), [&](Handlers& self) {
      self.entities->NoteOpen(Widen(openEntities, self.nameScratch));
      self.KeepUnreadEntity();
    });
    return 1;
  }

  void KeepUnreadEntity() { document->m_unreadEntity = entities->GetFirst(); }

  // The parser is given UTF-8 and told to look at no declaration, so this looks at it.
  static void XMLCALL OnXmlDeclarationOfUtf16(void* userData, const XML_Char* /*version*/,
                                              const XML_Char* encoding, int /*standalone*/) {
    Guard(userData, [&](Handlers& self) {
      const WStringView name = Widen(encoding, self.nameScratch);
      const bool isLowFirst = self.order == CUtf16Input::Order::lowFirst;
      if (name.empty() || EqualIgnoringAsciiCase(name, u"UTF-16") ||
          EqualIgnoringAsciiCase(name, isLowFirst ? u"UTF-16LE" : u"UTF-16BE")) {
        return;
      }
      for (const WStringView other :
           {u"UTF-8", u"ISO-8859-1", u"US-ASCII", u"UTF-16LE", u"UTF-16BE"}) {
        if (EqualIgnoringAsciiCase(name, other))
          throw Failure(self.parser, XML_ERROR_INCORRECT_ENCODING);
      }
      throw Failure(self.parser, XML_ERROR_UNKNOWN_ENCODING);
    });
  }

  static void XMLCALL OnStartCdata(void* userData) {
    Guard(userData, [](Handlers& self) { self.document->AppendText(kCDataStart); });
  }

  static void XMLCALL OnEndCdata(void* userData) {
    Guard(userData, [](Handlers& self) { self.document->AppendText(kCDataEnd); });
  }

  static void XMLCALL OnStartNamespace(void* userData, const XML_Char* prefix,
                                       const XML_Char* uri) {
    Guard(userData, [&](Handlers& self) {
      self.document->BindAlias(WString(Widen(prefix, self.nameScratch)),
                               WString(Widen(uri, self.valueScratch)));
    });
  }

  static void XMLCALL OnEndNamespace(void* /*userData*/, const XML_Char* /*prefix*/) {}
};

CExpatReader::CExpatReader(CXmlDocument* document)
    : CInstanceMonitor(u"CExpatReader"), m_document(document) {}

CExpatReader::~CExpatReader() = default;

void CExpatReader::FreeParser::operator()(XML_ParserStruct* parser) const {
  XML_ParserFree(parser);
}

void CExpatReader::Create() {
  m_parser.reset(m_document->m_schemaType == st_NoNamespaces
                     ? XML_ParserCreate(nullptr)
                     : XML_ParserCreateNS(nullptr, kNamespaceSeparator));
  if (!m_parser) throw std::bad_alloc();
  XML_Parser parser = m_parser.get();
  m_handlers.reset(new Handlers{m_document, parser});
  XML_SetUserData(parser, m_handlers.get());
  XML_SetElementHandler(parser, Handlers::OnStartElement, Handlers::OnEndElement);
  XML_SetNamespaceDeclHandler(parser, Handlers::OnStartNamespace, Handlers::OnEndNamespace);
  XML_SetCharacterDataHandler(parser, Handlers::OnCharacterData);
  XML_SetStartDoctypeDeclHandler(parser, Handlers::OnStartDocumentType);
  XML_SetNotStandaloneHandler(parser, Handlers::OnNotStandalone);
  if (!m_document->m_context->GetStripCDATA()) {
    XML_SetCdataSectionHandler(parser, Handlers::OnStartCdata, Handlers::OnEndCdata);
  }
}

void CExpatReader::ParseBuffer(const unsigned char* data, std::size_t length, bool isFinal) {
  if (!m_hasBegun) {
    BeginUtf16(CUtf16Input::OrderOf(data, length));
    if (m_utf16 && CUtf16Input::BeginsWithMark(data, length)) {
      data += 2;
      length -= 2;
    }
  }
  m_hasBegun = true;
  if (!m_utf16) return Parse({reinterpret_cast<const char*>(data), length}, isFinal);
  const std::string text = m_utf16->Convert(data, length, isFinal);
  const bool isCut = isFinal && m_utf16->HasOddByte();
  Parse(text, isFinal && !isCut);
  if (isCut) throw Failure(m_parser.get(), XML_ERROR_UNCLOSED_TOKEN);
}

void CExpatReader::ParseText(std::string_view text) {
  BeginUtf16(CUtf16Input::Order::lowFirst);
  Parse(text, true);
}

void CExpatReader::BeginUtf16(CUtf16Input::Order order) {
  if (order == CUtf16Input::Order::none) return;
  m_utf16.emplace(order);
  m_handlers->order = order;
  static const XML_Char utf8[] = {'U', 'T', 'F', '-', '8', 0};
  if (XML_SetEncoding(m_parser.get(), utf8) != XML_STATUS_OK) throw std::bad_alloc();
  XML_SetXmlDeclHandler(m_parser.get(), Handlers::OnXmlDeclarationOfUtf16);
  // Without a mark the parser would take a zero unit behind the first one for UTF-16 once more.
  Parse("\xEF\xBB\xBF", false);
}

void CExpatReader::Parse(std::string_view bytes, bool isFinal) {
  do {
    const std::string_view piece = bytes.substr(0, kLargestPiece);
    bytes.remove_prefix(piece.size());
    const bool last = isFinal && bytes.empty();
    const XML_Status status =
        XML_Parse(m_parser.get(), piece.data(), static_cast<int>(piece.size()), last);
    if (m_handlers->failure) std::rethrow_exception(m_handlers->failure);
    if (status != XML_STATUS_OK) {
      throw Failure(m_parser.get(), XML_GetErrorCode(m_parser.get()));
    }
  } while (!bytes.empty());
}

}  // namespace TovikXmlLib16
