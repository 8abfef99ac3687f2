#include <cstddef>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/utf8.h"
#include "tovikxml/document/byte_array.h"
#include "tovikxml/document/compression.h"
#include "tovikxml/document/document.h"
#include "tovikxml/json/reader_to_xml_handler.h"
#include "tovikxml/json/transcoder.h"
#include "tovikxml/settings/serialization_context.h"
#include "tovikxml/values/binary_data.h"

// The JSON load entries of a document: the roads from a file, bytes or text to the conversion.
namespace TovikXmlLib16 {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view ViewOf(const ByteArray& bytes) {
  return {reinterpret_cast<const char*>(bytes.data.get()), bytes.length};
}

std::string_view WithoutMark(std::string_view bytes) {
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  return bytes;
}

// The length of the sequence that a lead byte announces; 1 for a byte that is none.
std::size_t SequenceLength(unsigned char lead) {
  if (lead >= 0xF0) return 4;
  if (lead >= 0xE0) return 3;
  return lead >= 0xC0 ? 2 : 1;
}

// Counts as the reader does up to the first sequence that is not UTF-8.
[[noreturn]] void RefuseEncoding(std::string_view bytes) {
  long long line = 1;
  long long position = 1;
  while (!bytes.empty()) {
    const std::size_t length = SequenceLength(static_cast<unsigned char>(bytes.front()));
    const auto units = DecodeUtf8(bytes.substr(0, length));
    if (!units) break;
    const bool isLineEnd = bytes.front() == '\n';
    line += isLineEnd;
    position = isLineEnd ? 1 : position + static_cast<long long>(units->size());
    bytes.remove_prefix(length);
  }
  throw CTovikValidationException(
      FormatString(u"The JSON text is not UTF-8 at line %lld, position %lld.", line, position),
      u"$");
}

#ifdef TOVIKXML_NO_SCANNER
constexpr bool kHasTranscoder = false;
#else
constexpr bool kHasTranscoder = true;
#endif

WString DecodeJson(std::string_view bytes) {
  std::optional<WString> text = DecodeUtf8(bytes);
  if (!text) RefuseEncoding(bytes);
  return *std::move(text);
}

// The XML text by the short road, if the transcoder is certain. No UTF-16 has less than a third as
// many units as its UTF-8 has bytes, so that the limit is met where the long road meets it.
std::optional<CBinaryData> Transcode(std::string_view json, const CSerializationContext& context) {
  if (!kHasTranscoder) return std::nullopt;
  const auto xml = CJsonTranscoder(context).Transcode(json);
  if (!xml || xml->size() > XmlTextLimit(json.size() / 3, context)) return std::nullopt;
  ByteArray bytes = NewByteArray(xml->size());
  std::memcpy(bytes.data.get(), xml->data(), xml->size());
  return ToBinaryData(std::move(bytes));
}

CBinaryData Convert(std::string_view json, const CSerializationContext& context) {
  if (auto xml = Transcode(json, context)) return *std::move(xml);
  return ConvertJsonToXml(DecodeJson(json), context);
}

}  // namespace

CBinaryData CXmlDocument::LoadJsonFile(const wchar* fileName) {
  Cleanup();
  return ParseJson(ReadWhole(fileName));
}

CBinaryData CXmlDocument::LoadJsonStream(const unsigned char* data, unsigned long length) {
  Cleanup();
  if (length == 0) throw CTovikException(u"JSON Stream is empty!");
  if (!data) throw CTovikInvalidParamException(u"The JSON stream has a length but no data");
  ByteArray copy = NewByteArray(length);
  std::memcpy(copy.data.get(), data, length);
  return ParseJson(std::move(copy));
}

CBinaryData CXmlDocument::LoadJson(const char* text) {
  Cleanup();
  if (!text || !*text) throw CTovikException(u"JSON String is empty!");
  return Convert(WithoutMark(text), *m_context);
}

CBinaryData CXmlDocument::LoadJson(const wchar* text) {
  Cleanup();
  if (!text || !*text) throw CTovikException(u"JSON String is empty!");
  const WString source(*text == 0xFEFF ? text + 1 : text);
  const auto bytes = EncodeUtf8(source);
  auto xml = bytes ? Transcode(*bytes, *m_context) : std::nullopt;
  return xml ? *std::move(xml) : ConvertJsonToXml(source, *m_context);
}

CBinaryData CXmlDocument::ParseJson(ByteArray input) {
  DecompressData(input, DecompressionLimitsOf(*m_context));
  return Convert(WithoutMark(ViewOf(input)), *m_context);
}

}  // namespace TovikXmlLib16
