#include "tovikxml/values/decimal.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;
using TovikXmlTest::Wide;

namespace {

CDecimal Read(const std::string& text) {
  return CDecimal(Wide(text).c_str());
}

std::string Text(const CDecimal& value) {
  return DisplayUtf8(value.ToString());
}

std::string Repeat(char digit, std::size_t count) {
  return std::string(count, digit);
}

void ExpectParts(const CDecimal& value, const char* integer, const char* fraction, int divider) {
  SCOPED_TRACE(Text(value));
  EXPECT_EQ(DisplayUtf8(value.GetIntegerPart().ToString()), integer);
  EXPECT_EQ(DisplayUtf8(value.GetFractionPart().ToString()), fraction);
  EXPECT_EQ(value.GetFractionDivider(), divider);
}

// Sets the number of places for one test.
class PlacesSetting {
 public:
  explicit PlacesSetting(int places) { CDecimal::SetMaxDecimalPlaces(places); }
  ~PlacesSetting() { CDecimal::SetMaxDecimalPlaces(30); }
};

const WString kBadChar =
    u"The string representing a Decimal, contained an invalid char at position ";

}  // namespace

TEST(Decimal, GivesTheRowsOfTheData) {
  for (const auto& row : TovikXmlTest::DataRows(TOVIKXML_TEST_DATA, "decimals.txt")) {
    SCOPED_TRACE(testing::PrintToString(row));
    const CDecimal a = Read(row[0]);
    if (row.size() == 2) {
      EXPECT_EQ(Text(a), row[1]);
    } else if (row.size() == 3) {
      EXPECT_EQ(DisplayUtf8(a.ToString(std::stoi(row[1]))), row[2]);
    } else {
      const CDecimal b = Read(row[1]);
      EXPECT_EQ(Text(a + b), row[2]);
      EXPECT_EQ(Text(a - b), row[3]);
      EXPECT_EQ(Text(a * b), row[4]);
      EXPECT_EQ(Text(a / b), row[5]);
      EXPECT_EQ(a < b, row[3].front() == '-');
      EXPECT_EQ(a <= b, row[3].front() == '-' || row[3] == "0");
      EXPECT_EQ(a > b, b < a);
      EXPECT_EQ(a >= b, b <= a);
      EXPECT_EQ(a + b - b, a);
      EXPECT_EQ(a != b, row[3] != "0");
      CDecimal c = a;
      c += b, c *= b, c -= a, c /= b;
      EXPECT_EQ(c, ((a + b) * b - a) / b);
    }
  }
}

TEST(Decimal, ReadsLooseForms) {
  const std::string half = Repeat('0', 30) + "5";
  const struct {
    std::string text, value;
  } rows[] = {
      {"", "0"},
      {" ", "0"},
      {".", "0"},
      {"-", "0"},
      {"0.0", "0"},
      {"-0.00", "0"},
      {".5", "0.5"},
      {"5.", "5"},
      {"-.5", "-0.5"},
      {"-0.5", "-0.5"},
      {"1.50", "1.5"},
      {"100", "100"},
      {"00012.3400", "12.34"},
      {"1 2", "12"},
      {"1-", "-1"},
      {"-1+2", "12"},
      {"+-1\t2\r\n.\n3 4 ", "-12.34"},
      {"1.5e2", "150"},
      {"1.5E-2", "0.015"},
      {"1e 5", "100000"},
      {"1e-+ -\n2", "0.01"},
      {"1 e1", "10"},
      {"2e", "2"},
      {"2e-", "2"},
      {"e5", "0"},
      {"1e0000000000000000000000003", "1000"},
      {"1E-40", "0"},
      {"0." + Repeat('9', 31), "1"},
      {"-0." + Repeat('9', 31), "-1"},
      {"1." + half, "1"},
      {"1." + half + "1", "1." + Repeat('0', 29) + "1"},
      {"-1." + half + "01", "-1." + Repeat('0', 29) + "1"},
      {"7." + Repeat('3', 28) + "996", "7." + Repeat('3', 27) + "400"},
      {"1e-10000", "0"},
      {"1e10000", "1" + Repeat('0', 10000)},
      {Repeat('8', 2000) + "." + Repeat('7', 25), Repeat('8', 2000) + "." + Repeat('7', 25)}};
  for (const auto& row : rows) EXPECT_EQ(Text(Read(row.text)), row.value) << row.text;
}

