#include "tovikxml/document/document.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/data_rows.h"
#include "tests/support/temp_dir.h"
#include "tests/support/text.h"
#include "tests/support/tree_text.h"
#include "tovikxml/base/exception.h"
#include "tovikxml/platform/async_files.h"
#include "tovikxml/settings/serialization_context.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

const CXmlElement* Child(const CXmlDocument& document, int index) {
  const CXmlElement* child = document.GetDocumentElement()->GetFirstElement();
  for (; index > 0; --index) child = child->GetNextSiblingElement();
  return child;
}

WString TreeOf(const std::string& bytes, CSerializationContext context = {}) {
  return Outcome([&] {
    CXmlDocument document(context);
    document.LoadXmlStream(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    return Describe(document);
  });
}

struct OverlappedReading {
  OverlappedReading() { AsyncFromXmlFile(true); }
  ~OverlappedReading() { AsyncFromXmlFile(false); }
};

}  // namespace

TEST(Document, GivesTheTreeOrTheWordsOfTheParser) {
  ForEachRow("document/documents.txt", "trees", [](const WString& xml, const WString& tree) {
    EXPECT_EQ(TreeOf(EncodeUtf8(xml).value()), tree);
    CXmlDocument document;
    EXPECT_EQ(Outcome([&] {
                document.LoadXml(xml.c_str());
                return Describe(document);
              }).substr(0, 10),
              tree.substr(0, 10));
  });
  ForEachRow("document/documents.txt", "bytes", [](const std::string& hex, const WString& tree) {
    EXPECT_EQ(TreeOf(FromHex(hex)), tree);
  });
  EXPECT_EQ(Outcome([] { CXmlDocument().LoadXml(u"<?xml version='1.0' encoding='UTF-8'?><a/>"); }),
            u"!Exception encoding specified in XML declaration is incorrect at line 1");
}

TEST(Document, NamesTheFirstEntityThatWasNotRead) {
  ForEachRow("document/documents.txt", "unread entities",
             [](const std::string& xml, const WString& entity) {
               CXmlDocument document;
               document.LoadXmlStream(reinterpret_cast<const unsigned char*>(xml.data()),
                                      xml.size());
               EXPECT_EQ(document.GetUnreadEntity(), entity);
             });
  CXmlDocument document;
  const CBinaryData octets = ToBytes(FromHex("E0000001 00 3C0061 C8026B6579 CB80 0073 0070 FF"));
  document.LoadXmlStream(octets.GetData(), octets.GetLength());
  EXPECT_EQ(document.GetUnreadEntity(), u"key");
}

