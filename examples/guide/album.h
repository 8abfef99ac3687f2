#ifndef EXAMPLES_GUIDE_ALBUM_H_
#define EXAMPLES_GUIDE_ALBUM_H_

#include "tovikxml/tovikxml.h"

/// The classes for album.xsd, written by hand; docs/guide/generated_classes.md goes through them.
namespace Music {

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

// snippet: enumeration
enum Medium { Medium_vinyl, Medium_disc, Medium_download };
const wchar* MediumToText(int value);
int MediumFromText(const wchar* text);
// end snippet

// snippet: track
class CTrack : public CXmlGeneratedClass {
 public:
  explicit CTrack(const wchar* elementName = u"track");

  CXmlObjectBase* GetBase() override { return this; }

  const WString& GetText() const { return m_text; }
  void SetText(const WString& value) { m_text = value; }
  CDateTimeSpan GetLength() const { return m_length; }
  void SetLength(const CDateTimeSpan& value) { m_length = value; }

 protected:
  WString GetTargetNamespace() const override;
  WString GetNamespace() const override;
  void AccessProperty(int propertyIndex, bool read, TovikVariant& value) override;
  CParentElementInfo* GetClassInfo() const override;
  CElementInfo** GetClassElementInfo() const override;
  CAttributeInfo** GetClassAttributeInfo() const override;
  void Init() override;

 private:
  struct MetaData;

  WString m_text;
  CDateTimeSpan m_length;
};
// end snippet

// snippet: collection
class CTrackCol : public CXmlCollection {
 public:
  CTrackCol(const wchar* elementName, const wchar* namespaceUri, int minOccurs, int maxOccurs)
      : CXmlCollection(elementName, namespaceUri, minOccurs, maxOccurs) {}

  CSmartPtr<CTrack> Add();
  CSmartPtr<CTrack> Item(int index) const;
  CTovikIterator<CTrack> begin() const { return CTovikIterator<CTrack>(GetFirstNode()); }
  CTovikIterator<CTrack> end() const { return {}; }

 protected:
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                 const CSerializationContext& context, bool isOptionalChoice) const override;
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                           const CSerializationContext& context, bool isOptionalChoice) override;
};
// end snippet

class CAlbum : public CXmlGeneratedClass {
 public:
  explicit CAlbum(const wchar* elementName = u"album");

  CXmlObjectBase* GetBase() override { return this; }

  const WString& GetTitle() const { return m_title; }
  void SetTitle(const WString& value) { m_title = value; }
  const CDateTime& GetReleased() const { return m_released; }
  void SetReleased(const CDateTime& value);
  bool IsValidReleased() const { return m_releasedValid; }
  void SetValidReleased(bool valid) { m_releasedValid = valid; }
  CSmartPtr<CTrackCol> GetTracks() const { return m_tracks; }
  CSmartPtr<CstringCol> GetLabels() const { return m_labels; }
  Medium GetMedium() const { return m_medium; }
  void SetMedium(Medium value) { m_medium = value; }

 protected:
  WString GetTargetNamespace() const override;
  WString GetNamespace() const override;
  void AccessProperty(int propertyIndex, bool read, TovikVariant& value) override;
  CParentElementInfo* GetClassInfo() const override;
  CElementInfo** GetClassElementInfo() const override;
  CAttributeInfo** GetClassAttributeInfo() const override;
  void Init() override;

 private:
  struct MetaData;

  WString m_title;
  CDateTime m_released;
  bool m_releasedValid = false;
  CSmartPtr<CTrackCol> m_tracks;
  CSmartPtr<CstringCol> m_labels;
  Medium m_medium{};
};

}  // namespace Music

#endif  // EXAMPLES_GUIDE_ALBUM_H_
