#ifndef TOVIKXML_TOOLS_CONVERT_INPUT_H_
#define TOVIKXML_TOOLS_CONVERT_INPUT_H_

#include <string>

#include "tools/convert/options.h"
#include "tools/convert/progress.h"
#include "tovikxml/tovikxml.h"

namespace TovikXmlConvert {

/// A file could not be read or written.
class FileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The whole of a file, or of standard input for "-". Throws `FileError`.
std::string ReadInput(const std::string& name, Progress& progress);

/// Loads `bytes` as JSON, or as whichever of XML text and Fast Infoset they are, and gives their
/// format. If none is told JSON is recognised, too. Throws `CTovikException`, also for a document
/// that refers to an entity which is not read.
Format LoadDocument(std::string bytes, Format told,
                    const TovikXmlLib16::CSerializationContext& context,
                    TovikXmlLib16::CXmlDocument& document);

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_INPUT_H_
