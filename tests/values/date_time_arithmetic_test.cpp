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
using namespace TovikXmlTest;
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

void ExpectOrder(const D& a, char order, const D& b) {
  EXPECT_EQ("=<>?"[a.CompareTo(b)], order);
  EXPECT_EQ(a == b, order == '=');
  EXPECT_EQ(a != b, order != '=');
  EXPECT_EQ(a < b, order == '<');
  EXPECT_EQ(a > b, order == '>');
  EXPECT_EQ(a <= b, order == '<' || order == '=');
  EXPECT_EQ(a >= b, order == '>' || order == '=');
}

}  // namespace

TEST(DateTimeArithmetic, AgreesWithAnotherCalendar) {
  const LocalZone local("UTC0");
  ForEachRow("values/date_arithmetic.txt", "random sums",
             [](const WString& text, const WString& span, const WString& sum, const WString& other,
                const WString& difference, int dayOfYear, int dayOfWeek, long long seconds,
                const WString& zone, const WString& normalized) {
               const D a = Value(text), zoned = Value(text + zone);
               EXPECT_EQ((a + Span(span)).ToString(), sum);
               EXPECT_EQ((a - Value(other)).ToString(), difference);
               EXPECT_EQ((Value(other) + (a - Value(other))).ToString(), text);
               EXPECT_EQ(a.GetDayOfYear(), dayOfYear);
               EXPECT_EQ(a.GetDayOfWeek(), dayOfWeek);
               EXPECT_EQ(a.GetTime(), seconds);
               EXPECT_EQ(zoned.GetNormalized().ToString(), normalized + u"+00:00");
               ExpectOrder(zoned, '=', Value(normalized + u"Z"));
             });
}

TEST(DateTimeArithmetic, DurationsMoveEveryType) {
  ForEachRow("values/date_arithmetic.txt", "sums",
             [](const WString& text, const WString& span, const WString& sum) {
               D value = Value(text);
               EXPECT_EQ(Outcome([&] { return (value + Span(span)).ToString(); }), sum);
               EXPECT_EQ(Outcome([&] { return (value += Span(span)).ToString(); }), sum);
               EXPECT_EQ(value.GetType(), Value(text).GetType());
             });
}

TEST(DateTimeArithmetic, SubtractionGoesBackWhateverTheSign) {
  for (const WString span : {u"P1Y2M3DT4H", u"-P1Y2M3DT4H"}) {
    D value(u"2000-03-01T02:00:00");
    EXPECT_EQ((value - Span(span)).ToString(), u"1998-12-28T22:00:00");
    EXPECT_EQ((value -= Span(span)).ToString(), u"1998-12-28T22:00:00");
  }
}

TEST(DateTimeArithmetic, RefusedDurationsLeaveTheValue) {
  constexpr auto k64 = std::numeric_limits<std::uint64_t>::max();
  D value(2000, 1, 1);
  CDateTimeSpan span(0, 0, 0, 0, k64, k64, 65535, 65535, 65535);
  for (int i = 0; i < 2; ++i, span.Negate()) {
    EXPECT_THROW(value += span, CTovikInvalidValueException);
    EXPECT_EQ(value.ToString(), u"2000-01-01");
  }
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
  ForEachRow("values/date_arithmetic.txt", "order",
             [](const WString& a, char order, const WString& b) {
               ExpectOrder(Value(a), order, Value(b));
               const char reverse = order == '<' ? '>' : order == '>' ? '<' : order;
               ExpectOrder(Value(b), reverse, Value(a));
               ExpectOrder(Value(a), '=', Value(a));
             });
  ExpectOrder(D(), '=', D());
  ExpectOrder(D(), '?', D(2000, 1, 1));
}

TEST(DateTimeArithmetic, NormalizesAndSubtractsComparableValues) {
  ForEachRow("values/date_arithmetic.txt", "normalized",
             [](const WString& text, const WString& normalized) {
               EXPECT_EQ(Value(text).GetNormalized().ToString(), normalized);
             });
  ForEachRow("values/date_arithmetic.txt", "differences",
             [](const WString& a, const WString& b, const WString& difference) {
               EXPECT_EQ(Outcome([&] { return (Value(a) - Value(b)).ToString(); }), difference);
             });
}

TEST(DateTimeArithmetic, PlatformTimesComeAndGo) {
  const LocalZone zone("EST5EDT");
  ForEachRow("values/date_arithmetic.txt", "seconds since 1970",
             [](const WString& text, long long seconds, int dayOfWeek) {
               const D value(text.c_str());
               EXPECT_EQ(value.GetTime(), seconds);
               EXPECT_EQ(value.GetDayOfWeek(), dayOfWeek);
               EXPECT_EQ(D(static_cast<long>(seconds)).ToString(), text);
               D assigned;
               assigned = value.GetAsSystemTime();
               EXPECT_EQ(assigned.ToString(), text);
             });
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
  EXPECT_EQ(
      Outcome([&] { date = time; }),
      u"!InvalidState Failed to copy CDateTime. Invalid Date Type: dateTime, expected: date.");
}

TEST(DateTimeArithmetic, FileTimesCountFrom1601) {
  const auto file = [](std::uint64_t ticks) {
    return FILETIME{static_cast<std::uint32_t>(ticks), static_cast<std::uint32_t>(ticks >> 32)};
  };
  EXPECT_EQ(D(file(0)).ToString(), u"1601-01-01T00:00:00");
  EXPECT_EQ(D(file(125911584009999999)).ToString(), u"2000-01-01T00:00:00.999");
  EXPECT_EQ(FileTimeToSystemTime(file(125911584000000000))->wDayOfWeek, 6);
  EXPECT_EQ(Outcome([&] { D{file(1ull << 63)}; }),
            u"!InvalidValue Failed to convert FILETIME to SYSTEMTIME");
  EXPECT_EQ(Outcome([&] { D{file((1ull << 63) - 1)}; }),
            u"!InvalidValue Invalid Year [30828] (-9999 <= year <= 9999 && year != 0)");
}

TEST(DateTimeArithmetic, TheWrongTypesForThePlatformAreRefused) {
  EXPECT_EQ(Outcome([] { D(D::dt_time).GetTime(); }),
            u"!InvalidValue Failed to GetTime, Date Status must be dateTime or date. Invalid Date "
            u"Type: time.");
  EXPECT_EQ(Outcome([] { D(2000, 1, 1).GetAsSystemTime(); }),
            u"!InvalidValue Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date "
            u"Type: date.");
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
