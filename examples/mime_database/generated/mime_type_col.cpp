#include "examples/mime_database/generated/mime_type_col.h"

using namespace TovikXmlLib16;

namespace MimeDatabase {

CMimeTypeCol::CMimeTypeCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                           int maxOccurs)
    : CXmlCollection(elementName, namespaceUri, minOccurs, maxOccurs) {}

CSmartPtr<CMimeType> CMimeTypeCol::Add() {
  CSmartPtr<CMimeType> item(new CMimeType(GetElementName().c_str()));
  AppendItem(item);
  return item;
}

void CMimeTypeCol::Add(CMimeType* item) {
  Throw_IfElementNameDiffers(item, GetElementName().c_str());
  AppendItem(item);
}

CSmartPtr<CMimeType> CMimeTypeCol::Item(int index) const {
  return static_cast<CMimeType*>(GetNodeAtIndex(index)->item.Get());
}

CTovikIterator<CMimeType> CMimeTypeCol::begin() const {
  return CTovikIterator<CMimeType>(GetFirstNode());
}

CTovikIterator<CMimeType> CMimeTypeCol::end() const {
  return CTovikIterator<CMimeType>();
}

void CMimeTypeCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                             const CSerializationContext& context,
                             bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  for (const CMimeType* item : *this) {
    CXmlObjectBase::ToXml_Int(item, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* CMimeTypeCol::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* firstChild,
                                       const CSerializationContext& context,
                                       bool /*isOptionalChoice*/) {
  const WString name = GetElementName();
  const WString uri = GetNamespace();
  CXmlElement* child = firstChild;
  while (child && DoesElementNameMatch(context, child, name.c_str(), uri.c_str())) {
    const CSmartPtr<CMimeType> item(new CMimeType(name.c_str()));
    CXmlObjectBase::FromXml_Int(item, child, child->GetFirstElement(), context);
    AppendItem(item);
    child = child->GetNextSiblingElement();
  }
  return child;
}

}  // namespace MimeDatabase
