#include "tovikxml/binding/attribute_info.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/binding/generated_class.h"
#include "tovikxml/collections/attribute_col.h"
#include "tovikxml/document/borrowed_text.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/namespace_rule.h"
#include "tovikxml/document/writer.h"
#include "tovikxml/values/facets.h"
#include "tovikxml/values/variant.h"

namespace TovikXmlLib16Data {

CAttributeInfoPrimitive::CAttributeInfoPrimitive(const wchar* name, const wchar* namespaceUri,
                                                 std::int32_t propertyIndex, bool optional,
                                                 ItemType itemType, const wchar* formatOverride,
                                                 CWhitespaceUtils::WhitespaceRule whitespaceRule,
                                                 const CPrimitiveRestrictions& restrictions,
                                                 const wchar* defaultValue)
    : CAttributeInfo(name, namespaceUri, propertyIndex, optional, defaultValue),
      m_restrictions(restrictions),
      m_itemType(itemType),
      m_formatOverride(ViewOf(formatOverride)),
      m_whitespaceRule(whitespaceRule) {}

void CAttributeInfoPrimitive::AttributeToXml(const CSerializationContext& context,
                                             const CXmlGeneratedClass* owner,
                                             CXmlWriter* writer) const {
  TovikVariant value;
  ReadProperty(owner, value);
  if (IsOptional() && !value.IsValid()) return;
  WString scratch;
  const WString& text = value.GetText(m_formatOverride.c_str(), scratch);
  if (IsSuppressedDefault(context, text)) return;
  CheckFacets(GetAttributeName(), value, m_itemType, m_restrictions);
  writer->WriteAttribute(GetAttributeName(), GetAttributeNamespace(), text, value.GetTypeAsEnum());
}

bool CAttributeInfoPrimitive::AttributeFromXml(const CSerializationContext& /*context*/,
                                               CXmlGeneratedClass* owner,
                                               CXmlAttribute* attribute) {
  if (!EqualText(attribute->GetLocalName(), GetAttributeName()) ||
      !EqualText(attribute->GetNamespaceURI(), GetAttributeNamespace())) {
    return false;
  }
  TovikVariant value;
  value.FromString(BorrowValue(*attribute), m_itemType, m_whitespaceRule);
  InvokePropertySet(owner, value, *attribute);
  return true;
}

void CAttributeInfoPrimitive::Validate(const CSerializationContext& /*context*/, bool seen) const {
  RequireIfMandatory(seen);
}

// The interface takes the value by copy.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void CAttributeInfoPrimitive::CheckRestriction(TovikVariant value) const {
  CheckFacets(GetAttributeName(), value, m_itemType, m_restrictions);
}

CAttributeInfoEnum::CAttributeInfoEnum(const wchar* name, const wchar* namespaceUri,
                                       std::int32_t propertyIndex, bool optional,
                                       EnumToText enumToText, TextToEnum textToEnum,
                                       const wchar* defaultValue)
    : CAttributeInfo(name, namespaceUri, propertyIndex, optional, defaultValue),
      m_textToEnum(textToEnum),
      m_enumToText(enumToText) {}

void CAttributeInfoEnum::AttributeToXml(const CSerializationContext& context,
                                        const CXmlGeneratedClass* owner, CXmlWriter* writer) const {
  TovikVariant value;
  ReadProperty(owner, value);
  if (IsOptional() && !value.IsValid()) return;
  const WString text = TextOf(m_enumToText(value.GetI4()));
  if (IsSuppressedDefault(context, text)) return;
  writer->WriteAttribute(GetAttributeName(), GetAttributeNamespace(), text, it_string);
}

bool CAttributeInfoEnum::AttributeFromXml(const CSerializationContext& context,
                                          CXmlGeneratedClass* owner, CXmlAttribute* attribute) {
  if (!IsThisAttribute(context, attribute)) return false;
  TovikVariant value;
  value.SetI4(m_textToEnum(BorrowValue(*attribute).c_str()));
  InvokePropertySet(owner, value, *attribute);
  return true;
}

void CAttributeInfoEnum::Validate(const CSerializationContext& /*context*/, bool seen) const {
  RequireIfMandatory(seen);
}

CAttributeInfoAny::CAttributeInfoAny(const wchar* name, const wchar* namespaceUri,
                                     std::int32_t propertyIndex, bool optional,
                                     const wchar* anyNamespaces, const wchar* targetNamespace,
                                     const wchar* defaultValue)
    : CAttributeInfo(name, namespaceUri, propertyIndex, optional, defaultValue),
      m_anyNamespaces(ViewOf(anyNamespaces)),
      m_targetNamespace(ViewOf(targetNamespace)) {}

CSmartPtr<CXmlCollectionBase> CAttributeInfoAny::ReadCollection(
    const CXmlGeneratedClass* owner) const {
  TovikVariant value;
  ReadProperty(owner, value);
  return value.GetXmlCollection();
}

void CAttributeInfoAny::AttributeToXml(const CSerializationContext& context,
                                       const CXmlGeneratedClass* owner, CXmlWriter* writer) const {
  const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(owner);
  if (collection) {
    ToXml_Int(collection, writer, false, GetTargetNamespace(owner).c_str(), context);
  }
}

bool CAttributeInfoAny::AttributeFromXml(const CSerializationContext& /*context*/,
                                         CXmlGeneratedClass* owner, CXmlAttribute* attribute) {
  const WString& uri = attribute->GetNamespaceURI();
  if (!IsNamespaceAllowed(uri, m_anyNamespaces, m_targetNamespace)) return false;
  const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(owner);
  auto* attributes = dynamic_cast<CAttributeCol*>(collection.Get());
  if (!attributes) {
    throw CTovikException(
        u"Serialization Data Error : The collection should be a CAttributeCol, it was not!");
  }
  attributes->Add(attribute->GetLocalName().c_str(), BorrowValue(*attribute).c_str(), uri.c_str());
  return true;
}

void CAttributeInfoAny::Validate(const CSerializationContext& /*context*/, bool /*seen*/) const {}

}  // namespace TovikXmlLib16Data
