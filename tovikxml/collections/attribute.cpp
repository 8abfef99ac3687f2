#include "tovikxml/collections/attribute.h"

#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/writer.h"

namespace TovikXmlLib16 {

CAttribute::CAttribute(WString name, WString value, WString namespaceUri)
    : CInstanceMonitor(u"CAttribute"),
      m_name(std::move(name)),
      m_value(std::move(value)),
      m_namespace(std::move(namespaceUri)) {}

CAttribute::~CAttribute() = default;

CXmlObjectBase* CAttribute::GetBase() {
  return this;
}

void CAttribute::SetName(const wchar* name) {
  m_name = ViewOf(name);
}

void CAttribute::SetValue(const wchar* value) {
  m_value = ViewOf(value);
}

WString CAttribute::GetNamespace() const {
  return m_namespace;
}

void CAttribute::SetNamespace(const wchar* namespaceUri) {
  m_namespace = ViewOf(namespaceUri);
}

CSmartPtr<CAttribute> CAttribute::Clone() const {
  return new CAttribute(m_name, m_value, m_namespace);
}

WString CAttribute::GetTargetNamespace() const {
  return m_namespace;
}

void CAttribute::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* /*namespaceUri*/,
                           const CSerializationContext& /*context*/,
                           bool /*isOptionalChoice*/) const {
  writer->WriteAttribute(m_name, m_namespace, m_value, it_string);
}

CXmlElement* CAttribute::FromXml_Int(CXmlElement* /*parent*/, CXmlElement* /*firstChild*/,
                                     const CSerializationContext& /*context*/,
                                     bool /*isOptionalChoice*/) {
  throw CTovikException(u"This should be done by the collection");
}

}  // namespace TovikXmlLib16
