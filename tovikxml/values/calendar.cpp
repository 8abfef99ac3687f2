#include "tovikxml/values/calendar.h"

// Years are counted from March here, so that the leap day is the last of its year. The months from
// March on then begin at day (153 * m + 2) / 5 of the year for m = 0 to 11.

namespace TovikXmlLib16 {
namespace {

constexpr std::int64_t kDaysIn400Years = 146'097;
// From 0000-03-01 to 1970-01-01.
constexpr std::int64_t kMarchOfYearZero = 719'468;

// Days from 0000-03-01 to March 1 of a year.
std::int64_t MarchYearStart(std::int64_t year) {
  return year * 365 + FloorDiv(year, 4) - FloorDiv(year, 100) + FloorDiv(year, 400);
}

std::int64_t MarchMonthStart(std::int64_t month) {
  return (month * 153 + 2) / 5;
}

}  // namespace

std::int64_t DaysFromCivil(std::int64_t year, std::int64_t month, std::int64_t day) {
  const std::int64_t marchYear = year + FloorDiv(month - 3, 12);
  const std::int64_t marchMonth = FloorMod(month - 3, 12);
  return MarchYearStart(marchYear) + MarchMonthStart(marchMonth) + day - 1 - kMarchOfYearZero;
}

CivilDate CivilFromDays(std::int64_t number) {
  const std::int64_t shifted = number + kMarchOfYearZero;
  const std::int64_t inCycle = FloorMod(shifted, kDaysIn400Years);
  // The mean length of a year gives a guess that is right or one too high or low.
  std::int64_t year = inCycle * 400 / kDaysIn400Years;
  if (MarchYearStart(year) > inCycle) --year;
  if (MarchYearStart(year + 1) <= inCycle) ++year;
  const std::int64_t dayOfYear = inCycle - MarchYearStart(year);
  const std::int64_t month = (dayOfYear * 5 + 2) / 153;
  year += FloorDiv(shifted, kDaysIn400Years) * 400 + (month >= 10 ? 1 : 0);
  return {year, static_cast<int>(month >= 10 ? month - 9 : month + 3),
          static_cast<int>(dayOfYear - MarchMonthStart(month) + 1)};
}

}  // namespace TovikXmlLib16
