// Bytes of any format through the converter, as its program takes them. What it makes of a document
// it must read again, and make again of each of its own forms of it.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tools/convert/converter.h"

using namespace TovikXmlLib16;
using namespace TovikXmlConvert;

namespace {

const bool g_versionStated = (SetGeneratorVersion(kVersionMajor, kVersionMinor), true);

Options To(Format format) {
  Options options;
  options.to = format;
  return options;
}

std::string Converted(const std::string& bytes, const Options& options,
                      const CSerializationContext& context) {
  Progress progress;
  std::string output;
  const Conversion conversion = ConvertBytes(bytes, options, context, progress);
  for (const std::string_view piece : conversion.output.Pieces()) output += piece;
  return output;
}

std::string Converted(const std::string& bytes, const Options& options) {
  return Converted(bytes, options, ContextFor(options));
}

// The XML text of any input, which may be refused.
std::string Taken(const std::string& bytes) {
  CSerializationContext context = ContextFor(To(Format::kXml));
  context.SetMaxDecompressedSize(1 << 20);
  context.SetMaxExpandedText(1 << 22);
  return Converted(bytes, To(Format::kXml), context);
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

// By a parser that knows namespaces; it uses the bar to divide them from names.
void RequireNamespaces(const std::string& xml) {
  if (xml.find('|') != std::string::npos) return;
  CXmlDocument().LoadXmlStream(reinterpret_cast<const unsigned char*>(xml.data()), xml.size());
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
  // In JSON a text that is spelled like a CDATA section is one.
  if (xml.find("&lt;![CDATA[") != std::string::npos) return;
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
    xml = Taken(std::string(reinterpret_cast<const char*>(data), size));
  } catch (const std::exception&) {
    return 0;
  }
  // From here on nothing may be refused. A tab in an attribute becomes a blank when it is read.
  xml = Converted(xml, To(Format::kXml));
  Require(Converted(xml, To(Format::kXml)) == xml);
  RequireNamespaces(xml);
  ConvertAndBack(xml);
  return 0;
}
