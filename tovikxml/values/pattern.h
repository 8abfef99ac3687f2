#ifndef TOVIKXML_VALUES_PATTERN_H_
#define TOVIKXML_VALUES_PATTERN_H_

#include <string_view>

#include "tovikxml/base/wide_string.h"

/// The pattern facet of XML Schema datatypes over PCRE2. Internal.
///
/// These constructs of the facet's language are rewritten, wherever they stand; everything else
/// means what it means to PCRE2 in UTF mode:
///
///     \i \I                     initial name characters and the others
///     \c \C                     name characters and the others
///     \p{IsBasicLatin}          U+0000 to U+007F
///     \p{IsLatin-1Supplement}   U+0080 to U+00FF
///     \p{IsLatinExtended-A}     U+0100 to U+017F
///     \p{IsLatinExtended-B}     U+0180 to U+024F
///
/// Since a rewritten construct is a group or a class of its own, it does not combine with others
/// inside brackets.
namespace TovikXmlLib16 {

/// Whether the whole of `value`, up to a zero unit, matches an expression in UTF-8. A value with an
/// unpaired surrogate matches nothing.
///
/// Throws `CTovikException` "Invalid Regular Expression: %s Error: '%s'", with the value and the
/// reason, for an expression that PCRE2 refuses, and "Regular Expression exceeds its limits: %s
/// Error: '%s'" if a match takes more steps or memory than `CPrimitiveRestrictions` grants.
///
/// May run on any thread. Compiled expressions are kept for the next match of the same pattern.
bool MatchPattern(std::string_view pattern, const WString& value);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_PATTERN_H_
