#ifndef TOVIKXML_FASTINFOSET_OCTET_TEXT_H_
#define TOVIKXML_FASTINFOSET_OCTET_TEXT_H_

#include "tovikxml/base/wide_string.h"
#include "tovikxml/fastinfoset/octet_input.h"

/// Octets as text. Internal.
namespace TovikXmlLib16 {

/// Appends ASCII without carriage returns and zeros, the most frequent case, and returns true.
/// Anything else leaves the text as it was.
bool AppendPlainText(WString& out, CFIOctetInput::Octets octets);

/// Appends UTF-8. Throws "Failed to parse FastInfoset. Invalid UTF-8 text." if it is not that.
void AppendUtf8(WString& out, CFIOctetInput::Octets octets);

/// Appends UTF-16, high byte first. Throws "Failed to parse FastInfoset. Invalid UTF-16 text." for
/// an odd length and for unpaired surrogates.
void AppendUtf16(WString& out, CFIOctetInput::Octets octets);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_OCTET_TEXT_H_
