#include "tovikxml/values/big_integer.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <utility>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tovikxml/values/decimal.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;
using TovikXmlTest::Wide;

namespace {

CBigInteger Read(const std::string& text) {
  return CBigInteger(Wide(text).c_str());
}

std::string Text(const CBigInteger& value) {
  return DisplayUtf8(value.ToString());
}

WString RandomDigits(std::mt19937& random, std::size_t count) {
  WString digits(1, static_cast<wchar>(u'1' + random() % 9));
  while (digits.size() < count) digits.push_back(static_cast<wchar>(u'0' + random() % 10));
  return digits;
}

// What zeros of either sign tell apart.
bool IsBelowPositiveZero(const CBigInteger& value) {
  return value < CBigInteger();
}

}  // namespace

TEST(BigInteger, ArithmeticGivesTheRowsOfTheData) {
  for (const auto& row : TovikXmlTest::DataRows(TOVIKXML_TEST_DATA, "integers.txt")) {
    SCOPED_TRACE(row[0] + " and " + row[1]);
    const CBigInteger a = Read(row[0]), b = Read(row[1]);
    EXPECT_EQ(Text(a), row[0]);
    EXPECT_EQ(Text(a + b), row[2]);
    EXPECT_EQ(Text(a - b), row[3]);
    EXPECT_EQ(Text(a * b), row[4]);
    EXPECT_EQ(Text(a / b), row[5]);
    EXPECT_EQ(Text(a % b), row[6]);
    EXPECT_EQ(Text(a.GetAbs().SquareRoot()), row[7]);
    const bool below = row[3].front() == '-', equal = row[3] == "0";
    EXPECT_EQ(a < b, below);
    EXPECT_EQ(a <= b, below || equal);
    EXPECT_EQ(a > b, !below && !equal);
    EXPECT_EQ(a >= b, !below);
    EXPECT_EQ(a == b, equal);
    EXPECT_EQ(a != b, !equal);
    CBigInteger c = a;
    c *= b, c += a, c -= b, c /= b;
    EXPECT_EQ(c, (a * b + a - b) / b);
    c %= b;
    EXPECT_EQ(c, ((a * b + a - b) / b) % b);
  }
}

TEST(BigInteger, TextsAreReadFromTheirEnd) {
  const struct {
    const wchar* text;
    const char* value;
  } rows[] = {{u"", "0"},
              {u"   ", "0"},
              {u"-0", "0"},
              {u"-", "0"},
              {u"  -123  ", "-123"},
              {u"+5", "5"},
              {u"007", "7"},
              {u"-00000000000000000000000000012", "-12"},
              {u"1000000000", "1000000000"},
              {u"12 34", "34"},
              {u"-12 34", "-34"},
              {u"- 12", "-12"},
              {u"1-2", "2"},
              {u"12-", "0"},
              {u"12\n", "0"},
              {u"\t12", "12"},
              {u"\t-12", "12"},
              {u"1.5E3", "1500"},
              {u"2.5", "2"},
              {u"-2.51", "-3"},
              {u"1 2.", "12"}};
  for (const auto& row : rows) {
    EXPECT_EQ(Text(CBigInteger(row.text)), row.value) << DisplayUtf8(row.text);
  }
}

TEST(BigInteger, BadTextsAreRefusedAndLeaveTheValue) {
  CBigInteger value(7);
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { value.Parse(u" 12x"); }),
            u"The string representing a Decimal, contained an invalid char at position 3 [ 12x].");
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>([&] { value.Parse(nullptr); }),
            u"The text of an Integer is null");
  CBigInteger::SetMaxTextDigits(20);
  value.Parse(u"-12345678901234567890");
  for (const wchar* const text : {u"012345678901234567890", u"01234567890.1234567890"}) {
    EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { value.Parse(text); }),
              u"The number has more than 20 digits");
  }
  CBigInteger::SetMaxTextDigits(100000);
  EXPECT_EQ(value.ToString(), u"-12345678901234567890");
  EXPECT_NO_THROW(value.Parse(WString(100000, u'9').c_str()));
  EXPECT_THROW(value.Parse(WString(100001, u'9').c_str()), CTovikInvalidValueException);
}

