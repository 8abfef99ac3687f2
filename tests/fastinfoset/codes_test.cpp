#include "tovikxml/fastinfoset/codes.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/fastinfoset/octets.h"
#include "tovikxml/fastinfoset/octet_input.h"
#include "tovikxml/fastinfoset/octet_output.h"
#include "tovikxml/fastinfoset/restricted_alphabet.h"

using namespace TovikXmlTest;

namespace {

template <class Put>
CBinaryData Written(Put put) {
  CBinaryStream stream;
  CFIOctetOutput output(&stream);
  put(output);
  output.Flush();
  return stream.GetData();
}

// The 8-bit alphabet needs a text without surrogates and zeros.
WString AlphabetOf(std::size_t size) {
  WString alphabet;
  for (std::size_t i = 0; i < size; ++i) alphabet.push_back(static_cast<wchar>(0x100 + i));
  return alphabet;
}

WString FromAlphabet(const WString& alphabet, std::string_view hex) {
  WString text;
  const CBinaryData octets = Octets(hex);
  AppendOverAlphabet(text, alphabet, octets.GetData(), octets.GetLength());
  return text;
}

}  // namespace

TEST(Codes, CarryLengthsAcrossEveryBorder) {
  const struct {
    const FILengthCode& code;
    std::size_t length;
    const char* octets;
  } rows[] = {
      {kFILengthBit2, 1, "80"},           {kFILengthBit2, 64, "BF"},
      {kFILengthBit2, 65, "C000"},        {kFILengthBit2, 320, "C0FF"},
      {kFILengthBit2, 321, "E000000000"}, {kFILengthBit2, 66000, "E00001008F"},
      {kFILengthBit5, 1, "80"},           {kFILengthBit5, 8, "87"},
      {kFILengthBit5, 9, "8800"},         {kFILengthBit5, 264, "88FF"},
      {kFILengthBit5, 265, "8C00000000"}, {kFILengthBit5, 66000, "8C000100C7"},
      {kFILengthBit7, 1, "80"},           {kFILengthBit7, 2, "81"},
      {kFILengthBit7, 3, "8200"},         {kFILengthBit7, 258, "82FF"},
      {kFILengthBit7, 259, "8300000000"}, {kFILengthBit7, 66000, "83000100CD"},
  };
  for (const auto& row : rows) {
    const WString text(row.length, u'x');
    const CBinaryData octets = Written([&](CFIOctetOutput& o) { o.PutText(row.code, 0x80, text); });
    const std::string digits = DisplayUtf8(octets.GetAsHexString());
    EXPECT_EQ(digits.substr(0, digits.size() - 2 * row.length), row.octets);
    CFIOctetInput input(octets.GetData(), octets.GetLength());
    EXPECT_EQ(input.ReadString(row.code, input.ReadOctet()).length, row.length);
  }
}

TEST(Codes, CarryIndexesAcrossEveryBorder) {
  const struct {
    const FIIndexCode& code;
    std::uint32_t index;
    const char* octets;
  } rows[] = {
      {kFIIndexBit2, 1, "80"},
      {kFIIndexBit2, 64, "BF"},
      {kFIIndexBit2, 65, "C000"},
      {kFIIndexBit2, 8256, "DFFF"},
      {kFIIndexBit2, 8257, "E00000"},
      {kFIIndexBit2, 1048576, "EFDFBF"},
      {kFIIndexBit3, 1, "80"},
      {kFIIndexBit3, 32, "9F"},
      {kFIIndexBit3, 33, "A000"},
      {kFIIndexBit3, 2080, "A7FF"},
      {kFIIndexBit3, 2081, "A80000"},
      {kFIIndexBit3, 526368, "AFFFFF"},
      {kFIIndexBit3, 526369, "B0000000"},
      {kFIIndexBit3, 1048576, "B007F7DF"},
      {kFIIndexBit4, 1, "80"},
      {kFIIndexBit4, 16, "8F"},
      {kFIIndexBit4, 17, "9000"},
      {kFIIndexBit4, 1040, "93FF"},
      {kFIIndexBit4, 1041, "940000"},
      {kFIIndexBit4, 263184, "97FFFF"},
      {kFIIndexBit4, 263185, "98000000"},
      {kFIIndexBit4, 1048576, "980BFBEF"},
  };
  for (const auto& row : rows) {
    const CBinaryData octets =
        Written([&](CFIOctetOutput& o) { o.PutIndex(row.code, 0x80, row.index); });
    EXPECT_EQ(DisplayUtf8(octets.GetAsHexString()), row.octets);
    CFIOctetInput input(octets.GetData(), octets.GetLength());
    EXPECT_EQ(input.ReadIndex(row.code, input.ReadOctet()), row.index);
  }
}

