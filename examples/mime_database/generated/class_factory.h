#ifndef EXAMPLES_MIME_DATABASE_GENERATED_CLASS_FACTORY_H_
#define EXAMPLES_MIME_DATABASE_GENERATED_CLASS_FACTORY_H_

#include "tovikxml/tovikxml.h"

/// Makes the objects of optional and repeated elements.
namespace MimeDatabase {

class CClassFactory : public TovikXmlLib16::CClassfactoryBase {
 public:
  enum ClassType {
    ct_MimeInfo,
    ct_MimeType,
    ct_Comment,
    ct_Acronyms,
    ct_Property,
    ct_Icon,
    ct_GenericIcon,
    ct_Glob,
    ct_Magic,
    ct_Match,
    ct_Treemagic,
    ct_Treematch,
    ct_RootXml,
    ct_TypeReference
  };

  static TovikXmlLib16::CSmartPtr<TovikXmlLib16::CXmlObjectBase> Create(
      int classType, const TovikXmlLib16::wchar* elementName);
};

}  // namespace MimeDatabase

#endif  // EXAMPLES_MIME_DATABASE_GENERATED_CLASS_FACTORY_H_
