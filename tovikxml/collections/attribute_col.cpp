#include "tovikxml/collections/attribute_col.h"

#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/namespace_rule.h"

namespace TovikXmlLib16 {

CAttributeCol::CAttributeCol(const wchar* namespaceUri, const wchar* restriction,
                             const wchar* targetNamespace)
    : CXmlCollection(u"", NamespaceOfNewItems(ViewOf(namespaceUri), ViewOf(restriction)).c_str(), 0,
                     -1),
      CInstanceMonitor(u"CAttributeCol"),
      m_restriction(ViewOf(restriction)),
      m_targetNamespace(ViewOf(targetNamespace)) {}

CAttributeCol::~CAttributeCol() = default;

CSmartPtr<CAttribute> CAttributeCol::Add(const wchar* name, const wchar* value,
                                         const wchar* namespaceUri) {
  return AddNew(TextOf(name), TextOf(value), TextOf(namespaceUri));
}

CSmartPtr<CAttribute> CAttributeCol::Add(const wchar* name, const wchar* value) {
  return AddNew(TextOf(name), TextOf(value), GetNamespace());
}

CSmartPtr<CAttribute> CAttributeCol::Add(const wchar* name) {
  return AddNew(TextOf(name), WString(), GetNamespace());
}

void CAttributeCol::Add(CAttribute* attribute) {
  AppendItem(attribute);
}

void CAttributeCol::AddAfter(const CAttribute* existing, CAttribute* attribute) {
  AddAfterItem(existing, attribute);
}

void CAttributeCol::AddBefore(const CAttribute* existing, CAttribute* attribute) {
  AddBeforeItem(existing, attribute);
}

CSmartPtr<CAttribute> CAttributeCol::Item(int index) const {
  return static_cast<CAttribute*>(GetNodeAtIndex(index)->item.Get());
}

CSmartPtr<CAttributeCol> CAttributeCol::Clone() const {
  CSmartPtr<CAttributeCol> copy(
      new CAttributeCol(GetNamespace().c_str(), m_restriction.c_str(), m_targetNamespace.c_str()));
  for (const CAttribute* attribute : *this) copy->Add(attribute->Clone());
  return copy;
}

WString CAttributeCol::GetTargetNamespace() const {
  return GetNamespace();
}

void CAttributeCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                              const CSerializationContext& context,
                              bool /*isOptionalChoice*/) const {
  for (const CAttribute* attribute : *this) {
    CXmlObjectBase::ToXml_Int(attribute, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                                        const CSerializationContext& /*context*/,
                                        bool /*isOptionalChoice*/) {
  for (const CXmlAttribute* attribute : parent->GetAttributes()) {
    const WString& uri = attribute->GetNamespaceURI();
    if (!IsNamespaceAllowed(uri, m_restriction, m_targetNamespace)) {
      throw CTovikInvalidNamespaceException(
          FormatString(u"Invalid Attribute [%s]. The attributes namespace is Inappropriate.",
                       attribute->GetLocalName().c_str()),
          parent->GetXPath());
    }
    AddNew(attribute->GetLocalName(), WString(attribute->GetValueView()), uri);
  }
  return firstChild;
}

CSmartPtr<CAttribute> CAttributeCol::AddNew(WString name, WString value, WString namespaceUri) {
  RequireNamespaceAllowed(namespaceUri, m_restriction, m_targetNamespace);
  CSmartPtr<CAttribute> attribute(
      new CAttribute(std::move(name), std::move(value), std::move(namespaceUri)));
  AppendItem(attribute);
  return attribute;
}

}  // namespace TovikXmlLib16
