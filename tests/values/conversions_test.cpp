#include "tovikxml/values/conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <random>
#include <string>

#include "tests/support/text.h"
#include "tovikxml/values/big_integer.h"
#include "tovikxml/values/binary_data.h"
#include "tovikxml/values/date_time.h"
#include "tovikxml/values/date_time_span.h"
#include "tovikxml/values/decimal.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;
using C = CConversions;
using W = CWhitespaceUtils;

namespace {

template <class T>
using Reader = T (*)(const WString&, W::WhitespaceRule);

template <class T>
void ExpectRefused(Reader<T> read, const WString& text, const WString& message,
                   W::WhitespaceRule rule = W::ws_none) {
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { read(text, rule); }), message);
}

template <class T>
void ExpectLimits(Reader<T> read, WString (*write)(T)) {
  for (const T value : {std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), T(0), T(7)}) {
    const std::string digits = std::to_string(value);
    EXPECT_EQ(write(value), WString(digits.begin(), digits.end()));
    EXPECT_EQ(read(write(value), W::ws_none), value);
  }
}

const WString kNoNumber = u"] can not be converted to a ";
const WString kTooLarge = u"] is to large to fit in a ";
const WString kZero(1, u'\0');

}  // namespace

TEST(Conversions, IntegersKeepTheirLimits) {
  ExpectLimits(C::i1FromString, C::i1ToString);
  ExpectLimits(C::i2FromString, C::i2ToString);
  ExpectLimits(C::i4FromString, C::i4ToString);
  ExpectLimits(C::i8FromString, C::i8ToString);
  ExpectLimits(C::ui1FromString, C::ui1ToString);
  ExpectLimits(C::ui2FromString, C::ui2ToString);
  ExpectLimits(C::ui4FromString, C::ui4ToString);
  ExpectLimits(C::ui8FromString, C::ui8ToString);
}

