#ifndef TOVIKXML_COLLECTIONS_ATTRIBUTE_COL_H_
#define TOVIKXML_COLLECTIONS_ATTRIBUTE_COL_H_

#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/collections/attribute.h"
#include "tovikxml/collections/collection.h"

namespace TovikXmlLib16 {

/// The attributes that an `xs:anyAttribute` wildcard takes, and the additional root attributes of a
/// context.
///
///     CAttributeCol attributes(u"", u"urn:a urn:b", u"urn:target");
///     attributes.Add(u"id", u"7");                    // in urn:a, the first of the restriction
///     attributes.Add(u"id", u"7", u"urn:c");          // throws: not allowed
///
/// The operations that take a namespace test it against the restriction, before anything else, and
/// throw `CTovikInvalidNamespaceException`; those that take an attribute do not.
class TOVIKXML_EXPORT CAttributeCol : public CXmlCollection, public CInstanceMonitor {
 public:
  /// `restriction` is the wildcard's list of namespaces. New attributes get `namespaceUri`; if that
  /// is empty, the first URI of the restriction, unless a keyword such as "##any" comes first.
  CAttributeCol(const wchar* namespaceUri, const wchar* restriction, const wchar* targetNamespace);

  CSmartPtr<CAttribute> Add(const wchar* name, const wchar* value, const wchar* namespaceUri);
  CSmartPtr<CAttribute> Add(const wchar* name, const wchar* value);
  CSmartPtr<CAttribute> Add(const wchar* name);
  void Add(CAttribute* attribute);
  void AddAfter(const CAttribute* existing, CAttribute* attribute);
  void AddBefore(const CAttribute* existing, CAttribute* attribute);

  CSmartPtr<CAttribute> Item(int index) const;
  CTovikIterator<CAttribute> begin() const { return CTovikIterator<CAttribute>(GetFirstNode()); }
  CTovikIterator<CAttribute> end() const { return CTovikIterator<CAttribute>(); }
  CSmartPtr<CAttributeCol> Clone() const;

 protected:
  ~CAttributeCol() override;

  WString GetTargetNamespace() const override;
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                 const CSerializationContext& context, bool isOptionalChoice) const override;
  /// Takes all attributes of `parent`, or throws `CTovikInvalidNamespaceException` "Invalid
  /// Attribute [%s]. ..." at the first that is not allowed. Returns `firstChild`.
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                           const CSerializationContext& context, bool isOptionalChoice) override;

 private:
  CSmartPtr<CAttribute> AddNew(WString name, WString value, WString namespaceUri);

  WString m_restriction;
  WString m_targetNamespace;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_COLLECTIONS_ATTRIBUTE_COL_H_
