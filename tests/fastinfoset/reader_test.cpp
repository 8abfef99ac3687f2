#include "tovikxml/fastinfoset/reader.h"

#include <gtest/gtest.h>

#include "tests/fastinfoset/octets.h"
#include "tests/support/data_rows.h"

using namespace TovikXmlTest;

TEST(FastInfosetReader, GivesTheTreeOfEveryForm) {
  ForEachRow("fastinfoset/reader.txt", "documents",
             [](const std::string& octets, const WString& tree) {
               EXPECT_EQ(Outcome([&] { return TreeOf(octets); }), tree);
             });
  ForEachRow("fastinfoset/reader.txt", "no documents", [](const std::string& octets) {
    EXPECT_NE(Outcome([&] { return TreeOf(octets); }).find(u" at line 1"), WString::npos);
  });
}

TEST(FastInfosetReader, RefusesWhatPointsBeyondTablesAndOctets) {
  ForEachRow("fastinfoset/reader.txt", "faults",
             [](const std::string& octets, const WString& message) {
               EXPECT_EQ(Outcome([&] { return TreeOf("E0000001 00 3C0061 " + octets); }),
                         u"!Exception Failed to parse FastInfoset. " + message);
             });
  EXPECT_EQ(Outcome([] { return TreeOf("E0000001 40 90"); }),
            u"!Exception Failed to parse FastInfoset. Invalid Encoding of the length of a "
            u"sequence.");
  EXPECT_EQ(Outcome([] { return TreeOf("E0000001 00 3C0061 8C2800"); }),
            u"!Exception Unknown byte encoding.");
}

TEST(FastInfosetReader, BindsNamespacesAndShowsNoElementToTheCallback) {
  static int calls = 0;
  CXmlDocument document([](CXmlElement*) { return ++calls > 0; });
  const CBinaryData octets = Octets(
      "E0000001 00 38 CC CD017531 CF0070 017532 CE0071 F0 3C0061 38 CF8281 F0 3D820062 FF F0");
  document.LoadXmlStream(octets.GetData(), octets.GetLength());
  for (const auto& [prefix, uri] : {std::pair(u"", u"u1"), {u"p", u"u2"}, {u"q", u"u1"}}) {
    EXPECT_EQ(document.LookupNamespaceFromAlias(prefix), uri);
  }
  EXPECT_EQ(Describe(document), u"a({u2}b)");
  EXPECT_EQ(calls, 0);
}

TEST(FastInfosetReader, StartsFromTheGeneratedVocabulary) {
  CSerializationContext context;
  CFastInfosetContext& settings = context.GetFIContext();
  settings.SetUseGeneratedVocabulary(true);
  settings.SetExternalVocabularyURI(u"u");
  settings.GetVocabulary()->AddElement(u"p", u"urn:x", u"a");
  settings.GetVocabulary()->AddAttribute(u"", u"", u"b");
  settings.GetVocabulary()->AddAttributeValue(u"one");
  settings.GetVocabulary()->AddElementValue(u"two");
  const CBinaryData octets = WriteDocument(
      [](CFastInfosetWriter& w) { RunScript(w, u"%alias:p='urn:x' <{urn:x}a @b='one' 'two' >"); },
      settings);
  EXPECT_EQ(octets.GetAsHexString(),
            Digits("E0000001 20 1000 0075 78 CF8181 F0 00 00 80 F0 A0 FF"));
  EXPECT_EQ(TreeOf(octets, context), u"{urn:x}a b=one'two'");
  EXPECT_EQ(Outcome([&] { return TreeOf(octets); }),
            u"!Exception Failed to parse FastInfoset. The name index [2] is beyond its table.");
}

TEST(FastInfosetReader, ReadsInitialVocabulariesWhereAsked) {
  CSerializationContext context;
  context.SetMaxTableEntries(4);
  context.SetMaxExpandedText(96);
  CFastInfosetContext& settings = context.GetFIContext();
  settings.SetReadInitialVocabulary(true);
  settings.SetUseGeneratedVocabulary(true);
  settings.SetExternalVocabularyURI(u"u");
  settings.GetVocabulary()->AddElement(u"", u"", u"e");
  settings.GetVocabulary()->AddElementValue(u"two");
  ForEachRow("fastinfoset/reader.txt", "initial vocabularies",
             [&](const std::string& octets, const WString& tree) {
               EXPECT_EQ(Outcome([&] { return TreeOf(Octets(octets), context); }), tree);
             });
}

TEST(FastInfosetReader, KeepsPrefixesWhereAsked) {
  CSerializationContext context;
  context.GetFIContext().SetQualifiedNames(true);
  ForEachRow("fastinfoset/reader.txt", "qualified names",
             [&](const std::string& octets, const WString& tree) {
               EXPECT_EQ(TreeOf(Octets("E0000001 00 " + octets), context), tree);
             });
}

TEST(FastInfosetReader, RefusesWhatNoXmlSaysWhereAsked) {
  CSerializationContext context;
  context.GetFIContext().SetRequireWellFormed(true);
  ForEachRow("fastinfoset/reader.txt", "not well-formed",
             [&](const std::string& octets, const WString& message) {
               const CBinaryData document = Octets("E0000001 00 " + octets);
               EXPECT_NE(Outcome([&] { return TreeOf(document); }).front(), u'!');
               EXPECT_EQ(Outcome([&] { return TreeOf(document, context); }),
                         u"!Exception Failed to parse FastInfoset. " + message);
             });
  const WString tree = u"\u0416\u00e9 \u0100=\u00e9'x\t'";
  EXPECT_EQ(
      TreeOf(Octets("E0000001 00 7C03D096C3A9 7801C480 01C3A9 F0 8178 09 F0 E20078 F0"), context),
      tree);
}

// So many names and values that every form of an index comes, on both sides of its borders.
TEST(FastInfosetReader, TakesManyNames) {
  WString script = u"<a", expected = u"a";
  for (int i = 0; i < 2 * 9000; ++i) {
    const WString text = FormatString(u"n%d", i % 9000);
    script += FormatString(u" <%s @%s='%s' '%s' >", text.c_str(), text.c_str(), text.c_str(),
                           text.c_str());
    expected += u"(" + text + u" " + text + u"=" + text + u"'" + text + u"')";
  }
  const CBinaryData octets =
      WriteDocument([&](CFastInfosetWriter& w) { RunScript(w, script + u" >"); });
  EXPECT_EQ(TreeOf(octets), expected);
}

TEST(FastInfosetReader, TellsEqualLocalNamesApart) {
  const CBinaryData octets = WriteDocument([](CFastInfosetWriter& w) {
    RunScript(w, u"%alias:p='u' %alias:q='v' <a <b > <{u}b > <{v}b > <b > <{v}b > <{w}b > >");
  });
  EXPECT_EQ(TreeOf(octets), u"a(b)({u}b)({v}b)(b)({v}b)({w}b)");
}
