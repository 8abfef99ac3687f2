#include <gtest/gtest.h>

#include "tests/support/temp_dir.h"
#include "tests/support/text.h"
#include "tovikxml/document/byte_array.h"
#include "tovikxml/document/compression.h"
#include "tovikxml/json/reader_to_xml_handler.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

std::string Utf8Of(const CBinaryData& bytes) {
  return {reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength()};
}

// The XML text without its declaration.
std::string Convert(const WString& json, JsonRoundTrip mode = jrt_Full, const wchar* root = u"") {
  CSerializationContext context;
  context.GetJsonContext().SetSupportRoundtrip(mode);
  context.GetJsonContext().SetRootElementName(root);
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  const std::string xml = Utf8Of(ConvertJsonToXml(json, context));
  EXPECT_TRUE(xml.starts_with(declaration)) << xml;
  return xml.substr(declaration.size());
}

// As an array of bytes that the load entries take.
CBinaryData Bytes(std::string_view text) {
  CBinaryData data;
  data.SetBuffer(reinterpret_cast<const unsigned char*>(text.data()), text.size());
  return data;
}

std::string LoadStream(const CBinaryData& data, const CSerializationContext& context) {
  return Utf8Of(CXmlDocument(context).LoadJsonStream(data.GetData(), data.GetLength()));
}

}  // namespace

TEST(JsonConversion, GivesTheXmlThatTheTextStandsFor) {
  const struct {
    WString json;
    std::string xml;
    JsonRoundTrip mode = jrt_Full;
    const wchar* root = u"";
  } rows[] = {
      {u"{\"order\": {\"@xmlns\": \"urn:d\", \"@id\": 7, \"item\": [{\"@sku\": \"a\", \"qty\": 1}, "
       u"{\"qty\": 2}], \"tag\": [\"x\", \"y\"], \"note\": {\"@lang\": \"en\", \"#text\": "
       u"\"hi\"}}}",
       "<order xmlns=\"urn:d\" id=\"7\">\n\t<item sku=\"a\">\n\t\t<qty>1</qty>\n\t</item>\n"
       "\t<item>\n\t\t<qty>2</qty>\n\t</item>\n\t<tag>x</tag>\n\t<tag>y</tag>\n"
       "\t<note lang=\"en\">hi</note>\n</order>\n"},
      {u"", ""},
      {u"{\"a\": {}}", "<a/>\n"},
      {u"{\"a\": null}", "<a/>\n"},
      {u"{\"a\": {\"@x\": 1}}", "<a x=\"1\"/>\n", jrt_Marked},
      {u"{\"a\": {\"@x\": 1, \"#text\": \"v\"}}", "<a x=\"1\">v</a>\n"},
      {u"{\"a\": {\"@x\": true, \"#text\": null}}", "<a x=\"true\"/>\n"},
      {u"{\"a\": {\"@x\": null}}", "<a/>\n"},
      // "#text" closes its element, so that a member behind it is a sibling.
      {u"{\"a\": {\"#text\": \"v\", \"b\": 1}}", "<a>v</a>\n<b>1</b>\n"},
      {u"{\"r\": {\"b\": 1, \"#text\": \"v\"}}", "<r>\n\t<b>1</b>\nv</r>\n"},
      // An empty array starts its element; the end of an object ends it.
      {u"{\"a\": []}", "<a/>\n"},
      {u"{\"r\": {\"a\": [], \"b\": 1}}", "<r>\n\t<a>\n\t\t<b>1</b>\n\t</a>\n</r>\n"},
      {u"{\"a\": [[1]]}", "<a>1</a>\n"},
      {u"{\"a\": [null, 1, {}, false]}", "<a/>\n<a>1</a>\n<a/>\n<a>false</a>\n"},
      {u"{\"a\": [{\"b\": [1, 2]}, {\"b\": 3}]}",
       "<a>\n\t<b>1</b>\n\t<b>2</b>\n</a>\n<a>\n\t<b>3</b>\n</a>\n"},
      {u"{\"a\": 1, \"b\": 2}", "<a>1</a>\n<b>2</b>\n"},
      {u"{\"a\": 1, \"b\": 2}", "<r>\n\t<a>1</a>\n\t<b>2</b>\n</r>\n", jrt_Full, u"r"},
      {u"[1, 2]", "<r>1</r>\n<r>2</r>\n", jrt_Full, u"r"},
      {u"{\"r\": {\"@a\": 1e3, \"#text\": \"v\"}}",
       "<r>\n\t<@a>1e3</@a>\n\t<#text>v</#text>\n</r>\n", jrt_Bare},
      {u"{\"a\": \"<![CDATA[x<y]]>\"}", "<a><![CDATA[x<y]]></a>\n"},
      {u"{\"a\": \"<![CDATA[x]]><evil/>\"}", "<a>&lt;![CDATA[x]]&gt;&lt;evil/&gt;</a>\n"},
      {u"{\"a\": \"<![CDATA[x\"}", "<a>&lt;![CDATA[x</a>\n"},
      {u"{\"a\": \"<![CDATA[x]]>]]>\"}", "<a>&lt;![CDATA[x]]&gt;]]&gt;</a>\n"},
      {u"{\"p:a\": \"<\u00e9\U0001F600&\"}", "<p:a>&lt;\u00e9\U0001F600&amp;</p:a>\n"},
      {u"{\"r\": {\"a\": 1, \"a\": 2}}", "<r>\n\t<a>1</a>\n\t<a>2</a>\n</r>\n"},
  };
  for (const auto& row : rows) EXPECT_EQ(Convert(row.json, row.mode, row.root), row.xml);
}

