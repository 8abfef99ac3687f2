#ifndef TOVIKXML_BASE_UTF8_H_
#define TOVIKXML_BASE_UTF8_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// Converts UTF-16 to UTF-8 (RFC 3629). Nothing if the text has an unpaired surrogate.
TOVIKXML_EXPORT std::optional<std::string> EncodeUtf8(WStringView text);

/// Converts UTF-8 to UTF-16. Nothing if the bytes hold a cut, overlong or otherwise bad sequence,
/// a surrogate, or a code point above U+10FFFF.
TOVIKXML_EXPORT std::optional<WString> DecodeUtf8(std::string_view bytes);

/// UTF-8 for people to read: each unpaired surrogate becomes U+FFFD.
TOVIKXML_EXPORT std::string DisplayUtf8(WStringView text);

/// Number of bytes that `text` takes in UTF-8; nothing if it has an unpaired surrogate.
std::optional<std::size_t> Utf8Length(WStringView text);

/// Writes the UTF-8 form of a text for which `Utf8Length` gave a number, and returns the end.
unsigned char* WriteUtf8(WStringView text, unsigned char* out);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_UTF8_H_
