#include "tovikxml/values/facets.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/text.h"
#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/values/restrictions.h"
#include "tovikxml/values/variant.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;

namespace {

struct Facets {
  const wchar* pattern = u"";
  long minLength = -1;
  long maxLength = -1;
  const wchar* minInclusive = u"";
  const wchar* maxInclusive = u"";
  const wchar* minExclusive = u"";
  const wchar* maxExclusive = u"";
  long length = -1;
  long totalDigits = -1;
  long fractionDigits = -1;

  operator CPrimitiveRestrictions() const {
    return {pattern,      minLength,    maxLength, minInclusive, maxInclusive,
            minExclusive, maxExclusive, length,    totalDigits,  fractionDigits};
  }
};

// What the check says of the value with the given text: nothing if it passes.
WString Check(ItemType kind, const WString& text, const CPrimitiveRestrictions& restrictions) {
  TovikVariant value;
  value.FromString(text, kind, CWhitespaceUtils::ws_collapse);
  try {
    CheckFacets(u"e", value, kind, restrictions);
  } catch (const CTovikException& e) {
    EXPECT_EQ(typeid(e).name(), typeid(CTovikException).name());
    return e.GetMessage();
  }
  return {};
}

}  // namespace

TEST(Facets, BoundsHoldForEachKind) {
  // Four values of a kind, each below the next.
  const struct {
    ItemType kind;
    const wchar* texts[4];
    const wchar* refusal;  // of the first
  } kRows[] = {
      {it_i1, {u"-128", u"-1", u"9", u"10"}, u"[-128]"},
      {it_i2, {u"-300", u"-1", u"9", u"10"}, u"[-300]"},
      {it_i4, {u"-70000", u"-1", u"9", u"10"}, u"[-70000]"},
      {it_i8, {u"-5000000000", u"-1", u"9", u"10"}, u"[-5000000000]."},
      {it_ui1, {u"7", u"9", u"10", u"255"}, u"[7]"},
      {it_ui2, {u"7", u"9", u"10", u"65535"}, u"[7]"},
      {it_ui4, {u"7", u"9", u"10", u"4294967295"}, u"[7]"},
      {it_ui8, {u"7", u"9", u"10", u"18446744073709551615"}, u"[7]."},
      {it_r4, {u"-INF", u"-1.5", u"1e3", u"INF"}, u"[-INF]"},
      {it_r8, {u"-2.5", u"-1.5", u"1e3", u"INF"}, u"[-2.500000]"},
      {it_year, {u"0999", u"1999", u"2000", u"9999"}, u"[999]"},
      {it_month, {u"--01", u"--09", u"--10", u"--12"}, u"[1]"},
      {it_day, {u"---01", u"---09", u"---10", u"---31"}, u"[1]"},
      {it_integer, {u"-99999999999999999999", u"-1", u"9", u"10"}, u"[-99999999999999999999]."},
      {it_decimal, {u"-1.5", u"-1.05", u"9.9", u"10"}, u"[-1.5]."},
      {it_duration, {u"-P1Y", u"PT1S", u"P1D", u"P1Y"}, u"[-P1Y]."},
      {it_yearMonth, {u"-0001-01", u"1999-12", u"2000-01", u"2000-02"}, u"[-0001-01]."},
      {it_monthDay, {u"--01-01", u"--01-02", u"--02-01", u"--12-31"}, u"[--01-01]."},
      {it_date, {u"-0001-01-01", u"1999-12-31", u"2000-01-01", u"2000-02-01"}, u"[-0001-01-01]."},
      {it_datetime,
       {u"2000-01-01T00:00:00", u"2000-01-01T00:00:00.5", u"2000-01-01T01:00:00",
        u"2000-01-02T00:00:00"},
       u"[2000-01-01T00:00:00]."},
      {it_time, {u"01:00:00Z", u"02:00:00Z", u"02:00:01Z", u"23:00:00Z"}, u"[01:00:00Z]."},
  };
  for (const auto& [kind, texts, refusal] : kRows) {
    SCOPED_TRACE(kind);
    const WString spaced = u" " + WString(texts[1]) + u"\n";
    const Facets inclusive{.minInclusive = spaced.c_str(), .maxInclusive = texts[2]};
    const Facets exclusive{.minExclusive = texts[0], .maxExclusive = texts[3]};
    const Facets narrow{.minExclusive = texts[1], .maxExclusive = texts[2]};
    EXPECT_EQ(Check(kind, texts[0], inclusive), u"Invalid Value for e " + WString(refusal));
    EXPECT_EQ(Check(kind, texts[1], inclusive), u"");
    EXPECT_EQ(Check(kind, texts[2], inclusive), u"");
    EXPECT_NE(Check(kind, texts[3], inclusive), u"");
    EXPECT_EQ(Check(kind, texts[0], exclusive), u"Invalid Value for e " + WString(refusal));
    EXPECT_EQ(Check(kind, texts[1], exclusive), u"");
    EXPECT_EQ(Check(kind, texts[2], exclusive), u"");
    EXPECT_NE(Check(kind, texts[3], exclusive), u"");
    EXPECT_NE(Check(kind, texts[1], narrow), u"");
    EXPECT_NE(Check(kind, texts[2], narrow), u"");
  }
}

