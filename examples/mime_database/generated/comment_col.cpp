#include "examples/mime_database/generated/comment_col.h"

using namespace TovikXmlLib16;

namespace MimeDatabase {

CCommentCol::CCommentCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                         int maxOccurs)
    : CXmlCollection(elementName, namespaceUri, minOccurs, maxOccurs) {}

CSmartPtr<CComment> CCommentCol::Add() {
  CSmartPtr<CComment> item(new CComment(GetElementName().c_str()));
  AppendItem(item);
  return item;
}

void CCommentCol::Add(CComment* item) {
  Throw_IfElementNameDiffers(item, GetElementName().c_str());
  AppendItem(item);
}

CSmartPtr<CComment> CCommentCol::Item(int index) const {
  return static_cast<CComment*>(GetNodeAtIndex(index)->item.Get());
}

CTovikIterator<CComment> CCommentCol::begin() const {
  return CTovikIterator<CComment>(GetFirstNode());
}

CTovikIterator<CComment> CCommentCol::end() const {
  return CTovikIterator<CComment>();
}

void CCommentCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                            const CSerializationContext& context, bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  for (const CComment* item : *this) {
    CXmlObjectBase::ToXml_Int(item, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* CCommentCol::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* firstChild,
                                      const CSerializationContext& context,
                                      bool /*isOptionalChoice*/) {
  const WString name = GetElementName();
  const WString uri = GetNamespace();
  CXmlElement* child = firstChild;
  while (child && DoesElementNameMatch(context, child, name.c_str(), uri.c_str())) {
    const CSmartPtr<CComment> item(new CComment(name.c_str()));
    CXmlObjectBase::FromXml_Int(item, child, child->GetFirstElement(), context);
    AppendItem(item);
    child = child->GetNextSiblingElement();
  }
  return child;
}

}  // namespace MimeDatabase
