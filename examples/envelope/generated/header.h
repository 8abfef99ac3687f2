#ifndef EXAMPLES_ENVELOPE_GENERATED_HEADER_H_
#define EXAMPLES_ENVELOPE_GENERATED_HEADER_H_

#include "tovikxml/tovikxml.h"

namespace Messages {

/// What the stations on the way say to each other, in any namespaces.
class CHeader : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CHeader(const TovikXmlLib16::wchar* elementName = u"header");
  ~CHeader() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  TovikXmlLib16::CSmartPtr<TovikXmlLib16::CElementCol> GetAnyElements() const;
  TovikXmlLib16::CSmartPtr<TovikXmlLib16::CAttributeCol> GetAnyAttributes() const;

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

  TovikXmlLib16::CSmartPtr<TovikXmlLib16::CElementCol> m_anyElements;
  TovikXmlLib16::CSmartPtr<TovikXmlLib16::CAttributeCol> m_anyAttributes;
};

}  // namespace Messages

#endif  // EXAMPLES_ENVELOPE_GENERATED_HEADER_H_