TEST(Document, LinksItsElementsAndLooksUpPrefixes) {
  CXmlDocument document;
  document.LoadXml("<a xmlns='urn:d' xmlns:p='urn:p' p:x='1' y='2'><b/><p:c/></a>");
  const CXmlElement* root = document.GetDocumentElement();
  EXPECT_EQ(root->GetAttribute(u"x", u"urn:p"), u"1");
  EXPECT_EQ(root->GetAttribute(u"x", u""), u"");
  EXPECT_EQ(root->GetAttribute(u"y", u""), u"2");
  EXPECT_EQ(Child(document, 1)->GetParentElm(), root);
  EXPECT_EQ(Child(document, 1)->GetNextSiblingElement(), nullptr);
  EXPECT_EQ(document.LookupNamespaceFromAlias(u"p"), u"urn:p");
  EXPECT_EQ(document.LookupNamespaceFromAlias(u""), u"urn:d");
  EXPECT_EQ(document.LookupNamespaceFromAlias(u"z"), u"");
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

TEST(Document, FollowsPrefixesThatAreBoundAnew) {
  static std::u16string seen;
  seen.clear();
  CXmlDocument document([](CXmlElement* element) {
    seen += element->GetXPath();
    return false;
  });
  document.LoadXml(
      "<a xmlns:q='urn:1'><p:b xmlns:p='urn:1'/><p:c xmlns:p='urn:2'/><q:d/><b "
      "xmlns='urn:1'/></a>");
  EXPECT_EQ(seen, u"/a/p:b/a/p:c/a/q:d/a/b[2]/a");
  EXPECT_EQ(document.LookupAliasFromNamespace(u"urn:1"), u"");
  EXPECT_EQ(document.LookupAliasFromNamespace(u"urn:2"), u"p");
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

TEST(Document, KeepsPrefixesAndCDataMarkersOnRequest) {
  CSerializationContext context;
  context.SetSchemaType(st_NoNamespaces);
  EXPECT_EQ(TreeOf("<p:a xmlns:p='u'/>", context), u"p:a xmlns:p=u");
  CSerializationContext marked;
  marked.SetStripCDATA(false);
  EXPECT_EQ(TreeOf("<a>x<![CDATA[<y>]]>z</a>", marked), u"a'x<![CDATA[<y>]]>z'");
}

TEST(Document, BoundsEntityExpansion) {
  std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'aaaaaaaaaaaaaaaaaaaa'>";
  for (int i = 1; i <= 9; ++i) {
    bomb += "<!ENTITY e" + std::to_string(i) + " '";
    for (int k = 0; k < 20; ++k) bomb += "&e" + std::to_string(i - 1) + ";";
    bomb += "'>";
  }
  EXPECT_EQ(
      TreeOf(bomb + "]><a>&e9;</a>"),
      u"!Exception limit on input amplification factor (from DTD and entities) breached at line 1");
}

TEST(Document, ReportsMissingInput) {
  CXmlDocument document;
  const WString empty = u"!Exception XML String is empty!";
  EXPECT_EQ(Outcome([&] { document.LoadXml(""); }), empty);
  EXPECT_EQ(Outcome([&] { document.LoadXml(u""); }), empty);
  EXPECT_EQ(Outcome([&] { document.LoadXml(static_cast<wchar*>(nullptr)); }), empty);
  EXPECT_EQ(Outcome([&] { document.LoadXmlStream(nullptr, 0); }),
            u"!Exception XML Stream is empty!");
  EXPECT_THROW(document.LoadXmlStream(nullptr, 1), CTovikInvalidParamException);
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
  const TempDir directory;
  const OverlappedReading overlapped;
  constexpr std::size_t kChunk = 0x20000;
  for (const std::size_t size : {std::size_t{100}, kChunk - 1, kChunk, kChunk + 1, 3 * kChunk}) {
    const WString name = directory / u"sized.xml";
    std::string text = "<a><b>";
    text.append(size - text.size() - 8, 'x').append("</b></a>");
    MakeFile(name, text);
    CXmlDocument document;
    document.Load(name.c_str());
    EXPECT_EQ(Child(document, 0)->GetText().size(), size - 14) << size;
  }
}

TEST(Document, ReportsFileFailures) {
  const TempDir directory;
  const WString missing = directory / u"missing.xml";
  const WString faulty = directory / u"faulty.xml";
  const WString empty = directory / u"empty.xml";
  MakeFile(empty, "");
  MakeFile(faulty, "<a>" + std::string(300000, '\n') + "</b>");
  CXmlDocument document;
  const auto load = [&](const WString& name) {
    return Outcome([&] { document.Load(name.c_str()); });
  };
  for (const bool overlapped : {false, true}) {
    AsyncFromXmlFile(overlapped);
    EXPECT_EQ(load(missing),
              u"!Exception Failed to open the file [" + missing + u"] Error [0x00000002]");
    EXPECT_EQ(load(faulty), u"!Exception mismatched tag at line 300001");
    EXPECT_EQ(load(empty), u"!Exception no element found at line 1");
    EXPECT_EQ(load(directory / u"").substr(0, 35), u"!Exception Failed to open the file ");
  }
  AsyncFromXmlFile(false);
}
