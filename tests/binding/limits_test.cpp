#include <gtest/gtest.h>

#include <functional>

#include "tests/support/text.h"
#include "tovikxml/document/byte_array.h"
#include "tovikxml/document/compression.h"
#include "tovikxml/tovikxml.h"
#include "tovikxml/values/pattern.h"

namespace TovikXmlTest {
namespace {

using namespace TovikXmlLib16;

// What goes through at the default of a setting and is refused at a lower one.
struct Row {
  const char* name;
  std::function<void(CSerializationContext&)> lower;
  std::function<void(const CSerializationContext&)> work;
  WString message;
};

CBinaryData CompressedBlanks() {
  CBinaryData bytes;
  const std::string text = "<a>" + std::string(CSerializationContext::kRatioFreeSize, ' ') + "</a>";
  bytes.Append(reinterpret_cast<const unsigned char*>(text.data()), text.size());
  CompressBinaryData(bytes, Compression_GZip);
  return bytes;
}

void LoadBytes(const CBinaryData& bytes, const CSerializationContext& context) {
  CXmlDocument(context).LoadXmlStream(bytes.GetData(), bytes.GetLength());
}

CSmartPtr<CElement> Element(const WString& xml) {
  CSmartPtr<CElement> element(new CElement(u"r"));
  element->FromXml(xml.c_str());
  return element;
}

CBinaryData FiveNames() {
  return Element(u"<r><a/><b/><c/><d/></r>")
      ->ToFastInfosetStream(fid_None, CSerializationContext::GetDefaultContext(), Compression_None);
}

TEST(Limits, RefuseBeyondTheSetting) {
  const CBinaryData blanks = CompressedBlanks();
  const CBinaryData names = FiveNames();
  const auto loadBlanks = [&](const CSerializationContext& context) { LoadBytes(blanks, context); };
  const auto loadNames = [&](const CSerializationContext& context) { LoadBytes(names, context); };
  const auto match = [](const CSerializationContext&) {
    EXPECT_TRUE(MatchPattern("(a?){10}a{10}", u"aaaaaaaaaa"));
  };
  const WString longText(20000, u'a');
  const auto matchLong = [&](const CSerializationContext&) {
    EXPECT_TRUE(MatchPattern("(a|b)*", longText));
  };
  const Row rows[] = {
      {"bytes", [](CSerializationContext& context) { context.SetMaxDecompressedSize(1 << 24); },
       loadBlanks, u"The decompressed data exceeds the limit of 16777216 bytes"},
      {"ratio", [](CSerializationContext& context) { context.SetMaxDecompressionRatio(20); },
       loadBlanks, u"The decompressed data exceeds the limit of 20 times the compressed data"},
      {"tables", [](CSerializationContext& context) { context.SetMaxTableEntries(4); }, loadNames,
       u"Failed to parse FastInfoset. A table exceeds the limit of 4 entries."},
      {"text", [](CSerializationContext& context) { context.SetMaxExpandedText(8); }, loadNames,
       u"Failed to parse FastInfoset. The text exceeds the limit of 8 bytes."},
      {"pattern", [](CSerializationContext&) { CPrimitiveRestrictions::SetMaxPatternSteps(20); },
       match, u"Regular Expression exceeds its limits: aaaaaaaaaa Error: 'match limit exceeded'"},
      {"memory of a pattern",
       [](CSerializationContext&) { CPrimitiveRestrictions::SetMaxPatternMemory(1); }, matchLong,
       u"Regular Expression exceeds its limits: " + longText + u" Error: 'heap limit exceeded'"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    CSerializationContext context;
    row.work(context);
    row.lower(context);
    EXPECT_EQ(MessageOf<CTovikException>([&] { row.work(context); }), row.message);
    CPrimitiveRestrictions::SetMaxPatternSteps(CPrimitiveRestrictions::kDefaultMaxPatternSteps);
    CPrimitiveRestrictions::SetMaxPatternMemory(CPrimitiveRestrictions::kDefaultMaxPatternMemory);
  }
}

}  // namespace
}  // namespace TovikXmlTest
