#include "examples/orders/generated/class_factory.h"

#include "examples/orders/generated/customer.h"
#include "examples/orders/generated/item.h"
#include "examples/orders/generated/order.h"
#include "examples/orders/generated/order_list.h"

using namespace TovikXmlLib16;

namespace Orders {
namespace {

// States the version that this code was made for, before any object exists.
const bool g_versionStated = (SetGeneratorVersion(16, 1), true);

}  // namespace

CSmartPtr<CXmlObjectBase> CClassFactory::Create(int classType, const wchar* elementName) {
  switch (classType) {
    case ct_OrderList:
      return new COrderList(elementName);
    case ct_Order:
      return new COrder(elementName);
    case ct_Customer:
      return new CCustomer(elementName);
    case ct_Item:
      return new CItem(elementName);
    default:
      throw CTovikInvalidParamException(FormatString(u"Unknown class type %d", classType));
  }
}

}  // namespace Orders
