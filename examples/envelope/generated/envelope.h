#ifndef EXAMPLES_ENVELOPE_GENERATED_ENVELOPE_H_
#define EXAMPLES_ENVELOPE_GENERATED_ENVELOPE_H_

#include "tovikxml/tovikxml.h"

namespace Messages {

class CBody;
class CHeader;

/// The root: what travels. Any attribute of another namespace may stand on it.
class CEnvelope : public TovikXmlLib16::CXmlGeneratedClass {
 public:
  explicit CEnvelope(const TovikXmlLib16::wchar* elementName = u"envelope");
  ~CEnvelope() override;

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  using TovikXmlLib16::CXmlObjectBase::GetBase;

  /// Null if the message has none.
  TovikXmlLib16::CSmartPtr<CHeader> GetHeader() const;
  void SetHeader(CHeader* value);
  TovikXmlLib16::CSmartPtr<CBody> GetBody() const;
  void SetBody(CBody* value);
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

  TovikXmlLib16::CSmartPtr<CHeader> m_header;
  TovikXmlLib16::CSmartPtr<CBody> m_body;
  TovikXmlLib16::CSmartPtr<TovikXmlLib16::CAttributeCol> m_anyAttributes;
};

}  // namespace Messages

#endif  // EXAMPLES_ENVELOPE_GENERATED_ENVELOPE_H_
