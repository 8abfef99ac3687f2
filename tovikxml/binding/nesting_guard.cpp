#include "tovikxml/binding/nesting_guard.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"

namespace TovikXmlLib16 {
namespace {

thread_local int t_depth = 0;

}  // namespace

NestingGuard::NestingGuard(int limit) {
  if (t_depth >= limit) {
    throw CTovikException(
        FormatString(u"The objects are nested deeper than the limit of %d levels", limit));
  }
  ++t_depth;
}

NestingGuard::~NestingGuard() {
  --t_depth;
}

}  // namespace TovikXmlLib16
