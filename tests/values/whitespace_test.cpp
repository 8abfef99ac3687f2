#include "tovikxml/values/whitespace.h"

#include <gtest/gtest.h>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;
using W = CWhitespaceUtils;

TEST(Whitespace, EachRuleNormalizesAsItsFacetSays) {
  ForEachRow("values/whitespace.txt", "rules",
             [](const WString& text, const WString& preserved, const WString& replaced,
                const WString& collapsed) {
               EXPECT_EQ(W::ApplyRule(W::ws_none, text), text);
               EXPECT_EQ(W::Preserve(text), preserved);
               EXPECT_EQ(W::Preserve(text.data(), static_cast<int>(text.size())), preserved);
               EXPECT_EQ(W::Replace(text), replaced);
               EXPECT_EQ(W::Collapse(text), collapsed);
               for (const auto& [rule, expected] : {std::pair{W::ws_preserve, &preserved},
                                                    {W::ws_replace, &replaced},
                                                    {W::ws_collapse, &collapsed}}) {
                 WString scratch = u"left over";
                 const WString& result = W::ApplyRule(rule, text, scratch);
                 EXPECT_EQ(result, *expected);
                 EXPECT_EQ(&result, *expected == text ? &text : &scratch);
               }
             });
}

TEST(Whitespace, RefusesLengthsAndRulesThatAreNone) {
  EXPECT_EQ(W::Preserve(u"a\r\nb", 2), u"a\n");
  EXPECT_EQ(W::Preserve(nullptr, 0), u"");
  EXPECT_EQ(Outcome([] { W::Preserve(u"a", -1); }), u"!InvalidParam Invalid text or length");
  EXPECT_EQ(Outcome([] { W::Preserve(nullptr, 1); }), u"!InvalidParam Invalid text or length");
  for (const int rule : {-1, 4}) {
    EXPECT_EQ(Outcome([&] { W::ApplyRule(static_cast<W::WhitespaceRule>(rule), u"a"); }),
              u"!Exception Unknown WhitespaceRule");
  }
}
