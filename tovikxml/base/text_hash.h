#ifndef TOVIKXML_BASE_TEXT_HASH_H_
#define TOVIKXML_BASE_TEXT_HASH_H_

#include <cstdint>
#include <string_view>

#include "tovikxml/base/wide_string.h"

/// The hash of the tables of names and values. Internal.
namespace TovikXmlLib16 {

/// A hash under a random key of the process, so that nobody can prepare names that collide. Up to
/// 16 bytes, as most names have, take a strongly universal hash of 32 bits, more take SipHash-1-3.
/// The lower bits are as good as the upper ones.
std::uint64_t HashBytes(std::string_view bytes);
/// The same for a text.
inline std::uint64_t HashText(WStringView text) {
  return HashBytes({reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar)});
}
/// The same for a number.
std::uint64_t HashNumber(std::uint64_t number);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_TEXT_HASH_H_
