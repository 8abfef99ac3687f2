#ifndef TOVIKXML_BINDING_GENERATED_CLASS_H_
#define TOVIKXML_BINDING_GENERATED_CLASS_H_

#include "tovikxml/binding/class_info.h"
#include "tovikxml/binding/object_base.h"
#include "tovikxml/platform/critical_section.h"

namespace TovikXmlLib16 {

using TovikXmlLib16Data::CAttributeInfo;
using TovikXmlLib16Data::CElementInfo;
using TovikXmlLib16Data::CParentElementInfo;
using TovikXmlLib16Data::XmlElementType;

/// Base of generated classes. A generated class holds no serialisation code: it describes itself
/// with tables of records (see class_info.h), opens one gate to its properties, and this class
/// walks the tables to write and read it.
///
/// A generated class gives bodies to `GetBase`, `GetTargetNamespace`, `GetNamespace` and the five
/// operations below, and calls `SetElementName` in its constructor. docs/guide/generated_classes.md
/// goes through a whole one.
class TOVIKXML_EXPORT CXmlGeneratedClass : public CXmlObjectBase {
 public:
  CXmlGeneratedClass();
  CXmlGeneratedClass(const CXmlGeneratedClass&) = default;
  CXmlGeneratedClass& operator=(const CXmlGeneratedClass&) = default;
  ~CXmlGeneratedClass() override;

  /// A lock for generated code, which may build its tables under it; the library does not use it.
  static CTovikCriticalSection m_csInit;

 protected:
  void AttributesToXml_Int(CXmlWriter* writer, const CSerializationContext& context) const override;
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                 const CSerializationContext& context, bool isOptionalChoice) const override;
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                           const CSerializationContext& context, bool isOptionalChoice) override;
  // The bridges to other objects.
  using CXmlObjectBase::AttributesToXml_Int;
  using CXmlObjectBase::FromXml_Int;
  using CXmlObjectBase::ToXml_Int;

  /// The gate to the properties. With `read`, stores the property's value in `value`: a primitive
  /// by the setter of its type (unset if absent, `SetNil` if nil), an enumeration by `SetI4`, a
  /// class by `SetXmlObject`, a collection by `SetXmlCollection`. Otherwise takes the value out of
  /// `value`, which is of the record's kind, and stores it; collections are filled in place. May
  /// throw exceptions of the library's family, which are wrapped with the place.
  virtual void AccessProperty(int propertyIndex, bool read, TovikVariant& value) = 0;
  virtual CParentElementInfo* GetClassInfo() const = 0;
  /// The records of the child elements, ended by null.
  virtual CElementInfo** GetClassElementInfo() const = 0;
  /// The records of the attributes, ended by null.
  virtual CAttributeInfo** GetClassAttributeInfo() const = 0;
  /// Puts every property into its start state, so that reading into a used object starts clean.
  virtual void Init() = 0;

  void ReadProperty(int propertyIndex, TovikVariant& value) const;
  /// Whether some element record has the element's name.
  bool IsElementInList(const CSerializationContext& context, CXmlElement* element) const;
  /// Whether a choice may stay empty: an optional record of a choice, or a collection without a
  /// minimum, is among the records.
  bool DoesElementContainOptionalElements() const;
  /// Offers every attribute of the element to the records. With `failIfUnknown`, an attribute that
  /// none takes is an error unless the context lets it through.
  void ProcessAttributesFromXml(const CSerializationContext& context, CXmlElement* element,
                                bool failIfUnknown);
  /// Frees the tables of one class and sets the pointers to null.
  static void CleanMetaData(CParentElementInfo*& classInfo, CElementInfo**& elements,
                            CAttributeInfo**& attributes);

 public:
  /// Number of element records.
  int GetClassElementInfoCount() const;

 private:
  friend class TovikXmlLib16Data::CAttributeInfo;
  friend class TovikXmlLib16Data::CElementInfo;

  void WriteObject(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                   const CSerializationContext& context, bool isOptionalChoice) const;
  void WriteStart(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                  const CSerializationContext& context, bool isOptionalChoice) const;
  void WriteContent(CXmlWriter* writer, const CSerializationContext& context,
                    bool isOptionalChoice) const;
  void WriteOwnText(CXmlWriter* writer) const;
  void ProcessAttributesToXml(const CSerializationContext& context, CElementInfo** elements,
                              CAttributeInfo** attributes, CXmlWriter* writer) const;
  void ProcessElementSeqToXml(const CSerializationContext& context, CElementInfo** elements,
                              CXmlWriter* writer) const;
  void ProcessElementAllToXml(const CSerializationContext& context, CElementInfo** elements,
                              CXmlWriter* writer) const;
  void ProcessElementChoiceToXml(const CSerializationContext& context, CElementInfo** elements,
                                 CXmlWriter* writer, bool isOptionalChoice) const;

  CXmlElement* ReadObject(CXmlElement* parent, CXmlElement* firstChild,
                          const CSerializationContext& context, bool isOptionalChoice);
  CXmlElement* ReadContent(CXmlElement* parent, CXmlElement* firstChild,
                           const CSerializationContext& context, bool isOptionalChoice);
  void ReadOwnText(const CXmlElement& element);
  void ReadNilAttribute(const CXmlElement& element, const CXmlAttribute& attribute);
  bool IsNilObject() const;
  bool ReadRecord(CElementInfo* record, const CSerializationContext& context, CXmlElement* parent,
                  CXmlElement** child, XmlElementType elementType);
  CXmlElement* ProcessElementSeqFromXml(const CSerializationContext& context, CXmlElement* parent,
                                        CXmlElement* child, XmlElementType elementType);
  CXmlElement* ProcessElementAllFromXml(const CSerializationContext& context, CXmlElement* parent,
                                        CXmlElement* child, XmlElementType elementType);
  CXmlElement* ProcessElementChoiceFromXml(const CSerializationContext& context,
                                           CXmlElement* parent, CXmlElement* child,
                                           XmlElementType elementType, bool isOptionalChoice);
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BINDING_GENERATED_CLASS_H_
