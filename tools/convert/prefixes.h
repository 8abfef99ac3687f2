#ifndef TOVIKXML_TOOLS_CONVERT_PREFIXES_H_
#define TOVIKXML_TOOLS_CONVERT_PREFIXES_H_

#include <set>

#include "tovikxml/tovikxml.h"

namespace TovikXmlConvert {

/// Finds the prefixes under which a document is to be written again: those of the source where
/// they are unambiguous. All of them are declared on the root.
///
/// A prefix is also kept if a text or an attribute value uses it, as in `type="xs:string"`. The
/// default namespace is kept only if every element is in a namespace, since a writer cannot take
/// it back further down.
class Prefixes {
 public:
  explicit Prefixes(const TovikXmlLib16::CXmlDocument& document);

  void ApplyTo(TovikXmlLib16::CSerializationContext& context) const;

 private:
  void Visit(const TovikXmlLib16::CXmlElement& element);
  void VisitValue(const TovikXmlLib16::WString& value);
  TovikXmlLib16::WString DefaultNamespace() const;
  TovikXmlLib16::WString MakePrefix(const TovikXmlLib16::CNamespaceAliasMap& taken) const;

  const TovikXmlLib16::CXmlDocument& m_document;
  std::set<TovikXmlLib16::WString> m_elementNamespaces;
  std::set<TovikXmlLib16::WString> m_attributeNamespaces;
  std::set<TovikXmlLib16::WString> m_prefixesInValues;
};

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_PREFIXES_H_
