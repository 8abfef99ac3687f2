#include "examples/mime_database/generated/mime_type.h"

#include "examples/mime_database/generated/acronyms.h"
#include "examples/mime_database/generated/class_factory.h"
#include "examples/mime_database/generated/comment_col.h"
#include "examples/mime_database/generated/property_col.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_Type, prop_Comments, prop_Acronyms, prop_Properties };

}  // namespace

struct CMimeType::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"mime-type", kNamespace, true,
                                       false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[4]();
    elements[0] = new CElementInfoSeqClsCol(u"comment", kNamespace, prop_Comments, xet_Element);
    elements[1] = new CElementInfoSeqClsOpt(u"acronyms", kNamespace, prop_Acronyms,
                                            xet_PseudoElementNoAttributes, &CClassFactory::Create,
                                            CClassFactory::ct_Acronyms);
    elements[2] = new CElementInfoSeqClsCol(u"properties", kNamespace, prop_Properties,
                                            xet_PseudoElementNoAttributes);
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

CMimeType::CMimeType(const wchar* elementName) {
  SetElementName(elementName);
  CMimeType::Init();
}

CMimeType::~CMimeType() = default;

void CMimeType::SetType(const WString& value) {
  m_type = value;
}

CSmartPtr<CCommentCol> CMimeType::GetComments() const {
  return m_comments;
}

CSmartPtr<CAcronyms> CMimeType::GetAcronyms() const {
  return m_acronyms;
}

void CMimeType::SetAcronyms(CAcronyms* value) {
  m_acronyms = value;
}

CSmartPtr<CPropertyCol> CMimeType::GetProperties() const {
  return m_properties;
}

WString CMimeType::GetTargetNamespace() const {
  return kNamespace;
}

WString CMimeType::GetNamespace() const {
  return kNamespace;
}

void CMimeType::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Type:
      if (read) {
        value.SetString(m_type);
      } else {
        m_type = value.TakeString();
      }
      break;
    case prop_Comments:
      if (read) value.SetXmlCollection(m_comments);
      break;
    case prop_Acronyms:
      if (read) {
        value.SetXmlObject(m_acronyms);
      } else {
        SetAcronyms(static_cast<CAcronyms*>(value.GetXmlObject().Get()));
      }
      break;
    case prop_Properties:
      if (read) value.SetXmlCollection(m_properties);
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CMimeType::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CMimeType::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CMimeType::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CMimeType::Init() {
  m_type = WString();
  if (m_comments) {
    m_comments->Clear();
  } else {
    m_comments = new CCommentCol(u"comment", kNamespace, 1, -1);
  }
  m_acronyms = nullptr;
  if (m_properties) {
    m_properties->Clear();
  } else {
    m_properties = new CPropertyCol(u"properties", kNamespace, 0, -1);
  }
}

}  // namespace MimeDatabase
