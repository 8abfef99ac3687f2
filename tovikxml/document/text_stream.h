#ifndef TOVIKXML_DOCUMENT_TEXT_STREAM_H_
#define TOVIKXML_DOCUMENT_TEXT_STREAM_H_

#include <cstdint>

#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/document/encoding.h"
#include "tovikxml/document/string_buffer.h"
#include "tovikxml/values/binary_data.h"

namespace TovikXmlLib16 {

/// Where a text writer puts its output. This class keeps all of it in memory, to be read as text or
/// as bytes, also after `Close`; a derived class carries it elsewhere at each `Flush`.
///
///     CTextStream stream(Encoding_UTF8);
///     CXmlTextWriter writer(&stream);         // the stream outlives its writer
///     ...
///     writer.Close();
///     return stream.GetBytes();
///
/// A stream belongs to one thread. Internal.
class CTextStream : public CInstanceMonitor {
 public:
  /// A stream for text alone, which has no bytes.
  CTextStream();
  explicit CTextStream(XmlEncoding encoding);
  CTextStream(const CTextStream&) = delete;
  CTextStream& operator=(const CTextStream&) = delete;
  ~CTextStream() override = default;

  /// Empties the text.
  virtual void Open();
  virtual void Close();
  virtual void Flush();

  void WriteChar(wchar unit) { m_buffer.Append(unit); }
  void WriteText(const wchar* text) { m_buffer.Append(text); }
  void WriteString(const WString& text) { m_buffer.Append(text); }
  void Write(WStringView text) { m_buffer.Append(text); }

  /// Units that the stream holds now.
  std::uint32_t GetLength() const { return m_buffer.GetLength(); }
  /// The text, as `CStringBuffer::GetString` gives it.
  const wchar* GetString() { return m_buffer.GetString(); }
  /// The text as chunks.
  const CStringBuffer& GetBuffer() const { return m_buffer; }

  XmlEncoding GetEncoding() const { return m_encoding; }
  /// The text up to its first zero unit in the stream's encoding, without a byte order mark; empty
  /// if UTF-8 is asked for and there is an unpaired surrogate. Raises `CTovikException` "Unknown
  /// Encoding, select UTF-8 (contact our support team)" where the encoding names no bytes.
  CBinaryData GetBytes() const;
  /// The same, but text that would be lost is refused with `CTovikInvalidValueException`: behind a
  /// zero unit, and text that has no UTF-8 form.
  CBinaryData GetCheckedBytes() const;

 protected:
  CTextStream(const wchar* className, XmlEncoding encoding);

  void ClearText() { m_buffer.Clear(); }

 private:
  CStringBuffer m_buffer;
  XmlEncoding m_encoding;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_TEXT_STREAM_H_
