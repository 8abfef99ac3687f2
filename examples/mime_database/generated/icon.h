#ifndef EXAMPLES_MIME_DATABASE_GENERATED_ICON_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_ICON_H_

#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

/// The icon of a type.
class CIcon : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CIcon(const TovikXmlLib16::wchar* elementName = u"icon");
  ~CIcon() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetName() const { return m_name; }
  void SetName(const TovikXmlLib16::WString& value);

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

  TovikXmlLib16::WString m_name;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_ICON_H_