TEST(Conversions, IntegersAreReadInTheMannerOfC) {
  const struct {
    WString text;
    std::int64_t value;
  } rows[] = {{u"+5", 5}, {u" \t\n\v\f\r-12", -12},   {u"000123", 123},
              {u"-0", 0}, {u"12" + kZero + u"x", 12}, {kZero + u"abc", 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(C::i8FromString(row.text, W::ws_none), row.value) << DisplayUtf8(row.text);
    EXPECT_EQ(C::i4FromString(row.text, W::ws_none), row.value) << DisplayUtf8(row.text);
    EXPECT_EQ(C::ui4FromString(row.text, W::ws_none), static_cast<std::uint32_t>(row.value));
    EXPECT_EQ(C::ui8FromString(row.text, W::ws_none), static_cast<std::uint64_t>(row.value));
  }
  EXPECT_EQ(C::ui4FromString(u"-1", W::ws_none), 4294967295u);
  EXPECT_EQ(C::ui4FromString(u"-4294967295", W::ws_none), 1u);
  EXPECT_EQ(C::ui8FromString(u"-1", W::ws_none), 18446744073709551615u);
  EXPECT_EQ(C::ui8FromString(u"-18446744073709551615", W::ws_none), 1u);
  EXPECT_EQ(C::ui1FromString(u"-4294967295", W::ws_none), 1u);
  EXPECT_EQ(C::i4FromString(u" 42 ", W::ws_collapse), 42);
}

TEST(Conversions, TextThatIsNoIntegerIsNamedByTheWiderType) {
  for (const WString bad : {u"", u"abc", u"12x", u" ", u"+", u"- 1", u"+-1", u"12 ", u"0x10",
                            u"1.0", u"1e3", u"\u0661", u"\u00a01", u"--1"}) {
    const WString start = u"The value [" + bad + kNoNumber;
    ExpectRefused(C::i1FromString, bad, start + u"i4");
    ExpectRefused(C::i2FromString, bad, start + u"i4");
    ExpectRefused(C::i4FromString, bad, start + u"i4");
    ExpectRefused(C::i8FromString, bad, start + u"i8");
    ExpectRefused(C::ui1FromString, bad, start + u"ui4");
    ExpectRefused(C::ui2FromString, bad, start + u"ui4");
    ExpectRefused(C::ui4FromString, bad, start + u"ui4");
    ExpectRefused(C::ui8FromString, bad, start + u"ui8");
  }
  ExpectRefused(C::i4FromString, u" a\tb ", u"The value [a b" + kNoNumber + u"i4", W::ws_collapse);
  ExpectRefused(C::i4FromString, u"   ", u"The value [" + kNoNumber + u"i4", W::ws_collapse);
}

TEST(Conversions, IntegersOutOfRangeAreRefused) {
  const auto refuse = [](auto read, const WString& type, std::initializer_list<WString> texts) {
    for (const WString& text : texts) {
      ExpectRefused(read, text, u"The value [" + text + kTooLarge + type);
    }
  };
  refuse(C::i1FromString, u"i1", {u"128", u"-129", u"2147483647"});
  refuse(C::i2FromString, u"i2", {u"32768", u"-32769"});
  refuse(C::i4FromString, u"i4", {u"2147483648", u"-2147483649", u"99999999999999999999x"});
  refuse(C::i8FromString, u"i8", {u"9223372036854775808", u"-9223372036854775809"});
  refuse(C::ui1FromString, u"ui1", {u"256", u"-1"});
  refuse(C::ui2FromString, u"ui2", {u"65536", u"-1"});
  refuse(C::ui4FromString, u"ui4", {u"4294967296", u"-4294967296", u"18446744073709551616"});
  refuse(C::ui8FromString, u"ui8",
         {u"18446744073709551616", u"18446744073709551620", u"-18446744073709551616",
          u"100000000000000000000000"});
  refuse(C::i1FromString, u"i4", {u"2147483648"});
  // The shorter types name the text before the rule, the wider ones the text behind it.
  ExpectRefused(C::i1FromString, u" 128 ", u"The value [ 128 " + kTooLarge + u"i1", W::ws_collapse);
  ExpectRefused(C::ui4FromString, u" 4294967296 ", u"The value [4294967296" + kTooLarge + u"ui4",
                W::ws_collapse);
}

TEST(Conversions, RealsPrintTheirSignificantDigits) {
  const struct {
    double value;
    WString r4, r8;
  } rows[] = {{1.0, u"1", u"1"},
              {0.1, u"0.1", u"0.1"},
              {-0.0, u"-0", u"-0"},
              {1234567.0, u"1234567", u"1234567"},
              {12345678.0, u"1.234568e+07", u"12345678"},
              {1e15, u"1e+15", u"1000000000000000"},
              {1e16, u"1e+16", u"1e+16"},
              {0.0001, u"0.0001", u"0.0001"},
              {0.00001, u"1e-05", u"1e-05"},
              {2.0 / 3, u"0.6666667", u"0.6666666666666666"},
              {1e300, u"INF", u"1e+300"},
              {-1e300, u"-INF", u"-1e+300"},
              {5e-324, u"0", u"4.940656458412465e-324"},
              {std::numeric_limits<double>::infinity(), u"INF", u"INF"},
              {-std::numeric_limits<double>::quiet_NaN(), u"NaN", u"NaN"}};
  for (const auto& row : rows) {
    EXPECT_EQ(C::r4ToString(static_cast<float>(row.value)), row.r4);
    EXPECT_EQ(C::r8ToString(row.value), row.r8);
    EXPECT_EQ(C::r8ToString(row.value, u""), row.r8);
  }
}

TEST(Conversions, RealsFollowAFormatAndAreCutAtTheirRoom) {
  EXPECT_EQ(C::r4ToString(0.1f, u"%.2f"), u"0.10");
  EXPECT_EQ(C::r4ToString(0.1f, u"%.10f"), u"0.1000000015");
  EXPECT_EQ(C::r8ToString(-2.5, u"<%8.3f>"), u"<  -2.500>");
  EXPECT_EQ(C::r4ToString(1, u"%32.0f"), WString(31, u' ') + u"1");
  EXPECT_EQ(C::r4ToString(1, u"%33.0f"), WString(32, u' '));
  EXPECT_EQ(C::r8ToString(1, u"%-48.0f"), u"1" + WString(47, u' '));
  EXPECT_EQ(C::r8ToString(1, u"%.60f"), u"1." + WString(46, u'0'));
  EXPECT_EQ(C::r4ToString(std::numeric_limits<float>::quiet_NaN(), u"%d"), u"NaN");
  EXPECT_EQ(C::r8ToString(-std::numeric_limits<double>::infinity(), u"%.2f"), u"-INF");
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([] { C::r8ToString(1, u"%d"); }),
            u"Invalid number format [%d]");
}

