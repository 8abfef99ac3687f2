#include "tovikxml/document/namespace_rule.h"

#include <algorithm>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

// Takes the next token off the front of the list; an empty one at the end.
WStringView TakeToken(WStringView& list) {
  list.remove_prefix(std::min(list.find_first_not_of(u' '), list.size()));
  const WStringView token = list.substr(0, list.find(u' '));
  list.remove_prefix(token.size());
  return token;
}

bool Passes(WStringView token, WStringView namespaceUri, WStringView targetNamespace) {
  if (token == u"##any") return true;
  if (token == u"##other") return !EqualText(namespaceUri, targetNamespace);
  if (token == u"##local") return namespaceUri.empty();
  if (token == u"##targetNamespace") return EqualText(namespaceUri, targetNamespace);
  return EqualText(namespaceUri, token) || namespaceUri.empty();
}

}  // namespace

WStringView FirstToken(WStringView list) {
  return TakeToken(list);
}

WString NamespaceOfNewItems(WStringView given, WStringView restriction) {
  if (!given.empty()) return WString(given);
  const WStringView first = FirstToken(restriction);
  const bool isUri = first.size() >= 2 && first[0] != u'#' && first[1] != u'#';
  return isUri ? WString(first) : WString();
}

bool IsNamespaceAllowed(WStringView namespaceUri, WStringView allowed,
                        WStringView targetNamespace) {
  WStringView token = TakeToken(allowed);
  do {
    if (Passes(token, namespaceUri, targetNamespace)) return true;
    token = TakeToken(allowed);
  } while (!token.empty());
  return false;
}

void RequireNamespaceAllowed(WStringView namespaceUri, WStringView allowed,
                             WStringView targetNamespace) {
  if (IsNamespaceAllowed(namespaceUri, allowed, targetNamespace)) return;
  throw CTovikInvalidNamespaceException(
      FormatString(u"Invalid namespace [%s]. The namespace must be one of [%s] where the target "
                   u"namespace is [%s].",
                   WString(namespaceUri).c_str(), WString(allowed).c_str(),
                   WString(targetNamespace).c_str()),
      WString());
}

}  // namespace TovikXmlLib16
