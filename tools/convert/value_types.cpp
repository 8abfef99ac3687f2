#include "tools/convert/value_types.h"

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

// Texts below this many units enter the tables of a Fast Infoset document.
constexpr std::size_t kShortText = 6;
// All numbers up to this length are exact in the double precision that most readers use.
constexpr std::size_t kMaxDigits = 15;

bool IsDigit(wchar unit) {
  return unit >= u'0' && unit <= u'9';
}

std::size_t CountDigits(WStringView text) {
  std::size_t count = 0;
  while (count < text.size() && IsDigit(text[count])) ++count;
  return count;
}

}  // namespace

ItemType JsonTypeOf(const WString& value) {
  if (value == u"true" || value == u"false") return it_boolean;
  WStringView rest = value;
  if (!rest.empty() && rest.front() == u'-') rest.remove_prefix(1);
  const std::size_t whole = CountDigits(rest);
  if (whole == 0 || rest.size() > kMaxDigits || (whole > 1 && rest.front() == u'0')) {
    return it_string;
  }
  rest.remove_prefix(whole);
  if (rest.empty()) return it_integer;
  if (rest.front() != u'.') return it_string;
  rest.remove_prefix(1);
  return !rest.empty() && CountDigits(rest) == rest.size() ? it_decimal : it_string;
}

ItemType FastInfosetTypeOf(const WString& value) {
  if (value.size() < kShortText || CountDigits(value) == 0) return it_string;
  if (value.find_first_not_of(u"0123456789-+.e ") == WString::npos) return it_decimal;
  if (value.find_first_not_of(u"0123456789-:TZ ") == WString::npos) return it_datetime;
  return it_string;
}

}  // namespace TovikXmlConvert
