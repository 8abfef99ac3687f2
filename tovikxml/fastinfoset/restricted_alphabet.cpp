#include "tovikxml/fastinfoset/restricted_alphabet.h"

#include <cstdint>

#include "tovikxml/base/exception.h"
#include "tovikxml/fastinfoset/octet_input.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::size_t kMaxAlphabet = std::size_t{1} << 20;

bool HasValidSize(WStringView alphabet) {
  return alphabet.size() >= 2 && alphabet.size() <= kMaxAlphabet;
}

[[noreturn]] void ThrowWriteFailure(const wchar* reason) {
  throw CTovikException(WString(u"Failed to write FastInfoset. ") + reason);
}

unsigned WidthOf(WStringView alphabet) {
  unsigned width = 2;
  while (std::size_t{1} << width <= alphabet.size()) ++width;
  return width;
}

// A value with all bits set fills up the last octet, so that it has no place in the first half of
// one, nor where each octet is one value.
bool MayEndText(unsigned width, unsigned bitsLeft) {
  return width == 4 ? bitsLeft == width : width != 8;
}

unsigned char PositionOf(wchar unit, WStringView alphabet) {
  const std::size_t position = alphabet.find(unit);
  if (position == WStringView::npos) {
    ThrowWriteFailure(u"Invalid character not found for Restricted Alphabet.");
  }
  return static_cast<unsigned char>(position);
}

}  // namespace

std::vector<unsigned char> EncodeOverAlphabet(WStringView alphabet, WStringView text) {
  if (!HasValidSize(alphabet)) {
    ThrowWriteFailure(
        u"Invalid Restricted Alphabet. Alphabet must contain between 2 and 2^20 characters.");
  }
  const unsigned width = WidthOf(alphabet);
  if (width != 4 && width != 8) {
    ThrowWriteFailure(u"Unsupported Feature in AppendRestrictedAlphabetString.");
  }
  const std::size_t perOctet = 8 / width;
  std::vector<unsigned char> octets((text.size() + perOctet - 1) / perOctet);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned position = PositionOf(text[i], alphabet);
    const bool isHighHalf = width == 4 && i % 2 == 0;
    unsigned char& octet = octets[i / perOctet];
    octet =
        static_cast<unsigned char>(isHighHalf ? position << 4 | 0x0F : (octet & 0xF0) | position);
    if (width == 8) octet = static_cast<unsigned char>(position);
  }
  return octets;
}

void AppendOverAlphabet(WString& out, WStringView alphabet, const unsigned char* data,
                        std::size_t length) {
  if (!HasValidSize(alphabet)) {
    ThrowParseFailure(
        u"Invalid Encoding of Restricted Alphabet. Alphabet must contain between 2 and 2^20 "
        u"characters.");
  }
  const unsigned width = WidthOf(alphabet);
  const std::uint32_t end = (1u << width) - 1;
  std::uint32_t held = 0;  // bits read and not used, `left` of them at the low end
  unsigned left = 0;
  for (std::size_t i = 0; i < length;) {
    for (; left < width && i < length; left += 8) held = held << 8 | data[i++];
    for (; left >= width; left -= width) {
      const std::uint32_t value = held >> (left - width) & end;
      if (value == end && MayEndText(width, left)) return;
      if (value >= alphabet.size()) {
        ThrowParseFailure(u"Invalid character value for Restricted Alphabet.");
      }
      out.push_back(alphabet[value]);
    }
  }
}

}  // namespace TovikXmlLib16
