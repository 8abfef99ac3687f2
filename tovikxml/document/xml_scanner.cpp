#include "tovikxml/document/xml_scanner.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <optional>
#include <system_error>

#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8_bytes.h"
#include "tovikxml/document/xml_names.h"

namespace TovikXmlLib16 {
namespace {

// Long runs of text are widened piece by piece, so that a large one is not held twice.
constexpr std::size_t kLargestPiece = 0x8000;
constexpr std::size_t kFirstSlots = 64;
constexpr wchar kSeparator = u'|';

enum ByteKind : std::uint8_t {
  kNameStart = 1,
  kNameChar = 2,
  kWhite = 4,
  kTextStop = 8,
  kValueStop = 16
};

// What each byte is. Text stops where something else begins, or where characters need a closer
// look, a value also at white space that becomes a blank.
constexpr std::array<std::uint8_t, 256> kBytes = [] {
  std::array<std::uint8_t, 256> kinds{};
  for (unsigned i = 0; i < kinds.size(); ++i) {
    unsigned kind = 0;
    if ((i >= 'a' && i <= 'z') || (i >= 'A' && i <= 'Z') || i == '_')
      kind |= kNameStart | kNameChar;
    if ((i >= '0' && i <= '9') || i == '-' || i == '.' || i == ':') kind |= kNameChar;
    if (i == ' ' || i == '\t' || i == '\n' || i == '\r') kind |= kWhite;
    if (i == '<' || i == '&') kind |= kTextStop | kValueStop;
    if (i == ']' || (i < 0x20 && i != '\t' && i != '\n')) kind |= kTextStop;
    if (i == '"' || i == '\'' || i < 0x20) kind |= kValueStop;
    kinds[i] = static_cast<std::uint8_t>(kind);
  }
  return kinds;
}();

bool Is(char byte, ByteKind kind) {
  return (kBytes[static_cast<unsigned char>(byte)] & kind) != 0;
}

#ifdef __SSE2__
unsigned Equals(__m128i bytes, char byte) {
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(byte))));
}

// The bytes of the kind, one bit for each.
unsigned Stops(__m128i bytes, ByteKind kind) {
  const unsigned low = Equals(_mm_subs_epu8(bytes, _mm_set1_epi8(0x1F)), 0);
  const unsigned markup = Equals(bytes, '<') | Equals(bytes, '&');
  if (kind == kValueStop) return markup | low | Equals(bytes, '"') | Equals(bytes, '\'');
  return markup | Equals(bytes, ']') | (low & ~(Equals(bytes, '\t') | Equals(bytes, '\n')));
}
#endif

template <ByteKind kind>
const char* FindStop(const char* at, const char* end) {
#ifdef __SSE2__
  for (; end - at >= 16; at += 16) {
    const unsigned stops = Stops(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at)), kind);
    if (stops != 0) return at + std::countr_zero(stops);
  }
#endif
  while (at != end && !Is(*at, kind)) ++at;
  return at;
}

// XML 1.0, production 2.
bool IsCharacter(char32_t point) {
  if (point < 0x20) return point == '\t' || point == '\n' || point == '\r';
  return point < 0xD800 || (point > 0xDFFF && point < 0xFFFE) ||
         (point > 0xFFFF && point < 0x110000);
}

bool HasControls(std::string_view bytes) {
  return std::any_of(bytes.begin(), bytes.end(), [](char byte) {
    return static_cast<unsigned char>(byte) < 0x20 && !Is(byte, kWhite);
  });
}

const char* EndOfName(const char* at, const char* end) {
  while (at != end && Is(*at, kNameChar)) ++at;
  return at;
}

bool EqualsInUpperCase(std::string_view text, std::string_view upper) {
  return std::equal(text.begin(), text.end(), upper.begin(), upper.end(), [](char a, char b) {
    return static_cast<char>(ToAsciiUpper(static_cast<wchar>(a))) == b;
  });
}

// Takes `name = "value"` with the white space around the sign off the front; nothing if there is no
// such pair.
std::optional<std::string_view> TakePseudoAttribute(std::string_view& text, std::string_view name) {
  std::string_view rest = text;
  const auto skipWhite = [&] {
    while (!rest.empty() && Is(rest.front(), kWhite)) rest.remove_prefix(1);
  };
  if (rest.empty() || !Is(rest.front(), kWhite)) return std::nullopt;
  skipWhite();
  if (!rest.starts_with(name)) return std::nullopt;
  rest.remove_prefix(name.size());
  skipWhite();
  if (!rest.starts_with('=')) return std::nullopt;
  rest.remove_prefix(1);
  skipWhite();
  if (!rest.starts_with('"') && !rest.starts_with('\'')) return std::nullopt;
  const std::size_t end = rest.find(rest.front(), 1);
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view value = rest.substr(1, end - 1);
  text = rest.substr(end + 1);
  return value;
}

}  // namespace

