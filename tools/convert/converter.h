#ifndef TOVIKXML_TOOLS_CONVERT_CONVERTER_H_
#define TOVIKXML_TOOLS_CONVERT_CONVERTER_H_

#include <string>

#include "tools/convert/options.h"
#include "tools/convert/output.h"
#include "tools/convert/progress.h"
#include "tovikxml/tovikxml.h"

namespace TovikXmlConvert {

struct Conversion {
  Encoded output;
  Format from = Format::kUnknown;
  bool isReordered = false;  ///< text that stands beside elements was put behind them
  double readTime = 0;       ///< in milliseconds, as the next
  double writeTime = 0;
};

/// The settings of the library for a conversion: documents are kept as exactly as it can.
TovikXmlLib16::CSerializationContext ContextFor(const Options& options);

/// Converts a document in memory. Throws `CTovikException`.
Conversion ConvertBytes(std::string bytes, const Options& options,
                        const TovikXmlLib16::CSerializationContext& context, Progress& progress);

/// Reads, converts and writes one document. Nothing is written before all of it is converted.
/// Throws `FileError` and `CTovikException`.
void Convert(const Options& options);

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_CONVERTER_H_
