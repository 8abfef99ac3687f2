#ifndef TOVIKXML_VALUES_CALENDAR_H_
#define TOVIKXML_VALUES_CALENDAR_H_

#include <cstdint>

/// Whole-day arithmetic in the Gregorian calendar, which is extended to all years: the year before
/// 1 is 0, and the one before that -1. Internal. No function overflows for years and days within
/// 2^55 of zero.
namespace TovikXmlLib16 {

/// The quotient rounded down, for a positive divisor.
constexpr std::int64_t FloorDiv(std::int64_t value, std::int64_t divisor) {
  return value / divisor - (value % divisor < 0 ? 1 : 0);
}

/// The remainder that belongs to `FloorDiv`, from 0 to the divisor less 1.
constexpr std::int64_t FloorMod(std::int64_t value, std::int64_t divisor) {
  const std::int64_t rest = value % divisor;
  return rest < 0 ? rest + divisor : rest;
}

constexpr bool IsLeapYear(std::int64_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// The length of a month in its longest year; 0 unless `month` is 1 to 12.
constexpr int LongestMonth(int month) {
  constexpr int kLengths[] = {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month >= 1 && month <= 12 ? kLengths[month] : 0;
}

constexpr int DaysInMonth(std::int64_t year, int month) {
  return LongestMonth(month) - (month == 2 && !IsLeapYear(year) ? 1 : 0);
}

struct CivilDate {
  std::int64_t year;
  int month;
  int day;
};

/// The number of a date, 0 for 1970-01-01. A month outside 1 to 12 is carried into the year, and a
/// day outside its month into the months around it.
std::int64_t DaysFromCivil(std::int64_t year, std::int64_t month, std::int64_t day);

/// The date of a number.
CivilDate CivilFromDays(std::int64_t number);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_CALENDAR_H_
