#include "examples/mime_database/generated/property_col.h"

using namespace TovikXmlLib16;

namespace MimeDatabase {

CPropertyCol::CPropertyCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                           int maxOccurs)
    : CXmlCollection(elementName, namespaceUri, minOccurs, maxOccurs) {}

CSmartPtr<CProperty> CPropertyCol::Add() {
  CSmartPtr<CProperty> item(new CProperty(GetElementName().c_str()));
  AppendItem(item);
  return item;
}

void CPropertyCol::Add(CProperty* item) {
  Throw_IfElementNameDiffers(item, GetElementName().c_str());
  AppendItem(item);
}

CSmartPtr<CProperty> CPropertyCol::Item(int index) const {
  return static_cast<CProperty*>(GetNodeAtIndex(index)->item.Get());
}

CTovikIterator<CProperty> CPropertyCol::begin() const {
  return CTovikIterator<CProperty>(GetFirstNode());
}

CTovikIterator<CProperty> CPropertyCol::end() const {
  return CTovikIterator<CProperty>();
}

void CPropertyCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                             const CSerializationContext& context,
                             bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  for (const CProperty* item : *this) {
    CXmlObjectBase::ToXml_Int(item, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* CPropertyCol::FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                                       const CSerializationContext& context,
                                       bool /*isOptionalChoice*/) {
  CXmlElement* child = firstChild;
  while (child) {
    const CSmartPtr<CProperty> item(new CProperty(GetElementName().c_str()));
    CXmlElement* next = CXmlObjectBase::FromXml_Int(item, parent, child, context);
    if (next == child) break;
    AppendItem(item);
    child = next;
  }
  return child;
}

}  // namespace MimeDatabase
