#include "tovikxml/values/second_fraction.h"

#include <charconv>

#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {

bool ReadFraction(WStringView text, std::size_t& at, SecondFraction& fraction) {
  constexpr std::size_t kDigits = 9;
  constexpr unsigned kWeights[] = {100, 10, 1};
  std::uint16_t* const groups[] = {&fraction.milli, &fraction.micro, &fraction.nano};
  for (std::size_t i = 0; at < text.size() && IsAsciiDigit(text[at]); ++i, ++at) {
    if (i == kDigits) return false;
    std::uint16_t& group = *groups[i / 3];
    group = static_cast<std::uint16_t>(group + kWeights[i % 3] * (text[at] - u'0'));
  }
  return true;
}

char* WritePadded(char* out, std::uint64_t value, int width) {
  char digits[20];
  const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  for (auto length = end - digits; length < width; ++length) *out++ = '0';
  for (const char* digit = digits; digit != end; ++digit) *out++ = *digit;
  return out;
}

char* WriteFraction(char* out, const SecondFraction& fraction) {
  char* end = out;
  *end++ = '.';
  for (const unsigned group : {fraction.milli, fraction.micro, fraction.nano}) {
    end = WritePadded(end, group, 3);
  }
  while (end[-1] == '0') --end;
  return end[-1] == '.' ? out : end;
}

}  // namespace TovikXmlLib16
