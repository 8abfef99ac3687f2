#include "tovikxml/json/text_writer.h"

#include <gtest/gtest.h>

#include "tests/json/json_checker.h"
#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tests/support/writer_script.h"
#include "tovikxml/document/text_stream.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

struct Layout {
  JsonRoundTrip mode = jrt_Full;
  bool formatted = false;
  EOLType eol = EOL_LF;
  WString indent = u"";
};

WString Write(const WString& script, const Layout& layout) {
  CTextStream stream;
  CJsonTextWriter writer(&stream);
  writer.Open();
  writer.SetFormatted(layout.formatted);
  writer.SetIndentChars(layout.indent);
  writer.SetEOLType(layout.eol);
  writer.SetRoundTrip(layout.mode);
  writer.WriteStartDocument();
  RunScript(writer, script);
  writer.WriteEndDocument();
  writer.Close();
  return stream.GetString();
}

void ExpectJson(const WString& script, const Layout& layout, const WString& json) {
  EXPECT_EQ(Outcome([&] { return Write(script, layout); }), json);
  EXPECT_EQ(IsJson(json), json[0] != u'!');
}

}  // namespace

TEST(JsonTextWriter, WritesEachModeOrRefuses) {
  ForEachRow("json/text_writer.txt", "documents",
             [](JsonRoundTrip mode, const WString& script, const WString& json) {
               ExpectJson(script, {.mode = mode}, json);
             });
  EXPECT_THROW(CJsonTextWriter(nullptr).SetEOLType(static_cast<EOLType>(2)), CTovikException);
}

TEST(JsonTextWriter, LaysOutDocuments) {
  ForEachRow("json/text_writer.txt", "formatted",
             [](const std::string& eol, const WString& indent, const WString& script,
                const WString& json) {
               ExpectJson(script, {jrt_Full, true, eol == "LF" ? EOL_LF : EOL_CRLF, indent}, json);
             });
  ForEachRow("json/text_writer.txt", "not JSON to the letter",
             [](const WString& script, const WString& text) {
               EXPECT_EQ(Write(script, {.formatted = true}), text);
               EXPECT_FALSE(IsJson(text));
             });
}

TEST(JsonTextWriter, FlushesOnlyInFrontOfContent) {
  class Flushed : public CTextStream {
   public:
    void Flush() override { ++count; }
    int count = 0;
  } stream;
  CJsonTextWriter writer(&stream);
  writer.WriteStartDocument();
  const WString longText = u"'" + WString(5000, u'x') + u"'";
  RunScript(writer, u"<r @a=" + longText + u" " + longText);
  EXPECT_EQ(stream.count, 0);
  RunScript(writer, u"<b");
  EXPECT_EQ(stream.count, 1);
  RunScript(writer, u"%comment=''");
  EXPECT_EQ(stream.count, 2);
}
