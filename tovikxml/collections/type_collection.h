#ifndef TOVIKXML_COLLECTIONS_TYPE_COLLECTION_H_
#define TOVIKXML_COLLECTIONS_TYPE_COLLECTION_H_

#include "tovikxml/base/item_type.h"
#include "tovikxml/collections/collection_base.h"
#include "tovikxml/values/restrictions.h"
#include "tovikxml/values/whitespace.h"

namespace TovikXmlLib16 {

/// What the lists of primitive values have in common, whatever the type of their values: how a
/// value is read and checked, how elements are taken from a document, and the events and index
/// checks around each change. The lists themselves are in typed_collections.h.
class TOVIKXML_EXPORT CXmlTypeCollection : public CXmlCollectionBase {
 protected:
  /// The arguments from `pattern` to `fractionDigits` are those of `CPrimitiveRestrictions`. Null
  /// texts count as empty.
  CXmlTypeCollection(ItemType itemType, const wchar* elementName, const wchar* namespaceUri,
                     int minOccurs, int maxOccurs, const wchar* pattern, long minLength,
                     long maxLength, const wchar* minInclusive, const wchar* maxInclusive,
                     const wchar* minExclusive, const wchar* maxExclusive, long length,
                     long totalDigits, long fractionDigits,
                     CWhitespaceUtils::WhitespaceRule whitespaceRule, const wchar* format);

  /// Adds the value of a lexical form at the end, under all the checks of adding.
  virtual void AddFromString(WString text) = 0;

  /// Takes the run of elements with the collection's name at `firstChild`, for whose text alone it
  /// looks. Checks no count.
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                           const CSerializationContext& context, bool isOptionalChoice) override;

  /// Throws `CTovikInvalidParamException` "Index %d is out of range, use 0 - %d".
  void RequireItem(int index) const;

  // A change stands between its two: the first fires the event before it and checks the index, the
  // second fires the events after it. `BeginAdd` throws `CTovikInvalidParamException` "Index out of
  // range", `BeginRemove` as `RequireItem` does.
  void BeginAdd(int index, void* value);
  void EndAdd(void* value);
  void BeginRemove(int index);
  void EndRemove(int index);

  const CPrimitiveRestrictions& GetRestrictions() const { return m_restrictions; }
  ItemType GetItemType() const { return m_itemType; }
  const WString& GetFormat() const { return m_format; }
  CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const { return m_whitespaceRule; }

 private:
  CPrimitiveRestrictions m_restrictions;
  ItemType m_itemType;
  WString m_format;
  CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_COLLECTIONS_TYPE_COLLECTION_H_
