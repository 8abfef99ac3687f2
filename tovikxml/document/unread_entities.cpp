#include "tovikxml/document/unread_entities.h"

#include <expat.h>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "tovikxml/base/utf8.h"

namespace TovikXmlLib16 {
namespace {

// What divides the open entities, and the bound prefixes among them, that expat lists.
constexpr wchar kListSeparator = u'\f';

constexpr WStringView kPredefined[] = {u"amp", u"lt", u"gt", u"quot", u"apos"};

// Bytes of the document are UTF-8 or of one of the encodings with a byte for a character.
WString Decode(std::string_view bytes) {
  if (auto text = DecodeUtf8(bytes)) return *std::move(text);
  WString text;
  for (const char byte : bytes) text.push_back(static_cast<unsigned char>(byte));
  return text;
}

// Calls `action` with the name of each reference to a general entity.
template <class Action>
void ForEachReference(WStringView text, Action action) {
  for (auto at = text.find(u'&'); at != WStringView::npos; at = text.find(u'&', at + 1)) {
    const WStringView name = text.substr(at + 1, text.find(u';', at) - at - 1);
    if (name.empty() || name.front() == u'#' || at + 1 + name.size() == text.size()) continue;
    if (name.find_first_of(u"& <>\"'") == WStringView::npos) action(name);
  }
}

}  // namespace

void CUnreadEntities::Declare(WStringView name, const WString* text) {
  m_declared.emplace(WString(name), Entity{text ? *text : WString(), !text});
}

void CUnreadEntities::Note(WStringView name) {
  if (m_first.empty()) m_first = name;
}

void CUnreadEntities::NoteOpen(WStringView openEntities) {
  while (!openEntities.empty()) {
    const WStringView item = openEntities.substr(0, openEntities.find(kListSeparator));
    const auto entity = m_declared.find(item);
    if (entity != m_declared.end() && entity->second.isExternal) Note(item);
    openEntities.remove_prefix(std::min(openEntities.size(), item.size() + 1));
  }
}

void CUnreadEntities::LookAtStartTag() {
  const int length = XML_GetCurrentByteCount(m_parser);
  LookAtBytes(InputFromEvent().substr(0, static_cast<std::size_t>(length)));
}

// The parser tells where the literal begins.
void CUnreadEntities::LookAtDefaultValue() {
  const std::string_view literal = InputFromEvent();
  if (!literal.empty()) LookAtBytes(literal.substr(0, literal.find(literal.front(), 1)));
}

// What the parser holds from the event that it reports.
std::string_view CUnreadEntities::InputFromEvent() const {
  int offset = 0;
  int size = 0;
  const char* buffer = XML_GetInputContext(m_parser, &offset, &size);
  if (!buffer) return {};
  return {buffer + offset, static_cast<std::size_t>(size - offset)};
}

void CUnreadEntities::LookAtBytes(std::string_view bytes) {
  if (bytes.find('&') != std::string_view::npos) LookAt(Decode(bytes));
}

// The text of an entity is looked at once, where it is first used. Entities may refer to each other
// to any depth, so that this takes no stack.
void CUnreadEntities::LookAt(WStringView text) {
  std::vector<WStringView> texts{text};
  while (!texts.empty() && m_first.empty()) {
    const WStringView next = texts.back();
    texts.pop_back();
    ForEachReference(next, [&](WStringView name) {
      const auto entity = m_declared.find(name);
      if (entity == m_declared.end()) {
        if (std::count(std::begin(kPredefined), std::end(kPredefined), name) == 0) Note(name);
      } else if (!std::exchange(entity->second.isLookedAt, true)) {
        texts.push_back(entity->second.text);
      }
    });
  }
}

}  // namespace TovikXmlLib16