TEST(Conversions, RealsAreReadInDecimalForm) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const WString zeros(400, u'0');
  const struct {
    WString text;
    double value;
  } rows[] = {{u"1", 1},
              {u"+1.5e+3", 1500},
              {u" \v-.5", -0.5},
              {u"5.", 5},
              {u"1E-2", 0.01},
              {u"INF", kInfinity},
              {u"-INF", -kInfinity},
              {u"1.7976931348623157e308", std::numeric_limits<double>::max()},
              {u"1e309", kInfinity},
              {u"-1e309", -kInfinity},
              {u"4.9e-324", 5e-324},
              {u"2.5e-324", 5e-324},
              {u"2.4e-324", 0},
              {u"1e-99999999999999999999999", 0},
              {u"1e99999999999999999999999", kInfinity},
              {u"0e99999999999999999999999", 0},
              {u"1" + zeros, kInfinity},
              {u"0." + zeros + u"1", 0},
              {u"1" + zeros + u"e-400", 1},
              {u"0." + zeros + u"1e401", 1},
              {zeros + u".25", 0.25},
              {u"9007199254740993", 9007199254740992.0},
              {u"9007199254740993." + zeros + u"1", 9007199254740994.0},
              {u"2" + kZero + u"x", 2},
              {kZero, 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(C::r8FromString(row.text, W::ws_none), row.value) << DisplayUtf8(row.text);
  }
  EXPECT_TRUE(std::signbit(C::r8FromString(u"-0", W::ws_none)));
  EXPECT_TRUE(std::signbit(C::r8FromString(u"-1e-400", W::ws_none)));
  EXPECT_EQ(C::r4FromString(u"1e39", W::ws_none), std::numeric_limits<float>::infinity());
  EXPECT_EQ(C::r4FromString(u"0.1", W::ws_none), 0.1f);
  for (const WString text : {u"NaN", u"1.#QNAN", u"-NAN"}) {
    EXPECT_TRUE(std::isnan(C::r8FromString(text, W::ws_none)));
    EXPECT_TRUE(std::isnan(C::r4FromString(u" " + text, W::ws_collapse)));
  }
}

TEST(Conversions, TextThatIsNoRealIsRefused) {
  for (const WString bad :
       {u"",     u" ",    u"nan",   u"NAN", u"+INF", u"inf",   u"Infinity", u" INF",
        u"-NaN", u"0x10", u"0x1p3", u".",   u"e5",   u"1e",    u"1e+",      u"1.2.3",
        u"12x",  u"1 ",   u"- 1",   u"1,5", u"1d5",  u"\uff11"}) {
    ExpectRefused(C::r8FromString, bad, u"The value [" + bad + kNoNumber + u"r8");
    ExpectRefused(C::r4FromString, bad, u"The value [" + bad + kNoNumber + u"r4");
  }
}

TEST(Conversions, RandomNumbersComeBack) {
  std::mt19937_64 random(11);
  for (int i = 0; i < 2000; ++i) {
    const auto number = static_cast<std::int64_t>(random() >> (i % 64));
    EXPECT_EQ(C::i8FromString(C::i8ToString(number), W::ws_none), number);
    const double real =
        C::r8FromString(C::r8ToString(static_cast<double>(number) / 1e9), W::ws_none);
    const WString text = C::r8ToString(real);
    EXPECT_EQ(C::r8ToString(C::r8FromString(text, W::ws_none)), text);
    EXPECT_EQ(C::r8FromString(C::r8ToString(real, u"%.17g"), W::ws_none), real);
  }
}

