#include "tovikxml/base/utf8.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"

using namespace TovikXmlLib16;

TEST(Utf8, ConvertsBothWaysAtEveryLengthAndOffset) {
  const std::u16string points[] = {u"a",      u"\u007f", u"\u0080", u"\u07ff",     u"\u0800",
                                   u"\ud7ff", u"\ue000", u"\uffff", u"\U00010000", u"\U0010ffff"};
  const std::string bytes[] = {"a",
                               "\x7f",
                               "\xc2\x80",
                               "\xdf\xbf",
                               "\xe0\xa0\x80",
                               "\xed\x9f\xbf",
                               "\xee\x80\x80",
                               "\xef\xbf\xbf",
                               "\xf0\x90\x80\x80",
                               "\xf4\x8f\xbf\xbf"};
  for (std::size_t i = 0; i < std::size(points); ++i) {
    for (std::size_t before = 0; before < 70; ++before) {
      const WString text = WString(before, u'x') + points[i] + u"tail of ascii";
      const std::string utf8 = std::string(before, 'x') + bytes[i] + "tail of ascii";
      EXPECT_EQ(EncodeUtf8(text), utf8) << "row " << i << " behind " << before;
      EXPECT_EQ(DecodeUtf8(utf8), text) << "row " << i << " behind " << before;
    }
  }
}

TEST(Utf8, RefusesWhatIsNotWellFormed) {
  for (const std::string bad : {"\x80", "\xc0\x80", "\xc1\xbf", "\xc3", "\xc3\x28", "\xe0\x9f\x80",
                                "\xe2\x82", "\xe2\x82x", "\xed\xa0\x80", "\xf0\x8f\xbf\xbf",
                                "\xf0\x90\x80", "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xff"}) {
    EXPECT_EQ(DecodeUtf8(bad), std::nullopt);
    EXPECT_EQ(DecodeUtf8("good text " + bad + " and on"), std::nullopt);
  }
  const WString high(1, wchar(0xD800)), low(1, wchar(0xDC00));
  for (const WString& bad : {high, low, low + high, high + u"x", u"text" + high}) {
    EXPECT_EQ(EncodeUtf8(bad), std::nullopt);
  }
  EXPECT_EQ(DisplayUtf8(u"a" + high + u"b"),
            "a\xef\xbf\xbd"
            "b");
}
