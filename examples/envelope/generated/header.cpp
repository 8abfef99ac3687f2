#include "examples/envelope/generated/header.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace Messages {
namespace {

constexpr const wchar* kNamespace = u"urn:example:messages";

enum Property { prop_AnyElements, prop_AnyAttributes };

}  // namespace

struct CHeader::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"header", kNamespace, true,
                                       false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[2]();
    elements[0] = new CElementInfoSeqUntpdCol(u"AnyElement", kNamespace, prop_AnyElements);
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

CHeader::CHeader(const wchar* elementName) {
  SetElementName(elementName);
  CHeader::Init();
}

CHeader::~CHeader() = default;

CSmartPtr<CElementCol> CHeader::GetAnyElements() const {
  return m_anyElements;
}

CSmartPtr<CAttributeCol> CHeader::GetAnyAttributes() const {
  return m_anyAttributes;
}

WString CHeader::GetTargetNamespace() const {
  return kNamespace;
}

WString CHeader::GetNamespace() const {
  return kNamespace;
}

void CHeader::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_AnyElements:
      if (read) value.SetXmlCollection(m_anyElements);
      break;
    case prop_AnyAttributes:
      if (read) value.SetXmlCollection(m_anyAttributes);
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CHeader::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CHeader::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CHeader::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CHeader::Init() {
  m_anyElements = new CElementCol(u"", u"##other", kNamespace, 0, -1);
  m_anyAttributes = new CAttributeCol(u"", u"##other", kNamespace);
}

}  // namespace Messages
