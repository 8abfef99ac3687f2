#ifndef TOVIKXML_TOOLS_CONVERT_VALUE_TYPES_H_
#define TOVIKXML_TOOLS_CONVERT_VALUE_TYPES_H_

#include "tovikxml/tovikxml.h"

/// The kinds that values of open content, which are all texts, can be written as without a change
/// of a single character.
namespace TovikXmlConvert {

/// A number, `true` or `false` as JSON spells them; otherwise a string.
TovikXmlLib16::ItemType JsonTypeOf(const TovikXmlLib16::WString& value);

/// Text made of the characters of numbers, or of dates and times, which Fast Infoset packs two to
/// an octet; otherwise a string. Short texts stay strings, since these become an index when they
/// come again.
TovikXmlLib16::ItemType FastInfosetTypeOf(const TovikXmlLib16::WString& value);

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_VALUE_TYPES_H_
