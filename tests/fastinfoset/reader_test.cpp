#include "tovikxml/fastinfoset/reader.h"

#include <gtest/gtest.h>

#include "tests/fastinfoset/octets.h"

using namespace TovikXmlTest;

namespace {

const std::string kHead = "E0000001 00 ";

// The tree of a root "a" with the content given, which includes its end.
WString Inside(const std::string& content) {
  return TreeOf(kHead + "3C0061 " + content);
}

WString WithAttributes(const std::string& attributes) {
  return TreeOf(kHead + "7C0061 " + attributes + " F0 F0");
}

WString FailureOf(const std::string& hex) {
  return MessageOf<CTovikException>([&] { TreeOf(hex); });
}

}  // namespace

TEST(FastInfosetReader, RecognisesDocuments) {
  EXPECT_EQ(TreeOf("E0000001 00 38F0 3C0061 FF"), u"a");
  const auto text = [](std::string_view declaration, std::string_view rest) {
    return DisplayUtf8(CBinaryData::GetAsHexString(
               reinterpret_cast<const unsigned char*>(declaration.data()), declaration.size())) +
           std::string(rest);
  };
  EXPECT_EQ(TreeOf(text("<?xml version='1.0' encoding='finf'?>", "E0000001 00 38F0 3C0061 FF")),
            u"a");
  const std::string foreign[] = {
      "E0000001",
      "E0000002 00 38F0 3C0061 FF",
      text("<?xml version=\"1.0\" encoding=\"finf\"?>", "E0000001 00 38F0 3C0061 FF"),
      text("<?xml  version='1.0' encoding='finf'?>", "E0000001 00 38F0 3C0061 FF"),
      text("<?xml version='1.0' encoding='finf'?>", "E0000001"),
      text("<?xml version='1.0' encoding='finf'?>", "3C0061 FF"),
  };
  for (const std::string& hex : foreign) {
    EXPECT_NE(FailureOf(hex).find(u" at line 1"), WString::npos) << hex;
  }
}

TEST(FastInfosetReader, EndsElementsOneOrTwoAtATime) {
  const struct {
    const char* content;
    const wchar* tree;
  } rows[] = {
      {"F0", u"a"},
      {"FF", u"a"},
      {"F0 C0FFEE", u"a"},
      {"3C0062 F0 3C0063 FF", u"a(b)(c)"},
      {"3C0062 3C0063 FF 3C0064 FF", u"a(b(c))(d)"},
      {"3C0062 3C0063 3C0064 FF F0 3C0065 FF", u"a(b(c(d)))(e)"},
      // Behind attributes a double terminator ends one element.
      {"7C0062 780063 0078 FF 3C0064 FF", u"a(b c=x)(d)"},
      // Any other octet ends the attributes alone.
      {"7C0062 780063 0078 80 9079 F0 F0", u"a(b c=x'y')"},
      {"7C0062 F0 F0 F0", u"a(b)"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Inside(row.content), row.tree) << row.content;
  }
}

TEST(FastInfosetReader, DecodesEveryFormOfText) {
  const struct {
    const char* chunk;
    const wchar* text;
  } rows[] = {
      {"8078", u"x"},
      {"81C3A9", u"\u00e9"},
      {"8202F09F9880 78", u"\U0001F600x"},
      {"85004A", u"J"},
      {"8601D83DDE00", u"\U0001F600"},
      {"8801A1C5", u"-1.5"},
      {"8804 1F", u"1"},
      {"8C0E050000000100000002", u"1 2"},
      {"8C25C3A9", u"\u00e9"},
      {"8C1438", u"true"},
      {"8C02004D616E", u"4D616E"},
      {"8C06004D616E", u"TWFu"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Inside(std::string(row.chunk) + " F0"), WString(u"a'") + row.text + u"'")
        << row.chunk;
  }
}

TEST(FastInfosetReader, CollectsTextOfAnElement) {
  EXPECT_EQ(Inside("8078 E20078 8079 E1007A FF C80065 CB00650066 0067 9078 A0 F0"), u"a'xyxx'");
  EXPECT_EQ(Inside("8078 3C0062 F0 8079 F0"), u"a'xy'(b)");
  EXPECT_EQ(Inside("8203 610D620A63 0D F0"), u"a'ab\nc'");
  EXPECT_EQ(Inside("820161006278 8079 F0"), u"a'ay'");
  EXPECT_EQ(Inside("910D78 A0 F0"), u"a'xx'");
}