TEST(Conversions, BooleansAreReadWithoutRegardToCase) {
  for (const WString text : {u"true", u"TRUE", u"True", u"1"}) {
    EXPECT_TRUE(C::booleanFromString(text, W::ws_none));
    EXPECT_TRUE(C::booleanFromString(u" " + text + u"\n", W::ws_collapse));
  }
  for (const WString text : {u"false", u"False", u"fALSE", u"0"}) {
    EXPECT_FALSE(C::booleanFromString(text, W::ws_none));
  }
  EXPECT_EQ(C::booleanToString(true), u"true");
  EXPECT_EQ(C::booleanToString(false), u"false");
  for (const WString bad : {u"", u" 1 ", u"yes", u"01", u"truE ", u"10", u"fal\u017fe"}) {
    ExpectRefused(C::booleanFromString, bad,
                  u"A Boolean Value read from an XML document was invalid [" + bad +
                      u"]. Valid values are 'true', 'false', '1', or '0'");
  }
  ExpectRefused(C::booleanFromString, u" no ",
                u"A Boolean Value read from an XML document was invalid [ no ]. Valid values are "
                u"'true', 'false', '1', or '0'",
                W::ws_collapse);
}

TEST(Conversions, CharsAndStringsPassThroughTheRule) {
  EXPECT_EQ(C::charFromString(u" \u4e16 ", W::ws_collapse), u'\u4e16');
  EXPECT_EQ(C::charFromString(u"\t", W::ws_replace), u' ');
  EXPECT_EQ(C::charFromString(C::charToString(u'\0'), W::ws_none), u'\0');
  const WString end = u"] can not be a char as it is either empty of greater than 1 char long";
  ExpectRefused(C::charFromString, u"\U0001F600", u"The value [\U0001F600" + end);
  ExpectRefused(C::charFromString, u"  ", u"The value [" + end, W::ws_collapse);
  EXPECT_EQ(C::stringFromString(u" a\tb ", W::ws_collapse), u"a b");
  EXPECT_EQ(C::stringFromString(u" a\tb ", W::ws_none), u" a\tb ");
  EXPECT_EQ(C::stringToString(u"a" + kZero + u"b"), u"a" + kZero + u"b");
}

TEST(Conversions, BinaryValuesFollowTheirBuffer) {
  const CBinaryData man = C::base64BinaryFromString(u" TWFu ", W::ws_collapse);
  EXPECT_EQ(C::hexBinaryToString(man), u"4D616E");
  EXPECT_EQ(C::hexBinaryFromString(u"\t4d616E", W::ws_collapse), man);
  EXPECT_EQ(C::base64BinaryToString(man), u"TWFu");
  EXPECT_EQ(MessageOf<CTovikException>([] { C::hexBinaryFromString(u"0G", W::ws_none); }),
            u"Invalid char in hex string [G]");
}

TEST(Conversions, BigNumbersFollowTheirClasses) {
  const CDecimal value = C::decimalFromString(u"\t1.005\n", W::ws_collapse);
  EXPECT_EQ(C::decimalToString(value), u"1.005");
  const struct {
    const wchar* format;
    WString text;
  } rows[] = {{u"", u"1.005"},
              {u"2", u"1.01"},
              {u" \t+1digits", u"1.0"},
              {u"x2", u"1."},
              {u"-0", u"1."},
              {u"2147483648", u"1.005"},
              {u"12", u"1.005000000000"},
              {u"99999999999999999999", u"1.005"}};
  for (const auto& row : rows) EXPECT_EQ(C::decimalToString(value, row.format), row.text);
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>([&] { C::decimalToString(value, u"-2"); }),
            u"The number of decimal places is out of range [-2]");
  EXPECT_EQ(C::integerToString(C::integerFromString(u" -12\n", W::ws_collapse)), u"-12");
  EXPECT_EQ(C::integerToString(C::integerFromString(u"12 34", W::ws_none)), u"34");
  const WString end = u"The string representing a Decimal, contained an invalid char at position 1";
  ExpectRefused(C::integerFromString, u" 1x ", end + u" [1x].", W::ws_collapse);
  ExpectRefused(C::decimalFromString, u"\t1x", end + u" [1x].", W::ws_collapse);
  ExpectRefused(C::decimalFromString, u"1\vx", end + u" [1\vx].");
}

