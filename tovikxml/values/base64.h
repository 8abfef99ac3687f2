#ifndef TOVIKXML_VALUES_BASE64_H_
#define TOVIKXML_VALUES_BASE64_H_

#include <cstddef>

#include "tovikxml/base/wide_string.h"

/// Base64 with the standard alphabet (RFC 4648, section 4). Internal: applications code base64
/// through `CBinaryData`.
///
///     bytes   | b7..b2 | b1 b0 b7..b4 | b3..b0 b7 b6 | b5..b0 |
///     units   |   A    |      A       |      A       |    A   |   "=" fills up the last four
namespace TovikXmlLib16 {

class CBase64 {
 public:
  /// The text without line breaks, padded to a multiple of four units.
  static WString Encode(const unsigned char* data, std::size_t length);

  /// Writes the bytes of `text` to `out` and returns their number. "=", blank, tab, carriage return
  /// and line feed are skipped; any other unit outside the alphabet makes the result 0. Bits left
  /// over at the end are dropped.
  static std::size_t Decode(WStringView text, unsigned char* out);

  /// Room that `Decode` needs for a text of so many units.
  static constexpr std::size_t DecodedCapacity(std::size_t units) { return units / 4 * 3 + 3; }
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_BASE64_H_
