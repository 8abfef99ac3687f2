#include <algorithm>
#include <cstdlib>
#include <limits>
#include <tuple>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/values/calendar.h"
#include "tovikxml/values/date_time.h"
#include "tovikxml/values/date_time_fields.h"
#include "tovikxml/values/date_time_span.h"
#include "tovikxml/values/second_fraction.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::int64_t kSecondsInDay = 86'400;
constexpr std::int64_t kNanosInSecond = 1'000'000'000;

// Adds a carry and an amount to a field that counts to `divisor`, and gives the next carry. The
// amount is split first, since a sum could exceed 64 bits.
std::int64_t AddToField(int& field, std::int64_t carry, int sign, std::uint64_t amount,
                        unsigned divisor) {
  const auto whole = static_cast<std::int64_t>(amount / divisor);
  const auto rest = static_cast<std::int64_t>(amount % divisor);
  const std::int64_t sum = field + carry + sign * rest;
  field = static_cast<int>(FloorMod(sum, divisor));
  return sign * whole + FloorDiv(sum, divisor);
}

std::int64_t DaysOf(const DateTimeFields& fields) {
  return DaysFromCivil(fields.year, fields.month, fields.day);
}

// Moves by days. Without a move the day stays even if it is 0, as in a type that has none.
void AddDays(DateTimeFields& fields, std::int64_t days) {
  if (days == 0) return;
  const CivilDate date = CivilFromDays(DaysOf(fields) + days);
  fields.year = date.year;
  fields.month = date.month;
  fields.day = date.day;
}

template <class T>
CDateTime::DTCompareResult Order(const T& a, const T& b) {
  if (a < b) return CDateTime::cr_lessThan;
  return b < a ? CDateTime::cr_greaterThan : CDateTime::cr_equal;
}

CDateTime::DTCompareResult Reverse(CDateTime::DTCompareResult result) {
  if (result == CDateTime::cr_lessThan) return CDateTime::cr_greaterThan;
  if (result == CDateTime::cr_greaterThan) return CDateTime::cr_lessThan;
  return result;
}

SecondFraction FractionOf(const DateTimeFields& fields) {
  return {static_cast<std::uint16_t>(fields.milli), static_cast<std::uint16_t>(fields.micro),
          static_cast<std::uint16_t>(fields.nano)};
}

std::int64_t SecondOfDay(const DateTimeFields& fields) {
  return (fields.hour * 60 + fields.minute) * 60 + fields.second;
}

CDateTimeSpan MakeSpan(std::int64_t seconds, std::int64_t nanos) {
  const auto part = [](std::int64_t value) { return static_cast<unsigned short>(value % 1000); };
  const auto number = [](std::int64_t value) { return static_cast<unsigned long>(value); };
  return {0,
          0,
          number(seconds / kSecondsInDay),
          number(seconds / 3600 % 24),
          number(seconds / 60 % 60),
          number(seconds % 60),
          part(nanos / 1'000'000),
          part(nanos / 1000),
          part(nanos)};
}

// A platform's field as one of ours. What is too large stays too large, so that it is refused.
unsigned char Narrow(std::uint16_t value) {
  return static_cast<unsigned char>(std::min<std::uint16_t>(value, 0xFF));
}

SYSTEMTIME SystemTimeOf(const FILETIME& time) {
  if (const auto result = FileTimeToSystemTime(time)) return *result;
  throw CTovikInvalidValueException(u"Failed to convert FILETIME to SYSTEMTIME");
}

}  // namespace

void AddSpan(DateTimeFields& fields, const CDateTimeSpan& span) {
  const int sign = span.IsNegative() ? -1 : 1;
  int month = fields.month - 1;
  fields.year += AddToField(month, 0, sign, span.GetMonths(), 12) + sign * span.GetYears();
  fields.month = month + 1;
  std::int64_t carry = AddToField(fields.nano, 0, sign, span.GetNanoSeconds(), 1000);
  carry = AddToField(fields.micro, carry, sign, span.GetMicroSeconds(), 1000);
  carry = AddToField(fields.milli, carry, sign, span.GetMilliSeconds(), 1000);
  carry = AddToField(fields.second, carry, sign, span.GetSeconds(), 60);
  carry = AddToField(fields.minute, carry, sign, span.GetMinutes(), 60);
  carry = AddToField(fields.hour, carry, sign, span.GetHours(), 24);
  fields.day = std::min(fields.day, DaysInMonth(fields.year, fields.month));
  AddDays(fields, carry + sign * std::int64_t{span.GetDays()});
}

DateTimeFields CDateTime::GetFields() const {
  return {m_year,   m_month,       m_day,         m_hour,      m_minute,
          m_second, m_milliSecond, m_microSecond, m_nanoSecond};
}

