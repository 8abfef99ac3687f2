#include "examples/mime_database/generated/generic_icon.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_Name };

}  // namespace

struct CGenericIcon::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"generic-icon", kNamespace, true,
                                       false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[1]();
    attributes = new CAttributeInfo*[2]();
    attributes[0] = new CAttributeInfoEnum(u"name", u"", prop_Name, false, IconNameToText,
                                           IconNameFromText, u"");
  }
  MetaData(const MetaData&) = delete;
  MetaData& operator=(const MetaData&) = delete;
  ~MetaData() { CleanMetaData(classInfo, elements, attributes); }

  static const MetaData& Get() {
    static const MetaData data;
    return data;
  }
};

CGenericIcon::CGenericIcon(const wchar* elementName) {
  SetElementName(elementName);
  CGenericIcon::Init();
}

CGenericIcon::~CGenericIcon() = default;

void CGenericIcon::SetName(IconName value) {
  m_name = value;
}

WString CGenericIcon::GetTargetNamespace() const {
  return kNamespace;
}

WString CGenericIcon::GetNamespace() const {
  return kNamespace;
}

void CGenericIcon::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Name:
      if (read) {
        value.SetI4(m_name);
      } else {
        SetName(static_cast<IconName>(value.GetI4()));
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CGenericIcon::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CGenericIcon::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CGenericIcon::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CGenericIcon::Init() {
  m_name = IconName();
}

}  // namespace MimeDatabase
