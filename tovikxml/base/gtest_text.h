#ifndef TOVIKXML_BASE_GTEST_TEXT_H_
#define TOVIKXML_BASE_GTEST_TEXT_H_

#include <ostream>
#include <string>

#include "tovikxml/base/utf8.h"

/// @file
/// For tests with GoogleTest: a `WString` in a failed comparison is shown as the text that it is,
/// and not unit by unit as far as it is not ASCII.
///
///     #include <gtest/gtest.h>
///     #include "tovikxml/base/gtest_text.h"
///
///     EXPECT_EQ(customer->GetCity(), u"Z\u00fcrich");
///
/// Include it in every source of a test program that compares such texts. It is no part of
/// tovikxml.h and needs no header of GoogleTest; it works in front of that and behind it.
namespace testing::internal {

// GoogleTest looks for a printer of its users beside the type only, and beside `std::u16string` no
// program may put one. So this stands where GoogleTest itself asks what it has for a type.
template <typename T>
class UniversalPrinter;

/// Prints in UTF-8, between quotation marks.
template <>
class UniversalPrinter<std::u16string> {
 public:
  static void Print(const std::u16string& text, std::ostream* out) {
    *out << "u\"" << TovikXmlLib16::DisplayUtf8(text) << '"';
  }
};

}  // namespace testing::internal

#endif  // TOVIKXML_BASE_GTEST_TEXT_H_
