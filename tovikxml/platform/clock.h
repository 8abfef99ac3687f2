#ifndef TOVIKXML_PLATFORM_CLOCK_H_
#define TOVIKXML_PLATFORM_CLOCK_H_

#include <cstdint>
#include <optional>

#include "tovikxml/base/export.h"

/// @file
/// The records of calendar time that `CDateTime` exchanges with a platform, and the clock. All
/// functions may run on any thread.
namespace TovikXmlLib16 {

/// A date and a time of day in the Gregorian calendar, without a time zone.
struct SYSTEMTIME {
  std::uint16_t wYear = 0;
  std::uint16_t wMonth = 0;      ///< 1 to 12
  std::uint16_t wDayOfWeek = 0;  ///< 0 is Sunday
  std::uint16_t wDay = 0;        ///< 1 to 31
  std::uint16_t wHour = 0;
  std::uint16_t wMinute = 0;
  std::uint16_t wSecond = 0;
  std::uint16_t wMilliseconds = 0;
};

/// A count of 100-nanosecond intervals since 1601-01-01T00:00:00 UTC, in two halves.
struct FILETIME {
  std::uint32_t dwLowDateTime = 0;
  std::uint32_t dwHighDateTime = 0;
};

/// The calendar time in UTC; what is below a millisecond is cut. Nothing if the highest bit of the
/// count is set, as in a time that is marked invalid.
TOVIKXML_EXPORT std::optional<SYSTEMTIME> FileTimeToSystemTime(const FILETIME& time);

/// The present in the local time zone.
TOVIKXML_EXPORT SYSTEMTIME GetLocalTime();

/// The day of the week, 0 for Sunday, that the local time zone has at an instant given in seconds
/// since 1970-01-01T00:00:00 UTC.
TOVIKXML_EXPORT int LocalDayOfWeek(std::int64_t seconds);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_PLATFORM_CLOCK_H_
