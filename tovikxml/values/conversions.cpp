#include "tovikxml/values/conversions.h"

#include <algorithm>
#include <limits>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/values/big_integer.h"
#include "tovikxml/values/binary_data.h"
#include "tovikxml/values/date_time.h"
#include "tovikxml/values/date_time_span.h"
#include "tovikxml/values/decimal.h"
#include "tovikxml/values/number_text.h"

namespace TovikXmlLib16 {
namespace {

using WhitespaceRule = CWhitespaceUtils::WhitespaceRule;

// The text after the whitespace rule, without a copy where the rule changes nothing.
class RuledText {
 public:
  RuledText(const WString& text, WhitespaceRule rule)
      : m_text(CWhitespaceUtils::ApplyRule(rule, text, m_scratch)) {}
  RuledText(const RuledText&) = delete;
  RuledText& operator=(const RuledText&) = delete;

  const WString& Get() const { return m_text; }

 private:
  WString m_scratch;
  const WString& m_text;
};

[[noreturn]] void ThrowNotANumber(const WString& text, const wchar* type) {
  throw CTovikInvalidValueException(
      FormatString(u"The value [%s] can not be converted to a %s", text.c_str(), type));
}

[[noreturn]] void ThrowTooLarge(const WString& text, const wchar* type) {
  throw CTovikInvalidValueException(
      FormatString(u"The value [%s] is to large to fit in a %s", text.c_str(), type));
}

template <class Integer>
WString IntegerText(Integer value) {
  WString text;
  AssignInteger(text, value);
  return text;
}

template <class Real>
WString RealText(Real value, WStringView format) {
  WString text;
  AssignReal(text, value, format);
  return text;
}

template <class Integer>
Integer ReadInteger(const WString& given, WhitespaceRule rule, const wchar* type) {
  const RuledText text(given, rule);
  const ParsedInteger<Integer> parsed = ParseInteger<Integer>(text.Get());
  if (parsed.status == NumberStatus::kTooLarge) ThrowTooLarge(text.Get(), type);
  if (parsed.status == NumberStatus::kNotANumber) ThrowNotANumber(text.Get(), type);
  return parsed.value;
}

template <class Narrow, class Wide>
Narrow Fit(Wide value, const WString& given, const wchar* type) {
  using Limits = std::numeric_limits<Narrow>;
  if (value < Limits::min() || value > Limits::max()) ThrowTooLarge(given, type);
  return static_cast<Narrow>(value);
}

bool IsNaNText(const WString& text) {
  return EqualText(text, u"NaN") || EqualText(text, u"1.#QNAN") || EqualText(text, u"-NAN");
}

double ReadReal(const WString& given, WhitespaceRule rule, const wchar* type) {
  using Limits = std::numeric_limits<double>;
  const RuledText text(given, rule);
  if (const auto value = ParseDouble(text.Get())) return *value;
  if (IsNaNText(text.Get())) return Limits::quiet_NaN();
  if (EqualText(text.Get(), u"-INF")) return -Limits::infinity();
  if (EqualText(text.Get(), u"INF")) return Limits::infinity();
  ThrowNotANumber(text.Get(), type);
}

CBinaryData ReadBinary(const WString& given, WhitespaceRule rule,
                       void (CBinaryData::*set)(const wchar*)) {
  const RuledText text(given, rule);
  CBinaryData data;
  (data.*set)(text.Get().c_str());
  return data;
}

CDateTime ReadDate(const WString& given, WhitespaceRule rule,
                   void (CDateTime::*parse)(const wchar*) = &CDateTime::ParseXSDDate) {
  const RuledText text(given, rule);
  CDateTime value;
  (value.*parse)(text.Get().c_str());
  return value;
}

// The number at the start of a format, held to the limits of an int; 0 if there is none.
int CountOf(const WString& format) {
  constexpr std::uint64_t kMax = std::numeric_limits<int>::max();
  const ScannedInteger scanned = ScanInteger(format);
  const bool tooLarge = scanned.status == NumberStatus::kTooLarge;
  const auto count = static_cast<int>(tooLarge ? kMax : std::min(scanned.magnitude, kMax));
  return scanned.negative ? -count : count;
}

}  // namespace

WString CConversions::i1ToString(std::int8_t value) {
  return IntegerText(value);
}

WString CConversions::i2ToString(std::int16_t value) {
  return IntegerText(value);
}

WString CConversions::i4ToString(std::int32_t value) {
  return IntegerText(value);
}

WString CConversions::i8ToString(std::int64_t value) {
  return IntegerText(value);
}

WString CConversions::ui1ToString(std::uint8_t value) {
  return IntegerText(value);
}

WString CConversions::ui2ToString(std::uint16_t value) {
  return IntegerText(value);
}

WString CConversions::ui4ToString(std::uint32_t value) {
  return IntegerText(value);
}

WString CConversions::ui8ToString(std::uint64_t value) {
  return IntegerText(value);
}

WString CConversions::r4ToString(float value) {
  return RealText(value, WStringView());
}

WString CConversions::r8ToString(double value) {
  return RealText(value, WStringView());
}

WString CConversions::r4ToString(float value, const WString& format) {
  return RealText(value, format);
}

WString CConversions::r8ToString(double value, const WString& format) {
  return RealText(value, format);
}

WString CConversions::charToString(wchar value) {
  return WString(1, value);
}

WString CConversions::stringToString(const WString& value) {
  return value;
}

WString CConversions::booleanToString(bool value) {
  return value ? u"true" : u"false";
}

WString CConversions::hexBinaryToString(const CBinaryData& value) {
  return value.GetAsHexString();
}

WString CConversions::base64BinaryToString(const CBinaryData& value) {
  return value.GetAsBase64();
}

WString CConversions::integerToString(const CBigInteger& value) {
  return value.ToString();
}

WString CConversions::decimalToString(const CDecimal& value) {
  return value.ToString();
}

WString CConversions::decimalToString(const CDecimal& value, const WString& format) {
  return format.empty() ? value.ToString() : value.ToString(CountOf(format));
}

WString CConversions::durationToString(const CDateTimeSpan& value) {
  return value.ToString();
}

WString CConversions::dateToString(const CDateTime& value) {
  return value.ToString();
}

WString CConversions::datetimeToString(const CDateTime& value) {
  return value.ToString();
}

WString CConversions::timeToString(const CDateTime& value) {
  return value.ToString();
}

WString CConversions::yearMonthToString(const CDateTime& value) {
  return value.ToString();
}

WString CConversions::monthDayToString(const CDateTime& value) {
  return value.ToString();
}

WString CConversions::yearToString(std::uint16_t value) {
  return IntegerText(value);
}

WString CConversions::monthToString(std::uint8_t value) {
  return FormatString(u"--%02u", unsigned{value});
}

WString CConversions::dayToString(std::uint8_t value) {
  return FormatString(u"---%02u", unsigned{value});
}

std::int8_t CConversions::i1FromString(const WString& text, WhitespaceRule rule) {
  return Fit<std::int8_t>(i4FromString(text, rule), text, u"i1");
}

std::int16_t CConversions::i2FromString(const WString& text, WhitespaceRule rule) {
  return Fit<std::int16_t>(i4FromString(text, rule), text, u"i2");
}

std::int32_t CConversions::i4FromString(const WString& text, WhitespaceRule rule) {
  return ReadInteger<std::int32_t>(text, rule, u"i4");
}

std::int64_t CConversions::i8FromString(const WString& text, WhitespaceRule rule) {
  return ReadInteger<std::int64_t>(text, rule, u"i8");
}

std::uint8_t CConversions::ui1FromString(const WString& text, WhitespaceRule rule) {
  return Fit<std::uint8_t>(ui4FromString(text, rule), text, u"ui1");
}

std::uint16_t CConversions::ui2FromString(const WString& text, WhitespaceRule rule) {
  return Fit<std::uint16_t>(ui4FromString(text, rule), text, u"ui2");
}

std::uint32_t CConversions::ui4FromString(const WString& text, WhitespaceRule rule) {
  return ReadInteger<std::uint32_t>(text, rule, u"ui4");
}

std::uint64_t CConversions::ui8FromString(const WString& text, WhitespaceRule rule) {
  return ReadInteger<std::uint64_t>(text, rule, u"ui8");
}

float CConversions::r4FromString(const WString& text, WhitespaceRule rule) {
  return static_cast<float>(ReadReal(text, rule, u"r4"));
}

double CConversions::r8FromString(const WString& text, WhitespaceRule rule) {
  return ReadReal(text, rule, u"r8");
}

wchar CConversions::charFromString(const WString& given, WhitespaceRule rule) {
  const RuledText text(given, rule);
  if (text.Get().size() == 1) return text.Get().front();
  throw CTovikInvalidValueException(
      FormatString(u"The value [%s] can not be a char as it is either empty of greater than 1 char "
                   u"long",
                   text.Get().c_str()));
}

WString CConversions::stringFromString(const WString& text, WhitespaceRule rule) {
  return CWhitespaceUtils::ApplyRule(rule, text);
}

bool CConversions::booleanFromString(const WString& given, WhitespaceRule rule) {
  const RuledText text(given, rule);
  if (EqualIgnoringAsciiCase(text.Get(), u"true") || EqualText(text.Get(), u"1")) return true;
  if (EqualIgnoringAsciiCase(text.Get(), u"false") || EqualText(text.Get(), u"0")) return false;
  throw CTovikInvalidValueException(
      FormatString(u"A Boolean Value read from an XML document was invalid [%s]. Valid values are "
                   u"'true', 'false', '1', or '0'",
                   given.c_str()));
}

CBinaryData CConversions::hexBinaryFromString(const WString& text, WhitespaceRule rule) {
  return ReadBinary(text, rule, &CBinaryData::SetAsHexString);
}

CBinaryData CConversions::base64BinaryFromString(const WString& text, WhitespaceRule rule) {
  return ReadBinary(text, rule, &CBinaryData::SetAsBase64);
}

CBigInteger CConversions::integerFromString(const WString& text, WhitespaceRule rule) {
  return CBigInteger(RuledText(text, rule).Get().c_str());
}

CDecimal CConversions::decimalFromString(const WString& text, WhitespaceRule rule) {
  return CDecimal(RuledText(text, rule).Get().c_str());
}

CDateTimeSpan CConversions::durationFromString(const WString& given, WhitespaceRule rule) {
  const RuledText text(given, rule);
  CDateTimeSpan value;
  value.ParseXSDDuration(text.Get().c_str());
  return value;
}

CDateTime CConversions::dateFromString(const WString& text, WhitespaceRule rule) {
  return ReadDate(text, rule);
}

CDateTime CConversions::datetimeFromString(const WString& text, WhitespaceRule rule) {
  return ReadDate(text, rule, &CDateTime::ParseXSDDateTime);
}

CDateTime CConversions::timeFromString(const WString& text, WhitespaceRule rule) {
  return ReadDate(text, rule, &CDateTime::ParseXSDTime);
}

CDateTime CConversions::yearMonthFromString(const WString& text, WhitespaceRule rule) {
  return ReadDate(text, rule);
}

CDateTime CConversions::monthDayFromString(const WString& text, WhitespaceRule rule) {
  return ReadDate(text, rule);
}

std::uint16_t CConversions::yearFromString(const WString& text, WhitespaceRule rule) {
  const int year = ReadDate(text, rule).GetYear();
  // The kind has no sign, and its bits would be those of another year.
  if (year > 0) return static_cast<std::uint16_t>(year);
  throw CTovikInvalidValueException(
      FormatString(u"Invalid Year [%d] (1 <= year <= %d)", year, int{CDateTime::kMaxYear}));
}

std::uint8_t CConversions::monthFromString(const WString& text, WhitespaceRule rule) {
  return ReadDate(text, rule).GetMonth();
}

std::uint8_t CConversions::dayFromString(const WString& text, WhitespaceRule rule) {
  return ReadDate(text, rule).GetDay();
}

}  // namespace TovikXmlLib16