CXmlScanner::CXmlScanner(CXmlDocument& document, std::string_view encoding)
    : m_document(document), m_encoding(encoding) {
  m_default = &PrefixOf("");
  m_lastName = &m_names.emplace_back();
}

bool CXmlScanner::Read(std::string_view text) {
  m_at = text.data();
  m_end = m_at + text.size();
  if (!ReadDeclaration() || !ReadMisc() || m_at == m_end) return false;
  return ReadMarkup() && ReadContent() && ReadMisc() && m_at == m_end;
}

bool CXmlScanner::Accept(std::string_view text) {
  if (static_cast<std::size_t>(m_end - m_at) < text.size() ||
      std::memcmp(m_at, text.data(), text.size()) != 0) {
    return false;
  }
  m_at += text.size();
  return true;
}

bool CXmlScanner::SkipWhite() {
  const char* const start = m_at;
  while (m_at != m_end && Is(*m_at, kWhite)) ++m_at;
  return m_at != start;
}

// Only the usual form: version 1.0, the encoding at hand, and standalone.
bool CXmlScanner::ReadDeclaration() {
  if (m_end - m_at < 6 || !Is(m_at[5], kWhite) || !Accept("<?xml")) return true;
  const std::string_view rest(m_at, static_cast<std::size_t>(m_end - m_at));
  const std::size_t end = rest.find("?>");
  if (end == std::string_view::npos) return false;
  std::string_view inside = rest.substr(0, end);
  m_at += end + 2;
  if (TakePseudoAttribute(inside, "version") != "1.0") return false;
  const auto encoding = TakePseudoAttribute(inside, "encoding");
  if (encoding && !EqualsInUpperCase(*encoding, m_encoding)) return false;
  const auto standalone = TakePseudoAttribute(inside, "standalone");
  if (standalone && standalone != "yes" && standalone != "no") return false;
  return std::all_of(inside.begin(), inside.end(), [](char byte) { return Is(byte, kWhite); });
}

// Stops in front of an element or at the end.
bool CXmlScanner::ReadMisc() {
  while (true) {
    SkipWhite();
    if (Accept("<!--")) {
      if (!SkipComment()) return false;
    } else if (Accept("<?")) {
      if (!SkipInstruction()) return false;
    } else {
      return m_at == m_end || (*m_at == '<' && m_open.empty());
    }
  }
}

// What is inside the root, up to its end.
bool CXmlScanner::ReadContent() {
  while (!m_open.empty()) {
    if (m_at == m_end) return false;
    if (!(*m_at == '<' ? ReadMarkup() : ReadText())) return false;
  }
  return true;
}

bool CXmlScanner::ReadMarkup() {
  if (m_end - m_at < 2) return false;
  const char kind = m_at[1];
  if (Is(kind, kNameStart)) {
    ++m_at;
    return ReadStartTag();
  }
  m_at += 2;
  if (m_open.empty()) return false;
  if (kind == '/') return ReadEndTag();
  if (kind == '?') return SkipInstruction();
  if (kind != '!') return false;
  if (Accept("--")) return SkipComment();
  return Accept("[CDATA[") && ReadCData();
}

bool CXmlScanner::ReadStartTag() {
  Name* const name = ReadName();
  if (!name) return false;
  const std::size_t bindings = m_bindings.size();
  m_attributes.clear();
  ++m_elements;
  if (!ReadAttributes()) return false;
  const bool isEmpty = Accept("/");
  if (!Accept(">")) return false;
  m_open.push_back({name->raw, bindings});
  if (!AddElement(*name)) return false;
  if (isEmpty) CloseElement();
  return true;
}

bool CXmlScanner::ReadAttributes() {
  while (true) {
    const bool hasWhite = SkipWhite();
    if (m_at == m_end) return false;
    if (*m_at == '>' || *m_at == '/') return true;
    if (!hasWhite || !ReadAttribute()) return false;
  }
}

