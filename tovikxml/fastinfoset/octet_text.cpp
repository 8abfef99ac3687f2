#include "tovikxml/fastinfoset/octet_text.h"

#include <cstdint>
#include <cstring>

#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::uint64_t kLowBits = 0x0101010101010101u;
constexpr std::uint64_t kHighBits = 0x8080808080808080u;
constexpr std::uint64_t kBlanks = 0x2020202020202020u;

// The high bit of a byte that is zero, provided that no byte below it is.
constexpr std::uint64_t ZeroBytes(std::uint64_t word) {
  return (word - kLowBits) & ~word & kHighBits;
}

bool IsPlain(std::uint64_t word) {
  return ((word & kHighBits) | ZeroBytes(word) | ZeroBytes(word ^ kLowBits * '\r')) == 0;
}

bool IsPlain(CFIOctetInput::Octets octets) {
  std::uint64_t word;
  for (; octets.length >= sizeof word; octets.data += sizeof word, octets.length -= sizeof word) {
    std::memcpy(&word, octets.data, sizeof word);
    if (!IsPlain(word)) return false;
  }
  word = kBlanks;
  std::memcpy(&word, octets.data, octets.length);
  return IsPlain(word);
}

void AppendWidened(WString& out, CFIOctetInput::Octets octets) {
  const std::size_t old = out.size();
  out.resize(old + octets.length);
  wchar* units = out.data() + old;
  for (std::size_t i = 0; i < octets.length; ++i) units[i] = octets.data[i];
}

bool HasUnpairedSurrogate(WStringView text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsLowSurrogate(text[i])) return true;
    if (!IsHighSurrogate(text[i])) continue;
    if (++i == text.size() || !IsLowSurrogate(text[i])) return true;
  }
  return false;
}

}  // namespace

bool AppendPlainText(WString& out, CFIOctetInput::Octets octets) {
  if (!IsPlain(octets)) return false;
  AppendWidened(out, octets);
  return true;
}

void AppendUtf8(WString& out, CFIOctetInput::Octets octets) {
  if (AppendPlainText(out, octets)) return;
  const auto text = DecodeUtf8({reinterpret_cast<const char*>(octets.data), octets.length});
  if (!text) ThrowParseFailure(u"Invalid UTF-8 text.");
  out.append(*text);
}

void AppendUtf16(WString& out, CFIOctetInput::Octets octets) {
  WString text(octets.length / 2, u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) {
    text[i] = static_cast<wchar>(octets.data[2 * i] << 8 | octets.data[2 * i + 1]);
  }
  if (octets.length % 2 != 0 || HasUnpairedSurrogate(text)) {
    ThrowParseFailure(u"Invalid UTF-16 text.");
  }
  out.append(text);
}

}  // namespace TovikXmlLib16
