// What applications use of UTF-8 at the edge: the conversions that throw, and the printer for
// tests.

#include <vector>

#include "tests/support/text.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;

TEST(Utf8Edge, ConvertsOrSaysWhy) {
  EXPECT_EQ(ToUtf8(u"Zoë \U0001F642"), "Zo\xc3\xab \xf0\x9f\x99\x82");
  EXPECT_EQ(FromUtf8("Zo\xc3\xab \xf0\x9f\x99\x82"), u"Zoë \U0001F642");
  EXPECT_EQ(FromUtf8(std::string_view("a\0b", 3)), WString(u"a\0b", 3));
  EXPECT_EQ(MessageOf<CTovikInvalidValueException>([] { ToUtf8(u"a\xD800"); }),
            u"The text has an unpaired surrogate and cannot be written as UTF-8");
  const struct {
    const char* bytes;
    const wchar* message;
  } rows[] = {{"\xff", u"The bytes are not UTF-8 from offset [0] on"},
              {"Zo\xc3\xab\xc3", u"The bytes are not UTF-8 from offset [4] on"},
              {"sixteen letters!\x80", u"The bytes are not UTF-8 from offset [16] on"}};
  for (const auto& row : rows) {
    EXPECT_EQ(MessageOf<CTovikInvalidValueException>([&] { FromUtf8(row.bytes); }), row.message);
  }
}

// snippet: printer
TEST(Utf8Edge, GoogleTestShowsText) {
  EXPECT_EQ(testing::PrintToString(WString(u"Zoë \"中\"")), "u\"Zoë \"中\"\"");
}
// end snippet

TEST(Utf8Edge, GoogleTestShowsTextInsideOtherThings) {
  const WString text = u"Zoë";
  EXPECT_EQ(testing::PrintToString(text.c_str()), "u\"Zoë\"");
  EXPECT_EQ(testing::PrintToString(std::vector<WString>{text}), "{ u\"Zoë\" }");
  const auto compared = testing::internal::EqHelper::Compare("a", "b", text, u"ü");
  const std::string message = compared.message();
  EXPECT_NE(message.find("u\"Zoë\""), std::string::npos) << message;
  EXPECT_NE(message.find("u\"ü\""), std::string::npos) << message;
}
