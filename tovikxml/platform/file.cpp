// Positions in files are 64 bits wide on every system.
#define _FILE_OFFSET_BITS 64  // NOLINT(bugprone-reserved-identifier)

#include "tovikxml/platform/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <limits>
#include <utility>

#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8.h"

namespace TovikXmlLib16 {
namespace {

// Read and write for everybody, less what the process masks out.
constexpr mode_t kCreationMode = 0666;

template <class Call>
auto RepeatIfInterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

// Calls `step(done)` until `length` bytes are done, a step does nothing or a step fails.
template <class Step>
TransferResult Transfer(std::size_t length, Step step) {
  TransferResult result;
  while (result.length < length) {
    const ssize_t count = RepeatIfInterrupted([&] { return step(result.length); });
    if (count < 0) result.error = errno;
    if (count <= 0) break;
    result.length += static_cast<std::size_t>(count);
  }
  return result;
}

// A transfer must be complete where the caller has given a length that is due.
int ErrorUnlessComplete(const TransferResult& result, std::size_t length) {
  if (result.error != 0) return result.error;
  return result.length == length ? 0 : EIO;
}

TransferResult ReadAt(int file, unsigned char* buffer, std::size_t length, std::uint64_t offset) {
  return Transfer(length, [&](std::size_t done) {
    return ::pread(file, buffer + done, length - done, static_cast<off_t>(offset + done));
  });
}

// Tells the system what will be read next; a system that takes no advice loses nothing.
void AdviseSequential([[maybe_unused]] int file) {
#ifdef POSIX_FADV_SEQUENTIAL
  ::posix_fadvise(file, 0, 0, POSIX_FADV_SEQUENTIAL);
#endif
}

void AdviseReadAhead([[maybe_unused]] int file, [[maybe_unused]] std::uint64_t offset,
                     [[maybe_unused]] std::size_t length) {
#ifdef POSIX_FADV_WILLNEED
  ::posix_fadvise(file, static_cast<off_t>(offset), static_cast<off_t>(length),
                  POSIX_FADV_WILLNEED);
#endif
}

}  // namespace

int CFileHandle::Open(const wchar* fileName, int flags) {
  Close();
  const auto name = EncodeUtf8(ViewOf(fileName));
  if (!name) return EILSEQ;
  m_descriptor = RepeatIfInterrupted(
      [&] { return ::open(name->c_str(), flags | O_CLOEXEC | O_NOCTTY, kCreationMode); });
  return IsOpen() ? 0 : errno;
}

int CFileHandle::Close() {
  if (!IsOpen()) return 0;
  // Not repeated after a signal: the descriptor may be free, and another thread's, by then.
  const int result = ::close(std::exchange(m_descriptor, kNone));
  return result == 0 || errno == EINTR ? 0 : errno;
}

int CInputFile::Open(const wchar* fileName) {
  m_length = 0;
  // Without O_NONBLOCK the opening of a pipe would wait for a writer.
  if (const int error = m_file.Open(fileName, O_RDONLY | O_NONBLOCK)) return error;
  struct stat status;
  int error = ::fstat(m_file.GetDescriptor(), &status) == 0 ? 0 : errno;
  if (error == 0 && S_ISDIR(status.st_mode)) error = EISDIR;
  if (error != 0) {
    Close();
    return error;
  }
  AdviseSequential(m_file.GetDescriptor());
  return 0;
}

void CInputFile::Close() {
  m_length = 0;
  m_file.Close();
}

SizeResult CInputFile::GetSize() const {
  struct stat status;
  if (::fstat(m_file.GetDescriptor(), &status) != 0) return {errno, 0};
  if (!S_ISREG(status.st_mode)) return {ESPIPE, 0};
  if (status.st_size > std::numeric_limits<std::uint32_t>::max()) return {EFBIG, 0};
  return {0, static_cast<std::uint32_t>(status.st_size)};
}

int CInputFile::ReadWhole(unsigned char* buffer, std::size_t length) {
  return ErrorUnlessComplete(ReadAt(m_file.GetDescriptor(), buffer, length, 0), length);
}

int CInputFile::StartRead(unsigned char* buffer, std::size_t length, std::uint64_t offset) {
  if (!IsOpen()) return EBADF;
  m_buffer = buffer;
  m_length = length;
  m_offset = offset;
  AdviseReadAhead(m_file.GetDescriptor(), offset, length);
  return 0;
}

TransferResult CInputFile::FinishRead() {
  return ReadAt(m_file.GetDescriptor(), m_buffer, std::exchange(m_length, 0), m_offset);
}

int COutputFile::Open(const wchar* fileName) {
  m_inFlight = 0;
  return m_file.Open(fileName, O_WRONLY | O_CREAT | O_TRUNC);
}

int COutputFile::Close() {
  m_inFlight = 0;
  return m_file.Close();
}

int COutputFile::Write(const unsigned char* data, std::size_t length) {
  const TransferResult result = Transfer(length, [&](std::size_t done) {
    return ::write(m_file.GetDescriptor(), data + done, length - done);
  });
  return ErrorUnlessComplete(result, length);
}

int COutputFile::StartWrite(const unsigned char* data, std::size_t length, std::uint64_t offset) {
  // The copy into the page cache is made here; the system writes it to the disk in its own time.
  const TransferResult result = Transfer(length, [&](std::size_t done) {
    return ::pwrite(m_file.GetDescriptor(), data + done, length - done,
                    static_cast<off_t>(offset + done));
  });
  m_inFlight = result.length;
  return ErrorUnlessComplete(result, length);
}

std::size_t COutputFile::FinishWrite() {
  return std::exchange(m_inFlight, 0);
}

}  // namespace TovikXmlLib16
