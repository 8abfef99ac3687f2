#ifndef TOVIKXML_BASE_UTF8_H_
#define TOVIKXML_BASE_UTF8_H_

#include <optional>
#include <string>
#include <string_view>

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

/// @file
/// The way between the 16-bit text of the library and the UTF-8 (RFC 3629) of files, terminals and
/// other programs:
///
///     order->SetNotes(FromUtf8(argument));                // throws if the bytes are not UTF-8
///     std::string row = ToUtf8(order->GetNotes());        // throws if it has no UTF-8 form
///     std::cout << DisplayUtf8(order->GetNotes());        // for people: never throws for that
///
/// There is no `operator<<` for `WString`. The type is `std::u16string`, so that an operator in
/// this namespace would be found in some places and not in others, such as the templates of a test
/// framework; `DisplayUtf8` gives a text that goes into every stream, log and format.
namespace TovikXmlLib16 {

/// Converts UTF-16 to UTF-8. Nothing if the text has an unpaired surrogate.
TOVIKXML_EXPORT std::optional<std::string> EncodeUtf8(WStringView text);

/// Converts UTF-8 to UTF-16. Nothing if the bytes hold a cut, overlong or otherwise bad sequence,
/// a surrogate, or a code point above U+10FFFF.
TOVIKXML_EXPORT std::optional<WString> DecodeUtf8(std::string_view bytes);

/// As `EncodeUtf8`, but throws `CTovikInvalidValueException` "The text has an unpaired surrogate
/// and cannot be written as UTF-8".
TOVIKXML_EXPORT std::string ToUtf8(WStringView text);

/// As `DecodeUtf8`, but throws `CTovikInvalidValueException` "The bytes are not UTF-8 from offset
/// [%llu] on", with the offset of the first bad sequence.
TOVIKXML_EXPORT WString FromUtf8(std::string_view bytes);

/// UTF-8 for people to read: each unpaired surrogate becomes U+FFFD.
TOVIKXML_EXPORT std::string DisplayUtf8(WStringView text);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_UTF8_H_