TEST(Decimal, RefusesOtherTexts) {
  const struct {
    WString text, position;
  } rows[] = {{u"abc", u"0"},       {u"12x", u"2"},  {u"1e5 ", u"3"},   {u"1.5-", u"3"},
              {u"1.2.3", u"3"},     {u"1e5.", u"3"}, {u"1e5e5", u"3"},  {u"1ex", u"2"},
              {u" 1,5", u"2"},      {u"INF", u"0"},  {u"\u0661", u"0"}, {u"1\v", u"1"},
              {u"1e9999999x", u"9"}};
  for (const auto& row : rows) {
    EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { CDecimal{row.text.c_str()}; }),
              kBadChar + row.position + u" [" + row.text + u"].");
  }
  for (const WString text : {u"1e10001", u"0e-10001", u"1e99999999999999999999999999"}) {
    EXPECT_EQ(
        MessageOf<CTovikInvalidValueException>([&] { CDecimal{text.c_str()}; }),
        u"The string representing a Decimal, contained an exponent out of range [" + text + u"].");
  }
  const WString zeros(50001, u'0');
  EXPECT_EQ(
      MessageOf<CTovikInvalidValueException>([&] { CDecimal{(zeros + u"." + zeros).c_str()}; }),
      u"The number has more than 100000 digits");
  EXPECT_THROW(CDecimal{static_cast<const wchar*>(nullptr)}, CTovikInvalidParamException);
}

TEST(Decimal, ShowsItsParts) {
  ExpectParts(CDecimal(u"12.05"), "12", "5", 2);
  ExpectParts(CDecimal(u"-12.05"), "-12", "-5", 2);
  ExpectParts(CDecimal(u"1.50"), "1", "5", 1);
  ExpectParts(CDecimal(u"200.00"), "200", "0", 1);
  ExpectParts(CDecimal(), "0", "0", 1);
  ExpectParts(CDecimal(-5LL), "-5", "0", 1);
  ExpectParts(CDecimal(CBigInteger::Pow10(20)), "100000000000000000000", "0", 1);
  ExpectParts(CDecimal(u"0.5") + CDecimal(u"1.5"), "2", "0", 1);
  // Only this rounding comes after the zeros have gone.
  ExpectParts(Read("0." + Repeat('9', 31)), "1", "0", 30);
  EXPECT_LT(CDecimal(u"-0.5").GetIntegerPart(), CBigInteger());
  EXPECT_LT(CDecimal(-5L).GetFractionPart(), CBigInteger());
}

