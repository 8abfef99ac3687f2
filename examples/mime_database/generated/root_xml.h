#ifndef EXAMPLES_MIME_DATABASE_GENERATED_ROOT_XML_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_ROOT_XML_H_

#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

/// The root element by which an XML document is recognised.
class CRootXml : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CRootXml(const TovikXmlLib16::wchar* elementName = u"root-XML");
  ~CRootXml() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetNamespaceUri() const { return m_namespaceUri; }
  void SetNamespaceUri(const TovikXmlLib16::WString& value);
  const TovikXmlLib16::WString& GetLocalName() const { return m_localName; }
  void SetLocalName(const TovikXmlLib16::WString& value);

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

  TovikXmlLib16::WString m_namespaceUri;
  TovikXmlLib16::WString m_localName;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_ROOT_XML_H_
