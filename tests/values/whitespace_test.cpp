#include "tovikxml/values/whitespace.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;
using W = CWhitespaceUtils;

TEST(Whitespace, EachRuleNormalizesAsItsFacetSays) {
  const struct {
    WString text, preserve, replace, collapse;
  } rows[] = {
      {u"", u"", u"", u""},
      {u"plain text", u"plain text", u"plain text", u"plain text"},
      {u"a\r\nb", u"a\nb", u"a b", u"a b"},
      {u"a\r\nb\rc", u"a\nb\nc", u"a b c", u"a b c"},
      {u"a\n\rb", u"a\n\nb", u"a  b", u"a b"},
      {u"a\r\r\n\nb", u"a\n\n\nb", u"a   b", u"a b"},
      {u"a\tb", u"a\tb", u"a b", u"a b"},
      {u"a\nb", u"a\nb", u"a b", u"a b"},
      {u"a\r", u"a\n", u"a ", u"a"},
      {u"  a \t\r\n b  ", u"  a \t\n b  ", u"  a    b  ", u"a b"},
      {u" a", u" a", u" a", u"a"},
      {u"a ", u"a ", u"a ", u"a"},
      {u"a  b", u"a  b", u"a  b", u"a b"},
      {u"   ", u"   ", u"   ", u""},
      {u" ", u" ", u" ", u""},
      {u"\u00a0\u2003a\v", u"\u00a0\u2003a\v", u"\u00a0\u2003a\v", u"\u00a0\u2003a\v"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(DisplayUtf8(row.text));
    EXPECT_EQ(W::ApplyRule(W::ws_none, row.text), row.text);
    EXPECT_EQ(W::Preserve(row.text), row.preserve);
    EXPECT_EQ(W::Preserve(row.text.data(), static_cast<int>(row.text.size())), row.preserve);
    EXPECT_EQ(W::Replace(row.text), row.replace);
    EXPECT_EQ(W::Collapse(row.text), row.collapse);
    for (const auto& [rule, expected] : {std::pair{W::ws_preserve, &row.preserve},
                                         {W::ws_replace, &row.replace},
                                         {W::ws_collapse, &row.collapse}}) {
      WString scratch = u"left over";
      const WString& result = W::ApplyRule(rule, row.text, scratch);
      EXPECT_EQ(result, *expected);
      EXPECT_EQ(&result, *expected == row.text ? &row.text : &scratch);
    }
  }
}

TEST(Whitespace, PreserveStaysWithinItsUnits) {
  EXPECT_EQ(W::Preserve(u"a\r\nb", 2), u"a\n");
  EXPECT_EQ(W::Preserve(nullptr, 0), u"");
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>([] { W::Preserve(u"a", -1); }),
            u"Invalid text or length");
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>([] { W::Preserve(nullptr, 1); }),
            u"Invalid text or length");
}

TEST(Whitespace, RefusesARuleOutsideTheEnumeration) {
  for (const int rule : {-1, 4}) {
    EXPECT_EQ(MessageOf<CTovikException>(
                  [&] { W::ApplyRule(static_cast<W::WhitespaceRule>(rule), u"a"); }),
              u"Unknown WhitespaceRule");
  }
}