TEST(BigInteger, NumbersOfTheLanguageComeBack) {
  using I = std::numeric_limits<std::int32_t>;
  using L = std::numeric_limits<long long>;
  for (const int number : {I::min(), -1, 0, 999999999, 1000000000, I::max()}) {
    EXPECT_EQ(static_cast<int>(CBigInteger(number)), number);
  }
  for (const long long number : {L::min(), L::max(), 0LL, 4294967296LL, -1000000000000000000LL}) {
    EXPECT_EQ(static_cast<long long>(CBigInteger(number)), number);
    EXPECT_EQ(Text(CBigInteger(number)), std::to_string(number));
  }
  EXPECT_EQ(Text(CBigInteger(~0ull)), "18446744073709551615");
  EXPECT_EQ(Text(CBigInteger(7ul)), "7");
  const wchar* const beyondInt[] = {u"2147483648", u"-2147483649", u"99999999999999999999"};
  for (const wchar* const text : beyondInt) {
    EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { (void)int(CBigInteger(text)); }),
              u"ERROR: Value out of bound of int.");
  }
  for (const wchar* const text : {u"9223372036854775808", u"-9223372036854775809",
                                  u"18446744073709551616", u"1000000000000000000000000000"}) {
    EXPECT_EQ(MessageOf<CTovikInvalidValueException>(
                  [&] { (void)static_cast<long long>(CBigInteger(text)); }),
              u"ERROR: Value out of bound of LONGLONG.");
  }
  EXPECT_EQ(CBigInteger::MAX_LONG, CBigInteger(I::max()));
  EXPECT_EQ(CBigInteger::MIN_LONG, CBigInteger(I::min()));
  EXPECT_EQ(CBigInteger::MAX_LONGLONG, CBigInteger(L::max()));
  EXPECT_EQ(CBigInteger::MIN_LONGLONG, CBigInteger(L::min()));
  EXPECT_EQ(CBigInteger::MAX_DOUBLE.ToString(), u"17" + WString(307, u'0'));
  EXPECT_EQ(CBigInteger::MIN_DOUBLE, CBigInteger::MAX_DOUBLE.GetNegative());
}

TEST(BigInteger, DoublesAreRoundedWithHalvesTowardZero) {
  const struct {
    double number;
    const char* value;
  } rows[] = {{2.5, "2"},
              {2.6, "3"},
              {-2.5, "-2"},
              {-2.6, "-3"},
              {0.5, "0"},
              {1.5, "1"},
              {0.49999999999999994, "0"},
              {-0.3, "0"},
              {4503599627370495.5, "4503599627370495"},
              {4503599627370497.0, "4503599627370497"},
              {9007199254740993e3, "9007199254740993024"},
              {-1e23, "-99999999999999991611392"},
              {18446744073709551616.0, "18446744073709551616"}};
  for (const auto& row : rows) EXPECT_EQ(Text(CBigInteger(row.number)), row.value);
  const double large = std::numeric_limits<double>::max();
  EXPECT_EQ(CBigInteger(large).ToString().substr(0, 18), u"179769313486231570");
  EXPECT_EQ(CBigInteger(large).ToString().substr(300), u"124858368");
  for (const double none :
       {std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::infinity()}) {
    EXPECT_THROW(CBigInteger{none}, CTovikInvalidValueException);
  }
}

