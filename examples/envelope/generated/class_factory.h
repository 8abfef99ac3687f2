#ifndef EXAMPLES_ENVELOPE_GENERATED_CLASS_FACTORY_H_
#define EXAMPLES_ENVELOPE_GENERATED_CLASS_FACTORY_H_

#include "tovikxml/tovikxml.h"

/// Makes the objects of optional elements.
namespace Messages {

class CClassFactory : public TovikXmlLib16::CClassfactoryBase {
 public:
  enum ClassType { ct_Header, ct_Body };

  static TovikXmlLib16::CSmartPtr<TovikXmlLib16::CXmlObjectBase> Create(
      int classType, const TovikXmlLib16::wchar* elementName);
};

}  // namespace Messages

#endif  // EXAMPLES_ENVELOPE_GENERATED_CLASS_FACTORY_H_
