#include "tovikxml/fastinfoset/writer.h"

#include <iterator>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/xml_names.h"
#include "tovikxml/fastinfoset/algorithm_codes.h"
#include "tovikxml/fastinfoset/encoding_algorithms.h"
#include "tovikxml/fastinfoset/restricted_alphabet.h"
#include "tovikxml/fastinfoset/vocabulary_tables.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::uint32_t kAlgorithmCount = 10;

bool HasPrefix(const WString& name) {
  return name.find(u':') != WString::npos;
}

}  // namespace

/// Where a value stands, and the high bits of its three ways: by index, entering the table, or
/// passing it by.
struct FIValuePlace {
  const FIStringCode& string;
  const FIIndexCode& index;
  unsigned indexBits;
  unsigned addBits;
  unsigned plainBits;
  const wchar* operation;
};

namespace {

constexpr FIValuePlace kAttributeValue{kFIStringBit3, kFIIndexBit2, 0x80,
                                       0x40,          0x00,         u"EncodedCharacterStringBit5"};
constexpr FIValuePlace kCharacterChunk{kFIStringBit5, kFIIndexBit4, 0xA0,
                                       0x90,          0x80,         u"EncodedCharacterStringBit7"};

}  // namespace

// The octets of a literal name: with a prefix and namespace, with a namespace, with neither.
struct CFastInfosetWriter::NameForm {
  CFIIndexedNames CFITables::*names;
  CFINameMemory CFastInfosetWriter::*memory;
  const FIIndexCode& index;
  unsigned prefixed;
  unsigned inNamespace;
  unsigned plain;

  static const NameForm kElement;
  static const NameForm kAttribute;
};

const CFastInfosetWriter::NameForm CFastInfosetWriter::NameForm::kElement{
    &CFITables::elementNames, &CFastInfosetWriter::m_elementNames, kFIIndexBit3, 0x3F, 0x3D, 0x3C};
const CFastInfosetWriter::NameForm CFastInfosetWriter::NameForm::kAttribute{
    &CFITables::attributeNames,
    &CFastInfosetWriter::m_attributeNames,
    kFIIndexBit2,
    0x7B,
    0x79,
    0x78};

CFastInfosetWriter::CFastInfosetWriter(const CFastInfosetContext& context, CBinaryStream* stream)
    : CXmlWriter(u"CFastInfosetWriter"),
      m_output(stream),
      m_context(context),
      m_tables(*m_vocabulary.m_tables),
      m_hasQualifiedNames(context.GetQualifiedNames()) {
  if (context.GetUseGeneratedVocabulary()) m_vocabulary = *context.GetVocabulary();
}

CFastInfosetWriter::~CFastInfosetWriter() = default;

void CFastInfosetWriter::Close() {
  m_output.Flush();
  CXmlWriter::Close();
}

void CFastInfosetWriter::WriteStartDocument(FInfoDecl declaration) {
  const int number = declaration;
  if (number < 0 || number > static_cast<int>(std::size(kFIDeclarations))) {
    throw CTovikInvalidParamException(
        FormatString(u"Invalid Fast Infoset declaration [%d]", number));
  }
  if (number != fid_None) {
    const std::string_view text = kFIDeclarations[number - 1];
    m_output.PutOctets(text.data(), text.size());
  }
  m_output.PutOctets(kFIIdentification, sizeof kFIIdentification);
  if (!m_context.GetUseGeneratedVocabulary()) return m_output.Put(0x00);
  // One optional component, the initial vocabulary, and in it only an external vocabulary.
  for (const unsigned octet : {0x20u, 0x10u, 0x00u}) m_output.Put(octet);
  const WString uri = m_context.GetExternalVocabularyURI();
  m_output.PutText(kFILengthBit2, 0x00, uri.empty() ? kFIDefaultVocabularyUri : WStringView(uri));
}

void CFastInfosetWriter::WriteEndDocument() {
  m_output.Put(m_isTerminatorPending ? kFIDoubleTerminator : kFITerminator);
  m_isTerminatorPending = false;
  m_output.Flush();
}

void CFastInfosetWriter::WriteComment(const WString& /*text*/) {}

void CFastInfosetWriter::WriteProcessingInstruction(const WString& /*text*/) {
  WriteElementHeader(false);
}

