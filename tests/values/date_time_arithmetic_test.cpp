#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tovikxml/platform/clock.h"
#include "tovikxml/values/calendar.h"
#include "tovikxml/values/date_time.h"
#include "tovikxml/values/date_time_span.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;
using TovikXmlTest::Wide;
using D = CDateTime;

namespace {

// A value of the type that the text has.
D Value(const WString& text) {
  D value;
  if (text.find(u'T') != WString::npos) {
    value.ParseXSDDateTime(text.c_str());
  } else if (text.size() > 2 && text[2] == u':') {
    value.ParseXSDTime(text.c_str());
  } else {
    value.ParseXSDDate(text.c_str());
  }
  return value;
}

D Value(const std::string& text) {
  return Value(Wide(text));
}

CDateTimeSpan Span(const WString& text) {
  CDateTimeSpan span;
  span.ParseXSDDuration(text.c_str());
  return span;
}

// The local time zone of the test, in the form of POSIX.
class LocalZone {
 public:
  explicit LocalZone(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
  }
  LocalZone(const LocalZone&) = delete;
  LocalZone& operator=(const LocalZone&) = delete;
  ~LocalZone() {
    unsetenv("TZ");
    tzset();
  }
};

char Sign(D::DTCompareResult result) {
  return "=<>?"[result];
}

void ExpectOrder(const D& a, char order, const D& b) {
  EXPECT_EQ(Sign(a.CompareTo(b)), order);
  EXPECT_EQ(a == b, order == '=');
  EXPECT_EQ(a != b, order != '=');
  EXPECT_EQ(a < b, order == '<');
  EXPECT_EQ(a > b, order == '>');
  EXPECT_EQ(a <= b, order == '<' || order == '=');
  EXPECT_EQ(a >= b, order == '>' || order == '=');
}

}  // namespace

TEST(DateTimeArithmetic, AgreesWithAnotherCalendar) {
  const LocalZone zone("UTC0");
  for (const auto& row : TovikXmlTest::DataRows(TOVIKXML_TEST_DATA, "date_sums.txt")) {
    ASSERT_EQ(row.size(), 10u);
    SCOPED_TRACE(row[0] + " " + row[1] + " " + row[3] + " " + row[8]);
    const D a = Value(row[0]);
    const CDateTimeSpan span = Span(Wide(row[1]));
    EXPECT_EQ((a + span).ToString(), Wide(row[2]));
    const CDateTimeSpan difference = a - Value(row[3]);
    EXPECT_EQ(difference.ToString(), Wide(row[4]));
    EXPECT_EQ((Value(row[3]) + difference).ToString(), a.ToString());
    EXPECT_EQ(std::to_string(a.GetDayOfYear()), row[5]);
    EXPECT_EQ(std::to_string(int{a.GetDayOfWeek()}), row[6]);
    EXPECT_EQ(std::to_string(a.GetTime()), row[7]);
    const D zoned = Value(row[0] + row[8]);
    EXPECT_EQ(zoned.GetNormalized().ToString(), Wide(row[9] + "+00:00"));
    ExpectOrder(zoned, '=', Value(row[9] + "Z"));
  }
}

