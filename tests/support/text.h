#ifndef TESTS_SUPPORT_TEXT_H_
#define TESTS_SUPPORT_TEXT_H_

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/gtest_text.h"
#include "tovikxml/base/utf8.h"
#include "tovikxml/values/binary_data.h"

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

/// The short name of the class of an exception, such as "InvalidValue".
TovikXmlLib16::WString ClassNameOf(const TovikXmlLib16::CTovikException& e);

/// The text that `action` gives, empty if it gives none, or of what it throws the class and the
/// whole message: "!InvalidValue The value [x] can not be converted to a i4".
template <class Action>
TovikXmlLib16::WString Outcome(Action&& action) {
  try {
    if constexpr (std::is_void_v<decltype(action())>) {
      action();
      return {};
    } else {
      return action();
    }
  } catch (const TovikXmlLib16::CTovikException& e) {
    return u"!" + ClassNameOf(e) + u" " + e.GetFullMessage();
  }
}

/// Digits of a number.
template <class Number>
TovikXmlLib16::WString NumberText(Number number) {
  return Wide(std::to_string(number));
}

/// Bytes as the library takes and gives them.
TovikXmlLib16::CBinaryData ToBytes(std::string_view bytes);
std::string FromBytes(const TovikXmlLib16::CBinaryData& data);

/// Bytes from hexadecimal digits, between which blanks may stand, and back.
std::string FromHex(std::string_view digits);
std::string ToHex(std::string_view bytes);

}  // namespace TovikXmlTest

#endif  // TESTS_SUPPORT_TEXT_H_
