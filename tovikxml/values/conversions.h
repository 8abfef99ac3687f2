#ifndef TOVIKXML_VALUES_CONVERSIONS_H_
#define TOVIKXML_VALUES_CONVERSIONS_H_

#include <cstdint>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/values/whitespace.h"

namespace TovikXmlLib16 {

class CBigInteger;
class CBinaryData;
class CDateTime;
class CDateTimeSpan;
class CDecimal;

/// The lexical forms of all kinds of primitive values, one function to write and one to read each
/// kind:
///
///     WString text = CConversions::r8ToString(0.1);                                   // "0.1"
///     std::int32_t n = CConversions::i4FromString(u" 42 ", CWhitespaceUtils::ws_collapse);
///
/// The forms are those of XML Schema datatypes, and somewhat more is read, as the functions tell.
/// No locale takes part, and the functions may run on any thread.
///
/// A reader applies the whitespace rule first, whose failures pass through. It then throws
/// `CTovikInvalidValueException` for a text outside its form; "the type's name" in a message is the
/// part of the function's name before "FromString".
class TOVIKXML_EXPORT CConversions {
 public:
  using WhitespaceRule = CWhitespaceUtils::WhitespaceRule;

  static WString i1ToString(std::int8_t value);
  static WString i2ToString(std::int16_t value);
  static WString i4ToString(std::int32_t value);
  static WString i8ToString(std::int64_t value);
  static WString ui1ToString(std::uint8_t value);
  static WString ui2ToString(std::uint16_t value);
  static WString ui4ToString(std::uint32_t value);
  static WString ui8ToString(std::uint64_t value);

  /// "NaN", "INF", "-INF", or the number with at most 7 significant digits for float and 16 for
  /// double, in the manner of `%.7g` and `%.16g` of C.
  static WString r4ToString(float value);
  static WString r8ToString(double value);
  /// A format that is not empty formats the finite numbers instead: text with one conversion of
  /// `a A e E f F g G` as for printf of C, such as "%.2f", and "%%" for a percent sign. A result of
  /// more than 32 code units for float, 48 for double, is cut to that many. Throws
  /// `CTovikInvalidValueException` "Invalid number format [%s]" for any other format, and for a
  /// width or precision of more than four digits.
  static WString r4ToString(float value, const WString& format);
  static WString r8ToString(double value, const WString& format);

  static WString charToString(wchar value);
  static WString stringToString(const WString& value);
  /// "true" or "false".
  static WString booleanToString(bool value);

  static WString hexBinaryToString(const CBinaryData& value);
  static WString base64BinaryToString(const CBinaryData& value);

  static WString integerToString(const CBigInteger& value);
  /// As `CDecimal::ToString` does. A format that is not empty is the number of fraction digits,
  /// such as "2", read up to its first unit that is no digit; none is 0.
  static WString decimalToString(const CDecimal& value);
  static WString decimalToString(const CDecimal& value, const WString& format);

  static WString durationToString(const CDateTimeSpan& value);
  /// As `CDateTime::ToString` does, by the type of the value and not by the function.
  static WString dateToString(const CDateTime& value);
  static WString datetimeToString(const CDateTime& value);
  static WString timeToString(const CDateTime& value);
  static WString yearMonthToString(const CDateTime& value);
  static WString monthDayToString(const CDateTime& value);
  /// "2000" without padding, "--05" and "---09".
  static WString yearToString(std::uint16_t value);
  static WString monthToString(std::uint8_t value);
  static WString dayToString(std::uint8_t value);

  /// Whole numbers: decimal digits with an optional sign; white space before them is skipped, and a
  /// zero unit ends the text. "-1" read as an unsigned number of 32 or 64 bits wraps to the largest
  /// one. Throws "The value [%s] can not be converted to a %s" with the text after the rule and the
  /// type's name (the shorter types have the text read as `i4` or `ui4`, and the message says so),
  /// and "The value [%s] is to large to fit in a %s", with the text as given for the shorter types.
  static std::int8_t i1FromString(const WString& text, WhitespaceRule rule);
  static std::int16_t i2FromString(const WString& text, WhitespaceRule rule);
  static std::int32_t i4FromString(const WString& text, WhitespaceRule rule);
  static std::int64_t i8FromString(const WString& text, WhitespaceRule rule);
  static std::uint8_t ui1FromString(const WString& text, WhitespaceRule rule);
  static std::uint16_t ui2FromString(const WString& text, WhitespaceRule rule);
  static std::uint32_t ui4FromString(const WString& text, WhitespaceRule rule);
  static std::uint64_t ui8FromString(const WString& text, WhitespaceRule rule);

  /// "INF", "-INF", "NaN" (also "1.#QNAN" and "-NAN"), or a decimal number with optional fraction
  /// and exponent; white space before it is skipped, and a zero unit ends the text. Numbers beyond
  /// the range become infinities or zero. Throws "The value [%s] can not be converted to a %s".
  static float r4FromString(const WString& text, WhitespaceRule rule);
  static double r8FromString(const WString& text, WhitespaceRule rule);

  /// Exactly one code unit. Throws "The value [%s] can not be a char as it is either empty of
  /// greater than 1 char long".
  static wchar charFromString(const WString& text, WhitespaceRule rule);
  /// The text after the rule.
  static WString stringFromString(const WString& text, WhitespaceRule rule);
  /// "true", "false", "1" or "0" in either case. Throws "A Boolean Value read from an XML document
  /// was invalid [%s]. Valid values are 'true', 'false', '1', or '0'" with the text as given.
  static bool booleanFromString(const WString& text, WhitespaceRule rule);

  /// Read as `CBinaryData::SetAsHexString` and `SetAsBase64` do, whose exceptions pass through.
  static CBinaryData hexBinaryFromString(const WString& text, WhitespaceRule rule);
  static CBinaryData base64BinaryFromString(const WString& text, WhitespaceRule rule);

  /// Read as by the constructors of the classes, whose exceptions pass through with the text after
  /// the rule.
  static CBigInteger integerFromString(const WString& text, WhitespaceRule rule);
  static CDecimal decimalFromString(const WString& text, WhitespaceRule rule);

  /// Read as the parse functions of `CDateTimeSpan` and `CDateTime` do, whose exceptions pass
  /// through with the text after the rule. The shape of the text alone decides the type of the
  /// value: `dateFromString` of "2000" gives a gYear.
  static CDateTimeSpan durationFromString(const WString& text, WhitespaceRule rule);
  static CDateTime dateFromString(const WString& text, WhitespaceRule rule);
  static CDateTime datetimeFromString(const WString& text, WhitespaceRule rule);
  static CDateTime timeFromString(const WString& text, WhitespaceRule rule);
  static CDateTime yearMonthFromString(const WString& text, WhitespaceRule rule);
  static CDateTime monthDayFromString(const WString& text, WhitespaceRule rule);
  /// One field of a date in any shape that has it, without its zone. A shape without it throws
  /// `CTovikInvalidStateException`, and a year before 1 "Invalid Year [%d] (1 <= year <= 9999)".
  static std::uint16_t yearFromString(const WString& text, WhitespaceRule rule);
  static std::uint8_t monthFromString(const WString& text, WhitespaceRule rule);
  static std::uint8_t dayFromString(const WString& text, WhitespaceRule rule);
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_CONVERSIONS_H_
