#ifndef EXAMPLES_ORDERS_GENERATED_CUSTOMER_H_
#define EXAMPLES_ORDERS_GENERATED_CUSTOMER_H_

#include "tovikxml/tovikxml.h"

namespace Orders {

/// Who ordered, and where to deliver.
class CCustomer : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CCustomer(const TovikXmlLib16::wchar* elementName = u"customer");
  ~CCustomer() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetName() const { return m_name; }
  void SetName(const TovikXmlLib16::WString& value);
  const TovikXmlLib16::WString& GetStreet() const { return m_street; }
  void SetStreet(const TovikXmlLib16::WString& value);
  const TovikXmlLib16::WString& GetCity() const { return m_city; }
  void SetCity(const TovikXmlLib16::WString& value);
  const TovikXmlLib16::WString& GetPostalCode() const { return m_postalCode; }
  void SetPostalCode(const TovikXmlLib16::WString& value);
  const TovikXmlLib16::WString& GetCountry() const { return m_country; }
  void SetCountry(const TovikXmlLib16::WString& value);

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

  TovikXmlLib16::WString m_name;
  TovikXmlLib16::WString m_street;
  TovikXmlLib16::WString m_city;
  TovikXmlLib16::WString m_postalCode;
  TovikXmlLib16::WString m_country;
};

}  // namespace Orders

#endif  // EXAMPLES_ORDERS_GENERATED_CUSTOMER_H_
