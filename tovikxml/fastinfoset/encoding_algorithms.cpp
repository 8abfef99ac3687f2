#include "tovikxml/fastinfoset/encoding_algorithms.h"

#include <bit>
#include <cstdint>
#include <limits>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8_bytes.h"
#include "tovikxml/document/utf_conversion.h"
#include "tovikxml/fastinfoset/algorithm_codes.h"
#include "tovikxml/values/base64.h"
#include "tovikxml/values/conversions.h"

namespace TovikXmlLib16 {
namespace {

enum Algorithm : unsigned long {
  kHexadecimal = 1,
  kBase64 = 2,
  kShort = 3,
  kInt = 4,
  kLong = 5,
  kBoolean = 6,
  kFloat = 7,
  kDouble = 8,
  kUuid = 9,
  kCData = 10
};

constexpr auto kAsIs = CWhitespaceUtils::ws_none;
constexpr unsigned char kTrue = 0x38;  // three unused bits behind the value
constexpr unsigned char kFalse = 0x30;

[[noreturn]] void ThrowUnknown() {
  throw CTovikException(u"Unknown byte encoding.");
}

template <class Bits>
Bits FromOctets(const unsigned char* data) {
  Bits bits = 0;
  for (std::size_t i = 0; i < sizeof bits; ++i) bits = static_cast<Bits>(bits << 8 | data[i]);
  return bits;
}

CFIValueOctets ToOctets(std::uint64_t bits, std::size_t size) {
  CFIValueOctets out;
  out.length = size;
  for (std::size_t i = size; i-- > 0; bits >>= 8) {
    out.octets[i] = static_cast<unsigned char>(bits & 0xFF);
  }
  return out;
}

// The two sides of a list of values of one size.
template <class Bits, class Value, WString (*toString)(Value)>
WString NumberText(const unsigned char* data) {
  return toString(std::bit_cast<Value>(FromOctets<Bits>(data)));
}

WString UuidText(const unsigned char* data) {
  return CBinaryData::GetAsHexString(data, 16);
}

struct ListForm {
  std::size_t size;
  WString (*toText)(const unsigned char*);
  const wchar* name;
};

ListForm FormOf(unsigned long algorithm) {
  switch (algorithm) {
    case kShort:
      return {2, NumberText<std::uint16_t, std::int16_t, CConversions::i2ToString>, u"SHORT"};
    case kInt:
      return {4, NumberText<std::uint32_t, std::int32_t, CConversions::i4ToString>, u"INT"};
    case kLong:
      return {8, NumberText<std::uint64_t, std::int64_t, CConversions::i8ToString>, u"LONG"};
    case kFloat:
      return {4, NumberText<std::uint32_t, float, CConversions::r4ToString>, u"FLOAT"};
    case kDouble:
      return {8, NumberText<std::uint64_t, double, CConversions::r8ToString>, u"DOUBLE"};
    case kUuid:
      return {16, UuidText, u"UUID"};
    default:
      ThrowUnknown();
  }
}

void AppendList(WString& out, const ListForm& form, const unsigned char* data, std::size_t length,
                std::uint64_t maxLength) {
  if (length % form.size != 0) {
    throw CTovikException(WString(u"Invalid value for ") + form.name + u" byte encoding.");
  }
  for (std::size_t at = 0; at < length && out.size() <= maxLength; at += form.size) {
    if (at != 0) out.push_back(u' ');
    out.append(form.toText(data + at));
  }
}

void AppendBooleans(WString& out, const unsigned char* data, std::size_t length,
                    std::uint64_t maxLength) {
  if (length == 0) return;
  const std::size_t outside = 4 + std::size_t{data[0]} / 16;
  if (8 * length < outside) return;
  const std::size_t end = 8 * length - outside + 4;
  for (std::size_t bit = 4; bit < end && out.size() <= maxLength; ++bit) {
    if (bit != 4) out.push_back(u' ');
    out.append(CConversions::booleanToString(data[bit / 8] >> (7 - bit % 8) & 1));
  }
}

}  // namespace

CFIValueOctets EncodeValue(unsigned long algorithm, const WString& text) {
  switch (algorithm) {
    case kShort:
      return ToOctets(static_cast<std::uint16_t>(CConversions::i2FromString(text, kAsIs)), 2);
    case kInt:
      return ToOctets(static_cast<std::uint32_t>(CConversions::i4FromString(text, kAsIs)), 4);
    case kLong:
      return ToOctets(static_cast<std::uint64_t>(CConversions::i8FromString(text, kAsIs)), 8);
    case kBoolean:
      return ToOctets(CConversions::booleanFromString(text, kAsIs) ? kTrue : kFalse, 1);
    case kFloat:
      return ToOctets(std::bit_cast<std::uint32_t>(CConversions::r4FromString(text, kAsIs)), 4);
    case kDouble:
      return ToOctets(std::bit_cast<std::uint64_t>(CConversions::r8FromString(text, kAsIs)), 8);
    default:
      ThrowUnknown();
  }
}

void AppendDecoded(WString& out, unsigned long algorithm, const unsigned char* data,
                   std::size_t length, std::uint64_t maxLength) {
  if (algorithm == kHexadecimal) {
    out.append(CBinaryData::GetAsHexString(data, length));
  } else if (algorithm == kBase64) {
    out.append(CBase64::Encode(data, length));
  } else if (algorithm == kBoolean) {
    AppendBooleans(out, data, length, maxLength);
  } else {
    AppendList(out, FormOf(algorithm), data, length, maxLength);
  }
}

WString CFastInfosetBinaryData::GetAsString(unsigned long algorithm) const {
  WString text;
  if (const unsigned char* data = GetData()) {
    AppendDecoded(text, algorithm, data, GetLength(), std::numeric_limits<std::uint64_t>::max());
  }
  return text;
}

void CFastInfosetBinaryData::SetAsEncodedString(unsigned long algorithm, const wchar* text) {
  Clear();
  if (algorithm == kHexadecimal || algorithm == kUuid) return SetAsHexString(text);
  if (algorithm == kBase64) return SetAsBase64(text);
  if (algorithm != kCData) {
    const CFIValueOctets value = EncodeValue(algorithm, TextOf(text));
    return SetBuffer(value.octets.data(), value.length);
  }
  const CBinaryData bytes = Utf16ToUtf8(text);
  if (bytes.GetLength() == 0 && !ViewOf(text).empty()) RefuseUnpairedSurrogate();
  CBinaryData::operator=(bytes);
}

}  // namespace TovikXmlLib16
