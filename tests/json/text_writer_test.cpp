#include "tovikxml/json/text_writer.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/json/json_checker.h"
#include "tests/support/text.h"
#include "tovikxml/document/text_stream.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

using Steps = std::function<void(CJsonTextWriter&)>;

struct Layout {
  JsonRoundTrip mode = jrt_Full;
  bool formatted = false;
  EOLType eol = EOL_LF;
  WString indent = u"\t";
};

WString WriteAny(const Steps& steps, const Layout& layout = {}) {
  CTextStream stream;
  CJsonTextWriter writer(&stream);
  writer.Open();
  writer.SetFormatted(layout.formatted);
  writer.SetIndentChars(layout.indent);
  writer.SetEOLType(layout.eol);
  writer.SetRoundTrip(layout.mode);
  writer.WriteStartDocument();
  steps(writer);
  writer.WriteEndDocument();
  writer.Close();
  return stream.GetString();
}

WString Write(const Steps& steps, const Layout& layout = {}) {
  const WString json = WriteAny(steps, layout);
  EXPECT_TRUE(IsJson(json)) << DisplayUtf8(json);
  return json;
}

void Element(CJsonTextWriter& w, const WString& name, const WString& text,
             ItemType type = it_string, const WString& uri = u"") {
  w.WriteStartElement(name, uri);
  w.WriteText(text, type);
  w.WriteEndElement();
}

void Empty(CJsonTextWriter& w, const WString& name) {
  w.WriteStartElement(name, u"");
  w.WriteEndElement();
}

// What `steps` write inside the root "r", without the braces and the key around it.
WString Inside(const Steps& steps, JsonRoundTrip mode = jrt_Full, EOLType eol = EOL_LF) {
  const WString json = Write(
      [&](CJsonTextWriter& w) {
        w.WriteStartElement(u"r", u"");
        steps(w);
        w.WriteEndElement();
      },
      {mode, false, eol});
  return json.substr(6, json.size() - 7);
}

void Repeated(CJsonTextWriter& w, const std::function<void()>& items) {
  w.SetCollectionState(1);
  items();
  w.SetCollectionState(3);
}

void Order(CJsonTextWriter& w) {
  w.SetDefaultNamespace(u"urn:d");
  w.AddNamespaceAlias(u"p", u"urn:p");
  w.WriteStartElement(u"order", u"urn:d");
  w.WriteAttribute(u"id", u"", u"7", it_i4);
  w.WriteAttribute(u"ref", u"urn:p", u"x", it_string);
  Repeated(w, [&] {
    for (const auto& [sku, quantity] : {std::pair(u"a", u"1"), {u"b", u"2"}}) {
      w.WriteStartElement(u"item", u"urn:d");
      w.WriteAttribute(u"sku", u"", sku, it_string);
      Element(w, u"qty", quantity, it_i4, u"urn:d");
      w.WriteEndElement();
    }
  });
  Repeated(w, [&] {
    Element(w, u"tag", u"x", it_string, u"urn:d");
    Element(w, u"tag", u"y", it_string, u"urn:d");
  });
  w.WriteStartElement(u"note", u"urn:p");
  w.WriteAttribute(u"lang", u"", u"en", it_string);
  w.WriteText(u"a\"b\n", it_string);
  w.WriteEndElement();
  w.WriteEndElement();
}

const WString kXmlUri = u"http://www.w3.org/XML/1998/namespace";
const WString kXsi = u"http://www.w3.org/2001/XMLSchema-instance";

}  // namespace

