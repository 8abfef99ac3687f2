#ifndef TOVIKXML_BASE_FORMAT_STRING_H_
#define TOVIKXML_BASE_FORMAT_STRING_H_

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// Formats a message as printf of ISO C does; the result is never cut and no locale takes part.
///
///     %s              a wide C string, %hs a narrow one (ASCII)
///     %S              a narrow C string, as %hs
///     %c              one 16-bit unit
///     %d %i %u %o %x %X, with hh h l ll j z t
///     %a %e %f %g %A %E %F %G, with L
///     %p %%
///
/// Flags, width and precision are those of C, `*` included. A null string prints "(null)". Any
/// other conversion, `%n` among them, throws `CTovikInvalidParamException` "Unknown conversion in
/// the format [%s]", since what it would take from the arguments is not known.
TOVIKXML_EXPORT WString FormatString(const wchar* format, ...);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_FORMAT_STRING_H_
