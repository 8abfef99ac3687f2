#include "tovikxml/document/tree_text.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace TovikXmlLib16 {
namespace {

struct Pair {
  CXmlTreeText text;
  WString expected;
};

void ExpectSame(const Pair& pair) {
  EXPECT_EQ(WString(pair.text.View()), pair.expected);
  WString scratch = u"old";
  EXPECT_EQ(pair.text.CopyTo(scratch), pair.expected);
}

// Runs of the sizes around which a text changes where it lies, into texts that take turns.
TEST(TreeText, KeepsEveryTextWhateverGrowsBesideIt) {
  constexpr std::size_t kSizes[] = {0, 1, 2, 7, 30, 127, 128, 500, 1023, 1024, 5000};
  std::mt19937 random(7);
  CXmlTextRoom room;
  std::size_t usual = 0;
  std::vector<Pair> pairs(5);
  for (int step = 0; step < 3000; ++step) {
    Pair& pair = pairs[random() % pairs.size()];
    const WString run(kSizes[random() % std::size(kSizes)], static_cast<wchar>(u'a' + step % 26));
    pair.text.Append(run, room, usual);
    pair.expected += run;
    if (random() % 8 == 0) {
      EXPECT_EQ(pair.text.AsString(), pair.expected);
    }
    if (random() % 4 == 0) {
      ExpectSame(pair);
      pair.text.Reuse();
      pair.expected.clear();
    }
    for (const Pair& each : pairs) ExpectSame(each);
  }
}

TEST(TreeText, StringGrowsWithTheText) {
  CXmlTextRoom room;
  std::size_t usual = 0;
  CXmlTreeText text;
  EXPECT_EQ(text.AsString(), u"");
  text.Append(u"one", room, usual);
  const WString& string = text.AsString();
  text.Append(u" two", room, usual);
  EXPECT_EQ(string, u"one two");
}

}  // namespace
}  // namespace TovikXmlLib16
