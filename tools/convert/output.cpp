#include "tools/convert/output.h"

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf16LineEnd("\n\0", 2);

CBinaryData EncodeBytes(const CTreeObject& object, const Options& options,
                        const CSerializationContext& context) {
  switch (options.to) {
    case Format::kJson:
      return object.ToJsonStream(options.formatted, options.encoding, EOL_LF, context,
                                 options.compression);
    case Format::kFastInfoset:
      return object.ToFastInfosetStream(fid_None, context, options.compression);
    default:
      return object.ToXmlStream(true, options.formatted, options.encoding, EOL_LF, context,
                                options.compression);
  }
}

}  // namespace

std::vector<std::string_view> Encoded::Pieces() const {
  return {mark, {reinterpret_cast<const char*>(document.GetData()), document.GetLength()}, lineEnd};
}

// Streams carry no byte order mark, which files and pipes in UTF-16 need.
Encoded Encode(const CTreeObject& object, const Options& options,
               const CSerializationContext& context) {
  Encoded encoded;
  encoded.document = EncodeBytes(object, options, context);
  if (options.compression != Compression_None) return encoded;
  const bool isUtf16 = options.to != Format::kFastInfoset && options.encoding == Encoding_UTF16;
  if (isUtf16) encoded.mark = kUtf16Mark;
  // XML text that is laid out ends its last line by itself.
  if (options.to == Format::kJson && options.formatted) {
    encoded.lineEnd = isUtf16 ? kUtf16LineEnd : "\n";
  }
  return encoded;
}

}  // namespace TovikXmlConvert
