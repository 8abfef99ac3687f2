#include "examples/mime_database/generated/glob.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_Pattern, prop_Weight, prop_CaseSensitive };

}  // namespace

struct CGlob::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"glob", kNamespace, true, false,
                                       -1, it_invalid, u"", false);
    elements = new CElementInfo*[1]();
    attributes = new CAttributeInfo*[4]();
    attributes[0] = new CAttributeInfoPrimitive(
        u"pattern", u"", prop_Pattern, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes[1] = new CAttributeInfoPrimitive(
        u"weight", u"", prop_Weight, true, it_i4, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"50");
    attributes[2] = new CAttributeInfoPrimitive(
        u"case-sensitive", u"", prop_CaseSensitive, true, it_boolean, u"",
        CWhitespaceUtils::ws_collapse,
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

CGlob::CGlob(const wchar* elementName) {
  SetElementName(elementName);
  CGlob::Init();
}

CGlob::~CGlob() = default;

void CGlob::SetPattern(const WString& value) {
  m_pattern = value;
}

void CGlob::SetWeight(std::int32_t value) {
  m_weight = value;
  m_weightValid = true;
}

void CGlob::SetCaseSensitive(bool value) {
  m_caseSensitive = value;
  m_caseSensitiveValid = true;
}

WString CGlob::GetTargetNamespace() const {
  return kNamespace;
}

WString CGlob::GetNamespace() const {
  return kNamespace;
}

void CGlob::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Pattern:
      if (read) {
        value.SetString(m_pattern);
      } else {
        m_pattern = value.TakeString();
      }
      break;
    case prop_Weight:
      if (read) {
        if (m_weightValid) value.SetI4(m_weight);
      } else {
        SetWeight(value.GetI4());
      }
      break;
    case prop_CaseSensitive:
      if (read) {
        if (m_caseSensitiveValid) value.SetBoolean(m_caseSensitive);
      } else {
        SetCaseSensitive(value.GetBoolean());
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CGlob::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CGlob::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CGlob::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CGlob::Init() {
  m_pattern = WString();
  m_weight = 0;
  m_weightValid = false;
  m_caseSensitive = false;
  m_caseSensitiveValid = false;
}

}  // namespace MimeDatabase
