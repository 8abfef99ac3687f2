#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "tests/json/json_checker.h"
#include "tests/support/data_rows.h"
#include "tests/support/temp_dir.h"
#include "tests/support/text.h"
#include "tovikxml/document/byte_array.h"
#include "tovikxml/document/compression.h"
#include "tovikxml/json/reader_to_xml_handler.h"
#include "tovikxml/json/transcoder.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

// The transcoder gives what the reader gives, or nothing.
std::string ConvertOnBothRoads(const WString& json, const CSerializationContext& context) {
  const auto utf8 = EncodeUtf8(json);
  const auto fast = utf8 ? CJsonTranscoder(context).Transcode(*utf8) : std::nullopt;
  try {
    const std::string xml = FromBytes(ConvertJsonToXml(json, context));
    EXPECT_EQ(fast.value_or(xml), xml) << *utf8;
    return xml;
  } catch (const CTovikException&) {
    EXPECT_FALSE(fast.has_value()) << *utf8;
    throw;
  }
}

// The XML text without its declaration.
WString Convert(const WString& json, JsonRoundTrip mode, const wchar* root) {
  CSerializationContext context;
  context.GetJsonContext().SetSupportRoundtrip(mode);
  context.GetJsonContext().SetRootElementName(root);
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  const std::string xml = ConvertOnBothRoads(json, context);
  EXPECT_TRUE(xml.starts_with(declaration)) << xml;
  return Wide(xml.substr(declaration.size()));
}

WString Repeated(const WString& text, int times) {
  WString all;
  while (times-- > 0) all += text;
  return all;
}

std::string LoadStream(const CBinaryData& data, const CSerializationContext& context) {
  return FromBytes(CXmlDocument(context).LoadJsonStream(data.GetData(), data.GetLength()));
}

}  // namespace

TEST(JsonConversion, GivesTheXmlThatTheTextStandsForOrRefuses) {
  ForEachRow("json/conversion.txt", "conversions",
             [](JsonRoundTrip mode, const WString& json, const WString& root, const WString& xml) {
               EXPECT_EQ(Outcome([&] { return Convert(json, mode, root.c_str()); }), xml);
             });
}

// Texts put together from what the grammar has, some of it in the wrong place.
TEST(JsonConversion, GivesTheSameOnBothRoads) {
  const WString pieces[] = {u"{",
                            u"}",
                            u"[",
                            u"]",
                            u",",
                            u":",
                            u"\"a\":",
                            u"\"b\":",
                            u"\"@x\":",
                            u"\"@\":",
                            u"\"#text\":",
                            u"\"n<\":",
                            u"\"\"",
                            u"\"v\"",
                            u"1",
                            u"-0.5e+3",
                            u"true",
                            u"null",
                            u" ",
                            u"\n",
                            u"\"&<>\\\"\\n\\r\\t\\/\"",
                            u"\"\\u0041\"",
                            u"\"\\ud83d\\ude00\"",
                            u"\"\\r\"",
                            u"\"<![CDATA[\"",
                            u"\"\u00e9\"",
                            u"{\"a\":1}",
                            u"[1,{\"b\":2}]",
                            u"{\"@x\":\"y\",\"#text\":\"z\"}"};
  std::mt19937 random(11);
  int taken = 0;
  for (int round = 0; round < 30000; ++round) {
    CSerializationContext context;
    context.GetJsonContext().SetSupportRoundtrip(static_cast<JsonRoundTrip>(round % 3));
    if (round % 7 == 0) context.GetJsonContext().SetRootElementName(u"r");
    // A frame that is right, in which a member is right more often than not.
    WString json = u"{\"r\":{";
    for (std::size_t i = 0, count = random() % 4; i < count; ++i) {
      if (i > 0) json += u',';
      json += pieces[6 + random() % 5];
      json += pieces[12 + random() % (std::size(pieces) - 12)];
      if (random() % 8 == 0) json += pieces[random() % std::size(pieces)];
    }
    json += u"}}";
    try {
      ConvertOnBothRoads(json, context);
      taken += CJsonTranscoder(context).Transcode(*EncodeUtf8(json)).has_value() ? 1 : 0;
    } catch (const CTovikException&) {
    }
  }
  EXPECT_GT(taken, 5000);
  const WString deepest = Repeated(u"{\"a\":", 100) + u"1" + Repeated(u"}", 100);
  for (const WString& json :
       {deepest, u"{\"a\":" + deepest + u"}", deepest.substr(6, 6 * 99 + 100)}) {
    try {
      ConvertOnBothRoads(json, CSerializationContext());
    } catch (const CTovikException&) {
    }
  }
}

