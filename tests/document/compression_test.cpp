#include "tovikxml/document/compression.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "tests/support/text.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;
using namespace std::string_literals;

namespace {

constexpr CompressionType kTypes[] = {Compression_GZip, Compression_ZLib};

ByteArray ArrayOf(std::string_view text) {
  ByteArray bytes = NewByteArray(text.size());
  if (!text.empty()) std::memcpy(bytes.data.get(), text.data(), text.size());
  return bytes;
}

std::string StringOf(const ByteArray& bytes) {
  return {reinterpret_cast<const char*>(bytes.data.get()), bytes.length};
}

std::string Compressed(std::string_view text, CompressionType type) {
  ByteArray bytes = ArrayOf(text);
  CompressData(bytes, type);
  return StringOf(bytes);
}

constexpr std::uint64_t kAmple = std::uint64_t{1} << 30;

std::string Decompressed(std::string_view text, std::uint64_t limit = kAmple) {
  ByteArray bytes = ArrayOf(text);
  DecompressData(bytes, {limit, 1000});
  return StringOf(bytes);
}

// `length` bytes that compress, but not to next to nothing.
std::string LongText(std::size_t length) {
  std::mt19937 random(11);
  std::string text;
  while (text.size() < length) text += "<item id=\"" + std::to_string(random() % 10000) + "\"/>";
  return text.substr(0, length);
}

// The stored form of gzip without bytes (RFC 1952).
std::string EmptyGZip() {
  const std::string header("\x1f\x8b\x08\0\0\0\0\0\0\xff", 10);
  return header + std::string("\x01\0\0\xff\xff", 5) + std::string(8, '\0');
}

}  // namespace

TEST(Compression, ComesBackAtSizesAroundTheWorkArray) {
  for (const CompressionType type : kTypes) {
    for (const std::size_t size : {1000u, 65535u, 65536u, 65537u, 131072u, 1000000u}) {
      SCOPED_TRACE(size);
      const std::string text = LongText(size);
      const std::string compressed = Compressed(text, type);
      EXPECT_LT(compressed.size(), text.size());
      EXPECT_TRUE(Decompressed(compressed) == text);
      EXPECT_TRUE(Decompressed(compressed + "trailing bytes") == text);
    }
  }
}

TEST(Compression, WritesTheWrapperAskedFor) {
  const std::string text = LongText(1000);
  EXPECT_EQ(Compressed(text, Compression_GZip).substr(0, 3), "\x1f\x8b\x08");
  EXPECT_EQ(Compressed(text, Compression_ZLib).substr(0, 2), "\x78\x01") << "the level is not 1";
  EXPECT_EQ(Compressed(text, Compression_None), text);
  EXPECT_EQ(Compressed(text, static_cast<CompressionType>(3)), text);
}

TEST(Compression, FailsOnDataThatDoesNotShrink) {
  std::mt19937 random(3);
  std::string noise(100000, '\0');
  for (char& byte : noise) byte = static_cast<char>(random());
  // The gzip header alone takes 10 bytes, which is told by the code.
  for (const auto& [type, text, code] : {std::tuple(Compression_GZip, "0123456789"s, u"-5"),
                                         {Compression_ZLib, "0123456789"s, u"0"},
                                         {Compression_GZip, noise, u"0"},
                                         {Compression_ZLib, noise, u"0"}}) {
    ByteArray bytes = ArrayOf(text);
    EXPECT_EQ(Outcome([&, type = type] { CompressData(bytes, type); }),
              WString(u"!Exception Failed to compress data. [Error Code: ") + code + u"]");
    EXPECT_TRUE(StringOf(bytes) == text);
  }
}

TEST(Compression, CompressesBinaryData) {
  const std::string text = LongText(1000);
  CBinaryData data = ToBinaryData(ArrayOf(text));
  const CBinaryData shared = data;
  CompressBinaryData(data, Compression_None);
  EXPECT_EQ(data, shared);
  CompressBinaryData(data, Compression_GZip);
  EXPECT_EQ(StringOf(TakeBytes(data)), Compressed(text, Compression_GZip));
  EXPECT_EQ(shared, ToBinaryData(ArrayOf(text)));

  CBinaryData empty, few = ToBinaryData(ArrayOf("0123456789"));
  CompressBinaryData(empty, Compression_GZip);
  EXPECT_EQ(empty.GetData(), nullptr);
  EXPECT_EQ(Outcome([&] { CompressBinaryData(few, Compression_ZLib); }),
            u"!Exception Failed to compress data. [Error Code: 0]");
  EXPECT_EQ(few, ToBinaryData(ArrayOf("0123456789")));
}

TEST(Decompression, LeavesWhatIsNotCompressedAsItWas) {
  for (const std::string text :
       {"", "<", "<a/>", "\xef\xbb\xbf<a/>", "\xff\xfe<", "{}", "\x1f\x8b", "\x78\x01"}) {
    EXPECT_EQ(Decompressed(text), text);
  }
  EXPECT_EQ(Decompressed(EmptyGZip()), "");
  const std::string needsDictionary = "\x78\xbb" + std::string(20, 'd');
  EXPECT_EQ(Decompressed(needsDictionary), needsDictionary);
}

TEST(Decompression, LeavesACutStreamAsItWas) {
  for (const CompressionType type : kTypes) {
    const std::string compressed = Compressed(LongText(3000), type);
    for (std::size_t length = 0; length < compressed.size(); ++length) {
      const std::string cut = compressed.substr(0, length);
      ASSERT_TRUE(Decompressed(cut) == cut) << "at " << length;
    }
    const std::string large = Compressed(LongText(500000), type);
    const std::string lacksOne = large.substr(0, large.size() - 1);
    EXPECT_TRUE(Decompressed(lacksOne) == lacksOne) << "after several rounds of the work array";
  }
}

TEST(Decompression, NeverTakesADamagedStreamForAnother) {
  for (const CompressionType type : kTypes) {
    const std::string text = LongText(2000);
    const std::string compressed = Compressed(text, type);
    for (std::size_t at = 0; at < compressed.size(); ++at) {
      std::string damaged = compressed;
      damaged[at] = static_cast<char>(damaged[at] ^ 0x40);
      const std::string result = Decompressed(damaged);
      // Some bits of the wrapper and some distances can change and mean the same text.
      EXPECT_TRUE(result == damaged || result == text) << "at " << at;
    }
  }
}

TEST(Decompression, IsBounded) {
  const std::string bomb = Compressed(std::string(20000000, ' '), Compression_GZip);
  ASSERT_LT(bomb.size(), 200000u);
  for (const int limit : {1000000, 19999999}) {
    EXPECT_EQ(
        Outcome([&] { Decompressed(bomb, static_cast<std::uint64_t>(limit)); }),
        u"!Exception The decompressed data exceeds the limit of " + NumberText(limit) + u" bytes");
  }
  EXPECT_EQ(Decompressed(bomb, 20000000).size(), 20000000u);
  EXPECT_EQ(Decompressed(EmptyGZip(), 0), "");
  EXPECT_EQ(Decompressed("<a/>", 0), "<a/>");
}
