#ifndef TOVIKXML_TOOLS_CONVERT_OUTPUT_FILE_H_
#define TOVIKXML_TOOLS_CONVERT_OUTPUT_FILE_H_

#include <string>
#include <string_view>
#include <vector>

namespace TovikXmlConvert {

/// Writes a file, or standard output for "-". A file appears whole or not at all: it is written
/// beside its place, under the same permissions if it takes the place of another, and renamed when
/// it is complete. Links are followed. Devices and pipes are written as they are. Throws
/// `FileError`.
void WriteOutput(const std::string& name, const std::vector<std::string_view>& pieces);

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_OUTPUT_FILE_H_
