#include "tools/convert/converter.h"

#include <chrono>
#include <cstdio>
#include <utility>

#include "tools/convert/input.h"
#include "tools/convert/output.h"
#include "tools/convert/output_file.h"
#include "tools/convert/progress.h"

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

}  // namespace

CSerializationContext ContextFor(const Options& options) {
  CSerializationContext context;
  context.SetSchemaType(st_NoNamespaces);
  context.SetIndentChars(options.indent.c_str());
  context.GetJsonContext().SetSupportRoundtrip(options.jsonMode);
  CFastInfosetContext& fastInfoset = context.GetFIContext();
  fastInfoset.SetQualifiedNames(true);
  fastInfoset.SetReadInitialVocabulary(true);
  fastInfoset.SetRequireWellFormed(true);
  if (options.suggestedValues) fastInfoset.SetSuggestedValues();
  return context;
}

Conversion ConvertBytes(std::string bytes, const Options& options,
                        const CSerializationContext& context, Progress& progress) {
  progress.Step("taking the document in");
  CXmlDocument document(context);
  const Clock::time_point start = Clock::now();
  Conversion result;
  result.from = LoadDocument(std::move(bytes), options.from, context, document);
  const Clock::time_point read = Clock::now();
  progress.Step(std::string("writing ") + NameOf(options.to));
  const CSmartPtr<CTreeObject> object(new CTreeObject(document,
                                                      result.from == Format::kFastInfoset
                                                          ? Namespaces::Source::kFastInfoset
                                                          : Namespaces::Source::kXmlText,
                                                      options));
  result.output = Encode(*object, options, context);
  // The members of a JSON object have no order among themselves.
  result.isReordered = object->HasMixedContent() && result.from != Format::kJson;
  result.readTime = Milliseconds(read - start);
  result.writeTime = Milliseconds(Clock::now() - read);
  return result;
}

void Convert(const Options& options) {
  Progress progress;
  std::string input = ReadInput(options.input, progress);
  const std::size_t inputSize = input.size();
  const Conversion result = ConvertBytes(std::move(input), options, ContextFor(options), progress);
  WriteOutput(options.output, result.output.Pieces());

  progress.Clear();
  if (result.isReordered) {
    std::fputs("tovikxml-convert: text beside elements stands behind them now\n", stderr);
  }
  if (!options.stats) return;
  std::fprintf(stderr, "%s, %zu bytes -> %s, %zu bytes; read in %.1f ms, written in %.1f ms\n",
               NameOf(result.from), inputSize, NameOf(options.to), result.output.GetSize(),
               result.readTime, result.writeTime);
}

}  // namespace TovikXmlConvert
