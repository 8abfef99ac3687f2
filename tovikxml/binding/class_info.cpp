#include "tovikxml/binding/class_info.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/binding/generated_class.h"
#include "tovikxml/binding/nil_attribute.h"
#include "tovikxml/binding/object_base.h"
#include "tovikxml/collections/element_col.h"
#include "tovikxml/document/borrowed_text.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/namespace_rule.h"
#include "tovikxml/document/writer.h"
#include "tovikxml/settings/serialization_context.h"
#include "tovikxml/values/facets.h"
#include "tovikxml/values/variant.h"

namespace TovikXmlLib16Data {
namespace {

// The guards of a property: what it throws becomes the cause of an exception that names it.

[[noreturn]] void ThrowGetFailure(const WString& name, const CTovikException& cause) {
  throw CTovikValidationException(
      FormatString(u"Failed to get the property value for [%s].", name.c_str()), WString(), cause);
}

template <class Access>
inline void GuardGet(const WString& name, Access access) {
  try {
    access();
  } catch (const CTovikException& e) {
    ThrowGetFailure(name, e);
  }
}

// `message` gives the text, and `node` the path.
template <class Access, class Message, class Node>
inline void GuardSet(Access access, Message message, const Node& node) {
  try {
    access();
  } catch (const CTovikException& e) {
    throw CTovikValidationException(message(), node.GetXPath(), e);
  }
}

bool NamesMatch(const CSerializationContext& context, const WString& name, const WString& uri,
                const WString& otherName, const WString& otherUri) {
  return EqualText(name, otherName) && (context.GetIgnoreNamespaces() || EqualText(uri, otherUri));
}

}  // namespace

CParentElementInfo::CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType,
                                       const wchar* elementName, const wchar* elementNamespace,
                                       bool failIfAttributeUnknown, bool hasBaseClasses,
                                       std::int32_t primitiveValuePropertyIndex,
                                       ItemType primitiveDataType,
                                       const wchar* primitiveFormatOverride,
                                       bool outputPrimitiveClassAsTextProperty)
    : m_groupType(groupType),
      m_elementType(elementType),
      m_elementName(ViewOf(elementName)),
      m_elementNamespace(ViewOf(elementNamespace)),
      m_failIfAttributeUnknown(failIfAttributeUnknown),
      m_hasBaseClasses(hasBaseClasses),
      m_primitiveValuePropertyIndex(primitiveValuePropertyIndex),
      m_primitiveDataType(primitiveDataType),
      m_primitiveFormatOverride(ViewOf(primitiveFormatOverride)),
      m_outputPrimitiveClassAsText(outputPrimitiveClassAsTextProperty) {}

CParentElementInfo::~CParentElementInfo() = default;

CElementInfo::CElementInfo(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex)
    : m_name(ViewOf(name)), m_namespace(ViewOf(namespaceUri)), m_propertyIndex(propertyIndex) {}

CElementInfo::CElementInfo(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                           bool nillable, EnumToText enumToText, TextToEnum textToEnum,
                           const wchar* defaultValue)
    : CElementInfo(name, namespaceUri, propertyIndex) {
  m_nillable = nillable;
  m_enumToText = enumToText;
  m_textToEnum = textToEnum;
  m_defaultValue = ViewOf(defaultValue);
}

CElementInfo::CElementInfo(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                           bool nillable, ItemType itemType, const wchar* formatOverride,
                           CWhitespaceUtils::WhitespaceRule whitespaceRule,
                           const CPrimitiveRestrictions& restrictions, const wchar* defaultValue)
    : CElementInfo(name, namespaceUri, propertyIndex) {
  m_nillable = nillable;
  m_itemType = itemType;
  m_formatOverride = ViewOf(formatOverride);
  m_whitespaceRule = whitespaceRule;
  m_restrictions = restrictions;
  m_defaultValue = ViewOf(defaultValue);
  m_isPrimitive = true;
}

CElementInfo::~CElementInfo() = default;

bool CElementInfo::Validate(const CSerializationContext& /*context*/,
                            const CXmlGeneratedClass* /*owner*/, bool /*seen*/,
                            bool /*parentIsElement*/) const {
  throw CTovikException(u"Not implemented, should never be called");
}

