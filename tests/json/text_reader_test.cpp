#include "tovikxml/json/text_reader.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;

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

// The message and the path of the exception that a text ends in.
std::pair<WString, WString> FaultOf(const WString& text, bool comments = true) {
  try {
    Trace(text, comments);
  } catch (const CTovikValidationException& e) {
    const WString suffix = u"\nPath: " + e.GetPath();
    WString message = e.GetMessage();
    EXPECT_TRUE(message.ends_with(suffix));
    message.resize(message.size() - suffix.size());
    return {message, e.GetPath()};
  }
  ADD_FAILURE() << "no fault: " << DisplayUtf8(text);
  return {};
}

WString Repeat(WStringView text, int count) {
  WString result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

}  // namespace

TEST(JsonTextReader, TurnsEveryProductionIntoEvents) {
  const struct {
    WString text, events;
  } rows[] = {
      {u"{\"a\": [1, \"x\", true, null]}", u"<{a=[#1'x'TN]}>"},
      {u" {\r\n\t\"a\" : { } , \"a\" :[ ],\"\":[[],[{}]] } ", u"<{a={}a=[]=[[][{}]]}>"},
      {u"[0,-0,10,1.50,-2.5e+10,3E-2,4e5, 6 ]", u"<[#0#-0#10#1.50#-2.5e+10#3E-2#4e5#6]>"},
      {u"[true ,false,null\n]", u"<[TFN]>"},
      {u"\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u0041\\uD83D\\uDE00\\uD800\"",
       WString(u"<'\"\\/\b\f\n\r\tA\U0001F600") + wchar(0xD800) + u"'>"},
      {u"\"\u00e9\t\r\u0001 /* no comment */\"", u"<'\u00e9\t\r\u0001 /* no comment */'>"},
      // Line feeds are dropped from strings and numbers.
      {u"[\"a\n\nb\n\", 12\n34, 5\n]", u"<['ab'#1234#5]>"},
      {u"{\"n\\u0000ame\": \"a\\u0000b\"}", u"<{n='a'}>"},
      {u"", u"<>"},
      {u" \n\t ", u"<>"},
      // What stands behind the first value is not looked at.
      {u"{} garbage", u"<{}>"},
      {u"012", u"<#0>"},
      {u"1/*c*/", u"<#1>"},
      {u"// x\n{}", u"<{}>"},
      {u"/**/{/*/ * */ // y\n\"a\"/*\n*/:/**/1 /**/,\"b\":2}//", u"<{a=#1b=#2}>"},
      {u"/* x", u"<>"},
      {u"// x", u"<>"},
      {Repeat(u"//\n/**/", 200000) + u"1", u"<#1>"},
  };
  for (const auto& row : rows) EXPECT_EQ(Trace(row.text), row.events);
  EXPECT_EQ(Trace(u"1", true, u"r"), u"<{r=#1}>");
  EXPECT_EQ(Trace(u"", true, u"r"), u"<{r=}>");
}

