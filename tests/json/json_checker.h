#ifndef TESTS_JSON_JSON_CHECKER_H_
#define TESTS_JSON_JSON_CHECKER_H_

#include "tovikxml/base/wide_string.h"

namespace TovikXmlTest {

/// Whether a text is one JSON value by the letter of RFC 8259, with nothing but white space around
/// it. Shares nothing with the library's own reader, which takes more.
bool IsJson(TovikXmlLib16::WStringView text);

}  // namespace TovikXmlTest

#endif  // TESTS_JSON_JSON_CHECKER_H_
