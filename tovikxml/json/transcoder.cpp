#include "tovikxml/json/transcoder.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "tovikxml/base/utf8.h"
#include "tovikxml/base/utf8_bytes.h"
#include "tovikxml/json/text_reader.h"
#include "tovikxml/settings/serialization_context.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::size_t kMaxElements = CJsonTextReader::kDepthLimit;
constexpr std::string_view kEscapedCDataStart = "&lt;![CDATA[";

bool IsWhite(char c) {
  return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Where a string ends or something in it is not written as it stands.
constexpr std::array<bool, 256> kStops = [] {
  std::array<bool, 256> stops{};
  for (unsigned i = 0; i < 0x20; ++i) stops[i] = true;
  for (const char c : {'"', '\\', '&', '<', '>'}) stops[static_cast<unsigned char>(c)] = true;
  return stops;
}();

const char* FindStop(const char* at, const char* end) {
#ifdef __SSE2__
  for (; end - at >= 16; at += 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const auto equals = [&](char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); };
    const __m128i low =
        _mm_cmpeq_epi8(_mm_subs_epu8(bytes, _mm_set1_epi8(0x1F)), _mm_setzero_si128());
    const __m128i quotes = _mm_or_si128(equals('"'), equals('\\'));
    const __m128i markup = _mm_or_si128(equals('&'), _mm_or_si128(equals('<'), equals('>')));
    const int stops = _mm_movemask_epi8(_mm_or_si128(low, _mm_or_si128(quotes, markup)));
    if (stops != 0) return at + std::countr_zero(static_cast<unsigned>(stops));
  }
#endif
  while (at != end && !kStops[static_cast<unsigned char>(*at)]) ++at;
  return at;
}

}  // namespace

CJsonTranscoder::CJsonTranscoder(const CSerializationContext& context)
    : m_isBare(context.GetJsonContext().GetSupportRoundtrip() == jrt_Bare),
      m_hasRootName(!context.GetJsonContext().GetRootElementName().empty()) {
  // A name without a UTF-8 form stays empty, as no element may be called.
  const auto name = EncodeUtf8(context.GetJsonContext().GetRootElementName());
  if (name) m_rootName = *name;
}

std::optional<std::string> CJsonTranscoder::Transcode(std::string_view json) {
  if (!IsUtf8(json)) return std::nullopt;
  m_at = json.data();
  m_end = m_at + json.size();
  m_openElements = 0;
  m_out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  m_out.reserve(json.size() + json.size() / 2);
  if (!ReadDocument()) return std::nullopt;
  SkipWhite();
  if (m_at != m_end) return std::nullopt;
  return std::move(m_out);
}

bool CJsonTranscoder::ReadDocument() {
  SkipWhite();
  if (!m_hasRootName) return Accept('{') && ReadMembers(nullptr, 1);
  const bool isElement = m_isBare || (m_rootName[0] != '@' && m_rootName != "#text");
  return !m_rootName.empty() && isElement && ReadValue(m_rootName, nullptr, 0);
}

// What is behind the brace of an object: members of `parent`, which is null for the outermost.
bool CJsonTranscoder::ReadMembers(Element* parent, int depth) {
  SkipWhite();
  if (Accept('}')) return true;
  while (true) {
    bool isText = false;
    if (!ReadMember(parent, depth, isText)) return false;
    SkipWhite();
    if (Accept('}')) return true;
    // The text of an element ends it.
    if (isText || !Accept(',')) return false;
    SkipWhite();
  }
}

bool CJsonTranscoder::ReadMember(Element* parent, int depth, bool& isText) {
  std::string_view name;
  if (depth >= CJsonTextReader::kDepthLimit || !ReadName(name)) return false;
  SkipWhite();
  if (!Accept(':')) return false;
  SkipWhite();
  if (m_isBare) return ReadValue(name, parent, depth);
  if (name[0] == '@') return parent && name.size() > 1 && ReadAttribute(name.substr(1), *parent);
  isText = name == "#text";
  if (!isText) return ReadValue(name, parent, depth);
  return parent && m_at != m_end && *m_at != '{' && *m_at != '[' && *m_at != 'n' &&
         ReadContent(*parent, depth);
}

