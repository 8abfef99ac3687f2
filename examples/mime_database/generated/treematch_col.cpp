#include "examples/mime_database/generated/treematch_col.h"

using namespace TovikXmlLib16;

namespace MimeDatabase {

CTreematchCol::CTreematchCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                             int maxOccurs)
    : CXmlCollection(elementName, namespaceUri, minOccurs, maxOccurs) {}

CSmartPtr<CTreematch> CTreematchCol::Add() {
  CSmartPtr<CTreematch> item(new CTreematch(GetElementName().c_str()));
  AppendItem(item);
  return item;
}

void CTreematchCol::Add(CTreematch* item) {
  Throw_IfElementNameDiffers(item, GetElementName().c_str());
  AppendItem(item);
}

CSmartPtr<CTreematch> CTreematchCol::Item(int index) const {
  return static_cast<CTreematch*>(GetNodeAtIndex(index)->item.Get());
}

CTovikIterator<CTreematch> CTreematchCol::begin() const {
  return CTovikIterator<CTreematch>(GetFirstNode());
}

CTovikIterator<CTreematch> CTreematchCol::end() const {
  return CTovikIterator<CTreematch>();
}

void CTreematchCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                              const CSerializationContext& context,
                              bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  for (const CTreematch* item : *this) {
    CXmlObjectBase::ToXml_Int(item, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* CTreematchCol::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* firstChild,
                                        const CSerializationContext& context,
                                        bool /*isOptionalChoice*/) {
  const WString name = GetElementName();
  const WString uri = GetNamespace();
  CXmlElement* child = firstChild;
  while (child && DoesElementNameMatch(context, child, name.c_str(), uri.c_str())) {
    const CSmartPtr<CTreematch> item(new CTreematch(name.c_str()));
    CXmlObjectBase::FromXml_Int(item, child, child->GetFirstElement(), context);
    AppendItem(item);
    child = child->GetNextSiblingElement();
  }
  return child;
}

}  // namespace MimeDatabase