void CFastInfosetWriter::WriteInlineSchema(const WString& /*text*/) {}

void CFastInfosetWriter::WriteStartElement(const WString& localName, const WString& namespaceUri) {
  WriteElementHeader(false);
  WritePendingTerminator();
  if (Current()) {
    ++Current()->childCount;
    CloseStartTag();
  }
  PushContext(localName, namespaceUri);
  m_isHeaderPending = true;
}

void CFastInfosetWriter::WriteText(const WString& value, ItemType itemType) {
  WriteElementHeader(false);
  CloseStartTag();
  if (value.empty()) return;
  WritePendingTerminator();
  WriteValue(kCharacterChunk, m_tables.characterChunks, m_context.GetElementMaxAddLength(), value,
             itemType);
}

void CFastInfosetWriter::WriteEndElement() {
  WriteElementHeader(false);
  CloseStartTag();
  if (m_isTerminatorPending) m_output.Put(kFIDoubleTerminator);
  m_isTerminatorPending = !m_isTerminatorPending;
  PopContext();
}

void CFastInfosetWriter::WriteAttribute(const WString& localName, const WString& namespaceUri,
                                        const WString& value, ItemType itemType) {
  if (m_hasQualifiedNames && EqualText(namespaceUri, kXmlnsNamespace)) {
    return DeclareNamespace(localName, value);
  }
  BeginAttribute();
  if (m_hasQualifiedNames && HasPrefix(localName)) {
    WritePrefixedName(NameForm::kAttribute, 0, namespaceUri, localName);
  } else {
    const WString& alias = namespaceUri.empty() ? EmptyText() : AliasFor(namespaceUri);
    WriteQualifiedName(NameForm::kAttribute, 0, alias, namespaceUri, localName);
  }
  WriteAttributeValue(value, itemType);
}

void CFastInfosetWriter::WriteXsiType(const WString& typeNamespaceUri, const WString& typeName,
                                      ItemType itemType) {
  BeginAttribute();
  if (typeNamespaceUri.empty() || typeNamespaceUri == Current()->GetDefaultNamespace()) {
    return WriteAttribute(u"type", XsiNamespace(), typeName, itemType);
  }
  // The prefix of the attribute's own name is that of the type, too.
  const WString& alias = AliasFor(typeNamespaceUri);
  WriteQualifiedName(NameForm::kAttribute, 0, alias, XsiNamespace(), u"type");
  WriteAttributeValue(alias + u":" + typeName, itemType);
}

void CFastInfosetWriter::WriteXsiNil() {
  BeginAttribute();
  WriteAttribute(u"nil", XsiNamespace(), u"true", it_boolean);
}

// The first octet of the element, its namespaces, and the name.
void CFastInfosetWriter::WriteElementHeader(bool hasAttributes) {
  if (!m_isHeaderPending) return;
  m_isHeaderPending = false;
  CXmlWriterContext& element = *Current();
  element.hasAttributes = hasAttributes;
  unsigned bits = hasAttributes ? 0x40 : 0x00;
  const bool isRoot = element.GetDepth() == 0;
  if (isRoot || !m_declarations.empty()) {
    m_output.Put(bits + 0x38);
    bits = 0;
    if (isRoot) WriteRootNamespaces();
    for (const auto& [prefix, uri] : m_declarations) WriteNamespace(prefix, uri);
    m_declarations.clear();
    m_output.Put(kFITerminator);
  }
  const WString& uri = element.GetNamespaceUri();
  const WString& name = element.GetLocalName();
  if (m_hasQualifiedNames && HasPrefix(name)) {
    return WritePrefixedName(NameForm::kElement, bits, uri, name);
  }
  const bool needsAlias =
      !uri.empty() && !m_hasQualifiedNames && !EqualText(uri, element.GetDefaultNamespace());
  WriteQualifiedName(NameForm::kElement, bits, needsAlias ? AliasFor(uri) : EmptyText(), uri, name);
}

void CFastInfosetWriter::WriteRootNamespaces() {
  const CXmlWriterContext& root = *Current();
  if (!root.GetDefaultNamespace().empty()) WriteNamespace(EmptyText(), root.GetDefaultNamespace());
  for (const auto& [uri, alias] : root.GetAliasMap()) {
    if (uri.compare(0, kXmlNamespace.size(), kXmlNamespace) != 0) WriteNamespace(alias, uri);
  }
}

