#include "tools/convert/input.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <string_view>

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

constexpr std::size_t kBlock = 1u << 16;
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

// RFC 1952 and 1950.
bool IsCompressed(std::string_view bytes) {
  if (bytes.size() < 2) return false;
  const auto first = static_cast<unsigned char>(bytes[0]);
  const auto second = static_cast<unsigned char>(bytes[1]);
  if (first == 0x1F && second == 0x8B) return true;
  return (first & 0x0F) == 8 && (first >> 4) <= 7 && (first * 256 + second) % 31 == 0;
}

// The first byte that is no white space; the zero bytes of UTF-16 are passed over as well.
char FirstSign(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  if (bytes.starts_with(kUtf16Mark)) bytes.remove_prefix(kUtf16Mark.size());
  const auto at = bytes.find_first_not_of(std::string_view(" \t\r\n\0", 5));
  return at == std::string_view::npos ? '\0' : bytes[at];
}

// JSON begins with an object, or with a comment in front of it. No XML text or Fast Infoset does.
Format Recognise(std::string_view bytes) {
  const char sign = FirstSign(bytes);
  if (sign == '{' || sign == '[' || sign == '/') return Format::kJson;
  const bool isDeclared = bytes.starts_with("<?xml") &&
                          bytes.substr(0, bytes.find("?>")).find("finf") != std::string_view::npos;
  if (isDeclared || bytes.starts_with(kFastInfosetStart)) return Format::kFastInfoset;
  return Format::kXml;
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

void LoadXml(std::string_view bytes, CXmlDocument& document) {
  document.LoadXmlStream(Octets(bytes), bytes.size());
}

void LoadJson(std::string_view bytes, const CSerializationContext& context,
              CXmlDocument& document) {
  CXmlDocument json(context);
  const CBinaryData xml = IsUtf16(bytes) ? json.LoadJson(DecodeUtf16(bytes).c_str())
                                         : json.LoadJsonStream(Octets(bytes), bytes.size());
  document.LoadXmlStream(xml.GetData(), xml.GetLength());
}

// What compressed bytes hold shows only when they are loaded. XML text and Fast Infoset are
// recognised by the library, so that JSON is what remains.
Format LoadCompressed(std::string_view bytes, const CSerializationContext& context,
                      CXmlDocument& document) {
  try {
    LoadXml(bytes, document);
    return Format::kUnknown;
  } catch (const CTovikException& asXml) {
    try {
      LoadJson(bytes, context, document);
      return Format::kJson;
    } catch (const CTovikException& asJson) {
      throw CTovikException(u"The compressed document is neither XML nor JSON.\nAs XML: " +
                            asXml.GetFullMessage() + u"\nAs JSON: " + asJson.GetFullMessage());
    }
  }
}

}  // namespace

std::string ReadInput(const std::string& name, Progress& progress) {
  const File file(name == "-" ? stdin : std::fopen(name.c_str(), "rb"), &CloseFile);
  if (!file) Refuse(name);
  std::string bytes;
  std::size_t length = 0;
  do {
    bytes.resize(length + kBlock);
    length += std::fread(bytes.data() + length, 1, kBlock, file.get());
    progress.CountRead(length);
  } while (length == bytes.size());
  if (std::ferror(file.get())) Refuse(name);
  if (length > std::numeric_limits<std::uint32_t>::max()) {
    throw FileError(name + " is longer than 4 GB");
  }
  bytes.resize(length);
  return bytes;
}

Format LoadDocument(const std::string& bytes, Format told, const CSerializationContext& context,
                    CXmlDocument& document) {
  if (told == Format::kUnknown && IsCompressed(bytes)) {
    return LoadCompressed(bytes, context, document);
  }
  const Format format = told == Format::kUnknown ? Recognise(bytes) : told;
  if (format == Format::kJson) {
    LoadJson(bytes, context, document);
  } else {
    LoadXml(bytes, document);
  }
  return format;
}

}  // namespace TovikXmlConvert
