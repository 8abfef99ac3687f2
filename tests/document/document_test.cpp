#include "tovikxml/document/document.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/temp_dir.h"
#include "tests/support/text.h"
#include "tovikxml/base/exception.h"
#include "tovikxml/binding/serialization_context.h"
#include "tovikxml/platform/async_files.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;

namespace {

const CXmlElement* Child(const CXmlDocument& document, int index) {
  const CXmlElement* child = document.GetDocumentElement()->GetFirstElement();
  for (; index > 0; --index) child = child->GetNextSiblingElement();
  return child;
}

WString FailureOf(const std::string& bytes) {
  return MessageOf<CTovikException>([&] {
    CXmlDocument document;
    document.LoadXmlStream(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  });
}

struct OverlappedReading {
  OverlappedReading() { AsyncFromXmlFile(true); }
  ~OverlappedReading() { AsyncFromXmlFile(false); }
};

}  // namespace

TEST(Document, HoldsNamesTextsAndAttributes) {
  CXmlDocument document;
  document.LoadXml(
      "<!DOCTYPE a [<!ATTLIST b d CDATA 'dflt'>]>"
      "<a xmlns='urn:d' xmlns:p='urn:p' p:x='1\n2&#10;3&#13;' y='2'>one<b/> two<!-- c --><p:c/>"
      "<![CDATA[ <3>]]>&#13;&amp;</a>");
  const CXmlElement* root = document.GetDocumentElement();
  EXPECT_EQ(root->GetText(), u"one two <3>&");
  EXPECT_EQ(root->GetNamespaceURI(), u"urn:d");
  ASSERT_EQ(root->GetAttributes().size(), 2u);
  EXPECT_EQ(root->GetAttributes()[0]->GetLocalName(), u"x");
  EXPECT_EQ(root->GetAttributes()[0]->GetNamespaceURI(), u"urn:p");
  EXPECT_EQ(root->GetAttribute(u"x", u"urn:p"), u"1 2\n3\r");
  EXPECT_EQ(root->GetAttribute(u"x", u""), u"");
  EXPECT_EQ(root->GetAttribute(u"y", u""), u"2");
  EXPECT_EQ(Child(document, 0)->GetAttribute(u"d", u""), u"dflt");
  EXPECT_EQ(Child(document, 1)->GetLocalName(), u"c");
  EXPECT_EQ(Child(document, 1)->GetNamespaceURI(), u"urn:p");
  EXPECT_EQ(Child(document, 1)->GetParentElm(), root);
  EXPECT_EQ(Child(document, 1)->GetNextSiblingElement(), nullptr);
  EXPECT_EQ(document.LookupNamespaceFromAlias(u"p"), u"urn:p");
  EXPECT_EQ(document.LookupNamespaceFromAlias(u""), u"urn:d");
  EXPECT_EQ(document.LookupNamespaceFromAlias(u"z"), u"");
}

TEST(Document, DropsCarriageReturnsFromTextAlone) {
  CXmlDocument document;
  document.LoadXml(
      "<!DOCTYPE a [<!ENTITY e 'x&#13;y&#38;#13;z'>]>"
      "<a b='&#13;'>&e;1\r\n2\r3&#13;&#xD;4<![CDATA[5\r\n6\r7]]></a>");
  EXPECT_EQ(document.GetDocumentElement()->GetText(), u"xyz1\n2\n345\n6\n7");
  EXPECT_EQ(document.GetDocumentElement()->GetAttribute(u"b", u""), u"\r");
}

TEST(Document, GivesPaths) {
  CXmlDocument document;
  document.LoadXml(
      "<a xmlns:p='urn:p' xmlns:q='urn:p' q:k='1'><b/><c k='2'/><b/><p:b/><d xmlns='urn:d'/>"
      "<d xmlns='urn:e'/></a>");
  const WString paths[] = {u"/a/b[1]", u"/a/c", u"/a/b[2]", u"/a/p:b", u"/a/d[1]", u"/a/d[2]"};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(Child(document, i)->GetXPath(), paths[i]);
  EXPECT_EQ(document.GetDocumentElement()->GetAttributes()[0]->GetXPath(), u"/a/@p:k");
  EXPECT_EQ(Child(document, 1)->GetAttributes()[0]->GetXPath(), u"/a/c/@k");
  EXPECT_EQ(document.LookupAliasFromNamespace(u"urn:p"), u"p");
  EXPECT_EQ(document.LookupAliasFromNamespace(u"urn:d"), u"");
}

TEST(Document, TellsAttributesOfTheMachineryApart) {
  CXmlDocument document;
  document.LoadXml(
      "<a xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:type='t' i:schemaLocation='s' "
      "i:noNamespaceSchemaLocation='n' i:nil='true' type='x' nil='y' i:other='z'/>");
  std::string kinds;
  for (const CXmlAttribute* attribute : document.GetDocumentElement()->GetAttributes()) {
    kinds += attribute->IsNamespaceAttribute() ? 'n' : attribute->IsNilAttribute() ? '0' : '-';
  }
  EXPECT_EQ(kinds, "nnn0---");
}

TEST(Document, KeepsPrefixesWhereNamespacesAreOff) {
  CSerializationContext context;
  context.SetSchemaType(st_NoNamespaces);
  CXmlDocument document(context);
  document.LoadXml("<p:a xmlns:p='u'/>");
  EXPECT_EQ(document.GetDocumentElement()->GetLocalName(), u"p:a");
  EXPECT_EQ(document.GetDocumentElement()->GetNamespaceURI(), u"");
  EXPECT_EQ(document.GetDocumentElement()->GetAttribute(u"xmlns:p", u""), u"u");
}

TEST(Document, KeepsCDataMarkersOnRequest) {
  CSerializationContext context;
  context.SetStripCDATA(false);
  CXmlDocument document(context);
  document.LoadXml("<a>x<![CDATA[<y>]]>z</a>");
  EXPECT_EQ(document.GetDocumentElement()->GetText(), u"x<![CDATA[<y>]]>z");
}

TEST(Document, ReadsTextAndBytesInTheEncodingsOfXml) {
  CXmlDocument document;
  document.LoadXml(u"<a>\u00e9\U0001F600</a>");
  EXPECT_EQ(document.GetDocumentElement()->GetText(), u"\u00e9\U0001F600");
  const std::string rows[] = {"<a>\xc3\xa9</a>", "\xef\xbb\xbf<a>\xc3\xa9</a>",
                              "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xe9</a>",
                              std::string("\xfe\xff\0<\0a\0>\0\xe9\0<\0/\0a\0>", 18),
                              std::string("\xff\xfe<\0a\0>\0\xe9\0<\0/\0a\0>\0", 18)};
  for (const std::string& bytes : rows) {
    document.LoadXmlStream(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    EXPECT_EQ(document.GetDocumentElement()->GetText(), u"\u00e9");
  }
}

TEST(Document, RefusesWhatIsNotWellFormedWithTheParsersWordsAndLine) {
  const struct {
    std::string bytes;
    const wchar* message;
  } rows[] = {
      {"<a>\n<b>\n</a>", u"mismatched tag at line 3"},
      {"<a", u"unclosed token at line 1"},
      {"<a>\n\n", u"no element found at line 3"},
      {" ", u"no element found at line 1"},
      {"plain", u"syntax error at line 1"},
      {"<a/>\n<b/>", u"junk after document element at line 2"},
      {"<a b='1' b='2'/>", u"duplicate attribute at line 1"},
      {"<a>&nbsp;</a>", u"undefined entity at line 1"},
      {"<p:a/>", u"unbound prefix at line 1"},
      {"<a xmlns='u|v'/>", u"syntax error at line 1"},  // the bar separates URI and name
      {"<a>\x01</a>", u"not well-formed (invalid token) at line 1"},
      {"<a>\xff</a>", u"not well-formed (invalid token) at line 1"},
      {"<?xml version='1.0' encoding='ebcdic'?><a/>", u"unknown encoding at line 1"},
      {"<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>", u"recursive entity reference at line 1"},
      {"<a><![CDATA[x</a>", u"unclosed CDATA section at line 1"},
  };
  for (const auto& row : rows) EXPECT_EQ(FailureOf(row.bytes), row.message) << row.bytes;
  EXPECT_EQ(MessageOf<CTovikException>(
                [] { CXmlDocument().LoadXml(u"<?xml version='1.0' encoding='UTF-8'?><a/>"); }),
            u"encoding specified in XML declaration is incorrect at line 1");
}

TEST(Document, BoundsEntityExpansion) {
  std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'aaaaaaaaaaaaaaaaaaaa'>";
  for (int i = 1; i <= 9; ++i) {
    bomb += "<!ENTITY e" + std::to_string(i) + " '";
    for (int k = 0; k < 20; ++k) bomb += "&e" + std::to_string(i - 1) + ";";
    bomb += "'>";
  }
  EXPECT_EQ(FailureOf(bomb + "]><a>&e9;</a>"),
            u"limit on input amplification factor (from DTD and entities) breached at line 1");
}

TEST(Document, ReportsMissingInput) {
  CXmlDocument document;
  EXPECT_EQ(MessageOf<CTovikException>([&] { document.LoadXml(""); }), u"XML String is empty!");
  EXPECT_EQ(MessageOf<CTovikException>([&] { document.LoadXml(u""); }), u"XML String is empty!");
  EXPECT_EQ(MessageOf<CTovikException>([&] { document.LoadXml(static_cast<wchar*>(nullptr)); }),
            u"XML String is empty!");
  EXPECT_EQ(MessageOf<CTovikException>([&] { document.LoadXmlStream(nullptr, 0); }),
            u"XML Stream is empty!");
  MessageOf<CTovikInvalidParamException>([&] { document.LoadXmlStream(nullptr, 1); });
}

TEST(Document, FreesElementsThatTheCallbackHasSeen) {
  static std::u16string seen;
  seen.clear();
  CXmlDocument all([](CXmlElement* element) {
    seen += element->GetLocalName() + element->GetText();
    return true;
  });
  all.LoadXml("<a><b>1<c>2</c></b><d/></a>");
  EXPECT_EQ(seen, u"c2b1da");
  ASSERT_NE(all.GetDocumentElement(), nullptr);
  EXPECT_EQ(all.GetDocumentElement()->GetFirstElement(), nullptr);

  CXmlDocument some([](CXmlElement* element) { return element->GetLocalName() == u"x"; });
  some.LoadXml("<a><k/><x>1</x><x/><k n='1'>2</k><x><k/></x><k/></a>");
  std::u16string kept;
  for (int i = 0; i < 3; ++i) kept += Child(some, i)->GetLocalName() + Child(some, i)->GetText();
  EXPECT_EQ(kept, u"kk2k");
  EXPECT_EQ(Child(some, 2)->GetNextSiblingElement(), nullptr);
  EXPECT_TRUE(Child(some, 2)->GetAttributes().empty());
}

TEST(Document, LetsWhatACallbackThrowsThroughTheParser) {
  CXmlDocument document([](CXmlElement* element) -> bool {
    if (element->GetLocalName() == u"bad") throw std::string("mine");
    return false;
  });
  EXPECT_THROW(document.LoadXml("<a><b/><bad/><c/></a>"), std::string);
  document.LoadXml("<a/>");
  EXPECT_EQ(document.GetDocumentElement()->GetXPath(), u"/a");
}

TEST(Document, TakesAMillionLevelsAndLongNamesAndTexts) {
  constexpr std::size_t kLevels = 1000000;
  std::string deep;
  for (std::size_t i = 0; i < kLevels; ++i) deep += "<e>";
  for (std::size_t i = 0; i < kLevels; ++i) deep += "</e>";
  CXmlDocument document;
  document.LoadXml(deep.c_str());
  const CXmlElement* innermost = document.GetDocumentElement();
  while (innermost->GetFirstElement()) innermost = innermost->GetFirstElement();
  EXPECT_EQ(innermost->GetXPath().size(), 2 * kLevels);

  const std::string large(5 << 20, 'n');
  const std::string wide =
      "<" + large + " " + large + "='" + large + "'>" + large + "</" + large + ">";
  document.LoadXml(wide.c_str());
  EXPECT_EQ(document.GetDocumentElement()->GetLocalName().size(), large.size());
  EXPECT_EQ(document.GetDocumentElement()->GetText().size(), large.size());
  EXPECT_EQ(document.GetDocumentElement()->GetAttributes()[0]->GetValue().size(), large.size());
}

TEST(Document, ReadsFilesOverlappedAtEveryChunkBorder) {
  const TovikXmlTest::TempDir directory;
  const OverlappedReading overlapped;
  constexpr std::size_t kChunk = 0x20000;
  for (const std::size_t size : {std::size_t{100}, kChunk - 1, kChunk, kChunk + 1, 3 * kChunk}) {
    const WString name = directory / u"sized.xml";
    std::string text = "<a><b>";
    text.append(size - text.size() - 8, 'x').append("</b></a>");
    TovikXmlTest::MakeFile(name, text);
    CXmlDocument document;
    document.Load(name.c_str());
    EXPECT_EQ(Child(document, 0)->GetText().size(), size - 14) << size;
  }
}

TEST(Document, ReportsFileFailures) {
  const TovikXmlTest::TempDir directory;
  const WString missing = directory / u"missing.xml";
  const WString faulty = directory / u"faulty.xml";
  const WString empty = directory / u"empty.xml";
  TovikXmlTest::MakeFile(empty, "");
  TovikXmlTest::MakeFile(faulty, "<a>" + std::string(300000, '\n') + "</b>");
  CXmlDocument document;
  const auto load = [&](const WString& name) {
    return MessageOf<CTovikException>([&] { document.Load(name.c_str()); });
  };
  for (const bool overlapped : {false, true}) {
    AsyncFromXmlFile(overlapped);
    EXPECT_EQ(load(missing), u"Failed to open the file [" + missing + u"] Error [0x00000002]");
    EXPECT_EQ(load(faulty), u"mismatched tag at line 300001");
    EXPECT_EQ(load(empty), u"no element found at line 1");
    EXPECT_EQ(load(directory / u"").substr(0, 24), u"Failed to open the file ");
  }
  AsyncFromXmlFile(false);
}
