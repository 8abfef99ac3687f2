#include "examples/guide/album.h"

namespace Music {
namespace {

constexpr const wchar* kNamespace = u"urn:example:music";

// snippet: version
// States the version that these classes were written for, before any object exists.
const bool g_versionStated = (SetGeneratorVersion(16, 1), true);
// end snippet

constexpr const wchar* kMediumTexts[] = {u"vinyl", u"disc", u"download"};

}  // namespace

// snippet: enumeration
const wchar* MediumToText(int value) {
  return kMediumTexts[value];
}

int MediumFromText(const wchar* text) {
  for (int i = Medium_vinyl; i <= Medium_download; ++i) {
    if (WStringView(text) == kMediumTexts[i]) return i;
  }
  throw CTovikInvalidValueException(FormatString(u"[%s] is not a medium", text));
}
// end snippet

// snippet: track tables
struct CTrack::MetaData {
  enum Property { prop_Text, prop_Length };

  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"track", kNamespace, true, false,
                                       prop_Text, it_string, u"", false);
    elements = new CElementInfo*[1]();
    attributes = new CAttributeInfo*[2]();
    attributes[0] =
        new CAttributeInfoPrimitive(u"length", u"", prop_Length, false, it_duration, u"",
                                    CWhitespaceUtils::ws_collapse, CPrimitiveRestrictions(), u"");
  }
  ~MetaData() { CleanMetaData(classInfo, elements, attributes); }

  static const MetaData& Get() {
    static const MetaData data;
    return data;
  }
};
// end snippet

// snippet: track operations
CTrack::CTrack(const wchar* elementName) {
  SetElementName(elementName);
  CTrack::Init();
}

void CTrack::Init() {
  m_text.clear();
  m_length = CDateTimeSpan();
}

void CTrack::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case MetaData::prop_Text:
      if (read) {
        value.SetString(m_text);
      } else {
        m_text = value.TakeString();
      }
      break;
    case MetaData::prop_Length:
      if (read) {
        value.SetDuration(m_length);
      } else {
        m_length = value.GetDuration();
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}

WString CTrack::GetTargetNamespace() const {
  return kNamespace;
}

WString CTrack::GetNamespace() const {
  return kNamespace;
}

CParentElementInfo* CTrack::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CTrack::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CTrack::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}
// end snippet

// snippet: collection
CSmartPtr<CTrack> CTrackCol::Add() {
  CSmartPtr<CTrack> track(new CTrack(GetElementName().c_str()));
  AppendItem(track);
  return track;
}

CSmartPtr<CTrack> CTrackCol::Item(int index) const {
  return static_cast<CTrack*>(GetNodeAtIndex(index)->item.Get());
}

void CTrackCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                          const CSerializationContext& context, bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  for (const CTrack* track : *this) {
    CXmlObjectBase::ToXml_Int(track, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* CTrackCol::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* firstChild,
                                    const CSerializationContext& context,
                                    bool /*isOptionalChoice*/) {
  const WString name = GetElementName();
  CXmlElement* child = firstChild;
  while (child && DoesElementNameMatch(context, child, name.c_str(), GetNamespace().c_str())) {
    CXmlObjectBase::FromXml_Int(Add(), child, child->GetFirstElement(), context);
    child = child->GetNextSiblingElement();
  }
  return child;
}
// end snippet

// snippet: album tables
struct CAlbum::MetaData {
  enum Property { prop_Title, prop_Released, prop_Tracks, prop_Labels, prop_Medium };

  CParentElementInfo* classInfo;
  CElementInfo** elements;
  CAttributeInfo** attributes;

  MetaData() {
    classInfo = new CParentElementInfo(xgt_Sequence, xet_Element, u"album", kNamespace, true, false,
                                       -1, it_invalid, u"", false);
    elements = new CElementInfo*[5]();
    elements[0] = new CElementInfoSeqPrimMnd(
        u"title", kNamespace, prop_Title, false, it_string, u"", CWhitespaceUtils::ws_preserve,
        CPrimitiveRestrictions(u"", 1, 40, u"", u"", u"", u"", -1, -1, -1), u"");
    elements[1] =
        new CElementInfoSeqPrimOpt(u"released", kNamespace, prop_Released, false, it_date, u"",
                                   CWhitespaceUtils::ws_collapse, CPrimitiveRestrictions(), u"");
    elements[2] = new CElementInfoSeqClsCol(u"track", kNamespace, prop_Tracks, xet_Element);
    elements[3] = new CElementInfoSeqPrimCol(u"label", kNamespace, prop_Labels);
    attributes = new CAttributeInfo*[2]();
    attributes[0] = new CAttributeInfoEnum(u"medium", u"", prop_Medium, false, MediumToText,
                                           MediumFromText, u"");
  }
  ~MetaData() { CleanMetaData(classInfo, elements, attributes); }

  static const MetaData& Get() {
    static const MetaData data;
    return data;
  }
};
// end snippet

CAlbum::CAlbum(const wchar* elementName) {
  SetElementName(elementName);
  CAlbum::Init();
}

// snippet: album init
void CAlbum::Init() {
  m_title.clear();
  m_released = CDateTime(CDateTime::dt_date);
  m_releasedValid = false;
  m_tracks = new CTrackCol(u"track", kNamespace, 1, -1);
  m_labels = new CstringCol(u"label", kNamespace, 0, 3, u"", -1, -1, u"", u"", u"", u"", -1, -1, -1,
                            CWhitespaceUtils::ws_preserve, u"");
  m_medium = Medium_vinyl;
}

void CAlbum::SetReleased(const CDateTime& value) {
  m_released = value;
  m_releasedValid = true;
}
// end snippet

// snippet: album gate
void CAlbum::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  switch (propertyIndex) {
    case MetaData::prop_Title:
      if (read) {
        value.SetString(m_title);
      } else {
        m_title = value.TakeString();
      }
      break;
    case MetaData::prop_Released:
      if (!read) {
        SetReleased(value.GetDate());
      } else if (m_releasedValid) {
        value.SetDate(m_released);
      }
      break;
    case MetaData::prop_Tracks:
      if (read) value.SetXmlCollection(m_tracks);
      break;
    case MetaData::prop_Labels:
      if (read) value.SetXmlCollection(m_labels);
      break;
    case MetaData::prop_Medium:
      if (read) {
        value.SetI4(m_medium);
      } else {
        m_medium = static_cast<Medium>(value.GetI4());
      }
      break;
    default:
      throw CTovikException(FormatString(u"Unknown property %d", propertyIndex));
  }
}
// end snippet

WString CAlbum::GetTargetNamespace() const {
  return kNamespace;
}

WString CAlbum::GetNamespace() const {
  return kNamespace;
}

CParentElementInfo* CAlbum::GetClassInfo() const {
  return MetaData::Get().classInfo;
}

CElementInfo** CAlbum::GetClassElementInfo() const {
  return MetaData::Get().elements;
}

CAttributeInfo** CAlbum::GetClassAttributeInfo() const {
  return MetaData::Get().attributes;
}

}  // namespace Music
