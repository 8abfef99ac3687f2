#include "tovikxml/document/xml_scanner.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8_bytes.h"
#include "tovikxml/document/xml_names.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::size_t kFirstSlots = 64;
constexpr wchar kSeparator = u'|';

enum ByteKind : std::uint8_t {
  kNameStart = 1,
  kNameChar = 2,
  kWhite = 4,
  kTextStop = 8,
  kValueStop = 16,
  kPlainStop = 32
};

// What each byte is. Text stops where something else begins and where line ends are to be looked
// at, a value also at white space that becomes a blank, plain text (without markup) at line ends.
constexpr std::array<std::uint8_t, 256> kBytes = [] {
  std::array<std::uint8_t, 256> kinds{};
  for (unsigned i = 0; i < kinds.size(); ++i) {
    unsigned kind = 0;
    if ((i >= 'a' && i <= 'z') || (i >= 'A' && i <= 'Z') || i == '_')
      kind |= kNameStart | kNameChar;
    if ((i >= '0' && i <= '9') || i == '-' || i == '.' || i == ':') kind |= kNameChar;
    if (i == ' ' || i == '\t' || i == '\n' || i == '\r') kind |= kWhite;
    if (i == '<' || i == '&') kind |= kTextStop | kValueStop;
    if (i == ']') kind |= kTextStop;
    if (i == '"' || i == '\'') kind |= kValueStop;
    if (i < 0x20) kind |= kValueStop;
    if (i < 0x20 && i != '\t' && i != '\n') kind |= kTextStop | kPlainStop;
    kinds[i] = static_cast<std::uint8_t>(kind);
  }
  return kinds;
}();

bool Is(char byte, ByteKind kind) {
  return (kBytes[static_cast<unsigned char>(byte)] & kind) != 0;
}

bool IsForeign(char byte) {
  return (byte & 0x80) != 0;
}

#ifdef __SSE2__
// The bytes of the kind, one bit for each.
template <ByteKind kind>
unsigned Stops(__m128i bytes) {
  const __m128i low = _mm_cmpeq_epi8(_mm_min_epu8(bytes, _mm_set1_epi8(0x1F)), bytes);
  const auto is = [bytes](char byte) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(byte)); };
  __m128i stops = low;
  if (kind != kValueStop) stops = _mm_andnot_si128(_mm_or_si128(is('\t'), is('\n')), stops);
  if (kind != kPlainStop) stops = _mm_or_si128(stops, _mm_or_si128(is('<'), is('&')));
  if (kind == kValueStop) stops = _mm_or_si128(stops, _mm_or_si128(is('"'), is('\'')));
  if (kind == kTextStop) stops = _mm_or_si128(stops, is(']'));
  return static_cast<unsigned>(_mm_movemask_epi8(stops));
}
#endif

// XML 1.0, production 2.
bool IsCharacter(char32_t point) {
  if (point < 0x20) return point == '\t' || point == '\n' || point == '\r';
  return point < 0xD800 || (point > 0xDFFF && point < 0xFFFE) ||
         (point > 0xFFFF && point < 0x110000);
}

wchar* WritePoint(char32_t point, wchar* out) {
  if (point > 0xFFFF) {
    *out++ = static_cast<wchar>(0xD800 + ((point - 0x10000) >> 10));
    point = 0xDC00 + ((point - 0x10000) & 0x3FF);
  }
  *out++ = static_cast<wchar>(point);
  return out;
}

// Where widening has come to.
struct Run {
  const char* at;  // null behind a bad sequence
  wchar* out;
};

// Widens characters up to `full` that take more than one byte, if they are characters of XML.
Run WidenForeign(Run run, const char* end, const wchar* full) {
  while (run.at != end && run.out < full && IsForeign(*run.at)) {
    char32_t point = 0;
    const std::size_t length = ReadUtf8Sequence(reinterpret_cast<const unsigned char*>(run.at),
                                                static_cast<std::size_t>(end - run.at), point);
    if (length == 0 || point == 0xFFFE || point == 0xFFFF) return {nullptr, run.out};
    run.at += length;
    run.out = WritePoint(point, run.out);
  }
  return run;
}

