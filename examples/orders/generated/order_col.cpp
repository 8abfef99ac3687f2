#include "examples/orders/generated/order_col.h"

using namespace TovikXmlLib16;

namespace Orders {

COrderCol::COrderCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs,
                     int maxOccurs)
    : CXmlCollection(elementName, namespaceUri, minOccurs, maxOccurs) {}

CSmartPtr<COrder> COrderCol::Add() {
  CSmartPtr<COrder> item(new COrder(GetElementName().c_str()));
  AppendItem(item);
  return item;
}

void COrderCol::Add(COrder* item) {
  Throw_IfElementNameDiffers(item, GetElementName().c_str());
  AppendItem(item);
}

CSmartPtr<COrder> COrderCol::Item(int index) const {
  return static_cast<COrder*>(GetNodeAtIndex(index)->item.Get());
}

CTovikIterator<COrder> COrderCol::begin() const {
  return CTovikIterator<COrder>(GetFirstNode());
}

CTovikIterator<COrder> COrderCol::end() const {
  return CTovikIterator<COrder>();
}

void COrderCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                          const CSerializationContext& context, bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  for (const COrder* item : *this) {
    CXmlObjectBase::ToXml_Int(item, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* COrderCol::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* firstChild,
                                    const CSerializationContext& context,
                                    bool /*isOptionalChoice*/) {
  const WString name = GetElementName();
  const WString uri = GetNamespace();
  CXmlElement* child = firstChild;
  while (child && DoesElementNameMatch(context, child, name.c_str(), uri.c_str())) {
    const CSmartPtr<COrder> item(new COrder(name.c_str()));
    CXmlObjectBase::FromXml_Int(item, child, child->GetFirstElement(), context);
    AppendItem(item);
    child = child->GetNextSiblingElement();
  }
  return child;
}

}  // namespace Orders
