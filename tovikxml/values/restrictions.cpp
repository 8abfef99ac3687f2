#include "tovikxml/values/restrictions.h"

#include <limits>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

std::int32_t NumberFacet(long value) {
  if (value < 0) return -1;
  if (value > std::numeric_limits<std::int32_t>::max()) {
    throw CTovikInvalidParamException(FormatString(u"Facet out of range [%ld]", value));
  }
  return static_cast<std::int32_t>(value);
}

}  // namespace

std::uint32_t CPrimitiveRestrictions::m_maxPatternSteps = kDefaultMaxPatternSteps;
std::uint32_t CPrimitiveRestrictions::m_maxPatternMemory = kDefaultMaxPatternMemory;

CPrimitiveRestrictions::CPrimitiveRestrictions(const wchar* pattern, long minLength, long maxLength,
                                               const wchar* minInclusive, const wchar* maxInclusive,
                                               const wchar* minExclusive, const wchar* maxExclusive,
                                               long length, long totalDigits, long fractionDigits)
    : m_pattern(TextOf(pattern)),
      m_minLength(NumberFacet(minLength)),
      m_maxLength(NumberFacet(maxLength)),
      m_minInclusive(TextOf(minInclusive)),
      m_maxInclusive(TextOf(maxInclusive)),
      m_minExclusive(TextOf(minExclusive)),
      m_maxExclusive(TextOf(maxExclusive)),
      m_length(NumberFacet(length)),
      m_totalDigits(NumberFacet(totalDigits)),
      m_fractionDigits(NumberFacet(fractionDigits)),
      m_hasFacets(AnyFacet()) {}

CPrimitiveRestrictions::~CPrimitiveRestrictions() = default;

bool CPrimitiveRestrictions::AnyFacet() const {
  for (const WString* text :
       {&m_pattern, &m_minInclusive, &m_maxInclusive, &m_minExclusive, &m_maxExclusive}) {
    if (!text->empty()) return true;
  }
  for (const std::int32_t number :
       {m_minLength, m_maxLength, m_length, m_totalDigits, m_fractionDigits}) {
    if (number >= 0) return true;
  }
  return false;
}

}  // namespace TovikXmlLib16
