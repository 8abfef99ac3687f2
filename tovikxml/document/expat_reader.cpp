#include "tovikxml/document/expat_reader.h"

#include <expat.h>

#include <exception>
#include <new>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/xml_names.h"
#include "tovikxml/settings/serialization_context.h"

namespace TovikXmlLib16 {
namespace {

constexpr XML_Char kNamespaceSeparator = '|';
// expat takes lengths as int.
constexpr std::size_t kLargestPiece = std::size_t{1} << 30;

std::size_t LengthOf(const XML_Char* text) {
  std::size_t length = 0;
  while (text[length]) ++length;
  return length;
}

// What expat hands over, as 16-bit text. Its 16-bit build gives that already; the text of its
// 8-bit build is converted into `scratch`, where it stays until the next conversion.
#ifdef XML_UNICODE
static_assert(sizeof(XML_Char) == sizeof(wchar));

WStringView Widen(const XML_Char* text, std::size_t length, WString& /*scratch*/) {
  return {reinterpret_cast<const wchar*>(text), length};
}

const wchar* WidenName(const XML_Char* name, WString& /*scratch*/) {
  return reinterpret_cast<const wchar*>(name);
}
#else
WStringView Widen(const XML_Char* text, std::size_t length, WString& scratch) {
  // expat has checked the encoding and never cuts a character.
  scratch = DecodeUtf8({text, length}).value_or(WString());
  return scratch;
}

const wchar* WidenName(const XML_Char* name, WString& scratch) {
  Widen(name, LengthOf(name), scratch);
  return scratch.c_str();
}
#endif

WStringView Widen(const XML_Char* text, WString& scratch) {
  return text ? Widen(text, LengthOf(text), scratch) : WStringView();
}

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
  bool hasDocumentType = false;

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
      if (self.hasDocumentType) {
        self.document->AppendTextExcludingCR(run);
      } else {
        self.document->AppendText(run);
      }
    });
  }

  static void XMLCALL OnStartDocumentType(void* userData, const XML_Char* /*name*/,
                                          const XML_Char* /*systemId*/,
                                          const XML_Char* /*publicId*/, int /*hasSubset*/) {
    static_cast<Handlers*>(userData)->hasDocumentType = true;
  }

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
