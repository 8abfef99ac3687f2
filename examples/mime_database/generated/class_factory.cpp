#include "examples/mime_database/generated/class_factory.h"

#include "examples/mime_database/generated/acronyms.h"
#include "examples/mime_database/generated/comment.h"
#include "examples/mime_database/generated/generic_icon.h"
#include "examples/mime_database/generated/glob.h"
#include "examples/mime_database/generated/icon.h"
#include "examples/mime_database/generated/magic.h"
#include "examples/mime_database/generated/match.h"
#include "examples/mime_database/generated/mime_info.h"
#include "examples/mime_database/generated/mime_type.h"
#include "examples/mime_database/generated/property.h"
#include "examples/mime_database/generated/root_xml.h"
#include "examples/mime_database/generated/treemagic.h"
#include "examples/mime_database/generated/treematch.h"
#include "examples/mime_database/generated/type_reference.h"

using namespace TovikXmlLib16;

namespace MimeDatabase {
namespace {

// States the version that this code was made for, before any object exists.
const bool g_versionStated = (SetGeneratorVersion(16, 1), true);

}  // namespace

CSmartPtr<CXmlObjectBase> CClassFactory::Create(int classType, const wchar* elementName) {
  switch (classType) {
    case ct_MimeInfo:
      return new CMimeInfo(elementName);
    case ct_MimeType:
      return new CMimeType(elementName);
    case ct_Comment:
      return new CComment(elementName);
    case ct_Acronyms:
      return new CAcronyms(elementName);
    case ct_Property:
      return new CProperty(elementName);
    case ct_Icon:
      return new CIcon(elementName);
    case ct_GenericIcon:
      return new CGenericIcon(elementName);
    case ct_Glob:
      return new CGlob(elementName);
    case ct_Magic:
      return new CMagic(elementName);
    case ct_Match:
      return new CMatch(elementName);
    case ct_Treemagic:
      return new CTreemagic(elementName);
    case ct_Treematch:
      return new CTreematch(elementName);
    case ct_RootXml:
      return new CRootXml(elementName);
    case ct_TypeReference:
      return new CTypeReference(elementName);
    default:
      throw CTovikInvalidParamException(FormatString(u"Unknown class type %d", classType));
  }
}

}  // namespace MimeDatabase
