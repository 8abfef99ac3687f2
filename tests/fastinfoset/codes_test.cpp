#include "tovikxml/fastinfoset/codes.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "tests/fastinfoset/octets.h"
#include "tests/support/data_rows.h"
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

const std::map<int, const FILengthCode&> kLengthCodes = {
    {2, kFILengthBit2}, {5, kFILengthBit5}, {7, kFILengthBit7}};
const std::map<int, const FIIndexCode&> kIndexCodes = {
    {2, kFIIndexBit2}, {3, kFIIndexBit3}, {4, kFIIndexBit4}};

// The 8-bit alphabet needs a text without surrogates and zeros.
WString AlphabetOf(int size) {
  WString alphabet;
  for (int i = 0; i < size; ++i) alphabet.push_back(static_cast<wchar>(0x100 + i));
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
  ForEachRow("fastinfoset/codes.txt", "lengths", [](int bit, int length, const WString& octets) {
    const FILengthCode& code = kLengthCodes.at(bit);
    const WString text(static_cast<std::size_t>(length), u'x');
    const CBinaryData written = Written([&](CFIOctetOutput& o) { o.PutText(code, 0x80, text); });
    const WString digits = written.GetAsHexString();
    EXPECT_EQ(digits.substr(0, digits.size() - 2 * text.size()), octets);
    CFIOctetInput input(written.GetData(), written.GetLength());
    EXPECT_EQ(input.ReadString(code, input.ReadOctet()).length, text.size());
  });
}

TEST(Codes, CarryIndexesAcrossEveryBorder) {
  ForEachRow("fastinfoset/codes.txt", "indexes", [](int bit, int number, const WString& octets) {
    const FIIndexCode& code = kIndexCodes.at(bit);
    const auto index = static_cast<std::uint32_t>(number);
    const CBinaryData written = Written([&](CFIOctetOutput& o) { o.PutIndex(code, 0x80, index); });
    EXPECT_EQ(written.GetAsHexString(), octets);
    CFIOctetInput input(written.GetData(), written.GetLength());
    EXPECT_EQ(input.ReadIndex(code, input.ReadOctet()), index);
  });
}

TEST(Codes, RefuseUnknownFormsOfLengthsAndIndexes) {
  ForEachRow("fastinfoset/codes.txt", "unknown forms",
             [](const WString& what, int bit, const std::string& hex, const WString& message) {
               const unsigned char zeros[8] = {};
               CFIOctetInput input(zeros, sizeof zeros);
               const auto octet = static_cast<unsigned>(std::stoi(hex, nullptr, 16));
               const auto read = [&] {
                 if (what == u"length") {
                   input.ReadString(kLengthCodes.at(bit), octet);
                 } else {
                   input.ReadIndex(kIndexCodes.at(bit), octet);
                 }
               };
               EXPECT_EQ(Outcome(read),
                         u"!Exception Failed to parse FastInfoset. Invalid " + message);
             });
}

TEST(Codes, PackTextOverAlphabets) {
  ForEachRow("fastinfoset/codes.txt", "written over alphabets",
             [](const WString& size, const WString& text, const WString& outcome) {
               const WString alphabet = size == u"N"   ? WString(kFIAlphabets[0])
                                        : size == u"D" ? WString(kFIAlphabets[1])
                                                       : AlphabetOf(FieldAs<int>(size));
               const auto write = [&] {
                 const std::vector<unsigned char> octets = EncodeOverAlphabet(alphabet, text);
                 return CBinaryData::GetAsHexString(octets.data(), octets.size());
               };
               EXPECT_EQ(Outcome(write), outcome);
             });
  ForEachRow("fastinfoset/codes.txt", "read over alphabets",
             [](int size, const std::string& octets, const WString& outcome) {
               EXPECT_EQ(Outcome([&] { return FromAlphabet(AlphabetOf(size), octets); }), outcome);
             });
}
