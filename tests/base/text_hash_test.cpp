#include "tovikxml/base/text_hash.h"

#include <gtest/gtest.h>

#include <set>

using namespace TovikXmlLib16;

// Names that differ in the upper bits of their words alone, which a sum or a product may lose.
TEST(TextHash, SpreadsNamesThatAreMadeToCollide) {
  constexpr int kPairs = 10;
  for (const std::size_t units : {1, 4}) {
    std::set<std::uint32_t> hashes;
    for (int bits = 0; bits < 1 << kPairs; ++bits) {
      WString name;
      for (int pair = 0; pair < kPairs; ++pair) {
        name += WString(units, bits >> pair & 1 ? u'\x80e1' : u'\xe1');
      }
      hashes.insert(static_cast<std::uint32_t>(HashText(name)));
    }
    EXPECT_GE(hashes.size(), (1u << kPairs) - 4);
  }
  std::set<std::uint64_t> numbers;
  for (std::uint64_t high = 0; high < 1024; ++high) numbers.insert(HashNumber(high << 42) & 0xFFFF);
  EXPECT_GE(numbers.size(), 900u);
  EXPECT_EQ(HashText(u"name"), HashText(WString(u"na") + u"me"));
  EXPECT_NE(HashText(u"a"), HashText(WString(u"a\0", 2)));
}
