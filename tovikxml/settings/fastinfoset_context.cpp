#include "tovikxml/settings/fastinfoset_context.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"

namespace TovikXmlLib16 {
namespace {

using Encoding = CFastInfosetContext::EncodedCharacterString;

constexpr Encoding kNumerals{CFastInfosetContext::ces_RestrictedAlphabet, 1};
constexpr Encoding kDateNumerals{CFastInfosetContext::ces_RestrictedAlphabet, 2};

constexpr Encoding Algorithm(std::uint32_t index) {
  return {CFastInfosetContext::ces_EncodingAlgorithm, index};
}

// An unsigned kind takes the next wider signed algorithm.
constexpr struct {
  std::size_t type;
  Encoding encoding;
} kSuggestions[] = {
    {it_hexBinary, Algorithm(1)}, {it_base64Binary, Algorithm(2)}, {it_i1, Algorithm(3)},
    {it_i2, Algorithm(3)},        {it_i4, Algorithm(4)},           {it_i8, Algorithm(5)},
    {it_ui1, Algorithm(3)},       {it_ui2, Algorithm(4)},          {it_ui4, Algorithm(5)},
    {it_ui8, Algorithm(5)},       {it_r4, Algorithm(7)},           {it_r8, Algorithm(8)},
    {it_duration, Encoding()},    {it_yearMonth, kDateNumerals},   {it_monthDay, kDateNumerals},
    {it_year, kDateNumerals},     {it_month, kDateNumerals},       {it_day, kDateNumerals},
    {it_date, kDateNumerals},     {it_datetime, kDateNumerals},    {it_time, kDateNumerals},
    {it_boolean, Algorithm(6)},   {it_decimal, kNumerals},         {it_integer, kNumerals},
};

void CheckItemType(unsigned long itemType) {
  if (itemType > it_xmlCollection) {
    throw CTovikInvalidParamException(FormatString(u"Invalid item type [%lu]", itemType));
  }
}

}  // namespace

CFastInfosetContext::CFastInfosetContext(const CFastInfosetContext& other) : CFastInfosetContext() {
  *this = other;
}

Encoding CFastInfosetContext::GetEncoding(unsigned long itemType) const {
  CheckItemType(itemType);
  return m_encodings[itemType];
}

void CFastInfosetContext::SetEncoding(unsigned long itemType, EncodedCharacterString encoding) {
  CheckItemType(itemType);
  m_encodings[itemType] = encoding;
}

void CFastInfosetContext::SetSuggestedValues() {
  for (const auto& suggestion : kSuggestions) m_encodings[suggestion.type] = suggestion.encoding;
}

}  // namespace TovikXmlLib16
