#include "examples/mime_database/generated/match_col.h"

using namespace TovikXmlLib16;

namespace MimeDatabase {

CMatchCol::CMatchCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                     int maxOccurs)
    : CXmlCollection(elementName, namespaceUri, minOccurs, maxOccurs) {}

CSmartPtr<CMatch> CMatchCol::Add() {
  CSmartPtr<CMatch> item(new CMatch(GetElementName().c_str()));
  AppendItem(item);
  return item;
}

void CMatchCol::Add(CMatch* item) {
  Throw_IfElementNameDiffers(item, GetElementName().c_str());
  AppendItem(item);
}

CSmartPtr<CMatch> CMatchCol::Item(int index) const {
  return static_cast<CMatch*>(GetNodeAtIndex(index)->item.Get());
}

CTovikIterator<CMatch> CMatchCol::begin() const {
  return CTovikIterator<CMatch>(GetFirstNode());
}

CTovikIterator<CMatch> CMatchCol::end() const {
  return CTovikIterator<CMatch>();
}

void CMatchCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                          const CSerializationContext& context, bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  for (const CMatch* item : *this) {
    CXmlObjectBase::ToXml_Int(item, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* CMatchCol::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* firstChild,
                                    const CSerializationContext& context,
                                    bool /*isOptionalChoice*/) {
  const WString name = GetElementName();
  const WString uri = GetNamespace();
  CXmlElement* child = firstChild;
  while (child && DoesElementNameMatch(context, child, name.c_str(), uri.c_str())) {
    const CSmartPtr<CMatch> item(new CMatch(name.c_str()));
    CXmlObjectBase::FromXml_Int(item, child, child->GetFirstElement(), context);
    AppendItem(item);
    child = child->GetNextSiblingElement();
  }
  return child;
}

}  // namespace MimeDatabase
