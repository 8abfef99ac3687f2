#ifndef TOVIKXML_DOCUMENT_XML_NAMES_H_
#define TOVIKXML_DOCUMENT_XML_NAMES_H_

#include "tovikxml/base/wide_string.h"

/// The namespaces that XML, XML namespaces and XML Schema instances reserve. Internal.
namespace TovikXmlLib16 {

inline constexpr WStringView kXmlNamespace = u"http://www.w3.org/XML/1998/namespace";
inline constexpr WStringView kXmlnsNamespace = u"http://www.w3.org/2000/xmlns/";
inline constexpr WStringView kXsiNamespace = u"http://www.w3.org/2001/XMLSchema-instance";

/// The last of them as a string, also for what runs before the constructors of this library's own
/// objects.
inline const WString& XsiNamespace() {
  static const WString uri(kXsiNamespace);
  return uri;
}

inline constexpr WStringView kCDataStart = u"<![CDATA[";
inline constexpr WStringView kCDataEnd = u"]]>";

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_XML_NAMES_H_
