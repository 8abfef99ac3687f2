#ifndef TOVIKXML_VALUES_DATE_TIME_SPAN_H_
#define TOVIKXML_VALUES_DATE_TIME_SPAN_H_

#include <cstdint>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/values/date_time.h"

namespace TovikXmlLib16 {

/// A value of the type duration of XML Schema datatypes.
///
///     CDateTimeSpan notice;
///     notice.ParseXSDDuration(u"P1M15DT12H");
///     CDateTime due = CDateTime(2024, 1, 31) + notice;
///     bool enough = notice > CDateTimeSpan(0, 0, 30, 0, 0, 0);
///
/// The fields stay as they were written: P90M is not turned into years, nor PT24H into a day. They
/// are magnitudes, and the sign stands apart. The order is the partial one of XML Schema: two
/// durations are ordered if the sums with its four reference instants all are, and in the same way;
/// so P1M is more than P27D, and indeterminate against P30D.
class TOVIKXML_EXPORT CDateTimeSpan {
 public:
  using DTCompareResult = CDateTime::DTCompareResult;

  /// No time at all.
  CDateTimeSpan() noexcept = default;
  CDateTimeSpan(const CDateTimeSpan&) noexcept = default;
  CDateTimeSpan& operator=(const CDateTimeSpan&) noexcept = default;
  virtual ~CDateTimeSpan() = default;

  /// A positive duration; the setters replace the whole value by one. Fields that are not named are
  /// zero. Months, days and hours have 32 bits: more raises `CTovikOverFlowException` "The value
  /// [%lu] is to large to fit in a duration".
  CDateTimeSpan(unsigned long hours, unsigned long long minutes, unsigned long long seconds);
  CDateTimeSpan(unsigned short years, unsigned long months, unsigned long days, unsigned long hours,
                unsigned long long minutes, unsigned long long seconds);
  CDateTimeSpan(unsigned short years, unsigned long months, unsigned long days, unsigned long hours,
                unsigned long long minutes, unsigned long long seconds, unsigned short milliSeconds,
                unsigned short microSeconds, unsigned short nanoSeconds);
  void SetDateTimeSpan(unsigned long hours, unsigned long long minutes, unsigned long long seconds);
  void SetDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                       unsigned long hours, unsigned long long minutes, unsigned long long seconds);
  void SetDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                       unsigned long hours, unsigned long long minutes, unsigned long long seconds,
                       unsigned short milliSeconds, unsigned short microSeconds,
                       unsigned short nanoSeconds);

  std::uint16_t GetYears() const { return m_years; }
  std::uint32_t GetMonths() const { return m_months; }
  std::uint32_t GetDays() const { return m_days; }
  std::uint32_t GetHours() const { return m_hours; }
  std::uint64_t GetMinutes() const { return m_minutes; }
  std::uint64_t GetSeconds() const { return m_seconds; }
  std::uint16_t GetMilliSeconds() const { return m_milliSeconds; }
  std::uint16_t GetMicroSeconds() const { return m_microSeconds; }
  std::uint16_t GetNanoSeconds() const { return m_nanoSeconds; }
  void SetYears(std::uint16_t years) { m_years = years; }
  void SetMonths(std::uint32_t months) { m_months = months; }
  void SetDays(std::uint32_t days) { m_days = days; }
  void SetHours(std::uint32_t hours) { m_hours = hours; }
  void SetMinutes(std::uint64_t minutes) { m_minutes = minutes; }
  void SetSeconds(std::uint64_t seconds) { m_seconds = seconds; }
  void SetMilliSeconds(std::uint16_t milliSeconds) { m_milliSeconds = milliSeconds; }
  void SetMicroSeconds(std::uint16_t microSeconds) { m_microSeconds = microSeconds; }
  void SetNanoSeconds(std::uint16_t nanoSeconds) { m_nanoSeconds = nanoSeconds; }

  bool IsNegative() const { return m_negative; }
  /// Turns the sign round.
  void Negate() { m_negative = !m_negative; }
  /// A negative copy, whatever the sign of this one.
  CDateTimeSpan GetAsNegative() const;

  /// Reads `[-]P[nY][nM][nD][T[nH][nM][nS]]`, the seconds with an optional point and at most nine
  /// digits; at least one field must stand behind "P", and behind "T". More than XML Schema allows,
  /// a field without digits counts as zero, "PT1." is read as "PT1S", and digits before "T" are
  /// dropped. Raises `CTovikInvalidValueException` for any other text, and for a number too large
  /// for its field; the value is then filled in part.
  void ParseXSDDuration(const wchar* text);
  /// The fields that are not zero; "PT0S" or "-PT0S" if there are none. Fraction fields above 999
  /// are carried into the seconds; raises `CTovikOverFlowException` "The value [%llu] is to large
  /// to fit in a duration" where those have no room.
  WString ToString() const;
  /// `ToString` into a text whose room is reused.
  void AssignString(WString& out) const;

  DTCompareResult CompareTo(const CDateTimeSpan& other) const;
  bool operator==(const CDateTimeSpan& other) const;
  bool operator!=(const CDateTimeSpan& other) const { return !(*this == other); }
  bool operator<(const CDateTimeSpan& other) const;
  bool operator>(const CDateTimeSpan& other) const;

 private:
  class Reader;

  std::uint16_t m_years = 0;
  std::uint32_t m_months = 0;
  std::uint32_t m_days = 0;
  std::uint32_t m_hours = 0;
  std::uint64_t m_minutes = 0;
  std::uint64_t m_seconds = 0;
  std::uint16_t m_milliSeconds = 0;
  std::uint16_t m_microSeconds = 0;
  std::uint16_t m_nanoSeconds = 0;
  bool m_negative = false;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_DATE_TIME_SPAN_H_
