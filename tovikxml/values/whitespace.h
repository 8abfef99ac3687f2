#ifndef TOVIKXML_VALUES_WHITESPACE_H_
#define TOVIKXML_VALUES_WHITESPACE_H_

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

namespace TovikXmlLib16 {

/// The whiteSpace facet (XML Schema datatypes, whiteSpace), which is applied to a text before a
/// value is read from it. White space is blank, tab, carriage return and line feed.
class TOVIKXML_EXPORT CWhitespaceUtils {
 public:
  /// What happens to white space; the rule of a record comes from its schema type.
  enum WhitespaceRule : int {
    ws_none = 0,      ///< the text passes unchanged
    ws_preserve = 1,  ///< line ends become one line feed each
    ws_replace = 2,   ///< each white space character or line end becomes one blank
    ws_collapse = 3   ///< as replace; then runs become one blank, and both ends are trimmed
  };

  /// Throws `CTovikException` "Unknown WhitespaceRule" for a rule outside the enumeration.
  static WString ApplyRule(WhitespaceRule rule, const WString& text);
  /// The same text without a copy where the rule changes nothing: the result is `text` itself, or
  /// `scratch`, which received the changed text.
  static const WString& ApplyRule(WhitespaceRule rule, const WString& text, WString& scratch);

  /// Turns a carriage return, with or without a line feed behind it, into one line feed.
  static WString Preserve(const WString& text);
  /// Works on `length` units. Throws `CTovikInvalidParamException` if `length` is negative, or if
  /// `text` is null and `length` is not 0.
  static WString Preserve(const wchar* text, int length);
  /// Turns tab, line feed, and a carriage return with or without a line feed behind it into a
  /// blank.
  static WString Replace(const WString& text);
  /// Leaves single blanks between the words and none at the ends.
  static WString Collapse(const WString& text);

  static constexpr bool IsWhiteSpace(wchar unit) {
    return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
  }
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_WHITESPACE_H_
