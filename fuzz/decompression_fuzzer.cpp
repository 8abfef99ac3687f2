// Bytes through decompression under a small limit; and any bytes, compressed, come back.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "tovikxml/base/exception.h"
#include "tovikxml/document/compression.h"

using namespace TovikXmlLib16;

namespace {

constexpr std::uint64_t kLimit = 1 << 20;

ByteArray Copy(const std::uint8_t* data, std::size_t size) {
  ByteArray bytes = NewByteArray(size);
  if (size != 0) std::memcpy(bytes.data.get(), data, size);
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    ByteArray bytes = Copy(data, size);
    DecompressData(bytes, {kLimit, 1000});
    if (bytes.length > kLimit && bytes.length != size) std::abort();
  } catch (const CTovikException&) {
    // beyond the limit
  }
  for (const CompressionType type : {Compression_GZip, Compression_ZLib}) {
    ByteArray bytes = Copy(data, size);
    try {
      CompressData(bytes, type);
    } catch (const CTovikException&) {
      continue;  // does not shrink
    }
    DecompressData(bytes, {size, 1000});
    if (bytes.length != size || std::memcmp(bytes.data.get(), data, size) != 0) std::abort();
  }
  return 0;
}