TEST(Facets, EachKindHasItsOwnFacets) {
  const struct {
    ItemType kind;
    const wchar* text;
    Facets facets;
    const wchar* refusal;  // behind "Invalid Value for e ", null if the value passes
  } kRows[] = {
      // Lengths in bytes and code units.
      {it_hexBinary, u"4D61", {.minLength = 2, .maxLength = 2, .length = 2}, nullptr},
      {it_hexBinary, u"4d61", {.maxLength = 1}, u"[4D61]."},
      {it_base64Binary, u"TWFu", {.minLength = 4}, u"[TWFu]."},
      {it_base64Binary, u"TWFu", {.length = 3}, nullptr},
      {it_base64Binary, u"", {.length = 0}, nullptr},
      {it_string, u"abcde", {.maxLength = 4}, u"[abcde]."},
      {it_string, u"abcde", {.minLength = 6}, u"[abcde]."},
      {it_string, u"abcde", {.length = 4}, u"[abcde]."},
      {it_string, u"\U0001F600", {.length = 2}, nullptr},
      {it_string, u"", {.minLength = 0, .maxLength = 0}, nullptr},
      // Patterns.
      {it_string, u"AB", {.pattern = u"[A-Z]+"}, nullptr},
      {it_string, u"Ab", {.pattern = u"[A-Z]+"}, u"[Ab]."},
      {it_string, u"\u00e9", {.pattern = u"\u00e9"}, nullptr},
      {it_string, u"Ab", {.pattern = u"(", .maxLength = 1}, u"[Ab]."},
      {it_i4, u"5", {.pattern = u"("}, nullptr},
      // Digits.
      {it_i4, u"-12", {.totalDigits = 2}, nullptr},
      {it_i4, u"-123", {.totalDigits = 2}, u"[-123]"},
      {it_i8, u"-9223372036854775808", {.totalDigits = 19}, nullptr},
      {it_ui8, u"18446744073709551615", {.totalDigits = 19}, u"[18446744073709551615]."},
      {it_ui1, u"0", {.totalDigits = 0}, u"[0]"},
      {it_integer, u"-0012", {.totalDigits = 2}, nullptr},
      {it_integer, u"123", {.totalDigits = 2}, u"[123]."},
      {it_decimal, u"12.50", {.totalDigits = 3, .fractionDigits = 1}, nullptr},
      {it_decimal, u"0.5", {.totalDigits = 1}, nullptr},
      {it_decimal, u"-0.05", {.totalDigits = 1}, u"[-0.05]."},
      {it_decimal, u"-12.5", {.totalDigits = 2}, u"[-12.5]."},
      {it_decimal, u"1.25", {.fractionDigits = 1}, u"[1.25]."},
      {it_decimal, u"0", {.totalDigits = 0, .fractionDigits = 0}, nullptr},
      {it_r8, u"1.25", {.totalDigits = 1, .fractionDigits = 0}, nullptr},
      {it_year, u"2000", {.totalDigits = 1}, nullptr},
      {it_boolean, u"true", {.pattern = u"x", .maxLength = 0, .totalDigits = 0}, nullptr},
      // Zeros of either sign are one number.
      {it_integer, u"-0", {.minInclusive = u"0"}, nullptr},
      {it_integer, u"-0", {.maxExclusive = u"0"}, u"[0]."},
      {it_integer, u"0", {.minExclusive = u"-0"}, u"[0]."},
      {it_decimal, u"-0.0", {.minInclusive = u"0"}, nullptr},
      {it_r8, u"-0", {.minInclusive = u"0"}, nullptr},
      // What stands in no order.
      {it_r4, u"NaN", {.maxExclusive = u"0"}, u"[NaN]"},
      {it_r8, u"NaN", {.minInclusive = u"NaN"}, u"[NaN]"},
      {it_r8, u"1", {.maxInclusive = u"NaN"}, u"[1.000000]"},
      {it_r8, u"NaN", {.totalDigits = 1}, nullptr},
      {it_duration, u"P1M", {.maxInclusive = u"P30D", .maxExclusive = u"P30D"}, nullptr},
      {it_duration, u"P1M", {.minInclusive = u"P30D", .minExclusive = u"P30D"}, nullptr},
      {it_datetime, u"2000-01-01T12:00:00", {.minExclusive = u"2000-01-01T12:00:00Z"}, nullptr},
      {it_date, u"2000-01-01+01:00", {.maxExclusive = u"2000-01-01Z"}, nullptr},
  };
  for (const auto& [kind, text, facets, refusal] : kRows) {
    SCOPED_TRACE(DisplayUtf8(FormatString(u"%d %s", static_cast<int>(kind), text)));
    EXPECT_EQ(Check(kind, text, facets),
              refusal ? u"Invalid Value for e " + WString(refusal) : WString());
  }
}

