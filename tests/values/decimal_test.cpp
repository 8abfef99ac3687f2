#include "tovikxml/values/decimal.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tovikxml/values/conversions.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

void ExpectParts(const CDecimal& value, const WString& integer, const WString& fraction,
                 int divider) {
  SCOPED_TRACE(DisplayUtf8(value.ToString()));
  EXPECT_EQ(value.GetIntegerPart().ToString(), integer);
  EXPECT_EQ(value.GetFractionPart().ToString(), fraction);
  EXPECT_EQ(value.GetFractionDivider(), divider);
}

// Sets the number of places for one test.
class PlacesSetting {
 public:
  explicit PlacesSetting(int places) { CDecimal::SetMaxDecimalPlaces(places); }
  ~PlacesSetting() { CDecimal::SetMaxDecimalPlaces(30); }
};

void ExpectResults(const std::string& section) {
  ForEachRow(
      "values/decimals.txt", section,
      [](const WString& a, char operation, const WString& b, const WString& result) {
        const CDecimal left(a.c_str()), right(b.c_str());
        const auto calculate = [&] {
          return operation == '+' ? left + right : operation == '-' ? left - right : left / right;
        };
        EXPECT_EQ(Outcome([&] { return calculate().ToString(); }), result);
      });
}

}  // namespace

TEST(Decimal, ArithmeticGivesTheRowsOfTheData) {
  for (const DataRow& row : RowsOf("values/decimals.txt", "arithmetic")) {
    SCOPED_TRACE(row.place);
    const CDecimal a(row.fields[0].c_str()), b(row.fields[1].c_str());
    const CDecimal results[] = {a + b, a - b, a * b, a / b};
    for (std::size_t i = 0; i < std::size(results); ++i) {
      EXPECT_EQ(results[i].ToString(), row.fields[i + 2]) << "operation " << i;
    }
    const bool below = row.fields[3].front() == u'-', equal = row.fields[3] == u"0";
    EXPECT_EQ(a < b, below);
    EXPECT_EQ(a <= b, below || equal);
    EXPECT_EQ(a > b, b < a);
    EXPECT_EQ(a >= b, b <= a);
    EXPECT_EQ(a != b, !equal);
    EXPECT_EQ(a + b - b, a);
    CDecimal c = a;
    c += b, c *= b, c -= a, c /= b;
    EXPECT_EQ(c, ((a + b) * b - a) / b);
  }
}

TEST(Decimal, ReadsTextsOrRefusesThem) {
  for (const char* const section : {"texts", "loose forms"}) {
    ForEachRow("values/decimals.txt", section, [](const WString& text, const WString& value) {
      EXPECT_EQ(Outcome([&] { return CDecimal(text.c_str()).ToString(); }), value);
    });
  }
  EXPECT_THROW(CDecimal{static_cast<const wchar*>(nullptr)}, CTovikInvalidParamException);
}

TEST(Decimal, ShowsItsParts) {
  ForEachRow("values/decimals.txt", "parts",
             [](const WString& text, const WString& integer, const WString& fraction, int divider) {
               ExpectParts(CDecimal(text.c_str()), integer, fraction, divider);
             });
  ExpectParts(CDecimal(), u"0", u"0", 1);
  ExpectParts(CDecimal(-5LL), u"-5", u"0", 1);
  ExpectParts(CDecimal(CBigInteger::Pow10(20)), u"1" + WString(20, u'0'), u"0", 1);
  ExpectParts(CDecimal(u"0.5") + CDecimal(u"1.5"), u"2", u"0", 1);
  EXPECT_LT(CDecimal(u"-0.5").GetIntegerPart(), CBigInteger());
  EXPECT_LT(CDecimal(-5L).GetFractionPart(), CBigInteger());
}

TEST(Decimal, ArithmeticKeepsThePlacesThatAreSet) {
  ExpectResults("thirty places");
  const CDecimal longer(u"1.123456789");
  {
    const PlacesSetting setting(4);
    EXPECT_EQ(CDecimal::GetMaxDecimalPlaces(), 4);
    ExpectResults("four places");
    EXPECT_EQ(longer.ToString(), u"1.123456789");
    EXPECT_EQ((longer + CDecimal(1)).ToString(), u"2.123456789");
    EXPECT_EQ((longer * CDecimal(1)).ToString(), u"1.1235");
  }
  {
    const PlacesSetting setting(0);
    ExpectResults("no places");
    ExpectParts(CDecimal(u"-2.51"), u"-3", u"0", 0);
  }
  for (const int places : {-1, 10001}) {
    EXPECT_THROW(CDecimal::SetMaxDecimalPlaces(places), CTovikInvalidParamException);
  }
  EXPECT_EQ(CDecimal::GetMaxDecimalPlaces(), 30);
}

