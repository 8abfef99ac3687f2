#include "examples/mime_database/generated/match.h"

#include "examples/mime_database/generated/match_col.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_Offset, prop_Type, prop_Value, prop_Mask, prop_Matches };

}  // namespace

struct CMatch::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"match", kNamespace, true, false,
                                       -1, it_invalid, u"", false);
    elements = new CElementInfo*[2]();
    elements[0] = new CElementInfoSeqClsCol(u"match", kNamespace, prop_Matches, xet_Element);
    attributes = new CAttributeInfo*[5]();
    attributes[0] = new CAttributeInfoPrimitive(
        u"offset", u"", prop_Offset, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes[1] = new CAttributeInfoEnum(u"type", u"", prop_Type, false, MatchTypeToText,
                                           MatchTypeFromText, u"");
    attributes[2] = new CAttributeInfoPrimitive(
        u"value", u"", prop_Value, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes[3] = new CAttributeInfoPrimitive(
        u"mask", u"", prop_Mask, true, it_string, u"", CWhitespaceUtils::ws_preserve,
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

CMatch::CMatch(const wchar* elementName) {
  SetElementName(elementName);
  CMatch::Init();
}

CMatch::~CMatch() = default;

void CMatch::SetOffset(const WString& value) {
  m_offset = value;
}

void CMatch::SetType(MatchType value) {
  m_type = value;
}

void CMatch::SetValue(const WString& value) {
  m_value = value;
}

void CMatch::SetMask(const WString& value) {
  m_mask = value;
  m_maskValid = true;
}

CSmartPtr<CMatchCol> CMatch::GetMatches() const {
  return m_matches;
}

WString CMatch::GetTargetNamespace() const {
  return kNamespace;
}

WString CMatch::GetNamespace() const {
  return kNamespace;
}

void CMatch::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Offset:
      if (read) {
        value.SetString(m_offset);
      } else {
        m_offset = value.TakeString();
      }
      break;
    case prop_Type:
      if (read) {
        value.SetI4(m_type);
      } else {
        SetType(static_cast<MatchType>(value.GetI4()));
      }
      break;
    case prop_Value:
      if (read) {
        value.SetString(m_value);
      } else {
        m_value = value.TakeString();
      }
      break;
    case prop_Mask:
      if (read) {
        if (m_maskValid) value.SetString(m_mask);
      } else {
        m_mask = value.TakeString();
        m_maskValid = true;
      }
      break;
    case prop_Matches:
      if (read) value.SetXmlCollection(m_matches);
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CMatch::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CMatch::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CMatch::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CMatch::Init() {
  m_offset = WString();
  m_type = MatchType();
  m_value = WString();
  m_mask = WString();
  m_maskValid = false;
  if (m_matches) {
    m_matches->Clear();
  } else {
    m_matches = new CMatchCol(u"match", kNamespace, 0, -1);
  }
}

}  // namespace MimeDatabase
