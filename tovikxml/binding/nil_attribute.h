#ifndef TOVIKXML_BINDING_NIL_ATTRIBUTE_H_
#define TOVIKXML_BINDING_NIL_ATTRIBUTE_H_

#include "tovikxml/base/wide_string.h"

/// `xsi:nil` and unknown attributes, as the driver and the primitive records read them. Internal.
namespace TovikXmlLib16 {

class CXmlAttribute;
class CXmlElement;

/// Whether a value of `xsi:nil` says true or false; upper case passes too.
bool IsXsiTrue(WStringView value);
bool IsXsiFalse(WStringView value);

// All throw `CTovikValidationException` with the path of the place.
[[noreturn]] void ThrowNotNillable(const CXmlElement& element);
[[noreturn]] void ThrowBadNilValue(const CXmlAttribute& attribute);
[[noreturn]] void ThrowUnexpectedAttribute(const CXmlAttribute& attribute);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BINDING_NIL_ATTRIBUTE_H_
