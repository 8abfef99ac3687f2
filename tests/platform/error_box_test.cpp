#include "tovikxml/platform/error_box.h"

#include <gtest/gtest.h>

using namespace TovikXmlLib16;

namespace {

WString g_shown;

void Remember(const WString& title, const WString& text) {
  g_shown = title + u"|" + text;
}

std::string PrintedBy(const WString& title, const WString& text) {
  testing::internal::CaptureStderr();
  ShowErrorBox(title, text);
  return testing::internal::GetCapturedStderr();
}

}  // namespace

TEST(ErrorBox, PrintsUtf8UntilItIsReplaced) {
  EXPECT_EQ(PrintedBy(u"Störung", u"\U0001F4A5 end"), "Störung: \U0001F4A5 end\n");

  EXPECT_EQ(SetErrorBox(Remember), nullptr);
  EXPECT_EQ(PrintedBy(u"a", u"b"), "");
  EXPECT_EQ(g_shown, u"a|b");

  EXPECT_EQ(SetErrorBox(nullptr), &Remember);
  EXPECT_EQ(PrintedBy(u"c", u"d"), "c: d\n");
  EXPECT_EQ(g_shown, u"a|b");
}