TEST(Decimal, IncrementsHaveTheirUsualMeaning) {
  CDecimal value(u"-0.5");
  EXPECT_EQ((value++).ToString(), u"-0.5");
  EXPECT_EQ((++value).ToString(), u"1.5");
  EXPECT_EQ((value--).ToString(), u"1.5");
  EXPECT_EQ((--value).ToString(), u"-0.5");
  value += value;
  value *= value;
  value -= value.GetNegative();
  EXPECT_EQ(value.ToString(), u"2");
  value.Negate();
  EXPECT_EQ(value.ToString(), u"-2");
}

TEST(Decimal, ComparesByNumberAlone) {
  const CDecimal zero, negativeZero(u"-0.0");
  EXPECT_EQ(zero, negativeZero);
  EXPECT_FALSE(negativeZero < zero || zero > negativeZero);
  EXPECT_TRUE(negativeZero >= zero && negativeZero <= zero);
  EXPECT_EQ(CDecimal(-5), CDecimal(u"-5.0"));
  EXPECT_FALSE(CDecimal(u"-5") < CDecimal(-5) ||
               CDecimal(u"-2.5") + CDecimal(u"-2.5") > CDecimal(-5));
  EXPECT_EQ(CDecimal((u"0." + WString(31, u'9')).c_str()), CDecimal(1));  // dividers 30 and 1
  const CDecimal ascending[] = {CDecimal(-2),      CDecimal(u"-1.5"), CDecimal(u"-1.25"),
                                CDecimal(-1),      CDecimal(u"-0.5"), CDecimal(),
                                CDecimal(u"0.05"), CDecimal(u"0.5"),  CDecimal(1)};
  for (std::size_t i = 0; i < std::size(ascending); ++i) {
    for (std::size_t j = 0; j < std::size(ascending); ++j) {
      EXPECT_EQ(ascending[i] < ascending[j], i < j);
      EXPECT_EQ(ascending[i] >= ascending[j], i >= j);
    }
  }
}

TEST(Decimal, ToStringRoundsHalvesAwayFromZeroAndCuts) {
  ForEachRow("values/decimals.txt", "texts with places",
             [](const WString& value, int places, const WString& text) {
               const CDecimal number(value.c_str());
               EXPECT_EQ(Outcome([&] { return number.ToString(places); }), text);
             });
}

TEST(Decimal, ZeroKeepsASignThatNoProductOrQuotientTookAway) {
  const CDecimal negative(u"-0"), tiny(u"-1e-20");
  for (const CDecimal& value : {negative + negative, tiny * tiny.GetNegative()}) {
    EXPECT_EQ(value.ToString(), u"0");
    EXPECT_EQ(value.ToString(2), u"-0.00");
  }
  for (const CDecimal& value :
       {negative - negative, negative * CDecimal(5), CDecimal(-1) / CDecimal(u"1e40")}) {
    EXPECT_EQ(value.ToString(2), u"0.00");
  }
}

TEST(Decimal, ConvertsToWholeNumbers) {
  ForEachRow("values/decimals.txt", "whole numbers",
             [](const WString& text, const WString& integer, const WString& asLong,
                const WString& asLongLong) {
               const CDecimal value(text.c_str());
               EXPECT_EQ(value.ToBigInteger().ToString(), integer);
               EXPECT_EQ(CBigInteger(value), value.ToBigInteger());
               EXPECT_EQ(Outcome([&] { return NumberText(value.ToLong()); }), asLong);
               EXPECT_EQ(Outcome([&] { return NumberText(value.ToLongLong()); }), asLongLong);
             });
}

TEST(Decimal, ConvertsFromAndToDoubles) {
  ForEachRow("values/decimals.txt", "from doubles", [](double number, const WString& text) {
    EXPECT_EQ(Outcome([&] { return CDecimal(number).ToString(); }), text);
  });
  ForEachRow("values/decimals.txt", "to doubles", [](const WString& text, const WString& number) {
    const CDecimal value(text.c_str());
    EXPECT_EQ(Outcome([&] { return CConversions::r8ToString(value.ToDouble(), u"%.17g"); }),
              number);
  });
  constexpr double kLargest = std::numeric_limits<double>::max();
  EXPECT_EQ(CDecimal(kLargest).GetIntegerPart(), CBigInteger(kLargest));
}
