#include "tovikxml/document/utf16_input.h"

#include <optional>
#include <utility>

#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8.h"

namespace TovikXmlLib16 {
namespace {

wchar UnitOf(unsigned low, unsigned high) {
  return static_cast<wchar>(low | high << 8);
}

char Continuation(unsigned bits) {
  return static_cast<char>(0x80 | (bits & 0x3F));
}

// A surrogate without its partner takes three bytes, which no parser takes for a character.
std::string EncodePieces(WStringView text) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1])) {
      ++at;
    } else if (IsHighSurrogate(text[at]) || IsLowSurrogate(text[at])) {
      result += EncodeUtf8(text.substr(from, at - from)).value_or(std::string());
      result += {'\xED', Continuation(text[at] >> 6), Continuation(text[at])};
      from = at + 1;
    }
  }
  return result += EncodeUtf8(text.substr(from)).value_or(std::string());
}

}  // namespace

CUtf16Input::Order CUtf16Input::OrderOf(const unsigned char* data, std::size_t length) {
  if (length < 2) return Order::none;
  const wchar mark = UnitOf(data[0], data[1]);
  if (mark == 0xFEFF || data[1] == 0) return Order::lowFirst;
  if (mark == 0xFFFE || data[0] == 0) return Order::highFirst;
  return Order::none;
}

bool CUtf16Input::BeginsWithMark(const unsigned char* data, std::size_t length) {
  if (length < 2) return false;
  const wchar mark = UnitOf(data[0], data[1]);
  return mark == 0xFEFF || mark == 0xFFFE;
}

std::string CUtf16Input::Convert(const unsigned char* data, std::size_t length, bool isFinal) {
  const unsigned char* const end = data + length;
  m_units.reserve(m_units.size() + length / 2 + 1);
  const auto append = [this](unsigned first, unsigned second) {
    m_units += m_order == Order::lowFirst ? UnitOf(first, second) : UnitOf(second, first);
  };
  if (!m_oddByte.empty() && data != end) {
    append(static_cast<unsigned char>(m_oddByte[0]), *data++);
    m_oddByte.clear();
  }
  for (; end - data >= 2; data += 2) append(data[0], data[1]);
  if (data != end) m_oddByte.assign(1, static_cast<char>(*data));
  WString kept;
  if (!isFinal && !m_units.empty() && IsHighSurrogate(m_units.back())) {
    kept = m_units.back();
    m_units.pop_back();
  }
  std::string text = Convert(m_units);
  m_units = std::move(kept);
  return text;
}

std::string CUtf16Input::Convert(WStringView text) {
  std::optional<std::string> encoded = EncodeUtf8(text);
  return encoded ? *std::move(encoded) : EncodePieces(text);
}

}  // namespace TovikXmlLib16