void CElementInfo::PseudoChildAttributeToXml(const CSerializationContext& /*context*/,
                                             const CXmlGeneratedClass* /*owner*/,
                                             CXmlWriter* /*writer*/) const {}

bool CElementInfo::ValidateMnd(bool seen, bool parentIsElement) const {
  if (seen || !parentIsElement) return seen;
  throw CTovikValidationException(
      FormatString(u"Failed to find the mandatory element [%s].", m_name.c_str()), WString());
}

bool CElementInfo::IsThisElement(const CSerializationContext& context,
                                 const CXmlElement* element) const {
  return element && NamesMatch(context, m_name, m_namespace, element->GetLocalName(),
                               element->GetNamespaceURI());
}

void CElementInfo::InvokePropertyGet(CXmlGeneratedClass* owner, TovikVariant& value) const {
  GuardGet(m_name, [&] { owner->AccessProperty(m_propertyIndex, true, value); });
}

void CElementInfo::ReadProperty(const CXmlGeneratedClass* owner, TovikVariant& value) const {
  InvokePropertyGet(const_cast<CXmlGeneratedClass*>(owner), value);
}

void CElementInfo::InvokePropertySet(CXmlGeneratedClass* owner, TovikVariant& value,
                                     const CXmlElement& element) const {
  GuardSet([&] { owner->AccessProperty(m_propertyIndex, false, value); },
           [] { return WString(u"Failed to set the property value."); }, element);
}

void CElementInfo::CheckRestriction(const TovikVariant& value) const {
  if (!m_isPrimitive) {
    throw CTovikException(u"Cannot CheckRestriction for type: " + value.GetType());
  }
  CheckFacets(m_name, value, m_itemType, m_restrictions);
}

bool CElementInfo::ElementToXmlPrim(const CSerializationContext& context,
                                    const CXmlGeneratedClass* owner, CXmlWriter* writer) const {
  TovikVariant value;
  ReadProperty(owner, value);
  if (!value.IsValid()) return false;
  if (value.IsNil()) {
    WriteNil(writer);
    return true;
  }
  WString scratch;
  const WString& text = value.GetText(m_formatOverride.c_str(), scratch);
  if (!WriteDefault(context, writer, text, value.GetTypeAsEnum())) {
    CheckRestriction(value);
    WriteElement(writer, text, value.GetTypeAsEnum());
  }
  return true;
}

bool CElementInfo::ElementToXmlEnum(const CSerializationContext& context,
                                    const CXmlGeneratedClass* owner, CXmlWriter* writer,
                                    EnumToText enumToText) const {
  TovikVariant value;
  ReadProperty(owner, value);
  if (!value.IsValid()) return false;
  if (value.IsNil()) {
    WriteNil(writer);
    return true;
  }
  const WString text = TextOf(enumToText(value.GetI4()));
  if (!WriteDefault(context, writer, text, it_string)) WriteElement(writer, text, it_string);
  return true;
}

bool CElementInfo::ElementToXmlCls(const CSerializationContext& context,
                                   const CXmlGeneratedClass* owner, CXmlWriter* writer,
                                   bool isOptionalChoice) const {
  const CSmartPtr<CXmlObjectBase> object = ReadObject(owner);
  if (!object) return false;
  object->ToXml_Int(writer, false, m_namespace.c_str(), context, isOptionalChoice);
  return true;
}

bool CElementInfo::ElementToXmlCol(const CSerializationContext& context,
                                   const CXmlGeneratedClass* owner, CXmlWriter* writer) const {
  const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(owner);
  if (collection->GetCount() <= 0) return false;
  const CXmlObjectBase* base = collection->GetBase();
  writer->SetCollectionState(1);
  base->ToXml_Int(writer, false, m_namespace.c_str(), context, false);
  writer->SetCollectionState(3);
  return true;
}

bool CElementInfo::CountedColToXml(const CSerializationContext& context,
                                   const CXmlGeneratedClass* owner, CXmlWriter* writer) const {
  if (!context.GetIgnoreInvalidCollectionCounts()) ReadCollection(owner)->ValidateCount(context);
  return ElementToXmlCol(context, owner, writer);
}

void CElementInfo::ItemAttributesToXml(const CSerializationContext& context,
                                       const CXmlGeneratedClass* owner, CXmlWriter* writer) const {
  AttributesToXml_Int(ReadCollection(owner)->GetBase(), writer, context);
}

