#include "tovikxml/json/text_writer.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/text_stream.h"
#include "tovikxml/document/xml_names.h"

namespace TovikXmlLib16 {
namespace {

// A stream that goes to a file is flushed when it holds this many units.
constexpr std::size_t kFlushThreshold = 0x1000;

// The collection state of an element.
constexpr int kNoArray = 0;
constexpr int kArrayBegun = 1;  // a repeated element is being written, and has no bracket yet
constexpr int kArrayOpen = 2;
constexpr int kArrayEnded = 3;  // passed by the caller, never kept

// Whether a unit stands for itself in a string.
constexpr bool IsPlain(wchar unit) {
  return unit >= 32 && unit != u'"' && unit != u'\\';
}

std::size_t PlainRun(const wchar* at, const wchar* end) {
  const wchar* const start = at;
  while (at != end && IsPlain(*at)) ++at;
  return static_cast<std::size_t>(at - start);
}

// Whether values of a kind are JSON literals, without quotes.
constexpr bool IsLiteral(ItemType itemType) {
  switch (itemType) {
    case it_i1:
    case it_i2:
    case it_i4:
    case it_i8:
    case it_ui1:
    case it_ui2:
    case it_ui4:
    case it_ui8:
    case it_r4:
    case it_r8:
    case it_boolean:
    case it_decimal:
    case it_integer:
      return true;
    default:
      return false;
  }
}

}  // namespace

CJsonTextWriter::CJsonTextWriter(CTextStream* stream)
    : CXmlWriter(u"CJsonTextWriter"), m_stream(stream) {}

void CJsonTextWriter::Open() {
  CXmlWriter::Open();
  m_stream->Open();
}

void CJsonTextWriter::Close() {
  m_stream->Close();
  CXmlWriter::Close();
}

void CJsonTextWriter::SetIndentChars(const WString& chars) {
  m_indentChars = chars;
  m_indentation.clear();
}

void CJsonTextWriter::SetEOLType(EOLType type) {
  if (type != EOL_CRLF && type != EOL_LF) throw CTovikException(u"Invalid EOL type.");
  m_endOfLine = type == EOL_CRLF ? u"\r\n" : u"\n";
  m_eolType = type;
}

void CJsonTextWriter::WriteStartDocument() {
  m_stream->WriteChar(u'{');
  WriteLineEnd();
  FlushIfFull();
}

void CJsonTextWriter::WriteEndDocument() {
  WriteLineEnd();
  m_stream->WriteChar(u'}');
}

void CJsonTextWriter::WriteComment(const WString& text) {
  Write(u"/* ");
  WriteEscaped(text);
  Write(u" */");
  Write(m_endOfLine);
  FlushIfFull();
}

void CJsonTextWriter::WriteProcessingInstruction(const WString& /*text*/) {}

void CJsonTextWriter::WriteInlineSchema(const WString& /*text*/) {}

void CJsonTextWriter::WriteStartElement(const WString& localName, const WString& namespaceUri) {
  const bool isRoot = !Current();
  const bool needsKey = isRoot || !ContinuesArray(localName, namespaceUri);
  if (!isRoot) {
    if (needsKey) CloseArray();
    OpenMember();
  }
  EnterElement(localName, namespaceUri);
  if (m_formatted) WriteIndent(Top().depth);
  const WString* generatedFor = isRoot ? MakeRootAlias() : nullptr;
  if (needsKey) WriteElementKey();
  m_content = Content::kNone;
  if (isRoot && m_roundTrip == jrt_Full) WriteRootNamespaces(generatedFor);
  FlushIfFull();
}

void CJsonTextWriter::WriteAttribute(const WString& localName, const WString& namespaceUri,
                                     const WString& value, ItemType itemType) {
  BeginMember();
  Write(m_roundTrip == jrt_Bare ? u"\"" : u"\"@");
  if (m_roundTrip == jrt_Full && !namespaceUri.empty()) WriteAlias(namespaceUri, localName);
  Write(localName);
  Write(u"\": ");
  WriteTypedValue(value, itemType);
}

void CJsonTextWriter::WriteXsiType(const WString& typeNamespaceUri, const WString& typeName,
                                   ItemType itemType) {
  if (m_roundTrip != jrt_Full) return;
  if (IsDefaultOrNone(typeNamespaceUri)) {
    WriteAttribute(u"type", XsiNamespace(), typeName, itemType);
    return;
  }
  const WString& alias = RequireAlias(typeNamespaceUri, typeName);
  WriteAttribute(u"type", XsiNamespace(), alias + u":" + typeName, itemType);
}

void CJsonTextWriter::WriteXsiNil() {}

void CJsonTextWriter::WriteText(const WString& value, ItemType itemType) {
  if (m_content == Content::kNone) {
    OpenArray();
    m_content = Content::kValue;
  } else {
    BeginMember();
    Write(m_roundTrip == jrt_Bare ? u"\"\": " : u"\"#text\": ");
  }
  if (value.empty()) {
    Write(u"null");
  } else {
    WriteTypedValue(value, itemType);
  }
}

void CJsonTextWriter::WriteEndElement() {
  CloseArray();
  if (m_content == Content::kObject) {
    WriteLineEnd();
    if (m_formatted) WriteIndent(Top().depth);
    m_stream->WriteChar(u'}');
  } else if (m_content == Content::kNone) {
    OpenArray();
    Write(u"null");
  }
  PopContext();
  --m_openLevels;
  m_content = Content::kObject;
}

void CJsonTextWriter::SetCollectionState(int state) {
  if (!Current()) return;
  if (state != kArrayOpen) CloseArray();
  Current()->collectionState = state == kArrayEnded ? kNoArray : state;
}

void CJsonTextWriter::Write(WStringView text) {
  m_stream->Write(text);
}

void CJsonTextWriter::WriteLineEnd() {
  if (m_formatted) Write(m_endOfLine);
}

void CJsonTextWriter::WriteIndent(std::int32_t levels) {
  const std::size_t length = static_cast<std::size_t>(levels) * m_indentChars.size();
  while (m_indentation.size() < length) m_indentation += m_indentChars;
  Write({m_indentation.data(), length});
}

// The zero unit ends the text.
void CJsonTextWriter::WriteEscaped(WStringView text) {
  const wchar* at = text.data();
  const wchar* const end = at + text.size();
  while (at != end) {
    const std::size_t run = PlainRun(at, end);
    if (run != 0) Write({at, run});
    at += run;
    if (at == end || *at == 0) return;
    WriteEscape(*at++);
  }
}

void CJsonTextWriter::WriteEscape(wchar unit) {
  constexpr WStringView kHexDigits = u"0123456789ABCDEF";
  switch (unit) {
    case u'\b':
      return Write(u"\\b");
    case u'\t':
      return Write(u"\\t");
    case u'\n':
      return Write(m_eolType == EOL_CRLF ? u"\\r\\n" : u"\\n");
    case u'\f':
      return Write(u"\\f");
    case u'\r':
      return;
    case u'"':
      return Write(u"\\\"");
    case u'\\':
      return Write(u"\\\\");
    default:
      Write(u"\\u00");
      m_stream->WriteChar(kHexDigits[unit >> 4]);
      m_stream->WriteChar(kHexDigits[unit & 0xF]);
  }
}

void CJsonTextWriter::WriteTypedValue(const WString& value, ItemType itemType) {
  if (IsLiteral(itemType)) {
    Write(value.empty() ? WStringView(u"null") : WStringView(value));
    return;
  }
  m_stream->WriteChar(u'"');
  WriteEscaped(value);
  m_stream->WriteChar(u'"');
}

// The root stands inside the object of the document.
void CJsonTextWriter::EnterElement(const WString& localName, const WString& namespaceUri) {
  PushContext(localName, namespaceUri);
  const std::int32_t depth = m_openLevels == 0 ? 1 : Top().depth + 1;
  if (m_openLevels == m_levels.size()) m_levels.emplace_back();
  ++m_openLevels;
  Top().depth = depth;
}

void CJsonTextWriter::WriteElementKey() {
  const WString& localName = Current()->GetLocalName();
  const WString& namespaceUri = Current()->GetNamespaceUri();
  m_stream->WriteChar(u'"');
  if (m_roundTrip == jrt_Full && !IsDefaultOrNone(namespaceUri)) {
    WriteAlias(namespaceUri, localName);
  }
  Write(localName);
  Write(u"\": ");
}

void CJsonTextWriter::WriteAlias(const WString& namespaceUri, const WString& name) {
  Write(RequireAlias(namespaceUri, name));
  m_stream->WriteChar(u':');
}

const WString& CJsonTextWriter::RequireAlias(const WString& namespaceUri,
                                             const WString& name) const {
  const WString* alias = Current()->FindAlias(namespaceUri);
  if (!alias) throw CTovikException(FormatString(u"Unknown Namespace: %s.", name.c_str()));
  return *alias;
}

// Gives the root's namespace an alias if it needs one and has none. Returns the namespace then,
// otherwise null.
const WString* CJsonTextWriter::MakeRootAlias() {
  CXmlWriterContext& root = *Current();
  const WString& uri = root.GetNamespaceUri();
  if (m_roundTrip != jrt_Full || IsDefaultOrNone(uri) || root.FindAlias(uri)) return nullptr;
  root.AddGeneratedAlias(uri);
  return &uri;
}

void CJsonTextWriter::WriteRootNamespaces(const WString* generatedFor) {
  const CXmlWriterContext& root = *Current();
  if (generatedFor) WriteDeclaration(u":", root.GetAlias(*generatedFor), *generatedFor);
  const WString& defaultNamespace = root.GetDefaultNamespace();
  if (!defaultNamespace.empty()) WriteDeclaration(u"", WString(), defaultNamespace);
  for (const auto& [uri, alias] : root.GetAliasMap()) {
    const bool isDeclared = generatedFor && EqualText(uri, *generatedFor);
    if (!isDeclared && uri.compare(0, kXmlNamespace.size(), kXmlNamespace) != 0) {
      WriteDeclaration(u":", alias, uri);
    }
  }
}

void CJsonTextWriter::WriteDeclaration(WStringView colon, const WString& alias,
                                       const WString& uri) {
  BeginMember();
  Write(u"\"@xmlns");
  Write(colon);
  Write(alias);
  Write(u"\": \"");
  Write(uri);
  m_stream->WriteChar(u'"');
}

// Runs before every member of the innermost element: its bare key becomes an object, or a comma
// divides the member from the one before.
void CJsonTextWriter::OpenMember() {
  switch (m_content) {
    case Content::kValue:
      throw CTovikInvalidStateException(
          FormatString(u"The element [%s] has a value and takes no other content in JSON",
                       Current()->GetLocalName().c_str()));
    case Content::kNone:
      OpenArray();
      m_stream->WriteChar(u'{');
      break;
    case Content::kObject:
      m_stream->WriteChar(u',');
      break;
  }
  m_content = Content::kObject;
  WriteLineEnd();
}

// The way to an attribute or a text beside other members.
void CJsonTextWriter::BeginMember() {
  CloseArray();
  OpenMember();
  if (m_formatted) WriteIndent(Top().depth + 1);
}

// Opens the array behind the key of its first item, if the innermost element is one.
void CJsonTextWriter::OpenArray() {
  CXmlWriterContext* parent = Current()->GetParent();
  if (!parent || parent->collectionState != kArrayBegun) return;
  parent->collectionState = kArrayOpen;
  Level& level = m_levels[m_openLevels - 2];
  level.itemName = Current()->GetLocalName();
  level.itemNamespace = Current()->GetNamespaceUri();
  m_stream->WriteChar(u'[');
  if (!m_formatted) return;
  ++level.depth;
  ++Top().depth;
  WriteLineEnd();
  WriteIndent(Top().depth);
}

// Closes the array on the innermost element, if one is open. What comes next may begin another.
void CJsonTextWriter::CloseArray() {
  if (Current()->collectionState != kArrayOpen) return;
  Current()->collectionState = kArrayBegun;
  if (m_formatted) {
    WriteLineEnd();
    WriteIndent(Top().depth--);
  }
  m_stream->WriteChar(u']');
}

// Whether a new element is the next item of the array on the innermost element. In the modes
// without namespaces a name is the local name alone.
bool CJsonTextWriter::ContinuesArray(const WString& localName, const WString& namespaceUri) const {
  if (Current()->collectionState != kArrayOpen) return false;
  const Level& level = m_levels[m_openLevels - 1];
  return EqualText(localName, level.itemName) &&
         (m_roundTrip != jrt_Full || EqualText(namespaceUri, level.itemNamespace));
}

bool CJsonTextWriter::IsDefaultOrNone(const WString& namespaceUri) const {
  return namespaceUri.empty() || EqualText(namespaceUri, Current()->GetDefaultNamespace());
}

void CJsonTextWriter::FlushIfFull() {
  if (m_stream->GetLength() >= kFlushThreshold) m_stream->Flush();
}

}  // namespace TovikXmlLib16
