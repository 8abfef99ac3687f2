#include "tovikxml/platform/clock.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace TovikXmlLib16 {
namespace {

constexpr std::uint64_t kTicksPerMillisecond = 10'000;
constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;

std::uint16_t Unsigned16(int value) {
  return static_cast<std::uint16_t>(value);
}

SYSTEMTIME MakeSystemTime(const std::tm& parts, int milliseconds) {
  SYSTEMTIME time;
  time.wYear = Unsigned16(parts.tm_year + 1900);
  time.wMonth = Unsigned16(parts.tm_mon + 1);
  time.wDayOfWeek = Unsigned16(parts.tm_wday);
  time.wDay = Unsigned16(parts.tm_mday);
  time.wHour = Unsigned16(parts.tm_hour);
  time.wMinute = Unsigned16(parts.tm_min);
  // A system that counts leap seconds may report second 60.
  time.wSecond = Unsigned16(std::min(parts.tm_sec, 59));
  time.wMilliseconds = Unsigned16(milliseconds);
  return time;
}

}  // namespace

std::optional<SYSTEMTIME> FileTimeToSystemTime(const FILETIME& time) {
  const std::uint64_t ticks = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
  if (ticks >> 63) return std::nullopt;
  const std::uint64_t milliseconds = ticks / kTicksPerMillisecond;
  const auto seconds = static_cast<std::time_t>(static_cast<std::int64_t>(milliseconds / 1000) -
                                                kSecondsFrom1601To1970);
  std::tm parts{};
  if (!gmtime_r(&seconds, &parts)) return std::nullopt;
  return MakeSystemTime(parts, static_cast<int>(milliseconds % 1000));
}

SYSTEMTIME GetLocalTime() {
  using std::chrono::milliseconds;
  const auto now = std::chrono::time_point_cast<milliseconds>(std::chrono::system_clock::now());
  const auto whole = std::chrono::floor<std::chrono::seconds>(now);
  const std::time_t seconds = std::chrono::system_clock::to_time_t(whole);
  std::tm parts{};
  localtime_r(&seconds, &parts);
  return MakeSystemTime(parts, static_cast<int>((now - whole).count()));
}

int LocalDayOfWeek(std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm parts{};
  localtime_r(&time, &parts);
  return parts.tm_wday;
}

}  // namespace TovikXmlLib16
