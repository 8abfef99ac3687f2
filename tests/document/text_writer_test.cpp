#include "tovikxml/document/text_writer.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/text.h"
#include "tovikxml/document/text_stream.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;

namespace {

using Steps = std::function<void(CXmlTextWriter&)>;

struct Layout {
  bool formatted = false;
  EOLType eol = EOL_LF;
  bool declaration = false;
  XmlEncoding encoding = Encoding_None;
};

WString Write(const Steps& steps, const Layout& layout = {}) {
  CTextStream stream(layout.encoding);
  CXmlTextWriter writer(&stream);
  writer.Open();
  writer.SetFormatted(layout.formatted);
  writer.SetEOLType(layout.eol);
  if (layout.declaration) writer.WriteXmlDeclaration();
  steps(writer);
  writer.Close();
  return stream.GetString();
}

WString ElementText(const WString& text, EOLType eol = EOL_LF) {
  return Write(
      [&](CXmlTextWriter& w) {
        w.WriteStartElement(u"a", u"");
        w.WriteText(text, it_string);
        w.WriteEndElement();
      },
      {false, eol});
}

WString AttributeValue(const WString& value) {
  return Write([&](CXmlTextWriter& w) {
    w.WriteStartElement(u"a", u"");
    w.WriteAttribute(u"b", u"", value, it_string);
    w.WriteEndElement();
  });
}

const WString kXsi = u"http://www.w3.org/2001/XMLSchema-instance";

}  // namespace