// Type and zone stay.
void CDateTime::SetFields(const DateTimeFields& fields) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (fields.year < Limits::min() || fields.year > Limits::max()) {
    throw CTovikInvalidValueException(
        FormatString(u"Invalid Year [%lld] (%d <= year <= %d && year != 0)",
                     static_cast<long long>(fields.year), int{kMinYear}, int{kMaxYear}));
  }
  m_year = static_cast<std::int16_t>(fields.year);
  m_month = static_cast<std::uint8_t>(fields.month);
  m_day = static_cast<std::uint8_t>(fields.day);
  m_hour = static_cast<std::uint8_t>(fields.hour);
  m_minute = static_cast<std::uint8_t>(fields.minute);
  m_second = static_cast<std::uint8_t>(fields.second);
  m_milliSecond = static_cast<std::uint16_t>(fields.milli);
  m_microSecond = static_cast<std::uint16_t>(fields.micro);
  m_nanoSecond = static_cast<std::uint16_t>(fields.nano);
}

void CDateTime::AddDateTimeSpan(const CDateTimeSpan& span) {
  DateTimeFields fields = GetFields();
  AddSpan(fields, span);
  SetFields(fields);
}

CDateTime CDateTime::operator+(const CDateTimeSpan& span) const {
  CDateTime sum(*this);
  sum.AddDateTimeSpan(span);
  return sum;
}

const CDateTime& CDateTime::operator+=(const CDateTimeSpan& span) {
  AddDateTimeSpan(span);
  return *this;
}

CDateTime CDateTime::operator-(const CDateTimeSpan& span) const {
  return *this + span.GetAsNegative();
}

const CDateTime& CDateTime::operator-=(const CDateTimeSpan& span) {
  return *this += span.GetAsNegative();
}

CDateTime CDateTime::GetNormalized() const {
  CDateTime result(*this);
  if (!m_hasTimeZone) return result;
  CDateTimeSpan offset(static_cast<unsigned long>(std::abs(m_zoneHour)), m_zoneMinute, 0);
  if (m_zoneHour >= 0) offset.Negate();
  result += offset;
  result.SetTimeZone(0, 0);
  return result;
}

CDateTime::DTCompareResult CDateTime::CompareFields(const CDateTime& a, const CDateTime& b) {
  const DateTimeFields left = a.GetFields();
  const DateTimeFields right = b.GetFields();
  const auto fraction = [](const DateTimeFields& fields) {
    return static_cast<std::uint64_t>(fields.second) * kNanosInSecond +
           FractionOf(fields).Nanoseconds();
  };
  const struct {
    unsigned part;
    DTCompareResult order;
  } rows[] = {{kYearPart, Order(left.year, right.year)},
              {kMonthPart, Order(left.month, right.month)},
              {kDayPart, Order(left.day, right.day)},
              {kTimePart, Order(std::tuple(left.hour, left.minute, fraction(left)),
                                std::tuple(right.hour, right.minute, fraction(right)))}};
  for (const auto& row : rows) {
    const bool inLeft = PartsOf(a.m_type) & row.part;
    const bool inRight = PartsOf(b.m_type) & row.part;
    if (inLeft != inRight) return cr_indeterminate;
    if (inLeft && row.order != cr_equal) return row.order;
  }
  return cr_equal;
}

// Compares with a value that could lie in any zone from +14:00, the earliest, to -14:00.
CDateTime::DTCompareResult CDateTime::CompareZoned(const CDateTime& zoned, const CDateTime& local) {
  CDateTime bound(local);
  bound.SetTimeZone(14, 0);
  if (CompareFields(zoned, bound.GetNormalized()) == cr_lessThan) return cr_lessThan;
  bound.SetTimeZone(-14, 0);
  if (CompareFields(zoned, bound.GetNormalized()) == cr_greaterThan) return cr_greaterThan;
  return cr_indeterminate;
}

CDateTime::DTCompareResult CDateTime::CompareTo(const CDateTime& other) const {
  const CDateTime a = GetNormalized();
  const CDateTime b = other.GetNormalized();
  if (a.m_isUTC == b.m_isUTC) return CompareFields(a, b);
  try {
    return a.m_isUTC ? CompareZoned(a, b) : Reverse(CompareZoned(b, a));
  } catch (const CTovikInvalidValueException&) {
    return cr_indeterminate;
  }
}

void CDateTime::RequireComparable(const CDateTime& other) const {
  const auto isDated = [](DTType type) { return (PartsOf(type) & kDateParts) == kDateParts; };
  if (!(isDated(m_type) && isDated(other.m_type)) &&
      !(m_type == dt_time && other.m_type == dt_time)) {
    throw CTovikInvalidStateException(
        FormatString(u"Failed to subtract CDateTime. Invalid Date Types: %s, %s.", NameOf(m_type),
                     NameOf(other.m_type)));
  }
  if (m_isUTC != other.m_isUTC) {
    throw CTovikInvalidStateException(
        u"Failed to subtract CDateTime. Only one value has a TimeZone.");
  }
}