void CFastInfosetWriter::WriteNamespace(const WString& prefix, const WString& namespaceUri) {
  m_output.Put(0xCC + (prefix.empty() ? 0u : 2u) + (namespaceUri.empty() ? 0u : 1u));
  if (!prefix.empty()) WriteIdentifyingString(m_tables.prefixNames, prefix);
  if (!namespaceUri.empty()) WriteIdentifyingString(m_tables.namespaceNames, namespaceUri);
}

// Takes "xmlns" or "xmlns:" with a prefix behind it.
void CFastInfosetWriter::DeclareNamespace(const WString& name, const WString& namespaceUri) {
  if (!m_isHeaderPending) {
    throw CTovikException(u"Namespaces must be declared before attributes and elements");
  }
  const std::size_t colon = name.find(u':');
  m_declarations.emplace_back(colon == WString::npos ? EmptyText() : name.substr(colon + 1),
                              namespaceUri);
}

// An element whose first octet is written without the attribute bit takes none any more.
void CFastInfosetWriter::BeginAttribute() {
  WriteElementHeader(true);
  if (!Current()->hasAttributes) Current()->startTagOpen = false;
  RequireOpenStartTag();
}

void CFastInfosetWriter::CloseStartTag() {
  CXmlWriterContext& element = *Current();
  if (!element.startTagOpen) return;
  element.startTagOpen = false;
  if (element.hasAttributes) m_output.Put(kFITerminator);
}

void CFastInfosetWriter::WritePendingTerminator() {
  if (m_isTerminatorPending) m_output.Put(kFITerminator);
  m_isTerminatorPending = false;
}

// A generated alias is not declared: the literal name carries prefix and namespace.
const WString& CFastInfosetWriter::AliasFor(const WString& namespaceUri) {
  CXmlWriterContext& element = *Current();
  if (const WString* alias = element.FindAlias(namespaceUri)) return *alias;
  return element.AddGeneratedAlias(namespaceUri);
}

void CFastInfosetWriter::WriteIdentifyingString(CFIIndexedStrings& table, const WString& text) {
  std::uint32_t index = table.Find(text);
  WriteIdentifyingString(table, text, index);
}

// An index of 0 stands for a new string; it becomes what the table gives it.
void CFastInfosetWriter::WriteIdentifyingString(CFIIndexedStrings& table, const WString& text,
                                                std::uint32_t& index) {
  if (index != 0) return m_output.PutIndex(kFIIndexBit2, 0x80, index);
  m_output.PutText(kFILengthBit2, 0x00, text);
  index = table.Add(text);
}

// Takes a local name that carries its prefix.
void CFastInfosetWriter::WritePrefixedName(const NameForm& form, unsigned bits,
                                           const WString& namespaceUri, const WString& name) {
  if (namespaceUri.empty()) {
    throw CTovikException(FormatString(
        u"Failed to write FastInfoset. The prefix of [%s] has no namespace.", name.c_str()));
  }
  const std::size_t colon = name.find(u':');
  m_prefix.assign(name, 0, colon);
  m_localName.assign(name, colon + 1);
  WriteQualifiedName(form, bits, m_prefix, namespaceUri, m_localName);
}

void CFastInfosetWriter::WriteQualifiedName(const NameForm& form, unsigned bits,
                                            const WString& prefix, const WString& namespaceUri,
                                            const WString& localName) {
  CFINameMemory& memory = this->*form.memory;
  std::uint32_t index = memory.Recall(prefix, namespaceUri, localName);
  if (index != 0) return m_output.PutIndex(form.index, bits, index);
  CFIIndexedNames& names = m_tables.*form.names;
  CFINameKey key = m_tables.FindName(prefix, namespaceUri, localName);
  if (key.isComplete) index = names.Find(key);
  if (index != 0) {
    memory.Remember(index, prefix, namespaceUri, localName);
    return m_output.PutIndex(form.index, bits, index);
  }
  const unsigned literal = !prefix.empty()         ? form.prefixed
                           : !namespaceUri.empty() ? form.inNamespace
                                                   : form.plain;
  m_output.Put(bits + literal);
  key.isComplete = true;
  if (!prefix.empty()) WriteNamePart(m_tables.prefixNames, prefix, key.prefix, key);
  if (!namespaceUri.empty()) {
    WriteNamePart(m_tables.namespaceNames, namespaceUri, key.namespaceName, key);
  }
  WriteNamePart(m_tables.localNames, localName, key.localName, key);
  // A part that found its table full has no index, and so has the name.
  if (key.isComplete) names.Add(key);
}

