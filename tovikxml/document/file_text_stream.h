#ifndef TOVIKXML_DOCUMENT_FILE_TEXT_STREAM_H_
#define TOVIKXML_DOCUMENT_FILE_TEXT_STREAM_H_

#include <cstdint>

#include "tovikxml/document/text_stream.h"
#include "tovikxml/platform/file.h"

namespace TovikXmlLib16 {

/// Writes text to a file in overlapped mode: while the operating system writes one block, the
/// writer fills the next. One write is in flight and two blocks are in memory, however long the
/// document. Both UTF-16 encodings begin with the byte order mark FF FE.
///
/// A failure closes the file, which stays on disk as far as it was written, and raises
/// `CTovikException`: "Failed to write data to the file [%s] error [0x%08X]" from `Open`, "Failed
/// to write data to the file. Error [0x%08X]" from `Flush` and `Close`. The number is the operating
/// system's. The destructor closes the file without writing what was not flushed. Internal.
class CFileTextStream : public CTextStream {
 public:
  CFileTextStream(const wchar* fileName, XmlEncoding encoding);

  /// Creates or empties the file.
  void Open() override;
  /// Writes what is left and closes the file. Raises `CTovikInvalidValueException` if the text had
  /// a zero unit, or an unpaired surrogate and no UTF-8 form; the file then ends in front of the
  /// block with it.
  void Close() override;
  /// Starts the write of the text and empties it. A surrogate pair must not be divided by a flush.
  void Flush() override;

 private:
  void StartWrite(const unsigned char* data, std::size_t length);
  [[noreturn]] void FailToWrite(int error);

  WString m_fileName;
  CBinaryData m_pending;  // what the write in flight reads from
  std::uint64_t m_offset = 0;
  std::exception_ptr m_refusal;
  COutputFile m_file;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_FILE_TEXT_STREAM_H_
