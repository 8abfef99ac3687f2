#include "examples/orders/generated/item.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace Orders {
namespace {

constexpr const wchar* kNamespace = u"urn:example:bench:orders";

enum Property {
  prop_Sku,
  prop_Description,
  prop_Quantity,
  prop_Price,
  prop_Weight,
  prop_ShipDate,
  prop_InStock
};

}  // namespace

struct CItem::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"item", kNamespace, true, false,
                                       -1, it_invalid, u"", false);
    elements = new CElementInfo*[7]();
    elements[0] = new CElementInfoSeqPrimMnd(
        u"description", kNamespace, prop_Description, false, it_string, u"",
        CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[1] = new CElementInfoSeqPrimMnd(
        u"quantity", kNamespace, prop_Quantity, false, it_i4, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[2] = new CElementInfoSeqPrimMnd(
        u"price", kNamespace, prop_Price, false, it_decimal, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[3] = new CElementInfoSeqPrimMnd(
        u"weight", kNamespace, prop_Weight, false, it_r8, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[4] = new CElementInfoSeqPrimMnd(
        u"shipDate", kNamespace, prop_ShipDate, false, it_date, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[5] = new CElementInfoSeqPrimMnd(
        u"inStock", kNamespace, prop_InStock, false, it_boolean, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes = new CAttributeInfo*[2]();
    attributes[0] = new CAttributeInfoPrimitive(
        u"sku", u"", prop_Sku, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
  }
  MetaData(const MetaData&) = delete;
  MetaData& operator=(const MetaData&) = delete;
  ~MetaData() { CleanMetaData(classInfo, elements, attributes); }

  static const MetaData& Get() {
    static const MetaData data;
    return data;
  }
};

CItem::CItem(const wchar* elementName) {
  SetElementName(elementName);
  CItem::Init();
}

CItem::~CItem() = default;

void CItem::SetSku(const WString& value) {
  m_sku = value;
}

void CItem::SetDescription(const WString& value) {
  m_description = value;
}

void CItem::SetQuantity(std::int32_t value) {
  m_quantity = value;
}

void CItem::SetPrice(const CDecimal& value) {
  m_price = value;
}

void CItem::SetWeight(double value) {
  m_weight = value;
}

void CItem::SetShipDate(const CDateTime& value) {
  m_shipDate = value;
}

void CItem::SetInStock(bool value) {
  m_inStock = value;
}

WString CItem::GetTargetNamespace() const {
  return kNamespace;
}

WString CItem::GetNamespace() const {
  return kNamespace;
}

void CItem::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Sku:
      if (read) {
        value.SetString(m_sku);
      } else {
        m_sku = value.TakeString();
      }
      break;
    case prop_Description:
      if (read) {
        value.SetString(m_description);
      } else {
        m_description = value.TakeString();
      }
      break;
    case prop_Quantity:
      if (read) {
        value.SetI4(m_quantity);
      } else {
        SetQuantity(value.GetI4());
      }
      break;
    case prop_Price:
      if (read) {
        value.SetDecimal(m_price);
      } else {
        SetPrice(value.GetDecimal());
      }
      break;
    case prop_Weight:
      if (read) {
        value.SetR8(m_weight);
      } else {
        SetWeight(value.GetR8());
      }
      break;
    case prop_ShipDate:
      if (read) {
        value.SetDate(m_shipDate);
      } else {
        SetShipDate(value.GetDate());
      }
      break;
    case prop_InStock:
      if (read) {
        value.SetBoolean(m_inStock);
      } else {
        SetInStock(value.GetBoolean());
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CItem::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CItem::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CItem::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CItem::Init() {
  m_sku = WString();
  m_description = WString();
  m_quantity = 0;
  m_price = CDecimal();
  m_weight = 0;
  m_shipDate = CDateTime(CDateTime::dt_date);
  m_inStock = false;
}

}  // namespace Orders
