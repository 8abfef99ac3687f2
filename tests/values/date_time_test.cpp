#include "tovikxml/values/date_time.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <vector>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/values/date_time_span.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;
using D = CDateTime;

namespace {

constexpr int kTypes = D::dt_gMonthDay + 1;

D::DTType Type(int number) {
  return static_cast<D::DTType>(number);
}

// Reads a text, and gives the name of its type and the text that is written.
WString Reread(const std::string& reader, const wchar* text) {
  if (reader == "duration") {
    CDateTimeSpan span;
    span.ParseXSDDuration(text);
    return span.ToString();
  }
  D value(2000, 1, 1);
  if (reader == "date") {
    value.ParseXSDDate(text);
  } else if (reader == "time") {
    value.ParseXSDTime(text);
  } else {
    value.ParseXSDDateTime(text);
  }
  return value.GetTypeAsString() + u" " + value.ToString();
}

}  // namespace

TEST(DateTime, TextsAreReadAndWritten) {
  ForEachRow("values/date_texts.txt", "texts",
             [](const std::string& reader, const WString& text, const WString& outcome) {
               EXPECT_EQ(Outcome([&] { return Reread(reader, text.c_str()); }), outcome);
               if (outcome[0] == u'!') return;
               const WString written = outcome.substr(outcome.find(u' ') + 1);
               EXPECT_EQ(Reread(reader, written.c_str()), outcome);
             });
}

TEST(DateTime, NullTextsAreRefused) {
  for (const auto& [reader, message] : {std::pair("datetime", u"DateTime"),
                                        {"date", u"Date"},
                                        {"time", u"Time"},
                                        {"duration", u"XSD Duration"}}) {
    EXPECT_EQ(Outcome([reader = reader] { Reread(reader, nullptr); }),
              WString(u"!InvalidValue Invalid ") + message + u" (Null String)");
  }
  D value(2000, 1, 1);
  EXPECT_THROW(value.ParseXSDDateTime(nullptr), CTovikInvalidValueException);
  EXPECT_EQ(value.GetType(), D::dt_date);
  EXPECT_THROW(value.ParseXSDDate(nullptr), CTovikInvalidValueException);
  EXPECT_EQ(value.GetType(), D::dt_yearZero);
}

TEST(DateTime, FieldsOfATextArriveInTheirPlaces) {
  const D value(u"-1234-05-06T07:08:09.010203004-11:12");
  const std::vector<int> fields = {
      value.GetYear(),       value.GetMonth(),    value.GetDay(),         value.GetHour(),
      value.GetMinute(),     value.GetSecond(),   value.GetMilliSecond(), value.GetMicroSecond(),
      value.GetNanoSecond(), value.GetZoneHour(), value.GetZoneMinute()};
  EXPECT_EQ(fields, (std::vector<int>{-1234, 5, 6, 7, 8, 9, 10, 203, 4, -11, 12}));
  EXPECT_DOUBLE_EQ(value.GetRealSecond(), 9.010203004);
}

TEST(DateTime, EachFieldBelongsToItsTypes) {
  using Use = std::function<void(D&)>;
  const WString months = u"12378", days = u"1268", timed = u"15";
  const struct {
    const wchar* name;
    WString types;  // the numbers of the types that have the field
    Use get, set;
  } rows[] = {
      {u"GetYear", u"1234", [](D& d) { d.GetYear(); }, [](D& d) { d.SetYear(1); }},
      {u"GetMonth", months, [](D& d) { d.GetMonth(); }, [](D& d) { d.SetMonth(13); }},
      {u"GetDay", days, [](D& d) { d.GetDay(); }, [](D& d) { d.SetDay(32); }},
      {u"GetHour", timed, [](D& d) { d.GetHour(); }, [](D& d) { d.SetHour(24); }},
      {u"GetMinute", timed, [](D& d) { d.GetMinute(); }, [](D& d) { d.SetMinute(60); }},
      {u"GetSecond", timed, [](D& d) { d.GetSecond(); }, [](D& d) { d.SetSecond(60); }},
      {u"GetMilliSecond", timed, [](D& d) { d.GetMilliSecond(); },
       [](D& d) { d.SetMilliSecond(1000); }},
      {u"GetMicroSecond", timed, [](D& d) { d.GetMicroSecond(); },
       [](D& d) { d.SetMicroSecond(1000); }},
      {u"GetNanoSecond", timed, [](D& d) { d.GetNanoSecond(); },
       [](D& d) { d.SetNanoSecond(1000); }},
      {u"GetRealSecond", timed, [](D& d) { d.GetRealSecond(); }, [](D& d) { d.GetRealSecond(); }},
      {u"GetDayOfWeek", u"12", [](D& d) { d.GetDayOfWeek(); }, [](D& d) { d.GetDayOfWeek(); }}};
  for (const auto& row : rows) {
    for (int type = 0; type < kTypes; ++type) {
      const bool allowed = row.types.find(static_cast<wchar>(u'0' + type)) != WString::npos;
      const WString message = FormatString(u"!InvalidState Failed to %s. Invalid Date Type: %s.",
                                           row.name, D(Type(type)).GetTypeAsString().c_str());
      for (const Use& use : {row.get, row.set}) {
        D value(Type(type));
        EXPECT_EQ(Outcome([&] { use(value); }), allowed ? u"" : message);
      }
    }
  }
  EXPECT_EQ(Outcome([] { D(D::dt_gYear).GetDayOfYear(); }),
            u"!InvalidState Failed to GetDayOfYear. Invalid Date Type: gYear.");
  EXPECT_EQ(Outcome([] { D(D::dt_date).GetDayOfYear(); }),
            u"!InvalidValue Invalid Month [0] (1 <= month <= 12)");
}

