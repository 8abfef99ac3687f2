#include "tovikxml/values/base64.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

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
  ForEachRow("values/base64.txt", "both ways", [](const std::string& octets, const WString& text) {
    EXPECT_EQ(Encode(FromHex(octets)), text);
    EXPECT_EQ(ToHex(Decode(text)), octets);
  });
}

TEST(Base64, ReadsLeniently) {
  ForEachRow("values/base64.txt", "lenient", [](const WString& text, const std::string& octets) {
    EXPECT_EQ(ToHex(Decode(text)), octets);
  });
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
