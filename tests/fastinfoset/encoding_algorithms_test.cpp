#include "tovikxml/fastinfoset/encoding_algorithms.h"

#include <gtest/gtest.h>

#include "tests/fastinfoset/octets.h"
#include "tests/support/data_rows.h"

using namespace TovikXmlTest;

namespace {

WString Decoded(int algorithm, const std::string& octets) {
  return Outcome([&] {
    return CFastInfosetBinaryData(Octets(octets))
        .GetAsString(static_cast<unsigned long>(algorithm));
  });
}

WString Encoded(int algorithm, const WString& text) {
  return Outcome([&] {
    CFastInfosetBinaryData data(u"old");
    data.SetAsEncodedString(static_cast<unsigned long>(algorithm), text.c_str());
    return data.GetAsHexString();
  });
}

}  // namespace

TEST(EncodingAlgorithms, CarryOneValueBothWays) {
  ForEachRow("fastinfoset/codes.txt", "algorithms both ways",
             [](int algorithm, const WString& text, const std::string& octets) {
               EXPECT_EQ(Encoded(algorithm, text), Wide(octets));
               EXPECT_EQ(Decoded(algorithm, octets), text);
             });
}

TEST(EncodingAlgorithms, ReadListsAndRefuseWhatIsNoValue) {
  ForEachRow("fastinfoset/codes.txt", "algorithms read",
             [](int algorithm, const std::string& octets, const WString& text) {
               EXPECT_EQ(Decoded(algorithm, octets), text);
             });
  ForEachRow("fastinfoset/codes.txt", "algorithms written",
             [](int algorithm, const WString& text, const WString& octets) {
               EXPECT_EQ(Encoded(algorithm, text), octets);
             });
  CFastInfosetBinaryData data(u"old");
  EXPECT_THROW(data.SetAsEncodedString(11, u"x"), CTovikException);
  EXPECT_EQ(data.GetData(), nullptr);
}
