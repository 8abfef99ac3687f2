#include "tovikxml/document/text_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/support/text.h"
#include "tovikxml/document/byte_array.h"
#include "tovikxml/document/utf_conversion.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

constexpr std::size_t kChunk = CStringBuffer::kDefaultChunkSize;
const WString kHigh(1, wchar(0xD83D)), kLow(1, wchar(0xDE00)), kZero(1, u'\0');

std::string LowByteFirst(WStringView text) {
  std::string bytes;
  for (const wchar unit : text) {
    bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
  }
  return bytes;
}

std::string EncodedAs(XmlEncoding encoding, const WString& text) {
  CTextStream stream(encoding);
  stream.WriteString(text);
  return FromBytes(stream.GetBytes());
}

}  // namespace

TEST(TextStream, EncodesUpToTheFirstZeroUnit) {
  const WString text = u"a\u00e4\u20ac" + kHigh + kLow;
  EXPECT_EQ(EncodedAs(Encoding_UTF8, text), "a\u00e4\u20ac\U0001F600");
  EXPECT_EQ(EncodedAs(Encoding_UTF16, text), LowByteFirst(text));
  EXPECT_EQ(EncodedAs(Encoding_UTF16_Undeclared, text), LowByteFirst(text));
  for (std::size_t length = 0; length < 12; ++length) {
    const WString front(length, wchar(0x8001));
    EXPECT_EQ(EncodedAs(Encoding_UTF16, front + kZero + u"tail"), LowByteFirst(front));
    EXPECT_EQ(EncodedAs(Encoding_UTF8, front + kZero + kLow), EncodeUtf8(front));
  }
  const WString chunk(kChunk, u'x');
  EXPECT_EQ(EncodedAs(Encoding_UTF8, chunk + kZero + chunk + chunk), std::string(kChunk, 'x'));
}

TEST(TextStream, EncodesSurrogatesAcrossChunkBorders) {
  std::mt19937 random(7);
  int wellFormed = 0;
  for (int round = 0; round < 300; ++round) {
    // A border in sight of the first or second surrogate, seldom an unpaired one.
    WString text(kChunk * (1 + random() % 2) - random() % 4, u"x\u00e4\u20ac"[random() % 3]);
    for (std::size_t i = random() % 6; i > 0; --i) {
      text += random() % 20 == 0 ? kHigh : kHigh + kLow;
      if (random() % 20 == 0) text += kLow;
      if (random() % 4 == 0) text += u'y';
    }
    const auto expected = EncodeUtf8(text);
    wellFormed += expected ? 1 : 0;
    EXPECT_TRUE(EncodedAs(Encoding_UTF8, text) == expected.value_or("")) << "round " << round;
    EXPECT_TRUE(EncodedAs(Encoding_UTF16, text) == LowByteFirst(text)) << "round " << round;
  }
  EXPECT_GT(wellFormed, 100);
  EXPECT_LT(wellFormed, 290);
}

TEST(TextStream, TellsTextThatWouldBeLostFromNoText) {
  CTextStream stream(Encoding_UTF8);
  EXPECT_EQ(stream.GetBytes().GetData(), nullptr);
  EXPECT_EQ(stream.GetCheckedBytes().GetLength(), 0u);

  stream.WriteText(u"good text");
  stream.WriteChar(kHigh[0]);
  EXPECT_EQ(stream.GetBytes().GetLength(), 0u);
  EXPECT_EQ(Outcome([&] { stream.GetCheckedBytes(); }),
            u"!InvalidValue The text has an unpaired surrogate and cannot be written as UTF-8");
  stream.Write(kLow);
  EXPECT_EQ(FromBytes(stream.GetCheckedBytes()), "good text\U0001F600");
  stream.Write(kZero);
  EXPECT_EQ(Outcome([&] { stream.GetCheckedBytes(); }),
            u"!InvalidValue The text has a zero unit and cannot be written as bytes");
}

TEST(TextStream, HasNoBytesWithoutAnEncoding) {
  EXPECT_EQ(CTextStream().GetEncoding(), Encoding_None);
  EXPECT_EQ(Outcome([] { CTextStream().GetBytes(); }),
            u"!Exception Unknown Encoding, select UTF-8 (contact our support team)");
}

TEST(TextStream, KeepsItsTextUntilItIsOpened) {
  CTextStream stream(Encoding_UTF8);
  stream.Open();
  stream.WriteText(u"text");
  stream.WriteText(nullptr);
  stream.Flush();
  stream.Close();
  EXPECT_EQ(stream.GetLength(), 4u);
  EXPECT_EQ(WString(stream.GetString()), u"text");
  stream.Open();
  EXPECT_EQ(stream.GetLength(), 0u);
}

TEST(ByteArray, RefusesMoreThan32Bits) {
  EXPECT_EQ(Outcome([] { NewByteArray(std::uint64_t{1} << 32); }),
            u"!Exception Binary data is too long [4294967296]");
}

TEST(UtfConversion, GivesNothingForWhatIsNotWellFormed) {
  EXPECT_EQ(FromBytes(Utf16ToUtf8((u"a\u20ac" + kHigh + kLow).c_str())), "a\u20ac\U0001F600");
  for (const WString& text : {kHigh, kLow + kHigh, u"text" + kHigh, WString()}) {
    EXPECT_EQ(Utf16ToUtf8(text.c_str()).GetData(), nullptr);
  }
  EXPECT_EQ(Utf16ToUtf8(nullptr).GetData(), nullptr);

  const auto decoded = [](const std::string& bytes) {
    return Utf8ToUtf16(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  };
  EXPECT_EQ(decoded("a\u20ac\U0001F600"), u"a\u20ac" + kHigh + kLow);
  EXPECT_EQ(decoded(std::string("a\0b", 3)), u"a" + kZero + u"b");
  EXPECT_EQ(decoded("good\xc3"), u"");
  EXPECT_EQ(Utf8ToUtf16(nullptr, 0), u"");
}
