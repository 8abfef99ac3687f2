#ifndef EXAMPLES_MIME_DATABASE_GENERATED_MIME_INFO_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_MIME_INFO_H_

#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

class CMimeType;
class CMimeTypeCol;

/// The root: all types of a database.
class CMimeInfo : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CMimeInfo(const TovikXmlLib16::wchar* elementName = u"mime-info");
  ~CMimeInfo() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  TovikXmlLib16::CSmartPtr<CMimeTypeCol> GetTypes() const;

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

  TovikXmlLib16::CSmartPtr<CMimeTypeCol> m_types;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_MIME_INFO_H_