bool CXmlScanner::ReadAttribute() {
  if (!Is(*m_at, kNameStart)) return false;
  Name* const name = ReadName();
  if (!name || name->lastElement == m_elements) return false;
  name->lastElement = m_elements;
  SkipWhite();
  if (!Accept("=")) return false;
  SkipWhite();
  if (m_at == m_end || (*m_at != '"' && *m_at != '\'')) return false;
  const char quote = *m_at++;
  const char* stop = m_at;
  bool isPlain = true;
  while ((stop = FindStop<kValueStop>(stop, m_end)) != m_end && *stop != quote) {
    if (*stop == '<') return false;
    if (*stop != '"' && *stop != '\'') isPlain = false;
    ++stop;
  }
  if (stop == m_end) return false;
  const Attribute attribute{name, Until(stop), isPlain};
  m_at = stop + 1;
  if (name->declares) return Declare(*name->declares, attribute);
  m_attributes.push_back(attribute);
  return true;
}

bool CXmlScanner::Declare(Prefix& prefix, const Attribute& attribute) {
  if (!WidenValue(attribute)) return false;
  const WString uri(m_wide, 0, m_wideSize);
  const bool isReserved = uri == kXmlNamespace || uri == kXmlnsNamespace;
  const bool isReservedPrefix = prefix.text == u"xml" || prefix.text == u"xmlns";
  const bool isUnbound = uri.empty() && &prefix != m_default;
  if (isReserved || isReservedPrefix || isUnbound || uri.find(kSeparator) != WString::npos) {
    return false;
  }
  m_bindings.push_back({&prefix, prefix.uri});
  prefix.uri = uri.empty() ? nullptr : KeepUri(uri);
  m_document.BindAlias(prefix.text, uri);
  return true;
}

bool CXmlScanner::AddElement(Name& name) {
  const CXmlName* kept = ElementName(name);
  if (!kept) return false;
  CXmlElement* const element = m_document.AddElement(kept);
  return m_attributes.empty() || AddAttributes(*element);
}

bool CXmlScanner::AddAttributes(CXmlElement& element) {
  m_document.ReserveAttributes(&element, m_attributes.size());
  m_prefixed.clear();
  for (const Attribute& attribute : m_attributes) {
    const CXmlName* name = AttributeName(*attribute.name);
    if (!name || !WidenValue(attribute)) return false;
    if (attribute.name->hasPrefix) m_prefixed.push_back(name);
    m_document.AddElementAttribute(&element, name, {m_wide.data(), m_wideSize});
  }
  // Two prefixes can stand for one namespace.
  if (m_prefixed.size() < 2) return true;
  std::sort(m_prefixed.begin(), m_prefixed.end());
  return std::adjacent_find(m_prefixed.begin(), m_prefixed.end()) == m_prefixed.end();
}

bool CXmlScanner::ReadEndTag() {
  const std::string_view name = m_open.back().name;
  if (!Accept(name)) return false;
  SkipWhite();
  if (!Accept(">")) return false;
  CloseElement();
  return true;
}

void CXmlScanner::CloseElement() {
  for (const std::size_t outer = m_open.back().bindings; m_bindings.size() > outer;) {
    m_bindings.back().prefix->uri = m_bindings.back().former;
    m_bindings.pop_back();
  }
  m_open.pop_back();
  m_document.EndElement();
}

bool CXmlScanner::ReadText() {
  const char* stop = m_at;
  while ((stop = FindStop<kTextStop>(stop, m_end)) != m_end && *stop == ']') {
    if (m_end - stop > 2 && stop[1] == ']' && stop[2] == '>') return false;
    ++stop;
  }
  if (stop == m_end || !AppendRun(stop)) return false;
  switch (*stop) {
    case '<':
      return true;
    case '&':
      return AppendReference();
    case '\r':
      return AppendLineEnd();
    default:
      return false;
  }
}

bool CXmlScanner::ReadCData() {
  const std::string_view rest = Until(m_end);
  const std::size_t end = rest.find("]]>");
  if (end == std::string_view::npos) return false;
  const char* const close = m_at + end;
  while (true) {
    const char* stop = m_at;
    while (stop != close && static_cast<unsigned char>(*stop) >= 0x20) ++stop;
    if (stop != close && (*stop == '\t' || *stop == '\n')) ++stop;
    if (!AppendRun(stop)) return false;
    if (m_at == close) break;
    if (static_cast<unsigned char>(*m_at) >= 0x20) continue;
    if (*m_at != '\t' && *m_at != '\n' && (*m_at != '\r' || !AppendLineEnd())) return false;
  }
  m_at = close + 3;
  return true;
}

// Appends what is in front of `end`, in pieces that end in front of a character.
bool CXmlScanner::AppendRun(const char* end) {
  while (m_at != end) {
    std::string_view piece = Until(end);
    if (piece.size() > kLargestPiece) {
      piece = piece.substr(0, kLargestPiece);
      while ((piece.back() & 0xC0) == 0x80 && piece.size() > kLargestPiece - 3)
        piece.remove_suffix(1);
      if ((piece.back() & 0x80) != 0) piece.remove_suffix(1);
    }
    if (!Widen(piece)) return false;
    m_document.AppendText({m_wide.data(), m_wideSize});
    m_at += piece.size();
  }
  return true;
}

