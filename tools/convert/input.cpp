#include "tools/convert/input.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>
#include <string_view>
#include <utility>

#include "tools/convert/decompression.h"

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

constexpr std::size_t kBlock = 1u << 16;
constexpr std::size_t kMaxInput = std::numeric_limits<std::uint32_t>::max();
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kFastInfosetStart("\xE0\x00\x00\x01", 4);

void CloseFile(std::FILE* file) {
  if (file != stdin) std::fclose(file);
}

using File = std::unique_ptr<std::FILE, decltype(&CloseFile)>;

[[noreturn]] void Refuse(const std::string& name) {
  throw FileError("cannot read " + name + ": " + std::strerror(errno));
}

// The first byte that is no white space; the zero bytes of UTF-16 are passed over as well.
char FirstSign(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  if (bytes.starts_with(kUtf16Mark)) bytes.remove_prefix(kUtf16Mark.size());
  const auto at = bytes.find_first_not_of(std::string_view(" \t\r\n\0", 5));
  return at == std::string_view::npos ? '\0' : bytes[at];
}

// JSON begins with an object, or with a comment in front of it. No XML text or Fast Infoset does.
bool IsJson(std::string_view bytes) {
  const char sign = FirstSign(bytes);
  return sign == '{' || sign == '[' || sign == '/';
}

// A declaration may stand in front.
bool IsFastInfoset(std::string_view bytes) {
  const auto end = bytes.starts_with("<?xml") ? bytes.find("?>") : std::string_view::npos;
  if (end != std::string_view::npos) bytes.remove_prefix(end + 2);
  return bytes.starts_with(kFastInfosetStart);
}

const unsigned char* Octets(std::string_view bytes) {
  return reinterpret_cast<const unsigned char*>(bytes.data());
}

// JSON in UTF-16, low byte first, is told by its first unit.
bool IsUtf16(std::string_view bytes) {
  return bytes.starts_with(kUtf16Mark) ||
         (bytes.size() > 1 && bytes[0] != '\0' && bytes[1] == '\0');
}

WString DecodeUtf16(std::string_view bytes) {
  if (bytes.starts_with(kUtf16Mark)) bytes.remove_prefix(kUtf16Mark.size());
  if (bytes.size() % sizeof(wchar) != 0) throw CTovikException(u"The UTF-16 text ends in a unit");
  WString text;
  text.reserve(bytes.size() / sizeof(wchar));
  for (std::size_t i = 0; i < bytes.size(); i += sizeof(wchar)) {
    const unsigned unit =
        static_cast<unsigned char>(bytes[i]) + 256u * static_cast<unsigned char>(bytes[i + 1]);
    text.push_back(static_cast<wchar>(unit));
  }
  return text;
}

CBinaryData XmlOfJson(std::string_view bytes, const CSerializationContext& context) {
  CXmlDocument json(context);
  return IsUtf16(bytes) ? json.LoadJson(DecodeUtf16(bytes).c_str())
                        : json.LoadJsonStream(Octets(bytes), bytes.size());
}

}  // namespace

std::string ReadInput(const std::string& name, Progress& progress) {
  const File file(name == "-" ? stdin : std::fopen(name.c_str(), "rb"), &CloseFile);
  if (!file) Refuse(name);
  std::string bytes;
  std::error_code unknown;
  const auto size = std::filesystem::file_size(name, unknown);
  if (!unknown && size < kMaxInput) bytes.reserve(static_cast<std::size_t>(size) + kBlock);
  std::size_t length = 0;
  do {
    bytes.resize(length + kBlock);
    length += std::fread(bytes.data() + length, 1, kBlock, file.get());
    progress.CountRead(length);
  } while (length == bytes.size());
  if (std::ferror(file.get())) Refuse(name);
  if (length > kMaxInput) {
    throw FileError(name + " is longer than 4 GB");
  }
  bytes.resize(length);
  return bytes;
}

Format LoadDocument(std::string bytes, Format told, const CSerializationContext& context,
                    CXmlDocument& document) {
  bytes = Decompressed(std::move(bytes), context);
  Format format = IsFastInfoset(bytes) ? Format::kFastInfoset : Format::kXml;
  if (told == Format::kJson || (told == Format::kUnknown && IsJson(bytes))) format = Format::kJson;
  if (format == Format::kJson) {
    const CBinaryData xml = XmlOfJson(bytes, context);
    bytes = std::string();
    document.LoadXmlStream(xml.GetData(), xml.GetLength());
  } else {
    document.LoadXmlStream(Octets(bytes), bytes.size());
  }
  if (!document.GetUnreadEntity().empty()) {
    throw CTovikException(u"The document refers to the entity [" + document.GetUnreadEntity() +
                          u"], which is not read");
  }
  if (!document.GetDocumentElement()) throw CTovikException(u"The document has no root element");
  return format;
}

}  // namespace TovikXmlConvert
