#include <algorithm>
#include <cstdlib>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/values/date_time.h"
#include "tovikxml/values/date_time_fields.h"
#include "tovikxml/values/number_text.h"
#include "tovikxml/values/second_fraction.h"

namespace TovikXmlLib16 {
namespace {

// A form without a time: 'd' stands for a digit, '?' for anything; then the places of its fields,
// where 0xFF stands for none.
struct DateShape {
  WStringView form;
  CDateTime::DTType type;
  std::uint8_t yearAt;
  std::uint8_t monthAt;
  std::uint8_t dayAt;
};

constexpr std::uint8_t kNone = 0xFF;
constexpr std::size_t kOffsetLength = 6;  // +hh:mm

constexpr DateShape kShapes[] = {{u"dddd-dd-dd", CDateTime::dt_date, 0, 5, 8},
                                 {u"dddd-dd", CDateTime::dt_gYearMonth, 0, 5, kNone},
                                 {u"dddd", CDateTime::dt_gYear, 0, kNone, kNone},
                                 {u"--dd-dd", CDateTime::dt_gMonthDay, kNone, 2, 5},
                                 {u"--dd", CDateTime::dt_gMonth, kNone, 2, kNone},
                                 {u"--dd??", CDateTime::dt_gMonth, kNone, 2, kNone},
                                 {u"---dd", CDateTime::dt_gDay, kNone, kNone, 3}};

bool Fits(WStringView text, WStringView form) {
  if (text.size() != form.size()) return false;
  for (std::size_t i = 0; i < form.size(); ++i) {
    if (form[i] == u'?') continue;
    if (form[i] == u'd' ? !IsAsciiDigit(text[i]) : text[i] != form[i]) return false;
  }
  return true;
}

const DateShape* FindShape(WStringView text) {
  for (const DateShape& shape : kShapes) {
    if (Fits(text, shape.form)) return &shape;
  }
  return nullptr;
}

std::uint8_t TwoDigits(WStringView text, std::size_t at) {
  return static_cast<std::uint8_t>((text[at] - u'0') * 10 + (text[at + 1] - u'0'));
}

[[noreturn]] void Refuse(const wchar* format, WStringView text = WStringView()) {
  throw CTovikInvalidValueException(FormatString(format, WString(text).c_str()));
}

// The length of a text without a time before its zone. An offset is told by its colon alone.
std::size_t LengthBeforeZone(WStringView text) {
  const bool endsInZ = text.back() == u'Z';
  const bool hasColon = text.find(u':') != WStringView::npos;
  if (!hasColon) return text.size() - (endsInZ ? 1 : 0);
  const std::size_t length = text.size() - std::min(text.size(), kOffsetLength);
  if (endsInZ || (length > 0 && text[length - 1] == u'Z')) {
    Refuse(u"Invalid Date (Bad Zone value)");
  }
  return length;
}

}  // namespace

void CDateTime::ParseXSDDate(const wchar* text) {
  *this = CDateTime();
  if (!text) Refuse(u"Invalid Date (Null String)");
  SetXSDDate(text);
  Validate();
}

void CDateTime::ParseXSDTime(const wchar* text) {
  *this = CDateTime();
  if (!text) Refuse(u"Invalid Time (Null String)");
  SetXSDTime(text);
  Validate();
}

void CDateTime::ParseXSDDateTime(const wchar* text) {
  if (!text) Refuse(u"Invalid DateTime (Null String)");
  const WStringView whole(text);
  const std::size_t mark = whole.find(u'T');
  if (mark == WStringView::npos) {
    Refuse(u"Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]", whole);
  }
  *this = CDateTime();
  SetXSDDate(whole.substr(0, mark));
  if (m_type != dt_date) Refuse(u"Invalid XSD DateTime [%s].", whole);
  SetXSDTime(whole.substr(mark + 1));
  m_type = dt_dateTime;
  Validate();
}

void CDateTime::SetXSDDate(WStringView text) {
  if (text.empty()) Refuse(u"Invalid Date (Empty String)");
  if (text.find(u'T') != WStringView::npos) Refuse(u"Invalid Date ('T' not allowed)");
  const std::size_t length = LengthBeforeZone(text);
  WStringView date = text.substr(0, length);
  const bool negative = date.substr(0, 1) == u"-" && date.substr(0, 2) != u"--";
  if (negative) date.remove_prefix(1);
  const DateShape* const shape = FindShape(date);
  if (!shape) Refuse(u"Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]", text);

  if (shape->yearAt != kNone) {
    const int year = TwoDigits(date, shape->yearAt) * 100 + TwoDigits(date, shape->yearAt + 2u);
    m_year = static_cast<std::int16_t>(negative ? -year : year);
  }
  if (shape->monthAt != kNone) m_month = TwoDigits(date, shape->monthAt);
  if (shape->dayAt != kNone) m_day = TwoDigits(date, shape->dayAt);
  m_type = shape->type;
  SetZone(text.substr(length));
}

void CDateTime::SetXSDTime(WStringView text) {
  constexpr WStringView kForm = u"dd:dd:dd";
  if (text.empty()) Refuse(u"Invalid XSD Time (Empty String)");
  const bool fits = Fits(text.substr(0, kForm.size()), kForm);
  if (!fits || TwoDigits(text, 0) > 23 || TwoDigits(text, 3) > 59 || TwoDigits(text, 6) > 59) {
    Refuse(u"Invalid XSD Time [%s] expected hh:mm:ss[.ff]", text);
  }
  m_hour = TwoDigits(text, 0);
  m_minute = TwoDigits(text, 3);
  m_second = TwoDigits(text, 6);

  std::size_t at = kForm.size();
  SecondFraction fraction;
  if (at < text.size() && text[at] == u'.' && !ReadFraction(text, ++at, fraction)) {
    Refuse(u"Invalid XSD Time [%s] Fraction part too long", text);
  }
  m_milliSecond = fraction.milli;
  m_microSecond = fraction.micro;
  m_nanoSecond = fraction.nano;
  SetZone(text.substr(at));
  m_type = dt_time;
}

// Takes what stands behind a date or a time. Nothing, or a text that does not begin like a zone,
// leaves the zone as it is.
void CDateTime::SetZone(WStringView text) {
  if (text.empty()) return;
  if (text.front() == u'Z') {
    SetUTC();
  } else if (text.front() == u'+' || text.front() == u'-') {
    if (!Fits(text.substr(1), u"dd:dd")) Refuse(u"Invalid XSD Time Zone [%s].", text);
    const int hour = TwoDigits(text, 1) == 24 ? 0 : TwoDigits(text, 1);
    SetTimeZone(static_cast<short>(text.front() == u'-' ? -hour : hour), TwoDigits(text, 4));
  }
}

bool CDateTime::IsSet() const {
  if (m_type == dt_yearZero) return false;
  return m_type == dt_time || m_year || m_month || m_day || m_hour || m_minute || m_second ||
         m_milliSecond || m_microSecond || m_nanoSecond;
}

// The parts of a date with the hyphens of the type's form.
char* CDateTime::WriteDate(char* out) const {
  const unsigned parts = PartsOf(m_type) & kDateParts;
  if (parts & kYearPart) {
    if (m_year < 0) *out++ = '-';
    out = WritePadded(out, static_cast<unsigned>(std::abs(m_year)), 4);
  } else if (parts != 0) {
    *out++ = '-';
  }
  if (parts & kMonthPart) {
    *out++ = '-';
    out = WritePadded(out, m_month, 2);
  } else if (parts == kDayPart) {
    *out++ = '-';
  }
  if (parts & kDayPart) {
    *out++ = '-';
    out = WritePadded(out, m_day, 2);
  }
  return out;
}

char* CDateTime::WriteZone(char* out) const {
  if (!m_isUTC) return out;
  if (!m_hasTimeZone) {
    *out++ = 'Z';
    return out;
  }
  *out++ = m_zoneHour < 0 ? '-' : '+';
  out = WritePadded(out, static_cast<unsigned>(std::abs(m_zoneHour)), 2);
  *out++ = ':';
  return WritePadded(out, m_zoneMinute, 2);
}

void CDateTime::AssignString(WString& out) const {
  if (!IsSet()) {
    out = u"Error: Date Not Set";
    return;
  }
  char text[64];  // of which 48 are used at most, by fields that are out of range
  char* end = WriteDate(text);
  if (PartsOf(m_type) & kTimePart) {
    if (end != text) *end++ = 'T';
    end = WritePadded(end, m_hour, 2);
    *end++ = ':';
    end = WritePadded(end, m_minute, 2);
    *end++ = ':';
    end = WritePadded(end, m_second, 2);
    end = WriteFraction(end, {m_milliSecond, m_microSecond, m_nanoSecond});
  }
  AssignAscii(out, text, WriteZone(end));
}

WString CDateTime::ToString() const {
  return ToString(u"s");
}

WString CDateTime::ToString(const wchar* format) const {
  const WStringView name = ViewOf(format);
  WString text;
  if (name == u"s" || !IsSet()) {
    AssignString(text);
  } else if (!name.empty() && name != u"G") {
    text.append(u"Unknown Format: ").append(name);
  }
  return text;
}

}  // namespace TovikXmlLib16
