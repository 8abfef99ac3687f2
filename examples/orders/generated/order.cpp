#include "examples/orders/generated/order.h"

#include "examples/orders/generated/class_factory.h"
#include "examples/orders/generated/customer.h"
#include "examples/orders/generated/item_col.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace Orders {
namespace {

constexpr const wchar* kNamespace = u"urn:example:bench:orders";

enum Property { prop_Id, prop_Date, prop_Status, prop_Customer, prop_Notes, prop_Items };

}  // namespace

struct COrder::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"order", kNamespace, true, false,
                                       -1, it_invalid, u"", false);
    elements = new CElementInfo*[4]();
    elements[0] =
        new CElementInfoSeqClsMnd(u"customer", kNamespace, prop_Customer, xet_Element,
                                  &CClassFactory::Create, CClassFactory::ct_Customer, false);
    elements[1] = new CElementInfoSeqPrimOpt(
        u"notes", kNamespace, prop_Notes, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[2] = new CElementInfoSeqClsCol(u"item", kNamespace, prop_Items, xet_Element);
    attributes = new CAttributeInfo*[4]();
    attributes[0] = new CAttributeInfoPrimitive(
        u"id", u"", prop_Id, false, it_i4, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes[1] = new CAttributeInfoPrimitive(
        u"date", u"", prop_Date, false, it_date, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes[2] = new CAttributeInfoEnum(u"status", u"", prop_Status, false, StatusToText,
                                           StatusFromText, u"");
  }
  MetaData(const MetaData&) = delete;
  MetaData& operator=(const MetaData&) = delete;
  ~MetaData() { CleanMetaData(classInfo, elements, attributes); }

  static const MetaData& Get() {
    static const MetaData data;
    return data;
  }
};

COrder::COrder(const wchar* elementName) {
  SetElementName(elementName);
  COrder::Init();
}

COrder::~COrder() = default;

void COrder::SetId(std::int32_t value) {
  m_id = value;
}

void COrder::SetDate(const CDateTime& value) {
  m_date = value;
}

void COrder::SetStatus(Status value) {
  m_status = value;
}

CSmartPtr<CCustomer> COrder::GetCustomer() const {
  return m_customer;
}

void COrder::SetCustomer(CCustomer* value) {
  Throw_IfPropertyIsNull(value, u"customer");
  Throw_IfElementNameDiffers(value, u"customer");
  m_customer = value;
}

void COrder::SetNotes(const WString& value) {
  m_notes = value;
  m_notesValid = true;
}

CSmartPtr<CItemCol> COrder::GetItems() const {
  return m_items;
}

WString COrder::GetTargetNamespace() const {
  return kNamespace;
}

WString COrder::GetNamespace() const {
  return kNamespace;
}

void COrder::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Id:
      if (read) {
        value.SetI4(m_id);
      } else {
        SetId(value.GetI4());
      }
      break;
    case prop_Date:
      if (read) {
        value.SetDate(m_date);
      } else {
        SetDate(value.GetDate());
      }
      break;
    case prop_Status:
      if (read) {
        value.SetI4(m_status);
      } else {
        SetStatus(static_cast<Status>(value.GetI4()));
      }
      break;
    case prop_Customer:
      if (read) {
        value.SetXmlObject(m_customer);
      } else {
        SetCustomer(static_cast<CCustomer*>(value.GetXmlObject().Get()));
      }
      break;
    case prop_Notes:
      if (read) {
        if (m_notesValid) value.SetString(m_notes);
      } else {
        m_notes = value.TakeString();
        m_notesValid = true;
      }
      break;
    case prop_Items:
      if (read) value.SetXmlCollection(m_items);
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* COrder::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** COrder::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** COrder::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void COrder::Init() {
  m_id = 0;
  m_date = CDateTime(CDateTime::dt_date);
  m_status = Status();
  m_customer = new CCustomer(u"customer");
  m_notes = WString();
  m_notesValid = false;
  if (m_items) {
    m_items->Clear();
  } else {
    m_items = new CItemCol(u"item", kNamespace, 1, -1);
  }
}

}  // namespace Orders
