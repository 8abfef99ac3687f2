#ifndef EXAMPLES_ORDERS_GENERATED_ORDER_H_
#define EXAMPLES_ORDERS_GENERATED_ORDER_H_

#include <cstdint>

#include "examples/orders/generated/enumerations.h"
#include "tovikxml/tovikxml.h"

namespace Orders {

class CCustomer;
class CItem;
class CItemCol;

/// One order of a customer.
class COrder : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit COrder(const TovikXmlLib16::wchar* elementName = u"order");
  ~COrder() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  std::int32_t GetId() const { return m_id; }
  void SetId(std::int32_t value);
  TovikXmlLib16::CDateTime GetDate() const { return m_date; }
  void SetDate(const TovikXmlLib16::CDateTime& value);
  Status GetStatus() const { return m_status; }
  void SetStatus(Status value);
  TovikXmlLib16::CSmartPtr<CCustomer> GetCustomer() const;
  void SetCustomer(CCustomer* value);
  const TovikXmlLib16::WString& GetNotes() const { return m_notes; }
  void SetNotes(const TovikXmlLib16::WString& value);
  bool IsValidNotes() const { return m_notesValid; }
  void SetValidNotes(bool valid) { m_notesValid = valid; }
  TovikXmlLib16::CSmartPtr<CItemCol> GetItems() const;

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

  std::int32_t m_id{};
  TovikXmlLib16::CDateTime m_date;
  Status m_status{};
  TovikXmlLib16::CSmartPtr<CCustomer> m_customer;
  TovikXmlLib16::WString m_notes;
  bool m_notesValid = false;
  TovikXmlLib16::CSmartPtr<CItemCol> m_items;
};

}  // namespace Orders

#endif  // EXAMPLES_ORDERS_GENERATED_ORDER_H_
