#include "tovikxml/values/binary_data.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/text.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;

namespace {

CBinaryData Make(std::string bytes) {
  return CBinaryData(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size(), false);
}

std::string BytesOf(const CBinaryData& data) {
  return std::string(data.GetData(), data.GetData() + data.GetLength());
}

struct Converter : CBinaryData {
  using CBinaryData::ConvertToHexData;
};

}  // namespace

TEST(BinaryData, AttachesCopiesOrLeavesTheArray) {
  unsigned char local[] = {1, 2};
  const CBinaryData none(local, 0, true);  // freeing `local` would not go unnoticed
  EXPECT_EQ(none.GetData(), nullptr);
  EXPECT_EQ(none.GetLength(), 0u);
  auto* const array = new unsigned char[2]{1, 2};
  const CBinaryData attached(array, 2, true);
  EXPECT_EQ(attached.GetData(), array);
  const CBinaryData copied(local, 2, false);
  EXPECT_NE(copied.GetData(), local);
  EXPECT_EQ(copied, attached);
}

TEST(BinaryData, TellsNoBufferFromAnEmptyOne) {
  CBinaryData empty;
  empty.SetAsBase64(u"=");
  EXPECT_NE(empty.GetData(), nullptr);
  EXPECT_EQ(empty.GetLength(), 0u);
  EXPECT_NE(empty, CBinaryData());
  EXPECT_EQ(CBinaryData(), CBinaryData());
  EXPECT_NE(Make("ab"), Make("ac"));
  EXPECT_NE(Make("ab"), Make("abc"));
  CBinaryData copy = empty;
  copy.Append(static_cast<unsigned char>(7));
  EXPECT_EQ(BytesOf(copy), "\x07");
  EXPECT_EQ(empty.GetLength(), 0u);
}

TEST(BinaryData, TakesTextAsItsUnits) {
  const WString text = u"a\u4e16";
  const std::string bytes(reinterpret_cast<const char*>(text.data()), 4);
  EXPECT_EQ(BytesOf(CBinaryData(text.c_str())), bytes);
  CBinaryData data(u"");
  EXPECT_EQ(data.GetData(), nullptr);
  data.SetBuffer(static_cast<const wchar*>(nullptr));
  EXPECT_EQ(data.GetData(), nullptr);
  data.Append(text[0]);
  data.Append(WString(u"\u4e16\0cut", 5));
  data.Append(text.c_str());
  EXPECT_EQ(BytesOf(data), bytes + bytes);
  data.SetBuffer(u"");
  EXPECT_EQ(data, CBinaryData());
}

TEST(BinaryData, CopiesOnTheFirstWriteThroughASharedHandle) {
  CBinaryData first = Make("abc");
  const CBinaryData second = first;
  EXPECT_EQ(first.GetData(), second.GetData());
  EXPECT_EQ(std::as_const(first)[1], 'b');
  EXPECT_EQ(first.GetData(), second.GetData());
  first[1] = 'x';
  EXPECT_EQ(BytesOf(first), "axc");
  CBinaryData third = second;
  third.Append(first);
  EXPECT_EQ(BytesOf(third), "abcaxc");
  CBinaryData fourth = second;
  const std::unique_ptr<unsigned char[]> released(fourth.ReleaseData());
  EXPECT_NE(released.get(), second.GetData());
  EXPECT_EQ(fourth, CBinaryData());
  EXPECT_EQ(fourth.ReleaseData(), nullptr);
  EXPECT_EQ(BytesOf(second), "abc");
}

TEST(BinaryData, SurvivesUseOfItself) {
  for (const std::size_t length : {3u, 5000u, 20000u}) {
    const std::string bytes(length, 'q');
    CBinaryData data = Make(bytes);
    auto& same = data;
    data = same;
    EXPECT_EQ(BytesOf(data), bytes);
    data.Append(same);
    data.Append(data.GetData(), data.GetLength());
    EXPECT_EQ(BytesOf(data), bytes + bytes + bytes + bytes);
    data.SetBuffer(data.GetData() + 1, 2);
    EXPECT_EQ(BytesOf(data), "qq");
    data = std::move(same);
    EXPECT_EQ(BytesOf(data), "qq");
  }
}

TEST(BinaryData, GrowsThroughOddSizes) {
  CBinaryData data;
  std::string expected;
  for (std::size_t piece = 0; piece < 400; ++piece) {
    const std::string bytes(piece * 7 % 253, static_cast<char>(piece));
    data.Append(Make(bytes));
    expected += bytes;
    if (piece % 3 == 0) {
      data.Append(static_cast<unsigned char>(piece));
      expected += static_cast<char>(piece);
    }
  }
  EXPECT_EQ(BytesOf(data), expected);
  data.Clear();
  EXPECT_EQ(data.GetData(), nullptr);
}

