#include "tovikxml/values/restrictions.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

TEST(Restrictions, KeepsEachFacetInItsPlace) {
  const CPrimitiveRestrictions all(u"p", 1, 2, u"mini", u"maxi", u"mine", u"maxe", 3, 4, 5);
  CPrimitiveRestrictions copy;
  copy = all;
  EXPECT_EQ(copy.GetPattern(), u"p");
  EXPECT_EQ(copy.GetMinLength(), 1);
  EXPECT_EQ(copy.GetMaxLength(), 2);
  EXPECT_EQ(copy.GetMinInclusive(), u"mini");
  EXPECT_EQ(copy.GetMaxInclusive(), u"maxi");
  EXPECT_EQ(copy.GetMinExclusive(), u"mine");
  EXPECT_EQ(copy.GetMaxExclusive(), u"maxe");
  EXPECT_EQ(copy.GetLength(), 3);
  EXPECT_EQ(copy.GetTotalDigits(), 4);
  EXPECT_EQ(copy.GetFractionDigits(), 5);
  EXPECT_TRUE(copy.HasFacets());
}

TEST(Restrictions, KnowsWhetherAnyFacetIsPresent) {
  EXPECT_FALSE(CPrimitiveRestrictions().HasFacets());
  for (int present = -1; present < 10; ++present) {
    const auto number = [&](int place) { return place == present ? 0 : -1 - place % 2; };
    const auto text = [&](int place) {
      return place == present ? u"1" : place % 2 ? u"" : nullptr;
    };
    const CPrimitiveRestrictions facets(text(0), number(1), number(2), text(3), text(4), text(5),
                                        text(6), number(7), number(8), number(9));
    EXPECT_EQ(facets.HasFacets(), present >= 0) << present;
  }
}

TEST(Restrictions, RefusesNumbersAbove32Bits) {
  if constexpr (sizeof(long) > 4) {
    const long big = static_cast<long>(2147483648LL);
    EXPECT_EQ(
        Outcome([&] { CPrimitiveRestrictions(u"", -1, big, u"", u"", u"", u"", -1, -1, -1); }),
        u"!InvalidParam Facet out of range [2147483648]");
  }
}