TovikVariant CElementInfo::AccessProperty(const CXmlGeneratedClass* owner) const {
  TovikVariant value;
  owner->ReadProperty(m_propertyIndex, value);
  return value;
}

CSmartPtr<CXmlObjectBase> CElementInfo::ReadObject(const CXmlGeneratedClass* owner) const {
  TovikVariant value;
  ReadProperty(owner, value);
  return value.GetXmlObject();
}

CSmartPtr<CXmlCollectionBase> CElementInfo::ReadCollection(const CXmlGeneratedClass* owner) const {
  TovikVariant value;
  ReadProperty(owner, value);
  return CollectionOf(value);
}

CSmartPtr<CXmlCollectionBase> CElementInfo::CollectionOf(const TovikVariant& value) const {
  CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
  RequirePresent(collection.Get() != nullptr);
  return collection;
}

void CElementInfo::RequirePresent(bool present) const {
  if (present) return;
  throw CTovikInvalidParamException(
      FormatString(u"The Property [%s] is mandatory, it may not be NULL", m_name.c_str()));
}

void CElementInfo::WriteElement(CXmlWriter* writer, const WString& text, ItemType itemType) const {
  writer->WriteStartElement(m_name, m_namespace);
  writer->WriteText(text, itemType);
  writer->WriteEndElement();
}

void CElementInfo::WriteNil(CXmlWriter* writer) const {
  writer->WriteStartElement(m_name, m_namespace);
  writer->WriteXsiNil();
  writer->WriteEndElement();
}

bool CElementInfo::WriteDefault(const CSerializationContext& context, CXmlWriter* writer,
                                const WString& text, ItemType itemType) const {
  if (m_defaultValue.empty() || !EqualText(text, m_defaultValue)) return false;
  writer->WriteStartElement(m_name, m_namespace);
  if (context.GetWriteDefaultElementValues()) writer->WriteText(text, itemType);
  writer->WriteEndElement();
  return true;
}

void CElementInfo::ElementFromXmlPrim(const CSerializationContext& context,
                                      CXmlGeneratedClass* owner, CXmlElement** child) const {
  const CXmlElement& element = **child;
  TovikVariant value;
  if (IsNilMarked(context, element)) {
    value.SetNil(m_itemType);
  } else {
    value.FromString(TextOrDefault(element), m_itemType, m_whitespaceRule);
  }
  InvokePropertySet(owner, value, element);
  *child = element.GetNextSiblingElement();
}

void CElementInfo::ElementFromXmlEnum(const CSerializationContext& context,
                                      CXmlGeneratedClass* owner, CXmlElement** child) const {
  const CXmlElement& element = **child;
  TovikVariant value;
  if (IsNilMarked(context, element)) {
    value.SetNil(it_i4);
  } else {
    value.SetI4(m_textToEnum(TextOrDefault(element).c_str()));
  }
  InvokePropertySet(owner, value, element);
  *child = element.GetNextSiblingElement();
}

const WString& CElementInfo::TextOrDefault(const CXmlElement& element) const {
  return element.GetTextView().empty() ? m_defaultValue : BorrowText(element);
}

// A primitive element may carry xsi:nil and no other attribute.
bool CElementInfo::IsNilMarked(const CSerializationContext& context,
                               const CXmlElement& element) const {
  bool nil = false;
  for (const CXmlAttribute* attribute : element.GetAttributes()) {
    if (attribute->IsNilAttribute()) {
      nil = !IsXsiFalse(attribute->GetValueView());
      if (!nil) continue;
      if (!m_nillable) ThrowNotNillable(element);
      if (!IsXsiTrue(attribute->GetValueView())) ThrowBadNilValue(*attribute);
    } else if (!context.GetIgnoreUnknownAttributes()) {
      ThrowUnexpectedAttribute(*attribute);
    }
  }
  return nil;
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* object, CXmlElement* parent,
                                       CXmlElement* child, const CSerializationContext& context,
                                       bool isOptionalChoice) {
  return object->FromXml_Int(parent, child, context, isOptionalChoice);
}

void CElementInfo::AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                       const CSerializationContext& context) {
  object->AttributesToXml_Int(writer, context);
}

