#ifndef EXAMPLES_MIME_DATABASE_GENERATED_TYPE_REFERENCE_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_TYPE_REFERENCE_H_

#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

/// Another type: an alias or a super type.
class CTypeReference : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CTypeReference(const TovikXmlLib16::wchar* elementName = u"alias");
  ~CTypeReference() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetType() const { return m_type; }
  void SetType(const TovikXmlLib16::WString& value);

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

  TovikXmlLib16::WString m_type;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_TYPE_REFERENCE_H_
