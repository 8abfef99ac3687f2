// Documents of ours are read by an independent decoder, and documents of an independent encoder by
// us, with what our writer never emits: comments, processing instructions, UTF-16, lists.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/fastinfoset/random_infoset.h"
#include "tests/support/temp_dir.h"

using namespace TovikXmlTest;

namespace {

void MakeFile(const std::filesystem::path& file, const CBinaryData& octets) {
  TovikXmlTest::MakeFile(file,
                         {reinterpret_cast<const char*>(octets.GetData()), octets.GetLength()});
}

CFastInfosetContext Settings(unsigned number) {
  CFastInfosetContext context;
  if (number % 2 != 0) context.SetSuggestedValues();
  context.SetElementMaxAddLength(number % 3 == 0 ? 30 : 6);
  return context;
}

// Each value whose text is the same on both sides, under its algorithm or alphabet.
CBinaryData TypedDocument() {
  return WriteDocument(
      [](CFastInfosetWriter& w) {
        w.WriteStartElement(u"a", u"");
        for (const auto& [type, value] : {std::pair(it_i1, u"-7"),
                                          {it_i4, u"300"},
                                          {it_i8, u"-9000000000"},
                                          {it_boolean, u"true"},
                                          {it_base64Binary, u"AAEC"},
                                          {it_decimal, u"-1.5"},
                                          {it_datetime, u"2001-01-31T10:00:00Z"},
                                          {it_r8, u"0.1"}}) {
          w.WriteStartElement(u"b", u"");
          w.WriteAttribute(u"c", u"", value, type);
          w.WriteText(value, type);
          w.WriteEndElement();
        }
        w.WriteEndElement();
      },
      Settings(1));
}

}  // namespace

TEST(FastInfosetExchange, IsUnderstoodOnBothSides) {
  const TempDir directory;
  constexpr unsigned kDocuments = 40;
  std::vector<WString> expected;
  for (unsigned i = 0; i < kDocuments; ++i) {
    RandomInfoset infoset(i);
    MakeFile(directory.Path() / ("out-" + std::to_string(i) + ".fi"),
             infoset.Write(Settings(i), true));
    expected.push_back(infoset.Expected());
  }
  MakeFile(directory.Path() / "out-typed.fi", TypedDocument());
  ASSERT_EQ(std::system((TOVIKXML_BRIDGE " " + directory.Path().string()).c_str()), 0);

  const auto told = [&](const std::string& name) {
    return Wide(FileBytes(directory.Path() / (name + ".txt")));
  };
  for (unsigned i = 0; i < kDocuments; ++i) {
    EXPECT_EQ(told("out-" + std::to_string(i)), expected[i]) << i;
  }
  EXPECT_EQ(told("out-typed"), TreeOf(TypedDocument()));
  for (const char* name : {"in-mixedfalse", "in-mixedtrue", "in-typed", "in-indexed"}) {
    CXmlDocument document;
    document.Load((directory.Path() / (std::string(name) + ".fi")).u16string().c_str());
    EXPECT_EQ(Describe(document), told(name)) << name;
  }
}