TEST(FastInfosetReader, FillsTablesInTheOrderOfTheWriter) {
  // A literal without the flag enters no table; an empty value is an index of its own.
  EXPECT_EQ(WithAttributes("780062 0078 780063 4079 780064 80 780065 FF 00 80"),
            u"a b=x c=y d=y e= b=y");
  EXPECT_EQ(Inside("8078 9079 A0 F0"), u"a'xyy'");
  EXPECT_EQ(Inside("3F0070 0075 0062 F0 01 F0 3F8181 0063 F0 3D8180 F0 F0"),
            u"a({u}b)({u}b)({u}c)({u}a)");
}

TEST(FastInfosetReader, BindsNamespacesOfAnyElement) {
  CXmlDocument document;
  const CBinaryData octets =
      Octets(kHead + "38 CC CD017531 CF0070 017532 CE0071 F0 3C0061 38 CF8281 F0 3D820062 FF F0");
  document.LoadXmlStream(octets.GetData(), octets.GetLength());
  EXPECT_EQ(Describe(document), u"a({u2}b)");
  for (const auto& [prefix, uri] : {std::pair(u"", u"u1"), {u"p", u"u2"}, {u"q", u"u1"}}) {
    EXPECT_EQ(document.LookupNamespaceFromAlias(prefix), uri);
  }
}

TEST(FastInfosetReader, PassesOverWhatTheTreeDoesNotHold) {
  const std::string root = " 3C0061 8078 FF";
  const std::string rows[] = {
      "E0000001 00 E10070FF E20063 C4 E100700078 F0 E2FF",
      "E0000001 00 C7 0073 0070 E20063 F0 D0 81 EE",
      "E0000001 00 C4",
      // Additional data; character encoding scheme, standalone, version.
      "E0000001 40 01 0075 0078 0076 0079",
      "E0000001 07 045554462D38 01 02312E30",
      "E0000001 01 80",
      // Notations and unparsed entities.
      "E0000001 18 C0006E C3006E 0073 0070 F0 D0 006E 0073 006E D1 80 0073 0070 006E F0",
      // An initial vocabulary with every list.
      "E0000001 20 1FFF 0075 00 016162 00 0075 00 0070 01 0075 0076 00 006C 00 006E 00 0075 "
      "01 0076 2000 12 00 0078 00 0079 00 03 80 80 80 00 00 80",
  };
  for (const std::string& head : rows) EXPECT_EQ(TreeOf(head + root), u"a'x'") << head;
  // A terminator in front of the root ends the document.
  EXPECT_EQ(TreeOf("E0000001 00 F0" + root), u"");
  EXPECT_EQ(TreeOf("E0000001 00 C4 FF" + root), u"");
}

TEST(FastInfosetReader, KeepsNamesThatHoldTheSeparator) {
  CXmlDocument document;
  const CBinaryData octets =
      Octets(kHead + "3D 00 61 02 627C63 3D 02617C62 00 63 F0 3C04617C627C63 FF F0");
  document.LoadXmlStream(octets.GetData(), octets.GetLength());
  EXPECT_EQ(Describe(document), u"{a}b|c({a|b}c)(a|b|c)");
}

TEST(FastInfosetReader, ShowsNoElementToTheCallback) {
  static int calls = 0;
  CXmlDocument document([](CXmlElement*) { return ++calls > 0; });
  const CBinaryData octets = Octets(kHead + "3C0061 3C0062 FF");
  document.LoadXmlStream(octets.GetData(), octets.GetLength());
  EXPECT_EQ(Describe(document), u"a(b)");
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
      [](CFastInfosetWriter& w) {
        w.AddNamespaceAlias(u"p", u"urn:x");
        w.WriteStartElement(u"a", u"urn:x");
        w.WriteAttribute(u"b", u"", u"one", it_string);
        w.WriteText(u"two", it_string);
        w.WriteEndElement();
      },
      settings);
  EXPECT_EQ(octets.GetAsHexString(),
            Digits("E0000001 20 1000 0075 78 CF8181 F0 00 00 80 F0 A0 FF"));
  EXPECT_EQ(TreeOf(octets, context), u"{urn:x}a b=one'two'");
  EXPECT_EQ(MessageOf<CTovikException>([&] { TreeOf(octets); }),
            u"Failed to parse FastInfoset. The name index [2] is beyond its table.");
}
