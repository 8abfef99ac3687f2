#ifndef TOVIKXML_PLATFORM_FILE_H_
#define TOVIKXML_PLATFORM_FILE_H_

#include <cstddef>
#include <cstdint>

#include "tovikxml/base/wide_string.h"

/// Files, whole or in overlapped steps. Nothing else in the library calls the file system.
///
/// Failures come back as values, so that the caller can put its own words and the file name around
/// them; an error is the operating system's error number, and 0 means success. No operation is cut
/// short by a signal. A name that is not well-formed UTF-16 gives EILSEQ.
///
/// Reading in overlapped steps, with two buffers and at most one read in flight:
///
///     file.StartRead(next, kChunk, position);
///     parse(current);                                   // while the system reads ahead
///     const TransferResult result = file.FinishRead();      // result.length < kChunk: the last
///     chunk position += result.length;
///
/// A file object belongs to one thread and closes its file when it is destroyed. Internal.
namespace TovikXmlLib16 {

/// An open file, or none.
class CFileHandle {
 public:
  CFileHandle() = default;
  CFileHandle(const CFileHandle&) = delete;
  CFileHandle& operator=(const CFileHandle&) = delete;
  ~CFileHandle() { Close(); }

  int Open(const wchar* fileName, int flags);
  /// Closes the file, if one is open; the handle is empty afterwards even on an error.
  int Close();

  bool IsOpen() const { return m_descriptor != kNone; }
  int GetDescriptor() const { return m_descriptor; }

 private:
  static constexpr int kNone = -1;

  int m_descriptor = kNone;
};

struct SizeResult {
  int error = 0;
  std::uint32_t size = 0;
};

struct TransferResult {
  int error = 0;
  std::size_t length = 0;
};

/// An existing file, open for reading.
class CInputFile {
 public:
  /// Opens the file, closing one that was open. A directory gives EISDIR.
  int Open(const wchar* fileName);
  bool IsOpen() const { return m_file.IsOpen(); }
  void Close();

  /// The size in bytes. EFBIG if it takes more than 32 bits, ESPIPE if what is open has no size,
  /// such as a pipe or a device.
  SizeResult GetSize() const;
  /// Reads the first `length` bytes. EIO if the file holds fewer.
  int ReadWhole(unsigned char* buffer, std::size_t length);

  /// Starts to read up to `length` bytes at `offset`. The buffer must stay alive, and must not be
  /// touched, until `FinishRead`.
  int StartRead(unsigned char* buffer, std::size_t length, std::uint64_t offset);
  /// Waits for the read in flight and gives its byte count, which is below the length asked for
  /// only at the end of the file. With nothing in flight the count is 0.
  TransferResult FinishRead();

 private:
  CFileHandle m_file;
  unsigned char* m_buffer = nullptr;
  std::size_t m_length = 0;
  std::uint64_t m_offset = 0;
};

/// A file open for writing, created or emptied.
class COutputFile {
 public:
  /// Opens the file, closing one that was open.
  int Open(const wchar* fileName);
  bool IsOpen() const { return m_file.IsOpen(); }
  /// Gives the error that the system may have kept until now. The file is closed in any case.
  int Close();

  /// Writes behind what `Write` has written before, in full.
  int Write(const unsigned char* data, std::size_t length);

  /// Starts to write `length` bytes at `offset`, in full. The data must stay alive until
  /// `FinishWrite`. An error that is known at once is given here.
  int StartWrite(const unsigned char* data, std::size_t length, std::uint64_t offset);
  /// Waits for the write in flight and gives its byte count; 0 with nothing in flight.
  std::size_t FinishWrite();

 private:
  CFileHandle m_file;
  std::size_t m_inFlight = 0;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_PLATFORM_FILE_H_