TEST(DateTimeArithmetic, DurationsMoveEveryType) {
  const struct {
    WString value, span, sum;
  } rows[] = {
      {u"2000-01-31", u"P1M", u"2000-02-29"},
      {u"2001-01-31", u"P1M", u"2001-02-28"},
      {u"2000-03-01", u"-P1D", u"2000-02-29"},
      {u"2001-03-01", u"-P1D", u"2001-02-28"},
      {u"2000-01-15", u"-P12M", u"1999-01-15"},
      {u"2000-01-15", u"-P13M", u"1998-12-15"},
      {u"2000-12-15", u"P12M", u"2001-12-15"},
      {u"2000-02-29", u"P4Y12M", u"2005-02-28"},
      {u"2000-12-31T23:59:59Z", u"PT1S", u"2001-01-01T00:00:00Z"},
      {u"2000-01-01T00:00:00+05:00", u"-PT0.000000001S", u"1999-12-31T23:59:59.999999999+05:00"},
      {u"2000-01-01", u"PT23H59M59S", u"2000-01-01"},
      {u"2000-01-01", u"-PT1S", u"1999-12-31"},
      // Beyond what a value may be read with, and through year zero.
      {u"9999-12-31", u"P1D", u"10000-01-01"},
      {u"-0001-12-31", u"P1D", u"0000-01-01"},
      {u"0001-01-01", u"-P366D", u"0000-01-01"},
      {u"-0004-02-28", u"P1D", u"-0004-02-29"},
      // Fields that a type lacks count as zero.
      {u"23:30:00Z", u"PT1H", u"00:30:00Z"},
      {u"00:00:00", u"-P400DT0.5S", u"23:59:59.5"},
      {u"2000-05", u"P8M", u"2001-01"},
      {u"2000-05", u"-P1D", u"2000-04"},
      {u"2000", u"P1Y", u"2000"},
      {u"2000", u"P25M", u"2002"},
      {u"--12", u"P2M", u"--02"},
      {u"--12-31", u"P1D", u"--01-01"},
      {u"--02-29", u"P1D", u"--03-01"},
      {u"---31", u"P1D", u"---01"},
      {u"---31", u"P2M", u"---29"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(DisplayUtf8(row.value + u" " + row.span));
    const CDateTimeSpan span = Span(row.span);
    D value = Value(row.value);
    EXPECT_EQ((value + span).ToString(), row.sum);
    EXPECT_EQ((value += span).ToString(), row.sum);
    EXPECT_EQ(value.GetType(), Value(row.value).GetType());
  }
}

TEST(DateTimeArithmetic, SubtractionGoesBackWhateverTheSign) {
  for (const WString span : {u"P1Y2M3DT4H", u"-P1Y2M3DT4H"}) {
    D value(u"2000-03-01T02:00:00");
    EXPECT_EQ((value - Span(span)).ToString(), u"1998-12-28T22:00:00");
    EXPECT_EQ((value -= Span(span)).ToString(), u"1998-12-28T22:00:00");
  }
}

TEST(DateTimeArithmetic, TheLargestDurationsAreExactOrRefused) {
  constexpr auto k64 = std::numeric_limits<std::uint64_t>::max();
  D value(2000, 1, 1);
  CDateTimeSpan span(0, 0, 0, 0, k64, k64, 65535, 65535, 65535);
  for (int i = 0; i < 2; ++i, span.Negate()) {
    EXPECT_THROW(value += span, CTovikInvalidValueException);
    EXPECT_EQ(value.ToString(), u"2000-01-01");
  }
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { value + Span(u"P65535Y"); }),
            u"Invalid Year [67535] (-9999 <= year <= 9999 && year != 0)");
  EXPECT_EQ((value + Span(u"P30767Y")).ToString(), u"32767-01-01");
  EXPECT_EQ((value + Span(u"-P34768Y")).ToString(), u"-32768-01-01");
}

TEST(DateTimeArithmetic, DayNumbersCountEveryDay) {
  // Against a walk over all days of 800 years, with lengths of its own.
  std::int64_t number = DaysFromCivil(-400, 1, 1);
  EXPECT_EQ(DaysFromCivil(1970, 1, 1), 0);
  EXPECT_EQ(number, -865625);
  for (int year = -400; year < 400; ++year) {
    const bool leap = year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
    for (int month = 1; month <= 12; ++month) {
      const int length = month == 2 ? (leap ? 29 : 28) : 30 + (month + month / 8) % 2;
      ASSERT_EQ(DaysInMonth(year, month), length) << year << "-" << month;
      for (int day = 1; day <= length; ++day, ++number) {
        ASSERT_EQ(DaysFromCivil(year, month, day), number);
        const CivilDate date = CivilFromDays(number);
        ASSERT_TRUE(date.year == year && date.month == month && date.day == day) << number;
      }
    }
  }
  EXPECT_EQ(DaysFromCivil(2000, 13, 1), DaysFromCivil(2001, 1, 1));
  EXPECT_EQ(DaysFromCivil(2000, 0, 32), DaysFromCivil(2000, 1, 1));
}