// XML 1.0, 2.11.
bool CXmlScanner::AppendLineEnd() {
  ++m_at;
  if (m_at == m_end || *m_at != '\n') m_document.AppendText(u"\n");
  return true;
}

// A carriage return that comes as a reference is dropped from text.
bool CXmlScanner::AppendReference() {
  char32_t point = 0;
  if (!ReadReference(point)) return false;
  m_wideSize = 0;
  AppendPoint(point);
  if (point != '\r') m_document.AppendText({m_wide.data(), m_wideSize});
  return true;
}

bool CXmlScanner::SkipComment() {
  const std::string_view rest = Until(m_end);
  const std::size_t end = rest.find("--");
  if (end == std::string_view::npos) return false;
  const std::string_view text = rest.substr(0, end);
  if (HasControls(text) || !Widen(text)) return false;
  m_at += end + 2;
  return Accept(">");
}

bool CXmlScanner::SkipInstruction() {
  const char* const target = m_at;
  if (m_at == m_end || !Is(*m_at, kNameStart)) return false;
  m_at = EndOfName(m_at, m_end);
  const std::string_view name(target, static_cast<std::size_t>(m_at - target));
  if (name.find(':') != std::string_view::npos || EqualsInUpperCase(name, "XML")) return false;
  const std::string_view rest = Until(m_end);
  const std::size_t end = rest.find("?>");
  if (end == std::string_view::npos || (end != 0 && !Is(rest.front(), kWhite))) return false;
  const std::string_view text = rest.substr(0, end);
  if (HasControls(text) || !Widen(text)) return false;
  m_at += end + 2;
  return true;
}

// The name at the cursor, which is at its first letter. The name that came behind the last one
// before is looked at first.
CXmlScanner::Name* CXmlScanner::ReadName() {
  Name* const guess = m_lastName->successor;
  if (guess && Accept(guess->raw)) {
    if (m_at != m_end && !Is(*m_at, kNameChar) && static_cast<unsigned char>(*m_at) < 0x80) {
      return m_lastName = guess;
    }
    m_at -= guess->raw.size();
  }
  const char* const end = EndOfName(m_at, m_end);
  if (end == m_end || static_cast<unsigned char>(*end) >= 0x80) return nullptr;
  Name* const name = FindName(Until(end));
  m_at = end;
  if (name) m_lastName = m_lastName->successor = name;
  return name;
}

CXmlScanner::Name* CXmlScanner::FindName(std::string_view raw) {
  if (m_names.size() * 2 >= m_slots.size()) GrowNames();
  const std::size_t mask = m_slots.size() - 1;
  std::size_t at = static_cast<std::size_t>(HashBytes(raw)) & mask;
  for (; m_slots[at]; at = (at + 1) & mask) {
    if (m_slots[at]->raw == raw) return m_slots[at];
  }
  Name name;
  name.raw = raw;
  if (!FillName(name)) return nullptr;
  m_slots[at] = &m_names.emplace_back(name);
  return m_slots[at];
}

void CXmlScanner::GrowNames() {
  m_slots.assign(std::max(kFirstSlots, m_slots.size() * 2), nullptr);
  const std::size_t mask = m_slots.size() - 1;
  for (auto name = m_names.begin() + 1; name != m_names.end(); ++name) {
    std::size_t at = static_cast<std::size_t>(HashBytes(name->raw)) & mask;
    while (m_slots[at]) at = (at + 1) & mask;
    m_slots[at] = &*name;
  }
}

// XML namespaces, productions 7 to 11.
bool CXmlScanner::FillName(Name& name) {
  const std::size_t colon = name.raw.find(':');
  name.hasPrefix = colon != std::string_view::npos;
  name.local = name.raw.substr(name.hasPrefix ? colon + 1 : 0);
  if (name.local.empty() || !Is(name.local.front(), kNameStart)) return false;
  if (name.local.find(':') != std::string_view::npos) return false;
  const std::string_view prefix = name.raw.substr(0, name.hasPrefix ? colon : 0);
  name.prefix = &PrefixOf(prefix);
  if (prefix == "xmlns") name.declares = &PrefixOf(name.local);
  if (name.raw == "xmlns") name.declares = m_default;
  return true;
}

