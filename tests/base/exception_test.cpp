#include "tovikxml/base/exception.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/support/small_stack.h"
#include "tests/support/text.h"

using namespace TovikXmlLib16;

TEST(Exception, PathIsAppendedToTheMessageOnlyWhenThereIsOne) {
  const CTovikException with(u"M", WString(u"/a/b"));
  EXPECT_EQ(with.GetMessage(), u"M\nPath: /a/b");
  EXPECT_EQ(with.GetPath(), u"/a/b");
  const CTovikException without(u"M", WString());
  EXPECT_EQ(without.GetMessage(), u"M");
  EXPECT_EQ(without.GetPath(), u"");
  EXPECT_EQ(without.GetInnerException(), nullptr);
}

TEST(Exception, FullMessageListsTheChainOutermostFirst) {
  const CTovikInvalidValueException cause(u"cause \u00e9");
  const CTovikException middle(u"middle", WString(u"/p"), cause);
  const CTovikValidationException outer(u"outer", WString(), middle);
  EXPECT_EQ(outer.GetFullMessage(), u"outer\nmiddle\nPath: /p\ncause \u00e9");
  EXPECT_STREQ(outer.what(), "outer\nmiddle\nPath: /p\ncause \xc3\xa9");
}

TEST(Exception, CausesKeepTheirClassAndOutliveTheirSourceInAnyOtherClass) {
  CTovikException kept;
  {
    const CTovikException inner(u"inner", CTovikInvalidValueException(u"root"));
    CTovikValidationException outer(u"outer", WString(), inner);
    kept = outer;
    EXPECT_NE(kept.GetInnerException(), outer.GetInnerException());
  }
  const CTovikException* cause = kept.GetInnerException()->GetInnerException();
  EXPECT_NE(dynamic_cast<const CTovikInvalidValueException*>(cause), nullptr);
  EXPECT_EQ(kept.GetFullMessage(), u"outer\ninner\nroot");
  kept = *kept.GetInnerException();
  EXPECT_EQ(kept.GetFullMessage(), u"inner\nroot");
  const CTovikValidationException turned(CTovikException(u"m", WString(u"/p"), kept));
  EXPECT_EQ(turned.GetFullMessage(), u"m\nPath: /p\ninner\nroot");
  EXPECT_EQ(turned.GetPath(), u"/p");
}

TEST(Exception, TakesOverACauseWithItsChain) {
  TovikXmlTest::RunOnSmallStack([] {
    auto chain = std::make_unique<CTovikException>(u"root", CTovikOverFlowException(u"big"));
    constexpr int kLength = 100000;
    for (int i = 0; i < kLength; ++i) {
      const auto inner = std::move(chain);
      chain = std::make_unique<CTovikValidationException>(u"m", WString(), std::move(*inner));
      EXPECT_STREQ(inner->what(), i == 0 ? "root" : "m");
    }
    EXPECT_NE(dynamic_cast<const CTovikValidationException*>(chain->GetInnerException()), nullptr);
    EXPECT_EQ(chain->GetFullMessage().size(), 2 * kLength + WString(u"root\nbig").size());
  });
}