// The seconds of a value in UTC: since 1970 for a type with a date, of some one day for a time.
std::int64_t CDateTime::GetInstant() const {
  const DateTimeFields fields = GetFields();
  const int offset = (std::abs(m_zoneHour) * 60 + m_zoneMinute) * 60;
  std::int64_t seconds = m_zoneHour < 0 ? offset : -offset;
  if (PartsOf(m_type) & kTimePart) seconds += SecondOfDay(fields);
  if (m_type != dt_time) seconds += kSecondsInDay * DaysOf(fields);
  return seconds;
}

CDateTimeSpan CDateTime::operator-(const CDateTime& other) const {
  RequireComparable(other);
  const auto nanosOf = [](const CDateTime& value) {
    if (!(PartsOf(value.m_type) & kTimePart)) return std::int64_t{0};
    return static_cast<std::int64_t>(FractionOf(value.GetFields()).Nanoseconds());
  };
  std::int64_t nanos = nanosOf(*this) - nanosOf(other);
  std::int64_t seconds = GetInstant() - other.GetInstant() + FloorDiv(nanos, kNanosInSecond);
  nanos = FloorMod(nanos, kNanosInSecond);
  if (seconds >= 0) return MakeSpan(seconds, nanos);
  if (nanos != 0) {
    ++seconds;
    nanos = kNanosInSecond - nanos;
  }
  CDateTimeSpan span = MakeSpan(-seconds, nanos);
  span.Negate();
  return span;
}

long CDateTime::GetTime() const {
  if ((PartsOf(m_type) & kDateParts) != kDateParts) {
    throw CTovikInvalidValueException(
        FormatString(u"Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: "
                     u"%s.",
                     NameOf(m_type)));
  }
  using Limits = std::numeric_limits<long>;
  const DateTimeFields fields = GetNormalized().GetFields();
  const std::int64_t seconds =
      DaysOf(fields) * kSecondsInDay + (m_type == dt_dateTime ? SecondOfDay(fields) : 0);
  if (seconds < Limits::min() || seconds > Limits::max()) {
    throw CTovikInvalidValueException(
        FormatString(u"Failed to GetTime, the value [%s] is out of range.", ToString().c_str()));
  }
  return static_cast<long>(seconds);
}

unsigned char CDateTime::GetDayOfWeek() const {
  Require(kDateParts, u"GetDayOfWeek");
  return static_cast<unsigned char>(LocalDayOfWeek(GetTime()) + 1);
}

SYSTEMTIME CDateTime::GetAsSystemTime() const {
  if (m_type != dt_dateTime) {
    throw CTovikInvalidValueException(FormatString(
        u"Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: %s.",
        NameOf(m_type)));
  }
  SYSTEMTIME time;
  time.wYear = static_cast<std::uint16_t>(m_year);
  time.wMonth = m_month;
  time.wDayOfWeek = static_cast<std::uint16_t>(GetDayOfWeek() - 1);
  time.wDay = m_day;
  time.wHour = m_hour;
  time.wMinute = m_minute;
  time.wSecond = m_second;
  time.wMilliseconds = m_milliSecond;
  return time;
}

CDateTime::CDateTime(const long& seconds) {
  *this = seconds;
}

CDateTime::CDateTime(const SYSTEMTIME& time) {
  *this = time;
}

CDateTime::CDateTime(const FILETIME& time) {
  *this = time;
}

CDateTime& CDateTime::operator=(const long& seconds) {
  using Limits = std::numeric_limits<short>;
  const CivilDate date = CivilFromDays(FloorDiv(seconds, kSecondsInDay));
  const std::int64_t second = FloorMod(seconds, kSecondsInDay);
  const auto part = [](std::int64_t value) { return static_cast<unsigned char>(value); };
  // A year beyond 16 bits stays beyond the limits, so that it is refused.
  const auto year = std::clamp<std::int64_t>(date.year, Limits::min(), Limits::max());
  SetDateTime(dt_dateTime, static_cast<short>(year), part(date.month), part(date.day),
              part(second / 3600), part(second / 60 % 60), part(second % 60), 0, 0, 0);
  return *this;
}

CDateTime& CDateTime::operator=(const SYSTEMTIME& time) {
  SetDateTime(dt_dateTime, static_cast<short>(time.wYear), Narrow(time.wMonth), Narrow(time.wDay),
              Narrow(time.wHour), Narrow(time.wMinute), Narrow(time.wSecond), time.wMilliseconds, 0,
              0);
  return *this;
}

CDateTime& CDateTime::operator=(const FILETIME& time) {
  return *this = SystemTimeOf(time);
}

CDateTime CDateTime::GetTickCount() {
  return CDateTime(GetLocalTime());
}

}  // namespace TovikXmlLib16
