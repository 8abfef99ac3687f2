#include "tovikxml/document/byte_array.h"

#include <limits>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"

namespace TovikXmlLib16 {

ByteArray NewByteArray(std::uint64_t length) {
  if (length > std::numeric_limits<std::uint32_t>::max()) {
    throw CTovikException(FormatString(u"Binary data is too long [%llu]", length));
  }
  const auto size = static_cast<std::uint32_t>(length);
  return {std::unique_ptr<unsigned char[]>(new unsigned char[size]), size};
}

CBinaryData ToBinaryData(ByteArray bytes) {
  CBinaryData data(bytes.data.get(), bytes.length, true);
  if (bytes.length != 0) static_cast<void>(bytes.data.release());
  return data;
}

ByteArray TakeBytes(CBinaryData& data) {
  const auto length = static_cast<std::uint32_t>(data.GetLength());
  return {std::unique_ptr<unsigned char[]>(data.ReleaseData()), length};
}

}  // namespace TovikXmlLib16
