#include "tovikxml/fastinfoset/octet_input.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"

namespace TovikXmlLib16 {
namespace {

// The two blanks stand in all messages of this kind.
constexpr const wchar* kBadLength = u"Invalid NonEmptyOctetString type  on the %s bit of an octet.";
constexpr const wchar* kBadIndex =
    u"Invalid Encoding of integers 1 To 2^20 type  on the %s bit of an octet.";
constexpr const wchar* kBadIndexOrZero =
    u"Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet.";

constexpr unsigned kZeroIndex = 0x7F;

}  // namespace

void ThrowParseFailure(WStringView reason) {
  throw CTovikException(WString(u"Failed to parse FastInfoset. ").append(reason));
}

void CFIOctetInput::ThrowEndOfFile() {
  ThrowParseFailure(u"Unexpected End of File.");
}

CFIOctetInput::Octets CFIOctetInput::ReadString(const FILengthCode& code, unsigned octet) {
  const unsigned low = octet & code.mask;
  std::uint64_t length = 0;
  if (low < code.direct) {
    length = low + 1;
  } else if (low == code.byteForm) {
    length = std::uint64_t{ReadOctet()} + code.direct + 1;
  } else if (low == code.wordForm) {
    length = std::uint64_t{ReadBigEndian(4)} + code.direct + 257;
  } else {
    ThrowParseFailure(FormatString(kBadLength, code.bit));
  }
  if (length > static_cast<std::size_t>(m_end - m_at)) ThrowEndOfFile();
  const Octets octets{m_at, static_cast<std::size_t>(length)};
  m_at += octets.length;
  return octets;
}

// Unused bits of the longer forms count as high ones, so that an index with any of them set lies
// beyond every table.
std::uint32_t CFIOctetInput::ReadIndex(const FIIndexCode& code, unsigned octet) {
  const unsigned low = octet & code.mask;
  if (low < code.direct) return low + 1;
  for (std::size_t i = 0; i < code.stepCount; ++i) {
    const FIIndexStep& step = code.steps[i];
    if ((low & ~step.highMask) != step.form) continue;
    const std::uint32_t high = (low & step.highMask) << 8 * step.octets;
    return step.base + (high | ReadBigEndian(step.octets));
  }
  ThrowParseFailure(FormatString(kBadIndex, code.bit));
}

std::uint32_t CFIOctetInput::ReadIndexOrZero(unsigned octet) {
  if ((octet & kFIIndexBit2.mask) == kZeroIndex) return 0;
  try {
    return ReadIndex(kFIIndexBit2, octet);
  } catch (const CTovikException&) {
    ThrowParseFailure(kBadIndexOrZero);
  }
}

std::uint32_t CFIOctetInput::ReadSequenceLength() {
  const unsigned octet = ReadOctet();
  if (octet < 0x80) return octet + 1;
  if (octet & 0x70) ThrowParseFailure(u"Invalid Encoding of the length of a sequence.");
  return ((octet & 0x0F) << 16 | ReadBigEndian(2)) + 129;
}

std::uint32_t CFIOctetInput::ReadBigEndian(unsigned octets) {
  std::uint32_t value = 0;
  while (octets-- > 0) value = value << 8 | ReadOctet();
  return value;
}

}  // namespace TovikXmlLib16
