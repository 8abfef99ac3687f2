#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/binding/object_base.h"
#include "tovikxml/collections/collection_base.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/namespace_rule.h"
#include "tovikxml/settings/serialization_context.h"

// The operations of `CXmlObjectBase` that generated setters use.
namespace TovikXmlLib16 {
namespace {

// A choice keeps the name of its one set element in `selected`.
void SelectInChoice(const wchar* name, bool hasValue, bool selectEmpty, WString& selected) {
  if (EqualText(selected, ViewOf(name))) {
    if (!hasValue) selected.clear();
  } else if (selected.empty()) {
    if (hasValue || selectEmpty) selected = ViewOf(name);
  } else if (hasValue) {
    throw CTovikInvalidStateException(
        FormatString(u"The Property [%s] is already set. Only one element within this class bay be "
                     u"set at a time",
                     selected.c_str()));
  }
}

}  // namespace

void CXmlObjectBase::Choice_SelectElement(const wchar* name, CXmlObjectBase* newValue,
                                          WString& selected) {
  SelectInChoice(name, newValue != nullptr, true, selected);
}

void CXmlObjectBase::Choice_CollectionChanged(const wchar* name, long count, WString& selected) {
  SelectInChoice(name, count > 0, false, selected);
}

void CXmlObjectBase::Choice_SetElementValid(bool valid, const wchar* name, WString& selected) {
  if (!valid) {
    selected.clear();
    return;
  }
  if (!selected.empty() && !EqualText(selected, ViewOf(name))) {
    throw CTovikInvalidStateException(
        FormatString(u"The Property %s is already set. Only one element within this class bay be "
                     u"set at a time",
                     selected.c_str()));
  }
  selected = ViewOf(name);
}

void CXmlObjectBase::Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent,
                                            CXmlElement*& child, long& count,
                                            const CSerializationContext& context) {
  if (count >= 1) return;
  CXmlElement* next = FromXml_Int(collection, parent, child, context);
  if (next == child) return;
  child = next;
  collection->ValidateCount(context);
  ++count;
}

void CXmlObjectBase::Throw_IfPropertyIsNull(CXmlObjectBase* object, const wchar* name) {
  if (object) return;
  throw CTovikInvalidParamException(
      FormatString(u"The Property [%s] is mandatory, it may node be NULL", name));
}

void CXmlObjectBase::Throw_IfElementNameDiffers(CXmlObjectBase* object, const wchar* name) {
  if (!object) return;
  const WString elementName = object->GetBase()->GetElementName();
  if (EqualText(elementName, ViewOf(name))) return;
  throw CTovikInvalidParamException(
      FormatString(u"This property requires an element with the name %s the element being set has "
                   u"the element name %s",
                   name, elementName.c_str()));
}

void CXmlObjectBase::TestNamespace(const wchar* namespaceUri, const wchar* allowed,
                                   const wchar* targetNamespace) const {
  RequireNamespaceAllowed(ViewOf(namespaceUri), ViewOf(allowed), ViewOf(targetNamespace));
}

bool CXmlObjectBase::IsNamespaceValid(const wchar* namespaceUri, const wchar* allowed,
                                      const wchar* targetNamespace) const {
  return IsNamespaceAllowed(ViewOf(namespaceUri), ViewOf(allowed), ViewOf(targetNamespace));
}

bool CXmlObjectBase::DoesElementNameMatch(const CSerializationContext& context,
                                          const CXmlElement* element, const wchar* name,
                                          const wchar* namespaceUri) const {
  return EqualText(element->GetLocalName(), ViewOf(name)) &&
         (context.GetIgnoreNamespaces() ||
          EqualText(element->GetNamespaceURI(), ViewOf(namespaceUri)));
}

}  // namespace TovikXmlLib16
