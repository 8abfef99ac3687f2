#ifndef TOVIKXML_DOCUMENT_NAMESPACE_RULE_H_
#define TOVIKXML_DOCUMENT_NAMESPACE_RULE_H_

#include "tovikxml/base/wide_string.h"

/// The namespace constraint of a schema wildcard (XML Schema structures, 3.10.1). Internal.
namespace TovikXmlLib16 {

/// The first blank-separated token of a list; empty if there is none.
WStringView FirstToken(WStringView list);

/// The namespace that a list of open content gives to new items: the one given to it; if that is
/// empty, the first URI of its restriction, but never a keyword.
WString NamespaceOfNewItems(WStringView given, WStringView restriction);

/// Whether a wildcard lets a namespace pass. `allowed` is a blank-separated list; the tokens and
/// what each lets pass:
///
///     ##any               every namespace
///     ##other             every one but the target namespace
///     ##local             none (the empty one)
///     ##targetNamespace   the target namespace
///     a URI               that namespace, and the empty one
bool IsNamespaceAllowed(WStringView namespaceUri, WStringView allowed, WStringView targetNamespace);

/// Throws `CTovikInvalidNamespaceException` "Invalid namespace [%s]. ..." if it does not.
void RequireNamespaceAllowed(WStringView namespaceUri, WStringView allowed,
                             WStringView targetNamespace);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_DOCUMENT_NAMESPACE_RULE_H_
