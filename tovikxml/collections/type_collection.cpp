#include "tovikxml/collections/type_collection.h"

#include <limits>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/borrowed_text.h"
#include "tovikxml/document/document.h"

namespace TovikXmlLib16 {

CXmlTypeCollection::CXmlTypeCollection(ItemType itemType, const wchar* elementName,
                                       const wchar* namespaceUri, int minOccurs, int maxOccurs,
                                       const wchar* pattern, long minLength, long maxLength,
                                       const wchar* minInclusive, const wchar* maxInclusive,
                                       const wchar* minExclusive, const wchar* maxExclusive,
                                       long length, long totalDigits, long fractionDigits,
                                       CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                       const wchar* format)
    : CXmlCollectionBase(elementName, namespaceUri, minOccurs, maxOccurs),
      m_restrictions(pattern, minLength, maxLength, minInclusive, maxInclusive, minExclusive,
                     maxExclusive, length, totalDigits, fractionDigits),
      m_itemType(itemType),
      m_format(TextOf(format)),
      m_whitespaceRule(whitespaceRule) {}

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* firstChild,
                                             const CSerializationContext& context,
                                             bool /*isOptionalChoice*/) {
  const WString name = GetElementName();
  const WString uri = GetNamespace();
  CXmlElement* element = firstChild;
  while (element && DoesElementNameMatch(context, element, name.c_str(), uri.c_str())) {
    AddFromString(BorrowText(*element));
    element = element->GetNextSiblingElement();
  }
  return element;
}

void CXmlTypeCollection::RequireItem(int index) const {
  const int count = GetCount();
  if (index >= 0 && index < count) return;
  throw CTovikInvalidParamException(
      FormatString(u"Index %d is out of range, use 0 - %d", index, count - 1));
}

void CXmlTypeCollection::BeginAdd(int index, void* value) {
  FireOnCollectionAdd(value);
  const int count = GetCount();
  if (index < 0 || index > count || count == std::numeric_limits<int>::max()) {
    throw CTovikInvalidParamException(u"Index out of range");
  }
}

void CXmlTypeCollection::EndAdd(void* value) {
  FireOnCollectionAddComplete(value);
  FireOnCollectionChange();
}

void CXmlTypeCollection::BeginRemove(int index) {
  FireOnCollectionRemove(index);
  RequireItem(index);
}

void CXmlTypeCollection::EndRemove(int index) {
  FireOnCollectionRemoveComplete(index);
  FireOnCollectionChange();
}

}  // namespace TovikXmlLib16
