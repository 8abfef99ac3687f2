#include "tovikxml/values/facets.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/values/restrictions.h"

namespace TovikXmlLib16 {

void CheckFacets(const WString& name, const TovikVariant& /*value*/, ItemType /*itemType*/,
                 const CPrimitiveRestrictions& restrictions) {
  if (!restrictions.HasFacets()) return;
  throw CTovikException(u"Facet checks are not supported by this version: " + name);
}

}  // namespace TovikXmlLib16
