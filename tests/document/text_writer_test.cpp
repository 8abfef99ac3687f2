#include "tovikxml/document/text_writer.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tests/support/writer_script.h"
#include "tovikxml/document/text_stream.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

struct Layout {
  bool formatted = false;
  EOLType eol = EOL_LF;
  bool declaration = false;
  XmlEncoding encoding = Encoding_None;
};

WString Write(const WString& script, const Layout& layout = {}) {
  CTextStream stream(layout.encoding);
  CXmlTextWriter writer(&stream);
  writer.Open();
  writer.SetFormatted(layout.formatted);
  writer.SetEOLType(layout.eol);
  if (layout.declaration) writer.WriteXmlDeclaration();
  RunScript(writer, script);
  writer.Close();
  return stream.GetString();
}

const std::map<std::string, XmlEncoding> kEncodings = {{"", Encoding_None},
                                                       {"none", Encoding_None},
                                                       {"UTF-8", Encoding_UTF8},
                                                       {"UTF-16", Encoding_UTF16},
                                                       {"undeclared", Encoding_UTF16_Undeclared}};

}  // namespace

TEST(TextWriter, LaysOutDocuments) {
  ForEachRow(
      "document/text_writer.txt", "layouts",
      [](bool formatted, const std::string& eol, const std::string& encoding, const WString& text) {
        const Layout layout{formatted, eol == "LF" ? EOL_LF : EOL_CRLF, !encoding.empty(),
                            kEncodings.at(encoding)};
        EXPECT_EQ(Write(u"<a <b 'x' > <c > >", layout), text);
      });
  EXPECT_EQ(Write(u"<a 'a\r\nb' >", {.eol = EOL_CRLF}), u"<a>a\r\nb</a>");
}

TEST(TextWriter, WritesDocumentsOrRefuses) {
  ForEachRow("document/text_writer.txt", "documents",
             [](const WString& script, const WString& text) {
               EXPECT_EQ(Outcome([&] { return Write(script); }), text);
             });
  EXPECT_EQ(Outcome([] { Write(u"", {.eol = static_cast<EOLType>(2)}); }),
            u"!Exception Invalid EOL type.");
}

TEST(TextWriter, KeepsMixedTextOnItsLine) {
  CTextStream stream;
  CXmlTextWriter writer(&stream);
  writer.SetFormatted(true);
  RunScript(writer, u"<a '' @late='1' 'x' <b");
  writer.CloseStartTag();
  writer.WriteRawText(u"<raw/>");
  RunScript(writer, u"> >");
  EXPECT_EQ(stream.GetString(), WString(u"<a late=\"1\">x\t<b>\n<raw/>\n\t</b>\n</a>\n"));
}

TEST(TextWriter, WritesAnyDepth) {
  constexpr int kLevels = 200000;
  CTextStream stream;
  for (const bool finishes : {true, false}) {
    CXmlTextWriter writer(&stream);
    writer.SetFormatted(false);
    for (int i = 0; i < kLevels; ++i) writer.WriteStartElement(u"e", u"");
    if (!finishes) continue;
    for (int i = 0; i < kLevels; ++i) writer.WriteEndElement();
    EXPECT_EQ(stream.GetLength(), std::size_t{3 + 4} * (kLevels - 1) + 4);
  }
}

TEST(Writer, GeneratesTheFirstFreeAlias) {
  const auto generate = [](std::initializer_list<const wchar*> taken) {
    CXmlWriter::AliasMap aliases;
    for (const wchar* alias : taken) aliases[WString(u"urn:") + alias] = alias;
    return CXmlWriter::GenerateAlias(aliases);
  };
  EXPECT_EQ(generate({}), u"AA");
  EXPECT_EQ(generate({u"AA"}), u"AB");
  EXPECT_EQ(generate({u"AB", u"p", u"AAA", u"aa", u"A0"}), u"AA");
  CAliasScopes scopes;
  scopes.Set(u"urn:0", u"AA");
  const std::size_t outer = scopes.GetMark();
  scopes.Set(u"urn:0", u"p");
  EXPECT_EQ(scopes.SetGenerated(u"urn:1"), u"AA");
  EXPECT_EQ(scopes.SetGenerated(u"urn:2"), u"AB");
  scopes.Restore(outer);
  EXPECT_EQ(scopes.GetAliases(), (CXmlWriter::AliasMap{{u"urn:0", u"AA"}}));
  EXPECT_EQ(scopes.SetGenerated(u"urn:3"), u"AB");
  CXmlWriter::AliasMap aliases;
  for (int i = 0; i < 26; ++i) aliases[{wchar(u'0' + i)}] = {u'A', static_cast<wchar>(u'A' + i)};
  EXPECT_EQ(CXmlWriter::GenerateAlias(aliases), u"BA");
  for (int i = 0; i < 700; ++i) aliases[{wchar(0x100 + i)}] = CXmlWriter::GenerateAlias(aliases);
  EXPECT_EQ(CXmlWriter::GenerateAlias(aliases), u"\\Y");  // past "ZZ" the codes run on
}
