#ifndef TOVIKXML_BASE_TEXT_HASH_H_
#define TOVIKXML_BASE_TEXT_HASH_H_

#include <cstdint>
#include <cstring>

#include "tovikxml/base/wide_string.h"

/// The hash of the tables of names and values. Internal.
namespace TovikXmlLib16 {

/// Mixes the words of a text by multiplication, from a seed. A seed that differs between processes
/// keeps input from being made to collide.
inline std::uint64_t HashText(WStringView text, std::uint64_t seed) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15u;
  std::uint64_t hash = seed * kFactor ^ text.size();
  const auto mix = [&](std::uint64_t word) {
    hash = (hash ^ word) * kFactor;
    hash ^= hash >> 32;
  };
  const wchar* at = text.data();
  std::size_t left = text.size() * sizeof(wchar);
  for (std::uint64_t word; left >= sizeof word; left -= sizeof word, at += 4) {
    std::memcpy(&word, at, sizeof word);
    mix(word);
  }
  std::uint64_t rest = 0;
  if (left != 0) std::memcpy(&rest, at, left);
  mix(rest);
  return hash;
}

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_TEXT_HASH_H_
