#include "tovikxml/document/binary_stream.h"

#include "tovikxml/base/text.h"
#include "tovikxml/document/file_output.h"
#include "tovikxml/platform/file.h"

namespace TovikXmlLib16 {

CBinaryStream::CBinaryStream() : CBinaryStream(CBinaryData()) {}

CBinaryStream::CBinaryStream(const CBinaryData& data) : CBinaryStream(u"CBinaryStream", data) {}

CBinaryStream::CBinaryStream(const wchar* className, const CBinaryData& data)
    : CInstanceMonitor(className), m_data(data) {}

CFileBinaryStream::CFileBinaryStream(const wchar* fileName, XmlEncoding encoding,
                                     const CBinaryData& data)
    : CBinaryStream(u"CFileBinaryStream", data),
      m_fileName(TextOf(fileName)),
      m_encoding(encoding) {}

void CFileBinaryStream::SaveToFile() {
  COutputFile file;
  int error = file.Open(m_fileName.c_str());
  if (error == 0 && HasByteOrderMark(m_encoding)) {
    error = file.Write(kByteOrderMark, sizeof kByteOrderMark);
  }
  const CBinaryData data = GetData();
  if (error == 0) error = file.Write(data.GetData(), data.GetLength());
  if (error == 0) error = file.Close();
  if (error != 0) throw FileWriteFailure(m_fileName, error);
}

}  // namespace TovikXmlLib16
