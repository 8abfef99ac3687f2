#include "examples/envelope/generated/body.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace Messages {
namespace {

constexpr const wchar* kNamespace = u"urn:example:messages";

enum Property { prop_AnyElement };

}  // namespace

struct CBody::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"body", kNamespace, true, false,
                                       -1, it_invalid, u"", false);
    elements = new CElementInfo*[2]();
    elements[0] = new CElementInfoSeqUntpdMnd(u"AnyElement", kNamespace, prop_AnyElement,
                                              u"##other", kNamespace);
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

CBody::CBody(const wchar* elementName) {
  SetElementName(elementName);
  CBody::Init();
}

CBody::~CBody() = default;

CSmartPtr<CElement> CBody::GetAnyElement() const {
  return m_anyElement;
}

void CBody::SetAnyElement(CElement* value) {
  Throw_IfPropertyIsNull(value, u"AnyElement");
  value->SetNamespaceRestrictions(u"##other", kNamespace);
  m_anyElement = value;
}

WString CBody::GetTargetNamespace() const {
  return kNamespace;
}

WString CBody::GetNamespace() const {
  return kNamespace;
}

void CBody::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_AnyElement:
      if (read) {
        value.SetXmlObject(m_anyElement);
      } else {
        m_anyElement = static_cast<CElement*>(value.GetXmlObject().Get());
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CBody::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CBody::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CBody::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CBody::Init() {
  m_anyElement = new CElement(u"AnyElement", u"", u"##other", kNamespace);
}

}  // namespace Messages