TEST(BigInteger, ZeroKeepsTheSignItGot) {
  const CBigInteger zero, two(2);
  CBigInteger negative = zero * CBigInteger(-3);
  for (const CBigInteger& value :
       {negative, CBigInteger(u"-0"), zero.GetNegative(), CBigInteger(u"-0.5"),
        CBigInteger(-4) % two, CBigInteger(-1) / two, negative + negative}) {
    EXPECT_TRUE(IsBelowPositiveZero(value));
    EXPECT_EQ(value, zero);
    EXPECT_EQ(value.ToString(), u"0");
    EXPECT_EQ(value.SquareRoot(), zero);
  }
  for (const CBigInteger& value :
       {CBigInteger(), CBigInteger(u" "), two - two, negative + zero, negative - negative,
        negative / two, negative % two, negative.SquareRoot(), negative.GetAbs()}) {
    EXPECT_FALSE(IsBelowPositiveZero(value));
    EXPECT_EQ(value, negative);
  }
}

TEST(BigInteger, OnlyTheUnaryMinusChangesItsObject) {
  CBigInteger value(5);
  EXPECT_EQ(value.GetNegative(), CBigInteger(-5));
  EXPECT_EQ(value, CBigInteger(5));
  EXPECT_EQ(&-value, &value);
  EXPECT_EQ(value.GetAbs(), CBigInteger(5));
  EXPECT_EQ(value, CBigInteger(-5));
  value.Abs();
  value.Negate();
  EXPECT_EQ(value, CBigInteger(-5));
}

TEST(BigInteger, OperationsWithoutAResultAreRefused) {
  CBigInteger value;
  const CBigInteger zero;
  for (int i = 0; i < 2; ++i, value = CBigInteger(1)) {
    EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { (void)(value / zero); }),
              u"ERROR: Overflow in operator/.");
    EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { (void)(value % zero); }),
              u"ERROR: Overflow in operator%.");
    EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { value /= zero; }),
              u"ERROR: Overflow in operator /=.");
    EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { value %= zero; }),
              u"ERROR: Overflow in operator%=.");
  }
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([] { CBigInteger(-1).SquareRoot(); }),
            u"ERROR: Negative Number in function SquareRoot().");
  EXPECT_EQ(MessageOf<CTovikOverFlowException>([] { CBigInteger::Pow10(~0u); }),
            u"The number has too many digits");
}

TEST(BigInteger, AnOperandMayBeTheObjectItself) {
  for (const wchar* const text : {u"-12",
                                  u"-123456789012345678901234567890123456789012345678901"
                                  u"2345678901234567890"}) {
    const CBigInteger value(text);
    CBigInteger same(value);
    same += same;
    EXPECT_EQ(same, value * CBigInteger(2));
    same *= same;
    EXPECT_EQ(same, value * value * CBigInteger(4));
    auto& alias = same;
    same = alias;
    same = std::move(alias);
    EXPECT_EQ(same.SquareRoot(), value.GetAbs() * CBigInteger(2));
    same /= same;
    EXPECT_EQ(same, CBigInteger(1));
    same -= same;
    EXPECT_EQ(same, CBigInteger());
    const CBigInteger taken = std::move(same = value);
    EXPECT_EQ(taken, value);
    EXPECT_EQ(same.ToString(), u"0");
    EXPECT_EQ(same + value, value);
    EXPECT_EQ(value * same, CBigInteger(0));
  }
}

TEST(BigInteger, LongNumbersKeepTheirLaws) {
  std::mt19937 random(5);
  for (const std::size_t count : {10u, 54u, 55u, 700u, 5000u}) {
    const WString digits = RandomDigits(random, count);
    const CBigInteger a(digits.c_str());
    const CBigInteger b(RandomDigits(random, 1 + count * 2 / 3).c_str());
    EXPECT_EQ(a.ToString(), digits);
    EXPECT_EQ((a / b) * b + a % b, a);
    EXPECT_LT(a % b, b);
    EXPECT_EQ((a + b) * (a - b), a * a - b * b);
    const CBigInteger root = a.SquareRoot(), next = root + CBigInteger(1);
    EXPECT_LE(root * root, a);
    EXPECT_GT(next * next, a);
  }
  for (const unsigned int n : {0u, 1u, 8u, 9u, 10u, 5000u}) {
    EXPECT_EQ(CBigInteger::Pow10(n).ToString(), u"1" + WString(n, u'0'));
  }
}
