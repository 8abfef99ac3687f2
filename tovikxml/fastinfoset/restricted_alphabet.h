#ifndef TOVIKXML_FASTINFOSET_RESTRICTED_ALPHABET_H_
#define TOVIKXML_FASTINFOSET_RESTRICTED_ALPHABET_H_

#include <cstddef>
#include <vector>

#include "tovikxml/base/wide_string.h"

/// Text over a restricted alphabet (ITU-T X.891, clause 9): each character is its position in the
/// alphabet, in as many bits as the alphabet needs with one value to spare.
///
///     "2001" over "0123456789-:TZ "        20 01
///     "-1.5" over "0123456789-+.e "        A1 C5
///     "1.5"                                1C 5F      F fills the last octet
///
/// Internal.
namespace TovikXmlLib16 {

/// The built-in alphabets, with the indexes 1 and 2 (clause 9.1).
inline constexpr WStringView kFIAlphabets[] = {u"0123456789-+.e ", u"0123456789-:TZ "};

/// The octets of a text over an alphabet of 4 or 8 bits. Throws `CTovikException` "Failed to write
/// FastInfoset. ...": "Invalid Restricted Alphabet. Alphabet must contain between 2 and 2^20
/// characters.", "Unsupported Feature in AppendRestrictedAlphabetString." for another width,
/// "Invalid character not found for Restricted Alphabet.".
std::vector<unsigned char> EncodeOverAlphabet(WStringView alphabet, WStringView text);

/// Appends the text that octets stand for, whatever the width. A value with all bits set ends it,
/// unless the width is 8, or 4 and the value the first of its octet.
/// Throws "Failed to parse FastInfoset. ..." for an alphabet of a bad size and for a value beyond
/// the alphabet.
void AppendOverAlphabet(WString& out, WStringView alphabet, const unsigned char* data,
                        std::size_t length);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_RESTRICTED_ALPHABET_H_
