#ifndef EXAMPLES_MIME_DATABASE_GENERATED_ACRONYMS_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_ACRONYMS_H_

#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

/// The optional pair of an acronym and its expansion; it has no element of its own.
class CAcronyms : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CAcronyms(const TovikXmlLib16::wchar* elementName = u"acronyms");
  ~CAcronyms() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetAcronym() const { return m_acronym; }
  void SetAcronym(const TovikXmlLib16::WString& value);
  const TovikXmlLib16::WString& GetExpandedAcronym() const { return m_expandedAcronym; }
  void SetExpandedAcronym(const TovikXmlLib16::WString& value);

 protected:
  TovikXmlLib16::WString GetTargetNamespace() const override;
  TovikXmlLib16::WString GetNamespace() const override;
  void AccessProperty(int propertyIndex, bool read, TovikXmlLib16::TovikVariant& value) override;
  TovikXmlLib16::CParentElementInfo* GetClassInfo() const override;
  TovikXmlLib16::CElementInfo** GetClassElementInfo() const override;
  TovikXmlLib16::CAttributeInfo** GetClassAttributeInfo() const override;
  void Init() override;

 private:
  struct MetaData;

  TovikXmlLib16::WString m_acronym;
  TovikXmlLib16::WString m_expandedAcronym;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_ACRONYMS_H_
