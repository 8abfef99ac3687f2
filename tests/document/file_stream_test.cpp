#include <gtest/gtest.h>

#include <cerrno>

#include "tests/support/temp_dir.h"
#include "tests/support/text.h"
#include "tovikxml/document/binary_stream.h"
#include "tovikxml/document/file_text_stream.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

WString FailureWith(const WString& file, const WString& number) {
  return u"!Exception Failed to write data to the file [" + file + u"] error [" + number + u"]";
}

const WString kNoSpace =
    u"!Exception Failed to write data to the file. Error [0x0000001C]";  // ENOSPC

}  // namespace

TEST(FileTextStream, WritesItsBlocksInOrder) {
  const TempDir dir;
  const WString name = dir / u"ä.xml";
  const struct {
    XmlEncoding encoding;
    std::string mark, a, euro;
  } rows[] = {{Encoding_UTF8, "", "a", "\u20ac"},
              {Encoding_UTF16, "\xff\xfe", std::string("a\0", 2), "\xac\x20"},
              {Encoding_UTF16_Undeclared, "\xff\xfe", std::string("a\0", 2), "\xac\x20"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.encoding);
    MakeFile(name, "what was there before, and longer than what comes");
    CFileTextStream stream(name.c_str(), row.encoding);
    for (int round = 0; round < 2; ++round) {
      std::string expected = row.mark;
      stream.Open();
      EXPECT_EQ(FileBytes(name), expected);
      for (const char* step : {"a", "", "aa", "aaa"}) {
        for (; *step != 0; ++step) {
          stream.WriteText(u"a\u20ac");
          expected += row.a + row.euro;
        }
        stream.Flush();
        EXPECT_EQ(stream.GetLength(), 0u);
      }
      EXPECT_EQ(FileBytes(name), expected);
      stream.WriteChar(u'a');
      stream.Close();
      EXPECT_EQ(FileBytes(name), expected + row.a);
    }
    stream.Open();
    stream.Close();
    EXPECT_EQ(FileBytes(name), row.mark);
  }
}

TEST(FileTextStream, DropsTextThatWasNotFlushed) {
  const TempDir dir;
  const WString name = dir / u"file";
  {
    CFileTextStream stream(name.c_str(), Encoding_UTF8);
    stream.WriteText(u"before it was opened");
    stream.Open();
    stream.WriteText(u"flushed");
    stream.Flush();
    stream.WriteText(u"not flushed");
  }
  EXPECT_EQ(FileBytes(name), "flushed");
}

TEST(FileTextStream, RefusesTextWithoutUtf8FormWhenClosed) {
  const TempDir dir;
  const WString name = dir / u"file";
  CFileTextStream stream(name.c_str(), Encoding_UTF8);
  stream.Open();
  for (const wchar* text : {u"first", u"\xD800", u"last"}) {
    stream.WriteText(text);
    stream.Flush();
  }
  EXPECT_EQ(Outcome([&] { stream.Close(); }),
            u"!InvalidValue The text has an unpaired surrogate and cannot be written as UTF-8");
  EXPECT_EQ(FileBytes(name), "first");
  stream.Open();
  stream.Close();
}

TEST(FileTextStream, ReportsWhatTheSystemRefusesAndAMissingEncoding) {
  const TempDir dir;
  const WString none = dir / u"none/file", full = u"/dev/full";
  for (const auto& [name, encoding, number] : {std::tuple(none, Encoding_UTF8, u"0x00000002"),
                                               {dir / u"", Encoding_UTF8, u"0x00000015"},
                                               {full, Encoding_UTF16, u"0x0000001C"}}) {
    CFileTextStream stream(name.c_str(), encoding);
    EXPECT_EQ(Outcome([&] { stream.Open(); }), FailureWith(name, number));
  }
  CFileTextStream stream(full.c_str(), Encoding_UTF8);
  for (const auto end : {&CFileTextStream::Flush, &CFileTextStream::Close}) {
    stream.Open();
    stream.WriteChar(u'x');
    EXPECT_EQ(Outcome([&] { (stream.*end)(); }), kNoSpace);
  }
  EXPECT_EQ(Outcome([&] { stream.Flush(); }),
            u"!Exception Failed to write data to the file. Error [0x00000009]")
      << "the file is closed";
  CFileTextStream undecided((dir / u"file").c_str(), Encoding_None);
  undecided.Open();
  undecided.Flush();
  undecided.WriteChar(u'x');
  EXPECT_EQ(Outcome([&] { undecided.Flush(); }),
            u"!Exception Unknown Encoding, select UTF-8 (contact our support team)");
}

TEST(BinaryStream, CollectsBytes) {
  CBinaryStream stream(ToBytes("a"));
  stream.Append(static_cast<unsigned char>('b'));
  const CBinaryData before = stream.GetData();
  stream.Append(ToBytes("cd"));
  stream.Append(reinterpret_cast<const unsigned char*>("efg"), 2);
  EXPECT_EQ(stream.GetData(), ToBytes("abcdef"));
  EXPECT_EQ(before, ToBytes("ab"));
  EXPECT_EQ(CBinaryStream().GetData().GetData(), nullptr);
}

TEST(FileBinaryStream, SavesBehindTheMark) {
  const TempDir dir;
  const WString name = dir / u"file";
  const struct {
    XmlEncoding encoding;
    const char* mark;
  } rows[] = {{Encoding_None, ""},
              {Encoding_UTF8, ""},
              {Encoding_UTF16, "\xff\xfe"},
              {Encoding_UTF16_Undeclared, "\xff\xfe"}};
  for (const auto& row : rows) {
    CFileBinaryStream(name.c_str(), row.encoding, ToBytes("bytes")).SaveToFile();
    EXPECT_EQ(FileBytes(name), std::string(row.mark) + "bytes");
    CFileBinaryStream(name.c_str(), row.encoding, CBinaryData()).SaveToFile();
    EXPECT_EQ(FileBytes(name), row.mark);
  }
}

TEST(FileBinaryStream, ReportsWhatTheSystemRefuses) {
  const TempDir dir;
  const WString full = u"/dev/full", bad(1, wchar(0xDC00));
  for (const auto& [name, encoding, data, number] :
       {std::tuple(dir / u"none/file", Encoding_UTF8, "x", u"0x00000002"),
        {dir / u"", Encoding_UTF8, "x", u"0x00000015"},
        {bad, Encoding_UTF8, "x", u"0x00000054"},
        {full, Encoding_UTF16, "", u"0x0000001C"},
        {full, Encoding_UTF8, "x", u"0x0000001C"}}) {
    CFileBinaryStream stream(name.c_str(), encoding, ToBytes(data));
    EXPECT_EQ(Outcome([&] { stream.SaveToFile(); }), FailureWith(name, number));
  }
}
