#include "tovikxml/binding/element_info.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/binding/object_base.h"
#include "tovikxml/collections/collection_base.h"
#include "tovikxml/collections/element.h"
#include "tovikxml/document/document.h"
#include "tovikxml/settings/serialization_context.h"
#include "tovikxml/values/variant.h"

namespace TovikXmlLib16Data {
namespace {

[[noreturn]] void ThrowMissing(const wchar* message, const CElementInfo& record, WString path) {
  throw CTovikValidationException(FormatString(message, record.GetElementName().c_str()),
                                  std::move(path));
}

[[noreturn]] void ThrowRequiredChild(const CElementInfo& record, const CXmlElement& parent) {
  ThrowMissing(u"Failed to find the required child element [%s].", record, parent.GetXPath());
}

// Brings the cursor of a mandatory record in a real element to its element. False if the element
// is missing and may be.
bool FindRequired(const CElementInfo& record, const tovikxml_detail::Reading& reading) {
  CXmlElement*& child = *reading.child;
  while (!record.IsThisElement(reading.context, child)) {
    if (reading.context.GetIgnoreMissingMandatoryElements()) return false;
    if (!reading.context.GetIgnoreUnknownElements() || !child) {
      ThrowRequiredChild(record, *reading.parent);
    }
    child = child->GetNextSiblingElement();
  }
  return true;
}

}  // namespace

namespace tovikxml_detail {

PrimKind::PrimKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                   bool nillable, ItemType itemType, const wchar* formatOverride,
                   CWhitespaceUtils::WhitespaceRule whitespaceRule,
                   const CPrimitiveRestrictions& restrictions, const wchar* defaultValue)
    : SimpleKind(name, namespaceUri, propertyIndex, nillable, itemType, formatOverride,
                 whitespaceRule, restrictions, defaultValue) {}

EnumKind::EnumKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                   bool nillable, EnumToText enumToText, TextToEnum textToEnum,
                   const wchar* defaultValue)
    : SimpleKind(name, namespaceUri, propertyIndex, nillable, enumToText, textToEnum,
                 defaultValue) {}

bool SimpleKind::Write(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                       CXmlWriter* writer, bool /*isOptionalChoice*/) const {
  return IsPrimitive() ? ElementToXmlPrim(context, owner, writer)
                       : ElementToXmlEnum(context, owner, writer, GetEnumToText());
}

void SimpleKind::ReadValue(const Reading& reading) const {
  if (IsPrimitive()) {
    ElementFromXmlPrim(reading.context, reading.owner, reading.child);
  } else {
    ElementFromXmlEnum(reading.context, reading.owner, reading.child);
  }
}

bool SimpleKind::ReadIfMatching(const Reading& reading) const {
  if (!IsThisElement(reading.context, *reading.child)) return false;
  ReadValue(reading);
  return true;
}

bool SimpleKind::ReadSeqMnd(const Reading& reading) const {
  if (reading.IsInRealElement()) {
    if (FindRequired(*this, reading)) ReadValue(reading);
    return true;
  }
  // In a pseudo element a primitive skips what is unknown, an enumeration does not.
  if (IsPrimitive() && reading.context.GetIgnoreUnknownElements()) {
    CXmlElement*& child = *reading.child;
    while (child && !IsThisElement(reading.context, child)) child = child->GetNextSiblingElement();
  }
  return ReadIfMatching(reading);
}

bool SimpleKind::ReadSeqOpt(const Reading& reading) const {
  ReadIfMatching(reading);
  return true;
}

ObjectKind::ObjectKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                       XmlElementType elementType)
    : CElementInfo(name, namespaceUri, propertyIndex), m_elementType(elementType) {}

void ObjectKind::PseudoChildAttributeToXml(const CSerializationContext& context,
                                           const CXmlGeneratedClass* owner,
                                           CXmlWriter* writer) const {
  if (m_elementType != xet_PseudoElement) return;
  const CSmartPtr<CXmlObjectBase> object = ReadObject(owner);
  if (object) AttributesToXml_Int(object, writer, context);
}

bool ObjectKind::Write(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                       CXmlWriter* writer, bool isOptionalChoice) const {
  return ElementToXmlCls(context, owner, writer, isOptionalChoice);
}

void ObjectKind::ReadReal(CXmlObjectBase* object, const Reading& reading,
                          bool isOptionalChoice) const {
  CXmlElement* element = *reading.child;
  FromXml_Int(object, element, element->GetFirstElement(), reading.context, isOptionalChoice);
  *reading.child = element->GetNextSiblingElement();
}

