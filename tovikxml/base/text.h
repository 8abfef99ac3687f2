#ifndef TOVIKXML_BASE_TEXT_H_
#define TOVIKXML_BASE_TEXT_H_

#include <cstring>

#include "tovikxml/base/wide_string.h"

/// Small operations on 16-bit text that know no locale and treat ASCII letters only. Internal.
namespace TovikXmlLib16 {

/// Exact comparison of two texts, decided by length before characters.
inline bool EqualText(WStringView a, WStringView b) {
  return a.size() == b.size() &&
         (a.data() == b.data() || std::memcmp(a.data(), b.data(), a.size() * sizeof(wchar)) == 0);
}

/// Index of the first `unit`, or the length. Blocks of a fixed size, large enough that compilers
/// turn the loop over them into vector instructions, are tested at once.
inline std::size_t FindUnit(WStringView text, wchar unit) {
  constexpr std::size_t kBlock = 32;
  std::size_t at = 0;
  for (; at + kBlock <= text.size(); at += kBlock) {
    wchar hits = 0;
    for (std::size_t i = 0; i < kBlock; ++i) {
      hits = static_cast<wchar>(hits | (text[at + i] == unit ? 1 : 0));
    }
    if (hits) break;
  }
  while (at < text.size() && text[at] != unit) ++at;
  return at;
}

constexpr bool IsAsciiDigit(wchar unit) {
  return unit >= u'0' && unit <= u'9';
}

inline wchar ToAsciiUpper(wchar unit) {
  return unit >= u'a' && unit <= u'z' ? static_cast<wchar>(unit - u'a' + u'A') : unit;
}

inline wchar ToAsciiLower(wchar unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<wchar>(unit - u'A' + u'a') : unit;
}

inline bool EqualIgnoringAsciiCase(WStringView a, WStringView b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (ToAsciiLower(a[i]) != ToAsciiLower(b[i])) return false;
  }
  return true;
}

inline WString WidenAscii(std::string_view text) {
  return WString(text.begin(), text.end());
}

/// An empty string to refer to, also for what runs before the constructors of this library's own
/// objects.
inline const WString& EmptyText() {
  static const WString empty;
  return empty;
}

/// The text of a wide C string argument that may be null, which counts as empty.
inline WStringView ViewOf(const wchar* text) {
  return text ? WStringView(text) : WStringView();
}
inline WString TextOf(const wchar* text) {
  return WString(ViewOf(text));
}

inline bool IsHighSurrogate(wchar unit) {
  return (unit & 0xFC00) == 0xD800;
}
inline bool IsLowSurrogate(wchar unit) {
  return (unit & 0xFC00) == 0xDC00;
}

/// The code point of a high and a low surrogate.
inline char32_t CombineSurrogates(wchar high, wchar low) {
  return 0x10000 + ((static_cast<char32_t>(high) - 0xD800) << 10) +
         (static_cast<char32_t>(low) - 0xDC00);
}

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_TEXT_H_
