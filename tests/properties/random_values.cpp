#include "tests/properties/random_values.h"

#include <bit>
#include <limits>

#include "tests/support/text.h"

namespace TovikXmlTest {
namespace {

template <class T>
std::int64_t Least() {
  return std::numeric_limits<T>::min();
}
template <class T>
std::int64_t Most() {
  return static_cast<std::int64_t>(std::numeric_limits<T>::max());
}

}  // namespace

WString RandomValues::Integer(std::int64_t least, std::int64_t most) {
  switch (Below(5)) {
    case 0:
      return CConversions::i8ToString(least);
    case 1:
      return CConversions::i8ToString(most);
    case 2:
      return u"0";
    default:
      return CConversions::i8ToString(
          std::uniform_int_distribution<std::int64_t>(least, most)(m_random));
  }
}

WString RandomValues::Digits(unsigned most) {
  WString digits;
  for (unsigned left = 1 + Below(most); left > 0; --left) {
    digits += static_cast<wchar>(u'0' + Below(10));
  }
  return digits;
}

// A number is taken in the form in which it prints: beyond those digits nothing is promised.
WString RandomValues::Real(bool isSingle) {
  static const wchar* const special[] = {u"NaN", u"INF", u"-INF"};
  static const wchar* const finite[] = {u"0", u"-0", u"1", u"0.1"};
  if (Has(kNotFinite) && Chance(15)) return special[Below(3)];
  if (Chance(15)) return finite[Below(4)];
  if (isSingle) {
    const auto number = std::bit_cast<float>(static_cast<std::uint32_t>(m_random()));
    return number - number == 0 ? CConversions::r4ToString(number) : u"1.401298e-45";
  }
  const auto number = std::bit_cast<double>(m_random());
  return number - number == 0 ? CConversions::r8ToString(number) : u"4.940656458412465e-324";
}

WString RandomValues::Zone() {
  static const wchar* const zones[] = {u"", u"Z", u"-01:00", u"-13:59", u"+00:30", u"+14:00"};
  return zones[Below(Has(kFractionOrOffset) ? 6 : 4)];
}

WString RandomValues::Date() {
  static const wchar* const dates[] = {u"-9999-01-01", u"-0001-12-31", u"0001-01-01", u"9999-12-31",
                                       u"2000-02-29"};
  if (Chance(40)) return dates[Below(5)];
  return FormatString(u"%04u-%02u-%02u", 1 + Below(9999), 1 + Below(12), 1 + Below(28));
}

WString RandomValues::Time() {
  static const wchar* const fractions[] = {u"", u".5", u".000000001", u".999999999"};
  return FormatString(u"%02u:%02u:%02u", Below(24), Below(60), Below(60)) +
         fractions[Has(kFractionOrOffset) ? Below(4) : 0];
}

WString RandomValues::Text(bool inAttribute) {
  static const WString pieces[] = {
      u"x",          u"word ",  u" ",      u"  ",         u"\n",    u"&",      u"<",      u">",
      u"\"",         u"'",      u"]]>",    u"&amp;",      u"&#10;", u"\u00e9", u"\u20ac", u"\u0085",
      u"\u2028",     u"\ufeff", u"\ufffd", u"\U0001F600", u"\\",    u"/",      u"\\u00",  u"\u007f",
      u"\U0010FFFD", u"--",     u"null",   u"{[:,",       u"?>",    u"0"};
  WString text;
  for (unsigned left = Chance(2) ? Below(6000) : Below(9); left > 0; --left) {
    text += pieces[Below(std::size(pieces))];
    if (!inAttribute || Has(kAttributeTab)) text += WString(Below(12) == 0, u'\t');
    if (Has(kCarriageReturn)) text += WString(Below(12) == 0, u'\r');
    if (Has(kControl)) text += WString(Below(20) == 0, u'\u0001');
  }
  if (Has(kCDataMarker) && Chance(5)) text.insert(0, u"<![CDATA[");
  return text;
}

WString RandomValues::Value(ItemType type, bool inAttribute) {
  switch (type) {
    case it_hexBinary:
    case it_base64Binary: {
      CBinaryData bytes;
      for (unsigned left = Chance(20) ? 0 : Below(Chance(5) ? 3000 : 20); left > 0; --left) {
        bytes.Append(static_cast<unsigned char>(Below(256)));
      }
      return type == it_hexBinary ? bytes.GetAsHexString() : bytes.GetAsBase64();
    }
    case it_i1:
      return Integer(Least<std::int8_t>(), Most<std::int8_t>());
    case it_i2:
      return Integer(Least<std::int16_t>(), Most<std::int16_t>());
    case it_i4:
      return Integer(Least<std::int32_t>(), Most<std::int32_t>());
    case it_i8:
      return Integer(Least<std::int64_t>(), Most<std::int64_t>());
    case it_ui1:
      return Integer(0, Most<std::uint8_t>());
    case it_ui2:
      return Integer(0, Most<std::uint16_t>());
    case it_ui4:
      return Integer(0, Most<std::uint32_t>());
    case it_ui8:
      return Has(kWideUnsigned) && Chance(30) ? u"18446744073709551615"
                                              : Integer(0, Most<std::int64_t>());
    case it_r4:
    case it_r8:
      return Real(type == it_r4);
    case it_duration:
      return Chance(20) ? u"-P65535Y4294967295M4294967295DT4294967295H0.000000001S"
                        : FormatString(u"P%uY%uM%uDT%uH%uM%u.%uS", Below(9), Below(99), Below(99),
                                       Below(99), Below(99), Below(99), Below(1000));
    case it_yearMonth: {
      const WString date = Date();
      return date.substr(0, date.size() - 3) + Zone();
    }
    case it_monthDay:
      return u"-" + FormatString(u"-%02u-%02u", 1 + Below(12), 1 + Below(28)) + Zone();
    case it_year:
      return FormatString(u"%u", 1000 + Below(9000));
    case it_month:
      return FormatString(u"--%02u", 1 + Below(12));
    case it_day:
      return FormatString(u"---%02u", 1 + Below(31));
    case it_date:
      return Date() + Zone();
    case it_datetime:
      return Date() + u"T" + Time() + Zone();
    case it_time:
      return Time() + Zone();
    case it_string:
      return Text(inAttribute);
    case it_boolean:
      return CConversions::booleanToString(Chance(50));
    case it_decimal:
      return (Chance(50) ? u"-" : u"") + Digits(50) + (Chance(50) ? u"." + Digits(30) : u"");
    case it_integer:
      return (Chance(50) ? u"-" : u"") + Digits(80);
    default:
      ADD_FAILURE() << "no values of kind " << type;
      return {};
  }
}

}  // namespace TovikXmlTest
