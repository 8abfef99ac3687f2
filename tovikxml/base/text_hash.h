#ifndef TOVIKXML_BASE_TEXT_HASH_H_
#define TOVIKXML_BASE_TEXT_HASH_H_

#include <cstdint>

#include "tovikxml/base/wide_string.h"

/// The hash of the tables of names and values. Internal.
namespace TovikXmlLib16 {

/// A hash under a random key of the process, so that nobody can prepare names that collide. Texts
/// of up to eight units, as most names are, take a strongly universal hash of 32 bits, longer ones
/// SipHash-1-3. The lower bits are as good as the upper ones.
std::uint64_t HashText(WStringView text);
/// The same for a number.
std::uint64_t HashNumber(std::uint64_t number);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_TEXT_HASH_H_
