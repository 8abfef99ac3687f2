#include "examples/mime_database/generated/root_xml.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_NamespaceUri, prop_LocalName };

}  // namespace

struct CRootXml::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"root-XML", kNamespace, true,
                                       false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[1]();
    attributes = new CAttributeInfo*[3]();
    attributes[0] = new CAttributeInfoPrimitive(
        u"namespaceURI", u"", prop_NamespaceUri, false, it_string, u"",
        CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes[1] = new CAttributeInfoPrimitive(
        u"localName", u"", prop_LocalName, false, it_string, u"", CWhitespaceUtils::ws_preserve,
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

CRootXml::CRootXml(const wchar* elementName) {
  SetElementName(elementName);
  CRootXml::Init();
}

CRootXml::~CRootXml() = default;

void CRootXml::SetNamespaceUri(const WString& value) {
  m_namespaceUri = value;
}

void CRootXml::SetLocalName(const WString& value) {
  m_localName = value;
}

WString CRootXml::GetTargetNamespace() const {
  return kNamespace;
}

WString CRootXml::GetNamespace() const {
  return kNamespace;
}

void CRootXml::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_NamespaceUri:
      if (read) {
        value.SetString(m_namespaceUri);
      } else {
        m_namespaceUri = value.TakeString();
      }
      break;
    case prop_LocalName:
      if (read) {
        value.SetString(m_localName);
      } else {
        m_localName = value.TakeString();
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CRootXml::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CRootXml::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CRootXml::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CRootXml::Init() {
  m_namespaceUri = WString();
  m_localName = WString();
}

}  // namespace MimeDatabase
