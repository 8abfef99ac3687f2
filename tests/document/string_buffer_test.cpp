#include "tovikxml/document/string_buffer.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/text.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;

namespace {

constexpr std::size_t kChunk = CStringBuffer::kDefaultChunkSize;

WString Joined(const CStringBuffer& buffer) {
  WString text = u">";
  buffer.AppendTo(text);
  return text.substr(1);
}

}  // namespace

TEST(StringBuffer, GoesOnBehindAMergedText) {
  CStringBuffer buffer;
  EXPECT_EQ(WString(buffer.GetString()), u"");
  buffer.Append(WString(kChunk, u'a'));
  EXPECT_EQ(buffer.GetChunkCount(), 1u);
  const wchar* lone = buffer.GetString();
  EXPECT_EQ(WString(lone), WString(kChunk, u'a'));

  buffer.Append(u'b');
  EXPECT_EQ(buffer.GetChunkCount(), 2u);
  EXPECT_EQ(buffer.GetLength(), kChunk + 1);
  EXPECT_EQ(buffer.GetChunk(0).data(), lone) << "appending moved the text";
  EXPECT_EQ(WString(buffer.GetString()), WString(kChunk, u'a') + u"b");
  EXPECT_EQ(buffer.GetChunkCount(), 1u);

  buffer.Append(u'c');
  EXPECT_EQ(buffer.GetChunkCount(), 2u);
  EXPECT_EQ(WString(buffer.GetString()), WString(kChunk, u'a') + u"bc");
}

TEST(StringBuffer, KeepsOnlyALoneChunkWhenCleared) {
  CStringBuffer buffer;
  buffer.Append(WString(kChunk + 1, u'a'));
  buffer.Clear();
  EXPECT_EQ(buffer.GetChunkCount(), 0u);
  EXPECT_EQ(WString(buffer.GetString()), u"");

  buffer.Append(WString(2 * kChunk, u'a'));
  const wchar* merged = buffer.GetString();
  buffer.Clear();
  EXPECT_EQ(buffer.GetLength(), 0u);
  EXPECT_EQ(WString(buffer.GetString()), u"");
  buffer.Append(WString(2 * kChunk, u'b'));
  EXPECT_EQ(buffer.GetString(), merged) << "the merged block was not kept";
  EXPECT_EQ(WString(merged), WString(2 * kChunk, u'b'));
}

TEST(StringBuffer, HoldsWhatWasAppendedInAnyPieces) {
  std::mt19937 random(20);
  CStringBuffer buffer;
  WString expected;
  while (expected.size() < 20 * kChunk) {
    const auto unit = static_cast<wchar>(random() | 1);
    const WString piece(random() % (random() % 8 == 0 ? 3 * kChunk : 40), unit);
    buffer.Append(unit);
    buffer.Append(piece);
    buffer.Append(piece.c_str());
    buffer.Append(static_cast<const wchar*>(nullptr));
    expected += unit + piece + piece;
    if (random() % 20 == 0) expected += buffer.GetString();
    if (expected.size() > buffer.GetLength()) buffer.Append(buffer.GetString());
  }
  EXPECT_EQ(buffer.GetLength(), expected.size());
  EXPECT_TRUE(Joined(buffer) == expected);
}

TEST(StringBuffer, RefusesTextBeyondItsLimit) {
  CStringBuffer buffer(kChunk + 10);
  buffer.Append(WString(kChunk + 9, u'a'));
  buffer.Append(u'b');
  const WString message = u"The text exceeds the limit of 4105 units";
  EXPECT_EQ(MessageOf<CTovikException>([&] { buffer.Append(u'c'); }), message);
  EXPECT_EQ(MessageOf<CTovikException>([&] { buffer.Append(u"cd"); }), message);
  EXPECT_EQ(WString(buffer.GetString()), WString(kChunk + 9, u'a') + u"b");
}
