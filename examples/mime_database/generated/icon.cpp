#include "examples/mime_database/generated/icon.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_Name };

}  // namespace

struct CIcon::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"icon", kNamespace, true, false,
                                       -1, it_invalid, u"", false);
    elements = new CElementInfo*[1]();
    attributes = new CAttributeInfo*[2]();
    attributes[0] = new CAttributeInfoPrimitive(
        u"name", u"", prop_Name, false, it_string, u"", CWhitespaceUtils::ws_preserve,
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

CIcon::CIcon(const wchar* elementName) {
  SetElementName(elementName);
  CIcon::Init();
}

CIcon::~CIcon() = default;

void CIcon::SetName(const WString& value) {
  m_name = value;
}

WString CIcon::GetTargetNamespace() const {
  return kNamespace;
}

WString CIcon::GetNamespace() const {
  return kNamespace;
}

void CIcon::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Name:
      if (read) {
        value.SetString(m_name);
      } else {
        m_name = value.TakeString();
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CIcon::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CIcon::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CIcon::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CIcon::Init() {
  m_name = WString();
}

}  // namespace MimeDatabase
