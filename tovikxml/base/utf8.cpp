#include "tovikxml/base/utf8.h"

#include <cstdint>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8_bytes.h"

namespace TovikXmlLib16 {
namespace {

// ASCII is passed in blocks of a fixed size, large enough that compilers turn the loops over them
// into vector instructions rather than unroll them.
constexpr std::size_t kBlock = 32;
constexpr std::size_t kSmallBlock = 4;
constexpr std::uint64_t kNonAsciiBytes = 0x8080808080808080u;
constexpr wchar kReplacement = 0xFFFD;

bool IsAsciiBlock(const wchar* units) {
  wchar all = 0;
  for (std::size_t i = 0; i < kBlock; ++i) all = static_cast<wchar>(all | units[i]);
  return all < 0x80;
}

bool IsSmallAsciiBlock(const wchar* units) {
  std::uint64_t word;
  static_assert(sizeof word == kSmallBlock * sizeof(wchar));
  std::memcpy(&word, units, sizeof word);
  return (word & 0xFF80FF80FF80FF80u) == 0;
}

// Size of the block of ASCII at `at`, 0 if there is none of either size.
std::size_t AsciiBlock(WStringView text, std::size_t at) {
  if (at + kBlock <= text.size() && IsAsciiBlock(text.data() + at)) return kBlock;
  if (at + kSmallBlock <= text.size() && IsSmallAsciiBlock(text.data() + at)) {
    return kSmallBlock;
  }
  return 0;
}

template <std::size_t size>
unsigned char* CopyAscii(const wchar* units, unsigned char* out) {
  for (std::size_t i = 0; i < size; ++i) out[i] = static_cast<unsigned char>(units[i]);
  return out + size;
}

bool IsPair(WStringView text, std::size_t at) {
  return IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
}

// Length of the well-formed sequence at `at` by the table of RFC 3629, section 4; 0 if it is bad.
std::size_t SequenceLength(std::string_view bytes, std::size_t at) {
  const auto byte = [&](std::size_t i) -> unsigned {
    return at + i < bytes.size() ? static_cast<unsigned char>(bytes[at + i]) : 0u;
  };
  const auto continues = [&](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
  const unsigned lead = byte(0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4 || !continues(1)) return 0;
  if (lead < 0xE0) return 2;
  if (lead == 0xE0 && byte(1) < 0xA0) return 0;
  if (lead == 0xED && byte(1) > 0x9F) return 0;
  if (!continues(2)) return 0;
  if (lead < 0xF0) return 3;
  if (lead == 0xF0 && byte(1) < 0x90) return 0;
  if (lead == 0xF4 && byte(1) > 0x8F) return 0;
  return continues(3) ? 4 : 0;
}

void AppendSequence(WString& out, std::string_view sequence) {
  const auto bits = [&](std::size_t i) { return static_cast<char32_t>(sequence[i]) & 0x3F; };
  const auto lead = static_cast<unsigned char>(sequence[0]);
  char32_t point = lead;
  if (sequence.size() == 2) point = ((lead & 0x1Fu) << 6) | bits(1);
  if (sequence.size() == 3) point = ((lead & 0x0Fu) << 12) | (bits(1) << 6) | bits(2);
  if (sequence.size() == 4) {
    point = ((lead & 0x07u) << 18) | (bits(1) << 12) | (bits(2) << 6) | bits(3);
  }
  if (point < 0x10000) {
    out.push_back(static_cast<wchar>(point));
  } else {
    out.push_back(static_cast<wchar>(0xD800 + ((point - 0x10000) >> 10)));
    out.push_back(static_cast<wchar>(0xDC00 + ((point - 0x10000) & 0x3FF)));
  }
}

unsigned char* WritePoint(char32_t point, unsigned char* out) {
  const auto tail = [&](int shift) {
    return static_cast<unsigned char>(0x80 | ((point >> shift) & 0x3F));
  };
  if (point < 0x80) {
    *out++ = static_cast<unsigned char>(point);
  } else if (point < 0x800) {
    *out++ = static_cast<unsigned char>(0xC0 | (point >> 6));
    *out++ = tail(0);
  } else if (point < 0x10000) {
    *out++ = static_cast<unsigned char>(0xE0 | (point >> 12));
    *out++ = tail(6);
    *out++ = tail(0);
  } else {
    *out++ = static_cast<unsigned char>(0xF0 | (point >> 18));
    *out++ = tail(12);
    *out++ = tail(6);
    *out++ = tail(0);
  }
  return out;
}

// What was decoded in front of the first bad sequence, and the bytes that it took.
struct Decoded {
  WString text;
  std::size_t length;
};

Decoded Decode(std::string_view bytes) {
  WString text;
  std::size_t i = 0;
  text.reserve(bytes.size());
  while (i < bytes.size()) {
    std::uint64_t word = kNonAsciiBytes;
    if (i + sizeof word <= bytes.size()) std::memcpy(&word, bytes.data() + i, sizeof word);
    if ((word & kNonAsciiBytes) == 0) {
      text.append(bytes.begin() + static_cast<std::ptrdiff_t>(i),
                  bytes.begin() + static_cast<std::ptrdiff_t>(i + sizeof word));
      i += sizeof word;
      continue;
    }
    const std::size_t length = SequenceLength(bytes, i);
    if (length == 0) break;
    AppendSequence(text, bytes.substr(i, length));
    i += length;
  }
  return {std::move(text), i};
}

}  // namespace

std::optional<std::size_t> Utf8Length(WStringView text) {
  std::size_t length = 0;
  std::size_t i = 0;
  while (i < text.size()) {
    if (const std::size_t block = AsciiBlock(text, i)) {
      length += block;
      i += block;
      continue;
    }
    const wchar unit = text[i];
    if (unit < 0x80) {
      length += 1;
    } else if (unit < 0x800) {
      length += 2;
    } else if ((unit & 0xF800) != 0xD800) {
      length += 3;
    } else if (IsPair(text, i)) {
      length += 4;
      ++i;
    } else {
      return std::nullopt;
    }
    ++i;
  }
  return length;
}

unsigned char* WriteUtf8(WStringView text, unsigned char* out) {
  std::size_t i = 0;
  while (i < text.size()) {
    if (const std::size_t block = AsciiBlock(text, i)) {
      out = block == kBlock ? CopyAscii<kBlock>(text.data() + i, out)
                            : CopyAscii<kSmallBlock>(text.data() + i, out);
      i += block;
    } else if (IsPair(text, i)) {
      out = WritePoint(CombineSurrogates(text[i], text[i + 1]), out);
      i += 2;
    } else {
      out = WritePoint(text[i], out);
      ++i;
    }
  }
  return out;
}

std::optional<std::string> EncodeUtf8(WStringView text) {
  const auto length = Utf8Length(text);
  if (!length) return std::nullopt;
  std::string bytes(*length, '\0');
  WriteUtf8(text, reinterpret_cast<unsigned char*>(bytes.data()));
  return bytes;
}

std::optional<WString> DecodeUtf8(std::string_view bytes) {
  Decoded decoded = Decode(bytes);
  if (decoded.length != bytes.size()) return std::nullopt;
  return std::move(decoded.text);
}

std::string ToUtf8(WStringView text) {
  auto bytes = EncodeUtf8(text);
  if (!bytes) RefuseUnpairedSurrogate();
  return *std::move(bytes);
}

WString FromUtf8(std::string_view bytes) {
  Decoded decoded = Decode(bytes);
  if (decoded.length != bytes.size()) {
    throw CTovikInvalidValueException(
        FormatString(u"The bytes are not UTF-8 from offset [%llu] on",
                     static_cast<unsigned long long>(decoded.length)));
  }
  return std::move(decoded.text);
}

void RefuseUnpairedSurrogate() {
  throw CTovikInvalidValueException(
      u"The text has an unpaired surrogate and cannot be written as UTF-8");
}

std::string DisplayUtf8(WStringView text) {
  WString repaired(text);
  for (std::size_t i = 0; i < repaired.size(); ++i) {
    if (IsPair(repaired, i)) {
      ++i;
    } else if ((repaired[i] & 0xF800) == 0xD800) {
      repaired[i] = kReplacement;
    }
  }
  return EncodeUtf8(repaired).value_or(std::string());
}

}  // namespace TovikXmlLib16
