#ifndef EXAMPLES_ORDERS_GENERATED_CLASS_FACTORY_H_
#define EXAMPLES_ORDERS_GENERATED_CLASS_FACTORY_H_

#include "tovikxml/tovikxml.h"

/// Makes the objects of optional and repeated elements.
namespace Orders {

class CClassFactory : public TovikXmlLib16::CClassfactoryBase {
 public:
  enum ClassType { ct_OrderList, ct_Order, ct_Customer, ct_Item };

  static TovikXmlLib16::CSmartPtr<TovikXmlLib16::CXmlObjectBase> Create(
      int classType, const TovikXmlLib16::wchar* elementName);
};

}  // namespace Orders

#endif  // EXAMPLES_ORDERS_GENERATED_CLASS_FACTORY_H_
