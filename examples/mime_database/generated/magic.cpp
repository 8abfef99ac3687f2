#include "examples/mime_database/generated/magic.h"

#include "examples/mime_database/generated/match_col.h"

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

namespace MimeDatabase {
namespace {

constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

enum Property { prop_Priority, prop_Matches };

}  // namespace

struct CMagic::MetaData {
  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"magic", kNamespace, true, false,
                                       -1, it_invalid, u"", false);
    elements = new CElementInfo*[2]();
    elements[0] = new CElementInfoSeqClsCol(u"match", kNamespace, prop_Matches, xet_Element);
    attributes = new CAttributeInfo*[2]();
    attributes[0] = new CAttributeInfoPrimitive(
        u"priority", u"", prop_Priority, true, it_i4, u"", CWhitespaceUtils::ws_collapse,
        CPrimitiveRestrictions(u"", -1, -1, u"", u"", u"", u"", -1, -1, -1), u"50");
  }
  MetaData(const MetaData&) = delete;
  MetaData& operator=(const MetaData&) = delete;
  ~MetaData() { CleanMetaData(classInfo, elements, attributes); }

  static const MetaData& Get() {
    static const MetaData data;
    return data;
  }
};

CMagic::CMagic(const wchar* elementName) {
  SetElementName(elementName);
  CMagic::Init();
}

CMagic::~CMagic() = default;

void CMagic::SetPriority(std::int32_t value) {
  m_priority = value;
  m_priorityValid = true;
}

CSmartPtr<CMatchCol> CMagic::GetMatches() const {
  return m_matches;
}

WString CMagic::GetTargetNamespace() const {
  return kNamespace;
}

WString CMagic::GetNamespace() const {
  return kNamespace;
}

void CMagic::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case prop_Priority:
      if (read) {
        if (m_priorityValid) value.SetI4(m_priority);
      } else {
        SetPriority(value.GetI4());
      }
      break;
    case prop_Matches:
      if (read) value.SetXmlCollection(m_matches);
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

CParentElementInfo* CMagic::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CMagic::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CMagic::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

void CMagic::Init() {
  m_priority = 0;
  m_priorityValid = false;
  if (m_matches) {
    m_matches->Clear();
  } else {
    m_matches = new CMatchCol(u"match", kNamespace, 1, -1);
  }
}

}  // namespace MimeDatabase
