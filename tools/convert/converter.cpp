#include "tools/convert/converter.h"

#include <chrono>
#include <cstdio>

#include "tools/convert/input.h"
#include "tools/convert/open_document.h"
#include "tools/convert/output.h"
#include "tools/convert/prefixes.h"
#include "tools/convert/progress.h"

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

CSerializationContext ContextFor(const Options& options) {
  CSerializationContext context;
  context.SetIndentChars(options.indent.c_str());
  context.SetMaxNesting(options.maxNesting);
  context.GetJsonContext().SetSupportRoundtrip(options.jsonMode);
  if (options.suggestedValues) context.GetFIContext().SetSuggestedValues();
  return context;
}

// Gives the format of the source. The tree of the source is gone when this returns.
Format ReadDocument(const std::string& bytes, const Options& options,
                    CSerializationContext& context, COpenDocument& target) {
  CXmlDocument source(context);
  const Format format = LoadDocument(bytes, options.from, context, source);
  if (!source.GetDocumentElement()) throw CTovikException(u"The document has no root element");
  target.FromXmlElement(source.GetDocumentElement(), context);
  Prefixes(source).ApplyTo(context);
  return format;
}

}  // namespace

void Convert(const Options& options) {
  Progress progress;
  const std::string input = ReadInput(options.input, progress);
  CSerializationContext context = ContextFor(options);
  const CSmartPtr<COpenDocument> document(new COpenDocument(options));

  progress.Step("taking the document in");
  const auto start = Clock::now();
  const Format format = ReadDocument(input, options, context, *document);
  const auto read = Clock::now();
  progress.Step(std::string("writing ") + NameOf(options.to));
  const std::string output = Encode(*document, options, context);
  const auto written = Clock::now();
  WriteOutput(options.output, output);

  progress.Clear();
  if (!options.stats) return;
  std::fprintf(stderr, "%s, %zu bytes -> %s, %zu bytes; read in %.1f ms, written in %.1f ms\n",
               NameOf(format), input.size(), NameOf(options.to), output.size(),
               Milliseconds(read - start), Milliseconds(written - read));
}

}  // namespace TovikXmlConvert
