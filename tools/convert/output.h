#ifndef TOVIKXML_TOOLS_CONVERT_OUTPUT_H_
#define TOVIKXML_TOOLS_CONVERT_OUTPUT_H_

#include <string>
#include <string_view>

#include "tools/convert/open_document.h"
#include "tools/convert/options.h"
#include "tovikxml/tovikxml.h"

namespace TovikXmlConvert {

/// The document as the options ask for it. Throws `CTovikException`.
std::string Encode(const COpenDocument& document, const Options& options,
                   const TovikXmlLib16::CSerializationContext& context);

/// Writes a file, or standard output for "-". Throws `FileError`.
void WriteOutput(const std::string& name, std::string_view bytes);

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_OUTPUT_H_
