#ifndef TOVIKXML_COLLECTIONS_ELEMENT_COL_H_
#define TOVIKXML_COLLECTIONS_ELEMENT_COL_H_

#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/collections/collection.h"
#include "tovikxml/collections/element.h"

namespace TovikXmlLib16Data {
class CElementInfo;
}  // namespace TovikXmlLib16Data

namespace TovikXmlLib16 {

/// The elements that a repeated `xs:any` wildcard takes, and the children of a `CElement`.
///
///     CElementCol elements(u"", u"urn:a urn:b", u"urn:target", 0, -1);
///     elements.Add(u"note");                         // in urn:a, the first of the restriction
///     elements.Add(u"note", u"urn:b")->SetText(u"hi");
///
/// The restriction is tested once, for the namespace given to the constructor: the list itself
/// lets every namespace pass. The record of a wildcard that is not repeated is stricter: there
/// each element is tested.
class TOVIKXML_EXPORT CElementCol : public CXmlCollection, public CInstanceMonitor {
 public:
  /// New elements get `namespaceUri`; if that is empty, the first URI of the restriction, unless a
  /// keyword such as "##any" comes first. Throws `CTovikInvalidNamespaceException` if
  /// `namespaceUri` is not allowed.
  CElementCol(const wchar* namespaceUri, const wchar* restriction, const wchar* targetNamespace,
              int minOccurs, int maxOccurs);

  CSmartPtr<CElement> Add(const wchar* name, const wchar* namespaceUri);
  /// Throws `CTovikInvalidStateException` "A Namespace has not been set for this Collection" if
  /// new elements have none.
  CSmartPtr<CElement> Add(const wchar* name);
  void Add(CElement* element);
  void AddAfter(const CElement* existing, CElement* element);
  void AddBefore(const CElement* existing, CElement* element);

  CSmartPtr<CElement> Item(int index) const;
  CTovikIterator<CElement> begin() const { return CTovikIterator<CElement>(GetFirstNode()); }
  CTovikIterator<CElement> end() const { return CTovikIterator<CElement>(); }
  /// A deep copy.
  CSmartPtr<CElementCol> Clone() const;
  CSmartPtr<CElementCol> Clone(const CSerializationContext& context) const;

 protected:
  ~CElementCol() override;

  /// Both give the target namespace.
  WString GetTargetNamespace() const override;
  WString GetNamespace() const override;
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                 const CSerializationContext& context, bool isOptionalChoice) const override;
  /// Takes the elements from `firstChild` on; returns the first that it did not take, null behind
  /// the last.
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                           const CSerializationContext& context, bool isOptionalChoice) override;
  using CXmlObjectBase::FromXml_Int;
  using CXmlObjectBase::ToXml_Int;
  /// The same, but takes only a run of elements of one name.
  virtual CXmlElement* FromXmlLockElementName_Int(const wchar* name, const wchar* namespaceUri,
                                                  CXmlElement* parent, CXmlElement* current,
                                                  const CSerializationContext& context);

 private:
  friend class CElement;
  friend class TovikXmlLib16Data::CElementInfo;

  CSmartPtr<CElement> AddNew(const wchar* name, const wchar* namespaceUri);
  CXmlElement* ReadOne(CXmlElement* parent, CXmlElement* current, const wchar* restriction,
                       const CSerializationContext& context);
  static void ReleaseFlat(CSmartPtr<CElementCol> elements);

  WString m_restriction;
  WString m_namespaceOfNew;
  WString m_targetNamespace;
  CElementCol* m_nextToRelease = nullptr;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_COLLECTIONS_ELEMENT_COL_H_