TEST(JsonTextWriter, WritesAnOrderInEveryMode) {
  EXPECT_EQ(Write(Order, {jrt_Full, true}),
            u"{\n\t\"order\": {\n\t\t\"@xmlns\": \"urn:d\",\n\t\t\"@xmlns:p\": \"urn:p\",\n\t\t"
            u"\"@id\": 7,\n\t\t\"@p:ref\": \"x\",\n\t\t\"item\": [\n\t\t\t{\n\t\t\t\t\"@sku\": "
            u"\"a\",\n\t\t\t\t\"qty\": 1\n\t\t\t},\n\t\t\t{\n\t\t\t\t\"@sku\": \"b\",\n\t\t\t\t"
            u"\"qty\": 2\n\t\t\t}\n\t\t],\n\t\t\"tag\": [\n\t\t\t\"x\",\n\t\t\t\"y\"\n\t\t],\n\t\t"
            u"\"p:note\": {\n\t\t\t\"@lang\": \"en\",\n\t\t\t\"#text\": \"a\\\"b\\n\"\n\t\t}\n\t}\n"
            u"}");
  EXPECT_EQ(Write(Order),
            u"{\"order\": {\"@xmlns\": \"urn:d\",\"@xmlns:p\": \"urn:p\",\"@id\": 7,\"@p:ref\": "
            u"\"x\",\"item\": [{\"@sku\": \"a\",\"qty\": 1},{\"@sku\": \"b\",\"qty\": 2}],\"tag\": "
            u"[\"x\",\"y\"],\"p:note\": {\"@lang\": \"en\",\"#text\": \"a\\\"b\\n\"}}}");
  EXPECT_EQ(Write(Order, {jrt_Marked}),
            u"{\"order\": {\"@id\": 7,\"@ref\": \"x\",\"item\": [{\"@sku\": \"a\",\"qty\": 1},"
            u"{\"@sku\": \"b\",\"qty\": 2}],\"tag\": [\"x\",\"y\"],\"note\": {\"@lang\": \"en\","
            u"\"#text\": \"a\\\"b\\n\"}}}");
  EXPECT_EQ(Write(Order, {jrt_Bare}),
            u"{\"order\": {\"id\": 7,\"ref\": \"x\",\"item\": [{\"sku\": \"a\",\"qty\": 1},"
            u"{\"sku\": \"b\",\"qty\": 2}],\"tag\": [\"x\",\"y\"],\"note\": {\"lang\": \"en\","
            u"\"\": \"a\\\"b\\n\"}}}");
}

TEST(JsonTextWriter, GivesEveryElementAValue) {
  const struct {
    Steps steps;
    WString json;
  } rows[] = {
      {[](auto&) {}, u"null"},
      {[](auto& w) { w.WriteXsiNil(); }, u"null"},
      {[](auto& w) { w.WriteText(u"", it_string); }, u"null"},
      {[](auto& w) { w.WriteText(u"", it_i4); }, u"null"},
      {[](auto& w) { w.WriteText(u"1", it_i4); }, u"1"},
      {[](auto& w) { w.WriteText(u"2024-02-29", it_date); }, u"\"2024-02-29\""},
      {[](auto& w) { w.WriteText(u"true", it_boolean); }, u"true"},
      {[](auto& w) { w.WriteText(u"<![CDATA[x]]>", it_string); }, u"\"<![CDATA[x]]>\""},
      {[](auto& w) { w.WriteAttribute(u"a", u"", u"", it_string); }, u"{\"@a\": \"\"}"},
      {[](auto& w) { w.WriteAttribute(u"a", u"", u"", it_decimal); }, u"{\"@a\": null}"},
      {[](auto& w) {
         w.WriteAttribute(u"a", u"", u"1", it_i4);
         w.WriteText(u"", it_string);
       },
       u"{\"@a\": 1,\"#text\": null}"},
      {[](auto& w) {
         w.WriteProcessingInstruction(u"<?p?>");
         w.WriteInlineSchema(u"<s/>");
         Empty(w, u"a");
         w.WriteStartElement(u"b", u"");
         Empty(w, u"c");
         w.WriteEndElement();
         Element(w, u"d", u"1.5", it_decimal);
       },
       u"{\"a\": null,\"b\": {\"c\": null},\"d\": 1.5}"},
      {[](auto& w) { w.WriteAttribute(u"lang", kXmlUri, u"en", it_string); },
       u"{\"@xml:lang\": \"en\"}"},
  };
  for (const auto& row : rows) EXPECT_EQ(Inside(row.steps), row.json);
  EXPECT_EQ(WriteAny([](auto& w) { Element(w, u"r", u"NaN", it_r8); }), u"{\"r\": NaN}");
}

