#include "examples/orders/generated/customer.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace Orders {
namespace {

constexpr const wchar* kNamespace = u"urn:example:bench:orders";

enum Property { prop_Name, prop_Street, prop_City, prop_PostalCode, prop_Country };

}  // namespace

struct CCustomer::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"customer", kNamespace, true,
                                       false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[6]();
    elements[0] = new CElementInfoSeqPrimMnd(
        u"name", kNamespace, prop_Name, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[1] = new CElementInfoSeqPrimMnd(
        u"street", kNamespace, prop_Street, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[2] = new CElementInfoSeqPrimMnd(
        u"city", kNamespace, prop_City, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[3] = new CElementInfoSeqPrimMnd(
        u"postalCode", kNamespace, prop_PostalCode, false, it_string, u"",
        CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[4] = new CElementInfoSeqPrimMnd(
        u"country", kNamespace, prop_Country, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
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

CCustomer::CCustomer(const wchar* elementName) {
  SetElementName(elementName);
  CCustomer::Init();
}

CCustomer::~CCustomer() = default;

void CCustomer::SetName(const WString& value) {
  m_name = value;
}

void CCustomer::SetStreet(const WString& value) {
  m_street = value;
}

void CCustomer::SetCity(const WString& value) {
  m_city = value;
}

void CCustomer::SetPostalCode(const WString& value) {
  m_postalCode = value;
}

void CCustomer::SetCountry(const WString& value) {
  m_country = value;
}

WString CCustomer::GetTargetNamespace() const {
  return kNamespace;
}

WString CCustomer::GetNamespace() const {
  return kNamespace;
}

void CCustomer::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Name:
      if (read) {
        value.SetString(m_name);
      } else {
        m_name = value.TakeString();
      }
      break;
    case prop_Street:
      if (read) {
        value.SetString(m_street);
      } else {
        m_street = value.TakeString();
      }
      break;
    case prop_City:
      if (read) {
        value.SetString(m_city);
      } else {
        m_city = value.TakeString();
      }
      break;
    case prop_PostalCode:
      if (read) {
        value.SetString(m_postalCode);
      } else {
        m_postalCode = value.TakeString();
      }
      break;
    case prop_Country:
      if (read) {
        value.SetString(m_country);
      } else {
        m_country = value.TakeString();
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CCustomer::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CCustomer::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CCustomer::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CCustomer::Init() {
  m_name = WString();
  m_street = WString();
  m_city = WString();
  m_postalCode = WString();
  m_country = WString();
}

}  // namespace Orders
