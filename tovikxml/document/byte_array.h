#ifndef TOVIKXML_DOCUMENT_BYTE_ARRAY_H_
#define TOVIKXML_DOCUMENT_BYTE_ARRAY_H_

#include <cstddef>
#include <cstdint>
#include <memory>

#include "tovikxml/values/binary_data.h"

namespace TovikXmlLib16 {

/// An array of bytes with one owner, for bytes on their way to or from a `CBinaryData`, which has
/// no way to be filled in place. Internal.
struct ByteArray {
  std::unique_ptr<unsigned char[]> data;
  std::uint32_t length = 0;
};

/// An array with room for `length` bytes, not set to anything. Raises `CTovikException` "Binary
/// data is too long [%llu]" for a length beyond 32 bits.
ByteArray NewByteArray(std::uint64_t length);

/// Hands the array over, without a copy. No bytes give a value without a buffer.
CBinaryData ToBinaryData(ByteArray bytes);

/// Takes the bytes out, or a copy where they are shared, and leaves a value without a buffer.
ByteArray TakeBytes(CBinaryData& data);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_BYTE_ARRAY_H_
