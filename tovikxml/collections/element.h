#ifndef TOVIKXML_COLLECTIONS_ELEMENT_H_
#define TOVIKXML_COLLECTIONS_ELEMENT_H_

#include "tovikxml/base/instance_monitor.h"
#include "tovikxml/base/smart_ptr.h"
#include "tovikxml/binding/object_base.h"

namespace TovikXmlLib16 {

class CAttributeCol;
class CElementCol;
class CXmlTextWriter;

/// An element that no generated class describes, as an `xs:any` wildcard takes it: a name, text,
/// attributes and child elements.
///
///     CSmartPtr<CElement> note(new CElement(u"note", u"urn:a"));
///     note->GetAttributes()->Add(u"lang", u"en", u"");
///     note->GetChildElements()->Add(u"to")->SetText(u"all");   // in urn:a as well
///     header->GetExtensions()->Add(note);
///
/// The text of an element is one string and is written behind the children, wherever it stood in
/// the source. Prefixes are not kept: they are chosen anew in writing.
///
/// An element knows the wildcard that it was made for: the list of namespaces that it lets pass
/// and the target namespace of its schema. They are tested when the element is made and when it
/// is read; the setters do not test. What is read is the first element that the entry point finds
/// inside the root; `FromXml` with a text alone reads the root itself. Reading adds to the
/// attributes and children that are there.
///
/// Operations that walk the tree and take no context refuse a nesting beyond `GetMaxNesting` of
/// the default context. Freeing a tree takes no stack.
class TOVIKXML_EXPORT CElement : public CXmlObjectBase, public CInstanceMonitor {
 public:
  /// In no namespace; any namespace is allowed.
  explicit CElement(const wchar* name);
  /// The namespace is the only one allowed, and not a keyword such as "##any": that is refused
  /// with `CTovikInvalidNamespaceException` "Invalid Namespace [%s].".
  CElement(const wchar* name, const wchar* namespaceUri);
  /// Throws `CTovikInvalidNamespaceException` for a namespace that the restriction does not allow,
  /// and for a null name, restriction or target namespace.
  CElement(const wchar* name, const wchar* namespaceUri, const wchar* restriction,
           const wchar* targetNamespace);
  /// Turns any object into open content, by way of its XML text. With a default namespace that is
  /// not empty the element declares it where it is written as XML text.
  CElement(CXmlObjectBase* object, const wchar* defaultNamespace);
  CElement(const CElement&) = delete;
  CElement& operator=(const CElement&) = delete;

  CXmlObjectBase* GetBase() override;
  using CXmlObjectBase::GetBase;

  WString GetName() const { return m_name; }
  void SetName(const wchar* name);
  WString GetNamespace() const override;
  void SetNamespace(const wchar* namespaceUri);
  WString GetText() const { return m_text; }
  void SetText(const wchar* text);
  /// Never null; new attributes get the namespace that the element was made with.
  CSmartPtr<CAttributeCol> GetAttributes() const;
  /// Never null; as for attributes.
  CSmartPtr<CElementCol> GetChildElements() const;

  /// A deep copy, without the default namespace. It nests no deeper than the context allows, which
  /// is the default one where none is given.
  CSmartPtr<CElement> Clone() const;
  CSmartPtr<CElement> Clone(const CSerializationContext& context) const;
  /// Tests the namespaces of the element, its attributes and everything below against a wildcard,
  /// and stores nothing. Throws `CTovikInvalidNamespaceException` "The namespace %s in the class
  /// %s is invalid against restriction %s", one inside the other down to the place.
  void SetNamespaceRestrictions(const wchar* restriction, const wchar* targetNamespace);
  void SetNamespaceRestrictions(const wchar* restriction, const wchar* targetNamespace,
                                const CSerializationContext& context);
  /// Reads the root of a document. A root whose namespace is not allowed changes nothing.
  void FromXml(const wchar* text);
  using CXmlObjectBase::FromXml;

 protected:
  ~CElement() override;

  void Init(const wchar* name, const wchar* namespaceUri, const wchar* restriction,
            const wchar* targetNamespace);
  /// Replaces names, text, attributes and children with those of the source. No namespace is
  /// tested.
  void CopyXmlElement(CXmlElement* source);

  WString GetTargetNamespace() const override;
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                 const CSerializationContext& context, bool isOptionalChoice) const override;
  /// Reads the element `current` and returns its next sibling; `current` itself if its namespace
  /// is not allowed. `parent` is not used.
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* current,
                           const CSerializationContext& context, bool isOptionalChoice) override;
  // The bridges to other objects.
  using CXmlObjectBase::FromXml_Int;
  using CXmlObjectBase::ToXml_Int;

  // Called by the setters with the new value before it is stored; these do nothing.
  virtual void FireOnChangeName(const wchar* name);
  virtual void FireOnChangeNamespace(const wchar* namespaceUri);
  virtual void FireOnChangeText(const wchar* text);

 private:
  friend class CElementCol;

  void WriteNested(CXmlTextWriter& outer, const wchar* namespaceUri,
                   const CSerializationContext& context, bool isOptionalChoice) const;
  void WriteContent(CXmlWriter* writer, const wchar* namespaceUri,
                    const CSerializationContext& context, bool isOptionalChoice) const;

  WString m_name;
  WString m_text;
  WString m_namespace;
  WString m_restriction;
  WString m_targetNamespace;
  CSmartPtr<CAttributeCol> m_attributes;
  CSmartPtr<CElementCol> m_childElements;
  WString m_defaultNamespace;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_COLLECTIONS_ELEMENT_H_