// Widens what is in front of the next stop, of `end`, and of the first unit at `full` or behind it.
template <ByteKind kind>
Run WidenRun(Run run, const char* end, const wchar* full) {
  while (run.out < full) {
#ifdef __SSE2__
    if (end - run.at >= 16) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(run.at));
      const __m128i zero = _mm_setzero_si128();
      _mm_storeu_si128(reinterpret_cast<__m128i*>(run.out), _mm_unpacklo_epi8(bytes, zero));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(run.out + 8), _mm_unpackhi_epi8(bytes, zero));
      const auto foreign = static_cast<unsigned>(_mm_movemask_epi8(bytes));
      const int plain = std::countr_zero(Stops<kind>(bytes) | foreign | 1u << 16);
      run.at += plain;
      run.out += plain;
      if (plain == 16) continue;
      if (((foreign >> plain) & 1) == 0) return run;
    }
#endif
    while (run.at != end && run.out < full && !IsForeign(*run.at) && !Is(*run.at, kind)) {
      *run.out++ = static_cast<unsigned char>(*run.at++);
    }
    if (run.at == end || !IsForeign(*run.at)) return run;
    run = WidenForeign(run, end, full);
    if (!run.at) return run;
  }
  return run;
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
    : m_document(document), m_encoding(encoding) {}

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

// The same for text that stands in the document further in front.
bool CXmlScanner::AcceptRaw(std::string_view known) {
#ifdef __SSE2__
  if (m_end - m_at >= 16 && known.size() <= 16) {
    const __m128i here = _mm_loadu_si128(reinterpret_cast<const __m128i*>(m_at));
    const __m128i there = _mm_loadu_si128(reinterpret_cast<const __m128i*>(known.data()));
    const auto same = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(here, there)));
    const unsigned wanted = (1u << known.size()) - 1;
    if ((same & wanted) != wanted) return false;
    m_at += known.size();
    return true;
  }
#endif
  return Accept(known);
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
  EmptyUnits();
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
  const auto begin = static_cast<std::size_t>(m_out - m_units);
  if (!ReadValue(*m_at++)) return false;
  const auto end = static_cast<std::size_t>(m_out - m_units);
  if (!name->declares) {
    m_attributes.push_back({name, begin, end});
    return true;
  }
  m_out = m_units + begin;
  return Declare(*name->declares, {m_out, end - begin});
}

// Documents bind the same again and again.
bool CXmlScanner::Declare(Prefix& prefix, WStringView uri) {
  const bool isKnown = prefix.lastBound && EqualText(*prefix.lastBound, uri);
  if (!isKnown && !BindAnew(prefix, uri)) return false;
  m_bindings.push_back({&prefix, prefix.uri});
  prefix.uri = uri.empty() ? nullptr : prefix.lastBound;
  return true;
}

bool CXmlScanner::BindAnew(Prefix& prefix, WStringView uri) {
  const bool isReserved = uri == kXmlNamespace || uri == kXmlnsNamespace;
  const bool isReservedPrefix = prefix.text == "xml" || prefix.text == "xmlns";
  const bool isUnbound = uri.empty() && &prefix != &m_default;
  if (isReserved || isReservedPrefix || isUnbound || uri.find(kSeparator) != WStringView::npos) {
    return false;
  }
  prefix.lastBound = m_document.Names().KeepUri(uri);
  m_document.BindAlias(TovikXmlLib16::WidenAscii(prefix.text), *prefix.lastBound);
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
    if (!name) return false;
    if (attribute.name->local != 0) m_prefixed.push_back(name);
    const WStringView value(m_units + attribute.begin, attribute.end - attribute.begin);
    m_document.AddElementAttribute(&element, name, value);
  }
  // Two prefixes can stand for one namespace.
  if (m_prefixed.size() < 2) return true;
  std::sort(m_prefixed.begin(), m_prefixed.end());
  return std::adjacent_find(m_prefixed.begin(), m_prefixed.end()) == m_prefixed.end();
}

