#include "tovikxml/values/date_time_span.h"

#include <charconv>
#include <limits>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/values/date_time_fields.h"
#include "tovikxml/values/number_text.h"
#include "tovikxml/values/second_fraction.h"

namespace TovikXmlLib16 {
namespace {

// XML Schema datatypes, "Order relation on duration": the instants, all at midnight UTC, that tell
// the lengths of months and years apart.
constexpr DateTimeFields kReferences[] = {{1696, 9, 1}, {1697, 2, 1}, {1903, 3, 1}, {1903, 7, 1}};

[[noreturn]] void ThrowTooLarge(unsigned long long value) {
  throw CTovikOverFlowException(
      FormatString(u"The value [%llu] is to large to fit in a duration", value));
}

std::uint32_t Fit(unsigned long value) {
  if (value > std::numeric_limits<std::uint32_t>::max()) ThrowTooLarge(value);
  return static_cast<std::uint32_t>(value);
}

CDateTime::DTCompareResult CompareFrom(const DateTimeFields& reference, const CDateTimeSpan& a,
                                       const CDateTimeSpan& b) {
  DateTimeFields left = reference;
  DateTimeFields right = reference;
  AddSpan(left, a);
  AddSpan(right, b);
  if (left == right) return CDateTime::cr_equal;
  return left < right ? CDateTime::cr_lessThan : CDateTime::cr_greaterThan;
}

// A field and its designator, unless it is zero.
char* WriteField(char* out, std::uint64_t value, char designator) {
  if (value == 0) return out;
  out = WritePadded(out, value, 1);
  *out++ = designator;
  return out;
}

}  // namespace

// Takes a duration apart. The parse is in one of these states, each behind the field that it is
// named after; "T" and a decimal point have states of their own.
//
//     kStart --Y--> kYears --M--> kMonths --D--> kDays --T--> kTime --H--> kHours --M--> kMinutes
//                                                    --S--> kSeconds,  --.--> digits S --> kSeconds
//
// A field may be left out, so that each state also has the ways on of the states behind it, but no
// way leads from a date field past "T". The text may end in any state but kStart and kTime.
class CDateTimeSpan::Reader {
 public:
  Reader(WStringView text, CDateTimeSpan& span) : m_text(text), m_span(span) {}

  /// False if the text is no duration.
  bool Read() {
    m_span.m_negative = Take(u'-');
    if (!Take(u'P')) return false;
    while (m_at < m_text.size()) {
      ReadNumber();
      if (m_at == m_text.size() || !ReadDesignator(m_text[m_at++])) return false;
    }
    return m_state != kStart && m_state != kTime;
  }

 private:
  enum State { kStart, kYears, kMonths, kDays, kTime, kHours, kMinutes, kSeconds };

  bool Take(wchar unit) {
    const bool found = m_at < m_text.size() && m_text[m_at] == unit;
    if (found) ++m_at;
    return found;
  }

  // A number that 64 bits do not hold fits no field.
  void ReadNumber() {
    constexpr std::uint64_t kMax = std::numeric_limits<std::uint64_t>::max();
    m_number = 0;
    m_tooLarge = false;
    for (; m_at < m_text.size() && IsAsciiDigit(m_text[m_at]); ++m_at) {
      const auto digit = static_cast<std::uint64_t>(m_text[m_at] - u'0');
      m_tooLarge = m_tooLarge || m_number > (kMax - digit) / 10;
      m_number = m_number * 10 + digit;
    }
  }

  bool ReadDesignator(wchar designator) {
    const bool isDate = m_state < kTime;
    switch (designator) {
      case u'Y':
        return Enter(kYears, isDate) && Store(m_span.m_years);
      case u'M':
        return isDate ? Enter(kMonths, true) && Store(m_span.m_months)
                      : Enter(kMinutes, true) && Store(m_span.m_minutes);
      case u'D':
        return Enter(kDays, isDate) && Store(m_span.m_days);
      case u'T':
        return Enter(kTime, isDate);
      case u'H':
        return Enter(kHours, !isDate) && Store(m_span.m_hours);
      case u'S':
        return Enter(kSeconds, !isDate) && Store(m_span.m_seconds);
      case u'.':
        return Enter(kSeconds, !isDate) && Store(m_span.m_seconds) && ReadFractionAndS();
      default:
        return false;
    }
  }

  // Fields come in their order, each at most once, and on their own side of "T".
  bool Enter(State next, bool allowed) {
    if (!allowed || next <= m_state) return false;
    m_state = next;
    return true;
  }

  template <class Field>
  bool Store(Field& field) {
    if (m_tooLarge || m_number > std::numeric_limits<Field>::max()) return false;
    field = static_cast<Field>(m_number);
    return true;
  }

  bool ReadFractionAndS() {
    if (m_at == m_text.size()) return true;
    SecondFraction fraction;
    const bool fits = ReadFraction(m_text, m_at, fraction);
    m_span.m_milliSeconds = fraction.milli;
    m_span.m_microSeconds = fraction.micro;
    m_span.m_nanoSeconds = fraction.nano;
    if (fits) return Take(u'S');
    throw CTovikInvalidValueException(
        FormatString(u"Invalid XSD Duration [%s] Fraction part too long", WString(m_text).c_str()));
  }

