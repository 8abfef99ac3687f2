#include "tovikxml/binding/nil_attribute.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/document.h"

namespace TovikXmlLib16 {

bool IsXsiTrue(WStringView value) {
  return value == u"1" || EqualIgnoringAsciiCase(value, u"true");
}

bool IsXsiFalse(WStringView value) {
  return value == u"0" || EqualIgnoringAsciiCase(value, u"false");
}

void ThrowNotNillable(const CXmlElement& element) {
  throw CTovikValidationException(u"Invalid use of 'nil' attribute in non-nillable element.",
                                  element.GetXPath());
}

void ThrowBadNilValue(const CXmlAttribute& attribute) {
  throw CTovikValidationException(FormatString(u"Unexpected Value [%s] for 'nil' Attribute found.",
                                               attribute.GetValue().c_str()),
                                  attribute.GetXPath());
}

void ThrowUnexpectedAttribute(const CXmlAttribute& attribute) {
  throw CTovikValidationException(u"Unexpected Attribute found.", attribute.GetXPath());
}

}  // namespace TovikXmlLib16
