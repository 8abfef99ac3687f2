#include "tovikxml/values/binary_data.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/text.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

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
  EXPECT_NE(ToBytes("ab"), ToBytes("ac"));
  EXPECT_NE(ToBytes("ab"), ToBytes("abc"));
  CBinaryData copy = empty;
  copy.Append(static_cast<unsigned char>(7));
  EXPECT_EQ(FromBytes(copy), "\x07");
  EXPECT_EQ(empty.GetLength(), 0u);
}

TEST(BinaryData, TakesTextAsItsUnits) {
  const WString text = u"a\u4e16";
  const std::string bytes(reinterpret_cast<const char*>(text.data()), 4);
  EXPECT_EQ(FromBytes(CBinaryData(text.c_str())), bytes);
  CBinaryData data(u"");
  EXPECT_EQ(data.GetData(), nullptr);
  data.SetBuffer(static_cast<const wchar*>(nullptr));
  EXPECT_EQ(data.GetData(), nullptr);
  data.Append(text[0]);
  data.Append(WString(u"\u4e16\0cut", 5));
  data.Append(text.c_str());
  EXPECT_EQ(FromBytes(data), bytes + bytes);
  data.SetBuffer(u"");
  EXPECT_EQ(data, CBinaryData());
}

TEST(BinaryData, CopiesOnTheFirstWriteThroughASharedHandle) {
  CBinaryData first = ToBytes("abc");
  const CBinaryData second = first;
  EXPECT_EQ(first.GetData(), second.GetData());
  EXPECT_EQ(std::as_const(first)[1], 'b');
  EXPECT_EQ(first.GetData(), second.GetData());
  first[1] = 'x';
  EXPECT_EQ(FromBytes(first), "axc");
  CBinaryData third = second;
  third.Append(first);
  EXPECT_EQ(FromBytes(third), "abcaxc");
  CBinaryData fourth = second;
  const std::unique_ptr<unsigned char[]> released(fourth.ReleaseData());
  EXPECT_NE(released.get(), second.GetData());
  EXPECT_EQ(fourth, CBinaryData());
  EXPECT_EQ(fourth.ReleaseData(), nullptr);
  EXPECT_EQ(FromBytes(second), "abc");
}

TEST(BinaryData, SurvivesUseOfItself) {
  for (const std::size_t length : {3u, 5000u, 20000u}) {
    const std::string bytes(length, 'q');
    CBinaryData data = ToBytes(bytes);
    auto& same = data;
    data = same;
    EXPECT_EQ(FromBytes(data), bytes);
    data.Append(same);
    data.Append(data.GetData(), data.GetLength());
    EXPECT_EQ(FromBytes(data), bytes + bytes + bytes + bytes);
    data.SetBuffer(data.GetData() + 1, 2);
    EXPECT_EQ(FromBytes(data), "qq");
    data = std::move(same);
    EXPECT_EQ(FromBytes(data), "qq");
  }
}

TEST(BinaryData, GrowsThroughOddSizes) {
  CBinaryData data;
  std::string expected;
  for (std::size_t piece = 0; piece < 400; ++piece) {
    const std::string bytes(piece * 7 % 253, static_cast<char>(piece));
    data.Append(ToBytes(bytes));
    data.Append(static_cast<unsigned char>(piece));
    expected += bytes + static_cast<char>(piece);
  }
  EXPECT_EQ(FromBytes(data), expected);
  data.Clear();
  EXPECT_EQ(data.GetData(), nullptr);
}

TEST(BinaryData, WritesAndReadsHexadecimalAndBase64) {
  CBinaryData data;
  data.SetAsHexString(u"00ff9A");
  EXPECT_EQ(FromBytes(data), std::string("\0\xff\x9a", 3));
  EXPECT_EQ(data.GetAsHexString(), u"00FF9A");
  data.SetAsBase64(u"TW\nFu====");
  EXPECT_EQ(data.GetAsBase64(), u"TWFu");
  data.SetAsBase64(u"TW*u");
  EXPECT_EQ(data.GetLength(), 0u);
  EXPECT_NE(data.GetData(), nullptr);
  for (const auto set : {&CBinaryData::SetAsHexString, &CBinaryData::SetAsBase64}) {
    data = ToBytes("before");
    (data.*set)(u"");
    EXPECT_EQ(data.GetData(), nullptr);
  }
  EXPECT_EQ(CBinaryData::GetAsHexString(nullptr, 4), u"");
  EXPECT_EQ(CBinaryData().GetAsHexString() + CBinaryData().GetAsBase64(), u"");
  unsigned char* bytes = nullptr;
  EXPECT_EQ(Converter::ConvertToHexData(u"0102", &bytes), 2u);
  EXPECT_EQ(bytes[1], 2);
  delete[] bytes;
}

TEST(BinaryData, ReportsFaults) {
  CBinaryData data = ToBytes("abc");
  EXPECT_EQ(Outcome([&] { data[3] = 1; }), u"!Exception Index Out of range [3]");
  EXPECT_EQ(Outcome([&] { (void)std::as_const(data)[77]; }), u"!Exception Index Out of range [77]");
  EXPECT_EQ(Outcome([] { CBinaryData()[0] = 1; }), u"!Exception Index Out of range [0]");
  EXPECT_EQ(Outcome([&] { data.SetAsHexString(u"012"); }),
            u"!Exception Invalid length in hex string");
  EXPECT_EQ(data.GetData(), nullptr);
  for (const wchar bad : WString(u"Gg/:@`\u0130 ")) {
    data = ToBytes("abc");
    const WString text = WString(u"000") + bad;
    EXPECT_EQ(Outcome([&] { data.SetAsHexString(text.c_str()); }),
              WString(u"!Exception Invalid char in hex string [") + bad + u"]");
    EXPECT_EQ(data.GetData(), nullptr);
  }
  EXPECT_EQ(Outcome([&] { data.Append(static_cast<const unsigned char*>(nullptr), 1); }),
            u"!InvalidParam Binary data is null");
  if constexpr (sizeof(unsigned long) > 4) {
    unsigned char byte = 0;
    for (const bool attach : {false, true}) {
      EXPECT_EQ(Outcome([&] { CBinaryData(&byte, 1ull << 32, attach); }),
                u"!Exception Binary data is too long [4294967296]");
    }
    data = ToBytes("abc");
    EXPECT_EQ(Outcome([&] { data.Append(&byte, 0xFFFFFFFFu); }),
              u"!Exception Binary data is too long [4294967298]");
    EXPECT_EQ(FromBytes(data), "abc");
  }
}

TEST(BinaryData, HandlesAreCopiedAndDroppedOnSeveralThreads) {
  const CBinaryData shared = ToBytes("abc");
  std::vector<std::thread> threads;
  std::vector<std::string> results(4);
  for (std::size_t t = 0; t < results.size(); ++t) {
    threads.emplace_back([&results, t, mine = shared] {
      for (int i = 0; i < 2000; ++i) {
        CBinaryData changed = mine;
        changed.Append(static_cast<unsigned char>('0' + t));
        const CBinaryData other = changed;
        changed[0] = 'x';
        results[t] = FromBytes(other) + FromBytes(changed);
      }
    });
  }
  for (auto& thread : threads) thread.join();
  for (std::size_t t = 0; t < results.size(); ++t) {
    const std::string digit(1, static_cast<char>('0' + t));
    EXPECT_EQ(results[t], "abc" + digit + "xbc" + digit);
  }
  CBinaryData last = shared;
  EXPECT_EQ(FromBytes(last), "abc");
}