TEST(JsonConversion, IsBoundedByItsInput) {
  // A long name is written twice for each item.
  WString repeated = u"{\"" + WString(20000, u'n') + u"\": [1";
  for (int i = 0; i < 20000; ++i) repeated += u",1";
  CSerializationContext context;
  context.SetMaxDecompressedSize(1000);
  const WString outcome = Outcome([&] { ConvertJsonToXml(repeated + u"]}", context); });
  EXPECT_NE(outcome.find(u"exceeds the limit of 480072 units"), WString::npos);
}

TEST(JsonConversion, LoadsBytesFilesAndText) {
  const CSerializationContext context;
  const std::string json = "{\"a\": \"" + std::string(200, 'x') + "\u00e9\"}";
  const std::string xml =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>" + std::string(200, 'x') + "\u00e9</a>\n";
  const TempDir directory;
  for (const bool marked : {false, true}) {
    for (const CompressionType compression :
         {Compression_None, Compression_GZip, Compression_ZLib}) {
      CBinaryData bytes = ToBytes((marked ? "\xEF\xBB\xBF" : "") + json);
      CompressBinaryData(bytes, compression);
      EXPECT_EQ(LoadStream(bytes, context), xml);
      MakeFile(directory.Path() / "j", FromBytes(bytes));
      EXPECT_EQ(FromBytes(CXmlDocument(context).LoadJsonFile((directory / u"j").c_str())), xml);
    }
  }
  for (const std::string mark : {"", "\uFEFF"}) {
    EXPECT_EQ(FromBytes(CXmlDocument(context).LoadJson((mark + json).c_str())), xml);
    EXPECT_EQ(FromBytes(CXmlDocument(context).LoadJson(Wide(mark + json).c_str())), xml);
  }
  MakeFile(directory.Path() / "empty", "");
  EXPECT_EQ(FromBytes(CXmlDocument(context).LoadJsonFile((directory / u"empty").c_str())),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

TEST(JsonConversion, RefusesNothingAndWhatIsNotUtf8) {
  CSerializationContext context;
  EXPECT_EQ(Outcome([&] { LoadStream(CBinaryData(), context); }),
            u"!Exception JSON Stream is empty!");
  for (const char* text : {"", static_cast<const char*>(nullptr)}) {
    EXPECT_EQ(Outcome([&] { CXmlDocument(context).LoadJson(text); }),
              u"!Exception JSON String is empty!");
  }
  EXPECT_EQ(Outcome([&] { CXmlDocument(context).LoadJson(u""); }),
            u"!Exception JSON String is empty!");
  ForEachRow("json/conversion.txt", "not UTF-8", [&](const std::string& hex, const WString& place) {
    const std::string json = FromHex(hex);
    const WString refusal =
        u"!Validation The JSON text is not UTF-8 at line " + place + u".\nPath: $";
    EXPECT_EQ(Outcome([&] { LoadStream(ToBytes(json), context); }), refusal);
    EXPECT_EQ(Outcome([&] { CXmlDocument(context).LoadJson(json.c_str()); }), refusal);
  });
  CBinaryData bomb = ToBytes(std::string(5000, ' '));
  CompressBinaryData(bomb, Compression_GZip);
  context.SetMaxDecompressedSize(1000);
  EXPECT_EQ(Outcome([&] { LoadStream(bomb, context); }),
            u"!Exception The decompressed data exceeds the limit of 1000 bytes");
}
