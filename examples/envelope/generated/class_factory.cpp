#include "examples/envelope/generated/class_factory.h"

#include "examples/envelope/generated/body.h"
#include "examples/envelope/generated/header.h"

using namespace TovikXmlLib16;

namespace Messages {
namespace {

// States the version that this code was made for, before any object exists.
const bool g_versionStated = (SetGeneratorVersion(16, 1), true);

}  // namespace

CSmartPtr<CXmlObjectBase> CClassFactory::Create(int classType, const wchar* elementName) {
  switch (classType) {
    case ct_Header:
      return new CHeader(elementName);
    case ct_Body:
      return new CBody(elementName);
    default:
      throw CTovikInvalidParamException(FormatString(u"Unknown class type %d", classType));
  }
}

}  // namespace Messages
