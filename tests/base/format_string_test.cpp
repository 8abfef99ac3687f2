#include "tovikxml/base/format_string.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"

using namespace TovikXmlLib16;

TEST(FormatString, FormatsEachConversion) {
  EXPECT_EQ(FormatString(u"[%s] %S 100%%", u"wide \u4e16", "narrow"), u"[wide \u4e16] narrow 100%");
  EXPECT_EQ(FormatString(u"%d %i %u %ld %lu %lld", -1, 2, 3u, -4L, 5UL, -6LL), u"-1 2 3 -4 5 -6");
  EXPECT_EQ(FormatString(u"[0x%08X] [0x%08x] %x", 0xABu, 0xABu, 255u),
            u"[0x000000AB] [0x000000ab] ff");
  EXPECT_EQ(FormatString(u"%c|%5d|%-5d|%05d", u'\u00e9', 42, 42, -42), u"\u00e9|   42|42   |-0042");
  EXPECT_EQ(
      FormatString(u"%s%S", static_cast<const wchar*>(nullptr), static_cast<const char*>(nullptr)),
      u"(null)(null)");
  EXPECT_EQ(FormatString(u"cut %"), u"cut ");
}

TEST(FormatString, IsNeverCut) {
  const WString longText(100000, u'x');
  EXPECT_EQ(FormatString(u"<%s>", longText.c_str()), u"<" + longText + u">");
}