CXmlScanner::Prefix& CXmlScanner::PrefixOf(std::string_view text) {
  const WString wide = TovikXmlLib16::WidenAscii(text);
  Prefix*& prefix = m_prefixTable[wide];
  if (!prefix) {
    prefix = &m_prefixes.emplace_back(Prefix{wide});
    if (text == "xml") prefix->uri = KeepUri(WString(kXmlNamespace));
  }
  return *prefix;
}

CXmlScanner::Uri* CXmlScanner::KeepUri(const WString& uri) {
  return &m_uris.try_emplace(uri).first->first;
}

// Null for a prefix that stands for nothing.
const CXmlName* CXmlScanner::ElementName(Name& name) {
  if (name.element && name.uri == name.prefix->uri) return name.element;
  return name.element = Resolve(name);
}

const CXmlName* CXmlScanner::AttributeName(Name& name) {
  if (name.hasPrefix) return ElementName(name);
  if (!name.attribute) {
    name.attribute = m_document.KeepName(WStringView(), TovikXmlLib16::WidenAscii(name.local));
  }
  return name.attribute;
}

const CXmlName* CXmlScanner::Resolve(Name& name) {
  name.uri = name.prefix->uri;
  if (!name.uri && name.hasPrefix) return nullptr;
  return m_document.KeepName(name.uri ? WStringView(*name.uri) : WStringView(),
                             TovikXmlLib16::WidenAscii(name.local));
}

// Puts the text of bytes into `m_wide`; false if they are no characters in UTF-8. Control
// characters have been looked for.
bool CXmlScanner::Widen(std::string_view bytes) {
  if (m_wide.size() < bytes.size()) m_wide.resize(std::max(bytes.size(), std::size_t{256}));
  m_wideSize = 0;
  return AppendWide(bytes);
}

bool CXmlScanner::AppendWide(std::string_view bytes) {
  wchar* const start = m_wide.data() + m_wideSize;
  const Utf16Written written = WriteUtf16(bytes, start);
  if (written.length != bytes.size()) return false;
  const auto size = static_cast<std::size_t>(written.end - start);
  m_wideSize += size;
  return size == bytes.size() ||
         std::none_of(start, written.end, [](wchar unit) { return unit >= 0xFFFE; });
}

void CXmlScanner::AppendPoint(char32_t point) {
  if (m_wide.size() < m_wideSize + 2) m_wide.resize(m_wideSize + 256);
  if (point > 0xFFFF) {
    m_wide[m_wideSize++] = static_cast<wchar>(0xD800 + ((point - 0x10000) >> 10));
    point = 0xDC00 + ((point - 0x10000) & 0x3FF);
  }
  m_wide[m_wideSize++] = static_cast<wchar>(point);
}

// The normalised value (XML 1.0, 3.3.3) in `m_wide`. No reference is shorter than its character.
bool CXmlScanner::WidenValue(const Attribute& attribute) {
  if (attribute.isPlain) return Widen(attribute.value);
  if (!Widen({})) return false;
  if (m_wide.size() < attribute.value.size()) m_wide.resize(attribute.value.size());
  const char* const behind = m_at;
  const char* const outerEnd = m_end;
  m_at = attribute.value.data();
  m_end = m_at + attribute.value.size();
  const bool isGood = AppendNormalized();
  m_at = behind;
  m_end = outerEnd;
  return isGood;
}

bool CXmlScanner::AppendNormalized() {
  while (m_at != m_end) {
    const char* const stop = FindStop<kValueStop>(m_at, m_end);
    if (!AppendWide(Until(stop))) return false;
    m_at = stop;
    if (stop == m_end) break;
    char32_t point = static_cast<unsigned char>(*stop);
    if (*stop == '&') {
      if (!ReadReference(point)) return false;
    } else {
      ++m_at;
      if (*stop == '\r' && m_at != m_end && *m_at == '\n') ++m_at;
      if (point < 0x20 && !Is(*stop, kWhite)) return false;
      if (point < 0x20) point = ' ';
    }
    AppendPoint(point);
  }
  return true;
}

bool CXmlScanner::ReadReference(char32_t& point) {
  constexpr struct {
    std::string_view text;
    char character;
  } kEntities[] = {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}};
  for (const auto& entity : kEntities) {
    point = static_cast<unsigned char>(entity.character);
    if (Accept(entity.text)) return true;
  }
  const bool isHex = Accept("&#x");
  if (!isHex && !Accept("&#")) return false;
  const char* const start = m_at;
  const char* end = m_end - start > 10 ? start + 10 : m_end;
  std::uint32_t number = 0;
  const auto [stop, error] = std::from_chars(start, end, number, isHex ? 16 : 10);
  m_at = stop;
  point = number;
  return error == std::errc() && Accept(";") && IsCharacter(point);
}

}  // namespace TovikXmlLib16