TEST(DateTime, SettersCheckTheRangeAndKeepTheType) {
  const struct {
    std::function<void(D&)> set;
    const wchar* text;
  } rows[] = {
      {[](D& d) { d.SetDate(2004, 2, 29); }, u"2004-02-29"},
      {[](D& d) { d.SetDateTime(-1, 12, 31, 23, 59, 59); }, u"-0001-12-31T23:59:59"},
      {[](D& d) { d.SetDateTime(1, 2, 3, 4, 5, 6, 7, 8, 9); }, u"0001-02-03T04:05:06.007008009"},
      {[](D& d) { d.SetTime(0, 0, 0); }, u"00:00:00"},
      {[](D& d) { d.SetTime(1, 2, 3, 0, 0, 1); }, u"01:02:03.000000001"},
      {[](D& d) { d.SetFracTime(500, 0, 0); }, u"00:00:00.5"},
      {[](D& d) { d.SetGYear(-44); }, u"-0044"},
      {[](D& d) { d.SetGYearMonth(2000, 5); }, u"2000-05"},
      {[](D& d) { d.SetGMonth(5); }, u"--05"},
      {[](D& d) { d.SetGMonthDay(2, 29); }, u"--02-29"},
      {[](D& d) { d.SetGDay(31); }, u"---31"},
      {[](D& d) { d.SetDate(2001, 2, 29); }, u"!Day [29] (1 <= day <= days in month"},
      {[](D& d) { d.SetGYear(0); }, u"!Year [0] (-9999 <= year <= 9999 && year != 0)"},
      {[](D& d) { d.SetGYear(10000); }, u"!Year [10000] (-9999 <= year <= 9999 && year != 0)"},
      {[](D& d) { d.SetTime(24, 60, 60); }, u"!Hour [24] (0 <= hour <= 23)"},
      {[](D& d) { d.SetTime(23, 60, 60); }, u"!Minute [60] (0 <= minute <= 59)"},
      {[](D& d) { d.SetTime(23, 59, 60); }, u"!Second [60] (0 <= second <= 59)"},
      {[](D& d) { d.SetFracTime(1000, 0, 0); }, u"!Milli-Second [1000] (0 <= milli <= 999)"},
      {[](D& d) { d.SetFracTime(0, 1000, 0); }, u"!Micro-Second [1000] (0 <= micro <= 999)"},
      {[](D& d) { d.SetFracTime(0, 0, 1000); }, u"!Nano-Second [1000] (0 <= nano <= 999)"},
  };
  for (const auto& row : rows) {
    D value;
    value.SetUTC();
    const WString outcome = Outcome([&] { row.set(value); });
    if (row.text[0] == u'!') {
      EXPECT_EQ(outcome, WString(u"!InvalidValue Invalid ") + (row.text + 1));
      continue;
    }
    EXPECT_EQ(value.ToString(), row.text);
    D other(value.GetType() == D::dt_time ? D::dt_date : D::dt_time);
    EXPECT_EQ(Outcome([&] { row.set(other); }),
              FormatString(u"!InvalidState Failed to copy CDateTime. Invalid Date Type: %s, "
                           u"expected: %s.",
                           value.GetTypeAsString().c_str(), other.GetTypeAsString().c_str()));
  }
  D month(D::dt_gMonth);
  month.SetMonth(13);
  EXPECT_EQ(month.GetMonth(), 13);
}

