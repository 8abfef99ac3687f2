#include "examples/orders/generated/order_list.h"

#include "examples/orders/generated/order_col.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace Orders {
namespace {

constexpr const wchar* kNamespace = u"urn:example:bench:orders";

enum Property { prop_Orders };

}  // namespace

struct COrderList::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"orders", kNamespace, true,
                                       false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[2]();
    elements[0] = new CElementInfoSeqClsCol(u"order", kNamespace, prop_Orders, xet_Element);
    attributes = new CAttributeInfo*[1]();
  }
  MetaData(const MetaData&) = delete;
  MetaData& operator=(const MetaData&) = delete;
  ~MetaData() { CleanMetaData(classInfo, elements, attributes); }

  static const MetaData& Get() {
    static const MetaData data;
    return data;
  }
};

COrderList::COrderList(const wchar* elementName) {
  SetElementName(elementName);
  COrderList::Init();
}

COrderList::~COrderList() = default;

CSmartPtr<COrderCol> COrderList::GetOrders() const {
  return m_orders;
}

WString COrderList::GetTargetNamespace() const {
  return kNamespace;
}

WString COrderList::GetNamespace() const {
  return kNamespace;
}

void COrderList::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Orders:
      if (read) value.SetXmlCollection(m_orders);
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* COrderList::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** COrderList::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** COrderList::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void COrderList::Init() {
  if (m_orders) {
    m_orders->Clear();
  } else {
    m_orders = new COrderCol(u"order", kNamespace, 1, -1);
  }
}

}  // namespace Orders
