#ifndef TOVIKXML_FASTINFOSET_OCTET_OUTPUT_H_
#define TOVIKXML_FASTINFOSET_OCTET_OUTPUT_H_

#include <array>
#include <cstddef>
#include <cstdint>

#include "tovikxml/base/wide_string.h"
#include "tovikxml/fastinfoset/codes.h"

namespace TovikXmlLib16 {

class CBinaryStream;

/// The octets of a document on their way to a stream, and the encoders of lengths, indexes and
/// strings. `bits` are the high bits of the octet in which a code begins. Internal.
class CFIOctetOutput {
 public:
  /// The stream outlives the output, which hands it what it holds in `Flush`.
  explicit CFIOctetOutput(CBinaryStream* stream) : m_stream(stream) {}

  void Put(unsigned octet) {
    if (m_used == m_buffer.size()) Flush();
    m_buffer[m_used++] = static_cast<unsigned char>(octet);
  }
  void PutOctets(const void* data, std::size_t length);
  void PutIndex(const FIIndexCode& code, unsigned bits, std::uint32_t index);
  /// The length and the octets. Throws `CTovikException` "Failed to write FastInfoset. A string
  /// without octets has no encoding." if there are none.
  void PutString(const FILengthCode& code, unsigned bits, const void* data, std::size_t length);
  /// The same for a text in UTF-8. One with an unpaired surrogate throws
  /// `CTovikInvalidValueException`.
  void PutText(const FILengthCode& code, unsigned bits, WStringView text);
  void Flush();

 private:
  void PutLength(const FILengthCode& code, unsigned bits, std::size_t length);
  void PutBigEndian(std::uint32_t value, unsigned octets);

  CBinaryStream* m_stream;
  std::size_t m_used = 0;
  std::array<unsigned char, 4096> m_buffer;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_OCTET_OUTPUT_H_