CXmlElement* ObjectKind::ReadPseudo(CXmlObjectBase* object, const Reading& reading) const {
  return FromXml_Int(object, reading.parent, *reading.child, reading.context, false);
}

void ObjectKind::Store(CXmlObjectBase* object, const Reading& reading) const {
  TovikVariant value;
  value.SetXmlObject(object);
  InvokePropertySet(reading.owner, value, *reading.parent);
}

ClsKind::ClsKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                 XmlElementType elementType, ClassFactory factory, int factoryArgument,
                 bool mustConsume)
    : ObjectKind(name, namespaceUri, propertyIndex, elementType),
      m_factory(factory),
      m_factoryArgument(factoryArgument),
      m_mustConsume(mustConsume) {}

CSmartPtr<CXmlObjectBase> ClsKind::Make() const {
  CSmartPtr<CXmlObjectBase> object = m_factory(m_factoryArgument, GetElementName().c_str());
  RequirePresent(object.Get() != nullptr);
  return object;
}

// The object that a mandatory property holds already.
CSmartPtr<CXmlObjectBase> ClsKind::GetObject(const CXmlGeneratedClass* owner) const {
  CSmartPtr<CXmlObjectBase> object = ReadObject(owner);
  RequirePresent(object.Get() != nullptr);
  return object;
}

bool ClsKind::ReadSeqMnd(const Reading& reading) const {
  if (!HasOwnElement()) return ReadMandatoryPseudo(GetObject(reading.owner), reading);
  if (reading.IsInRealElement()) {
    if (!FindRequired(*this, reading)) return true;
  } else if (!IsThisElement(reading.context, *reading.child)) {
    return false;
  }
  ReadReal(GetObject(reading.owner), reading, false);
  return true;
}

bool ClsKind::ReadMandatoryPseudo(CXmlObjectBase* object, const Reading& reading) const {
  CXmlElement*& child = *reading.child;
  if (m_mustConsume) {
    CXmlElement* next = child ? ReadPseudo(object, reading) : nullptr;
    if (next == child) {
      if (reading.IsInRealElement()) ThrowRequiredChild(*this, *reading.parent);
      return false;
    }
    child = next;
    return true;
  }
  CXmlElement* next = ReadPseudo(object, reading);
  // The sequence then skips an element and asks again.
  if (child && next == child && reading.context.GetIgnoreUnknownElements() &&
      reading.IsInRealElement()) {
    return false;
  }
  child = next;
  return true;
}

bool ClsKind::ReadSeqOpt(const Reading& reading) const {
  ReadOptional(reading);
  return true;
}

// Makes an object for what stands at the cursor and keeps it if it took something.
bool ClsKind::ReadOptional(const Reading& reading) const {
  CXmlElement*& child = *reading.child;
  if (HasOwnElement()) {
    if (!IsThisElement(reading.context, child)) return false;
    const CSmartPtr<CXmlObjectBase> object = Make();
    ReadReal(object, reading, false);
    Store(object, reading);
    return true;
  }
  if (!child) return false;
  const CSmartPtr<CXmlObjectBase> object = Make();
  CXmlElement* next = ReadPseudo(object, reading);
  const bool moved = next != child;
  if (moved) Store(object, reading);
  child = next;
  return moved;
}

bool ClsKind::ReadAllMnd(const Reading& reading) const {
  CXmlElement*& child = *reading.child;
  if (HasOwnElement()) {
    if (!IsThisElement(reading.context, child)) return false;
    ReadReal(GetObject(reading.owner), reading, false);
    return true;
  }
  CXmlElement* next = ReadPseudo(GetObject(reading.owner), reading);
  const bool moved = next != child;
  child = next;
  return moved;
}

// The object is stored before it is read, so that the choice knows of it.
bool ClsKind::ReadChoiceOpt(const Reading& reading) const {
  CXmlElement*& child = *reading.child;
  if (HasOwnElement()) {
    if (!IsThisElement(reading.context, child)) return false;
    const CSmartPtr<CXmlObjectBase> object = Make();
    Store(object, reading);
    ReadReal(object, reading, true);
    return true;
  }
  if (!child) return false;
  const CSmartPtr<CXmlObjectBase> object = Make();
  Store(object, reading);
  CXmlElement* next = ReadPseudo(object, reading);
  if (next == child) {
    Store(nullptr, reading);
    return false;
  }
  child = next;
  return true;
}

