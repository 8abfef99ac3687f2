#include "tovikxml/fastinfoset/octet_output.h"

#include <cstring>
#include <limits>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/utf8.h"
#include "tovikxml/base/utf8_bytes.h"
#include "tovikxml/document/binary_stream.h"

namespace TovikXmlLib16 {
namespace {

// Up to here a plain loop beats the blocks of the conversion.
constexpr std::size_t kShortText = 16;

bool IsAscii(WStringView text) {
  wchar all = 0;
  for (const wchar unit : text) all = static_cast<wchar>(all | unit);
  return all < 0x80;
}

}  // namespace

void CFIOctetOutput::PutOctets(const void* data, std::size_t length) {
  if (length > m_buffer.size() - m_used) Flush();
  if (length > m_buffer.size()) {
    m_stream->Append(static_cast<const unsigned char*>(data), length);
  } else {
    std::memcpy(m_buffer.data() + m_used, data, length);
    m_used += length;
  }
}

void CFIOctetOutput::PutIndex(const FIIndexCode& code, unsigned bits, std::uint32_t index) {
  if (index <= code.direct) return Put(bits + index - 1);
  const FIIndexStep* step = code.steps + code.stepCount - 1;
  while (index < step->base) --step;
  const std::uint32_t rest = index - step->base;
  // A step of three octets leaves nothing for the first one.
  Put(bits + step->form + (rest >> 8 * step->octets));
  PutBigEndian(rest, step->octets);
}

void CFIOctetOutput::PutString(const FILengthCode& code, unsigned bits, const void* data,
                               std::size_t length) {
  PutLength(code, bits, length);
  PutOctets(data, length);
}

void CFIOctetOutput::PutText(const FILengthCode& code, unsigned bits, WStringView text) {
  if (text.size() <= kShortText && IsAscii(text)) {
    PutLength(code, bits, text.size());
    if (text.size() > m_buffer.size() - m_used) Flush();
    unsigned char* out = m_buffer.data() + m_used;
    for (const wchar unit : text) *out++ = static_cast<unsigned char>(unit);
    m_used += text.size();
    return;
  }
  const std::size_t length = Utf8Length(text);
  PutLength(code, bits, length);
  if (length > m_buffer.size() - m_used) Flush();
  if (length > m_buffer.size()) {
    const std::string octets = ToUtf8(text);
    return PutOctets(octets.data(), octets.size());
  }
  const unsigned char* const end = WriteUtf8(text, m_buffer.data() + m_used);
  if (!end) RefuseUnpairedSurrogate();
  m_used = static_cast<std::size_t>(end - m_buffer.data());
}

void CFIOctetOutput::Flush() {
  if (m_used != 0) m_stream->Append(m_buffer.data(), m_used);
  m_used = 0;
}

void CFIOctetOutput::PutLength(const FILengthCode& code, unsigned bits, std::size_t length) {
  if (length == 0) {
    throw CTovikException(u"Failed to write FastInfoset. A string without octets has no encoding.");
  }
  if (length <= code.direct) return Put(bits + static_cast<unsigned>(length) - 1);
  std::size_t rest = length - code.direct - 1;
  if (rest < 256) {
    Put(bits + code.byteForm);
    return Put(static_cast<unsigned>(rest));
  }
  rest -= 256;
  if (rest > std::numeric_limits<std::uint32_t>::max()) {
    throw CTovikException(u"Failed to write FastInfoset. A string is too long.");
  }
  Put(bits + code.wordForm);
  PutBigEndian(static_cast<std::uint32_t>(rest), 4);
}

void CFIOctetOutput::PutBigEndian(std::uint32_t value, unsigned octets) {
  while (octets-- > 0) Put(value >> 8 * octets & 0xFF);
}

}  // namespace TovikXmlLib16
