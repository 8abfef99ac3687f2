#include "examples/mime_database/generated/treematch.h"

#include "examples/mime_database/generated/treematch_col.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property {
  prop_Path,
  prop_Type,
  prop_MatchCase,
  prop_Executable,
  prop_NonEmpty,
  prop_Mimetype,
  prop_Matches
};

}  // namespace

struct CTreematch::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"treematch", kNamespace, true,
                                       false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[2]();
    elements[0] = new CElementInfoSeqClsCol(u"treematch", kNamespace, prop_Matches, xet_Element);
    attributes = new CAttributeInfo*[7]();
    attributes[0] = new CAttributeInfoPrimitive(
        u"path", u"", prop_Path, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes[1] = new CAttributeInfoEnum(u"type", u"", prop_Type, true, TreematchTypeToText,
                                           TreematchTypeFromText, u"");
    attributes[2] = new CAttributeInfoPrimitive(
        u"match-case", u"", prop_MatchCase, true, it_boolean, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes[3] = new CAttributeInfoPrimitive(
        u"executable", u"", prop_Executable, true, it_boolean, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes[4] = new CAttributeInfoPrimitive(
        u"non-empty", u"", prop_NonEmpty, true, it_boolean, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    attributes[5] = new CAttributeInfoPrimitive(
        u"mimetype", u"", prop_Mimetype, true, it_string, u"", CWhitespaceUtils::ws_preserve,
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

CTreematch::CTreematch(const wchar* elementName) {
  SetElementName(elementName);
  CTreematch::Init();
}

CTreematch::~CTreematch() = default;

void CTreematch::SetPath(const WString& value) {
  m_path = value;
}

void CTreematch::SetType(TreematchType value) {
  m_type = value;
  m_typeValid = true;
}

void CTreematch::SetMatchCase(bool value) {
  m_matchCase = value;
  m_matchCaseValid = true;
}

void CTreematch::SetExecutable(bool value) {
  m_executable = value;
  m_executableValid = true;
}

void CTreematch::SetNonEmpty(bool value) {
  m_nonEmpty = value;
  m_nonEmptyValid = true;
}

void CTreematch::SetMimetype(const WString& value) {
  m_mimetype = value;
  m_mimetypeValid = true;
}

CSmartPtr<CTreematchCol> CTreematch::GetMatches() const {
  return m_matches;
}

WString CTreematch::GetTargetNamespace() const {
  return kNamespace;
}

WString CTreematch::GetNamespace() const {
  return kNamespace;
}

void CTreematch::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Path:
      if (read) {
        value.SetString(m_path);
      } else {
        m_path = value.TakeString();
      }
      break;
    case prop_Type:
      if (read) {
        if (m_typeValid) value.SetI4(m_type);
      } else {
        SetType(static_cast<TreematchType>(value.GetI4()));
      }
      break;
    case prop_MatchCase:
      if (read) {
        if (m_matchCaseValid) value.SetBoolean(m_matchCase);
      } else {
        SetMatchCase(value.GetBoolean());
      }
      break;
    case prop_Executable:
      if (read) {
        if (m_executableValid) value.SetBoolean(m_executable);
      } else {
        SetExecutable(value.GetBoolean());
      }
      break;
    case prop_NonEmpty:
      if (read) {
        if (m_nonEmptyValid) value.SetBoolean(m_nonEmpty);
      } else {
        SetNonEmpty(value.GetBoolean());
      }
      break;
    case prop_Mimetype:
      if (read) {
        if (m_mimetypeValid) value.SetString(m_mimetype);
      } else {
        m_mimetype = value.TakeString();
        m_mimetypeValid = true;
      }
      break;
    case prop_Matches:
      if (read) value.SetXmlCollection(m_matches);
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CTreematch::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CTreematch::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CTreematch::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CTreematch::Init() {
  m_path = WString();
  m_type = TreematchType();
  m_typeValid = false;
  m_matchCase = false;
  m_matchCaseValid = false;
  m_executable = false;
  m_executableValid = false;
  m_nonEmpty = false;
  m_nonEmptyValid = false;
  m_mimetype = WString();
  m_mimetypeValid = false;
  if (m_matches) {
    m_matches->Clear();
  } else {
    m_matches = new CTreematchCol(u"treematch", kNamespace, 0, -1);
  }
}

}  // namespace MimeDatabase
