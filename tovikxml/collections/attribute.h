#ifndef TOVIKXML_COLLECTIONS_ATTRIBUTE_H_
#define TOVIKXML_COLLECTIONS_ATTRIBUTE_H_

#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/base/smart_ptr.h"
#include "tovikxml/binding/object_base.h"

namespace TovikXmlLib16 {

/// An attribute that no generated class describes: name, value and namespace as plain text. Made
/// by `CAttributeCol`.
class TOVIKXML_EXPORT CAttribute : public CXmlObjectBase, public CInstanceMonitor {
 public:
  CXmlObjectBase* GetBase() override;
  using CXmlObjectBase::GetBase;

  WString GetName() const { return m_name; }
  void SetName(const wchar* name);
  WString GetValue() const { return m_value; }
  void SetValue(const wchar* value);
  WString GetNamespace() const override;
  void SetNamespace(const wchar* namespaceUri);

  CSmartPtr<CAttribute> Clone() const;

 protected:
  CAttribute(WString name, WString value, WString namespaceUri);
  ~CAttribute() override;

  WString GetTargetNamespace() const override;
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                 const CSerializationContext& context, bool isOptionalChoice) const override;
  /// Attributes are read by their collection; throws `CTovikException`.
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                           const CSerializationContext& context, bool isOptionalChoice) override;

 private:
  friend class CAttributeCol;

  WString m_name;
  WString m_value;
  WString m_namespace;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_COLLECTIONS_ATTRIBUTE_H_
