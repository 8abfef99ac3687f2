#include "tovikxml/values/conversions.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <random>
#include <string>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tovikxml/values/big_integer.h"
#include "tovikxml/values/binary_data.h"
#include "tovikxml/values/date_time.h"
#include "tovikxml/values/date_time_span.h"
#include "tovikxml/values/decimal.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;
using C = CConversions;
using W = CWhitespaceUtils;

namespace {

using Through = std::function<WString(const WString&, W::WhitespaceRule)>;

template <class T>
using Parameter = std::conditional_t<std::is_class_v<T>, const T&, T>;

// Reads a text and writes the value.
template <class T>
Through Type(T (*read)(const WString&, W::WhitespaceRule), WString (*write)(Parameter<T>)) {
  return [=](const WString& text, W::WhitespaceRule rule) { return write(read(text, rule)); };
}

const std::map<std::string, Through> kTypes = {
    {"i1", Type(C::i1FromString, C::i1ToString)},
    {"i2", Type(C::i2FromString, C::i2ToString)},
    {"i4", Type(C::i4FromString, C::i4ToString)},
    {"i8", Type(C::i8FromString, C::i8ToString)},
    {"ui1", Type(C::ui1FromString, C::ui1ToString)},
    {"ui2", Type(C::ui2FromString, C::ui2ToString)},
    {"ui4", Type(C::ui4FromString, C::ui4ToString)},
    {"ui8", Type(C::ui8FromString, C::ui8ToString)},
    {"r4", Type(C::r4FromString, C::r4ToString)},
    {"r8", Type(C::r8FromString, C::r8ToString)},
    {"char", Type(C::charFromString, C::charToString)},
    {"string", Type(C::stringFromString, C::stringToString)},
    {"boolean", Type(C::booleanFromString, C::booleanToString)},
    {"hexBinary", Type(C::hexBinaryFromString, C::hexBinaryToString)},
    {"base64Binary", Type(C::base64BinaryFromString, C::base64BinaryToString)},
    {"decimal", Type(C::decimalFromString, C::decimalToString)},
    {"integer", Type(C::integerFromString, C::integerToString)},
    {"duration", Type(C::durationFromString, C::durationToString)},
    {"date", Type(C::dateFromString, C::dateToString)},
    {"datetime", Type(C::datetimeFromString, C::datetimeToString)},
    {"time", Type(C::timeFromString, C::timeToString)},
    {"yearMonth", Type(C::yearMonthFromString, C::yearMonthToString)},
    {"monthDay", Type(C::monthDayFromString, C::monthDayToString)},
    {"year", Type(C::yearFromString, C::yearToString)},
    {"month", Type(C::monthFromString, C::monthToString)},
    {"day", Type(C::dayFromString, C::dayToString)},
};

const std::map<std::string, W::WhitespaceRule> kRules = {
    {"none", W::ws_none},
    {"replace", W::ws_replace},
    {"collapse", W::ws_collapse},
    {"unknown", static_cast<W::WhitespaceRule>(9)}};

WString NoNumber(const WString& text, const WString& type) {
  return u"!InvalidValue The value [" + text + u"] can not be converted to a " + type;
}

}  // namespace

TEST(Conversions, TextsAreReadAndWritten) {
  ForEachRow("values/conversions.txt", "texts",
             [](const std::string& type, const std::string& rule, const WString& text,
                const WString& outcome) {
               const auto convert = [&] { return kTypes.at(type)(text, kRules.at(rule)); };
               EXPECT_EQ(Outcome(convert), outcome);
             });
}

TEST(Conversions, IntegersAreReadInTheMannerOfC) {
  ForEachRow("values/conversions.txt", "integers in the manner of C",
             [](const WString& text, long long value) {
               EXPECT_EQ(C::i1FromString(text, W::ws_none), value);
               EXPECT_EQ(C::i4FromString(text, W::ws_none), value);
               EXPECT_EQ(C::i8FromString(text, W::ws_none), value);
               EXPECT_EQ(C::ui4FromString(text, W::ws_none), static_cast<std::uint32_t>(value));
               EXPECT_EQ(C::ui8FromString(text, W::ws_none), static_cast<std::uint64_t>(value));
             });
}

TEST(Conversions, TextThatIsNoNumberIsNamedByTheWiderType) {
  const std::map<std::string, WString> wider = {{"i1", u"i4"},   {"i2", u"i4"},   {"i4", u"i4"},
                                                {"i8", u"i8"},   {"ui1", u"ui4"}, {"ui2", u"ui4"},
                                                {"ui4", u"ui4"}, {"ui8", u"ui8"}};
  ForEachRow("values/conversions.txt", "no integers", [&](const WString& text) {
    for (const auto& [type, named] : wider) {
      EXPECT_EQ(Outcome([&] { kTypes.at(type)(text, W::ws_none); }), NoNumber(text, named));
    }
  });
  ForEachRow("values/conversions.txt", "no reals", [](const WString& text) {
    for (const char* const type : {"r4", "r8"}) {
      EXPECT_EQ(Outcome([&] { kTypes.at(type)(text, W::ws_none); }), NoNumber(text, Wide(type)));
    }
  });
}

TEST(Conversions, NumbersFollowAFormatAndAreCutAtTheirRoom) {
  ForEachRow(
      "values/conversions.txt", "formatted reals",
      [](const std::string& type, double number, const WString& format, const WString& text) {
        const auto write = [&] {
          return type == "r4" ? C::r4ToString(static_cast<float>(number), format.c_str())
                              : C::r8ToString(number, format.c_str());
        };
        EXPECT_EQ(Outcome(write), text);
      });
  ForEachRow("values/conversions.txt", "formatted decimals",
             [](const WString& format, const WString& text) {
               const CDecimal value(u"1.005");
               EXPECT_EQ(Outcome([&] { return C::decimalToString(value, format.c_str()); }), text);
             });
}

TEST(Conversions, RandomNumbersComeBack) {
  std::mt19937_64 random(11);
  for (int i = 0; i < 2000; ++i) {
    const auto number = static_cast<std::int64_t>(random() >> (i % 64));
    EXPECT_EQ(C::i8FromString(C::i8ToString(number), W::ws_none), number);
    const double real =
        C::r8FromString(C::r8ToString(static_cast<double>(number) / 1e9), W::ws_none);
    const WString text = C::r8ToString(real);
    EXPECT_EQ(C::r8ToString(C::r8FromString(text, W::ws_none)), text);
    EXPECT_EQ(C::r8FromString(C::r8ToString(real, u"%.17g"), W::ws_none), real);
  }
}

TEST(Conversions, DatesHaveTheTypeOfTheirText) {
  EXPECT_EQ(C::dateFromString(u" 2000 ", W::ws_collapse).GetTypeAsString(), u"gYear");
  EXPECT_EQ(C::monthDayFromString(u"2000-01-01", W::ws_none).GetTypeAsString(), u"date");
  EXPECT_EQ(C::monthToString(255), u"--255");
}
