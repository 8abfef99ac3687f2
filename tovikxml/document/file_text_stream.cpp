#include "tovikxml/document/file_text_stream.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/file_output.h"

namespace TovikXmlLib16 {

CFileTextStream::CFileTextStream(const wchar* fileName, XmlEncoding encoding)
    : CTextStream(u"CFileTextStream", encoding), m_fileName(TextOf(fileName)) {}

void CFileTextStream::Open() {
  ClearText();
  m_refusal = nullptr;
  m_offset = 0;
  int error = m_file.Open(m_fileName.c_str());
  if (error == 0 && HasByteOrderMark(GetEncoding())) {
    error = m_file.StartWrite(kByteOrderMark, sizeof kByteOrderMark, m_offset);
  }
  if (error == 0) return;
  m_file.Close();
  throw FileWriteFailure(m_fileName, error);
}

void CFileTextStream::Flush() {
  if (GetLength() == 0) return;
  m_offset += m_file.FinishWrite();
  // Behind a block that cannot be written nothing more is, so that the file has no gap.
  if (!m_refusal) {
    try {
      m_pending = GetCheckedBytes();
      StartWrite(m_pending.GetData(), m_pending.GetLength());
    } catch (const CTovikInvalidValueException&) {
      m_refusal = std::current_exception();
    }
  }
  ClearText();
}

void CFileTextStream::Close() {
  Flush();
  m_offset += m_file.FinishWrite();
  if (const int error = m_file.Close()) FailToWrite(error);
  if (m_refusal) std::rethrow_exception(m_refusal);
}

void CFileTextStream::StartWrite(const unsigned char* data, std::size_t length) {
  if (const int error = m_file.StartWrite(data, length, m_offset)) FailToWrite(error);
}

void CFileTextStream::FailToWrite(int error) {
  m_file.Close();
  throw CTovikException(FormatString(u"Failed to write data to the file. Error [0x%08X]", error));
}

}  // namespace TovikXmlLib16
