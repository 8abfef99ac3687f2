#ifndef TOVIKXML_PLATFORM_ERROR_BOX_H_
#define TOVIKXML_PLATFORM_ERROR_BOX_H_

#include "tovikxml/base/wide_string.h"

/// The one message that the library shows to a person instead of throwing it. Internal.
namespace TovikXmlLib16 {

/// Shows a title and a text. It may be called from any thread.
using ErrorBox = void (*)(const WString& title, const WString& text);

/// Shows the two by the function in force; at start that one prints them, in UTF-8, as a line
/// "title: text" on standard error.
void ShowErrorBox(const WString& title, const WString& text);

/// Puts a function in force for the whole process and returns the previous one. Null stands for
/// the one in force at start, in the argument and in the result.
ErrorBox SetErrorBox(ErrorBox box);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_PLATFORM_ERROR_BOX_H_
