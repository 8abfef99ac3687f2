#include "tovikxml/values/date_time.h"

#include <iterator>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/values/calendar.h"
#include "tovikxml/values/date_time_fields.h"

namespace TovikXmlLib16 {
namespace {

struct TypeRow {
  const wchar* name;
  unsigned parts;
};

// By the number of the type.
constexpr TypeRow kTypes[] = {{u"yearZero", 0},
                              {u"dateTime", kDateParts | kTimePart},
                              {u"date", kDateParts},
                              {u"gYearMonth", kYearPart | kMonthPart},
                              {u"gYear", kYearPart},
                              {u"time", kTimePart},
                              {u"gDay", kDayPart},
                              {u"gMonth", kMonthPart},
                              {u"gMonthDay", kMonthPart | kDayPart}};

constexpr bool IsKnown(CDateTime::DTType type) {
  return static_cast<unsigned>(type) < std::size(kTypes);
}

[[noreturn]] void ThrowInvalid(const wchar* format, int value) {
  throw CTovikInvalidValueException(FormatString(format, value));
}

void RequireUnused(int value, const wchar* field, CDateTime::DTType type) {
  if (value == 0) return;
  throw CTovikInvalidValueException(
      FormatString(u"Invalid %s [%d] for type %s", field, value, NameOf(type)));
}

}  // namespace

unsigned PartsOf(CDateTime::DTType type) {
  return IsKnown(type) ? kTypes[type].parts : 0;
}

const wchar* NameOf(CDateTime::DTType type) {
  return IsKnown(type) ? kTypes[type].name : u"";
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day) {
  SetDate(year, month, day);
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second) {
  SetDateTime(year, month, day, hour, minute, second);
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second, unsigned short milli,
                     unsigned short micro, unsigned short nano) {
  SetDateTime(year, month, day, hour, minute, second, milli, micro, nano);
}

CDateTime::CDateTime(const wchar* text) {
  ParseXSDDateTime(text);
}

WString CDateTime::GetTypeAsString() const {
  return GetTypeAsString(m_type);
}

WString CDateTime::GetTypeAsString(DTType type) {
  return NameOf(type);
}

void CDateTime::Require(unsigned parts, const wchar* operation) const {
  if ((PartsOf(m_type) & parts) == parts) return;
  throw CTovikInvalidStateException(
      FormatString(u"Failed to %s. Invalid Date Type: %s.", operation, NameOf(m_type)));
}

short CDateTime::GetYear() const {
  Require(kYearPart, u"GetYear");
  return m_year;
}

unsigned char CDateTime::GetMonth() const {
  Require(kMonthPart, u"GetMonth");
  return m_month;
}

unsigned char CDateTime::GetDay() const {
  Require(kDayPart, u"GetDay");
  return m_day;
}

unsigned char CDateTime::GetHour() const {
  Require(kTimePart, u"GetHour");
  return m_hour;
}

unsigned char CDateTime::GetMinute() const {
  Require(kTimePart, u"GetMinute");
  return m_minute;
}

unsigned char CDateTime::GetSecond() const {
  Require(kTimePart, u"GetSecond");
  return m_second;
}

unsigned short CDateTime::GetMilliSecond() const {
  Require(kTimePart, u"GetMilliSecond");
  return m_milliSecond;
}

unsigned short CDateTime::GetMicroSecond() const {
  Require(kTimePart, u"GetMicroSecond");
  return m_microSecond;
}

unsigned short CDateTime::GetNanoSecond() const {
  Require(kTimePart, u"GetNanoSecond");
  return m_nanoSecond;
}

void CDateTime::SetYear(short year) {
  Require(kYearPart, u"GetYear");
  m_year = year;
}

void CDateTime::SetMonth(unsigned char month) {
  Require(kMonthPart, u"GetMonth");
  m_month = month;
}

void CDateTime::SetDay(unsigned char day) {
  Require(kDayPart, u"GetDay");
  m_day = day;
}

void CDateTime::SetHour(unsigned char hour) {
  Require(kTimePart, u"GetHour");
  m_hour = hour;
}

void CDateTime::SetMinute(unsigned char minute) {
  Require(kTimePart, u"GetMinute");
  m_minute = minute;
}

void CDateTime::SetSecond(unsigned char second) {
  Require(kTimePart, u"GetSecond");
  m_second = second;
}

void CDateTime::SetMilliSecond(unsigned short milli) {
  Require(kTimePart, u"GetMilliSecond");
  m_milliSecond = milli;
}

void CDateTime::SetMicroSecond(unsigned short micro) {
  Require(kTimePart, u"GetMicroSecond");
  m_microSecond = micro;
}

void CDateTime::SetNanoSecond(unsigned short nano) {
  Require(kTimePart, u"GetNanoSecond");
  m_nanoSecond = nano;
}

double CDateTime::GetRealSecond() const {
  Require(kTimePart, u"GetRealSecond");
  return m_second + m_milliSecond * 0.001 + m_microSecond * 1e-6 + m_nanoSecond * 1e-9;
}

unsigned short CDateTime::GetDayOfYear() const {
  Require(kDateParts, u"GetDayOfYear");
  ValidateMonth();
  const std::int64_t before = DaysFromCivil(m_year, m_month, 1) - DaysFromCivil(m_year, 1, 1);
  return static_cast<unsigned short>(before + m_day);
}

short CDateTime::GetZoneHour() const {
  if (!m_hasTimeZone) throw CTovikInvalidStateException(u"TimeZone is not been used");
  return m_zoneHour;
}

unsigned char CDateTime::GetZoneMinute() const {
  if (!m_hasTimeZone) throw CTovikInvalidStateException(u"TimeZone is not been used");
  return m_zoneMinute;
}

void CDateTime::SetUTC() {
  m_isUTC = true;
  m_hasTimeZone = false;
  m_zoneHour = 0;
  m_zoneMinute = 0;
}

void CDateTime::SetTimeZone(short hour, unsigned char minute) {
  if (hour < -23 || hour > 23 || minute > 59) {
    throw CTovikInvalidValueException(
        FormatString(u"Invalid TimeZone [%d:%d]", int{hour}, int{minute}));
  }
  m_isUTC = true;
  m_hasTimeZone = true;
  m_zoneHour = hour;
  m_zoneMinute = minute;
}

void CDateTime::SetDate(short year, unsigned char month, unsigned char day) {
  SetDateTime(dt_date, year, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second) {
  SetDateTime(dt_dateTime, year, month, day, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second, unsigned short milli,
                            unsigned short micro, unsigned short nano) {
  SetDateTime(dt_dateTime, year, month, day, hour, minute, second, milli, micro, nano);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second) {
  SetDateTime(dt_time, 0, 0, 0, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second,
                        unsigned short milli, unsigned short micro, unsigned short nano) {
  SetDateTime(dt_time, 0, 0, 0, hour, minute, second, milli, micro, nano);
}

void CDateTime::SetFracTime(unsigned short milli, unsigned short micro, unsigned short nano) {
  SetDateTime(dt_time, 0, 0, 0, 0, 0, 0, milli, micro, nano);
}

void CDateTime::SetGYear(short year) {
  SetDateTime(dt_gYear, year, 0, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGYearMonth(short year, unsigned char month) {
  SetDateTime(dt_gYearMonth, year, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonth(unsigned char month) {
  SetDateTime(dt_gMonth, 0, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonthDay(unsigned char month, unsigned char day) {
  SetDateTime(dt_gMonthDay, 0, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGDay(unsigned char day) {
  SetDateTime(dt_gDay, 0, 0, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetDateTime(DTType type, short year, unsigned char month, unsigned char day,
                            unsigned char hour, unsigned char minute, unsigned char second,
                            unsigned short milli, unsigned short micro, unsigned short nano) {
  if (m_type != dt_yearZero && m_type != type) {
    throw CTovikInvalidStateException(
        FormatString(u"Failed to copy CDateTime. Invalid Date Type: %s, expected: %s.",
                     NameOf(type), NameOf(m_type)));
  }
  *this = CDateTime(type);
  m_year = year;
  m_month = month;
  m_day = day;
  m_hour = hour;
  m_minute = minute;
  m_second = second;
  m_milliSecond = milli;
  m_microSecond = micro;
  m_nanoSecond = nano;
  Validate();
}

void CDateTime::SetDateTime(const CDateTime& source, DTType type) {
  if (!CheckConversion(source.m_type, type)) {
    throw CTovikInvalidValueException(
        FormatString(u"Attempting to set a CDateTime of type %s using an XmlDateTime of type %s. "
                     u"The source CDateTime does not contian enough data to allow the conversion.",
                     NameOf(type), NameOf(source.m_type)));
  }
  *this = source;
  m_type = type;
}

bool CDateTime::CheckConversion(DTType from, DTType to) {
  if (to == from || to == dt_yearZero) return true;
  if (!IsKnown(from)) ThrowInvalid(u"Unknown date type %d.", from);
  if (from == dt_dateTime) return true;
  const unsigned wanted = PartsOf(to);
  return wanted != 0 && (PartsOf(from) & wanted) == wanted;
}

void CDateTime::Validate() const {
  if (m_type == dt_yearZero) throw CTovikInvalidValueException(u"Invalid Year Zero");
  ValidateMonth();
  ValidateYear();
  ValidateDay();
  ValidateTime();
}

void CDateTime::ValidateMonth() const {
  if (!(PartsOf(m_type) & kMonthPart)) {
    RequireUnused(m_month, u"Month", m_type);
  } else if (m_month < 1 || m_month > 12) {
    ThrowInvalid(u"Invalid Month [%d] (1 <= month <= 12)", m_month);
  }
}

void CDateTime::ValidateYear() const {
  if (!(PartsOf(m_type) & kYearPart)) {
    RequireUnused(m_year, u"Year", m_type);
  } else if (m_year == 0 || m_year < kMinYear || m_year > kMaxYear) {
    throw CTovikInvalidValueException(
        FormatString(u"Invalid Year [%d] (%d <= year <= %d && year != 0)", int{m_year},
                     int{kMinYear}, int{kMaxYear}));
  }
}

void CDateTime::ValidateDay() const {
  const unsigned parts = PartsOf(m_type);
  if (!(parts & kDayPart)) {
    RequireUnused(m_day, u"Day", m_type);
  } else if (parts & kYearPart) {
    if (m_day < 1 || m_day > DaysInMonth(m_year, m_month)) {
      ThrowInvalid(u"Invalid Day [%d] (1 <= day <= days in month", m_day);
    }
  } else if (parts & kMonthPart) {
    if (m_day < 1 || m_day > LongestMonth(m_month)) {
      ThrowInvalid(u"Invalid Day [%d] (1 <= day <= days in month)", m_day);
    }
  } else if (m_day < 1 || m_day > 31) {
    ThrowInvalid(u"Invalid Day [%d] (1 <= day <= 31)", m_day);
  }
}

void CDateTime::ValidateTime() const {
  const struct {
    int value;
    int max;
    const wchar* name;
    const wchar* range;
  } rows[] = {{m_hour, 23, u"Hour", u"hour"},
              {m_minute, 59, u"Minute", u"minute"},
              {m_second, 59, u"Second", u"second"},
              {m_milliSecond, 999, u"Milli-Second", u"milli"},
              {m_microSecond, 999, u"Micro-Second", u"micro"},
              {m_nanoSecond, 999, u"Nano-Second", u"nano"}};
  const bool used = PartsOf(m_type) & kTimePart;
  for (const auto& row : rows) {
    if (!used) {
      RequireUnused(row.value, row.name, m_type);
    } else if (row.value > row.max) {
      throw CTovikInvalidValueException(FormatString(u"Invalid %s [%d] (0 <= %s <= %d)", row.name,
                                                     row.value, row.range, row.max));
    }
  }
}

}  // namespace TovikXmlLib16
