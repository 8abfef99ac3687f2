#ifndef TOVIKXML_TOOLS_CONVERT_TREE_OBJECT_H_
#define TOVIKXML_TOOLS_CONVERT_TREE_OBJECT_H_

#include "tools/convert/namespaces.h"
#include "tools/convert/options.h"
#include "tovikxml/tovikxml.h"

namespace TovikXmlConvert {

/// A loaded document as an object, so that the entry points write it straight from its tree. It is
/// written once: the tree is freed before its text is encoded, which would take room beside it.
///
/// It drops the white space between elements, lets siblings of one name be an array in JSON, and
/// tells the kinds of values where the options ask for that. Writing throws what `Namespaces`
/// throws, and `CTovikException` for elements that are nested deeper than the options allow.
class CTreeObject : public TovikXmlLib16::CXmlObjectBase {
 public:
  /// The document has a root and outlives the object.
  CTreeObject(TovikXmlLib16::CXmlDocument& document, Namespaces::Source source,
              const Options& options);

  TovikXmlLib16::CXmlObjectBase* GetBase() override { return this; }
  /// Whether text was written that stands beside child elements, and so behind them.
  bool HasMixedContent() const { return m_hasMixedContent; }

 protected:
  ~CTreeObject() override = default;

  TovikXmlLib16::WString GetTargetNamespace() const override { return {}; }
  TovikXmlLib16::WString GetNamespace() const override { return {}; }
  void ToXml_Int(TovikXmlLib16::CXmlWriter* writer, bool isRoot,
                 const TovikXmlLib16::wchar* namespaceUri,
                 const TovikXmlLib16::CSerializationContext& context,
                 bool isOptionalChoice) const override;
  /// Takes nothing: the tree is read already.
  TovikXmlLib16::CXmlElement* FromXml_Int(TovikXmlLib16::CXmlElement* parent,
                                          TovikXmlLib16::CXmlElement* firstChild,
                                          const TovikXmlLib16::CSerializationContext& context,
                                          bool isOptionalChoice) override;

 private:
  TovikXmlLib16::CXmlDocument& m_document;
  Namespaces::Source m_source;
  const Options& m_options;
  mutable bool m_hasMixedContent = false;
};

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_TREE_OBJECT_H_