TEST(JsonTextReader, ReportsEveryFaultWithItsPlace) {
  const WString value =
      u"Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found ";
  const WString end = u"Unexpected End of File. Expected ";
  const WString name = u"Expected quotation mark character '\"' before Name, found ";
  const struct {
    WString text, message, place, path = u"$";
  } rows[] = {
      {u"{", end + u"Object terminator character '}}'", u"1, position 1"},
      {u"{\"a\"", end + u"Object Name/Value separator character ':'", u"1, position 4", u"$.a"},
      {u"{\"a\" 1}", u"Expected Object Name/Value separator character ':', found '1'",
       u"1, position 6", u"$.a"},
      {u"{\"a\":", end + u"Object Value", u"1, position 5", u"$.a"},
      {u"{\"a\":1", end + u"Object terminator character '}'", u"1, position 6", u"$.a"},
      {u"{\"a\":1 ,\n", end + u"Object terminator character '}'", u"2, position 0", u"$.a"},
      {u"{\"a\":1,}", name + u"'}'", u"1, position 8", u"$.a"},
      {u"{a:1}", name + u"'a'", u"1, position 2"},
      {u"{\n  x", name + u"'x'", u"2, position 3"},
      {u"{\"a\":1 \"b\":2}", u"Expected Object separator character ',', found '\"'",
       u"1, position 8", u"$.a"},
      {u"[", end + u"Array terminator character ']'", u"1, position 1"},
      {u"[1", end + u"Array terminator character ']'", u"1, position 2"},
      {u"[1,", end + u"Array terminator character ']'", u"1, position 3"},
      {u"[1,]", value + u"']'", u"1, position 4"},
      {u"[1 2]", u"Expected Array separator character ',', found '2'", u"1, position 4"},
      {u"[1/*c*/]", u"Expected Array separator character ',', found '/'", u"1, position 3"},
      {u"\"a", end + u"string value", u"1, position 2"},
      {u"\"a\\", end + u"string value", u"1, position 3"},
      {u"\"\\u12", end + u"4 hexadecimal digits'\\uxxxx'", u"1, position 5"},
      {u"\"\\u12G4\"", u"Invalid Escape Character 'G'", u"1, position 6"},
      {u"\"a\\qb\"", u"Invalid Escape Character 'q'", u"1, position 4"},
      {u"-", end + u"a number", u"1, position 1"},
      {u"-x", u"Expected a digit '0' to '9', found 'x'", u"1, position 2"},
      {u"1.", end + u"a digit '0' to '9'", u"1, position 2"},
      {u"1.x", u"Expected a digit '0' to '9', found 'x'", u"1, position 3"},
      {u"1e", end + u"'+', '-' or a number", u"1, position 2"},
      {u"1.0E+", end + u"a number", u"1, position 5"},
      {u"1ex", end + u"a digit '0' to '9'", u"1, position 3"},
      {u"nul", end + u"value 'NULL'", u"1, position 3"},
      {u"nulx", u"Expected 'NULL'", u"1, position 4"},
      {u"NULL", value + u"'N'", u"1, position 1"},
      {u"tr", end + u"value 'true'", u"1, position 2"},
      {u"trux", u"Expected 'true'", u"1, position 4"},
      {u"fals", end + u"value 'false'", u"1, position 4"},
      {u"falsx", u"Expected 'false'", u"1, position 5"},
      {u" /1", value + u"'/'", u"1, position 2"},
      {u"/", value + u"'/'", u"1, position 1"},
      // Comments count but for their second unit.
      {u"{/* x", end + u"Object terminator character '}}'", u"1, position 4"},
      {u"{// x", end + u"Object terminator character '}}'", u"1, position 2"},
      {u"/*\n*/ ?", value + u"'?'", u"2, position 4"},
      {u"{\"a\": {\"b\": [{\"c\": x", value + u"'x'", u"1, position 20", u"$.c.b[0].a"},
      {u"{\"a\": [1, {}, [], {}, {\"b\": x", value + u"'x'", u"1, position 29", u"$.b.a[2]"},
      {u"{\"a\": {\"b\": 1} x", u"Expected Object separator character ',', found 'x'",
       u"1, position 16"},
      {Repeat(u"[", 100) + u"1", u"JSON exceeded depth limit", u"1, position 101"},
      {Repeat(u"{\"a\":", 100) + u"{", u"JSON exceeded depth limit", u"1, position 501",
       u"$" + Repeat(u".a", 100)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(DisplayUtf8(row.text));
    const auto [message, path] = FaultOf(row.text);
    EXPECT_EQ(message, row.message + u" at line " + row.place + u".");
    EXPECT_EQ(path, row.path);
  }
  EXPECT_EQ(FaultOf(u"// x\n{}", false).first, value + u"'/' at line 1, position 1.");
  Trace(Repeat(u"[", 100) + Repeat(u"]", 100));
}

TEST(JsonTextReader, ReportsTheEndOfTheFileAtEveryCut) {
  const WString text =
      u"{\"a\": [1.5e+3, -0, \"x\\n\\u0041\", {\"b\" : true}, false] /* c */, // d\n \"e\": null}";
  EXPECT_EQ(Trace(text), u"<{a=[#1.5e+3#-0'x\nA'{b=T}F]e=N}>");
  for (std::size_t length = 1; length < text.size(); ++length) {
    SCOPED_TRACE(length);
    const WString message = FaultOf(text.substr(0, length)).first;
    if (text[length - 1] == u'/' && (text[length] == u'/' || text[length] == u'*')) {
      EXPECT_NE(message.find(u"found '/'"), WString::npos);
    } else {
      EXPECT_TRUE(message.starts_with(u"Unexpected End of File. ")) << DisplayUtf8(message);
    }
  }
}