// The value of a member that is no attribute: an element, or one for each item of an array.
bool CJsonTranscoder::ReadValue(std::string_view name, Element* parent, int depth) {
  if (!Accept('[')) return ReadItem(name, parent, depth + 1);
  ++depth;
  while (true) {
    SkipWhite();
    if (m_at == m_end || *m_at == '[' || !ReadItem(name, parent, depth + 1)) return false;
    SkipWhite();
    if (Accept(']')) return true;
    if (!Accept(',')) return false;
  }
}

bool CJsonTranscoder::ReadItem(std::string_view name, Element* parent, int depth) {
  if (depth > CJsonTextReader::kDepthLimit || m_openElements == kMaxElements) return false;
  Element element{name};
  Start(element, parent);
  if (!ReadContent(element, depth)) return false;
  End(element);
  return true;
}

// Any value but an array. An empty text writes nothing, so that the start tag stays open.
bool CJsonTranscoder::ReadContent(Element& element, int depth) {
  if (Accept('{')) return ReadMembers(&element, depth);
  if (Accept("null") || Accept("\"\"")) return true;
  if (element.isStartTagOpen) m_out += '>';
  element.isStartTagOpen = false;
  const std::size_t text = m_out.size();
  return ReadScalar(Position::kText) &&
         m_out.compare(text, kEscapedCDataStart.size(), kEscapedCDataStart) != 0;
}

// Null is no attribute.
bool CJsonTranscoder::ReadAttribute(std::string_view name, Element& element) {
  if (Accept("null")) return true;
  if (!element.isStartTagOpen) return false;
  m_out.append(1, ' ').append(name).append("=\"");
  if (!ReadScalar(Position::kAttribute)) return false;
  m_out += '"';
  return true;
}

bool CJsonTranscoder::ReadScalar(Position position) {
  if (Accept('"')) return ReadString(position);
  for (const std::string_view literal : {"true", "false"}) {
    if (Accept(literal)) {
      m_out += literal;
      return true;
    }
  }
  return ReadNumber();
}

bool CJsonTranscoder::ReadString(Position position) {
  while (true) {
    const char* const stop = FindStop(m_at, m_end);
    m_out.append(m_at, stop);
    if (stop == m_end) return false;
    m_at = stop + 1;
    switch (*stop) {
      case '"':
        return true;
      case '\\':
        if (!ReadEscape(position)) return false;
        break;
      case '&':
      case '<':
      case '>':
        AppendEscaped(*stop, position);
        break;
      default:
        return false;
    }
  }
}

bool CJsonTranscoder::ReadEscape(Position position) {
  constexpr std::string_view kLetters = "\"\\/bfnrt";
  constexpr std::string_view kCharacters = "\"\\/\b\f\n\r\t";
  if (m_at == m_end) return false;
  const char letter = *m_at++;
  const std::size_t simple = kLetters.find(letter);
  if (simple != std::string_view::npos) {
    AppendEscaped(kCharacters[simple], position);
    return true;
  }
  unsigned unit = 0;
  if (letter != 'u' || !ReadHexUnit(unit) || unit == 0) return false;
  if (unit < 0x80) {
    AppendEscaped(static_cast<char>(unit), position);
    return true;
  }
  char32_t point = unit;
  if ((unit & 0xF800) == 0xD800) {
    unsigned low = 0;
    if (unit >= 0xDC00 || !Accept("\\u") || !ReadHexUnit(low) || (low & 0xFC00) != 0xDC00) {
      return false;
    }
    point = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
  }
  AppendPoint(point);
  return true;
}

