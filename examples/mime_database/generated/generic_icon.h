#ifndef EXAMPLES_MIME_DATABASE_GENERATED_GENERIC_ICON_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_GENERIC_ICON_H_

#include "examples/mime_database/generated/enumerations.h"
#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

/// The icon to use where a type has none of its own.
class CGenericIcon : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CGenericIcon(const TovikXmlLib16::wchar* elementName = u"generic-icon");
  ~CGenericIcon() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  IconName GetName() const { return m_name; }
  void SetName(IconName value);

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

  IconName m_name{};
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_GENERIC_ICON_H_
