#include "tovikxml/platform/file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "tests/support/temp_dir.h"
#include "tovikxml/platform/async_files.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

const unsigned char* Bytes(const std::string& text) {
  return reinterpret_cast<const unsigned char*>(text.data());
}

unsigned char* Bytes(std::string& text) {
  return reinterpret_cast<unsigned char*>(text.data());
}

// What is read from `file` in chunks, ended by one that is not full.
std::string ReadInChunks(CInputFile& file, std::size_t chunk) {
  std::string text, buffer(chunk, '?');
  TransferResult result{0, chunk};
  while (result.length == chunk) {
    EXPECT_EQ(file.StartRead(Bytes(buffer), chunk, text.size()), 0);
    result = file.FinishRead();
    EXPECT_EQ(result.error, 0);
    text.append(buffer, 0, result.length);
  }
  return text;
}

}  // namespace

TEST(InputFile, ReadsWholeAndInChunks) {
  const TempDir dir;
  for (const std::size_t size : {0u, 1u, 7u, 8u, 9u, 16u, 100u}) {
    SCOPED_TRACE(size);
    std::string content(size, 'x');
    for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>(i);
    const WString name = dir / u"Größe \U0001F4C4";
    MakeFile(name, content);

    CInputFile file;
    ASSERT_EQ(file.Open(name.c_str()), 0);
    ASSERT_EQ(file.GetSize().error, 0);
    ASSERT_EQ(file.GetSize().size, size);
    std::string whole(size, '?');
    EXPECT_EQ(file.ReadWhole(Bytes(whole), size), 0);
    EXPECT_EQ(whole, content);
    EXPECT_EQ(ReadInChunks(file, 8), content);
    EXPECT_EQ(file.FinishRead().length, 0u) << "no read is in flight";

    whole.resize(size + 1);
    EXPECT_EQ(file.ReadWhole(Bytes(whole), size + 1), EIO);
  }
}

TEST(InputFile, ReadsBeyond32BitsOnlyInChunks) {
  const TempDir dir;
  const WString name = dir / u"sparse";
  MakeFile(name, "");
  constexpr std::uint64_t kEnd = (std::uint64_t{1} << 32) + 5;
  std::filesystem::resize_file(name, kEnd - 6);

  CInputFile file;
  ASSERT_EQ(file.Open(name.c_str()), 0);
  EXPECT_EQ(file.GetSize().size, 0xFFFFFFFFu);
  std::filesystem::resize_file(name, kEnd - 5);
  EXPECT_EQ(file.GetSize().error, EFBIG);

  std::filesystem::resize_file(name, kEnd - 4);
  std::ofstream(std::filesystem::path(name), std::ios::app | std::ios::binary) << "tail";
  std::string buffer(8, '?');
  ASSERT_EQ(file.StartRead(Bytes(buffer), 8, kEnd - 4), 0);
  EXPECT_EQ(file.FinishRead().length, 4u);
  EXPECT_EQ(buffer, "tail????");
}

TEST(InputFile, GivesTheErrorNumberOfWhatCannotBeRead) {
  const TempDir dir;
  CInputFile file;
  const WString highSurrogate(1, wchar(0xD800));
  for (const auto& [name, error] : {std::pair(dir / u"none", ENOENT),
                                    {dir / u"none/file", ENOENT},
                                    {dir / u"", EISDIR},
                                    {WString(), ENOENT},
                                    {dir / u"bad" + highSurrogate, EILSEQ}}) {
    EXPECT_EQ(file.Open(name.c_str()), error) << testing::PrintToString(name);
    EXPECT_FALSE(file.IsOpen());
  }
  EXPECT_EQ(file.Open(nullptr), ENOENT);
  EXPECT_EQ(file.StartRead(nullptr, 1, 0), EBADF);
  EXPECT_EQ(file.GetSize().error, EBADF);

  const WString secret = dir / u"secret";
  MakeFile(secret, "x");
  std::filesystem::permissions(secret, std::filesystem::perms::none);
  const bool mayReadAll = geteuid() == 0;
  EXPECT_EQ(file.Open(secret.c_str()), mayReadAll ? 0 : EACCES);
}

