#include "tovikxml/document/name_check.h"

#include <expat.h>

#include <algorithm>
#include <new>
#include <string>

#include "tovikxml/base/utf8.h"

namespace TovikXmlLib16 {
namespace {

bool IsAscii(wchar unit) {
  return unit < 0x80;
}

bool IsAsciiNameStart(wchar unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_';
}

bool MayBeInName(wchar unit) {
  return !IsAscii(unit) || IsAsciiNameStart(unit) || (unit >= u'0' && unit <= u'9') ||
         unit == u'-' || unit == u'.';
}

}  // namespace

CXmlNameCheck::CXmlNameCheck() = default;

CXmlNameCheck::~CXmlNameCheck() = default;

void CXmlNameCheck::FreeParser::operator()(XML_ParserStruct* parser) const {
  XML_ParserFree(parser);
}

bool CXmlNameCheck::IsName(WStringView text) {
  if (text.empty() || !std::all_of(text.begin(), text.end(), MayBeInName)) return false;
  if (std::all_of(text.begin(), text.end(), IsAscii)) return IsAsciiNameStart(text.front());
  const auto utf8 = EncodeUtf8(text);
  return utf8 && Parse("<" + *utf8 + "/>");
}

// All names become children of one root, whose end never comes.
bool CXmlNameCheck::Parse(std::string_view utf8) {
  const auto parse = [&](std::string_view bytes) {
    return XML_Parse(m_parser.get(), bytes.data(), static_cast<int>(bytes.size()), false) ==
           XML_STATUS_OK;
  };
  if (!m_parser) {
    m_parser.reset(XML_ParserCreate(nullptr));
    if (!m_parser || !parse("<r>")) throw std::bad_alloc();
  }
  const bool isTaken = parse(utf8);
  if (!isTaken) m_parser.reset();
  return isTaken;
}

}  // namespace TovikXmlLib16
