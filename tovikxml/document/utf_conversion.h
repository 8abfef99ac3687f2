#ifndef TOVIKXML_DOCUMENT_UTF_CONVERSION_H_
#define TOVIKXML_DOCUMENT_UTF_CONVERSION_H_

#include "tovikxml/base/wide_string.h"
#include "tovikxml/values/binary_data.h"

/// Whole texts between UTF-16 and bytes of UTF-8 (RFC 3629). What is not well-formed gives nothing:
/// a caller that must not lose text has to tell that from an empty text. Internal.
namespace TovikXmlLib16 {

/// The bytes of a text; empty if it has an unpaired surrogate. Null counts as empty.
CBinaryData Utf16ToUtf8(const wchar* text);

/// The text of `length` bytes; empty if they hold a bad or cut sequence.
WString Utf8ToUtf16(const unsigned char* bytes, unsigned long length);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_UTF_CONVERSION_H_
