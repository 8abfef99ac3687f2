#ifndef TOVIKXML_FASTINFOSET_OCTET_INPUT_H_
#define TOVIKXML_FASTINFOSET_OCTET_INPUT_H_

#include <cstddef>
#include <cstdint>

#include "tovikxml/base/wide_string.h"
#include "tovikxml/fastinfoset/codes.h"

namespace TovikXmlLib16 {

/// Throws `CTovikException` "Failed to parse FastInfoset. " with the reason behind it.
[[noreturn]] void ThrowParseFailure(WStringView reason);

/// A cursor over the octets of a document, and the decoders of lengths and indexes. Each takes the
/// octet in which the code begins, and reads on where the code goes on. All throw "Failed to parse
/// FastInfoset. Unexpected End of File." where the octets end too early. Internal.
class CFIOctetInput {
 public:
  struct Octets {
    const unsigned char* data;
    std::size_t length;
  };

  /// The octets outlive the input.
  CFIOctetInput(const unsigned char* data, std::size_t length) : m_at(data), m_end(data + length) {}

  bool IsAtEnd() const { return m_at == m_end; }
  unsigned ReadOctet() {
    if (m_at == m_end) ThrowEndOfFile();
    return *m_at++;
  }
  /// The octets of a non-empty octet string.
  Octets ReadString(const FILengthCode& code, unsigned octet);
  std::uint32_t ReadIndex(const FIIndexCode& code, unsigned octet);
  /// An index from 0 (C.26).
  std::uint32_t ReadIndexOrZero(unsigned octet);
  /// How many items follow (C.21). Throws "... Invalid Encoding of the length of a sequence."
  std::uint32_t ReadSequenceLength();
  /// Octets of a number, high first.
  std::uint32_t ReadBigEndian(unsigned octets);

 private:
  [[noreturn]] static void ThrowEndOfFile();

  const unsigned char* m_at;
  const unsigned char* m_end;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_OCTET_INPUT_H_
