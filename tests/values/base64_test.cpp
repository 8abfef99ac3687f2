#include "tovikxml/values/base64.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/support/text.h"

using namespace TovikXmlLib16;

namespace {

WString Encode(const std::string& bytes) {
  return CBase64::Encode(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

std::string Decode(const WString& text) {
  // Exactly the promised room, so that a sanitizer sees a byte too many.
  std::vector<unsigned char> bytes(CBase64::DecodedCapacity(text.size()));
  bytes.resize(CBase64::Decode(text, bytes.data()));
  return std::string(bytes.begin(), bytes.end());
}

}  // namespace

TEST(Base64, CodesTheVectorsOfTheStandardBothWays) {
  const struct {
    std::string bytes;
    WString text;
  } rows[] = {{"", u""},
              {"f", u"Zg=="},
              {"fo", u"Zm8="},
              {"foo", u"Zm9v"},
              {"foob", u"Zm9vYg=="},
              {"fooba", u"Zm9vYmE="},
              {"foobar", u"Zm9vYmFy"},
              {"\xfb\xff\xfe", u"+//+"}};
  for (const auto& row : rows) {
    EXPECT_EQ(Encode(row.bytes), row.text);
    EXPECT_EQ(Decode(row.text), row.bytes);
  }
}

TEST(Base64, ReadsLeniently) {
  const struct {
    WString text;
    std::string bytes;
  } rows[] = {{u"TW Fu", "Man"},
              {u"T\tW\rF\nu", "Man"},
              {u"TWFu====", "Man"},
              {u"TQ==TWFu", "M\x04\xd6\x16"},
              {u"=TWFu", "Man"},
              {u"TWF", "Ma"},
              {u"T", ""},
              {u"TW*u", ""},
              {u"TWFuTWFu-", ""},
              {u"TWF\u0175", ""},
              {u"TW\u00a0Fu", ""},
              {u"TW\x0b"
               u"Fu",
               ""},
              {u"====", ""}};
  for (const auto& row : rows) EXPECT_EQ(Decode(row.text), row.bytes) << DisplayUtf8(row.text);
}

TEST(Base64, KeepsRandomBytesOfEveryLength) {
  std::mt19937 random(20);
  for (std::size_t length = 0; length < 300; ++length) {
    std::string bytes(length, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    const WString text = Encode(bytes);
    EXPECT_EQ(text.size() % 4, 0u);
    EXPECT_EQ(Decode(text), bytes);
  }
}
