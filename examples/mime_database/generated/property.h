#ifndef EXAMPLES_MIME_DATABASE_GENERATED_PROPERTY_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_PROPERTY_H_

#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

class CGenericIcon;
class CGlob;
class CIcon;
class CMagic;
class CRootXml;
class CTreemagic;
class CTypeReference;

/// One of the elements that may follow in any number and order; it has no element of its own.
class CProperty : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CProperty(const TovikXmlLib16::wchar* elementName = u"properties");
  ~CProperty() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  TovikXmlLib16::CSmartPtr<CIcon> GetIcon() const;
  void SetIcon(CIcon* value);
  TovikXmlLib16::CSmartPtr<CGenericIcon> GetGenericIcon() const;
  void SetGenericIcon(CGenericIcon* value);
  TovikXmlLib16::CSmartPtr<CGlob> GetGlob() const;
  void SetGlob(CGlob* value);
  TovikXmlLib16::CSmartPtr<CMagic> GetMagic() const;
  void SetMagic(CMagic* value);
  TovikXmlLib16::CSmartPtr<CTreemagic> GetTreemagic() const;
  void SetTreemagic(CTreemagic* value);
  TovikXmlLib16::CSmartPtr<CRootXml> GetRootXml() const;
  void SetRootXml(CRootXml* value);
  TovikXmlLib16::CSmartPtr<CTypeReference> GetAlias() const;
  void SetAlias(CTypeReference* value);
  TovikXmlLib16::CSmartPtr<CTypeReference> GetSubClassOf() const;
  void SetSubClassOf(CTypeReference* value);

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

  TovikXmlLib16::CSmartPtr<CIcon> m_icon;
  TovikXmlLib16::CSmartPtr<CGenericIcon> m_genericIcon;
  TovikXmlLib16::CSmartPtr<CGlob> m_glob;
  TovikXmlLib16::CSmartPtr<CMagic> m_magic;
  TovikXmlLib16::CSmartPtr<CTreemagic> m_treemagic;
  TovikXmlLib16::CSmartPtr<CRootXml> m_rootXml;
  TovikXmlLib16::CSmartPtr<CTypeReference> m_alias;
  TovikXmlLib16::CSmartPtr<CTypeReference> m_subClassOf;
  TovikXmlLib16::WString m_selected;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_PROPERTY_H_
