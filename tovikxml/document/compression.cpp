#include "tovikxml/document/compression.h"

#include <zlib.h>

#include <optional>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/settings/serialization_context.h"

namespace TovikXmlLib16 {
namespace {

constexpr int kFastestLevel = 1;
constexpr int kMemoryLevel = 8;
// Window of 2^15, plus 16 for a gzip wrapper or 32 to detect the wrapper.
constexpr int kGZipWindowBits = 15 + 16;
constexpr int kAnyWindowBits = 15 + 32;
constexpr std::uint32_t kWorkSize = 0x10000;

// zlib keeps the address of its record, so this does not move.
class DeflateStream {
 public:
  explicit DeflateStream(CompressionType type) : m_initCode(Init(type)) {}
  DeflateStream(const DeflateStream&) = delete;
  DeflateStream& operator=(const DeflateStream&) = delete;
  ~DeflateStream() { deflateEnd(&m_stream); }

  // Compresses into the room of `output`, sets its length, and gives zlib's code.
  int Run(const unsigned char* data, std::uint32_t length, ByteArray& output) {
    if (m_initCode != Z_OK) return m_initCode;
    m_stream.next_in = const_cast<unsigned char*>(data);
    m_stream.avail_in = length;
    m_stream.next_out = output.data.get();
    m_stream.avail_out = output.length;
    deflate(&m_stream, Z_NO_FLUSH);
    const int code = deflate(&m_stream, Z_FINISH);
    output.length = static_cast<std::uint32_t>(m_stream.total_out);
    return code;
  }

 private:
  int Init(CompressionType type) {
    if (type == Compression_ZLib) return deflateInit(&m_stream, kFastestLevel);
    return deflateInit2(&m_stream, kFastestLevel, Z_DEFLATED, kGZipWindowBits, kMemoryLevel,
                        Z_DEFAULT_STRATEGY);
  }

  z_stream m_stream{};
  int m_initCode;
};

class InflateStream {
 public:
  InflateStream(const unsigned char* data, std::uint32_t length) {
    m_stream.next_in = const_cast<unsigned char*>(data);  // zlib does not write to it
    m_stream.avail_in = length;
    m_initCode = inflateInit2(&m_stream, kAnyWindowBits);
  }
  InflateStream(const InflateStream&) = delete;
  InflateStream& operator=(const InflateStream&) = delete;
  ~InflateStream() { inflateEnd(&m_stream); }

  // Fills `work` and sets its length. Without progress zlib's code is Z_BUF_ERROR, never Z_OK.
  int Next(ByteArray& work) {
    if (m_initCode != Z_OK) return m_initCode;
    m_stream.next_out = work.data.get();
    m_stream.avail_out = kWorkSize;
    const int code = inflate(&m_stream, Z_NO_FLUSH);
    work.length = kWorkSize - m_stream.avail_out;
    return code;
  }

 private:
  z_stream m_stream{};
  int m_initCode;
};

// What zlib asks of the first two bytes, so that nothing has to be made ready for plain documents:
// the magic number of gzip (RFC 1952, 2.3.1), or the method, window and check of zlib (RFC 1950,
// 2.2).
bool MayBeCompressed(const unsigned char* data, std::uint32_t length) {
  if (length < 2) return false;
  if (data[0] == 0x1F && data[1] == 0x8B) return true;
  return (data[0] & 0x0F) == Z_DEFLATED && data[0] >> 4 <= 7 && (data[0] << 8 | data[1]) % 31 == 0;
}

bool IsCompression(CompressionType type) {
  return type == Compression_GZip || type == Compression_ZLib;
}

ByteArray Compressed(const unsigned char* data, std::uint32_t length, CompressionType type) {
  ByteArray output = NewByteArray(length);
  const int code = DeflateStream(type).Run(data, length, output);
  if (code == Z_STREAM_END) return output;
  throw CTovikException(FormatString(u"Failed to compress data. [Error Code: %d]", code));
}

void RequireWithin(const DecompressionLimits& limits, std::uint32_t compressed,
                   std::uint64_t decompressed) {
  if (decompressed > limits.bytes) {
    throw CTovikException(
        FormatString(u"The decompressed data exceeds the limit of %llu bytes", limits.bytes));
  }
  if (decompressed > CSerializationContext::kRatioFreeSize &&
      decompressed > std::uint64_t{limits.ratio} * compressed) {
    throw CTovikException(FormatString(
        u"The decompressed data exceeds the limit of %u times the compressed data", limits.ratio));
  }
}

}  // namespace

void CompressData(ByteArray& buffer, CompressionType type) {
  if (IsCompression(type)) buffer = Compressed(buffer.data.get(), buffer.length, type);
}

void CompressBinaryData(CBinaryData& data, CompressionType type) {
  if (!IsCompression(type) || data.GetLength() == 0) return;
  const auto length = static_cast<std::uint32_t>(data.GetLength());
  data = ToBinaryData(Compressed(data.GetData(), length, type));
}

DecompressionLimits DecompressionLimitsOf(const CSerializationContext& context) {
  return {context.GetMaxDecompressedSize(), context.GetMaxDecompressionRatio()};
}

std::optional<CBinaryData> TryDecompress(const unsigned char* data, std::uint32_t length,
                                         const DecompressionLimits& limits) {
  if (!MayBeCompressed(data, length)) return std::nullopt;
  ByteArray work = NewByteArray(kWorkSize);
  InflateStream stream(data, length);
  CBinaryData output;
  while (true) {
    const int code = stream.Next(work);
    if (code != Z_OK && code != Z_STREAM_END) return std::nullopt;
    RequireWithin(limits, length, output.GetLength() + std::uint64_t{work.length});
    output.Append(work.data.get(), work.length);
    if (code == Z_STREAM_END) return output;
  }
}

void DecompressData(ByteArray& buffer, const DecompressionLimits& limits) {
  std::optional<CBinaryData> result = TryDecompress(buffer.data.get(), buffer.length, limits);
  if (result) buffer = TakeBytes(*result);
}

}  // namespace TovikXmlLib16
