#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/document/byte_array.h"
#include "tovikxml/document/compression.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/expat_reader.h"
#include "tovikxml/document/utf16_input.h"
#include "tovikxml/document/xml_scanner.h"
#include "tovikxml/fastinfoset/reader.h"
#include "tovikxml/platform/async_files.h"
#include "tovikxml/platform/file.h"
#include "tovikxml/settings/serialization_context.h"

// The roads from a file, bytes or text to the parser.
namespace TovikXmlLib16 {
namespace {

constexpr std::uint32_t kChunkSize = 0x20000;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

#ifdef TOVIKXML_NO_SCANNER
constexpr bool kHasScanner = false;
#else
constexpr bool kHasScanner = true;
#endif

void OpenFile(CInputFile& file, const wchar* fileName) {
  if (const int error = file.Open(fileName)) {
    throw CTovikException(
        FormatString(u"Failed to open the file [%s] Error [0x%08x]", fileName, error));
  }
}

[[noreturn]] void ThrowReadFailure(const wchar* fileName, int error) {
  throw CTovikException(FormatString(u"Failed to read the contents of the file [%s] Error [0x%08x]",
                                     fileName, error));
}

[[noreturn]] void ThrowReadFailure(int error) {
  throw CTovikException(
      FormatString(u"Failed to read the contents of the file. Error [0x%08x]", error));
}

std::uint32_t CheckedLength(std::size_t length) {
  if (length > std::numeric_limits<std::uint32_t>::max()) {
    throw CTovikException(
        FormatString(u"Binary data is too long [%llu]", static_cast<unsigned long long>(length)));
  }
  return static_cast<std::uint32_t>(length);
}

}  // namespace

void CXmlDocument::Load(const wchar* fileName) {
  Cleanup();
  if (IsAsyncFromXmlFile()) {
    LoadOverlapped(fileName);
  } else {
    const ByteArray input = ReadWhole(fileName);
    Parse(input.data.get(), input.length);
  }
}

void CXmlDocument::LoadXmlStream(const unsigned char* data, unsigned long length) {
  Cleanup();
  if (length == 0) throw CTovikException(u"XML Stream is empty!");
  if (!data) throw CTovikInvalidParamException(u"The XML stream has a length but no data");
  Parse(data, length);
}

void CXmlDocument::LoadXml(const char* text) {
  Cleanup();
  if (!text || !*text) throw CTovikException(u"XML String is empty!");
  ParseText(reinterpret_cast<const unsigned char*>(text), std::strlen(text));
}

void CXmlDocument::LoadXml(const wchar* text) {
  Cleanup();
  if (!text || !*text) throw CTovikException(u"XML String is empty!");
  const std::string bytes = CUtf16Input::Convert(text);
  if (ScanText(bytes, "UTF-16")) return;
  CExpatReader reader(this);
  reader.Create();
  reader.ParseText(bytes);
}

// The bytes are parsed where they are, but for compressed ones, which are recognised by the attempt
// to decompress them.
void CXmlDocument::Parse(const unsigned char* data, std::size_t size) {
  const std::uint32_t length = CheckedLength(size);
  const std::optional<CBinaryData> expanded =
      TryDecompress(data, length, DecompressionLimitsOf(*m_context));
  if (expanded) return ParseExpanded(expanded->GetData(), expanded->GetLength());
  ParseExpanded(data, length);
}

void CXmlDocument::ParseExpanded(const unsigned char* data, std::size_t length) {
  if (!ParseFastInfoset(data, static_cast<std::uint32_t>(length))) ParseText(data, length);
}

// The settings are asked for only where the first octets fit, since they may have to be made.
bool CXmlDocument::ParseFastInfoset(const unsigned char* data, std::uint32_t length) {
  if (!CFastInfosetReader::IsFastInfoset(data, length)) return false;
  return CFastInfosetReader(m_context->GetFIContext(), *this).Read(data, length);
}

// What the scanner is not certain of is left to the parser, from the beginning. A callback sees
// elements once, so that the parser calls it, which always comes to an end.
bool CXmlDocument::ScanText(std::string_view text, std::string_view encoding) {
  if (!kHasScanner || m_callback || m_schemaType == st_NoNamespaces ||
      !m_context->GetStripCDATA()) {
    return false;
  }
  if (CXmlScanner(*this, encoding).Read(text)) return true;
  Cleanup();
  return false;
}

void CXmlDocument::ParseText(const unsigned char* data, std::size_t length) {
  std::string_view bytes(reinterpret_cast<const char*>(data), length);
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  const bool isUtf16 = CUtf16Input::OrderOf(data, length) != CUtf16Input::Order::none;
  if (!isUtf16 && ScanText(bytes, "UTF-8")) return;
  CExpatReader reader(this);
  reader.Create();
  reader.ParseBuffer(data, length, true);
}

ByteArray CXmlDocument::ReadWhole(const wchar* fileName) {
  CInputFile file;
  OpenFile(file, fileName);
  const SizeResult size = file.GetSize();
  if (size.error) {
    throw CTovikException(FormatString(u"Failed to get the size of the file [%s] Error [0x%08x]",
                                       fileName, size.error));
  }
  ByteArray input = NewByteArray(size.size);
  if (const int error = file.ReadWhole(input.data.get(), input.length)) {
    ThrowReadFailure(fileName, error);
  }
  return input;
}

void CXmlDocument::LoadOverlapped(const wchar* fileName) {
  CInputFile file;
  OpenFile(file, fileName);
  ByteArray first = NewByteArray(kChunkSize);
  if (const int error = file.StartRead(first.data.get(), kChunkSize, 0)) ThrowReadFailure(error);
  const TransferResult read = file.FinishRead();
  if (read.error) ThrowReadFailure(fileName, read.error);
  first.length = static_cast<std::uint32_t>(read.length);
  try {
    ParseOverlapped(file, std::move(first));
  } catch (...) {
    Cleanup();
    throw;
  }
}

// Parses one block while the system reads the next. The first block that is not full is the last.
void CXmlDocument::ParseOverlapped(CInputFile& file, ByteArray current) {
  CExpatReader reader(this);
  reader.Create();
  ByteArray next = NewByteArray(kChunkSize);
  std::uint64_t position = current.length;
  while (current.length == kChunkSize) {
    if (const int error = file.StartRead(next.data.get(), kChunkSize, position)) {
      ThrowReadFailure(error);
    }
    reader.ParseBuffer(current.data.get(), current.length, false);
    const TransferResult read = file.FinishRead();
    if (read.error) ThrowReadFailure(read.error);
    next.length = static_cast<std::uint32_t>(read.length);
    position += read.length;
    std::swap(current, next);
  }
  reader.ParseBuffer(current.data.get(), current.length, true);
  if (!m_root) throw CTovikException(u"Invalid or empty XML document");
}

}  // namespace TovikXmlLib16
