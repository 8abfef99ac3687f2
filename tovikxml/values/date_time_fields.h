#ifndef TOVIKXML_VALUES_DATE_TIME_FIELDS_H_
#define TOVIKXML_VALUES_DATE_TIME_FIELDS_H_

#include <compare>
#include <cstdint>

#include "tovikxml/values/date_time.h"

/// What the sources of `CDateTime` and `CDateTimeSpan` share. Internal.
namespace TovikXmlLib16 {

class CDateTimeSpan;

/// The parts of a value that its type uses.
enum DateTimePart : unsigned {
  kYearPart = 1,
  kMonthPart = 2,
  kDayPart = 4,
  kTimePart = 8,
  kDateParts = kYearPart | kMonthPart | kDayPart
};

/// The parts in use; none for a number outside the enumeration.
unsigned PartsOf(CDateTime::DTType type);

/// The name of a type, as messages have it; empty for a number outside the enumeration.
const wchar* NameOf(CDateTime::DTType type);

/// The fields of a date and time, wide enough for every sum of a value and a duration, and ordered
/// as on the calendar.
struct DateTimeFields {
  std::int64_t year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int milli = 0;
  int micro = 0;
  int nano = 0;

  auto operator<=>(const DateTimeFields&) const = default;
};

/// Adds a duration by the rule of XML Schema datatypes, "Adding durations to dateTimes": months
/// and years first, the day cut to the length of the month, then the rest as an exact amount of
/// time. Fields of zero take part like any other; the month of the sum is always 1 to 12.
void AddSpan(DateTimeFields& fields, const CDateTimeSpan& span);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_DATE_TIME_FIELDS_H_
