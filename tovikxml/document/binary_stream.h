#ifndef TOVIKXML_DOCUMENT_BINARY_STREAM_H_
#define TOVIKXML_DOCUMENT_BINARY_STREAM_H_

#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/document/encoding.h"
#include "tovikxml/values/binary_data.h"

namespace TovikXmlLib16 {

/// Where a binary writer puts its output: bytes in memory. Internal.
class CBinaryStream : public CInstanceMonitor {
 public:
  CBinaryStream();
  explicit CBinaryStream(const CBinaryData& data);
  ~CBinaryStream() override = default;

  void Append(unsigned char byte) { m_data.Append(byte); }
  void Append(const CBinaryData& data) { m_data.Append(data); }
  void Append(const unsigned char* data, unsigned long length) { m_data.Append(data, length); }

  /// The bytes so far. The result shares them until the next `Append`.
  CBinaryData GetData() const { return m_data; }

 protected:
  CBinaryStream(const wchar* className, const CBinaryData& data);

 private:
  CBinaryData m_data;
};

/// Bytes that go to a file in one piece, behind the byte order mark FF FE if the encoding is one of
/// the two of UTF-16. Internal.
class CFileBinaryStream : public CBinaryStream {
 public:
  /// Bytes that are not text in `encoding`, such as compressed ones, take `Encoding_None`.
  CFileBinaryStream(const wchar* fileName, XmlEncoding encoding, const CBinaryData& data);

  /// Creates or replaces the file. Raises `CTovikException` "Failed to write data to the file [%s]
  /// error [0x%08X]" with the operating system's error number; the file is then closed and stays on
  /// disk as far as it was written.
  void SaveToFile();

 private:
  WString m_fileName;
  XmlEncoding m_encoding;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_BINARY_STREAM_H_
