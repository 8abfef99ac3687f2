#ifndef TOVIKXML_DOCUMENT_EXPAT_TEXT_H_
#define TOVIKXML_DOCUMENT_EXPAT_TEXT_H_

#include <expat.h>

#include <cstddef>

#include "tovikxml/base/utf8.h"
#include "tovikxml/base/wide_string.h"

/// What expat hands over, as 16-bit text. Its 16-bit build gives that already; the text of its
/// 8-bit build is converted into `scratch`, where it stays until the next conversion. Internal.
namespace TovikXmlLib16 {

inline std::size_t LengthOf(const XML_Char* text) {
  std::size_t length = 0;
  while (text[length]) ++length;
  return length;
}

#ifdef XML_UNICODE
static_assert(sizeof(XML_Char) == sizeof(wchar));

inline WStringView Widen(const XML_Char* text, std::size_t length, WString& /*scratch*/) {
  return {reinterpret_cast<const wchar*>(text), length};
}

inline const wchar* WidenName(const XML_Char* name, WString& /*scratch*/) {
  return reinterpret_cast<const wchar*>(name);
}
#else
inline WStringView Widen(const XML_Char* text, std::size_t length, WString& scratch) {
  // expat has checked the encoding and never cuts a character.
  scratch = DecodeUtf8({text, length}).value_or(WString());
  return scratch;
}

inline const wchar* WidenName(const XML_Char* name, WString& scratch) {
  Widen(name, LengthOf(name), scratch);
  return scratch.c_str();
}
#endif

/// Null counts as empty.
inline WStringView Widen(const XML_Char* text, WString& scratch) {
  return text ? Widen(text, LengthOf(text), scratch) : WStringView();
}

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_EXPAT_TEXT_H_
