#include "tovikxml/json/text_reader.h"

#include <gtest/gtest.h>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

// Writes the events as text: < document >, name=, 'string', #number, T, F and N.
class Tracer final : public IJsonReaderHandler {
 public:
  explicit Tracer(WString& trace) : m_trace(trace) {}

  void StartDocument() override { m_trace += u'<'; }
  void EndDocument() override { m_trace += u'>'; }
  void Name(const WString& name) override { m_trace += name + u"="; }
  void StringValue(const WString& text) override { m_trace += u"'" + text + u"'"; }
  void NumberValue(const WString& text) override { m_trace += u"#" + text; }
  void StartObject() override { m_trace += u'{'; }
  void EndObject() override { m_trace += u'}'; }
  void StartArray() override { m_trace += u'['; }
  void EndArray() override { m_trace += u']'; }
  void BooleanValue(bool value) override { m_trace += value ? u'T' : u'F'; }
  void NullValue() override { m_trace += u'N'; }

 private:
  WString& m_trace;
};

WString Trace(const WString& text, bool comments = true, const WString& root = u"") {
  WString trace;
  CJsonTextReader reader(text);
  reader.SetHandler(std::make_unique<Tracer>(trace));
  reader.SetAllowComments(comments);
  reader.SetRootElementName(root);
  reader.Parse();
  return trace;
}

}  // namespace

TEST(JsonTextReader, TurnsEveryProductionIntoEvents) {
  ForEachRow("json/text_reader.txt", "events", [](const WString& text, const WString& events) {
    EXPECT_EQ(Outcome([&] { return Trace(text); }), events);
  });
  EXPECT_EQ(Trace(u"1", true, u"r"), u"<{r=#1}>");
  EXPECT_EQ(Trace(u"", true, u"r"), u"<{r=}>");
}

TEST(JsonTextReader, ReportsEveryFaultWithItsPlace) {
  ForEachRow(
      "json/text_reader.txt", "faults",
      [](const WString& text, const WString& message, const WString& place, const WString& path) {
        EXPECT_EQ(Outcome([&] { Trace(text); }),
                  u"!Validation " + message + u" at line " + place + u".\nPath: " + path);
      });
  EXPECT_NE(Outcome([] { Trace(u"// x\n{}", false); }).find(u"found '/' at line 1, position 1."),
            WString::npos);
  EXPECT_EQ(Outcome([] { Trace(WString(100, u'[') + WString(100, u']')); }), u"");
}

TEST(JsonTextReader, ReportsTheEndOfTheFileAtEveryCut) {
  const WString text =
      u"{\"a\": [1.5e+3, -0, \"x\\n\\u0041\", {\"b\" : true}, false] /* c */, // d\n \"e\": null}";
  EXPECT_EQ(Trace(text), u"<{a=[#1.5e+3#-0'x\nA'{b=T}F]e=N}>");
  for (std::size_t length = 1; length < text.size(); ++length) {
    SCOPED_TRACE(length);
    const WString message = Outcome([&] { Trace(text.substr(0, length)); });
    if (text[length - 1] == u'/' && (text[length] == u'/' || text[length] == u'*')) {
      EXPECT_NE(message.find(u"found '/'"), WString::npos);
    } else {
      EXPECT_TRUE(message.starts_with(u"!Validation Unexpected End of File. "))
          << DisplayUtf8(message);
    }
  }
}
