#ifndef TOVIKXML_BINDING_CLASS_FACTORY_H_
#define TOVIKXML_BINDING_CLASS_FACTORY_H_

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

class CXmlElement;

/// Base of generated class factories: what an abstract factory needs to choose a class by the
/// `xsi:type` of an element.
class TOVIKXML_EXPORT CClassfactoryBase {
 public:
  CClassfactoryBase() = default;
  CClassfactoryBase(const CClassfactoryBase&) = default;
  CClassfactoryBase& operator=(const CClassfactoryBase&) = default;
  virtual ~CClassfactoryBase();

 protected:
  /// The local part of `xsi:type`; empty without the attribute.
  static WString GetElementType(CXmlElement* element);
  /// The namespace of the prefix of `xsi:type`; that of the element itself without a prefix or with
  /// an unknown one.
  static WString GetElementTypeNamespaceUri(CXmlElement* element);
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BINDING_CLASS_FACTORY_H_
