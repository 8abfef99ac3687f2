#include "tovikxml/base/utf8.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <bit>
#include <cstdint>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8_bytes.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::uint64_t kNonAsciiBytes = 0x8080808080808080u;
constexpr wchar kReplacement = 0xFFFD;

bool IsPair(const wchar* at, const wchar* end) {
  return IsHighSurrogate(*at) && end - at > 1 && IsLowSurrogate(at[1]);
}

// Copies the ASCII at the start of a text and gives its length. What is written behind it, within
// the length of the text, has no meaning.
std::size_t CopyAscii(const wchar* at, std::size_t size, unsigned char* out) {
  std::size_t i = 0;
#ifdef __SSE2__
  for (; i + 8 <= size; i += 8) {
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + i));
    const __m128i upper = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xFF80)));
    const int ascii = _mm_movemask_epi8(_mm_cmpeq_epi16(upper, _mm_setzero_si128()));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(out + i), _mm_packus_epi16(units, units));
    if (ascii != 0xFFFF) {
      return i + static_cast<std::size_t>(std::countr_one(static_cast<unsigned>(ascii))) / 2;
    }
  }
#else
  for (std::uint64_t word; i + 4 <= size; i += 4) {
    std::memcpy(&word, at + i, sizeof word);
    if ((word & 0xFF80FF80FF80FF80u) != 0) break;
    for (std::size_t k = i; k < i + 4; ++k) out[k] = static_cast<unsigned char>(at[k]);
  }
#endif
  for (; i < size && at[i] < 0x80; ++i) out[i] = static_cast<unsigned char>(at[i]);
  return i;
}

// The same from bytes.
std::size_t WidenAscii(const unsigned char* at, std::size_t size, wchar* out) {
  std::size_t i = 0;
#ifdef __SSE2__
  const __m128i zero = _mm_setzero_si128();
  for (; i + 16 <= size; i += 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + i));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i), _mm_unpacklo_epi8(bytes, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i + 8), _mm_unpackhi_epi8(bytes, zero));
    const auto foreign = static_cast<unsigned>(_mm_movemask_epi8(bytes));
    if (foreign != 0) return i + static_cast<std::size_t>(std::countr_zero(foreign));
  }
#else
  for (std::uint64_t word; i + 8 <= size; i += 8) {
    std::memcpy(&word, at + i, sizeof word);
    if ((word & kNonAsciiBytes) != 0) break;
    for (std::size_t k = i; k < i + 8; ++k) out[k] = at[k];
  }
#endif
  for (; i < size && at[i] < 0x80; ++i) out[i] = at[i];
  return i;
}

const unsigned char* SkipAscii(const unsigned char* at, const unsigned char* end) {
  for (std::uint64_t word; end - at >= 8; at += 8) {
    std::memcpy(&word, at, sizeof word);
    if ((word & kNonAsciiBytes) != 0) break;
  }
  while (at != end && *at < 0x80) ++at;
  return at;
}

unsigned char Continuation(char32_t bits) {
  return static_cast<unsigned char>(0x80 | (bits & 0x3F));
}

// What was decoded in front of the first bad sequence, and the bytes that it took.
struct Decoded {
  WString text;
  std::size_t length;
};

Decoded Decode(std::string_view bytes) {
  WString text(bytes.size(), u'\0');
  const Utf16Written written = WriteUtf16(bytes, text.data());
  text.resize(static_cast<std::size_t>(written.end - text.data()));
  return {std::move(text), written.length};
}

}  // namespace

// Three bytes for each unit, less what ASCII, units below 0x800 and surrogates save. Sums of 16
// bits over blocks let compilers use vectors.
std::size_t Utf8Length(WStringView text) {
  constexpr std::size_t kBlock = 64;
  const auto saving = [](wchar unit) {
    return static_cast<std::uint16_t>((unit < 0x80) + (unit < 0x800) + ((unit & 0xF800) == 0xD800));
  };
  std::size_t length = 3 * text.size();
  std::size_t i = 0;
  for (; i + kBlock <= text.size(); i += kBlock) {
    std::uint16_t saved = 0;
    for (std::size_t k = 0; k < kBlock; ++k) {
      saved = static_cast<std::uint16_t>(saved + saving(text[i + k]));
    }
    length -= saved;
  }
  for (; i < text.size(); ++i) length -= saving(text[i]);
  return length;
}

unsigned char* WriteUtf8(WStringView text, unsigned char* out) {
  const wchar* at = text.data();
  const wchar* const end = at + text.size();
  while (at != end) {
    const wchar unit = *at;
    if (unit < 0x80) {
      const std::size_t length = CopyAscii(at, static_cast<std::size_t>(end - at), out);
      at += length;
      out += length;
    } else if (unit < 0x800) {
      *out++ = static_cast<unsigned char>(0xC0 | (unit >> 6));
      *out++ = Continuation(unit);
      ++at;
    } else if ((unit & 0xF800) != 0xD800) {
      *out++ = static_cast<unsigned char>(0xE0 | (unit >> 12));
      *out++ = Continuation(unit >> 6);
      *out++ = Continuation(unit);
      ++at;
    } else {
      if (!IsPair(at, end)) return nullptr;
      const char32_t point = CombineSurrogates(at[0], at[1]);
      *out++ = static_cast<unsigned char>(0xF0 | (point >> 18));
      *out++ = Continuation(point >> 12);
      *out++ = Continuation(point >> 6);
      *out++ = Continuation(point);
      at += 2;
    }
  }
  return out;
}

Utf16Written WriteUtf16(std::string_view bytes, wchar* out) {
  const auto* const start = reinterpret_cast<const unsigned char*>(bytes.data());
  const auto* const end = start + bytes.size();
  const unsigned char* at = start;
  while (at != end) {
    const auto left = static_cast<std::size_t>(end - at);
    if (*at < 0x80) {
      const std::size_t length = WidenAscii(at, left, out);
      at += length;
      out += length;
      continue;
    }
    char32_t point = 0;
    const std::size_t length = ReadUtf8Sequence(at, left, point);
    if (length == 0) break;
    at += length;
    if (point < 0x10000) {
      *out++ = static_cast<wchar>(point);
    } else {
      *out++ = static_cast<wchar>(0xD800 + ((point - 0x10000) >> 10));
      *out++ = static_cast<wchar>(0xDC00 + ((point - 0x10000) & 0x3FF));
    }
  }
  return {out, static_cast<std::size_t>(at - start)};
}

bool IsUtf8(std::string_view bytes) {
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
  const auto* const end = at + bytes.size();
  while (at != end) {
    at = SkipAscii(at, end);
    if (at == end) break;
    char32_t point = 0;
    const std::size_t length = ReadUtf8Sequence(at, static_cast<std::size_t>(end - at), point);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

std::optional<std::string> EncodeUtf8(WStringView text) {
  std::string bytes(Utf8Length(text), '\0');
  if (!WriteUtf8(text, reinterpret_cast<unsigned char*>(bytes.data()))) return std::nullopt;
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
  wchar* const end = repaired.data() + repaired.size();
  for (wchar* at = repaired.data(); at != end; ++at) {
    if (IsPair(at, end)) {
      ++at;
    } else if ((*at & 0xF800) == 0xD800) {
      *at = kReplacement;
    }
  }
  return EncodeUtf8(repaired).value_or(std::string());
}

}  // namespace TovikXmlLib16