TEST(Decimal, ArithmeticKeepsThePlacesThatAreSet) {
  EXPECT_EQ(Text(CDecimal(1) / CDecimal(3)), "0." + Repeat('3', 30));
  EXPECT_EQ(Text(CDecimal(2) / CDecimal(3)), "0." + Repeat('6', 29) + "7");
  EXPECT_EQ(Text(CDecimal(u"0.1") + CDecimal(u"0.2")), "0.3");
  EXPECT_EQ(Text(CDecimal(u"-0.5") + CDecimal(1)), "0.5");
  EXPECT_EQ(Text(CDecimal(u"0.5") - CDecimal(1)), "-0.5");
  const CDecimal longer(u"1.123456789");
  {
    const PlacesSetting setting(4);
    EXPECT_EQ(CDecimal::GetMaxDecimalPlaces(), 4);
    EXPECT_EQ(Text(CDecimal(2) / CDecimal(3)), "0.6667");
    EXPECT_EQ(Text(CDecimal(1) / CDecimal(80000)), "0");        // 0.0000125, by two guard digits 12
    EXPECT_EQ(Text(CDecimal(1001) / CDecimal(20000000)), "0");  // 0.00005005, cut to 50
    EXPECT_EQ(Text(CDecimal(51) / CDecimal(1000000)), "0.0001");
    EXPECT_EQ(Text(CDecimal(u"5.01e-5")), "0");  // 0.0000501, cut to 50
    EXPECT_EQ(Text(CDecimal(u"5.1e-5")), "0.0001");
    EXPECT_EQ(Text(longer), "1.123456789");
    EXPECT_EQ(Text(longer + CDecimal(1)), "2.123456789");
    EXPECT_EQ(Text(longer * CDecimal(1)), "1.1235");
    EXPECT_EQ(Text(CDecimal(u"9.99999")), "10");
  }
  {
    const PlacesSetting setting(0);
    ExpectParts(CDecimal(u"2.5"), "2", "0", 0);
    ExpectParts(CDecimal(u"-2.51"), "-3", "0", 0);
    EXPECT_EQ(Text(CDecimal(8) / CDecimal(3)), "3");
    EXPECT_EQ(CDecimal(u"3.1"), CDecimal(3));
  }
  for (const int places : {-1, 10001}) {
    EXPECT_THROW(CDecimal::SetMaxDecimalPlaces(places), CTovikInvalidParamException);
  }
  EXPECT_EQ(CDecimal::GetMaxDecimalPlaces(), 30);
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { (void)(longer / CDecimal(u"-0")); }),
            u"ERROR: Overflow in operator/.");
}

TEST(Decimal, IncrementsHaveTheirUsualMeaning) {
  CDecimal value(u"-0.5");
  EXPECT_EQ(Text(value++), "-0.5");
  EXPECT_EQ(Text(++value), "1.5");
  EXPECT_EQ(Text(value--), "1.5");
  EXPECT_EQ(Text(--value), "-0.5");
  value += value;
  value *= value;
  value -= value.GetNegative();
  EXPECT_EQ(Text(value), "2");
  value.Negate();
  EXPECT_EQ(Text(value), "-2");
}

TEST(Decimal, ComparesByNumberAlone) {
  const CDecimal zero, negativeZero(u"-0.0");
  EXPECT_EQ(zero, negativeZero);
  EXPECT_FALSE(negativeZero < zero || zero > negativeZero);
  EXPECT_TRUE(negativeZero >= zero && negativeZero <= zero);
  EXPECT_EQ(CDecimal(-5), CDecimal(u"-5.0"));
  EXPECT_FALSE(CDecimal(u"-5") < CDecimal(-5) ||
               CDecimal(u"-2.5") + CDecimal(u"-2.5") > CDecimal(-5));
  EXPECT_EQ(Read("0." + Repeat('9', 31)), CDecimal(1));  // dividers 30 and 1
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
  const struct {
    const wchar* value;
    int places;
    const char* text;
  } rows[] = {{u"1.005", 2, "1.01"},
              {u"-1.005", 2, "-1.01"},
              {u"3", 2, "3.00"},
              {u"2.6", 0, "3."},
              {u"2.5", 0, "3."},
              {u"-2.4", 0, "-2."},
              {u"1.995", 2, "2.0"},
              {u"0.25", 1, "0.3"},
              {u"0", 2, "0.00"},
              {u"-0.001", 2, "-0.00"},
              {u"9.99", 1, "10.0"},
              {u"1.45", 1, "1.5"},
              {u"1.5", 29, "1.50000000000000000000000000000"},
              {u"1.5", 30, "1.5"},
              {u"3", 2147483647, "3.0"}};
  for (const auto& row : rows) {
    EXPECT_EQ(DisplayUtf8(CDecimal(row.value).ToString(row.places)), row.text);
  }
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>([] { (void)CDecimal(1).ToString(-1); }),
            u"The number of decimal places is out of range [-1]");
}

