#ifndef EXAMPLES_ORDERS_GENERATED_ITEM_H_
#define EXAMPLES_ORDERS_GENERATED_ITEM_H_

#include <cstdint>

#include "tovikxml/tovikxml.h"

namespace Orders {

/// One line of an order.
class CItem : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CItem(const TovikXmlLib16::wchar* elementName = u"item");
  ~CItem() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetSku() const { return m_sku; }
  void SetSku(const TovikXmlLib16::WString& value);
  const TovikXmlLib16::WString& GetDescription() const { return m_description; }
  void SetDescription(const TovikXmlLib16::WString& value);
  std::int32_t GetQuantity() const { return m_quantity; }
  void SetQuantity(std::int32_t value);
  TovikXmlLib16::CDecimal GetPrice() const { return m_price; }
  void SetPrice(const TovikXmlLib16::CDecimal& value);
  double GetWeight() const { return m_weight; }
  void SetWeight(double value);
  TovikXmlLib16::CDateTime GetShipDate() const { return m_shipDate; }
  void SetShipDate(const TovikXmlLib16::CDateTime& value);
  bool GetInStock() const { return m_inStock; }
  void SetInStock(bool value);

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

  TovikXmlLib16::WString m_sku;
  TovikXmlLib16::WString m_description;
  std::int32_t m_quantity{};
  TovikXmlLib16::CDecimal m_price;
  double m_weight{};
  TovikXmlLib16::CDateTime m_shipDate;
  bool m_inStock{};
};

}  // namespace Orders

#endif  // EXAMPLES_ORDERS_GENERATED_ITEM_H_
