#include "tovikxml/base/format_string.h"
#include "tovikxml/fastinfoset/dropped_items.h"
#include "tovikxml/fastinfoset/octet_text.h"
#include "tovikxml/fastinfoset/reader.h"
#include "tovikxml/settings/fastinfoset_context.h"

// The header of a document and the tables that the reader starts with.
namespace TovikXmlLib16 {
namespace {

template <class Table>
std::vector<WString> StringsOf(const Table& table) {
  return {table.begin(), table.end()};
}

// An octet string behind a padding bit, as text.
WString ReadText(CFIOctetInput& input) {
  WString text;
  AppendUtf8(text, input.ReadString(kFILengthBit2, input.ReadOctet()));
  return text;
}

}  // namespace

void CFastInfosetReader::StartFrom(const CFIVocabulary& vocabulary) {
  m_prefixNames = StringsOf(vocabulary.GetPrefixNamesTable());
  m_namespaceNames = StringsOf(vocabulary.GetNamespaceNamesTable());
  m_localNames = StringsOf(vocabulary.GetLocalNamesTable());
  m_attributeValues = StringsOf(vocabulary.GetAttributeValuesTable());
  m_characterChunks = StringsOf(vocabulary.GetCharacterChunksTable());
  const auto fill = [](QNameTable& table, const CFIVocabulary::CFIQNameTable& names) {
    for (const CFIVocabulary::CQNameParts& parts : names) {
      table.push_back({nullptr, static_cast<std::uint32_t>(parts.prefixIndex),
                       static_cast<std::uint32_t>(parts.namespaceIndex),
                       static_cast<std::uint32_t>(parts.localNameIndex)});
    }
  };
  fill(m_elementNames, vocabulary.GetElementNamesTable());
  fill(m_attributeNames, vocabulary.GetAttributeNamesTable());
}

void CFastInfosetReader::ThrowTableLimit() const {
  ThrowParseFailure(FormatString(u"A table exceeds the limit of %u entries.", m_tableLimit));
}

void CFastInfosetReader::ReadOptionalComponents(CFIOctetInput& input) {
  const unsigned presence = input.ReadOctet();
  if (presence & kFIAdditionalData) SkipAdditionalData(input);
  if (presence & kFIInitialVocabulary) {
    if (m_context.GetReadInitialVocabulary()) {
      ReadInitialVocabulary(input);
    } else {
      SkipInitialVocabulary(input);
    }
  }
  SkipComponentsBehindVocabulary(input, presence);
}

// The lists go behind what the external vocabulary has (7.2.14). Those whose strings have no place
// in the tree are passed over, and so are alphabets and encoding algorithms: a value that needs
// other than the built-in ones is refused.
void CFastInfosetReader::ReadInitialVocabulary(CFIOctetInput& input) {
  const unsigned presence = input.ReadBigEndian(2);
  unsigned bit = kFIExternalVocabulary;
  if (presence & bit) TakeExternalVocabulary(input);
  const auto forEachOfNext = [&](auto read) {
    bit >>= 1;
    if (!(presence & bit)) return;
    for (std::uint32_t left = input.ReadSequenceLength(); left > 0; --left) read();
  };
  const auto readNames = [&](StringTable& table) {
    forEachOfNext([&] {
      const WString text = ReadText(input);
      CountText(text.size());
      AddTo(table, text);
    });
  };
  const auto readValues = [&](StringTable& table) {
    forEachOfNext([&] {
      ReadEncodedString(input, kFIStringBit3, input.ReadOctet());
      CountText(m_value.size());
      AddTo(table, m_value);
    });
  };
  const auto skip = [&] { SkipOctetString(input); };

  forEachOfNext(skip);  // restricted alphabets
  forEachOfNext(skip);  // encoding algorithms
  readNames(m_prefixNames);
  readNames(m_namespaceNames);
  readNames(m_localNames);
  forEachOfNext(skip);  // other names
  forEachOfNext(skip);  // other URIs
  readValues(m_attributeValues);
  readValues(m_characterChunks);
  forEachOfNext([&] { SkipEncodedString(input); });  // other strings
  forEachOfNext([&] { AddTo(m_elementNames, ReadNameSurrogate(input)); });
  forEachOfNext([&] { AddTo(m_attributeNames, ReadNameSurrogate(input)); });
}

void CFastInfosetReader::TakeExternalVocabulary(CFIOctetInput& input) {
  const WString uri = ReadText(input);
  const WString known = m_context.GetExternalVocabularyURI();
  if (!m_context.GetUseGeneratedVocabulary() ||
      uri != (known.empty() ? kFIDefaultVocabularyUri : WStringView(known))) {
    ThrowParseFailure(FormatString(u"The external vocabulary [%s] is not known.", uri.c_str()));
  }
  StartFrom(*m_context.GetVocabulary());
}

// A name as the indexes of its parts (C.16).
CFastInfosetReader::QName CFastInfosetReader::ReadNameSurrogate(CFIOctetInput& input) {
  const unsigned octet = input.ReadOctet();
  const auto readIndex = [&] { return input.ReadIndex(kFIIndexBit2, input.ReadOctet()); };
  const bool hasPrefix = (octet & 0x02) != 0;
  const bool hasNamespace = (octet & 0x01) != 0;
  RequireNamespaceOfPrefix(hasPrefix, hasNamespace);
  QName name{nullptr, 0, 0, 0};
  if (hasPrefix) name.prefixIndex = readIndex();
  if (hasNamespace) name.namespaceIndex = readIndex();
  name.localIndex = readIndex();
  return name;
}

}  // namespace TovikXmlLib16
