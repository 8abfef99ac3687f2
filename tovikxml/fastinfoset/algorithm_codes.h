#ifndef TOVIKXML_FASTINFOSET_ALGORITHM_CODES_H_
#define TOVIKXML_FASTINFOSET_ALGORITHM_CODES_H_

#include <array>
#include <cstddef>
#include <cstdint>

#include "tovikxml/base/wide_string.h"

/// The encoding algorithms over plain octets, for the reader and the writer, which need no buffer
/// object for each value. Internal.
namespace TovikXmlLib16 {

/// The octets of one number or boolean.
struct CFIValueOctets {
  std::array<unsigned char, 8> octets{};
  std::size_t length = 0;
};

/// Whether `EncodeValue` takes the algorithm: 3 to 8.
inline bool HasValueOctets(unsigned long algorithm) {
  return algorithm >= 3 && algorithm <= 8;
}
/// The octets of a value as `CFastInfosetBinaryData::SetAsEncodedString` tells.
CFIValueOctets EncodeValue(unsigned long algorithm, const WString& text);

/// Appends octets as text, as `CFastInfosetBinaryData::GetAsString` tells. A list ends early, as
/// soon as the text is longer than `maxLength`: a bit can become "false ".
void AppendDecoded(WString& out, unsigned long algorithm, const unsigned char* data,
                   std::size_t length, std::uint64_t maxLength);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_ALGORITHM_CODES_H_