// The object of a mandatory record exists from the start, so that a missing element of its own is
// let through.
bool ClsKind::ValidateMnd(bool seen, bool parentIsElement) const {
  const bool mayBeMissing =
      parentIsElement && GetElementType() != xet_PseudoElement && !m_mustConsume;
  return ObjectKind::ValidateMnd(seen || mayBeMissing, parentIsElement);
}

AbsClsKind::AbsClsKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                       XmlElementType elementType, AbstractClassFactory factory, int /*unused*/)
    : ObjectKind(name, namespaceUri, propertyIndex, elementType), m_factory(factory) {}

CSmartPtr<CXmlObjectBase> AbsClsKind::MakeIfMatching(const Reading& reading) const {
  if (!IsThisElement(reading.context, *reading.child)) return nullptr;
  return m_factory(*reading.child);
}

void AbsClsKind::ReadAndStore(CXmlObjectBase* object, const Reading& reading) const {
  ReadReal(object, reading, false);
  Store(object, reading);
}

bool AbsClsKind::ReadSeqMnd(const Reading& reading) const {
  const CSmartPtr<CXmlObjectBase> object = MakeIfMatching(reading);
  if (object) {
    ReadAndStore(object, reading);
  } else if (reading.IsInRealElement()) {
    ThrowMissing(u"Failed to find a suitable substitution element for [%s].", *this,
                 reading.parent->GetXPath());
  }
  return object.Get() != nullptr;
}

bool AbsClsKind::ReadSeqOpt(const Reading& reading) const {
  const CSmartPtr<CXmlObjectBase> object = MakeIfMatching(reading);
  if (object) ReadAndStore(object, reading);
  return true;
}

bool AbsClsKind::ReadAll(const Reading& reading) const {
  CXmlElement*& child = *reading.child;
  if (HasOwnElement()) {
    const CSmartPtr<CXmlObjectBase> object = MakeIfMatching(reading);
    if (object) ReadAndStore(object, reading);
    return object.Get() != nullptr;
  }
  if (!child) return false;
  const CSmartPtr<CXmlObjectBase> object = m_factory(child);
  if (!object) return false;
  CXmlElement* next = ReadPseudo(object, reading);
  const bool moved = next != child;
  if (moved) Store(object, reading);
  child = next;
  return moved;
}

bool AbsClsKind::ReadChoiceOpt(const Reading& reading) const {
  if (!IsThisElement(reading.context, *reading.child)) return false;
  const CSmartPtr<CXmlObjectBase> object = m_factory(*reading.child);
  Store(object, reading);
  if (!object) return false;
  ReadReal(object, reading, false);
  return true;
}

UntpdKind::UntpdKind(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                     const wchar* anyNamespaces, const wchar* targetNamespace)
    : ObjectKind(name, namespaceUri, propertyIndex, xet_Element),
      m_anyNamespaces(ViewOf(anyNamespaces)),
      m_targetNamespace(ViewOf(targetNamespace)) {}

CSmartPtr<CXmlObjectBase> UntpdKind::Make(const Reading& reading) const {
  const WString uri = GetAnyDefaultNamespace(m_anyNamespaces.c_str(), reading.defaultNamespace,
                                             m_targetNamespace.c_str());
  return new CElement(GetElementName().c_str(), uri.c_str(), m_anyNamespaces.c_str(),
                      m_targetNamespace.c_str());
}

CXmlElement* UntpdKind::Read(CXmlObjectBase* object, const Reading& reading) const {
  CXmlElement* child = *reading.child;
  if (!IsAnyElement() && !EqualText(GetElementName(), child->GetLocalName())) return child;
  return FromXml_Int(object, reading.parent, child, reading.context, false);
}

bool UntpdKind::ReadOptional(const Reading& reading) const {
  CXmlElement*& child = *reading.child;
  if (!child) return false;
  const CSmartPtr<CXmlObjectBase> object = Make(reading);
  CXmlElement* next = Read(object, reading);
  if (next == child) return false;
  Store(object, reading);
  child = next;
  return true;
}

// Reads into the object that a mandatory property holds already.
bool UntpdKind::ReadMandatory(const Reading& reading) const {
  CXmlElement*& child = *reading.child;
  const CSmartPtr<CXmlObjectBase> object = ReadObject(reading.owner);
  RequirePresent(object.Get() != nullptr);
  CXmlElement* next = Read(object, reading);
  const bool moved = next != child;
  child = next;
  return moved;
}

bool UntpdKind::ReadSeqMnd(const Reading& reading) const {
  if (!*reading.child) ThrowRequiredChild(*this, *reading.parent);
  const bool moved = ReadMandatory(reading);
  if (!moved && reading.IsInRealElement()) {
    throw CTovikValidationException(
        FormatString(u"Failed to find the required element from namespace [%s].",
                     GetElementNamespace().c_str()),
        reading.parent->GetXPath());
  }
  return moved;
}

