#include "examples/mime_database/generated/comment.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_Lang, prop_Text };

}  // namespace

struct CComment::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"comment", kNamespace, true,
                                       false, prop_Text, it_string, u"", true);
    elements = new CElementInfo*[1]();
    attributes = new CAttributeInfo*[2]();
    attributes[0] = new CAttributeInfoPrimitive(
        u"lang", u"http://www.w3.org/XML/1998/namespace", prop_Lang, true, it_string, u"",
        CWhitespaceUtils::ws_preserve,
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

CComment::CComment(const wchar* elementName) {
  SetElementName(elementName);
  CComment::Init();
}

CComment::~CComment() = default;

void CComment::SetLang(const WString& value) {
  m_lang = value;
  m_langValid = true;
}

void CComment::SetText(const WString& value) {
  m_text = value;
}

WString CComment::GetTargetNamespace() const {
  return kNamespace;
}

WString CComment::GetNamespace() const {
  return kNamespace;
}

void CComment::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Lang:
      if (read) {
        if (m_langValid) value.SetString(m_lang);
      } else {
        m_lang = value.TakeString();
        m_langValid = true;
      }
      break;
    case prop_Text:
      if (read) {
        value.SetString(m_text);
      } else {
        m_text = value.TakeString();
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CComment::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CComment::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CComment::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CComment::Init() {
  m_lang = WString();
  m_langValid = false;
  m_text = WString();
}

}  // namespace MimeDatabase
