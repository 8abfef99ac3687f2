#include "tests/json/json_checker.h"

#include <algorithm>
#include <string>

#include "tovikxml/base/utf8.h"

namespace TovikXmlTest {
namespace {

// Each operation takes its production from the front of the text.
class Checker {
 public:
  explicit Checker(std::string_view text) : m_text(text) {}

  bool Document() { return Value() && m_text.empty(); }

 private:
  bool Value() {
    SkipBlanks();
    const bool valid = Take("{")   ? List("}", [this] { return String() && Colon() && Value(); })
                       : Take("[") ? List("]", [this] { return Value(); })
                                   : String() || Number() || Word();
    SkipBlanks();
    return valid;
  }

  template <class Item>
  bool List(std::string_view end, Item item) {
    SkipBlanks();
    if (Take(end)) return true;
    do {
      SkipBlanks();
      if (!item()) return false;
    } while (Take(","));
    return Take(end);
  }

  bool Colon() {
    SkipBlanks();
    return Take(":");
  }

  bool String() {
    if (!Take("\"")) return false;
    while (!m_text.empty() && static_cast<unsigned char>(m_text[0]) >= 32) {
      if (Take("\"")) return true;
      if (!Take("\\")) {
        m_text.remove_prefix(1);
      } else if (Take("u") ? Run("0123456789abcdefABCDEF") < 4 : !TakeOneOf("\"\\/bfnrt")) {
        return false;
      }
    }
    return false;
  }

  bool Number() {
    Take("-");
    if (!Take("0") && !Digits()) return false;
    if (Take(".") && !Digits()) return false;
    if (!TakeOneOf("eE")) return true;
    TakeOneOf("+-");
    return Digits();
  }

  bool Digits() {
    const std::size_t count = Run("0123456789");
    m_text.remove_prefix(count);
    return count > 0;
  }

  bool Word() { return Take("true") || Take("false") || Take("null"); }

  bool Take(std::string_view token) {
    if (!m_text.starts_with(token)) return false;
    m_text.remove_prefix(token.size());
    return true;
  }

  bool TakeOneOf(std::string_view characters) {
    return !m_text.empty() && characters.find(m_text[0]) != characters.npos &&
           Take(m_text.substr(0, 1));
  }

  std::size_t Run(std::string_view characters) const {
    return std::min(m_text.find_first_not_of(characters), m_text.size());
  }

  void SkipBlanks() { m_text.remove_prefix(Run(" \t\r\n")); }

  std::string_view m_text;
};

}  // namespace

bool IsJson(TovikXmlLib16::WStringView text) {
  const auto utf8 = TovikXmlLib16::EncodeUtf8(text);
  return utf8 && Checker(*utf8).Document();
}

template <>
TovikXmlLib16::JsonRoundTrip FieldAs(const TovikXmlLib16::WString& field) {
  EXPECT_TRUE(field == u"bare" || field == u"marked" || field == u"full");
  return field == u"bare"     ? TovikXmlLib16::jrt_Bare
         : field == u"marked" ? TovikXmlLib16::jrt_Marked
                              : TovikXmlLib16::jrt_Full;
}

}  // namespace TovikXmlTest
