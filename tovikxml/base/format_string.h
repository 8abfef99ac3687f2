#ifndef TOVIKXML_BASE_FORMAT_STRING_H_
#define TOVIKXML_BASE_FORMAT_STRING_H_

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// Formats a message in the manner of printf; the result is never cut and no locale takes part.
/// `%s` takes a wide C string, `%S` a narrow one (ASCII), `%c` one 16-bit unit; `%d %i %u %x %X`
/// take an `int`, with `l` a `long`, with `ll` a `long long`. Flags `-` and `0` and a width are
/// understood. A null string prints "(null)".
TOVIKXML_EXPORT WString FormatString(const wchar* format, ...);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_FORMAT_STRING_H_
