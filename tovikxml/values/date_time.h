#ifndef TOVIKXML_VALUES_DATE_TIME_H_
#define TOVIKXML_VALUES_DATE_TIME_H_

#include <cstdint>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/platform/clock.h"

namespace TovikXmlLib16 {

class CDateTimeSpan;
struct DateTimeFields;

/// A value of one of the eight date and time types of XML Schema datatypes.
///
///     CDateTime shipped(u"2024-02-28T23:30:00Z");
///     CDateTimeSpan hour(1, 0, 0);
///     WString text = (shipped + hour).ToString();      // "2024-02-29T00:30:00Z"
///     bool late = shipped > CDateTime(u"2024-02-28T20:00:00-05:00");
///
/// The type of a value says which of its fields mean anything. The year has four digits, lies
/// between -9999 and 9999 and is never zero; fractions of a second go down to nanoseconds. A value
/// may have a time zone: "Z", or an offset in hours and minutes of which the hour alone bears the
/// sign, so that "-00:30" is held, and printed, as "+00:30".
///
/// Values are compared on the calendar, not on their text, and the order is the partial one of XML
/// Schema: a value with a zone and one without are ordered only if they lie far enough apart.
///
/// Texts and values outside their range raise `CTovikInvalidValueException`, and the use of a field
/// that the type lacks `CTovikInvalidStateException`.
class TOVIKXML_EXPORT CDateTime {
 public:
  /// Which of the types the value has, and with that which fields.
  enum DTType : int {
    dt_yearZero = 0,  ///< not set
    dt_dateTime = 1,
    dt_date = 2,
    dt_gYearMonth = 3,
    dt_gYear = 4,
    dt_time = 5,
    dt_gDay = 6,
    dt_gMonth = 7,
    dt_gMonthDay = 8
  };

  /// The order of two values, which is a partial one.
  enum DTCompareResult : int {
    cr_equal = 0,
    cr_lessThan = 1,
    cr_greaterThan = 2,
    cr_indeterminate = 3
  };

  /// The limits of the year.
  static constexpr short kMinYear = -9999;
  static constexpr short kMaxYear = 9999;

  /// A value that is not set, of a type or of none.
  CDateTime() noexcept = default;
  CDateTime(DTType type) noexcept : m_type(type) {}
  CDateTime(const CDateTime&) noexcept = default;
  CDateTime& operator=(const CDateTime&) noexcept = default;
  virtual ~CDateTime() = default;

