#include "tovikxml/values/restrictions.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;

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
  using R = CPrimitiveRestrictions;
  EXPECT_FALSE(R().HasFacets());
  EXPECT_FALSE(R(u"", -1, -2, nullptr, u"", nullptr, nullptr, -1, -1, -1).HasFacets());
  const wchar* const no = nullptr;
  for (const R& one :
       {R(u"p", -1, -1, no, no, no, no, -1, -1, -1), R(no, 0, -1, no, no, no, no, -1, -1, -1),
        R(no, -1, 0, no, no, no, no, -1, -1, -1), R(no, -1, -1, u"1", no, no, no, -1, -1, -1),
        R(no, -1, -1, no, u"1", no, no, -1, -1, -1), R(no, -1, -1, no, no, u"1", no, -1, -1, -1),
        R(no, -1, -1, no, no, no, u"1", -1, -1, -1), R(no, -1, -1, no, no, no, no, 0, -1, -1),
        R(no, -1, -1, no, no, no, no, -1, 0, -1), R(no, -1, -1, no, no, no, no, -1, -1, 0)}) {
    EXPECT_TRUE(one.HasFacets());
  }
}

TEST(Restrictions, RefusesNumbersAbove32Bits) {
  if constexpr (sizeof(long) > 4) {
    const long big = static_cast<long>(2147483648LL);
    const auto make = [&] { CPrimitiveRestrictions(u"", -1, big, u"", u"", u"", u"", -1, -1, -1); };
    EXPECT_EQ(MessageOf<CTovikInvalidParamException>(make), u"Facet out of range [2147483648]");
  }
}