void CFastInfosetWriter::WriteNamePart(CFIIndexedStrings& table, const WString& text,
                                       std::uint32_t& index, CFINameKey& key) {
  WriteIdentifyingString(table, text, index);
  if (index == 0) key.isComplete = false;
}

void CFastInfosetWriter::WriteAttributeValue(const WString& value, ItemType itemType) {
  // The index 0 stands for the empty string.
  if (value.empty()) return m_output.Put(0xFF);
  WriteValue(kAttributeValue, m_tables.attributeValues, m_context.GetAttributeMaxAddLength(), value,
             itemType);
}

void CFastInfosetWriter::WriteValue(const FIValuePlace& place, CFIIndexedStrings& table,
                                    unsigned long maxAddLength, const WString& value,
                                    ItemType itemType) {
  if (value.size() >= maxAddLength) {
    return WriteEncodedString(place, place.plainBits, value, itemType);
  }
  const std::uint32_t index = table.Find(value);
  if (index != 0) return m_output.PutIndex(place.index, place.indexBits, index);
  WriteEncodedString(place, table.IsFull() ? place.plainBits : place.addBits, value, itemType);
  table.Add(value);
}

void CFastInfosetWriter::WriteEncodedString(const FIValuePlace& place, unsigned bits,
                                            const WString& value, ItemType itemType) {
  const auto encoding = m_context.GetEncoding(static_cast<unsigned long>(itemType));
  switch (encoding.kind) {
    case CFastInfosetContext::ces_Default:
      return m_output.PutText(*place.string.length, bits, value);
    case CFastInfosetContext::ces_RestrictedAlphabet:
      return WriteOverAlphabet(place, bits, encoding.index, value);
    case CFastInfosetContext::ces_EncodingAlgorithm:
      return WriteByAlgorithm(place, bits, encoding.index, value);
  }
  throw CTovikException(
      FormatString(u"Failed to write FastInfoset. Unknown encoding in %s.", place.operation));
}

void CFastInfosetWriter::WriteOverAlphabet(const FIValuePlace& place, unsigned bits,
                                           std::uint32_t index, const WString& value) {
  if (index < 1 || index > std::size(kFIAlphabets)) {
    throw CTovikException(
        FormatString(u"Failed to write FastInfoset. Invalid Restricted Alphabet value [%d]",
                     static_cast<int>(index)));
  }
  const std::vector<unsigned char> octets = EncodeOverAlphabet(kFIAlphabets[index - 1], value);
  const FIStringCode& code = place.string;
  m_output.Put(bits + code.alphabetForm + ((index - 1) >> code.shift));
  m_output.PutString(*code.length, (index - 1) << (8 - code.shift) & 0xFF, octets.data(),
                     octets.size());
}

void CFastInfosetWriter::WriteByAlgorithm(const FIValuePlace& place, unsigned bits,
                                          std::uint32_t index, const WString& value) {
  if (index < 1 || index > kAlgorithmCount) {
    throw CTovikException(
        FormatString(u"Failed to write FastInfoset. Invalid Encoding Algorithm value [%d]",
                     static_cast<int>(index)));
  }
  const FIStringCode& code = place.string;
  const auto put = [&](const void* data, std::size_t length) {
    m_output.Put(bits + code.algorithmForm + ((index - 1) >> code.shift));
    m_output.PutString(*code.length, (index - 1) << (8 - code.shift) & 0xFF, data, length);
  };
  if (HasValueOctets(index)) {
    const CFIValueOctets octets = EncodeValue(index, value);
    return put(octets.octets.data(), octets.length);
  }
  CFastInfosetBinaryData octets;
  octets.SetAsEncodedString(index, value.c_str());
  put(octets.GetData(), octets.GetLength());
}

}  // namespace TovikXmlLib16
