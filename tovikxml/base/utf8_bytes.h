#ifndef TOVIKXML_BASE_UTF8_BYTES_H_
#define TOVIKXML_BASE_UTF8_BYTES_H_

#include <cstddef>
#include <string_view>

#include "tovikxml/base/wide_string.h"

/// UTF-8 and UTF-16 made in the memory of the caller. Internal.
namespace TovikXmlLib16 {

/// Number of bytes that `text` takes in UTF-8 if each surrogate has its partner.
std::size_t Utf8Length(WStringView text);

/// Writes the UTF-8 form of a text into room for `Utf8Length` bytes and returns the end; null at
/// the first surrogate without its partner.
unsigned char* WriteUtf8(WStringView text, unsigned char* out);

/// The end of what was written, and the bytes that it took.
struct Utf16Written {
  wchar* end;
  std::size_t length;
};

/// Writes the UTF-16 form of bytes up to the first bad sequence, into room for as many units as
/// there are bytes.
Utf16Written WriteUtf16(std::string_view bytes, wchar* out);

bool IsUtf8(std::string_view bytes);

/// Throws the `CTovikInvalidValueException` of a text that has no UTF-8 form.
[[noreturn]] void RefuseUnpairedSurrogate();

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_UTF8_BYTES_H_
