#ifndef EXAMPLES_MIME_DATABASE_GENERATED_MIME_TYPE_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_MIME_TYPE_H_

#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

class CAcronyms;
class CComment;
class CCommentCol;
class CProperty;
class CPropertyCol;

/// One type, such as "image/png".
class CMimeType : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CMimeType(const TovikXmlLib16::wchar* elementName = u"mime-type");
  ~CMimeType() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetType() const { return m_type; }
  void SetType(const TovikXmlLib16::WString& value);
  TovikXmlLib16::CSmartPtr<CCommentCol> GetComments() const;
  TovikXmlLib16::CSmartPtr<CAcronyms> GetAcronyms() const;
  void SetAcronyms(CAcronyms* value);
  TovikXmlLib16::CSmartPtr<CPropertyCol> GetProperties() const;

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
  TovikXmlLib16::CSmartPtr<CCommentCol> m_comments;
  TovikXmlLib16::CSmartPtr<CAcronyms> m_acronyms;
  TovikXmlLib16::CSmartPtr<CPropertyCol> m_properties;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_MIME_TYPE_H_
