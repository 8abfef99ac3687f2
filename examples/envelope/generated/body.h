#ifndef EXAMPLES_ENVELOPE_GENERATED_BODY_H_
#define EXAMPLES_ENVELOPE_GENERATED_BODY_H_

#include "tovikxml/tovikxml.h"

namespace Messages {

/// One document of another namespace.
class CBody : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CBody(const TovikXmlLib16::wchar* elementName = u"body");
  ~CBody() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  TovikXmlLib16::CSmartPtr<TovikXmlLib16::CElement> GetAnyElement() const;
  void SetAnyElement(TovikXmlLib16::CElement* value);

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

  TovikXmlLib16::CSmartPtr<TovikXmlLib16::CElement> m_anyElement;
};

}  // namespace Messages

#endif  // EXAMPLES_ENVELOPE_GENERATED_BODY_H_
