#ifndef TOVIKXML_TOOLS_CONVERT_OPTIONS_H_
#define TOVIKXML_TOOLS_CONVERT_OPTIONS_H_

#include <stdexcept>
#include <string>

#include "tovikxml/tovikxml.h"

namespace TovikXmlConvert {

enum class Format { kUnknown, kXml, kJson, kFastInfoset };

/// The word for a format on the command line.
const char* NameOf(Format format);

/// What the command line asks for.
struct Options {
  enum class Action { kConvert, kHelp, kVersion };

  Action action = Action::kConvert;
  std::string input = "-";
  std::string output = "-";
  Format from = Format::kUnknown;
  Format to = Format::kUnknown;
  TovikXmlLib16::XmlEncoding encoding = TovikXmlLib16::Encoding_UTF8;
  TovikXmlLib16::CompressionType compression = TovikXmlLib16::Compression_None;
  TovikXmlLib16::JsonRoundTrip jsonMode = TovikXmlLib16::jrt_Full;
  int maxNesting = TovikXmlLib16::CSerializationContext::kDefaultMaxNesting;
  bool suggestedValues = false;
  bool typed = false;
  bool formatted = false;
  TovikXmlLib16::WString indent = u"  ";
  bool stats = false;
};

/// The command line asks for something that does not exist or does not fit together.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Throws `UsageError`.
Options ParseOptions(int argc, char** argv);

/// The text of `--help`.
const char* HelpText();

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_OPTIONS_H_
