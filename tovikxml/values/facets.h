#ifndef TOVIKXML_VALUES_FACETS_H_
#define TOVIKXML_VALUES_FACETS_H_

#include "tovikxml/base/item_type.h"
#include "tovikxml/base/wide_string.h"

/// The facet checks of XML Schema datatypes. Internal.
namespace TovikXmlLib16 {

class CPrimitiveRestrictions;
struct TovikVariant;

/// Tests a value against the facets of a simple type as `CheckFacets<kind>` of value_facets.h does;
/// `name` is that of its element or attribute. The value is what the variant's getter for `kind`
/// gives. Throws `CTovikInvalidValueException` "Unknown type [%s]." with the variant's own type if
/// `kind` is `it_char` or no primitive value, whether there are facets or not.
void CheckFacets(const WString& name, const TovikVariant& value, ItemType kind,
                 const CPrimitiveRestrictions& restrictions);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_FACETS_H_