TEST(Conversions, DatesFollowTheirClasses) {
  const struct {
    Reader<CDateTime> read;
    WString (*write)(const CDateTime&);
    WString text, type;
  } rows[] = {{C::dateFromString, C::dateToString, u"2000-01-01Z", u"date"},
              {C::dateFromString, C::dateToString, u"2000", u"gYear"},
              {C::datetimeFromString, C::datetimeToString, u"2000-01-01T12:00:00.25", u"dateTime"},
              {C::timeFromString, C::timeToString, u"12:00:00+05:30", u"time"},
              {C::yearMonthFromString, C::yearMonthToString, u"2000-05", u"gYearMonth"},
              {C::monthDayFromString, C::monthDayToString, u"--02-29", u"gMonthDay"},
              {C::monthDayFromString, C::monthDayToString, u"2000-01-01", u"date"}};
  for (const auto& row : rows) {
    const CDateTime value = row.read(u" " + row.text + u"\n", W::ws_collapse);
    EXPECT_EQ(row.write(value), row.text);
    EXPECT_EQ(value.GetTypeAsString(), row.type);
  }
  EXPECT_EQ(C::durationToString(C::durationFromString(u" PT60S ", W::ws_collapse)), u"PT60S");
  // The messages hold the text after the rule.
  ExpectRefused(C::dateFromString, u" 2000-1 ",
                u"Invalid XSD Date [2000-1] expected CCYY-MM-DD[Z|[+|-]hh:mm]", W::ws_collapse);
  ExpectRefused(C::timeFromString, u"\t1", u"Invalid XSD Time [1] expected hh:mm:ss[.ff]",
                W::ws_collapse);
  ExpectRefused(C::datetimeFromString, u" 2000 ",
                u"Invalid XSD DateTime [2000] expected CCYY-MM-DDThh:mm:ss[.ff]", W::ws_collapse);
  ExpectRefused(C::durationFromString, u"\t1",
                u"Invalid XSD Duration [\t1] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
}

TEST(Conversions, YearsMonthsAndDaysAreTheFieldsOfADate) {
  EXPECT_EQ(C::yearToString(5), u"5");
  EXPECT_EQ(C::yearToString(2000), u"2000");
  EXPECT_EQ(C::monthToString(3), u"--03");
  EXPECT_EQ(C::dayToString(9), u"---09");
  EXPECT_EQ(C::monthToString(255), u"--255");
  EXPECT_EQ(C::yearFromString(u" 2001-05 ", W::ws_collapse), 2001);
  EXPECT_EQ(C::yearFromString(u"0005Z", W::ws_none), 5);
  EXPECT_EQ(C::monthFromString(u"--12--", W::ws_none), 12);
  EXPECT_EQ(C::dayFromString(u"2000-01-31", W::ws_none), 31);
  EXPECT_EQ(MessageOf<CTovikInvalidStateException>([] { C::yearFromString(u"--05", W::ws_none); }),
            u"Failed to GetYear. Invalid Date Type: gMonth.");
  EXPECT_EQ(MessageOf<CTovikInvalidStateException>([] { C::monthFromString(u"2000", W::ws_none); }),
            u"Failed to GetMonth. Invalid Date Type: gYear.");
  EXPECT_EQ(MessageOf<CTovikInvalidStateException>([] { C::dayFromString(u"2000", W::ws_none); }),
            u"Failed to GetDay. Invalid Date Type: gYear.");
  ExpectRefused(C::yearFromString, u"-0044", u"Invalid Year [-44] (1 <= year <= 9999)");
}

TEST(Conversions, AnUnknownRulePassesThrough) {
  const auto unknown = static_cast<W::WhitespaceRule>(9);
  EXPECT_EQ(MessageOf<CTovikException>([&] { C::i4FromString(u"1", unknown); }),
            u"Unknown WhitespaceRule");
}
