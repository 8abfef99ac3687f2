#include "tovikxml/json/text_reader.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/values/whitespace.h"

namespace TovikXmlLib16 {
namespace {

// The value of a hexadecimal digit, -1 for any other unit.
constexpr int HexValue(wchar unit) {
  if (IsAsciiDigit(unit)) return unit - u'0';
  if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  return -1;
}

// What stands for the unit behind a backslash, 0 if nothing does.
constexpr wchar SimpleEscape(wchar unit) {
  switch (unit) {
    case u'"':
    case u'\\':
    case u'/':
      return unit;
    case u'b':
      return u'\b';
    case u'f':
      return u'\f';
    case u'n':
      return u'\n';
    case u'r':
      return u'\r';
    case u't':
      return u'\t';
    default:
      return 0;
  }
}

constexpr const wchar* kNoObjectEnd =
    u"Unexpected End of File. Expected Object terminator character '}'";
constexpr const wchar* kNoArrayEnd =
    u"Unexpected End of File. Expected Array terminator character ']'";
constexpr const wchar* kNoString = u"Unexpected End of File. Expected string value";
constexpr const wchar* kNoNumber = u"Unexpected End of File. Expected a number";
constexpr const wchar* kNoDigit = u"Unexpected End of File. Expected a digit '0' to '9'";
constexpr const wchar* kNotADigit = u"Expected a digit '0' to '9'";

}  // namespace

void CJsonReaderDefaultHandler::StartDocument() {
  if (m_next) m_next->StartDocument();
}

void CJsonReaderDefaultHandler::EndDocument() {
  if (m_next) m_next->EndDocument();
}

void CJsonReaderDefaultHandler::Name(const WString& name) {
  if (EndsWith(Kind::kName)) {
    m_path.back().name = name;
  } else {
    m_path.push_back({name, -1, Kind::kName});
  }
  if (m_next) m_next->Name(name);
}

void CJsonReaderDefaultHandler::StringValue(const WString& text) {
  if (m_next) m_next->StringValue(text);
}

void CJsonReaderDefaultHandler::NumberValue(const WString& text) {
  if (m_next) m_next->NumberValue(text);
}

void CJsonReaderDefaultHandler::StartObject() {
  if (EndsWith(Kind::kArray)) ++m_path.back().index;
  Enter(Kind::kObject);
  if (m_next) m_next->StartObject();
}

void CJsonReaderDefaultHandler::EndObject() {
  Leave(Kind::kObject);
  if (m_next) m_next->EndObject();
}

void CJsonReaderDefaultHandler::StartArray() {
  Enter(Kind::kArray);
  if (m_next) m_next->StartArray();
}

void CJsonReaderDefaultHandler::EndArray() {
  Leave(Kind::kArray);
  if (m_next) m_next->EndArray();
}

void CJsonReaderDefaultHandler::BooleanValue(bool value) {
  if (m_next) m_next->BooleanValue(value);
}

void CJsonReaderDefaultHandler::NullValue() {
  if (m_next) m_next->NullValue();
}

// An object or array takes the place of the name in front of it. The outermost has no entry.
void CJsonReaderDefaultHandler::Enter(Kind kind) {
  if (m_path.empty()) return;
  if (EndsWith(Kind::kName)) {
    m_path.back().kind = kind;
  } else {
    m_path.push_back({WString(), -1, kind});
  }
}

void CJsonReaderDefaultHandler::Leave(Kind kind) {
  while (!m_path.empty()) {
    const bool found = m_path.back().kind == kind;
    m_path.pop_back();
    if (found) return;
  }
}

WString CJsonReaderDefaultHandler::GetErrorPath() const {
  WString path = u"$";
  for (std::size_t i = m_path.size(); i-- > 0;) {
    if (m_path[i].kind == Kind::kArray) continue;
    path += u'.';
    if (m_path[i].kind == Kind::kObject && i > 0 && m_path[i - 1].kind == Kind::kArray) {
      path += m_path[i - 1].name + FormatString(u"[%d]", m_path[i - 1].index);
    } else {
      path += m_path[i].name;
    }
  }
  return path;
}

CJsonTextReader::CJsonTextReader(const WString& source)
    : CInstanceMonitor(u"CJsonTextReader"), m_source(source) {}

void CJsonTextReader::SetHandler(std::unique_ptr<IJsonReaderHandler> handler) {
  m_handler.SetHandler(std::move(handler));
}

void CJsonTextReader::Parse() {
  m_index = 0;
  m_endOfFile = false;
  m_line = 1;
  m_position = 0;
  m_handler.StartDocument();
  if (!m_rootElementName.empty()) {
    m_handler.StartObject();
    m_handler.Name(m_rootElementName);
  }
  if (NextToken()) ReadValue(0);
  if (!m_rootElementName.empty()) m_handler.EndObject();
  m_handler.EndDocument();
}

// Line feeds are counted and never become the current unit.
bool CJsonTextReader::NextUnit() {
  while (m_index < m_source.size()) {
    const wchar unit = m_source[m_index++];
    ++m_position;
    if (unit != u'\n') {
      m_current = unit;
      return true;
    }
    ++m_line;
    m_position = 0;
  }
  m_endOfFile = true;
  return false;
}

bool CJsonTextReader::NextNonBlank() {
  while (NextUnit()) {
    if (!CWhitespaceUtils::IsWhiteSpace(m_current)) return true;
  }
  return false;
}

bool CJsonTextReader::NextToken() {
  while (NextNonBlank()) {
    if (!m_allowComments || !SkipComment()) return true;
  }
  return false;
}

// Skips the comment that begins at the current unit, if one does.
bool CJsonTextReader::SkipComment() {
  if (m_current != u'/' || m_index == m_source.size()) return false;
  const wchar second = m_source[m_index];
  if (second != u'/' && second != u'*') return false;
  ++m_index;
  if (second == u'/') {
    SkipLineComment();
  } else {
    SkipBlockComment();
  }
  return true;
}

void CJsonTextReader::SkipLineComment() {
  const std::size_t end = m_source.find(u'\n', m_index);
  if (end == WString::npos) {
    m_index = m_source.size();
    m_endOfFile = true;
    return;
  }
  m_index = end + 1;
  ++m_line;
  m_position = 0;
}

void CJsonTextReader::SkipBlockComment() {
  while (NextUnit()) {
    if (m_current == u'*' && m_index < m_source.size() && m_source[m_index] == u'/') {
      ++m_index;
      ++m_position;
      return;
    }
  }
}

// The next units whatever they are; nothing if there are not so many.
std::optional<WStringView> CJsonTextReader::ReadUnits(std::size_t count) {
  const WStringView units = WStringView(m_source).substr(m_index, count);
  m_index += units.size();
  m_position += static_cast<std::int64_t>(units.size());
  if (units.size() < count) {
    m_endOfFile = true;
    return std::nullopt;
  }
  m_current = units.back();
  return units;
}

void CJsonTextReader::ReadValue(int depth) {
  ++depth;
  if (depth > kDepthLimit) Fail(u"JSON exceeded depth limit");
  switch (m_current) {
    case u'{':
      return ReadObject(depth);
    case u'[':
      return ReadArray(depth);
    case u'"':
      return m_handler.StringValue(ReadString());
    case u'n':
      ReadLiteral(u"ull", u"NULL");
      return m_handler.NullValue();
    case u't':
      ReadLiteral(u"rue", u"true");
      return m_handler.BooleanValue(true);
    case u'f':
      ReadLiteral(u"alse", u"false");
      return m_handler.BooleanValue(false);
    default:
      if (!IsAsciiDigit(m_current) && m_current != u'-') {
        FailFound(u"Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null'");
      }
      return m_handler.NumberValue(ReadNumber());
  }
}

void CJsonTextReader::ReadObject(int depth) {
  m_handler.StartObject();
  // The brace is doubled in this message alone.
  NeedToken(u"Unexpected End of File. Expected Object terminator character '}}'");
  if (m_current != u'}') {
    ReadMember(depth);
    while (m_current != u'}') {
      if (m_current != u',') FailFound(u"Expected Object separator character ','");
      NeedToken(kNoObjectEnd);
      ReadMember(depth);
    }
  }
  NextToken();
  m_handler.EndObject();
}

// Reads a name and its value, behind which there must be more text.
void CJsonTextReader::ReadMember(int depth) {
  if (m_current != u'"') FailFound(u"Expected quotation mark character '\"' before Name");
  m_handler.Name(ReadString());
  NeedText(u"Unexpected End of File. Expected Object Name/Value separator character ':'");
  if (m_current != u':') FailFound(u"Expected Object Name/Value separator character ':'");
  NeedToken(u"Unexpected End of File. Expected Object Value");
  ReadValue(depth);
  NeedText(kNoObjectEnd);
}

void CJsonTextReader::ReadArray(int depth) {
  m_handler.StartArray();
  NeedToken(kNoArrayEnd);
  if (m_current != u']') {
    ReadValue(depth);
    NeedText(kNoArrayEnd);
    while (m_current != u']') {
      if (m_current != u',') FailFound(u"Expected Array separator character ','");
      NeedToken(kNoArrayEnd);
      ReadValue(depth);
      NeedText(kNoArrayEnd);
    }
  }
  NextToken();
  m_handler.EndArray();
}

const WString& CJsonTextReader::ReadString() {
  m_text.clear();
  for (;;) {
    AppendPlainRun();
    if (!NextUnit()) Fail(kNoString);
    if (m_current == u'"') break;
    if (m_current == u'\\') {
      AppendEscape();
    } else {
      m_text += m_current;
    }
  }
  NextToken();
  const std::size_t zero = m_text.find(u'\0');
  if (zero != WString::npos) m_text.resize(zero);
  return m_text;
}

void CJsonTextReader::AppendPlainRun() {
  const wchar* const begin = m_source.data() + m_index;
  const wchar* const end = m_source.data() + m_source.size();
  const wchar* at = begin;
  while (at != end && *at != u'"' && *at != u'\\' && *at != u'\n') ++at;
  m_text.append(begin, at);
  m_index += static_cast<std::size_t>(at - begin);
  m_position += at - begin;
}

void CJsonTextReader::AppendEscape() {
  if (!NextUnit()) Fail(kNoString);
  if (m_current == u'u') {
    m_text += ReadHexEscape();
  } else if (const wchar unit = SimpleEscape(m_current)) {
    m_text += unit;
  } else {
    Fail(FormatString(u"Invalid Escape Character '%c'", m_current));
  }
}

// One UTF-16 unit; whether surrogates come in pairs is not looked at here.
wchar CJsonTextReader::ReadHexEscape() {
  const auto digits = ReadUnits(4);
  if (!digits) Fail(u"Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx'");
  int value = 0;
  for (std::size_t i = 0; i < digits->size(); ++i) {
    const int digit = HexValue((*digits)[i]);
    if (digit < 0) {
      m_position -= static_cast<std::int64_t>(digits->size() - 1 - i);
      Fail(FormatString(u"Invalid Escape Character '%c'", (*digits)[i]));
    }
    value = value * 16 + digit;
  }
  return static_cast<wchar>(value);
}

const WString& CJsonTextReader::ReadNumber() {
  m_text.clear();
  if (AppendIntegerPart() && AppendFraction()) AppendExponent();
  if (!m_endOfFile && CWhitespaceUtils::IsWhiteSpace(m_current)) NextToken();
  return m_text;
}

// The parts of a number say whether there is text behind them. Behind a zero that leads no other
// digit is looked for.
bool CJsonTextReader::AppendIntegerPart() {
  if (m_current == u'-') AppendAndNeedNext(kNoNumber);
  if (m_current != u'0') {
    if (!IsAsciiDigit(m_current)) FailFound(kNotADigit);
    return AppendDigits();
  }
  m_text += m_current;
  return NextUnit();
}

bool CJsonTextReader::AppendFraction() {
  if (m_current != u'.') return true;
  AppendAndNeedNext(kNoDigit);
  if (!IsAsciiDigit(m_current)) FailFound(kNotADigit);
  return AppendDigits();
}

void CJsonTextReader::AppendExponent() {
  if (m_current != u'e' && m_current != u'E') return;
  AppendAndNeedNext(u"Unexpected End of File. Expected '+', '-' or a number");
  if (m_current == u'+' || m_current == u'-') AppendAndNeedNext(kNoNumber);
  // These words stand also for a unit that is present.
  if (!IsAsciiDigit(m_current)) Fail(kNoDigit);
  AppendDigits();
}

bool CJsonTextReader::AppendDigits() {
  do {
    m_text += m_current;
    if (!NextUnit()) return false;
  } while (IsAsciiDigit(m_current));
  return true;
}

void CJsonTextReader::AppendAndNeedNext(const wchar* message) {
  m_text += m_current;
  if (!NextUnit()) Fail(message);
}

void CJsonTextReader::ReadLiteral(WStringView rest, const wchar* name) {
  const auto units = ReadUnits(rest.size());
  if (!units) Fail(FormatString(u"Unexpected End of File. Expected value '%s'", name));
  if (*units != rest) Fail(FormatString(u"Expected '%s'", name));
  NextToken();
}

void CJsonTextReader::NeedToken(const wchar* message) {
  if (!NextToken()) Fail(message);
}

void CJsonTextReader::NeedText(const wchar* message) const {
  if (m_endOfFile) Fail(message);
}

void CJsonTextReader::Fail(const WString& message) const {
  throw CTovikValidationException(
      message + FormatString(u" at line %lld, position %lld.", static_cast<long long>(m_line),
                             static_cast<long long>(m_position)),
      m_handler.GetErrorPath());
}

void CJsonTextReader::FailFound(const wchar* expected) const {
  Fail(FormatString(u"%s, found '%c'", expected, m_current));
}

}  // namespace TovikXmlLib16
