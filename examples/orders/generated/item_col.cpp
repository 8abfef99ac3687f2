#include "examples/orders/generated/item_col.h"

using namespace TovikXmlLib16;

namespace Orders {

CItemCol::CItemCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                   int maxOccurs)
    : CXmlCollection(elementName, namespaceUri, minOccurs, maxOccurs) {}

CSmartPtr<CItem> CItemCol::Add() {
  CSmartPtr<CItem> item(new CItem(GetElementName().c_str()));
  AppendItem(item);
  return item;
}

void CItemCol::Add(CItem* item) {
  Throw_IfElementNameDiffers(item, GetElementName().c_str());
  AppendItem(item);
}

CSmartPtr<CItem> CItemCol::Item(int index) const {
  return static_cast<CItem*>(GetNodeAtIndex(index)->item.Get());
}

CTovikIterator<CItem> CItemCol::begin() const {
  return CTovikIterator<CItem>(GetFirstNode());
}

CTovikIterator<CItem> CItemCol::end() const {
  return CTovikIterator<CItem>();
}

void CItemCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                         const CSerializationContext& context, bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  for (const CItem* item : *this) {
    CXmlObjectBase::ToXml_Int(item, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* CItemCol::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* firstChild,
                                   const CSerializationContext& context,
                                   bool /*isOptionalChoice*/) {
  const WString name = GetElementName();
  const WString uri = GetNamespace();
  CXmlElement* child = firstChild;
  while (child && DoesElementNameMatch(context, child, name.c_str(), uri.c_str())) {
    const CSmartPtr<CItem> item(new CItem(name.c_str()));
    CXmlObjectBase::FromXml_Int(item, child, child->GetFirstElement(), context);
    AppendItem(item);
    child = child->GetNextSiblingElement();
  }
  return child;
}

}  // namespace Orders
