#ifndef TOVIKXML_BASE_UTF8_BYTES_H_
#define TOVIKXML_BASE_UTF8_BYTES_H_

#include <cstddef>
#include <optional>

#include "tovikxml/base/wide_string.h"

/// UTF-8 made in the memory of the caller. Internal.
namespace TovikXmlLib16 {

/// Number of bytes that `text` takes in UTF-8; nothing if it has an unpaired surrogate.
std::optional<std::size_t> Utf8Length(WStringView text);

/// Writes the UTF-8 form of a text for which `Utf8Length` gave a number, and returns the end.
unsigned char* WriteUtf8(WStringView text, unsigned char* out);

/// Throws the `CTovikInvalidValueException` of a text that has no UTF-8 form.
[[noreturn]] void RefuseUnpairedSurrogate();

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_UTF8_BYTES_H_