  /// A date, or a date with a time. They fail as the setters do.
  CDateTime(short year, unsigned char month, unsigned char day);
  CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
            unsigned char minute, unsigned char second);
  CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
            unsigned char minute, unsigned char second, unsigned short milli, unsigned short micro,
            unsigned short nano);
  /// Reads a dateTime as `ParseXSDDateTime` does.
  CDateTime(const wchar* text);

  /// A dateTime without a zone from the times of a platform: seconds since 1970-01-01T00:00:00 UTC,
  /// a calendar time, or a file time, of which milliseconds are kept. They fail as the setters do;
  /// a file time that is marked invalid raises `CTovikInvalidValueException` "Failed to convert
  /// FILETIME to SYSTEMTIME".
  CDateTime(const long& seconds);
  CDateTime(const SYSTEMTIME& time);
  CDateTime(const FILETIME& time);
  CDateTime& operator=(const long& seconds);
  CDateTime& operator=(const SYSTEMTIME& time);
  CDateTime& operator=(const FILETIME& time);

  /// The present local time, without a zone.
  static CDateTime GetTickCount();

  DTType GetType() const { return m_type; }
  /// The name of the type, such as "gYearMonth".
  WString GetTypeAsString() const;

  /// The fields. Each raises `CTovikInvalidStateException` "Failed to GetYear. Invalid Date Type:
  /// %s.", with its own name, for a type without the field; the setters use the names of the
  /// getters. A setter stores and does not check the range.
  short GetYear() const;
  unsigned char GetMonth() const;
  unsigned char GetDay() const;
  unsigned char GetHour() const;
  unsigned char GetMinute() const;
  unsigned char GetSecond() const;
  unsigned short GetMilliSecond() const;
  unsigned short GetMicroSecond() const;
  unsigned short GetNanoSecond() const;
  void SetYear(short year);
  void SetMonth(unsigned char month);
  void SetDay(unsigned char day);
  void SetHour(unsigned char hour);
  void SetMinute(unsigned char minute);
  void SetSecond(unsigned char second);
  void SetMilliSecond(unsigned short milli);
  void SetMicroSecond(unsigned short micro);
  void SetNanoSecond(unsigned short nano);

  /// The second with its fraction.
  double GetRealSecond() const;
  /// 1 for January 1; for a dateTime or a date. Raises `CTovikInvalidValueException` for a month
  /// outside 1 to 12.
  unsigned short GetDayOfYear() const;

  /// Whether there is a time zone at all, and whether it is an offset rather than "Z".
  bool IsUTC() const { return m_isUTC; }
  bool HasTimeZone() const { return m_hasTimeZone; }
  /// The offset. Raise `CTovikInvalidStateException` "TimeZone is not been used" without one.
  short GetZoneHour() const;
  unsigned char GetZoneMinute() const;
  /// Makes the zone "Z".
  void SetUTC();
  /// Raises `CTovikInvalidValueException` "Invalid TimeZone [%d:%d]" unless -23 <= hour <= 23 and
  /// minute < 60.
  void SetTimeZone(short hour, unsigned char minute);

  /// These replace the whole value and drop the time zone. A value that has a type keeps it: asked
  /// for another, they raise `CTovikInvalidStateException` "Failed to copy CDateTime. Invalid Date
  /// Type: %s, expected: %s.". A field out of range raises `CTovikInvalidValueException`, such as
  /// "Invalid Month [13] (1 <= month <= 12)", after the fields have been stored.
  void SetDate(short year, unsigned char month, unsigned char day);
  void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                   unsigned char minute, unsigned char second);
  void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                   unsigned char minute, unsigned char second, unsigned short milli,
                   unsigned short micro, unsigned short nano);
  void SetTime(unsigned char hour, unsigned char minute, unsigned char second);
  void SetTime(unsigned char hour, unsigned char minute, unsigned char second, unsigned short milli,
               unsigned short micro, unsigned short nano);
  void SetFracTime(unsigned short milli, unsigned short micro, unsigned short nano);
  void SetGYear(short year);
  void SetGYearMonth(short year, unsigned char month);
  void SetGMonth(unsigned char month);
  void SetGMonthDay(unsigned char month, unsigned char day);
  void SetGDay(unsigned char day);

  /// Takes all fields of `source` under the type given, unchecked. Raises
  /// `CTovikInvalidValueException` "Attempting to set a CDateTime of type %s using an XmlDateTime
  /// of type %s. ..." unless `CheckConversion` allows it.
  void SetDateTime(const CDateTime& source, DTType type);
  /// Whether a value of one type has the fields of another. Raises `CTovikInvalidValueException`
  /// "Unknown date type %d." for a `from` outside the enumeration.
  static bool CheckConversion(DTType from, DTType to);

  /// Reads a type without a time: `CCYY-MM-DD`, `CCYY-MM`, `CCYY`, each with an optional minus
  /// sign,
  /// `--MM-DD`, `--MM`, `--MM--` or `---DD`, then an optional zone: `Z`, `+hh:mm` or `-hh:mm`,
  /// where 24 hours count as none. The shape of the text decides the type. After a failure the
  /// value is filled in part.
  void ParseXSDDate(const wchar* text);
  /// Reads a time: `hh:mm:ss`, an optional point with at most nine digits, an optional zone. What
  /// stands behind a "Z", or begins with anything but a zone, is not looked at.
  void ParseXSDTime(const wchar* text);
  /// Reads a date, "T" and a time.
  void ParseXSDDateTime(const wchar* text);

  /// The lexical form; "Error: Date Not Set" for a value that is not set.
  WString ToString() const;
  /// The lexical form for the format "s", nothing for "G" and for no format. Another gives "Unknown
  /// Format: " and its text.
  WString ToString(const wchar* format) const;
  /// `ToString` into a text whose room is reused.
  void AssignString(WString& out) const;

  /// The same instant at the offset "+00:00" if there is an offset; otherwise the value as it is.
  /// The offset is taken off by the addition below, whatever the type.
  CDateTime GetNormalized() const;

  /// Compares the normalised values, field by field from the year to the second. A field that only
  /// one of the types has makes the result indeterminate, unless a field before it differs. With a
  /// zone on one side only, the order holds if it does for all zones up to 14 hours either way.
  DTCompareResult CompareTo(const CDateTime& other) const;
  bool operator==(const CDateTime& other) const { return CompareTo(other) == cr_equal; }
  bool operator!=(const CDateTime& other) const { return CompareTo(other) != cr_equal; }
  bool operator<(const CDateTime& other) const { return CompareTo(other) == cr_lessThan; }
  bool operator>(const CDateTime& other) const { return CompareTo(other) == cr_greaterThan; }
  bool operator<=(const CDateTime& other) const { return IsAtMost(other, cr_lessThan); }
  bool operator>=(const CDateTime& other) const { return IsAtMost(other, cr_greaterThan); }

  /// Adds a duration by the rule of XML Schema datatypes, "Adding durations to dateTimes": 31
  /// January plus one month is the last of February. Subtraction goes back by the magnitude of the
  /// duration, whatever its sign.
  ///
  /// Type and zone stay. Fields that the type does not use count as zero and take the sum's value,
  /// which for a type without a month moves the year one down: a gYear plus P1Y is the same gYear.
  /// The sum is not checked, so that the year can be zero or beyond its limits; a year beyond 16
  /// bits raises `CTovikInvalidValueException` and leaves the value.
  CDateTime operator+(const CDateTimeSpan& span) const;
  const CDateTime& operator+=(const CDateTimeSpan& span);
  CDateTime operator-(const CDateTimeSpan& span) const;
  const CDateTime& operator-=(const CDateTimeSpan& span);

  /// The exact time between two values in days, hours, minutes, seconds and fractions, negative if
  /// this one is the earlier; a date counts from its midnight. Raises `CTovikInvalidStateException`
  /// "Failed to subtract CDateTime. Invalid Date Types: %s, %s." unless both are of the types
  /// dateTime and date or both are times, and "... Only one value has a TimeZone." unless both or
  /// neither have a zone.
  CDateTimeSpan operator-(const CDateTime& other) const;

  /// Seconds since 1970-01-01T00:00:00 UTC of the normalised value; for a date, of its midnight.
  /// Raises `CTovikInvalidValueException` for other types than dateTime and date, and where the
  /// platform's `long` cannot hold the seconds.
  long GetTime() const;
  /// The day of the week that the local time zone has at `GetTime`: 1 is Sunday, 7 is Saturday.
  /// Raises `CTovikInvalidStateException` for other types than dateTime and date.
  unsigned char GetDayOfWeek() const;
  /// The fields of a dateTime down to milliseconds; a negative year keeps its bits. Raises
  /// `CTovikInvalidValueException` for other types.
  SYSTEMTIME GetAsSystemTime() const;

 private:
  static WString GetTypeAsString(DTType type);

  void SetDateTime(DTType type, short year, unsigned char month, unsigned char day,
                   unsigned char hour, unsigned char minute, unsigned char second,
                   unsigned short milli, unsigned short micro, unsigned short nano);
  void Require(unsigned parts, const wchar* operation) const;

  void Validate() const;
  void ValidateMonth() const;
  void ValidateYear() const;
  void ValidateDay() const;
  void ValidateTime() const;

  void SetXSDDate(WStringView text);
  void SetXSDTime(WStringView text);
  void SetZone(WStringView text);
  bool IsSet() const;
  char* WriteDate(char* out) const;
  char* WriteZone(char* out) const;

  DateTimeFields GetFields() const;
  void SetFields(const DateTimeFields& fields);
  void AddDateTimeSpan(const CDateTimeSpan& span);
  void RequireComparable(const CDateTime& other) const;
  std::int64_t GetInstant() const;
  static DTCompareResult CompareFields(const CDateTime& a, const CDateTime& b);
  static DTCompareResult CompareZoned(const CDateTime& zoned, const CDateTime& local);
  bool IsAtMost(const CDateTime& other, DTCompareResult order) const {
    const DTCompareResult result = CompareTo(other);
    return result == cr_equal || result == order;
  }

  DTType m_type = dt_yearZero;
  std::int16_t m_year = 0;
  std::uint8_t m_month = 0;
  std::uint8_t m_day = 0;
  std::uint8_t m_hour = 0;
  std::uint8_t m_minute = 0;
  std::uint8_t m_second = 0;
  std::uint16_t m_milliSecond = 0;
  std::uint16_t m_microSecond = 0;
  std::uint16_t m_nanoSecond = 0;
  bool m_isUTC = false;
  bool m_hasTimeZone = false;
  std::int16_t m_zoneHour = 0;
  std::uint8_t m_zoneMinute = 0;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_DATE_TIME_H_
