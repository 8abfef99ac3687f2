#include "tovikxml/values/base64.h"

#include <array>
#include <cstdint>

namespace TovikXmlLib16 {
namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kSkip = 64;
constexpr std::uint8_t kForeign = 65;

constexpr std::array<std::uint8_t, 128> MakeDecodeTable() {
  std::array<std::uint8_t, 128> table{};
  table.fill(kForeign);
  for (std::uint8_t i = 0; i < 64; ++i) table[static_cast<std::size_t>(kAlphabet[i])] = i;
  for (const char skipped : {'=', ' ', '\t', '\r', '\n'}) {
    table[static_cast<std::size_t>(skipped)] = kSkip;
  }
  return table;
}

constexpr auto kDecodeTable = MakeDecodeTable();

std::uint8_t Classify(wchar unit) {
  return unit < kDecodeTable.size() ? kDecodeTable[unit] : kForeign;
}

wchar UnitOf(std::uint32_t bits, int shift) {
  return static_cast<wchar>(kAlphabet[(bits >> shift) & 0x3F]);
}

// The last group of one or two bytes.
void EncodeTail(const unsigned char* data, std::size_t length, wchar* out) {
  if (length == 0) return;
  const std::uint32_t second = length == 2 ? data[1] : 0u;
  const std::uint32_t bits = static_cast<std::uint32_t>(data[0]) << 16 | second << 8;
  out[0] = UnitOf(bits, 18);
  out[1] = UnitOf(bits, 12);
  out[2] = length == 2 ? UnitOf(bits, 6) : u'=';
  out[3] = u'=';
}

}  // namespace

WString CBase64::Encode(const unsigned char* data, std::size_t length) {
  WString text((length + 2) / 3 * 4, u'=');
  wchar* out = text.data();
  for (; length >= 3; length -= 3, data += 3, out += 4) {
    const std::uint32_t bits = static_cast<std::uint32_t>(data[0]) << 16 |
                               static_cast<std::uint32_t>(data[1]) << 8 | data[2];
    out[0] = UnitOf(bits, 18);
    out[1] = UnitOf(bits, 12);
    out[2] = UnitOf(bits, 6);
    out[3] = UnitOf(bits, 0);
  }
  EncodeTail(data, length, out);
  return text;
}

std::size_t CBase64::Decode(WStringView text, unsigned char* out) {
  const unsigned char* const begin = out;
  std::uint32_t bits = 0;
  int held = 0;
  for (const wchar unit : text) {
    const std::uint8_t value = Classify(unit);
    if (value == kSkip) continue;
    if (value == kForeign) return 0;
    bits = bits << 6 | value;
    held += 6;
    if (held >= 8) {
      held -= 8;
      *out++ = static_cast<unsigned char>(bits >> held);
    }
  }
  return static_cast<std::size_t>(out - begin);
}

}  // namespace TovikXmlLib16
