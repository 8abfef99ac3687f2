#include "tovikxml/fastinfoset/encoding_algorithms.h"

#include <gtest/gtest.h>

#include "tests/fastinfoset/octets.h"

using namespace TovikXmlTest;

namespace {

WString Decoded(unsigned long algorithm, std::string_view hex) {
  return CFastInfosetBinaryData(Octets(hex)).GetAsString(algorithm);
}

std::string Encoded(unsigned long algorithm, const WString& text) {
  CFastInfosetBinaryData data(u"old");
  data.SetAsEncodedString(algorithm, text.c_str());
  return DisplayUtf8(data.GetAsHexString());
}

}  // namespace

TEST(EncodingAlgorithms, CarryOneValueBothWays) {
  const struct {
    unsigned long algorithm;
    const wchar* text;
    const char* octets;
  } rows[] = {
      {1, u"00FF", "00FF"},
      {2, u"TWFu", "4D616E"},
      {3, u"-1", "FFFF"},
      {3, u"32767", "7FFF"},
      {4, u"300", "0000012C"},
      {4, u"-2147483648", "80000000"},
      {5, u"-2", "FFFFFFFFFFFFFFFE"},
      {6, u"true", "38"},
      {6, u"false", "30"},
      {7, u"1", "3F800000"},
      {7, u"-INF", "FF800000"},
      {8, u"0.1", "3FB999999999999A"},
      {9, u"00112233445566778899AABBCCDDEEFF", "00112233445566778899AABBCCDDEEFF"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Encoded(row.algorithm, row.text), row.octets);
    EXPECT_EQ(Decoded(row.algorithm, row.octets), row.text);
  }
  EXPECT_EQ(Encoded(10, u"\u00e9"), "C3A9");
  EXPECT_EQ(Encoded(7, u"NaN").substr(0, 3), "7FC");
}

TEST(EncodingAlgorithms, ReadLists) {
  EXPECT_EQ(Decoded(3, "0001FFFF8000"), u"1 -1 -32768");
  EXPECT_EQ(Decoded(4, "00000001FFFFFFFF"), u"1 -1");
  EXPECT_EQ(Decoded(7, "3F8000007F800000"), u"1 INF");
  EXPECT_EQ(Decoded(9, std::string(64, '0')), WString(32, u'0') + u" " + WString(32, u'0'));
  EXPECT_EQ(Decoded(6, "6A80"), u"true false true false true false");
  EXPECT_EQ(Decoded(6, "0F"), u"true true true true");
  EXPECT_EQ(Decoded(6, "400A"), u"false false false false false false false false");
  EXPECT_EQ(Decoded(6, "F0"), u"");
}

TEST(EncodingAlgorithms, RefuseOctetsAndTextsThatAreNoValue) {
  const struct {
    unsigned long algorithm;
    const char* octets;
    const wchar* message;
  } rows[] = {
      {3, "00", u"Invalid value for SHORT byte encoding."},
      {4, "000000", u"Invalid value for INT byte encoding."},
      {5, "00000000", u"Invalid value for LONG byte encoding."},
      {7, "0000000000", u"Invalid value for FLOAT byte encoding."},
      {8, "00000000", u"Invalid value for DOUBLE byte encoding."},
      {9, "00", u"Invalid value for UUID byte encoding."},
      {10, "41", u"Unknown byte encoding."},
      {0, "41", u"Unknown byte encoding."},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(MessageOf<CTovikException>([&] { Decoded(row.algorithm, row.octets); }), row.message);
  }
  EXPECT_EQ(CFastInfosetBinaryData().GetAsString(11), u"");
  CFastInfosetBinaryData data(u"old");
  EXPECT_EQ(MessageOf<CTovikException>([&] { data.SetAsEncodedString(11, u"x"); }),
            u"Unknown byte encoding.");
  EXPECT_EQ(data.GetData(), nullptr);
  for (const auto& [algorithm, text] : {std::pair(3ul, u"32768"),
                                        {4ul, u"x"},
                                        {5ul, u"9223372036854775808"},
                                        {6ul, u"2"},
                                        {7ul, u""},
                                        {10ul, u"\xD800"}}) {
    MessageOf<CTovikInvalidValueException>([&] { data.SetAsEncodedString(algorithm, text); });
  }
}
