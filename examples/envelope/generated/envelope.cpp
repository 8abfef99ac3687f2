#include "examples/envelope/generated/envelope.h"

#include "examples/envelope/generated/body.h"
#include "examples/envelope/generated/class_factory.h"
#include "examples/envelope/generated/header.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace Messages {
namespace {

constexpr const wchar* kNamespace = u"urn:example:messages";

enum Property { prop_Header, prop_Body, prop_AnyAttributes };

}  // namespace

struct CEnvelope::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"envelope", kNamespace, true,
                                       false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[3]();
    elements[0] = new CElementInfoSeqClsOpt(u"header", kNamespace, prop_Header, xet_Element,
                                            &CClassFactory::Create, CClassFactory::ct_Header);
    elements[1] = new CElementInfoSeqClsMnd(u"body", kNamespace, prop_Body, xet_Element,
                                            &CClassFactory::Create, CClassFactory::ct_Body, false);
    attributes = new CAttributeInfo*[2]();
    attributes[0] =
        new CAttributeInfoAny(u"", u"", prop_AnyAttributes, true, u"##other", kNamespace, u"");
  }
  MetaData(const MetaData&) = delete;
  MetaData& operator=(const MetaData&) = delete;
  ~MetaData() { CleanMetaData(classInfo, elements, attributes); }

  static const MetaData& Get() {
    static const MetaData data;
    return data;
  }
};

CEnvelope::CEnvelope(const wchar* elementName) {
  SetElementName(elementName);
  CEnvelope::Init();
}

CEnvelope::~CEnvelope() = default;

CSmartPtr<CHeader> CEnvelope::GetHeader() const {
  return m_header;
}

void CEnvelope::SetHeader(CHeader* value) {
  Throw_IfElementNameDiffers(value, u"header");
  m_header = value;
}

CSmartPtr<CBody> CEnvelope::GetBody() const {
  return m_body;
}

void CEnvelope::SetBody(CBody* value) {
  Throw_IfPropertyIsNull(value, u"body");
  Throw_IfElementNameDiffers(value, u"body");
  m_body = value;
}

CSmartPtr<CAttributeCol> CEnvelope::GetAnyAttributes() const {
  return m_anyAttributes;
}

WString CEnvelope::GetTargetNamespace() const {
  return kNamespace;
}

WString CEnvelope::GetNamespace() const {
  return kNamespace;
}

void CEnvelope::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Header:
      if (read) {
        value.SetXmlObject(m_header);
      } else {
        m_header = static_cast<CHeader*>(value.GetXmlObject().Get());
      }
      break;
    case prop_Body:
      if (read) {
        value.SetXmlObject(m_body);
      } else {
        m_body = static_cast<CBody*>(value.GetXmlObject().Get());
      }
      break;
    case prop_AnyAttributes:
      if (read) value.SetXmlCollection(m_anyAttributes);
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CEnvelope::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CEnvelope::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CEnvelope::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CEnvelope::Init() {
  m_header = nullptr;
  m_body = new CBody(u"body");
  m_anyAttributes = new CAttributeCol(u"", u"##other", kNamespace);
}

}  // namespace Messages
