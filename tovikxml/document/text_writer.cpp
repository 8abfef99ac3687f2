#include "tovikxml/document/text_writer.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <cstdint>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/text_stream.h"
#include "tovikxml/document/xml_names.h"

namespace TovikXmlLib16 {
namespace {

// A stream that goes to a file is flushed when it holds this many units.
constexpr std::size_t kFlushThreshold = 0x1000;

constexpr std::uint64_t Bit(wchar unit) {
  return std::uint64_t{1} << unit;
}

// The units that end a run of plain text; all are below 64. The zero unit ends the whole text.
constexpr std::uint64_t kElementSpecials =
    Bit(0) | Bit(u'\n') | Bit(u'\r') | Bit(u'&') | Bit(u'<') | Bit(u'>');
constexpr std::uint64_t kAttributeSpecials = kElementSpecials | Bit(u'"');

// Skips blocks without any unit that may be special: those below 16, the quotation mark and its
// neighbour "&", "<" and its neighbour ">".
const wchar* SkipPlainBlocks(const wchar* at, const wchar* end) {
#ifdef __SSE2__
  const auto equals = [](__m128i units, short mask, short value) {
    return _mm_cmpeq_epi16(_mm_and_si128(units, _mm_set1_epi16(mask)), _mm_set1_epi16(value));
  };
  for (; end - at >= 8; at += 8) {
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i hits = _mm_or_si128(equals(units, ~15, 0),
                                      _mm_or_si128(equals(units, ~(u'"' ^ u'&'), u'"' & u'&'),
                                                   equals(units, ~(u'<' ^ u'>'), u'<' & u'>')));
    if (_mm_movemask_epi8(hits) != 0) break;
  }
#else
  static_cast<void>(end);
#endif
  return at;
}

std::size_t PlainRun(const wchar* at, const wchar* end, std::uint64_t specials) {
  const wchar* const start = at;
  while (true) {
    at = SkipPlainBlocks(at, end);
    const wchar* const stop = end - at > 8 ? at + 8 : end;
    while (at != stop && (*at >= 64 || !(specials >> *at & 1))) ++at;
    if (at != stop || at == end) return static_cast<std::size_t>(at - start);
  }
}

bool BeginsWith(WStringView text, WStringView prefix) {
  return text.size() >= prefix.size() && EqualText(text.substr(0, prefix.size()), prefix);
}

}  // namespace

CXmlTextWriter::CXmlTextWriter(CTextStream* stream)
    : CXmlWriter(u"CXmlTextWriter"), m_stream(stream) {}

void CXmlTextWriter::Open() {
  CXmlWriter::Open();
  m_stream->Open();
}

void CXmlTextWriter::Close() {
  m_stream->Close();
  CXmlWriter::Close();
}

void CXmlTextWriter::SetEOLType(EOLType type) {
  if (type != EOL_CRLF && type != EOL_LF) throw CTovikException(u"Invalid EOL type.");
  m_endOfLine = type == EOL_CRLF ? u"\r\n" : u"\n";
  m_eolType = type;
}

void CXmlTextWriter::WriteXmlDeclaration() {
  Write(u"<?xml version=\"1.0\"");
  if (m_stream->GetEncoding() == Encoding_UTF8) Write(u" encoding=\"UTF-8\"");
  if (m_stream->GetEncoding() == Encoding_UTF16) Write(u" encoding=\"UTF-16\"");
  Write(u"?>");
  WriteEol();
  FlushIfFull();
}

void CXmlTextWriter::WriteProcessingInstruction(const WString& text) {
  Write(text);
  WriteEol();
  WriteEol();
  FlushIfFull();
}

void CXmlTextWriter::WriteComment(const WString& text) {
  Write(u"<!--");
  WriteEscaped(text, Position::kElement);
  Write(u"-->");
  WriteEol();
  FlushIfFull();
}

void CXmlTextWriter::WriteInlineSchema(const WString& text) {
  m_stream->WriteChar(u' ');
  WriteEol();
  Write(text);
  WriteEol();
  FlushIfFull();
}

void CXmlTextWriter::WriteStartElement(const WString& localName, const WString& namespaceUri) {
  const bool isRoot = !Current();
  CloseStartTag();
  CXmlWriterContext* context = PushContext(localName, namespaceUri);
  if (m_formatted) WriteIndent(context->GetDepth());
  m_stream->WriteChar(u'<');
  const WString* generatedFor = nullptr;
  if (IsDefaultOrNone(namespaceUri)) {
    Write(localName);
  } else if (const WString* alias = context->FindAlias(namespaceUri)) {
    WriteName(alias, localName);
  } else {
    const WString& generated = context->AddGeneratedAlias(namespaceUri);
    WriteName(&generated, localName);
    WriteDeclaration(generated, namespaceUri);
    generatedFor = &namespaceUri;
  }
  if (isRoot) WriteRootDeclarations(generatedFor);
  FlushIfFull();
}

void CXmlTextWriter::WriteAttribute(const WString& localName, const WString& namespaceUri,
                                    const WString& value, ItemType /*itemType*/) {
  RequireOpenStartTag();
  if (namespaceUri.empty()) {
    m_stream->WriteChar(u' ');
    Write(localName);
  } else {
    const WString* alias = Current()->FindAlias(namespaceUri);
    if (!alias) {
      alias = &Current()->AddGeneratedAlias(namespaceUri);
      WriteDeclaration(*alias, namespaceUri);
    }
    m_stream->WriteChar(u' ');
    WriteName(alias, localName);
  }
  Write(u"=\"");
  WriteEscaped(value, Position::kAttribute);
  m_stream->WriteChar(u'"');
  FlushIfFull();
}

void CXmlTextWriter::WriteXsiType(const WString& typeNamespaceUri, const WString& typeName,
                                  ItemType itemType) {
  RequireOpenStartTag();
  if (IsDefaultOrNone(typeNamespaceUri)) {
    WriteAttribute(u"type", XsiNamespace(), typeName, itemType);
    return;
  }
  const WString* alias = Current()->FindAlias(typeNamespaceUri);
  if (!alias) {
    alias = &Current()->AddGeneratedAlias(typeNamespaceUri);
    WriteDeclaration(*alias, typeNamespaceUri);
    // The blank that ends this declaration stands beside the one that begins the attribute.
    m_stream->WriteChar(u' ');
  }
  WriteAttribute(u"type", XsiNamespace(), *alias + u":" + typeName, itemType);
}

void CXmlTextWriter::WriteXsiNil() {
  RequireOpenStartTag();
  WriteAttribute(u"nil", XsiNamespace(), u"true", it_boolean);
}

void CXmlTextWriter::WriteText(const WString& value, ItemType /*itemType*/) {
  if (value.empty()) return;
  CXmlWriterContext* context = Current();
  if (context->startTagOpen) {
    context->startTagOpen = false;
    m_stream->WriteChar(u'>');
  }
  if (BeginsWith(value, kCDataStart)) {
    Write(value);
  } else {
    WriteEscaped(value, Position::kElement);
  }
  FlushIfFull();
}

void CXmlTextWriter::WriteEndElement() {
  const CXmlWriterContext& context = *Current();
  if (context.startTagOpen) {
    Write(u"/>");
  } else {
    if (m_formatted && context.childCount > 0) WriteIndent(context.GetDepth());
    Write(u"</");
    const WString& uri = context.GetNamespaceUri();
    WriteName(IsDefaultOrNone(uri) ? nullptr : &context.GetAlias(uri), context.GetLocalName());
    m_stream->WriteChar(u'>');
  }
  if (m_formatted) WriteEol();
  FlushIfFull();
  PopContext();
}

void CXmlTextWriter::CloseStartTag() {
  CXmlWriterContext* context = Current();
  if (!context) return;
  ++context->childCount;
  if (!context->startTagOpen) return;
  context->startTagOpen = false;
  m_stream->WriteChar(u'>');
  if (m_formatted) WriteEol();
  FlushIfFull();
}

void CXmlTextWriter::WriteRawText(const WString& text) {
  Write(text);
  if (m_formatted) WriteEol();
  FlushIfFull();
}

void CXmlTextWriter::Write(WStringView text) {
  m_stream->Write(text);
}

void CXmlTextWriter::WriteIndent(int depth) {
  for (int i = 0; i < depth; ++i) Write(m_indentChars);
}

void CXmlTextWriter::WriteEscaped(WStringView text, Position position) {
  const std::uint64_t specials =
      position == Position::kAttribute ? kAttributeSpecials : kElementSpecials;
  const wchar* at = text.data();
  const wchar* const end = at + text.size();
  while (at != end) {
    const std::size_t run = PlainRun(at, end, specials);
    if (run != 0) Write({at, run});
    at += run;
    if (at == end || *at == 0) return;
    if (*at != u'\n') {
      WriteEscape(*at);
    } else if (position == Position::kAttribute) {
      Write(u"&#xA;");
    } else {
      WriteEol();
    }
    ++at;
  }
}

void CXmlTextWriter::WriteEscape(wchar unit) {
  switch (unit) {
    case u'&':
      return Write(u"&amp;");
    case u'<':
      return Write(u"&lt;");
    case u'>':
      return Write(u"&gt;");
    case u'"':
      return Write(u"&quot;");
    default:  // the carriage return is dropped
      return;
  }
}

void CXmlTextWriter::WriteName(const WString* alias, const WString& localName) {
  if (alias) {
    Write(*alias);
    m_stream->WriteChar(u':');
  }
  Write(localName);
}

void CXmlTextWriter::WriteDeclaration(const WString& alias, const WString& uri) {
  Write(u" xmlns:");
  Write(alias);
  Write(u"=\"");
  Write(uri);
  m_stream->WriteChar(u'"');
}

void CXmlTextWriter::WriteRootDeclarations(const WString* generatedFor) {
  const CXmlWriterContext& root = *Current();
  if (!root.GetDefaultNamespace().empty()) {
    Write(u" xmlns=\"");
    Write(root.GetDefaultNamespace());
    m_stream->WriteChar(u'"');
  }
  for (const auto& [uri, alias] : root.GetAliasMap()) {
    const bool declared = generatedFor && EqualText(uri, *generatedFor);
    if (!declared && !BeginsWith(uri, kXmlNamespace)) WriteDeclaration(alias, uri);
  }
}

bool CXmlTextWriter::IsDefaultOrNone(const WString& namespaceUri) const {
  return namespaceUri.empty() || EqualText(namespaceUri, Current()->GetDefaultNamespace());
}

void CXmlTextWriter::FlushIfFull() {
  if (m_stream->GetLength() >= kFlushThreshold) m_stream->Flush();
}

}  // namespace TovikXmlLib16
