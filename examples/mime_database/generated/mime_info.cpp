#include "examples/mime_database/generated/mime_info.h"

#include "examples/mime_database/generated/mime_type_col.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_Types };

}  // namespace

struct CMimeInfo::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"mime-info", kNamespace, true,
                                       false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[2]();
    elements[0] = new CElementInfoSeqClsCol(u"mime-type", kNamespace, prop_Types, xet_Element);
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

CMimeInfo::CMimeInfo(const wchar* elementName) {
  SetElementName(elementName);
  CMimeInfo::Init();
}

CMimeInfo::~CMimeInfo() = default;

CSmartPtr<CMimeTypeCol> CMimeInfo::GetTypes() const {
  return m_types;
}

WString CMimeInfo::GetTargetNamespace() const {
  return kNamespace;
}

WString CMimeInfo::GetNamespace() const {
  return kNamespace;
}

void CMimeInfo::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Types:
      if (read) value.SetXmlCollection(m_types);
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CMimeInfo::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CMimeInfo::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CMimeInfo::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CMimeInfo::Init() {
  if (m_types) {
    m_types->Clear();
  } else {
    m_types = new CMimeTypeCol(u"mime-type", kNamespace, 1, -1);
  }
}

}  // namespace MimeDatabase
