#ifndef TESTS_SUPPORT_TREE_TEXT_H_
#define TESTS_SUPPORT_TREE_TEXT_H_

#include "tovikxml/document/document.h"

namespace TovikXmlTest {

enum class BlankTexts { kKept, kLeftOut };

/// The tree of a document in a line, such as "a b=1'text'({urn:x}c)".
TovikXmlLib16::WString Describe(const TovikXmlLib16::CXmlDocument& document,
                                BlankTexts blankTexts = BlankTexts::kKept);

}  // namespace TovikXmlTest

#endif  // TESTS_SUPPORT_TREE_TEXT_H_
