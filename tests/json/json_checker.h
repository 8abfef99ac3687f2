#ifndef TESTS_JSON_JSON_CHECKER_H_
#define TESTS_JSON_JSON_CHECKER_H_

#include "tests/support/data_rows.h"
#include "tovikxml/settings/json_context.h"

namespace TovikXmlTest {

/// Whether a text is one JSON value by the letter of RFC 8259, with nothing but white space around
/// it. Shares nothing with the library's own reader, which takes more.
bool IsJson(TovikXmlLib16::WStringView text);

/// "bare", "marked" or "full" in a row.
template <>
TovikXmlLib16::JsonRoundTrip FieldAs(const TovikXmlLib16::WString& field);

}  // namespace TovikXmlTest

#endif  // TESTS_JSON_JSON_CHECKER_H_
