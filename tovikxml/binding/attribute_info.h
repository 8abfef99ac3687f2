#ifndef TOVIKXML_BINDING_ATTRIBUTE_INFO_H_
#define TOVIKXML_BINDING_ATTRIBUTE_INFO_H_

#include "tovikxml/binding/class_info.h"

namespace TovikXmlLib16Data {

/// An attribute with a typed value. Its namespace is compared whatever the context says of
/// namespaces.
class TOVIKXML_EXPORT CAttributeInfoPrimitive final : public CAttributeInfo {
 public:
  CAttributeInfoPrimitive(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                          bool optional, ItemType itemType, const wchar* formatOverride,
                          CWhitespaceUtils::WhitespaceRule whitespaceRule,
                          const CPrimitiveRestrictions& restrictions, const wchar* defaultValue);

  void AttributeToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
  bool AttributeFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                        CXmlAttribute* attribute) override;
  void Validate(const CSerializationContext& context, bool seen) const override;

  /// Tests the facets; a generated setter calls it if it wants them tested on reading.
  void CheckRestriction(TovikVariant value) const;

 private:
  CPrimitiveRestrictions m_restrictions;
  ItemType m_itemType;
  WString m_formatOverride;
  CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

/// An attribute with an enumerated value.
class TOVIKXML_EXPORT CAttributeInfoEnum final : public CAttributeInfo {
 public:
  CAttributeInfoEnum(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                     bool optional, EnumToText enumToText, TextToEnum textToEnum,
                     const wchar* defaultValue);

  void AttributeToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
  bool AttributeFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                        CXmlAttribute* attribute) override;
  void Validate(const CSerializationContext& context, bool seen) const override;

 private:
  TextToEnum m_textToEnum;
  EnumToText m_enumToText;
};

/// A wildcard (xs:anyAttribute), held in a `CAttributeCol`. It takes every attribute of a namespace
/// that is allowed, so it stands behind the named records of its table.
class TOVIKXML_EXPORT CAttributeInfoAny final : public CAttributeInfo {
 public:
  CAttributeInfoAny(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                    bool optional, const wchar* anyNamespaces, const wchar* targetNamespace,
                    const wchar* defaultValue);

  void AttributeToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
  /// Throws `CTovikException` if the property is not a `CAttributeCol`.
  bool AttributeFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                        CXmlAttribute* attribute) override;
  void Validate(const CSerializationContext& context, bool seen) const override;

 private:
  CSmartPtr<CXmlCollectionBase> ReadCollection(const CXmlGeneratedClass* owner) const;

  WString m_anyNamespaces;
  WString m_targetNamespace;
};

}  // namespace TovikXmlLib16Data

#endif  // TOVIKXML_BINDING_ATTRIBUTE_INFO_H_