TEST(TextWriter, LaysOutDocuments) {
  const Steps steps = [](CXmlTextWriter& w) {
    w.WriteStartElement(u"a", u"");
    w.WriteStartElement(u"b", u"");
    w.WriteText(u"x", it_string);
    w.WriteEndElement();
    w.WriteStartElement(u"c", u"");
    w.WriteEndElement();
    w.WriteEndElement();
  };
  const WString utf8 = u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
  const struct {
    Layout layout;
    WString text;
  } rows[] = {
      {{true, EOL_LF, true, Encoding_UTF8}, utf8 + u"\n<a>\n\t<b>x</b>\n\t<c/>\n</a>\n"},
      {{true, EOL_CRLF, true, Encoding_UTF8},
       utf8 + u"\r\n<a>\r\n\t<b>x</b>\r\n\t<c/>\r\n</a>\r\n"},
      {{false, EOL_LF, true, Encoding_UTF8}, utf8 + u"\n<a><b>x</b><c/></a>"},
      {{false, EOL_CRLF, true, Encoding_UTF8}, utf8 + u"\r\n<a><b>x</b><c/></a>"},
      {{true, EOL_LF}, u"<a>\n\t<b>x</b>\n\t<c/>\n</a>\n"},
      {{true, EOL_CRLF}, u"<a>\r\n\t<b>x</b>\r\n\t<c/>\r\n</a>\r\n"},
      {{false, EOL_CRLF}, u"<a><b>x</b><c/></a>"},
      {{false, EOL_LF, true, Encoding_UTF16},
       u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<a><b>x</b><c/></a>"},
      {{false, EOL_LF, true, Encoding_UTF16_Undeclared},
       u"<?xml version=\"1.0\"?>\n<a><b>x</b><c/></a>"},
      {{false, EOL_LF, true, Encoding_None}, u"<?xml version=\"1.0\"?>\n<a><b>x</b><c/></a>"},
  };
  for (const auto& row : rows) EXPECT_EQ(Write(steps, row.layout), row.text);
}

TEST(TextWriter, DeclaresNamespacesWhereTheyAreNeeded) {
  EXPECT_EQ(Write(
                [](CXmlTextWriter& w) {
                  w.SetDefaultNamespace(u"urn:d");
                  w.AddNamespaceAlias(u"p", u"urn:p");
                  w.WriteStartElement(u"r", u"urn:d");
                  w.WriteAttribute(u"i", u"urn:p", u"1", it_i4);
                  w.WriteAttribute(u"j", u"", u"a\"b\nc", it_string);
                  for (const auto& [name, uri] :
                       {std::pair(u"s", u"urn:p"), {u"t", u"urn:q"}, {u"u", u"urn:q"}}) {
                    w.WriteStartElement(name, uri);
                    w.WriteEndElement();
                  }
                  w.WriteEndElement();
                },
                {true}),
            u"<r xmlns=\"urn:d\" xmlns:p=\"urn:p\" p:i=\"1\" j=\"a&quot;b&#xA;c\">\n\t<p:s/>\n"
            u"\t<AA:t xmlns:AA=\"urn:q\"/>\n\t<AA:u xmlns:AA=\"urn:q\"/>\n</r>\n");
  EXPECT_EQ(Write([](CXmlTextWriter& w) {
              w.WriteStartElement(u"a", u"");
              w.WriteXsiNil();
              w.WriteEndElement();
            }),
            u"<a xmlns:AA=\"" + kXsi + u"\" AA:nil=\"true\"/>");
  EXPECT_EQ(Write([](CXmlTextWriter& w) {
              w.WriteStartElement(u"a", u"");
              w.WriteXsiType(u"urn:t", u"T", it_string);
              w.WriteEndElement();
            }),
            u"<a xmlns:AA=\"urn:t\"  xmlns:AB=\"" + kXsi + u"\" AB:type=\"AA:T\"/>");
  // A root without a prefix of its own: its alias first, then the default namespace, then the rest.
  EXPECT_EQ(Write([](CXmlTextWriter& w) {
              w.SetDefaultNamespace(u"urn:d");
              w.AddNamespaceAlias(u"q", u"urn:q");
              w.AddNamespaceAlias(u"p", u"urn:p");
              w.WriteStartElement(u"r", u"urn:x");
              w.WriteAttribute(u"lang", u"http://www.w3.org/XML/1998/namespace", u"en", it_string);
              w.WriteXsiType(u"urn:d", u"T", it_string);
              w.WriteEndElement();
            }),
            u"<AA:r xmlns:AA=\"urn:x\" xmlns=\"urn:d\" xmlns:p=\"urn:p\" xmlns:q=\"urn:q\" "
            u"xml:lang=\"en\" xmlns:AB=\"" +
                kXsi + u"\" AB:type=\"T\"/>");
}

TEST(TextWriter, SharesAndSeparatesScopes) {
  EXPECT_EQ(
      Write([](CXmlTextWriter& w) {
        w.WriteStartElement(u"r", u"");
        w.WriteStartElement(u"a", u"urn:a");
        w.WriteStartElement(u"b", u"urn:a");  // inherits the generated alias
        w.AddNamespaceAlias(u"z", u"urn:z");  // changes this scope alone
        w.SetDefaultNamespace(u"urn:a");
        w.WriteStartElement(u"c", u"urn:a");
        w.WriteEndElement();
        w.WriteStartElement(u"d", u"urn:z");
        w.WriteEndElement();
        w.WriteEndElement();
        w.WriteEndElement();
        w.WriteStartElement(u"e", u"urn:z");
        w.WriteEndElement();
        w.WriteEndElement();
      }),
      u"<r><AA:a xmlns:AA=\"urn:a\"><AA:b><c/><z:d/></b></AA:a><AA:e xmlns:AA=\"urn:z\"/></r>");
}

TEST(TextWriter, NeverDeclaresAtTheRootWhatWouldNotBeWellFormed) {
  EXPECT_EQ(Write([](CXmlTextWriter& w) {
              w.AddNamespaceAlias(u"", u"urn:none");
              w.AddNamespaceAlias(u"p", u"urn:1");
              w.AddNamespaceAlias(u"p", u"urn:2");
              w.AddNamespaceAlias(u"xml", u"urn:3");
              w.AddNamespaceAlias(u"p", u"");
              w.AddNamespaceAlias(u"q", u"http://www.w3.org/XML/1998/namespace");
              w.WriteStartElement(u"r", u"urn:none");
              w.WriteAttribute(u"lang", u"http://www.w3.org/XML/1998/namespace", u"en", it_string);
              w.WriteEndElement();
            }),
            u"<AC:r xmlns:AC=\"urn:none\" xmlns:p=\"urn:1\" xmlns:AA=\"urn:2\" xmlns:AB=\"urn:3\" "
            u"xml:lang=\"en\"/>");
}

TEST(TextWriter, EscapesByContext) {
  EXPECT_EQ(ElementText(u"a\r\nb"), u"<a>a\nb</a>");
  EXPECT_EQ(ElementText(u"a\r\nb", EOL_CRLF), u"<a>a\r\nb</a>");
  EXPECT_EQ(ElementText(u"]]> & <'\"\t\u00e9\U0001F600"),
            u"<a>]]&gt; &amp; &lt;'\"\t\u00e9\U0001F600</a>");
  EXPECT_EQ(ElementText(u"<![CDATA[x<y]]>"), u"<a><![CDATA[x<y]]></a>");
  EXPECT_EQ(ElementText(u" <![CDATA[x]]>"), u"<a> &lt;![CDATA[x]]&gt;</a>");
  EXPECT_EQ(ElementText(WString(u"cut\0here", 8)), u"<a>cut</a>");
  EXPECT_EQ(ElementText(u""), u"<a/>");
  EXPECT_EQ(AttributeValue(u"a\r\n<>&\"'\tb"), u"<a b=\"a&#xA;&lt;&gt;&amp;&quot;'\tb\"/>");
  EXPECT_EQ(Write([](CXmlTextWriter& w) {
              w.WriteComment(u"a<b -- c");
              w.WriteProcessingInstruction(u"<?pi x<y?>");
              w.WriteStartElement(u"a", u"");
              w.WriteInlineSchema(u"<s/>");
              w.WriteEndElement();
            }),
            u"<!--a&lt;b -- c-->\n<?pi x<y?>\n\n<a \n<s/>\n/>");
}

TEST(TextWriter, KeepsMixedTextOnItsLine) {
  EXPECT_EQ(Write(
                [](CXmlTextWriter& w) {
                  w.WriteStartElement(u"a", u"");
                  w.WriteText(u"", it_string);
                  w.WriteAttribute(u"late", u"", u"1", it_string);
                  w.WriteText(u"x", it_string);
                  w.WriteStartElement(u"b", u"");
                  w.CloseStartTag();
                  w.WriteRawText(u"<raw/>");
                  w.WriteEndElement();
                  w.WriteEndElement();
                },
                {true}),
            u"<a late=\"1\">x\t<b>\n<raw/>\n\t</b>\n</a>\n");
}

TEST(TextWriter, ReportsMisuse) {
  const auto attribute = [](CXmlTextWriter& w) { w.WriteAttribute(u"b", u"", u"", it_string); };
  const Steps lateSteps[] = {attribute, [](CXmlTextWriter& w) { w.WriteXsiNil(); },
                             [](CXmlTextWriter& w) { w.WriteXsiType(u"u", u"t", it_string); }};
  for (const Steps& late : lateSteps) {
    EXPECT_EQ(MessageOf<CTovikException>([&] {
                Write([&](CXmlTextWriter& w) {
                  w.WriteStartElement(u"a", u"");
                  w.WriteText(u"x", it_string);
                  late(w);
                });
              }),
              u"Attributes must be added before elements");
  }
  EXPECT_EQ(MessageOf<CTovikException>(
                [] { Write([](CXmlTextWriter& w) { w.WriteStartElement(u"a", u""); }); }),
            u"An Element has not been closed.");
  EXPECT_EQ(MessageOf<CTovikException>(
                [] { Write([](CXmlTextWriter& w) { w.SetEOLType(static_cast<EOLType>(2)); }); }),
            u"Invalid EOL type.");
}

TEST(TextWriter, WritesAnyDepth) {
  constexpr int kLevels = 200000;
  const WString text = Write([](CXmlTextWriter& w) {
    for (int i = 0; i < kLevels; ++i) w.WriteStartElement(u"e", u"");
    for (int i = 0; i < kLevels; ++i) w.WriteEndElement();
  });
  EXPECT_EQ(text.size(), std::size_t{3 + 4} * (kLevels - 1) + 4);
  CTextStream stream;
  CXmlTextWriter abandoned(&stream);
  abandoned.SetFormatted(false);
  for (int i = 0; i < kLevels; ++i) abandoned.WriteStartElement(u"e", u"");
}

TEST(Writer, GeneratesTheFirstFreeAlias) {
  const auto generate = [](std::initializer_list<const wchar*> taken) {
    CXmlWriter::AliasMap aliases;
    for (const wchar* alias : taken) aliases[WString(u"urn:") + alias] = alias;
    return CXmlWriter::GenerateAlias(aliases);
  };
  EXPECT_EQ(generate({}), u"AA");
  EXPECT_EQ(generate({u"AA"}), u"AB");
  EXPECT_EQ(generate({u"AB", u"p", u"AAA", u"aa"}), u"AA");
  CXmlWriter::AliasMap aliases;
  for (int i = 0; i < 26; ++i) aliases[{wchar(u'0' + i)}] = {u'A', static_cast<wchar>(u'A' + i)};
  EXPECT_EQ(CXmlWriter::GenerateAlias(aliases), u"BA");
  for (int i = 0; i < 700; ++i) aliases[{wchar(0x100 + i)}] = CXmlWriter::GenerateAlias(aliases);
  EXPECT_EQ(CXmlWriter::GenerateAlias(aliases), u"\\Y");  // past "ZZ" the codes run on
}
