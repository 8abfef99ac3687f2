// Converts documents between XML text, Fast Infoset and JSON, as open content: no class describes
// them.

#include <cstdio>
#include <exception>

#include "tools/convert/converter.h"
#include "tools/convert/input.h"
#include "tools/convert/options.h"
#include "tools/convert/output_file.h"

namespace {

constexpr int kRefused = 1;
constexpr int kWrongUsage = 2;

int Run(int argc, char** argv) {
  using namespace TovikXmlConvert;
  const Options options = ParseOptions(argc, argv);
  switch (options.action) {
    case Options::Action::kHelp:
      WriteOutput("-", {HelpText()});
      break;
    case Options::Action::kVersion:
      WriteOutput("-", {"tovikxml-convert " TOVIKXML_CONVERT_VERSION "\n"});
      break;
    case Options::Action::kConvert:
      Convert(options);
      break;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  TovikXmlLib16::SetGeneratorVersion(TovikXmlLib16::kVersionMajor, TovikXmlLib16::kVersionMinor);
  try {
    return Run(argc, argv);
  } catch (const TovikXmlConvert::UsageError& e) {
    std::fprintf(stderr, "tovikxml-convert: %s\n", e.what());
    return kWrongUsage;
  } catch (const std::exception& e) {
    std::fprintf(stderr, "tovikxml-convert: %s\n", e.what());
    return kRefused;
  }
}