TEST(JsonTextWriter, ClosesEveryArrayWhereItEnds) {
  const struct {
    Steps steps;
    WString json;
  } rows[] = {
      {[](auto& w) { Repeated(w, [] {}); }, u"null"},
      {[](auto& w) { Repeated(w, [&] { Element(w, u"a", u"x"); }); }, u"{\"a\": [\"x\"]}"},
      // Items with nothing in them.
      {[](auto& w) { Repeated(w, [&] { Empty(w, u"a"); }); }, u"{\"a\": [null]}"},
      {[](auto& w) {
         Repeated(w, [&] {
           Empty(w, u"a");
           Element(w, u"a", u"");
           Element(w, u"a", u"1", it_i4);
         });
         Element(w, u"b", u"");
       },
       u"{\"a\": [null,null,1],\"b\": null}"},
      // A repeated element inside an item of another.
      {[](auto& w) {
         Repeated(w, [&] {
           for (int i = 0; i < 2; ++i) {
             w.WriteStartElement(u"a", u"");
             Repeated(w, [&] {
               Empty(w, u"b");
               Empty(w, u"b");
             });
             w.WriteEndElement();
           }
         });
       },
       u"{\"a\": [{\"b\": [null,null]},{\"b\": [null,null]}]}"},
      // Items of several names, as a repeated choice or a repeated group writes them.
      {[](auto& w) {
         Repeated(w, [&] {
           for (const wchar* name : {u"a", u"a", u"b", u"a"}) Element(w, name, u"x");
         });
         Empty(w, u"c");
       },
       u"{\"a\": [\"x\",\"x\"],\"b\": [\"x\"],\"a\": [\"x\"],\"c\": null}"},
      // A repeated element inside a repeated group, both on the same element.
      {[](auto& w) {
         Repeated(w, [&] {
           Element(w, u"a", u"1", it_i4);
           Repeated(w, [&] { Element(w, u"b", u"2", it_i4); });
           Element(w, u"a", u"3", it_i4);
         });
         w.WriteText(u"t", it_string);
       },
       u"{\"a\": [1],\"b\": [2],\"a\": 3,\"#text\": \"t\"}"},
      {[](auto& w) {
         Repeated(w, [&] {
           Element(w, u"a", u"1", it_i4);
           w.WriteAttribute(u"late", u"", u"2", it_i4);
         });
       },
       u"{\"a\": [1],\"@late\": 2}"},
      {[](auto& w) {
         Element(w, u"a", u"1", it_i4);
         w.SetCollectionState(1);
         w.SetCollectionState(0);
         Element(w, u"a", u"2", it_i4);
       },
       u"{\"a\": 1,\"a\": 2}"},
  };
  for (const auto& row : rows) EXPECT_EQ(Inside(row.steps), row.json);
  EXPECT_EQ(Write([](auto& w) { w.SetCollectionState(1), Empty(w, u"r"); }), u"{\"r\": null}");
}

TEST(JsonTextWriter, AlignsArraysInArrays) {
  EXPECT_EQ(Write(
                [](CJsonTextWriter& w) {
                  w.WriteStartElement(u"r", u"");
                  Repeated(w, [&] {
                    w.WriteStartElement(u"a", u"");
                    Repeated(w, [&] {
                      Empty(w, u"b");
                      Element(w, u"c", u"x");
                    });
                    Empty(w, u"d");
                    w.WriteEndElement();
                    Empty(w, u"a");
                  });
                  Repeated(w, [&] { Empty(w, u"e"); });
                  w.WriteEndElement();
                },
                {jrt_Full, true, EOL_CRLF, u"  "}),
            u"{\r\n  \"r\": {\r\n    \"a\": [\r\n      {\r\n        \"b\": [\r\n          null\r\n"
            u"        ],\r\n        \"c\": [\r\n          \"x\"\r\n        ],\r\n        \"d\": "
            u"null\r\n      },\r\n      null\r\n    ],\r\n    \"e\": [\r\n      null\r\n    ]\r\n"
            u"  }\r\n}");
}

TEST(JsonTextWriter, EscapesStrings) {
  const auto text = [](const WString& value, EOLType eol = EOL_LF) {
    return Inside([&](auto& w) { w.WriteText(value, it_string); }, jrt_Full, eol);
  };
  EXPECT_EQ(text(u"\b\t\f\u0001\u001f\"\\/\u007f\u00e9\U0001F600\u2028"),
            u"\"\\b\\t\\f\\u0001\\u001F\\\"\\\\/\u007f\u00e9\U0001F600\u2028\"");
  EXPECT_EQ(text(u"a\r\nb\rc"), u"\"a\\nbc\"");
  EXPECT_EQ(text(u"a\r\nb\rc", EOL_CRLF), u"\"a\\r\\nbc\"");
  EXPECT_EQ(text(WString(u"cut\0here", 8)), u"\"cut\"");
}

