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

/// Reads the sequence at `at`, which is no ASCII, by the table of RFC 3629, section 4. Returns its
/// length, 0 if it is bad.
inline std::size_t ReadUtf8Sequence(const unsigned char* at, std::size_t size, char32_t& point) {
  const auto isContinuation = [](unsigned byte) { return (byte & 0xC0) == 0x80; };
  const unsigned lead = at[0];
  if (lead < 0xC2 || size < 2 || !isContinuation(at[1])) return 0;
  if (lead < 0xE0) {
    point = (lead & 0x1F) << 6 | (at[1] & 0x3Fu);
    return 2;
  }
  if (size < 3 || !isContinuation(at[2])) return 0;
  if (lead < 0xF0) {
    point = (lead & 0x0F) << 12 | (at[1] & 0x3Fu) << 6 | (at[2] & 0x3Fu);
    return point < 0x800 || (point & 0xF800) == 0xD800 ? 0 : 3;
  }
  if (lead > 0xF4 || size < 4 || !isContinuation(at[3])) return 0;
  point = (lead & 0x07) << 18 | (at[1] & 0x3Fu) << 12 | (at[2] & 0x3Fu) << 6 | (at[3] & 0x3Fu);
  return point < 0x10000 || point > 0x10FFFF ? 0 : 4;
}

/// Throws the `CTovikInvalidValueException` of a text that has no UTF-8 form.
[[noreturn]] void RefuseUnpairedSurrogate();

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_UTF8_BYTES_H_
