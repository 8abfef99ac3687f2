// Bytes of any format through the converter, as its program takes them. What it makes of a document
// it must make again of each of its own forms of it.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tools/convert/input.h"
#include "tools/convert/open_document.h"
#include "tools/convert/output.h"
#include "tools/convert/prefixes.h"

using namespace TovikXmlLib16;
using namespace TovikXmlConvert;

namespace {

const bool g_versionStated = (SetGeneratorVersion(kVersionMajor, kVersionMinor), true);

Options To(Format format) {
  Options options;
  options.to = format;
  return options;
}

std::string Converted(const std::string& bytes, const Options& options) {
  CSerializationContext context;
  context.SetMaxDecompressedSize(1 << 20);
  context.SetMaxExpandedText(1 << 22);
  context.SetIndentChars(options.indent.c_str());
  if (options.suggestedValues) context.GetFIContext().SetSuggestedValues();
  const CSmartPtr<COpenDocument> document(new COpenDocument(options));
  CXmlDocument source(context);
  LoadDocument(bytes, Format::kUnknown, context, source);
  if (!source.GetDocumentElement()) throw CTovikException(u"no root");
  document->FromXmlElement(source.GetDocumentElement(), context);
  Prefixes(source).ApplyTo(context);
  return Encode(*document, options, context);
}

// XML text that the converter makes again of itself.
std::string Settled(std::string bytes) {
  for (int turn = 0; turn < 5; ++turn) {
    const std::string next = Converted(bytes, To(Format::kXml));
    if (next == bytes) return bytes;
    bytes = next;
  }
  throw CTovikException(u"never the same twice");
}

void Require(bool isKept) {
  if (!isKept) std::abort();
}

// JSON is read by way of XML text that is laid out, which shows where text stands beside elements.
std::string WithoutSpace(const std::string& xml) {
  std::string result;
  for (const char sign : xml) {
    if (sign != ' ' && sign != '\t' && sign != '\n') result += sign;
  }
  return result;
}

// JSON may nest less deep than elements.
bool IsTooDeep(const CTovikException& e) {
  return e.GetMessage().find(u"exceeded depth limit") != WString::npos;
}

void ConvertAndBack(const std::string& xml) {
  Options octets = To(Format::kFastInfoset);
  Require(Converted(Converted(xml, octets), To(Format::kXml)) == xml);
  octets.suggestedValues = true;
  Require(Converted(Converted(xml, octets), To(Format::kXml)) == xml);
  if (xml.find("<![CDATA[") != std::string::npos) return;
  Options json = To(Format::kJson);
  for (const bool typed : {false, true}) {
    json.typed = json.formatted = typed;
    const std::string text = Converted(xml, json);
    try {
      Require(WithoutSpace(Converted(text, To(Format::kXml))) == WithoutSpace(xml));
    } catch (const CTovikException& e) {
      if (!IsTooDeep(e)) throw;
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string xml;
  try {
    xml = Settled(std::string(reinterpret_cast<const char*>(data), size));
  } catch (const std::exception&) {
    return 0;
  }
  ConvertAndBack(xml);
  return 0;
}
