#ifndef EXAMPLES_ORDERS_GENERATED_ORDER_LIST_H_
#define EXAMPLES_ORDERS_GENERATED_ORDER_LIST_H_

#include "tovikxml/tovikxml.h"

namespace Orders {

class COrder;
class COrderCol;

/// The root: all orders of a document.
class COrderList : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit COrderList(const TovikXmlLib16::wchar* elementName = u"orders");
  ~COrderList() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  TovikXmlLib16::CSmartPtr<COrderCol> GetOrders() const;

 protected:
  TovikXmlLib16::WString GetTargetNamespace() const override;
  TovikXmlLib16::WString GetNamespace() const override;
  void AccessProperty(int propertyIndex, bool read, TovikXmlLib16::TovikVariant& value) override;
  TovikXmlLib16::CParentElementInfo* GetClassInfo() const override;
  TovikXmlLib16::CElementInfo** GetClassElementInfo() const override;
  TovikXmlLib16::CAttributeInfo** GetClassAttributeInfo() const override;
  void Init() override;

 private:
  struct MetaData;

  TovikXmlLib16::CSmartPtr<COrderCol> m_orders;
};

}  // namespace Orders

#endif  // EXAMPLES_ORDERS_GENERATED_ORDER_LIST_H_