bool CJsonTranscoder::ReadHexUnit(unsigned& unit) {
  if (m_end - m_at < 4) return false;
  const auto [stop, error] = std::from_chars(m_at, m_at + 4, unit, 16);
  if (error != std::errc() || stop != m_at + 4) return false;
  m_at = stop;
  return true;
}

// What follows must be the end of the value: the reader takes line feeds for no end of a number.
bool CJsonTranscoder::ReadNumber() {
  const char* const start = m_at;
  Accept('-');
  if (!Accept('0') && !SkipDigits()) return false;
  if (Accept('.') && !SkipDigits()) return false;
  if (Accept('e') || Accept('E')) {
    if (!Accept('+')) Accept('-');
    if (!SkipDigits()) return false;
  }
  m_out.append(start, m_at);
  const char* next = m_at;
  while (next != m_end && IsWhite(*next)) ++next;
  return next == m_end || *next == ',' || *next == '}' || *next == ']';
}

bool CJsonTranscoder::SkipDigits() {
  const char* const start = m_at;
  while (m_at != m_end && IsDigit(*m_at)) ++m_at;
  return m_at != start;
}

// A name without escapes, which is written as it stands, whatever it is.
bool CJsonTranscoder::ReadName(std::string_view& name) {
  if (!Accept('"')) return false;
  const char* const start = m_at;
  while (m_at != m_end && *m_at != '"' && *m_at != '\\' &&
         static_cast<unsigned char>(*m_at) >= 0x20) {
    ++m_at;
  }
  name = {start, static_cast<std::size_t>(m_at - start)};
  return Accept('"') && !name.empty();
}

void CJsonTranscoder::Start(const Element& element, Element* parent) {
  if (parent) {
    if (parent->isStartTagOpen) m_out += ">\n";
    parent->isStartTagOpen = false;
    parent->hasChildren = true;
  }
  Indent(m_openElements++);
  m_out.append(1, '<').append(element.name);
}

void CJsonTranscoder::End(const Element& element) {
  --m_openElements;
  if (element.isStartTagOpen) {
    m_out += "/>\n";
    return;
  }
  if (element.hasChildren) Indent(m_openElements);
  m_out.append("</").append(element.name).append(">\n");
}

void CJsonTranscoder::AppendEscaped(char character, Position position) {
  switch (character) {
    case '&':
      m_out += "&amp;";
      break;
    case '<':
      m_out += "&lt;";
      break;
    case '>':
      m_out += "&gt;";
      break;
    case '"':
      m_out += position == Position::kAttribute ? "&quot;" : "\"";
      break;
    case '\n':
      m_out += position == Position::kAttribute ? "&#xA;" : "\n";
      break;
    case '\r':
      break;
    default:
      m_out += character;
      break;
  }
}

void CJsonTranscoder::AppendPoint(char32_t point) {
  wchar units[2] = {static_cast<wchar>(point)};
  if (point > 0xFFFF) {
    units[0] = static_cast<wchar>(0xD800 + ((point - 0x10000) >> 10));
    units[1] = static_cast<wchar>(0xDC00 + ((point - 0x10000) & 0x3FF));
  }
  unsigned char bytes[4];
  const WStringView text(units, point > 0xFFFF ? 2 : 1);
  m_out.append(bytes, WriteUtf8(text, bytes));
}

void CJsonTranscoder::SkipWhite() {
  while (m_at != m_end && IsWhite(*m_at)) ++m_at;
}

bool CJsonTranscoder::Accept(char character) {
  if (m_at == m_end || *m_at != character) return false;
  ++m_at;
  return true;
}

bool CJsonTranscoder::Accept(std::string_view text) {
  if (static_cast<std::size_t>(m_end - m_at) < text.size() ||
      std::memcmp(m_at, text.data(), text.size()) != 0) {
    return false;
  }
  m_at += text.size();
  return true;
}

}  // namespace TovikXmlLib16
