#ifndef TOVIKXML_DOCUMENT_FILE_OUTPUT_H_
#define TOVIKXML_DOCUMENT_FILE_OUTPUT_H_

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/document/encoding.h"

/// What the two streams that write files share. Internal.
namespace TovikXmlLib16 {

/// U+FEFF in UTF-16, low byte first.
inline constexpr unsigned char kByteOrderMark[] = {0xFF, 0xFE};

inline bool HasByteOrderMark(XmlEncoding encoding) {
  return encoding == Encoding_UTF16 || encoding == Encoding_UTF16_Undeclared;
}

/// The report of a write that failed with an error number of the operating system.
inline CTovikException FileWriteFailure(const WString& fileName, int error) {
  return CTovikException(FormatString(u"Failed to write data to the file [%s] error [0x%08X]",
                                      fileName.c_str(), error));
}

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_FILE_OUTPUT_H_
