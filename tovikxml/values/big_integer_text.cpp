#include <algorithm>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"
#include "tovikxml/values/big_integer.h"
#include "tovikxml/values/decimal.h"

namespace TovikXmlLib16 {
namespace {

bool IsIntegerUnit(wchar unit) {
  return IsAsciiDigit(unit) || unit == u'-' || unit == u'+' || unit == u' ' || unit == u'\n' ||
         unit == u'\r' || unit == u'\t';
}

WStringView TrimBlanks(WStringView text) {
  const std::size_t begin = text.find_first_not_of(u' ');
  if (begin == WStringView::npos) return WStringView();
  return text.substr(begin, text.find_last_not_of(u' ') + 1 - begin);
}

}  // namespace

void CBigInteger::Parse(const wchar* text) {
  if (!text) throw CTovikInvalidParamException(u"The text of an Integer is null");
  WStringView digits(text);
  if (!std::all_of(digits.begin(), digits.end(), IsIntegerUnit)) {
    *this = CBigInteger(CDecimal(text));
    return;
  }
  digits = TrimBlanks(digits);
  const bool negative = !digits.empty() && digits.front() == u'-';
  BuildTail(digits, m_digits);
  m_sign = negative ? -1 : 1;
}

void CBigInteger::BuildTail(WStringView text, Digits& digits) {
  const auto end = std::find_if_not(text.rbegin(), text.rend(), IsAsciiDigit);
  const auto count = static_cast<std::size_t>(end - text.rbegin());
  BuildDigits(text.substr(text.size() - count), count, digits);
}

void CBigInteger::BuildDigits(WStringView text, std::size_t count, Digits& digits) {
  if (count > m_maxTextDigits) {
    throw CTovikInvalidValueException(
        FormatString(u"The number has more than %u digits", m_maxTextDigits));
  }
  Digits built;
  built.Resize((count + kLimbDigits - 1) / kLimbDigits);
  // Forwards, since the count tells to which limb and place the first digit belongs.
  Limb limb = 0;
  for (const wchar unit : text) {
    if (!IsAsciiDigit(unit)) continue;
    limb = limb * 10 + static_cast<Limb>(unit - u'0');
    if (--count % kLimbDigits != 0) continue;
    built[count / kLimbDigits] = limb;
    limb = 0;
  }
  Clean(built);
  digits = std::move(built);
}

WString CBigInteger::ToString() const {
  WString text;
  if (m_sign < 0 && !IsZero()) text.push_back(u'-');
  AppendText(m_digits, 1, text);
  return text;
}

void CBigInteger::AppendText(const Digits& digits, std::size_t minimum, WString& out) {
  const std::size_t begin = out.size();
  const auto own = static_cast<std::size_t>(Position(digits));
  out.resize(begin + std::max(minimum, own), u'0');
  std::size_t end = out.size();
  for (std::size_t i = 0; i < digits.Size(); ++i) {
    // Ends at the highest digit, so that zeros in front of the last limb write nothing.
    const std::size_t stop = end > begin + kLimbDigits ? end - kLimbDigits : begin;
    for (Limb limb = digits[i]; end > stop; limb /= 10) {
      out[--end] = static_cast<wchar>(u'0' + limb % 10);
    }
  }
}

}  // namespace TovikXmlLib16
