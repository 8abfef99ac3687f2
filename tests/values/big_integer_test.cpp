#include "tovikxml/values/big_integer.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <utility>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tovikxml/values/decimal.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

WString RandomDigits(std::mt19937& random, std::size_t count) {
  WString digits(1, static_cast<wchar>(u'1' + random() % 9));
  while (digits.size() < count) digits.push_back(static_cast<wchar>(u'0' + random() % 10));
  return digits;
}

// What zeros of either sign tell apart.
bool IsBelowPositiveZero(const CBigInteger& value) {
  return value < CBigInteger();
}

template <class Number, class Integer>
void ExpectMixes(Integer five) {
  const Number seven(7), same(five);
  EXPECT_EQ(five + (seven - five) * five - five * (five - seven) + seven, 32);
  EXPECT_EQ(same / five + five / same, 2);
  EXPECT_TRUE(same == five && five == same && seven != five && five != seven);
  EXPECT_TRUE(five < seven && five <= seven && seven > five && seven >= five);
  EXPECT_FALSE(seven < five || seven <= five || five > seven || five >= seven);
}

}  // namespace

TEST(BigInteger, ArithmeticGivesTheRowsOfTheData) {
  for (const DataRow& row : RowsOf("values/integers.txt", "arithmetic")) {
    SCOPED_TRACE(row.place);
    const CBigInteger a(row.fields[0].c_str()), b(row.fields[1].c_str());
    const CBigInteger results[] = {a + b, a - b, a * b, a / b, a % b, a.GetAbs().SquareRoot()};
    for (std::size_t i = 0; i < std::size(results); ++i) {
      EXPECT_EQ(results[i].ToString(), row.fields[i + 2]) << "operation " << i;
    }
    EXPECT_EQ(a.ToString(), row.fields[0]);
    const bool below = row.fields[3].front() == u'-', equal = row.fields[3] == u"0";
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
  ForEachRow("values/integers.txt", "texts", [](const WString& text, const WString& value) {
    EXPECT_EQ(Outcome([&] { return CBigInteger(text.c_str()).ToString(); }), value);
  });
}

TEST(BigInteger, RefusedTextsLeaveTheValue) {
  CBigInteger value(7);
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>([&] { value.Parse(nullptr); }),
            u"The text of an Integer is null");
  CBigInteger::SetMaxTextDigits(20);
  value.Parse(u"-12345678901234567890");
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { value.Parse(u"012345678901234567890"); }),
            u"The number has more than 20 digits");
  CBigInteger::SetMaxTextDigits(100000);
  EXPECT_EQ(value.ToString(), u"-12345678901234567890");
}

TEST(BigInteger, NumbersOfTheLanguageComeBack) {
  ForEachRow("values/integers.txt", "numbers of the language",
             [](const WString& text, const WString& asInt, const WString& asLongLong) {
               const CBigInteger value(text.c_str());
               EXPECT_EQ(Outcome([&] { return NumberText(int(value)); }), asInt);
               const auto number = [&] { return static_cast<long long>(value); };
               EXPECT_EQ(Outcome([&] { return NumberText(number()); }), asLongLong);
               if (asLongLong == text) {
                 EXPECT_EQ(CBigInteger(number()), value);
               }
               if (asInt == text) {
                 EXPECT_EQ(CBigInteger(int(value)), value);
               }
             });
  EXPECT_EQ(CBigInteger(~0ull).ToString(), u"18446744073709551615");
  EXPECT_EQ(CBigInteger(7ul).ToString(), u"7");
  EXPECT_EQ(CBigInteger::MAX_LONG.ToString(), u"2147483647");
  EXPECT_EQ(CBigInteger::MIN_LONG.ToString(), u"-2147483648");
  EXPECT_EQ(CBigInteger::MAX_LONGLONG.ToString(), u"9223372036854775807");
  EXPECT_EQ(CBigInteger::MIN_LONGLONG.ToString(), u"-9223372036854775808");
  EXPECT_EQ(CBigInteger::MAX_DOUBLE.ToString(), u"17" + WString(307, u'0'));
  EXPECT_EQ(CBigInteger::MIN_DOUBLE, CBigInteger::MAX_DOUBLE.GetNegative());
}

TEST(BigInteger, DoublesAreRoundedWithHalvesTowardZero) {
  ForEachRow("values/integers.txt", "doubles", [](double number, const WString& value) {
    EXPECT_EQ(Outcome([&] { return CBigInteger(number).ToString(); }), value);
  });
  const WString largest = CBigInteger(std::numeric_limits<double>::max()).ToString();
  EXPECT_EQ(largest.substr(0, 18), u"179769313486231570");
  EXPECT_EQ(largest.substr(300), u"124858368");
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

TEST(BigInteger, MixesWithBuiltInIntegersAsDecimalsDo) {
  const auto expect = [](auto... fives) {
    (ExpectMixes<CBigInteger>(fives), ...);
    (ExpectMixes<CDecimal>(fives), ...);
  };
  expect(5, 5u, 5l, 5ul, 5ll, 5ull, short{5}, static_cast<unsigned char>(5));
  EXPECT_EQ(CBigInteger(7) % 5u + 5 % CBigInteger(7), 7);
  EXPECT_EQ(CDecimal(~0u).ToString(), u"4294967295");
  EXPECT_EQ(CDecimal(~0ull).ToString(), u"18446744073709551615");
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
  const CBigInteger zero;
  for (CBigInteger value : {CBigInteger(), CBigInteger(1)}) {
    EXPECT_EQ(Outcome([&] { (void)(value / zero); }),
              u"!InvalidValue ERROR: Overflow in operator/.");
    EXPECT_EQ(Outcome([&] { (void)(value % zero); }),
              u"!InvalidValue ERROR: Overflow in operator%.");
    EXPECT_EQ(Outcome([&] { value /= zero; }), u"!InvalidValue ERROR: Overflow in operator /=.");
    EXPECT_EQ(Outcome([&] { value %= zero; }), u"!InvalidValue ERROR: Overflow in operator%=.");
  }
  EXPECT_EQ(Outcome([] { CBigInteger(-1).SquareRoot(); }),
            u"!InvalidValue ERROR: Negative Number in function SquareRoot().");
  EXPECT_EQ(Outcome([] { CBigInteger::Pow10(~0u); }), u"!OverFlow The number has too many digits");
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
