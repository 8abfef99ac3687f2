#include "tovikxml/base/format_string.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>

#include "tests/support/text.h"
#include "tovikxml/base/text.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

TEST(FormatString, FormatsEachConversion) {
  EXPECT_EQ(FormatString(u"[%s] %S %hs 100%%", u"wide \u4e16", "narrow", "too"),
            u"[wide \u4e16] narrow too 100%");
  EXPECT_EQ(FormatString(u"%d %i %u %ld %lu %lld", -1, 2, 3u, -4L, 5UL, -6LL), u"-1 2 3 -4 5 -6");
  EXPECT_EQ(FormatString(u"[0x%08X] [0x%08x] %x", 0xABu, 0xABu, 255u),
            u"[0x000000AB] [0x000000ab] ff");
  EXPECT_EQ(FormatString(u"%c|%5d|%-5d|%05d", u'\u00e9', 42, 42, -42), u"\u00e9|   42|42   |-0042");
  EXPECT_EQ(FormatString(u"%s%S|%-4.2s|%3s|%.*s", nullptr, nullptr, u"abc", u"d", 1, u"xy"),
            u"(null)(null)|ab  |  d|x");
  const WString longText(100000, u'x');
  EXPECT_EQ(FormatString(u"<%s>", longText.c_str()), u"<" + longText + u">");
}

TEST(FormatString, AgreesWithThatOfC) {
  const auto agrees = [](const char* format, auto... arguments) {
    char expected[400];
    std::snprintf(expected, sizeof expected, format, arguments...);
    EXPECT_EQ(FormatString(WidenAscii(format).c_str(), arguments...), WidenAscii(expected));
  };
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
  for (const char* format : {"%zu", "%#zx", "%#zo", "%#.3zx", "%-8zu|", "%08zX", "%.0zu", "% zd"}) {
    for (const std::size_t value : {std::size_t{0}, std::size_t{255}}) agrees(format, value);
  }
  for (const char* format :
       {"%d", "%+d", "% d", "%hd", "%hhd", "%hhu", "%.5d", "%08.5d", "%+08d"}) {
    for (const int value : {0, 7, -300, 70000}) agrees(format, value);
  }
  for (const char* format :
       {"%f", "%.2f", "%+.0f", "%#.0f", "%12.3e", "%-12g|", "%#G", "%a", "%09.1f"}) {
    for (const double value : {0.0, -2.5, 1e300, 1.0 / 3}) agrees(format, value);
  }
  agrees("%f %06F", HUGE_VAL, -HUGE_VAL);
  agrees("%Lg %jd %td", 0.1L, std::intmax_t{-1}, std::ptrdiff_t{2});
  agrees("%*d|%-*d|%*d|%.*f", 5, 1, 4, 2, -3, 3, 2, 0.125);
#pragma GCC diagnostic pop
}

TEST(FormatString, RefusesWhatItDoesNotKnow) {
  for (const WString format : {u"%n", u"%y", u"%", u"%hhhd", u"%99999999999d", u"%zf"}) {
    EXPECT_EQ(Outcome([&] { FormatString(format.c_str(), 1); }),
              u"!InvalidParam Unknown conversion in the format [" + format + u"]");
  }
}
