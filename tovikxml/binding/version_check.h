#ifndef TOVIKXML_BINDING_VERSION_CHECK_H_
#define TOVIKXML_BINDING_VERSION_CHECK_H_

/// Whether the generated code was made for this library. Internal.
namespace TovikXmlLib16 {

/// Shows the error box and throws `CTovikException` "Wrong Version (...)" if it was not. Every
/// entry point begins with this.
void RequireGeneratorVersion();

/// Shows the error box, and nothing more, for the first object of the process.
void CheckVersionAtFirstObject();

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BINDING_VERSION_CHECK_H_
