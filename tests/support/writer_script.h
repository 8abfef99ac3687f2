#ifndef TESTS_SUPPORT_WRITER_SCRIPT_H_
#define TESTS_SUPPORT_WRITER_SCRIPT_H_

#include "tovikxml/document/writer.h"

namespace TovikXmlTest {

/// Drives a writer, of any format, by a text of steps with blanks between:
///
///     <name   <{uri}name     opens an element
///     >                      closes it
///     @name='value':kind     an attribute; without a kind it is a string, as in text
///     'text':kind            text, in which '' stands for one quotation mark
///     [   ]   ^0             collection state 1, 3 and any other
///     %nil   %type={uri}T    nil and type
///     %default='uri'   %alias:p='uri'   %comment='text'   %instruction='text'   %schema='text'
void RunScript(TovikXmlLib16::CXmlWriter& writer, TovikXmlLib16::WStringView script);

}  // namespace TovikXmlTest

#endif  // TESTS_SUPPORT_WRITER_SCRIPT_H_