TEST(Facets, ReportPatternsThatCannotBeUsed) {
  EXPECT_EQ(Check(it_string, u"v", Facets{.pattern = u"("}),
            u"Invalid Regular Expression: v Error: 'missing closing parenthesis'\n"
            u"Invalid Value for e [v].");
  EXPECT_EQ(Check(it_string, u"v", Facets{.pattern = u"\xd800"}),
            u"Invalid Regular Expression: v Error: 'unpaired surrogate in the pattern'\n"
            u"Invalid Value for e [v].");
}

TEST(Facets, ReadBoundsInTurnAndStopAtTheFirstFailure) {
  TovikVariant value;
  value.SetI1(5);
  const Facets unreadable{.minInclusive = u"1", .maxInclusive = u"1000"};
  EXPECT_EQ(
      MessageOf<CTovikInvalidValueException>([&] { CheckFacets(u"e", value, it_i1, unreadable); }),
      u"The value [1000] is to large to fit in a i1");
  value.SetI1(0);
  EXPECT_EQ(MessageOf<CTovikException>([&] { CheckFacets(u"e", value, it_i1, unreadable); }),
            u"Invalid Value for e [0]");
}

TEST(Facets, KnowTheKindsThatHaveChecks) {
  TovikVariant value;
  value.SetChar(u'x');
  for (const int kind : {0, 22, 27, 28, 29, -1}) {
    SCOPED_TRACE(kind);
    for (const Facets& facets : {Facets{}, Facets{.totalDigits = 1}}) {
      EXPECT_EQ(MessageOf<CTovikInvalidValueException>(
                    [&] { CheckFacets(u"e", value, static_cast<ItemType>(kind), facets); }),
                u"Unknown type [char].");
    }
  }
  // Without facets nothing is asked of the value, and with some it must be there.
  value.SetNil(it_string);
  CheckFacets(u"e", value, it_string, Facets{});
  MessageOf<CTovikInvalidStateException>(
      [&] { CheckFacets(u"e", value, it_string, Facets{.length = 1}); });
  value.SetI4(1);
  MessageOf<CTovikInvalidStateException>(
      [&] { CheckFacets(u"e", value, it_string, Facets{.length = 1}); });
}
