#include "tovikxml/values/date_time_span.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

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
  const std::vector<std::uint64_t> fields = {
      span.GetYears(),        span.GetMonths(),       span.GetDays(),
      span.GetHours(),        span.GetMinutes(),      span.GetSeconds(),
      span.GetMilliSeconds(), span.GetMicroSeconds(), span.GetNanoSeconds()};
  EXPECT_EQ(fields, (std::vector<std::uint64_t>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
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
  for (const char* const section : {"order of durations", "order of random durations"}) {
    ForEachRow("values/date_arithmetic.txt", section,
               [](const WString& a, char order, const WString& b) {
                 const char reverse = order == '<' ? '>' : order == '>' ? '<' : order;
                 EXPECT_EQ(Order(Span(a), Span(b)), order);
                 EXPECT_EQ(Order(Span(b), Span(a)), reverse);
               });
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