bool CXmlScanner::ReadEndTag() {
  if (!AcceptRaw(m_open.back().name)) return false;
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

// Puts what is in front of the next stop and of `end` into the units, as far as these have room.
template <auto kind>
bool CXmlScanner::Widen(const char* end) {
  const Run run = WidenRun<kind>({m_at, m_out}, end, m_full);
  m_at = run.at;
  m_out = run.out;
  return run.at != nullptr;
}

bool CXmlScanner::ReadText() {
  EmptyUnits();
  while (Widen<kTextStop>(m_end) && m_at != m_end) {
    char32_t point = 0;
    if (m_out >= m_full) {
      FlushText();
    } else if (*m_at == '<') {
      FlushText();
      return true;
    } else if (*m_at == '&') {
      if (!ReadReference(point)) return false;
      // A carriage return that comes as a reference is dropped from text.
      if (point != '\r') AppendPoint(point);
    } else if (*m_at == '\r') {
      AppendLineEnd();
    } else if (*m_at == ']' && !Until(m_end).starts_with("]]>")) {
      AppendPoint(']');
      ++m_at;
    } else {
      return false;
    }
  }
  return false;
}

bool CXmlScanner::ReadCData() {
  const std::size_t length = Until(m_end).find("]]>");
  if (length == std::string_view::npos) return false;
  EmptyUnits();
  if (!ReadPlain(m_at + length, [this] { FlushText(); })) return false;
  return Accept("]]>");
}

// Reads text without markup up to `end`, and calls `empty` for each part of it.
template <class Empty>
bool CXmlScanner::ReadPlain(const char* end, Empty empty) {
  while (Widen<kPlainStop>(end)) {
    const bool isEnd = m_at == end;
    if (isEnd || m_out >= m_full) {
      empty();
      if (isEnd) return true;
    } else if (*m_at == '\r') {
      AppendLineEnd();
    } else {
      return false;
    }
  }
  return false;
}

// XML 1.0, 2.11.
void CXmlScanner::AppendLineEnd() {
  ++m_at;
  if (m_at == m_end || *m_at != '\n') AppendPoint('\n');
}

void CXmlScanner::AppendPoint(char32_t point) {
  m_out = WritePoint(point, m_out);
}

void CXmlScanner::FlushText() {
  const auto size = static_cast<std::size_t>(m_out - m_units);
  if (size != 0) m_document.AppendText({m_units, size});
  EmptyUnits();
}

bool CXmlScanner::SkipComment() {
  const std::size_t length = Until(m_end).find("--");
  if (length == std::string_view::npos) return false;
  EmptyUnits();
  return ReadPlain(m_at + length, [this] { EmptyUnits(); }) && Accept("-->");
}

bool CXmlScanner::SkipInstruction() {
  const char* const target = m_at;
  if (m_at == m_end || !Is(*m_at, kNameStart)) return false;
  m_at = EndOfName(m_at, m_end);
  const std::string_view name(target, static_cast<std::size_t>(m_at - target));
  if (name.find(':') != std::string_view::npos || EqualsInUpperCase(name, "XML")) return false;
  const std::size_t length = Until(m_end).find("?>");
  if (length == std::string_view::npos || (length != 0 && !Is(*m_at, kWhite))) return false;
  EmptyUnits();
  return ReadPlain(m_at + length, [this] { EmptyUnits(); }) && Accept("?>");
}

// The name at the cursor, which is at its first letter. The name that came behind the last one
// before is looked at first.
CXmlScanner::Name* CXmlScanner::ReadName() {
  Name* const guess = m_lastName->successor;
  if (guess && AcceptRaw(guess->raw)) {
    if (m_at != m_end && !Is(*m_at, kNameChar) && !IsForeign(*m_at)) return m_lastName = guess;
    m_at -= guess->raw.size();
  }
  const char* const end = EndOfName(m_at, m_end);
  if (end == m_end || IsForeign(*end)) return nullptr;
  Name* const name = FindName(Until(end));
  m_at = end;
  if (name) m_lastName = m_lastName->successor = name;
  return name;
}

CXmlScanner::Name* CXmlScanner::FindName(std::string_view raw) {
  if (m_nameCount * 2 >= m_slots.size()) GrowNames();
  const std::uint64_t hash = HashBytes(raw);
  const std::size_t mask = m_slots.size() - 1;
  std::size_t at = static_cast<std::size_t>(hash) & mask;
  for (; m_slots[at].name; at = (at + 1) & mask) {
    if (m_slots[at].hash == hash && m_slots[at].name->raw == raw) return m_slots[at].name;
  }
  Name* const name = m_names.Take([](std::byte* place) { return new (place) Name(); });
  name->raw = raw;
  if (!FillName(*name)) return nullptr;
  m_slots[at] = {hash, name};
  ++m_nameCount;
  return name;
}

void CXmlScanner::GrowNames() {
  std::vector<Slot> slots(std::max(kFirstSlots, m_slots.size() * 2));
  const std::size_t mask = slots.size() - 1;
  for (const Slot& slot : m_slots) {
    if (!slot.name) continue;
    std::size_t at = static_cast<std::size_t>(slot.hash) & mask;
    while (slots[at].name) at = (at + 1) & mask;
    slots[at] = slot;
  }
  m_slots = std::move(slots);
}

// XML namespaces, productions 7 to 11.
bool CXmlScanner::FillName(Name& name) {
  const std::size_t colon = name.raw.find(':');
  name.prefix = &m_default;
  if (colon == std::string_view::npos) {
    if (name.raw == "xmlns") name.declares = &m_default;
    return true;
  }
  const std::string_view prefix = name.raw.substr(0, colon);
  const std::string_view local = name.raw.substr(colon + 1);
  if (local.empty() || !Is(local.front(), kNameStart)) return false;
  if (local.find(':') != std::string_view::npos) return false;
  name.local = colon + 1;
  name.prefix = &PrefixOf(prefix);
  if (prefix == "xmlns") name.declares = &PrefixOf(local);
  return true;
}

CXmlScanner::Prefix& CXmlScanner::PrefixOf(std::string_view text) {
  const auto [entry, isNew] = m_prefixes.try_emplace(text, Prefix{text});
  if (isNew && text == "xml") entry->second.uri = m_document.Names().KeepUri(kXmlNamespace);
  return entry->second;
}

// Null for a prefix that stands for nothing.
const CXmlName* CXmlScanner::ElementName(Name& name) {
  Uri* const uri = name.prefix->uri;
  if (name.element && name.uri == uri) return name.element;
  if (!uri && name.local != 0) return nullptr;
  name.uri = uri;
  return name.element = Keep(uri ? uri : m_document.Names().KeepUri({}), name);
}

const CXmlName* CXmlScanner::AttributeName(Name& name) {
  if (name.local != 0) return ElementName(name);
  if (!name.attribute) name.attribute = Keep(m_document.Names().KeepUri({}), name);
  return name.attribute;
}

const CXmlName* CXmlScanner::Keep(Uri* uri, const Name& name) {
  return m_document.Names().Keep(uri, TovikXmlLib16::WidenAscii(name.raw.substr(name.local)));
}

// Appends the normalised value (XML 1.0, 3.3.3) in front of the quote, and passes that.
bool CXmlScanner::ReadValue(char quote) {
  while (Widen<kValueStop>(m_end) && m_at != m_end) {
    if (m_out >= m_full) {
      GrowUnits();
      continue;
    }
    if (*m_at == quote) {
      ++m_at;
      return true;
    }
    char32_t point = static_cast<unsigned char>(*m_at);
    if (point == '&') {
      if (!ReadReference(point)) return false;
    } else {
      const bool isWhite = Is(*m_at, kWhite);
      if (!isWhite && point != '"' && point != '\'') return false;
      m_at += Until(m_end).starts_with("\r\n") ? 2 : 1;
      if (isWhite) point = ' ';
    }
    AppendPoint(point);
  }
  return false;
}

void CXmlScanner::GrowUnits() {
  const auto used = static_cast<std::size_t>(m_out - m_units);
  const std::size_t size = used * 2;
  auto units = std::make_unique_for_overwrite<wchar[]>(size + kSlack);
  std::copy(m_units, m_out, units.get());
  m_grownUnits = std::move(units);
  m_units = m_grownUnits.get();
  m_out = m_units + used;
  m_full = m_units + size;
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
