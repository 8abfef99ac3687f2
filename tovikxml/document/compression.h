#ifndef TOVIKXML_DOCUMENT_COMPRESSION_H_
#define TOVIKXML_DOCUMENT_COMPRESSION_H_

#include <cstdint>
#include <optional>

#include "tovikxml/document/byte_array.h"
#include "tovikxml/document/encoding.h"
#include "tovikxml/values/binary_data.h"

/// Compressed documents: gzip (RFC 1952) and zlib (RFC 1950) around deflate (RFC 1951). Internal.
namespace TovikXmlLib16 {

class CSerializationContext;

/// Replaces the bytes by their compressed form, made for speed (level 1). `Compression_None` and
/// unknown types change nothing. The result must not be longer than the input: data that does not
/// shrink, such as a few bytes, raises `CTovikException` "Failed to compress data. [Error Code:
/// %d]" with zlib's code and stays as it was.
void CompressData(ByteArray& buffer, CompressionType type);
/// The same; empty data stays empty.
void CompressBinaryData(CBinaryData& data, CompressionType type);

/// What decompressed data may not exceed.
struct DecompressionLimits {
  std::uint64_t bytes;
  /// In multiples of the compressed data. Counts for what exceeds
  /// `CSerializationContext::kRatioFreeSize`.
  std::uint32_t ratio;
};

DecompressionLimits DecompressionLimitsOf(const CSerializationContext& context);

/// The decompressed form of bytes that begin with a complete gzip or zlib stream, whose wrapper
/// tells which; bytes behind it are dropped. Nothing for all else, plain text as much as a cut or
/// damaged stream.
///
/// Raises `CTovikException` "The decompressed data exceeds the limit of %llu bytes", or "... of %u
/// times the compressed data", as soon as there is more than the limit, at a cost in memory in
/// proportion to the limit.
std::optional<CBinaryData> TryDecompress(const unsigned char* data, std::uint32_t length,
                                         const DecompressionLimits& limits);

/// Replaces the bytes by what `TryDecompress` gives, if it gives something.
void DecompressData(ByteArray& buffer, const DecompressionLimits& limits);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_COMPRESSION_H_