TEST(JsonTextWriter, DeclaresNamespacesAtTheRoot) {
  EXPECT_EQ(Write([](CJsonTextWriter& w) {
              w.SetDefaultNamespace(u"urn:d");
              w.AddNamespaceAlias(u"q", u"urn:q");
              w.AddNamespaceAlias(u"p", u"urn:p");
              w.AddNamespaceAlias(u"i", kXsi);
              w.WriteStartElement(u"r", u"urn:x");
              w.WriteXsiType(u"urn:q", u"T", it_string);
              w.WriteXsiType(u"urn:d", u"T", it_string);
              Element(w, u"a", u"", it_string, u"urn:x");
              Repeated(w, [&] {
                for (const wchar* uri : {u"urn:p", u"urn:p", u"urn:q"}) {
                  Element(w, u"b", u"1", it_i4, uri);
                }
              });
              w.WriteEndElement();
            }),
            u"{\"AA:r\": {\"@xmlns:AA\": \"urn:x\",\"@xmlns\": \"urn:d\",\"@xmlns:i\": \"" + kXsi +
                u"\",\"@xmlns:p\": \"urn:p\",\"@xmlns:q\": \"urn:q\",\"@i:type\": \"q:T\","
                u"\"@i:type\": \"T\",\"AA:a\": null,\"p:b\": [1,1],\"q:b\": [1]}}");
  EXPECT_EQ(Write([](CJsonTextWriter& w) { Element(w, u"r", u"t", it_string, u"urn:x"); }),
            u"{\"AA:r\": {\"@xmlns:AA\": \"urn:x\",\"#text\": \"t\"}}");
  EXPECT_EQ(Inside(
                [](CJsonTextWriter& w) {
                  w.WriteXsiType(u"urn:q", u"T", it_string);
                  Repeated(w, [&] {
                    for (const wchar* uri : {u"urn:p", u"urn:q"})
                      Element(w, u"b", u"1", it_i4, uri);
                  });
                },
                jrt_Marked),
            u"{\"b\": [1,1]}");
}

TEST(JsonTextWriter, ReportsMisuse) {
  const struct {
    Steps steps;
    WString message;
  } rows[] = {
      {[](auto& w) { w.WriteStartElement(u"a", u"urn:x"); }, u"Unknown Namespace: a."},
      {[](auto& w) { w.WriteAttribute(u"b", u"urn:x", u"", it_string); }, u"Unknown Namespace: b."},
      {[](auto& w) { w.WriteXsiType(u"urn:x", u"T", it_string); }, u"Unknown Namespace: T."},
      {[](auto& w) { w.WriteXsiType(u"", u"T", it_string); }, u"Unknown Namespace: type."},
      {[](auto& w) { w.SetEOLType(static_cast<EOLType>(2)); }, u"Invalid EOL type."},
      {[](auto& w) { w.WriteStartElement(u"a", u""); }, u"An Element has not been closed."},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(MessageOf<CTovikException>([&] { Inside(row.steps); }), row.message);
  }
  for (const Steps& more : {Steps([](auto& w) { Empty(w, u"a"); }),
                            Steps([](auto& w) { w.WriteText(u"y", it_string); })}) {
    EXPECT_EQ(MessageOf<CTovikInvalidStateException>([&] {
                Inside([&](auto& w) {
                  w.WriteText(u"x", it_string);
                  more(w);
                });
              }),
              u"The element [r] has a value and takes no other content in JSON");
  }
}

TEST(JsonTextWriter, WritesCommentsBetweenTokens) {
  EXPECT_EQ(WriteAny(
                [](CJsonTextWriter& w) {
                  w.WriteComment(u"te\"xt");
                  Empty(w, u"root");
                },
                {jrt_Full, true}),
            u"{\n/* te\\\"xt */\n\t\"root\": null\n}");
}

TEST(JsonTextWriter, FlushesOnlyInFrontOfContent) {
  class Flushed : public CTextStream {
   public:
    void Flush() override { ++count; }
    int count = 0;
  } stream;
  CJsonTextWriter writer(&stream);
  writer.WriteStartDocument();
  writer.WriteStartElement(u"r", u"");
  writer.WriteAttribute(u"a", u"", WString(5000, u'x'), it_string);
  writer.WriteText(WString(5000, u'x'), it_string);
  EXPECT_EQ(stream.count, 0);
  writer.WriteStartElement(u"b", u"");
  EXPECT_EQ(stream.count, 1);
  writer.WriteComment(u"");
  EXPECT_EQ(stream.count, 2);
}
