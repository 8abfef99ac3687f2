#include "tovikxml/fastinfoset/reader.h"

#include <cstring>
#include <iterator>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/xml_names.h"
#include "tovikxml/fastinfoset/algorithm_codes.h"
#include "tovikxml/fastinfoset/dropped_items.h"
#include "tovikxml/fastinfoset/octet_text.h"
#include "tovikxml/fastinfoset/restricted_alphabet.h"
#include "tovikxml/settings/fastinfoset_context.h"
#include "tovikxml/settings/serialization_context.h"

namespace TovikXmlLib16 {
namespace {

constexpr unsigned kCDataAlgorithm = 10;

// The length of `prefix` if the octets begin with it and go on, otherwise 0.
std::size_t PrefixLength(const unsigned char* data, std::size_t length, const void* prefix,
                         std::size_t prefixLength) {
  const bool fits = length > prefixLength && std::memcmp(data, prefix, prefixLength) == 0;
  return fits ? prefixLength : 0;
}

// What stands in front of the optional components; 0 if the octets are of another kind.
std::size_t HeaderLength(const unsigned char* data, std::size_t length) {
  std::size_t at = 0;
  for (const std::string_view declaration : kFIDeclarations) {
    at = PrefixLength(data, length, declaration.data(), declaration.size());
    if (at != 0) break;
  }
  const std::size_t identification =
      PrefixLength(data + at, length - at, kFIIdentification, sizeof kFIIdentification);
  return identification == 0 ? 0 : at + identification;
}

template <class Entry>
Entry& EntryAt(std::vector<Entry>& table, std::uint32_t index, const wchar* what) {
  if (index > table.size()) {
    ThrowParseFailure(FormatString(u"The %s index [%u] is beyond its table.", what, index));
  }
  return table[index - 1];
}

}  // namespace

CFastInfosetReader::CFastInfosetReader(const CFastInfosetContext& context, CXmlDocument& document)
    : CInstanceMonitor(u"CFastInfosetReader"),
      m_context(context),
      m_document(document),
      m_hasQualifiedNames(context.GetQualifiedNames()),
      m_textLimit(document.m_context->GetMaxExpandedText()),
      m_textLeft(m_textLimit),
      m_tableLimit(document.m_context->GetMaxTableEntries()) {
  const bool isGenerated =
      context.GetUseGeneratedVocabulary() && !context.GetReadInitialVocabulary();
  if (context.GetRequireWellFormed()) m_wellFormedness.emplace();
  const CFIVocabulary builtIn;
  StartFrom(isGenerated ? *context.GetVocabulary() : builtIn);
}

CFastInfosetReader::~CFastInfosetReader() = default;

bool CFastInfosetReader::IsFastInfoset(const unsigned char* data, std::size_t length) {
  return HeaderLength(data, length) != 0;
}

bool CFastInfosetReader::Read(const unsigned char* data, std::size_t length) {
  const std::size_t header = HeaderLength(data, length);
  if (header == 0) return false;
  CFIOctetInput input(data + header, length - header);
  ReadOptionalComponents(input);
  ReadDocumentChildren(input);
  return true;
}

// The end of the root ends the document, or a terminator in front of it, but for that of a document
// type.
void CFastInfosetReader::ReadDocumentChildren(CFIOctetInput& input) {
  for (bool isInDocumentType = false;;) {
    const unsigned octet = input.ReadOctet();
    if (octet < 0x80) return ReadRoot(input, octet);
    if (octet == kFIDoubleTerminator || (octet == kFITerminator && !isInDocumentType)) return;
    if (octet == kFITerminator) isInDocumentType = false;
    if (octet == 0xE1) SkipProcessingInstruction(input);
    if (octet == 0xE2) SkipComment(input);
    if ((octet & 0xFC) == 0xC4) {
      SkipExternalIdentifiers(input, octet);
      isInDocumentType = true;
    }
  }
}

void CFastInfosetReader::ReadRoot(CFIOctetInput& input, unsigned octet) {
  StartElement(input, octet);
  while (HasOpenElement()) ReadContent(input, input.ReadOctet());
  if (m_wellFormedness) RequireEnd(input);
}

// What stands behind the root, to the last octet.
void CFastInfosetReader::RequireEnd(CFIOctetInput& input) {
  while (!m_isEnded) {
    const unsigned octet = input.ReadOctet();
    if (octet < 0x80) ThrowParseFailure(u"The document has two roots.");
    if (octet == 0xE1) {
      SkipProcessingInstruction(input);
    } else if (octet == 0xE2) {
      SkipComment(input);
    } else if (octet == kFITerminator) {
      m_isEnded = true;
    } else {
      ThrowParseFailure(u"Invalid Encoding of Document type.");
    }
  }
  if (!input.IsAtEnd()) ThrowParseFailure(u"The document has octets behind its end.");
}

void CFastInfosetReader::ReadContent(CFIOctetInput& input, unsigned octet) {
  if (octet < 0x80) return StartElement(input, octet);
  if (octet < 0xC0) return ReadCharacterChunk(input, octet);
  if (octet == kFITerminator) return m_document.CloseElement();
  if (octet == kFIDoubleTerminator) {
    m_document.CloseElement();
    // The second half is the end of the document behind the root.
    m_isEnded = !HasOpenElement();
    if (!m_isEnded) m_document.CloseElement();
    return;
  }
  if (octet == 0xE1) return SkipProcessingInstruction(input);
  if (octet == 0xE2) return SkipComment(input);
  if ((octet & 0xFC) == 0xC8) return ReadEntityReference(input, octet);
  ThrowParseFailure(u"Invalid Encoding of Element type.");
}

// The text of the entity has no place in the document, but that it is missing is told.
void CFastInfosetReader::ReadEntityReference(CFIOctetInput& input, unsigned octet) {
  WString name;
  const unsigned first = input.ReadOctet();
  if (first >= 0x80) {
    name = FormatString(u"#%u", input.ReadIndex(kFIIndexBit2, first));
  } else {
    AppendUtf8(name, input.ReadString(kFILengthBit2, first));
  }
  SkipExternalIdentifiers(input, octet);
  if (m_document.m_unreadEntity.empty()) m_document.m_unreadEntity = name;
}

void CFastInfosetReader::StartElement(CFIOctetInput& input, unsigned octet) {
  const bool hasAttributes = (octet & 0x40) != 0;
  if ((octet & 0x3C) == 0x38) octet = ReadNamespaces(input);
  const bool isLiteral = (octet & 0x3C) == 0x3C;
  m_document.AddElement(isLiteral
                            ? ReadLiteralName(input, octet, m_elementNames)
                            : ResolveName(m_elementNames, input.ReadIndex(kFIIndexBit3, octet)));
  if (!m_declarations.empty()) AddDeclarations();
  const unsigned end = hasAttributes ? ReadAttributes(input) : kFITerminator;
  if (m_wellFormedness) m_wellFormedness->RequireDistinctAttributes(*m_document.TopElement());
  // A double terminator ends the attributes and this element alone.
  if (end == kFIDoubleTerminator) m_document.CloseElement();
}

// Gives the octet that identifies the name, which stands behind the terminator.
unsigned CFastInfosetReader::ReadNamespaces(CFIOctetInput& input) {
  unsigned octet = input.ReadOctet();
  for (; (octet & 0xFC) == 0xCC; octet = input.ReadOctet()) ReadNamespaceAttribute(input, octet);
  return input.ReadOctet();
}

void CFastInfosetReader::ReadNamespaceAttribute(CFIOctetInput& input, unsigned octet) {
  NamePart prefix{&EmptyText(), 0};
  NamePart uri{&EmptyText(), 0};
  if (octet & 0x02) prefix = ReadNamePart(input, m_prefixNames, m_prefix);
  if (octet & 0x01) uri = ReadNamePart(input, m_namespaceNames, m_namespace);
  CountText(prefix.text->size());
  AdmitText(*uri.text);
  if (m_wellFormedness && (octet & 0x02)) m_wellFormedness->RequireName(*prefix.text);
  m_document.BindAlias(*prefix.text, *uri.text);
  if (m_hasQualifiedNames) m_declarations.emplace_back(*prefix.text, *uri.text);
}

void CFastInfosetReader::AddDeclarations() {
  for (const auto& [prefix, uri] : m_declarations) {
    m_qualifiedName = prefix.empty() ? u"xmlns" : u"xmlns:" + prefix;
    CountText(m_qualifiedName.size());
    m_document.AddElementAttribute(m_document.TopElement(),
                                   m_document.KeepName(kXmlnsNamespace, m_qualifiedName), uri);
  }
  m_declarations.clear();
}

// Gives the octet behind the attributes: any of 80 and above ends them.
unsigned CFastInfosetReader::ReadAttributes(CFIOctetInput& input) {
  unsigned octet = input.ReadOctet();
  for (; octet < 0x80; octet = input.ReadOctet()) ReadAttribute(input, octet);
  return octet;
}

void CFastInfosetReader::ReadAttribute(CFIOctetInput& input, unsigned octet) {
  const bool isLiteral = (octet & 0x78) == 0x78;
  const CXmlName* name = isLiteral
                             ? ReadLiteralName(input, octet, m_attributeNames)
                             : ResolveName(m_attributeNames, input.ReadIndex(kFIIndexBit2, octet));
  const WStringView value = ReadAttributeValue(input);
  AdmitText(value);
  m_document.AddElementAttribute(m_document.TopElement(), name, value);
}

WStringView CFastInfosetReader::ReadAttributeValue(CFIOctetInput& input) {
  const unsigned octet = input.ReadOctet();
  if (octet >= 0x80) {
    const std::uint32_t index = input.ReadIndexOrZero(octet);
    return index == 0 ? EmptyText() : EntryAt(m_attributeValues, index, u"attribute value");
  }
  ReadEncodedString(input, kFIStringBit3, octet);
  if (octet & 0x40) AddTo(m_attributeValues, m_value);
  return m_value;
}

void CFastInfosetReader::ReadCharacterChunk(CFIOctetInput& input, unsigned octet) {
  if (octet & 0x20) {
    const std::uint32_t index = input.ReadIndex(kFIIndexBit4, octet);
    const WString& text = EntryAt(m_characterChunks, index, u"character chunk");
    AdmitText(text);
    return m_document.AppendTextExcludingCR(text);
  }
  const bool isAdded = (octet & 0x10) != 0;
  if ((octet & kFIStringBit5.formMask) == 0) return ReadUtf8Chunk(input, octet, isAdded);
  ReadEncodedString(input, kFIStringBit5, octet);
  AppendValue(isAdded);
}

void CFastInfosetReader::ReadUtf8Chunk(CFIOctetInput& input, unsigned octet, bool isAdded) {
  const CFIOctetInput::Octets octets = input.ReadString(kFILengthBit7, octet);
  m_value.clear();
  if (!AppendPlainText(m_value, octets)) {
    m_value.clear();
    AppendUtf8(m_value, octets);
    return AppendValue(isAdded);
  }
  AdmitText(m_value);
  m_document.AppendText(m_value);
  if (isAdded) AddTo(m_characterChunks, m_value);
}

void CFastInfosetReader::AppendValue(bool isAdded) {
  AdmitText(m_value);
  m_document.AppendTextExcludingCR(m_value);
  if (isAdded) AddTo(m_characterChunks, m_value);
}

void CFastInfosetReader::RequireNamespaceOfPrefix(bool hasPrefix, bool hasNamespace) {
  if (hasPrefix && !hasNamespace) {
    ThrowParseFailure(u"Invalid QName type Prefix without Namespace.");
  }
}

const CXmlName* CFastInfosetReader::ReadLiteralName(CFIOctetInput& input, unsigned octet,
                                                    QNameTable& table) {
  const bool hasPrefix = (octet & 0x02) != 0;
  const bool hasNamespace = (octet & 0x01) != 0;
  RequireNamespaceOfPrefix(hasPrefix, hasNamespace);
  NamePart prefix{&EmptyText(), 0};
  NamePart uri{&EmptyText(), 0};
  if (hasPrefix) prefix = ReadNamePart(input, m_prefixNames, m_prefix);
  if (hasNamespace) uri = ReadNamePart(input, m_namespaceNames, m_namespace);
  const NamePart local = ReadNamePart(input, m_localNames, m_localName);
  const CXmlName* name = KeepName(*prefix.text, *uri.text, *local.text);
  // A part that found its table full has no index, and so has the name.
  const bool isComplete =
      (!hasPrefix || prefix.index != 0) && (!hasNamespace || uri.index != 0) && local.index != 0;
  if (isComplete) AddTo(table, QName{name, prefix.index, uri.index, local.index});
  return name;
}

const CXmlName* CFastInfosetReader::ResolveName(QNameTable& table, std::uint32_t index) {
  QName& entry = EntryAt(table, index, &table == &m_elementNames ? u"element" : u"attribute");
  if (!entry.name) {
    const WString& uri = entry.namespaceIndex == 0
                             ? EmptyText()
                             : EntryAt(m_namespaceNames, entry.namespaceIndex, u"namespace name");
    const WString& local = EntryAt(m_localNames, entry.localIndex, u"local name");
    const bool hasPrefix = m_hasQualifiedNames && entry.prefixIndex != 0;
    entry.name = KeepName(
        hasPrefix ? EntryAt(m_prefixNames, entry.prefixIndex, u"prefix") : EmptyText(), uri, local);
  }
  return entry.name;
}

const CXmlName* CFastInfosetReader::KeepName(const WString& prefix, const WString& namespaceUri,
                                             const WString& localName) {
  AdmitText(namespaceUri);
  CountText(localName.size());
  if (m_wellFormedness) m_wellFormedness->RequireName(localName);
  if (!m_hasQualifiedNames || prefix.empty()) return m_document.KeepName(namespaceUri, localName);
  if (m_wellFormedness) m_wellFormedness->RequireName(prefix);
  CountText(prefix.size() + 1);
  m_qualifiedName.assign(prefix).append(u":").append(localName);
  return m_document.KeepName(namespaceUri, m_qualifiedName);
}

CFastInfosetReader::NamePart CFastInfosetReader::ReadNamePart(CFIOctetInput& input,
                                                              StringTable& table,
                                                              WString& literal) {
  const unsigned octet = input.ReadOctet();
  if (octet >= 0x80) {
    const std::uint32_t index = input.ReadIndex(kFIIndexBit2, octet);
    return {&EntryAt(table, index, u"name"), index};
  }
  literal.clear();
  AppendUtf8(literal, input.ReadString(kFILengthBit2, octet));
  if (!AddTo(table, literal)) return {&literal, 0};
  return {&table.back(), static_cast<std::uint32_t>(table.size())};
}

// Leaves the text in `m_value`.
void CFastInfosetReader::ReadEncodedString(CFIOctetInput& input, const FIStringCode& code,
                                           unsigned octet) {
  m_value.clear();
  const unsigned form = octet & code.formMask;
  if (form == 0) return AppendUtf8(m_value, input.ReadString(*code.length, octet));
  if (form == code.utf16Form) return AppendUtf16(m_value, input.ReadString(*code.length, octet));
  const unsigned second = input.ReadOctet();
  const unsigned lowMask = (code.utf16Form - 1);
  const unsigned index = ((octet & lowMask) << code.shift | second >> (8 - code.shift)) + 1;
  const CFIOctetInput::Octets octets = input.ReadString(*code.length, second);
  if (form == code.alphabetForm) {
    if (index > std::size(kFIAlphabets)) {
      ThrowParseFailure(FormatString(u"The alphabet index [%u] is beyond its table.", index));
    }
    AppendOverAlphabet(m_value, kFIAlphabets[index - 1], octets.data, octets.length);
  } else if (index == kCDataAlgorithm) {
    AppendUtf8(m_value, octets);
  } else {
    AppendDecoded(m_value, index, octets.data, octets.length, m_textLeft / sizeof(wchar));
  }
}

// Counts what goes into the tree before it does.
void CFastInfosetReader::CountText(std::size_t units) {
  const std::uint64_t bytes = std::uint64_t{units} * sizeof(wchar);
  if (bytes > m_textLeft) {
    ThrowParseFailure(FormatString(u"The text exceeds the limit of %llu bytes.",
                                   static_cast<unsigned long long>(m_textLimit)));
  }
  m_textLeft -= bytes;
}

// What a value or a namespace brings into the tree.
void CFastInfosetReader::AdmitText(WStringView text) {
  CountText(text.size());
  if (m_wellFormedness) CFIWellFormedness::RequireText(text);
}

bool CFastInfosetReader::HasOpenElement() const {
  return m_document.TopElement() != nullptr;
}

}  // namespace TovikXmlLib16