TEST(BinaryData, WritesAndReadsHexadecimal) {
  CBinaryData data;
  data.SetAsHexString(u"00ff9A");
  EXPECT_EQ(BytesOf(data), std::string("\0\xff\x9a", 3));
  EXPECT_EQ(data.GetAsHexString(), u"00FF9A");
  EXPECT_EQ(CBinaryData::GetAsHexString(nullptr, 4), u"");
  EXPECT_EQ(CBinaryData().GetAsHexString(), u"");
  data.SetAsHexString(u"");
  EXPECT_EQ(data.GetData(), nullptr);
  unsigned char* bytes = data.GetData();
  EXPECT_EQ(Converter::ConvertToHexData(u"0102", &bytes), 2u);
  EXPECT_EQ(bytes[1], 2);
  delete[] bytes;
}

TEST(BinaryData, WritesAndReadsBase64) {
  EXPECT_EQ(Make("Man").GetAsBase64(), u"TWFu");
  EXPECT_EQ(Make("M").GetAsBase64(), u"TQ==");
  EXPECT_EQ(CBinaryData().GetAsBase64(), u"");
  CBinaryData data;
  data.SetAsBase64(u"TW\nFu====");
  EXPECT_EQ(BytesOf(data), "Man");
  data.SetAsBase64(u"TW*u");
  EXPECT_EQ(data.GetLength(), 0u);
  EXPECT_NE(data.GetData(), nullptr);
  data.SetAsBase64(u"");
  EXPECT_EQ(data.GetData(), nullptr);
}

TEST(BinaryData, ReportsFaults) {
  CBinaryData data = Make("abc");
  EXPECT_EQ(MessageOf<CTovikException>([&] { data[3] = 1; }), u"Index Out of range [3]");
  EXPECT_EQ(MessageOf<CTovikException>([&] { (void)std::as_const(data)[77]; }),
            u"Index Out of range [77]");
  EXPECT_EQ(MessageOf<CTovikException>([] { CBinaryData()[0] = 1; }), u"Index Out of range [0]");
  EXPECT_EQ(MessageOf<CTovikException>([&] { data.SetAsHexString(u"012"); }),
            u"Invalid length in hex string");
  EXPECT_EQ(data.GetData(), nullptr);
  for (const wchar bad : WString(u"Gg/:@`\u0130 ")) {
    data = Make("abc");
    const WString text = WString(u"000") + bad;
    EXPECT_EQ(MessageOf<CTovikException>([&] { data.SetAsHexString(text.c_str()); }),
              WString(u"Invalid char in hex string [") + bad + u"]");
    EXPECT_EQ(data.GetData(), nullptr);
  }
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>(
                [&] { data.Append(static_cast<const unsigned char*>(nullptr), 1); }),
            u"Binary data is null");
  if constexpr (sizeof(unsigned long) > 4) {
    unsigned char byte = 0;
    for (const bool attach : {false, true}) {
      EXPECT_EQ(MessageOf<CTovikException>([&] { CBinaryData(&byte, 1ull << 32, attach); }),
                u"Binary data is too long [4294967296]");
    }
    data = Make("abc");
    EXPECT_EQ(MessageOf<CTovikException>([&] { data.Append(&byte, 0xFFFFFFFFu); }),
              u"Binary data is too long [4294967298]");
    EXPECT_EQ(BytesOf(data), "abc");
  }
}

TEST(BinaryData, HandlesAreCopiedAndDroppedOnSeveralThreads) {
  const CBinaryData shared = Make("abc");
  std::vector<std::thread> threads;
  std::vector<std::string> results(4);
  for (std::size_t t = 0; t < results.size(); ++t) {
    threads.emplace_back([&results, t, mine = shared] {
      for (int i = 0; i < 2000; ++i) {
        CBinaryData changed = mine;
        changed.Append(static_cast<unsigned char>('0' + t));
        const CBinaryData other = changed;
        changed[0] = 'x';
        results[t] = BytesOf(other) + BytesOf(changed);
      }
    });
  }
  for (auto& thread : threads) thread.join();
  for (std::size_t t = 0; t < results.size(); ++t) {
    const std::string digit(1, static_cast<char>('0' + t));
    EXPECT_EQ(results[t], "abc" + digit + "xbc" + digit);
  }
  CBinaryData last = shared;
  EXPECT_EQ(BytesOf(last), "abc");
}
