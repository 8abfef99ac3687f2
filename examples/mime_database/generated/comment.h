#ifndef EXAMPLES_MIME_DATABASE_GENERATED_COMMENT_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_COMMENT_H_

#include "tovikxml/tovikxml.h"

namespace MimeDatabase {

/// The description of a type in one language.
class CComment : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CComment(const TovikXmlLib16::wchar* elementName = u"comment");
  ~CComment() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  const TovikXmlLib16::WString& GetLang() const { return m_lang; }
  void SetLang(const TovikXmlLib16::WString& value);
  bool IsValidLang() const { return m_langValid; }
  void SetValidLang(bool valid) { m_langValid = valid; }
  const TovikXmlLib16::WString& GetText() const { return m_text; }
  void SetText(const TovikXmlLib16::WString& value);

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

  TovikXmlLib16::WString m_lang;
  bool m_langValid = false;
  TovikXmlLib16::WString m_text;
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_COMMENT_H_