TEST(Codes, RefuseUnknownFormsOfLengthsAndIndexes) {
  const auto failure = [](auto read) {
    const unsigned char zeros[8] = {};
    CFIOctetInput input(zeros, sizeof zeros);
    return MessageOf<CTovikException>([&] { read(input); });
  };
  const WString start = u"Failed to parse FastInfoset. Invalid ";
  for (const unsigned octet : {0x41u, 0x5Fu, 0x61u, 0x7Fu}) {
    EXPECT_EQ(failure([&](CFIOctetInput& in) { in.ReadString(kFILengthBit2, octet); }),
              start + u"NonEmptyOctetString type  on the second bit of an octet.");
  }
  for (const unsigned octet : {0x09u, 0x0Bu, 0x0Du, 0x0Fu}) {
    EXPECT_EQ(failure([&](CFIOctetInput& in) { in.ReadString(kFILengthBit5, octet); }),
              start + u"NonEmptyOctetString type  on the fifth bit of an octet.");
  }
  EXPECT_EQ(failure([](CFIOctetInput& in) { in.ReadIndex(kFIIndexBit3, 0x38); }),
            start + u"Encoding of integers 1 To 2^20 type  on the third bit of an octet.");
  EXPECT_EQ(failure([](CFIOctetInput& in) { in.ReadIndex(kFIIndexBit4, 0x1C); }),
            start + u"Encoding of integers 1 To 2^20 type  on the fourth bit of an octet.");
}

TEST(Codes, PackTextOverAlphabets) {
  const auto digits = [](WStringView alphabet, WStringView text) {
    const std::vector<unsigned char> octets = EncodeOverAlphabet(alphabet, text);
    return DisplayUtf8(CBinaryData::GetAsHexString(octets.data(), octets.size()));
  };
  const WString wide = AlphabetOf(200);
  EXPECT_EQ(digits(kFIAlphabets[0], u"-1.5"), "A1C5");
  EXPECT_EQ(digits(kFIAlphabets[1], u"2001-01-31T10:00:00Z "), "2001A01A31C10B00B00DEF");
  EXPECT_EQ(digits(wide, u"\u01C7\u0100"), "C700");
  EXPECT_EQ(digits(AlphabetOf(8), u"\u0107"), "7F");
  EXPECT_EQ(FromAlphabet(wide, "C700"), u"\u01C7\u0100");
  EXPECT_EQ(FromAlphabet(AlphabetOf(3), "1BFF"), u"\u0100\u0101\u0102");
  EXPECT_EQ(FromAlphabet(AlphabetOf(17), "08421F"), u"\u0101\u0101\u0101\u0101");
  EXPECT_EQ(FromAlphabet(AlphabetOf(2), "10"), u"\u0100\u0101\u0100\u0100");
  const struct {
    std::size_t size;
    WString text;
    const wchar* message;
  } refused[] = {
      {1, u"\u0100",
       u"Invalid Restricted Alphabet. Alphabet must contain between 2 and 2^20 characters."},
      {7, u"\u0100", u"Unsupported Feature in AppendRestrictedAlphabetString."},
      {16, u"\u0100", u"Unsupported Feature in AppendRestrictedAlphabetString."},
      {256, u"\u0100", u"Unsupported Feature in AppendRestrictedAlphabetString."},
      {15, u"\u010F", u"Invalid character not found for Restricted Alphabet."},
      {255, u"\u0101\u01FF", u"Invalid character not found for Restricted Alphabet."},
  };
  for (const auto& row : refused) {
    EXPECT_EQ(
        MessageOf<CTovikException>([&] { EncodeOverAlphabet(AlphabetOf(row.size), row.text); }),
        WString(u"Failed to write FastInfoset. ") + row.message);
  }
  EXPECT_EQ(FromAlphabet(AlphabetOf(15), "0FFF"), u"\u0100");
  for (const auto& [size, hex] : {std::pair(14, "E0"), {8, "80"}, {200, "C8"}, {1, "00"}}) {
    const std::size_t length = static_cast<std::size_t>(size);
    EXPECT_EQ(
        MessageOf<CTovikException>([&] { FromAlphabet(AlphabetOf(length), hex); }).substr(0, 28),
        u"Failed to parse FastInfoset.")
        << size;
  }
}
