#include "tovikxml/binding/class_factory.h"

#include "tovikxml/document/document.h"
#include "tovikxml/document/xml_names.h"

namespace TovikXmlLib16 {
namespace {

const WString& XsiType(const CXmlElement& element) {
  static const WString uri(kXsiNamespace);
  return element.GetAttribute(u"type", uri);
}

}  // namespace

CClassfactoryBase::~CClassfactoryBase() = default;

WString CClassfactoryBase::GetElementType(CXmlElement* element) {
  const WString& type = XsiType(*element);
  const std::size_t colon = type.find(u':');
  return colon == WString::npos ? type : type.substr(colon + 1);
}

WString CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* element) {
  const WString& type = XsiType(*element);
  const std::size_t colon = type.find(u':');
  if (colon != WString::npos) {
    const WString prefix = type.substr(0, colon);
    WString uri = element->GetDocument()->LookupNamespaceFromAlias(prefix.c_str());
    if (!uri.empty()) return uri;
  }
  return element->GetNamespaceURI();
}

}  // namespace TovikXmlLib16