TEST(JsonConversion, ReportsWhatHasNoXmlForm) {
  const struct {
    WString json, message;
  } state[] = {
      {u"1", u"Failed to convert value '1' to Element string value in XML."},
      {u"{\"#text\": \"t\"}", u"Failed to convert value 't' to Element string value in XML."},
      {u"{\"@a\": true}", u"Failed to convert value 'true' to Attribute string value in XML."},
      {u"{\"r\": {\"b\": 1, \"@a\": 2}}",
       u"Failed to convert value '2' to Attribute string value in XML."},
  };
  for (const auto& row : state) {
    EXPECT_EQ(MessageOf<CTovikInvalidStateException>([&] { Convert(row.json); }), row.message);
  }
  const struct {
    WString json, message;
  } named[] = {
      {u"{\"\": 1}", u"JSON item has an empty Name.\nPath: $."},
      {u"[1]", u"JSON Array has no Name.\nPath: $"},
      {u"{\"a\": [[1], [2]]}", u"JSON Array has no Name.\nPath: $"},
  };
  for (const auto& row : named) {
    EXPECT_EQ(MessageOf<CTovikValidationException>([&] { Convert(row.json); }), row.message);
  }
  EXPECT_EQ(MessageOf<CTovikException>([] { Convert(u"{\"r\": {\"a\": [], \"b\": []}}"); }),
            u"An Element has not been closed.");
  MessageOf<CTovikInvalidValueException>([] { Convert(u"{\"a\": \"\\uD800\"}"); });
}

TEST(JsonConversion, IsBoundedByItsInput) {
  // Empty arrays leave their elements open; each would be indented by one more than the last.
  WString nested = u"{\"r\": {";
  for (int i = 0; i < 20000; ++i) nested += u"\"a\": [],";
  nested += u"\"b\": 1}}";
  EXPECT_EQ(MessageOf<CTovikException>([&] { Convert(nested); }),
            u"An Element has not been closed.");
  // A long name is written twice for each item.
  WString repeated = u"{\"" + WString(20000, u'n') + u"\": [1";
  for (int i = 0; i < 20000; ++i) repeated += u",1";
  CSerializationContext context;
  context.SetMaxDecompressedSize(1000);
  try {
    ConvertJsonToXml(repeated + u"]}", context);
    ADD_FAILURE() << "no exception";
  } catch (const CTovikException& e) {
    EXPECT_NE(e.GetFullMessage().find(u"exceeds the limit of 480072 units"), WString::npos)
        << e.what();
  }
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
      CBinaryData bytes = Bytes((marked ? "\xEF\xBB\xBF" : "") + json);
      CompressBinaryData(bytes, compression);
      EXPECT_EQ(LoadStream(bytes, context), xml);
      MakeFile(directory.Path() / "j", Utf8Of(bytes));
      EXPECT_EQ(Utf8Of(CXmlDocument(context).LoadJsonFile((directory / u"j").c_str())), xml);
    }
  }
  EXPECT_EQ(Utf8Of(CXmlDocument(context).LoadJson(json.c_str())), xml);
  EXPECT_EQ(Utf8Of(CXmlDocument(context).LoadJson(Wide(json).c_str())), xml);
  MakeFile(directory.Path() / "empty", "");
  EXPECT_EQ(Utf8Of(CXmlDocument(context).LoadJsonFile((directory / u"empty").c_str())),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

TEST(JsonConversion, RefusesNothingAndWhatIsNotUtf8) {
  CSerializationContext context;
  EXPECT_EQ(MessageOf<CTovikException>([&] { LoadStream(CBinaryData(), context); }),
            u"JSON Stream is empty!");
  for (const char* text : {"", static_cast<const char*>(nullptr)}) {
    EXPECT_EQ(MessageOf<CTovikException>([&] { CXmlDocument(context).LoadJson(text); }),
              u"JSON String is empty!");
  }
  EXPECT_EQ(MessageOf<CTovikException>([&] { CXmlDocument(context).LoadJson(u""); }),
            u"JSON String is empty!");
  const struct {
    std::string json;
    WString place;
  } rows[] = {{"{\"\u00e9\U0001F600\xff\"}", u"1, position 6"},
              {"{\n\"a\":\"\xed\xa0\x80\"}", u"2, position 6"},
              {"\"\xc3", u"1, position 2"},
              {"\x80", u"1, position 1"}};
  for (const auto& row : rows) {
    const WString message = u"The JSON text is not UTF-8 at line " + row.place + u".\nPath: $";
    EXPECT_EQ(MessageOf<CTovikValidationException>([&] { LoadStream(Bytes(row.json), context); }),
              message);
    EXPECT_EQ(MessageOf<CTovikValidationException>(
                  [&] { CXmlDocument(context).LoadJson(row.json.c_str()); }),
              message);
  }
  CBinaryData bomb = Bytes(std::string(5000, ' '));
  CompressBinaryData(bomb, Compression_GZip);
  context.SetMaxDecompressedSize(1000);
  EXPECT_EQ(MessageOf<CTovikException>([&] { LoadStream(bomb, context); }),
            u"The decompressed data exceeds the limit of 1000 bytes");
}
