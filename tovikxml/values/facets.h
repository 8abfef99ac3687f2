#ifndef TOVIKXML_VALUES_FACETS_H_
#define TOVIKXML_VALUES_FACETS_H_

#include "tovikxml/base/item_type.h"
#include "tovikxml/base/wide_string.h"

/// The facet checks of XML Schema datatypes. Internal.
namespace TovikXmlLib16 {

class CPrimitiveRestrictions;
struct TovikVariant;

/// Tests a value against the facets of a simple type; `name` is that of its element or attribute.
void CheckFacets(const WString& name, const TovikVariant& value, ItemType itemType,
                 const CPrimitiveRestrictions& restrictions);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_FACETS_H_