  WStringView m_text;
  CDateTimeSpan& m_span;
  std::size_t m_at = 0;
  State m_state = kStart;
  std::uint64_t m_number = 0;
  bool m_tooLarge = false;
};

CDateTimeSpan::CDateTimeSpan(unsigned long hours, unsigned long long minutes,
                             unsigned long long seconds)
    : CDateTimeSpan(0, 0, 0, hours, minutes, seconds, 0, 0, 0) {}

CDateTimeSpan::CDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                             unsigned long hours, unsigned long long minutes,
                             unsigned long long seconds)
    : CDateTimeSpan(years, months, days, hours, minutes, seconds, 0, 0, 0) {}

CDateTimeSpan::CDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                             unsigned long hours, unsigned long long minutes,
                             unsigned long long seconds, unsigned short milliSeconds,
                             unsigned short microSeconds, unsigned short nanoSeconds)
    : m_years(years),
      m_months(Fit(months)),
      m_days(Fit(days)),
      m_hours(Fit(hours)),
      m_minutes(minutes),
      m_seconds(seconds),
      m_milliSeconds(milliSeconds),
      m_microSeconds(microSeconds),
      m_nanoSeconds(nanoSeconds) {}

void CDateTimeSpan::SetDateTimeSpan(unsigned long hours, unsigned long long minutes,
                                    unsigned long long seconds) {
  *this = CDateTimeSpan(hours, minutes, seconds);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                                    unsigned long hours, unsigned long long minutes,
                                    unsigned long long seconds) {
  *this = CDateTimeSpan(years, months, days, hours, minutes, seconds);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                                    unsigned long hours, unsigned long long minutes,
                                    unsigned long long seconds, unsigned short milliSeconds,
                                    unsigned short microSeconds, unsigned short nanoSeconds) {
  *this = CDateTimeSpan(years, months, days, hours, minutes, seconds, milliSeconds, microSeconds,
                        nanoSeconds);
}

CDateTimeSpan CDateTimeSpan::GetAsNegative() const {
  CDateTimeSpan copy(*this);
  copy.m_negative = true;
  return copy;
}

void CDateTimeSpan::ParseXSDDuration(const wchar* text) {
  *this = CDateTimeSpan();
  if (!text) throw CTovikInvalidValueException(u"Invalid XSD Duration (Null String)");
  if (!*text) throw CTovikInvalidValueException(u"Invalid XSD Duration (Empty String)");
  if (Reader(text, *this).Read()) return;
  throw CTovikInvalidValueException(
      FormatString(u"Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]", text));
}

void CDateTimeSpan::AssignString(WString& out) const {
  constexpr std::uint64_t kNanosInSecond = 1'000'000'000;
  const SecondFraction fraction{m_milliSeconds, m_microSeconds, m_nanoSeconds};
  const std::uint64_t nanos = fraction.Nanoseconds();
  const std::uint64_t seconds = m_seconds + nanos / kNanosInSecond;
  if (seconds < m_seconds) ThrowTooLarge(m_seconds);

  char text[128];  // of which 94 are used at most
  char* end = text;
  if (m_negative) *end++ = '-';
  *end++ = 'P';
  end = WriteField(end, m_years, 'Y');
  end = WriteField(end, m_months, 'M');
  end = WriteField(end, m_days, 'D');
  const bool isEmpty = end[-1] == 'P';
  if (isEmpty || m_hours || m_minutes || seconds || nanos) *end++ = 'T';
  end = WriteField(end, m_hours, 'H');
  end = WriteField(end, m_minutes, 'M');
  if (seconds || nanos || end[-1] == 'T') {
    const auto group = [&](std::uint64_t unit) {
      return static_cast<std::uint16_t>(nanos % kNanosInSecond / unit % 1000);
    };
    end = WritePadded(end, seconds, 1);
    end = WriteFraction(end, {group(1'000'000), group(1'000), group(1)});
    *end++ = 'S';
  }
  AssignAscii(out, text, end);
}

WString CDateTimeSpan::ToString() const {
  WString text;
  AssignString(text);
  return text;
}

CDateTime::DTCompareResult CDateTimeSpan::CompareTo(const CDateTimeSpan& other) const {
  const DTCompareResult result = CompareFrom(kReferences[0], *this, other);
  for (const DateTimeFields& reference : kReferences) {
    if (CompareFrom(reference, *this, other) != result) return CDateTime::cr_indeterminate;
  }
  return result;
}

bool CDateTimeSpan::operator==(const CDateTimeSpan& other) const {
  return CompareTo(other) == CDateTime::cr_equal;
}

bool CDateTimeSpan::operator<(const CDateTimeSpan& other) const {
  return CompareTo(other) == CDateTime::cr_lessThan;
}

bool CDateTimeSpan::operator>(const CDateTimeSpan& other) const {
  return CompareTo(other) == CDateTime::cr_greaterThan;
}

}  // namespace TovikXmlLib16
