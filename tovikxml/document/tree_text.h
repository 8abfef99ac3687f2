#ifndef TOVIKXML_DOCUMENT_TREE_TEXT_H_
#define TOVIKXML_DOCUMENT_TREE_TEXT_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

/// @file
/// The texts of the nodes of a document. Most are short, and few are asked for as a `WString`; so
/// they lie one behind the other in the room of the document, without an allocation of their own.
namespace TovikXmlLib16 {

/// Where short texts lie. What is taken stays valid as long as the room.
class TOVIKXML_EXPORT CXmlTextRoom {
 public:
  wchar* Take(std::size_t units) {
    if (units > m_left) AddBlock();
    wchar* const taken = m_next;
    m_next += units;
    m_left -= units;
    return taken;
  }
  /// Lets the text taken last, which ends at `end`, grow where it is. False if it cannot.
  bool Extend(const wchar* end, std::size_t more) {
    if (end != m_next || more > m_left) return false;
    m_next += more;
    m_left -= more;
    return true;
  }

 private:
  void AddBlock();

  std::vector<std::unique_ptr<wchar[]>> m_blocks;
  wchar* m_next = nullptr;
  std::size_t m_left = 0;
};

/// One text. It becomes a `WString` of its own when it is asked for as one, or grows long.
class TOVIKXML_EXPORT CXmlTreeText {
 public:
  WStringView View() const {
    return m_isString ? WStringView(*m_string) : WStringView(m_units, m_size);
  }
  const WString& AsString() const;
  /// The text, copied into `scratch` unless it is a string already.
  const WString& CopyTo(WString& scratch) const {
    return m_isString ? *m_string : scratch.assign(m_units, m_size);
  }

  /// `usual` is the room that such a text ended up with before, and learns from this one.
  void Append(WStringView text, CXmlTextRoom& room, std::size_t& usual) {
    if (m_isString || text.size() > std::size_t{m_capacity} - m_size) {
      return AppendGrowing(text, room, usual);
    }
    text.copy(m_units + m_size, text.size());
    m_size = static_cast<std::uint16_t>(m_size + text.size());
  }
  /// Empties it for another node, and keeps its room unless that is unusually large.
  void Reuse();

 private:
  void AppendGrowing(WStringView text, CXmlTextRoom& room, std::size_t& usual);
  bool GrowInRoom(std::size_t needed, CXmlTextRoom& room, std::size_t& usual);
  WString& BecomeString() const;

  wchar* m_units = nullptr;
  std::uint16_t m_size = 0;
  std::uint16_t m_capacity = 0;
  mutable bool m_isString = false;
  mutable std::unique_ptr<WString> m_string;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_TREE_TEXT_H_
