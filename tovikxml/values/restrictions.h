#ifndef TOVIKXML_VALUES_RESTRICTIONS_H_
#define TOVIKXML_VALUES_RESTRICTIONS_H_

#include <cstdint>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// The facets of a simple type (XML Schema datatypes, constraining facets) as generated tables
/// state them. Bounds are text: one record serves all kinds of values, and a bound is read by the
/// kind of the value that is checked. A text facet is absent when empty, a number facet when
/// negative.
class TOVIKXML_EXPORT CPrimitiveRestrictions {
 public:
  /// No facet at all.
  CPrimitiveRestrictions() = default;
  /// A null text is an absent facet. Throws `CTovikInvalidParamException` "Facet out of range
  /// [%ld]" for a number above 32 bits.
  CPrimitiveRestrictions(const wchar* pattern, long minLength, long maxLength,
                         const wchar* minInclusive, const wchar* maxInclusive,
                         const wchar* minExclusive, const wchar* maxExclusive, long length,
                         long totalDigits, long fractionDigits);
  CPrimitiveRestrictions(const CPrimitiveRestrictions&) = default;
  CPrimitiveRestrictions& operator=(const CPrimitiveRestrictions&) = default;
  /// Out of line, since every record in a generated table makes and drops one.
  virtual ~CPrimitiveRestrictions();

  const WString& GetPattern() const { return m_pattern; }
  std::int32_t GetMinLength() const { return m_minLength; }
  std::int32_t GetMaxLength() const { return m_maxLength; }
  const WString& GetMinInclusive() const { return m_minInclusive; }
  const WString& GetMaxInclusive() const { return m_maxInclusive; }
  const WString& GetMinExclusive() const { return m_minExclusive; }
  const WString& GetMaxExclusive() const { return m_maxExclusive; }
  std::int32_t GetLength() const { return m_length; }
  std::int32_t GetTotalDigits() const { return m_totalDigits; }
  std::int32_t GetFractionDigits() const { return m_fractionDigits; }

  /// How many steps, and how many kibibytes of memory, one match of a pattern may take before it is
  /// given up, which ends in `CTovikException` "Regular Expression exceeds its limits: %s Error:
  /// '%s'". They hold for all records; to be set before threads use them.
  static constexpr std::uint32_t kDefaultMaxPatternSteps = 1000000;
  static constexpr std::uint32_t kDefaultMaxPatternMemory = 64 * 1024;
  static void SetMaxPatternSteps(std::uint32_t steps) { m_maxPatternSteps = steps; }
  static std::uint32_t GetMaxPatternSteps() { return m_maxPatternSteps; }
  static void SetMaxPatternMemory(std::uint32_t kibibytes) { m_maxPatternMemory = kibibytes; }
  static std::uint32_t GetMaxPatternMemory() { return m_maxPatternMemory; }

  /// Whether any facet is present, so that a check has something to do.
  bool HasFacets() const { return m_hasFacets; }

 private:
  bool AnyFacet() const;

  static std::uint32_t m_maxPatternSteps;
  static std::uint32_t m_maxPatternMemory;

  WString m_pattern;
  std::int32_t m_minLength = -1;
  std::int32_t m_maxLength = -1;
  WString m_minInclusive;
  WString m_maxInclusive;
  WString m_minExclusive;
  WString m_maxExclusive;
  std::int32_t m_length = -1;
  std::int32_t m_totalDigits = -1;
  std::int32_t m_fractionDigits = -1;
  bool m_hasFacets = false;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_RESTRICTIONS_H_
