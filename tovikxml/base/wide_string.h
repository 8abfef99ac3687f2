#ifndef TOVIKXML_BASE_WIDE_STRING_H_
#define TOVIKXML_BASE_WIDE_STRING_H_

#include <string>
#include <string_view>

/// @file
/// The text types of the library. All text in memory is UTF-16 in 16-bit code units, on every
/// platform; bytes appear only at streams and parsers. A wide C string in an interface is a
/// zero-terminated `const wchar*`.
namespace TovikXmlLib16 {

using wchar = char16_t;
using WString = std::u16string;
using WStringView = std::u16string_view;

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_WIDE_STRING_H_
