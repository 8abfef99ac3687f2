#ifndef TOVIKXML_VALUES_FLOAT_FORMAT_H_
#define TOVIKXML_VALUES_FLOAT_FORMAT_H_

#include "tovikxml/base/wide_string.h"

/// The format that generated tables may give for a float or double, such as "%.2f" or "about %10.3e
/// m". Internal.
///
///     format     = *( text / "%%" ) conversion *( text / "%%" )
///     conversion = "%" *( "-" / "+" / " " / "#" / "0" ) [ width ] [ "." [ precision ] ] [ "l" ]
///                  ( "a" / "A" / "e" / "E" / "f" / "F" / "g" / "G" )
///
/// The meaning is that of printf in C; no locale takes part. Width and precision have at most four
/// digits.
namespace TovikXmlLib16 {

/// Formats a finite number. The format ends at a zero unit. Throws `CTovikInvalidValueException`
/// "Invalid number format [%s]" for a format outside the grammar.
WString FormatFloat(double value, WStringView format);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_FLOAT_FORMAT_H_
