#include "tools/convert/output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "tools/convert/input.h"

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

[[noreturn]] void Refuse(const std::string& name) {
  throw FileError("cannot write " + name + ": " + std::strerror(errno));
}

CBinaryData EncodeBytes(const COpenDocument& document, const Options& options,
                        const CSerializationContext& context) {
  switch (options.to) {
    case Format::kJson:
      return document.ToJsonStream(options.formatted, options.encoding, EOL_LF, context,
                                   options.compression);
    case Format::kFastInfoset:
      return document.ToFastInfosetStream(fid_None, context, options.compression);
    default:
      return document.ToXmlStream(true, options.formatted, options.encoding, EOL_LF, context,
                                  options.compression);
  }
}

}  // namespace

// Streams carry no byte order mark, which files and pipes in UTF-16 need.
std::string Encode(const COpenDocument& document, const Options& options,
                   const CSerializationContext& context) {
  const CBinaryData data = EncodeBytes(document, options, context);
  const bool needsMark = options.to != Format::kFastInfoset && options.encoding == Encoding_UTF16 &&
                         options.compression == Compression_None;
  std::string bytes(needsMark ? "\xFF\xFE" : "");
  if (data.GetData()) {
    bytes.append(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
  }
  // XML text that is laid out ends its last line by itself.
  const bool needsLineEnd =
      options.to == Format::kJson && options.formatted && options.compression == Compression_None;
  if (needsLineEnd) {
    bytes.append("\n\0", options.encoding == Encoding_UTF16 ? 2 : 1);
  }
  return bytes;
}

void WriteOutput(const std::string& name, std::string_view bytes) {
  std::FILE* const file = name == "-" ? stdout : std::fopen(name.c_str(), "wb");
  if (!file) Refuse(name);
  const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  // What is still in the buffer may fail as well.
  const bool isClosed = (file == stdout ? std::fflush(file) : std::fclose(file)) == 0;
  if (!isWritten || !isClosed) Refuse(name);
}

}  // namespace TovikXmlConvert