TEST(DateTimeArithmetic, OrderIsThatOfTheCalendar) {
  const struct {
    WString a;
    char order;
    WString b;
  } rows[] = {{u"2000-01-01T12:00:00+05:00", '=', u"2000-01-01T07:00:00Z"},
              {u"2000-01-01T00:00:00+00:30", '=', u"1999-12-31T23:30:00Z"},
              {u"2000-01-01T00:00:00Z", '>', u"2000-01-01T00:00:00+00:01"},
              {u"2000-01-01T12:00:00.000000001", '>', u"2000-01-01T12:00:00"},
              {u"2000-01-01T12:00:00.1", '>', u"2000-01-01T12:00:00.099999999"},
              {u"-0001-01-01", '<', u"2000-01-01"},
              {u"-0002-01-01", '<', u"-0001-01-01"},
              {u"--02-29", '<', u"--03-01"},
              {u"2000-01-01+14:00", '<', u"2000-01-01-10:00"},
              // One zone only: ordered beyond 14 hours either way, and at the bounds not.
              {u"2000-01-01T12:00:00Z", '?', u"2000-01-01T12:00:00"},
              {u"2000-01-01T12:00:00Z", '<', u"2000-01-02T03:00:00"},
              {u"2000-01-01T12:00:00Z", '?', u"2000-01-02T02:00:00"},
              {u"2000-01-01T12:00:00Z", '<', u"2000-01-02T02:00:00.000000001"},
              {u"2000-01-02T02:00:00Z", '?', u"2000-01-01T12:00:00"},
              {u"2000-01-02T02:00:01Z", '>', u"2000-01-01T12:00:00"},
              {u"2000-01-02T02:00:01-00:00", '>', u"2000-01-01T12:00:00"},
              // Other types: decided by the fields before the first that one of them lacks.
              {u"2000-01-01", '?', u"2000-01-01T00:00:00"},
              {u"2000-01-01", '<', u"2000-01-02T00:00:00"},
              {u"2000", '<', u"2001-01"},
              {u"2000", '?', u"2000-01"},
              {u"---01", '?', u"--01"},
              {u"12:00:00", '?', u"2000-01-01"},
              {u"12:00:00Z", '?', u"2000-01-01"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(DisplayUtf8(row.a + u" " + row.b));
    ExpectOrder(Value(row.a), row.order, Value(row.b));
    const char reverse = row.order == '<' ? '>' : row.order == '>' ? '<' : row.order;
    ExpectOrder(Value(row.b), reverse, Value(row.a));
    ExpectOrder(Value(row.a), '=', Value(row.a));
  }
  ExpectOrder(D(), '=', D());
  ExpectOrder(D(), '?', D(2000, 1, 1));
}

TEST(DateTimeArithmetic, TheZoneOfANormalizedValueIsZero) {
  for (const WString text : {u"2000-01-01T00:00:00", u"2000-01-01Z", u"12:00:00"}) {
    EXPECT_EQ(Value(text).GetNormalized().ToString(), text);
  }
  EXPECT_EQ(Value(u"00:30:00+01:00").GetNormalized().ToString(), u"23:30:00+00:00");
  EXPECT_EQ(Value(u"2000-03-01+00:01").GetNormalized().ToString(), u"2000-02-29+00:00");
  EXPECT_EQ(Value(u"---01-05:00").GetNormalized().ToString(), u"---01+00:00");
}

TEST(DateTimeArithmetic, DifferencesNeedTwoComparableValues) {
  const struct {
    WString a, b, difference;
  } rows[] = {{u"2000-03-01", u"2000-02-28", u"P2D"},
              {u"2000-02-28", u"2000-03-01", u"-P2D"},
              {u"2000-01-01", u"2000-01-01", u"PT0S"},
              {u"2000-01-02+05:00", u"2000-01-01Z", u"PT19H"},
              {u"2000-01-02", u"2000-01-01T23:59:59.999999999", u"PT0.000000001S"},
              {u"2000-01-01T23:59:59.999999999", u"2000-01-02", u"-PT0.000000001S"},
              {u"2000-01-01T00:00:00.5Z", u"2000-01-01T00:00:02.25Z", u"-PT1.75S"},
              {u"00:00:00+05:00", u"23:00:00-05:00", u"-P1DT9H"},
              {u"9999-12-31T23:59:59", u"-9999-01-01T00:00:00", u"P7304483DT23H59M59S"},
              {u"12:00:00", u"2000-01-01", u"!Invalid Date Types: time, date."},
              {u"2000-01", u"2000-01", u"!Invalid Date Types: gYearMonth, gYearMonth."},
              {u"12:00:00Z", u"12:00:00", u"!Only one value has a TimeZone."}};
  for (const auto& row : rows) {
    SCOPED_TRACE(DisplayUtf8(row.a + u" " + row.b));
    const auto subtract = [&] { return Value(row.a) - Value(row.b); };
    if (row.difference[0] == u'!') {
      EXPECT_EQ(MessageOf<CTovikInvalidStateException>(subtract),
                u"Failed to subtract CDateTime. " + row.difference.substr(1));
    } else {
      EXPECT_EQ(subtract().ToString(), row.difference);
    }
  }
}

TEST(DateTimeArithmetic, PlatformTimesComeAndGo) {
  const LocalZone zone("EST5EDT");
  const struct {
    WString text;
    long seconds;
    int dayOfWeek;  // five or four hours earlier
  } rows[] = {{u"1970-01-01T00:00:00", 0, 4},         {u"2000-01-01T05:00:00", 946702800, 7},
              {u"2000-07-01T03:59:59", 962423999, 6}, {u"2000-07-01T04:00:00", 962424000, 7},
              {u"1969-12-31T23:59:59", -1, 4},        {u"9999-12-31T23:59:59", 253402300799, 6}};
  for (const auto& row : rows) {
    const D value(row.text.c_str());
    EXPECT_EQ(value.GetTime(), row.seconds);
    EXPECT_EQ(value.GetDayOfWeek(), row.dayOfWeek) << row.seconds;
    EXPECT_EQ(D(row.seconds).ToString(), row.text);
    D assigned;
    assigned = value.GetAsSystemTime();
    EXPECT_EQ(assigned.ToString(), row.text);
  }
  // A date counts from the midnight of its normalised day.
  EXPECT_EQ(Value(u"2000-01-02+05:00").GetTime(), 946684800);
  const SYSTEMTIME time = D(u"-0001-02-03T04:05:06.007008009").GetAsSystemTime();
  EXPECT_EQ(D(time).ToString(), u"-0001-02-03T04:05:06.007");

  SYSTEMTIME far;
  far.wYear = 2000;
  far.wMonth = 257;
  far.wDay = 1;
  EXPECT_THROW(D{far}, CTovikInvalidValueException);
  for (const long seconds : {std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
    EXPECT_THROW(D{seconds}, CTovikInvalidValueException);
  }
  D date(2000, 1, 1);
  EXPECT_EQ(MessageOf<CTovikInvalidStateException>([&] { date = time; }),
            u"Failed to copy CDateTime. Invalid Date Type: dateTime, expected: date.");
}

TEST(DateTimeArithmetic, FileTimesCountFrom1601) {
  const auto file = [](std::uint64_t ticks) {
    return FILETIME{static_cast<std::uint32_t>(ticks), static_cast<std::uint32_t>(ticks >> 32)};
  };
  EXPECT_EQ(D(file(0)).ToString(), u"1601-01-01T00:00:00");
  EXPECT_EQ(D(file(125911584009999999)).ToString(), u"2000-01-01T00:00:00.999");
  EXPECT_EQ(FileTimeToSystemTime(file(125911584000000000))->wDayOfWeek, 6);
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { D{file(1ull << 63)}; }),
            u"Failed to convert FILETIME to SYSTEMTIME");
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { D{file((1ull << 63) - 1)}; }),
            u"Invalid Year [30828] (-9999 <= year <= 9999 && year != 0)");
}

TEST(DateTimeArithmetic, TheWrongTypesForThePlatformAreRefused) {
  const D time(D::dt_time);
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { time.GetTime(); }),
            u"Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: time.");
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([] { D(2000, 1, 1).GetAsSystemTime(); }),
            u"Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: date.");
}

TEST(DateTimeArithmetic, TheClockGivesLocalTime) {
  const LocalZone zone("XYZ-05:45");
  const long before = static_cast<long>(std::time(nullptr));
  const D now = D::GetTickCount();
  const long after = static_cast<long>(std::time(nullptr));
  EXPECT_FALSE(now.IsUTC());
  const long shift = (5 * 60 + 45) * 60;
  EXPECT_GE(now.GetTime(), before + shift);
  EXPECT_LE(now.GetTime(), after + shift);
}
