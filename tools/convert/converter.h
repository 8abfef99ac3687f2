#ifndef TOVIKXML_TOOLS_CONVERT_CONVERTER_H_
#define TOVIKXML_TOOLS_CONVERT_CONVERTER_H_

#include "tools/convert/options.h"

namespace TovikXmlConvert {

/// Reads, converts and writes one document. Nothing is written before all of it is converted.
/// Throws `FileError` and `CTovikException`.
void Convert(const Options& options);

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_CONVERTER_H_
