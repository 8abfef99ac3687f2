#ifndef TOVIKXML_DOCUMENT_UTF16_INPUT_H_
#define TOVIKXML_DOCUMENT_UTF16_INPUT_H_

#include <cstddef>
#include <cstdint>
#include <string>

#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// Makes UTF-8 of XML text that comes as UTF-16 in pieces. The parser is not given UTF-16 itself:
/// where a value ends in a surrogate pair and its buffer is full, expat drops the second half.
class CUtf16Input {
 public:
  enum class Order : std::uint8_t { none, lowFirst, highFirst };

  /// The order of the bytes by the first two of a document: a byte order mark, or a unit below 256;
  /// none if the document is no UTF-16.
  static Order OrderOf(const unsigned char* data, std::size_t length);

  static bool BeginsWithMark(const unsigned char* data, std::size_t length);

  explicit CUtf16Input(Order order) : m_order(order) {}

  /// The next piece, less what is only complete with the one after it. What is no UTF-16 comes out
  /// as what is no UTF-8, for the parser to refuse.
  std::string Convert(const unsigned char* data, std::size_t length, bool isFinal);
  static std::string Convert(WStringView text);
  /// Whether the pieces so far end in the midst of a unit.
  bool HasOddByte() const { return !m_oddByte.empty(); }

 private:
  Order m_order;
  std::string m_oddByte;
  WString m_units;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_UTF16_INPUT_H_
