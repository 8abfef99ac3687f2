#include "examples/mime_database/generated/type_reference.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_Type };

}  // namespace

struct CTypeReference::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"alias", kNamespace, true, false,
                                       -1, it_invalid, u"", false);
    elements = new CElementInfo*[1]();
    attributes = new CAttributeInfo*[2]();
    attributes[0] = new CAttributeInfoPrimitive(
        u"type", u"", prop_Type, false, it_string, u"", CWhitespaceUtils::ws_preserve,
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

CTypeReference::CTypeReference(const wchar* elementName) {
  SetElementName(elementName);
  CTypeReference::Init();
}

CTypeReference::~CTypeReference() = default;

void CTypeReference::SetType(const WString& value) {
  m_type = value;
}

WString CTypeReference::GetTargetNamespace() const {
  return kNamespace;
}

WString CTypeReference::GetNamespace() const {
  return kNamespace;
}

void CTypeReference::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Type:
      if (read) {
        value.SetString(m_type);
      } else {
        m_type = value.TakeString();
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CTypeReference::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CTypeReference::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CTypeReference::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CTypeReference::Init() {
  m_type = WString();
}

}  // namespace MimeDatabase