bool CElementInfo::IsAnyElement() const {
  return EqualText(m_name, u"AnyElement");
}

WString CElementInfo::GetAnyDefaultNamespace(const wchar* anyNamespaces,
                                             const wchar* defaultNamespace,
                                             const wchar* targetNamespace) {
  WStringView any = ViewOf(anyNamespaces);
  if (any.substr(0, 2) == u"##") any = any.substr(0, any.find(u' '));
  if (any == u"##any") return TextOf(defaultNamespace);
  if (any == u"##other") return ViewOf(defaultNamespace).empty() ? u"DefaultNamespace" : u"";
  if (any == u"##targetNamespace") return TextOf(targetNamespace);
  return WString();
}

CXmlElement* CElementInfo::UntpdColFromXml(const CSerializationContext& context,
                                           CXmlCollectionBase* collection, CXmlElement* parent,
                                           CXmlElement* child) const {
  if (IsAnyElement()) return collection->FromXml_Int(parent, child, context, false);
  auto* elements = dynamic_cast<CElementCol*>(collection);
  if (!elements) {
    throw CTovikException(
        u"Serialization Data Error : The collection should be a CElementCol, it was not!");
  }
  const WString uri = child ? child->GetNamespaceURI() : WString();
  return elements->FromXmlLockElementName_Int(m_name.c_str(), uri.c_str(), parent, child, context);
}

CAttributeInfo::CAttributeInfo(const wchar* name, const wchar* namespaceUri,
                               std::int32_t propertyIndex, bool optional, const wchar* defaultValue)
    : m_name(ViewOf(name)),
      m_namespace(ViewOf(namespaceUri)),
      m_propertyIndex(propertyIndex),
      m_optional(optional),
      m_defaultValue(ViewOf(defaultValue)) {}

CAttributeInfo::~CAttributeInfo() = default;

bool CAttributeInfo::IsThisAttribute(const CSerializationContext& context,
                                     const CXmlAttribute* attribute) const {
  return attribute && NamesMatch(context, m_name, m_namespace, attribute->GetLocalName(),
                                 attribute->GetNamespaceURI());
}

void CAttributeInfo::InvokePropertyGet(CXmlGeneratedClass* owner, TovikVariant& value) const {
  GuardGet(m_name, [&] { owner->AccessProperty(m_propertyIndex, true, value); });
}

void CAttributeInfo::ReadProperty(const CXmlGeneratedClass* owner, TovikVariant& value) const {
  InvokePropertyGet(const_cast<CXmlGeneratedClass*>(owner), value);
}

void CAttributeInfo::InvokePropertySet(CXmlGeneratedClass* owner, TovikVariant& value,
                                       const CXmlAttribute& attribute) const {
  GuardSet([&] { owner->AccessProperty(m_propertyIndex, false, value); },
           [&] {
             return FormatString(u"Failed to set the property value [%s].",
                                 attribute.GetValue().c_str());
           },
           attribute);
}

void CAttributeInfo::TestNamespace(const WString& namespaceUri, const WString& allowed,
                                   const WString& targetNamespace) {
  RequireNamespaceAllowed(namespaceUri, allowed, targetNamespace);
}

bool CAttributeInfo::IsNamespaceValid(const WString& namespaceUri, const WString& allowed,
                                      const WString& targetNamespace) {
  return IsNamespaceAllowed(namespaceUri, allowed, targetNamespace);
}

bool CAttributeInfo::IsSuppressedDefault(const CSerializationContext& context,
                                         const WString& text) const {
  return m_optional && !m_defaultValue.empty() && context.GetNoOptionalAttributeDefaultOutput() &&
         EqualText(text, m_defaultValue);
}

void CAttributeInfo::RequireIfMandatory(bool seen) const {
  if (m_optional || seen) return;
  throw CTovikValidationException(
      FormatString(u"Failed to find the required Attribute [%s].", m_name.c_str()), WString());
}

void CAttributeInfo::ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                               const wchar* namespaceUri, const CSerializationContext& context) {
  object->ToXml_Int(writer, isRoot, namespaceUri, context, false);
}

WString CAttributeInfo::GetTargetNamespace(const CXmlObjectBase* object) {
  return object->GetTargetNamespace();
}

}  // namespace TovikXmlLib16Data