TEST(DateTime, ZonesAreHeldAndChecked) {
  D value(2000, 1, 1);
  EXPECT_FALSE(value.IsUTC() || value.HasTimeZone());
  for (const bool utc : {false, true}) {
    if (utc) value.SetUTC();
    EXPECT_EQ(Outcome([&] { value.GetZoneHour(); }), u"!InvalidState TimeZone is not been used");
    EXPECT_EQ(Outcome([&] { value.GetZoneMinute(); }), u"!InvalidState TimeZone is not been used");
  }
  EXPECT_TRUE(value.IsUTC() && !value.HasTimeZone());
  value.SetTimeZone(-23, 59);
  EXPECT_EQ(value.ToString(), u"2000-01-01-23:59");
  for (const auto& [hour, minute] : {std::pair(-24, 0), {24, 0}, {0, 60}}) {
    const auto set = [&, hour = hour, minute = minute] {
      value.SetTimeZone(static_cast<short>(hour), static_cast<unsigned char>(minute));
    };
    EXPECT_EQ(Outcome(set), FormatString(u"!InvalidValue Invalid TimeZone [%d:%d]", hour, minute));
  }
  EXPECT_EQ(value.GetZoneHour(), -23);
  value.SetUTC();
  EXPECT_EQ(value.ToString(), u"2000-01-01Z");
  value.SetDate(2000, 1, 2);
  EXPECT_FALSE(value.IsUTC());
}

TEST(DateTime, ACopyTakesATypeThatTheSourceCovers) {
  const std::map<int, WString> allowed = {{D::dt_dateTime, u"012345678"},
                                          {D::dt_date, u"0234678"},
                                          {D::dt_gYearMonth, u"0347"},
                                          {D::dt_gMonthDay, u"0678"},
                                          {D::dt_yearZero, u"0"},
                                          {D::dt_gYear, u"04"},
                                          {D::dt_time, u"05"},
                                          {D::dt_gDay, u"06"},
                                          {D::dt_gMonth, u"07"}};
  for (int from = 0; from < kTypes; ++from) {
    for (int to = 0; to < kTypes; ++to) {
      const auto copy = [&] {
        D target(D::dt_time);
        target.SetDateTime(D(Type(from)), Type(to));
        EXPECT_EQ(target.GetType(), to);
      };
      const bool covered = allowed.at(from).find(static_cast<wchar>(u'0' + to)) != WString::npos;
      const WString refusal = FormatString(
          u"!InvalidValue Attempting to set a CDateTime of type %s using an XmlDateTime of type "
          u"%s. The source CDateTime does not contian enough data to allow the conversion.",
          D(Type(to)).GetTypeAsString().c_str(), D(Type(from)).GetTypeAsString().c_str());
      EXPECT_EQ(Outcome(copy), covered ? u"" : refusal);
    }
  }
  EXPECT_EQ(Outcome([] { D::CheckConversion(Type(9), Type(1)); }),
            u"!InvalidValue Unknown date type 9.");
  EXPECT_EQ(D(Type(-1)).GetTypeAsString(), u"");

  // Fields that the new type does not use stay, and so does the zone.
  D day;
  day.SetDateTime(D(u"2000-05-06T07:08:09+01:00"), D::dt_gDay);
  EXPECT_EQ(day.ToString(), u"---06+01:00");
  D back;
  EXPECT_THROW(back.SetDateTime(day, D::dt_dateTime), CTovikInvalidValueException);
}

TEST(DateTime, OnlyTheFormatOfTheLexicalFormIsKnown) {
  const D value(2000, 1, 1);
  EXPECT_EQ(value.ToString(u"s"), u"2000-01-01");
  EXPECT_EQ(value.ToString(nullptr), u"");
  EXPECT_EQ(value.ToString(u""), u"");
  EXPECT_EQ(value.ToString(u"G"), u"");
  EXPECT_EQ(value.ToString(u"yyyy"), u"Unknown Format: yyyy");
  for (int type = 0; type < kTypes; ++type) {
    const WString empty = type == D::dt_time ? u"00:00:00" : u"Error: Date Not Set";
    EXPECT_EQ(D(Type(type)).ToString(), empty);
  }
  EXPECT_EQ(D().ToString(u"G"), u"Error: Date Not Set");
  D broken(D::dt_time);
  broken.SetHour(255);
  broken.SetMilliSecond(65535);
  EXPECT_EQ(broken.ToString(), u"255:00:00.65535");
}

TEST(DateTime, TheDayOfTheYearCountsTheLeapDay) {
  EXPECT_EQ(D(2004, 3, 1).GetDayOfYear(), 61);
  EXPECT_EQ(D(2003, 3, 1).GetDayOfYear(), 60);
  EXPECT_EQ(D(-400, 12, 31).GetDayOfYear(), 366);
  EXPECT_EQ(D(1900, 12, 31).GetDayOfYear(), 365);
}
