#ifndef TESTS_SUPPORT_TEXT_H_
#define TESTS_SUPPORT_TEXT_H_

#include <gtest/gtest.h>

#include <string>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/gtest_text.h"
#include "tovikxml/base/utf8.h"

namespace TovikXmlTest {

/// 16-bit text from UTF-8, for rows that come from files or are built at run time.
inline TovikXmlLib16::WString Wide(std::string_view utf8) {
  auto text = TovikXmlLib16::DecodeUtf8(utf8);
  if (!text) ADD_FAILURE() << "test text is not UTF-8: " << utf8;
  return text.value_or(TovikXmlLib16::WString());
}

/// Runs `action`, which must throw exactly an `Exception`, and gives its message.
template <class Exception, class Action>
TovikXmlLib16::WString MessageOf(Action&& action) {
  try {
    action();
  } catch (const TovikXmlLib16::CTovikException& e) {
    EXPECT_EQ(typeid(e).name(), typeid(Exception).name()) << e.what();
    return e.GetMessage();
  }
  ADD_FAILURE() << "no exception";
  return {};
}

}  // namespace TovikXmlTest

#endif  // TESTS_SUPPORT_TEXT_H_
