#include "tovikxml/values/date_time_span.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;
using TovikXmlTest::Wide;

namespace {

CDateTimeSpan Span(const WString& text) {
  CDateTimeSpan span;
  span.ParseXSDDuration(text.c_str());
  return span;
}

char Order(const CDateTimeSpan& a, const CDateTimeSpan& b) {
  const char order = "=<>?"[a.CompareTo(b)];
  EXPECT_EQ(a == b, order == '=');
  EXPECT_EQ(a != b, order != '=');
  EXPECT_EQ(a < b, order == '<');
  EXPECT_EQ(a > b, order == '>');
  return order;
}

}  // namespace

TEST(DateTimeSpan, FieldsOfATextArriveInTheirPlaces) {
  CDateTimeSpan span = Span(u"-P1Y2M3DT4H5M6.007008009S");
  EXPECT_EQ(span.GetYears(), 1u);
  EXPECT_EQ(span.GetMonths(), 2u);
  EXPECT_EQ(span.GetDays(), 3u);
  EXPECT_EQ(span.GetHours(), 4u);
  EXPECT_EQ(span.GetMinutes(), 5u);
  EXPECT_EQ(span.GetSeconds(), 6u);
  EXPECT_EQ(span.GetMilliSeconds(), 7u);
  EXPECT_EQ(span.GetMicroSeconds(), 8u);
  EXPECT_EQ(span.GetNanoSeconds(), 9u);
  EXPECT_TRUE(span.IsNegative());
  EXPECT_TRUE(span.GetAsNegative().IsNegative());
  span.Negate();
  EXPECT_FALSE(span.IsNegative());
  EXPECT_EQ(span.GetAsNegative().ToString(), u"-P1Y2M3DT4H5M6.007008009S");
  span.ParseXSDDuration(u"PT1S");
  EXPECT_EQ(span.ToString(), u"PT1S");
}

TEST(DateTimeSpan, SettersReplaceTheWholeValue) {
  CDateTimeSpan span = Span(u"-P1Y2M3DT4H5M6.5S");
  span.SetDateTimeSpan(1, 2, 3);
  EXPECT_EQ(span.ToString(), u"PT1H2M3S");
  span.SetDateTimeSpan(1, 2, 3, 4, 5, 6, 7, 8, 9);
  EXPECT_EQ(span.ToString(), u"P1Y2M3DT4H5M6.007008009S");
  span.SetDateTimeSpan(1, 2, 3, 4, 5, 6);
  EXPECT_EQ(span.ToString(), u"P1Y2M3DT4H5M6S");
  EXPECT_EQ(CDateTimeSpan().ToString(), u"PT0S");
  if constexpr (sizeof(unsigned long) > 4) {
    EXPECT_EQ(MessageOf<CTovikOverFlowException>([] { CDateTimeSpan(4294967296, 0, 0); }),
              u"The value [4294967296] is to large to fit in a duration");
  }
}

TEST(DateTimeSpan, FractionsAboveTheirFieldsAreCarriedIntoTheText) {
  CDateTimeSpan span;
  span.SetMilliSeconds(1500);
  EXPECT_EQ(span.ToString(), u"PT1.5S");
  span.SetMicroSeconds(65535);
  span.SetNanoSeconds(1001);
  EXPECT_EQ(span.ToString(), u"PT1.565536001S");
  EXPECT_EQ(Order(span, Span(u"PT1.565536001S")), '=');
  span.SetSeconds(std::numeric_limits<std::uint64_t>::max());
  EXPECT_THROW(span.ToString(), CTovikOverFlowException);
}

TEST(DateTimeSpan, OrderHoldsFromAllReferences) {
  for (const auto& row : TovikXmlTest::DataRows(TOVIKXML_TEST_DATA, "duration_orders.txt")) {
    ASSERT_EQ(row.size(), 3u);
    EXPECT_EQ(Order(Span(Wide(row[0])), Span(Wide(row[2]))), row[1][0]) << row[0] << " " << row[2];
  }
  const struct {
    WString a;
    char order;
    WString b;
  } rows[] = {{u"P1M", '?', u"P30D"},
              {u"P1M", '?', u"P28D"},
              {u"P1M", '>', u"P27D"},
              {u"P1M", '?', u"P31D"},
              {u"P1M", '<', u"P32D"},
              {u"P1Y", '?', u"P365D"},
              {u"P1Y", '<', u"P367D"},
              {u"P1Y", '=', u"P12M"},
              {u"PT24H", '=', u"P1D"},
              {u"PT1H", '<', u"PT2H"},
              {u"PT60M", '=', u"PT1H"},
              {u"PT0.000000001S", '>', u"PT0S"},
              {u"-PT0S", '=', u"PT0S"},
              {u"-P1D", '<', u"PT0S"},
              {u"-P1M", '?', u"-P30D"},
              {u"-P1M", '<', u"-P27D"},
              {u"P40000Y", '>', u"P39999Y"},
              {u"P65535Y4294967295M", '>', u"P1Y"},
              {u"-P65535Y", '<', u"P1Y"},
              {u"PT18446744073709551615M", '>', u"P4294967295D"},
              {u"PT18446744073709551615M", '>', u"PT18446744073709551614M"}};
  for (const auto& row : rows) {
    const char reverse = row.order == '<' ? '>' : row.order == '>' ? '<' : row.order;
    EXPECT_EQ(Order(Span(row.a), Span(row.b)), row.order) << DisplayUtf8(row.a + u" " + row.b);
    EXPECT_EQ(Order(Span(row.b), Span(row.a)), reverse) << DisplayUtf8(row.b + u" " + row.a);
  }
}

TEST(DateTimeSpan, TextsAreFixedPoints) {
  std::mt19937_64 random(13);
  const auto draw = [&] { return random() % 3 ? random() >> random() % 64 : 0; };
  const auto group = [&] { return static_cast<std::uint16_t>(draw() % 1000); };
  for (int i = 0; i < 2000; ++i) {
    CDateTimeSpan span(static_cast<std::uint16_t>(draw()), static_cast<std::uint32_t>(draw()),
                       static_cast<std::uint32_t>(draw()), static_cast<std::uint32_t>(draw()),
                       draw(), draw(), group(), group(), group());
    if (random() % 2) span.Negate();
    const CDateTimeSpan read = Span(span.ToString());
    EXPECT_EQ(read.ToString(), span.ToString());
    EXPECT_EQ(read.IsNegative(), span.IsNegative());
    EXPECT_EQ(Order(read, span), '=') << DisplayUtf8(span.ToString());
  }
}
