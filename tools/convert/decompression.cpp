#include "tools/convert/decompression.h"

#include <zlib.h>

#include <cstdint>
#include <new>
#include <string_view>
#include <utility>

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

constexpr std::size_t kBlock = 1u << 16;
// A window of 2^15, and 32 to detect the wrapper.
constexpr int kAnyWindowBits = 15 + 32;

bool IsGZip(std::string_view bytes) {
  return bytes.starts_with("\x1F\x8B");
}

bool IsCompressed(std::string_view bytes) {
  if (bytes.size() < 2 || IsGZip(bytes)) return bytes.size() >= 2;
  const auto first = static_cast<unsigned char>(bytes[0]);
  const auto second = static_cast<unsigned char>(bytes[1]);
  return (first & 0x0F) == 8 && (first >> 4) <= 7 && (first * 256 + second) % 31 == 0;
}

// zlib keeps the address of its record, so this does not move.
class Inflation {
 public:
  explicit Inflation(std::string_view input) {
    m_stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(input.data()));
    m_stream.avail_in = static_cast<uInt>(input.size());
    if (inflateInit2(&m_stream, kAnyWindowBits) != Z_OK) throw std::bad_alloc();
  }
  Inflation(const Inflation&) = delete;
  Inflation& operator=(const Inflation&) = delete;
  ~Inflation() { inflateEnd(&m_stream); }

  // Appends a block and gives zlib's code.
  int AppendBlock(std::string& output) {
    const std::size_t length = output.size();
    output.resize(length + kBlock);
    m_stream.next_out = reinterpret_cast<Bytef*>(output.data() + length);
    m_stream.avail_out = kBlock;
    const int code = inflate(&m_stream, Z_NO_FLUSH);
    output.resize(output.size() - m_stream.avail_out);
    return code;
  }
  std::string_view Rest() const {
    return {reinterpret_cast<const char*>(m_stream.next_in), m_stream.avail_in};
  }
  void BeginMember() { inflateReset(&m_stream); }

 private:
  z_stream m_stream{};
};

void RequireWithinLimits(std::uint64_t size, std::size_t compressed,
                         const CSerializationContext& context) {
  const bool isTooMuch = size > CSerializationContext::kRatioFreeSize &&
                         size / context.GetMaxDecompressionRatio() > compressed;
  if (size <= context.GetMaxDecompressedSize() && !isTooMuch) return;
  throw CTovikException(FormatString(
      u"The decompressed data exceeds the limit of %llu bytes or %u times the compressed data",
      static_cast<unsigned long long>(context.GetMaxDecompressedSize()),
      context.GetMaxDecompressionRatio()));
}

}  // namespace

std::string Decompressed(std::string bytes, const CSerializationContext& context) {
  if (!IsCompressed(bytes)) return bytes;
  const bool isGZip = IsGZip(bytes);
  Inflation inflation(bytes);
  std::string output;
  for (;;) {
    const int code = inflation.AppendBlock(output);
    RequireWithinLimits(output.size(), bytes.size(), context);
    if (code == Z_OK) continue;
    if (code != Z_STREAM_END) {
      throw CTovikException(u"The compressed data is damaged or ends too early");
    }
    if (inflation.Rest().empty()) return output;
    if (!isGZip || !IsGZip(inflation.Rest())) {
      throw CTovikException(u"Other bytes stand behind the end of the compressed data");
    }
    inflation.BeginMember();
  }
}

}  // namespace TovikXmlConvert
