#ifndef TOVIKXML_TOOLS_CONVERT_DECOMPRESSION_H_
#define TOVIKXML_TOOLS_CONVERT_DECOMPRESSION_H_

#include <string>

#include "tovikxml/tovikxml.h"

namespace TovikXmlConvert {

/// What gzip (RFC 1952), of one member or more, or zlib (RFC 1950) holds; bytes that begin as
/// neither are given back. Throws `CTovikException` for damaged or truncated data, for bytes behind
/// its end, and for more than the limits of the context allow.
std::string Decompressed(std::string bytes, const TovikXmlLib16::CSerializationContext& context);

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_DECOMPRESSION_H_