TEST(Decimal, ZeroKeepsASignThatNoProductOrQuotientTookAway) {
  const CDecimal negative(u"-0"), tiny(u"-1e-20");
  for (const CDecimal& value : {negative, negative + negative, tiny * tiny.GetNegative()}) {
    EXPECT_EQ(value.ToString(), u"0");
    EXPECT_EQ(value.ToString(2), u"-0.00");
  }
  for (const CDecimal& value : {negative - negative, negative * CDecimal(5), CDecimal(u"-0e5"),
                                CDecimal(u"-1e-40"), CDecimal(-1) / CDecimal(u"1e40")}) {
    EXPECT_EQ(value.ToString(2), u"0.00");
  }
}

TEST(Decimal, ConvertsToWholeNumbers) {
  const struct {
    const wchar* value;
    const char* integer;
    long long number;
  } rows[] = {{u"2.5", "2", 2},
              {u"2.6", "3", 2},
              {u"-2.5", "-2", -2},
              {u"0.5", "0", 0},
              {u"-0.51", "-1", 0},
              {u"12.96", "13", 13},
              {u"12.94", "13", 12},
              {u"12.951", "13", 13},
              {u"12.95", "13", 12},
              {u"-12.96", "-13", -13},
              {u"999999999.96", "1000000000", 1000000000}};
  for (const auto& row : rows) {
    const CDecimal value(row.value);
    EXPECT_EQ(DisplayUtf8(value.ToBigInteger().ToString()), row.integer);
    EXPECT_EQ(CBigInteger(value), value.ToBigInteger());
    EXPECT_EQ(std::to_string(value.ToLong()), row.integer);
    EXPECT_EQ(value.ToLongLong(), row.number);
  }
  EXPECT_EQ(CDecimal(u"2147483647.5").ToLong(), 2147483647L);
  EXPECT_EQ(CDecimal(u"-9223372036854775808.05").ToLongLong(),
            std::numeric_limits<long long>::min());
  for (const wchar* const text : {u"2147483647.51", u"-2147483649", u"1e30"}) {
    EXPECT_EQ(MessageOf<CTovikOverFlowException>([&] { (void)CDecimal(text).ToLong(); }),
              u"The Decimal value if to large to fit into a LONG");
  }
  for (const wchar* const text : {u"9223372036854775807.1", u"-9223372036854775809", u"1e30"}) {
    EXPECT_EQ(MessageOf<CTovikOverFlowException>([&] { (void)CDecimal(text).ToLongLong(); }),
              u"The Decimal value if to large to fit into a LONGLONG");
  }
}

TEST(Decimal, ConvertsFromAndToDoubles) {
  const struct {
    double number;
    const char* text;
  } rows[] = {{0.1, "0.1"},
              {-1.25, "-1.25"},
              {1e-14, "0"},
              {6e-14, "0.0000000000001"},
              {123456789.125, "123456789.125"},
              {1e23, "99999999999999991611392"}};
  for (const auto& row : rows) EXPECT_EQ(Text(CDecimal(row.number)), row.text);
  EXPECT_EQ(CDecimal(std::numeric_limits<double>::max()).GetIntegerPart(),
            CBigInteger(std::numeric_limits<double>::max()));
  EXPECT_THROW(CDecimal{std::numeric_limits<double>::infinity()}, CTovikInvalidValueException);
  EXPECT_EQ(CDecimal(u"-0.1").ToDouble(), -0.1);
  EXPECT_EQ(CDecimal(u"1.7e308").ToDouble(), 1.7e308);
  EXPECT_EQ(CDecimal(u"9007199254740993").ToDouble(), 9007199254740992.0);
  EXPECT_EQ((CDecimal(u"1.7e308") + CDecimal(u"0.5")).ToDouble(), 1.7e308);
  for (const wchar* const text : {u"1.71e308", u"-1.7000000001e308", u"1e9999"}) {
    EXPECT_EQ(MessageOf<CTovikOverFlowException>([&] { (void)CDecimal(text).ToDouble(); }),
              u"The Decimal value if to large to fit into a Double");
  }
}
