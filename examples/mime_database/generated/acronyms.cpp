#include "examples/mime_database/generated/acronyms.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_Acronym, prop_ExpandedAcronym };

}  // namespace

struct CAcronyms::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_PseudoElementNoAttributes, u"acronyms",
                                       kNamespace, false, false, -1, it_invalid, u"", false);
    elements = new CElementInfo*[3]();
    elements[0] = new CElementInfoSeqPrimMnd(
        u"acronym", kNamespace, prop_Acronym, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[1] = new CElementInfoSeqPrimMnd(
        u"expanded-acronym", kNamespace, prop_ExpandedAcronym, false, it_string, u"",
        CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"");
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

CAcronyms::CAcronyms(const wchar* elementName) {
  SetElementName(elementName);
  CAcronyms::Init();
}

CAcronyms::~CAcronyms() = default;

void CAcronyms::SetAcronym(const WString& value) {
  m_acronym = value;
}

void CAcronyms::SetExpandedAcronym(const WString& value) {
  m_expandedAcronym = value;
}

WString CAcronyms::GetTargetNamespace() const {
  return kNamespace;
}

WString CAcronyms::GetNamespace() const {
  return kNamespace;
}

void CAcronyms::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Acronym:
      if (read) {
        value.SetString(m_acronym);
      } else {
        m_acronym = value.TakeString();
      }
      break;
    case prop_ExpandedAcronym:
      if (read) {
        value.SetString(m_expandedAcronym);
      } else {
        m_expandedAcronym = value.TakeString();
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CAcronyms::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CAcronyms::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CAcronyms::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CAcronyms::Init() {
  m_acronym = WString();
  m_expandedAcronym = WString();
}

}  // namespace MimeDatabase
