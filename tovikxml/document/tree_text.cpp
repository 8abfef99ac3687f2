#include "tovikxml/document/tree_text.h"

#include <algorithm>

#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::size_t kFirstBlock = 512;
constexpr std::size_t kLargestBlock = 32768;
// Longer texts are strings of their own.
constexpr std::size_t kLargestInRoom = 1024;
constexpr std::size_t kLargestUsual = 128;
// A freed node keeps a string with this much room.
constexpr std::size_t kKeptCapacity = 4096;

}  // namespace

// Blocks double, so that small documents stay small.
void CXmlTextRoom::AddBlock() {
  static_assert(kLargestInRoom <= 2 * kFirstBlock);
  const std::size_t size =
      std::min(kLargestBlock, kFirstBlock << std::min<std::size_t>(m_blocks.size() + 1, 8));
  m_blocks.push_back(std::make_unique_for_overwrite<wchar[]>(size));
  m_next = m_blocks.back().get();
  m_left = size;
}

const WString& CXmlTreeText::AsString() const {
  if (m_isString) return *m_string;
  return m_size == 0 ? EmptyText() : BecomeString();
}

WString& CXmlTreeText::BecomeString() const {
  if (!m_string) m_string = std::make_unique<WString>();
  m_string->assign(m_units, m_size);
  m_isString = true;
  return *m_string;
}

void CXmlTreeText::AppendGrowing(WStringView text, CXmlTextRoom& room, std::size_t& usual) {
  if (!m_isString && GrowInRoom(m_size + text.size(), room, usual)) {
    text.copy(m_units + m_size, text.size());
    m_size = static_cast<std::uint16_t>(m_size + text.size());
    return;
  }
  (m_isString ? *m_string : BecomeString()).append(text);
}

// White space between children comes in many runs, with texts of children between them, and is
// much the same in all elements of a name.
bool CXmlTreeText::GrowInRoom(std::size_t needed, CXmlTextRoom& room, std::size_t& usual) {
  if (needed > kLargestInRoom) return false;
  if (m_capacity != 0 && room.Extend(m_units + m_capacity, needed - m_capacity)) {
    m_capacity = static_cast<std::uint16_t>(needed);
    return true;
  }
  // Room that is left behind, also by an earlier node, is never more than what takes its place.
  if (m_size != 0) usual = std::max(usual, std::min(needed, kLargestUsual));
  const std::size_t capacity =
      std::max({needed, usual, std::min(kLargestInRoom, std::size_t{2} * m_capacity)});
  wchar* const units = room.Take(capacity);
  std::copy(m_units, m_units + m_size, units);
  m_units = units;
  m_capacity = static_cast<std::uint16_t>(capacity);
  return true;
}

void CXmlTreeText::Reuse() {
  m_size = 0;
  m_isString = false;
  if (m_string && m_string->capacity() > kKeptCapacity) m_string.reset();
}

}  // namespace TovikXmlLib16
