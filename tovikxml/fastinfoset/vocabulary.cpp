#include "tovikxml/fastinfoset/vocabulary.h"

#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/document/xml_names.h"
#include "tovikxml/fastinfoset/vocabulary_tables.h"

namespace TovikXmlLib16 {
namespace {

void AddTo(CFIIndexedStrings& table, WString text) {
  if (table.Add(std::move(text)) == 0) {
    throw CTovikInvalidStateException(u"The vocabulary table is full");
  }
}

}  // namespace

CFIVocabulary::CFIVocabulary() : m_tables(std::make_unique<CFITables>()) {
  AddPrefixName(u"xml");
  AddNamespaceName(WString(kXmlNamespace));
}

CFIVocabulary::CFIVocabulary(const CFIVocabulary& other)
    : m_tables(std::make_unique<CFITables>(*other.m_tables)) {}

CFIVocabulary& CFIVocabulary::operator=(const CFIVocabulary& other) {
  if (this != &other) *m_tables = *other.m_tables;
  return *this;
}

CFIVocabulary::~CFIVocabulary() = default;

void CFIVocabulary::AddPrefixName(WString name) {
  AddTo(m_tables->prefixNames, std::move(name));
}

void CFIVocabulary::AddNamespaceName(WString name) {
  AddTo(m_tables->namespaceNames, std::move(name));
}

void CFIVocabulary::AddLocalName(WString name) {
  AddTo(m_tables->localNames, std::move(name));
}

void CFIVocabulary::AddAttributeValue(WString value) {
  AddTo(m_tables->attributeValues, std::move(value));
}

void CFIVocabulary::AddElementValue(WString value) {
  AddTo(m_tables->characterChunks, std::move(value));
}

void CFIVocabulary::AddAttribute(WString prefix, WString namespaceName, WString localName) {
  m_tables->AddName(m_tables->attributeNames, std::move(prefix), std::move(namespaceName),
                    std::move(localName));
}

void CFIVocabulary::AddElement(WString prefix, WString namespaceName, WString localName) {
  m_tables->AddName(m_tables->elementNames, std::move(prefix), std::move(namespaceName),
                    std::move(localName));
}

const CFIVocabulary::CFIQNameTable& CFIVocabulary::GetAttributeNamesTable() const {
  return m_tables->attributeNames.GetTable();
}

const CFIVocabulary::CFIStringTable& CFIVocabulary::GetAttributeValuesTable() const {
  return m_tables->attributeValues.GetTable();
}

const CFIVocabulary::CFIStringTable& CFIVocabulary::GetCharacterChunksTable() const {
  return m_tables->characterChunks.GetTable();
}

const CFIVocabulary::CFIQNameTable& CFIVocabulary::GetElementNamesTable() const {
  return m_tables->elementNames.GetTable();
}

const CFIVocabulary::CFIStringTable& CFIVocabulary::GetLocalNamesTable() const {
  return m_tables->localNames.GetTable();
}

const CFIVocabulary::CFIStringTable& CFIVocabulary::GetNamespaceNamesTable() const {
  return m_tables->namespaceNames.GetTable();
}

const CFIVocabulary::CFIStringTable& CFIVocabulary::GetPrefixNamesTable() const {
  return m_tables->prefixNames.GetTable();
}

}  // namespace TovikXmlLib16