TEST(InputFile, RefusesTheSizeOfWhatHasNone) {
  const TempDir dir;
  const WString pipe = dir / u"pipe";
  ASSERT_EQ(mkfifo(std::filesystem::path(pipe).c_str(), 0600), 0);
  for (const WString& name : {pipe, WString(u"/dev/null")}) {
    CInputFile file;
    ASSERT_EQ(file.Open(name.c_str()), 0);
    EXPECT_EQ(file.GetSize().error, ESPIPE);
  }
  CInputFile file;
  ASSERT_EQ(file.Open(pipe.c_str()), 0);
  unsigned char byte;
  ASSERT_EQ(file.StartRead(&byte, 1, 0), 0);
  EXPECT_EQ(file.FinishRead().error, ESPIPE);
}

TEST(FileHandle, IsNotInheritedAndClosesItsFile) {
  int descriptor;
  {
    CFileHandle file;
    ASSERT_EQ(file.Open(u"/dev/null", O_RDONLY), 0);
    descriptor = file.GetDescriptor();
    EXPECT_EQ(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
  }
  EXPECT_EQ(fcntl(descriptor, F_GETFD), -1);
}

TEST(OutputFile, WritesWholeAndAtOffsets) {
  const TempDir dir;
  const WString name = dir / u"out";
  MakeFile(name, "what was there before");
  const std::string first = "first ", second = "second";

  COutputFile file;
  ASSERT_EQ(file.Open(name.c_str()), 0);
  EXPECT_EQ(FileBytes(name), "");
  EXPECT_EQ(file.Write(Bytes(first), first.size()), 0);
  EXPECT_EQ(file.Write(Bytes(second), second.size()), 0);
  EXPECT_EQ(file.Close(), 0);
  EXPECT_EQ(FileBytes(name), "first second");

  ASSERT_EQ(file.Open(name.c_str()), 0);
  EXPECT_EQ(file.FinishWrite(), 0u);
  EXPECT_EQ(file.StartWrite(Bytes(second), second.size(), 6), 0);
  EXPECT_EQ(file.FinishWrite(), 6u);
  EXPECT_EQ(file.FinishWrite(), 0u);
  EXPECT_EQ(file.StartWrite(Bytes(first), first.size(), 0), 0);
  EXPECT_EQ(file.Close(), 0);
  EXPECT_EQ(FileBytes(name), "first second");
}

TEST(OutputFile, GivesTheErrorNumberOfWhatCannotBeWritten) {
  const TempDir dir;
  COutputFile file;
  EXPECT_EQ(file.Open((dir / u"none/file").c_str()), ENOENT);
  EXPECT_EQ(file.Open((dir / u"").c_str()), EISDIR);
  const std::string text = "text";
  EXPECT_EQ(file.Write(Bytes(text), 4), EBADF);
  EXPECT_EQ(file.StartWrite(Bytes(text), 4, 0), EBADF);

  ASSERT_EQ(file.Open(u"/dev/full"), 0);
  EXPECT_EQ(file.Write(Bytes(text), 4), ENOSPC);
  EXPECT_EQ(file.StartWrite(Bytes(text), 4, 0), ENOSPC);
}

TEST(AsyncFiles, AreTwoSettingsThatStartOff) {
  for (const bool enable : {false, true, false}) {
    EXPECT_FALSE(IsAsyncToXmlFile() || IsAsyncFromXmlFile());
    AsyncToXmlFile(enable);
    EXPECT_EQ(std::pair(IsAsyncToXmlFile(), IsAsyncFromXmlFile()), std::pair(enable, false));
    AsyncFromXmlFile(enable);
    AsyncToXmlFile(false);
    EXPECT_EQ(std::pair(IsAsyncToXmlFile(), IsAsyncFromXmlFile()), std::pair(false, enable));
    AsyncFromXmlFile(false);
  }
}