bool UntpdKind::ReadSeqOpt(const Reading& reading) const {
  ReadOptional(reading);
  return true;
}

bool UntpdKind::ReadAllMnd(const Reading& reading) const {
  return *reading.child && ReadMandatory(reading);
}

bool UntpdKind::ReadChoiceOpt(const Reading& reading) const {
  if (!*reading.child) return false;
  const bool moved = ReadOptional(reading);
  if (!moved) Store(nullptr, reading);
  return moved;
}

}  // namespace tovikxml_detail

CElementInfoCol::CElementInfoCol(const wchar* name, const wchar* namespaceUri,
                                 std::int32_t propertyIndex)
    : CElementInfo(name, namespaceUri, propertyIndex) {}

CXmlElement* CElementInfoCol::ReadItems(const CSerializationContext& context,
                                        CXmlCollectionBase* collection, CXmlElement* parent,
                                        CXmlElement* child) const {
  return FromXml_Int(collection, parent, child, context, false);
}

CElementInfoSeqCol::CElementInfoSeqCol(const wchar* name, const wchar* namespaceUri,
                                       std::int32_t propertyIndex)
    : CElementInfoCol(name, namespaceUri, propertyIndex) {}

bool CElementInfoSeqCol::ElementToXml(const CSerializationContext& context,
                                      const CXmlGeneratedClass* owner, CXmlWriter* writer) const {
  return CountedColToXml(context, owner, writer);
}

bool CElementInfoSeqCol::ElementFromXml(const CSerializationContext& context,
                                        CXmlGeneratedClass* owner, CXmlElement* parent,
                                        CXmlElement** child, const wchar* /*defaultNamespace*/,
                                        XmlElementType parentType) {
  const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(owner);
  *child = ReadItems(context, collection, parent, *child);
  if (parentType != xet_Element) return collection->IsValidCount(context);
  collection->ValidateCount(context);
  return true;
}

CElementInfoAllCol::CElementInfoAllCol(const wchar* name, const wchar* namespaceUri,
                                       std::int32_t propertyIndex)
    : CElementInfoCol(name, namespaceUri, propertyIndex) {}

bool CElementInfoAllCol::ElementToXml(const CSerializationContext& context,
                                      const CXmlGeneratedClass* owner, CXmlWriter* writer) const {
  return CountedColToXml(context, owner, writer);
}

// Never done, so that the group keeps offering elements.
bool CElementInfoAllCol::ElementFromXml(const CSerializationContext& context,
                                        CXmlGeneratedClass* owner, CXmlElement* parent,
                                        CXmlElement** child, const wchar* /*defaultNamespace*/,
                                        XmlElementType /*parentType*/) {
  *child = ReadItems(context, ReadCollection(owner), parent, *child);
  return false;
}

CElementInfoChoiceCol::CElementInfoChoiceCol(const wchar* name, const wchar* namespaceUri,
                                             std::int32_t propertyIndex)
    : CElementInfoCol(name, namespaceUri, propertyIndex) {}

bool CElementInfoChoiceCol::ElementToXml(const CSerializationContext& context,
                                         const CXmlGeneratedClass* owner,
                                         CXmlWriter* writer) const {
  return ElementToXmlCol(context, owner, writer);
}

bool CElementInfoChoiceCol::ElementFromXml(const CSerializationContext& context,
                                           CXmlGeneratedClass* owner, CXmlElement* parent,
                                           CXmlElement** child, const wchar* /*defaultNamespace*/,
                                           XmlElementType parentType) {
  const CSmartPtr<CXmlCollectionBase> collection = ReadCollection(owner);
  CXmlElement* next = ReadItems(context, collection, parent, *child);
  if (next == *child) return false;
  if (parentType != xet_Element) {
    if (!collection->IsValidCount(context)) return false;
    *child = next;
    return true;
  }
  *child = next;
  collection->ValidateCount(context);
  return true;
}

bool CElementInfoChoiceCol::MayLeaveChoiceEmpty(const CXmlGeneratedClass* owner) const {
  return CollectionOf(AccessProperty(owner))->GetMinOccurs() == 0;
}

CElementInfoAllEnumCol::CElementInfoAllEnumCol(const wchar* name, const wchar* namespaceUri,
                                               std::int32_t propertyIndex)
    : CElementInfo(name, namespaceUri, propertyIndex) {}

}  // namespace TovikXmlLib16Data
