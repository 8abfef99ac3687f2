#ifndef TOVIKXML_BINDING_CLASS_INFO_H_
#define TOVIKXML_BINDING_CLASS_INFO_H_

#include <cstdint>

#include "tovikxml/base/export.h"
#include "tovikxml/base/item_type.h"
#include "tovikxml/base/smart_ptr.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/values/restrictions.h"
#include "tovikxml/values/whitespace.h"

/// @file
/// The metadata with which a generated class describes itself: one `CParentElementInfo` for the
/// class, and two tables of records, ended by null, one record for each child element and one for
/// each attribute. Records do not change after construction and are shared by all objects of a
/// class; the object comes in as an argument. A record reaches its property through
/// `CXmlGeneratedClass::AccessProperty` with the number that it was given.
namespace TovikXmlLib16 {
class CSerializationContext;
class CXmlAttribute;
class CXmlCollectionBase;
class CXmlElement;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlWriter;
struct TovikVariant;
}  // namespace TovikXmlLib16

namespace TovikXmlLib16Data {

using namespace TovikXmlLib16;  // NOLINT: the two namespaces are one interface

/// Whether an object has an XML element of its own.
enum XmlElementType : int {
  xet_Element = 0,
  /// No tags: its children and attributes stand in the enclosing element.
  xet_PseudoElement = 1,
  /// No tags, and its attributes are not asked for.
  xet_PseudoElementNoAttributes = 2
};

/// The content model of a class.
enum XmlElementGroupType : int {
  xgt_Sequence = 0,  ///< elements in the table's order
  xgt_Choice = 1,    ///< one element of the table
  xgt_All = 2        ///< elements in any order
};

/// The functions of a generated enumeration.
using EnumToText = const wchar* (*)(int value);
using TextToEnum = int (*)(const wchar* text);

/// Describes a generated class as a whole.
class TOVIKXML_EXPORT CParentElementInfo {
 public:
  /// `primitiveValuePropertyIndex` and `primitiveDataType` tell the property that holds the class's
  /// own text; -1 or `it_invalid` if it has none. With `outputPrimitiveClassAsTextProperty` that
  /// property is given its text as a string on reading. Name and namespace must not be null.
  CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType,
                     const wchar* elementName, const wchar* elementNamespace,
                     bool failIfAttributeUnknown, bool hasBaseClasses,
                     std::int32_t primitiveValuePropertyIndex, ItemType primitiveDataType,
                     const wchar* primitiveFormatOverride, bool outputPrimitiveClassAsTextProperty);
  CParentElementInfo(const CParentElementInfo&) = default;
  CParentElementInfo& operator=(const CParentElementInfo&) = default;
  virtual ~CParentElementInfo();

  XmlElementGroupType GetElementGroupType() const { return m_groupType; }
  XmlElementType GetElementType() const { return m_elementType; }
  const WString& GetElementName() const { return m_elementName; }
  const WString& GetElementNamespace() const { return m_elementNamespace; }
  bool GetFromXmlFailIfAttributeUnknown() const { return m_failIfAttributeUnknown; }
  bool GetHasBaseClasses() const { return m_hasBaseClasses; }
  std::int32_t GetPrimitiveValuePropertyIndex() const { return m_primitiveValuePropertyIndex; }
  ItemType GetPrimitiveDataType() const { return m_primitiveDataType; }
  const WString& GetPrimitiveFormatOverride() const { return m_primitiveFormatOverride; }
  bool GetOutputPrimitiveClassAsTextProperty() const { return m_outputPrimitiveClassAsText; }

 private:
  XmlElementGroupType m_groupType;
  XmlElementType m_elementType;
  WString m_elementName;
  WString m_elementNamespace;
  bool m_failIfAttributeUnknown;
  bool m_hasBaseClasses;
  std::int32_t m_primitiveValuePropertyIndex;
  ItemType m_primitiveDataType;
  WString m_primitiveFormatOverride;
  bool m_outputPrimitiveClassAsText;
};

/// Base of all element records.
class TOVIKXML_EXPORT CElementInfo {
 public:
  virtual ~CElementInfo();

  /// Writes this child. True if something was written.
  virtual bool ElementToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                            CXmlWriter* writer) const = 0;
  /// Tries to read this child at `*child`, which may be null, and moves `*child` behind what it
  /// took. What the result tells depends on the group: a sequence stops at false, an all group and
  /// a choice go on.
  virtual bool ElementFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                              CXmlElement* parent, CXmlElement** child,
                              const wchar* defaultNamespace, XmlElementType parentType) = 0;
  /// Asked in an all group after reading. False if the group was not found; throws if a mandatory
  /// child is missing in a real element.
  virtual bool Validate(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                        bool seen, bool parentIsElement) const;
  /// Writes the attributes of a pseudo element on the open element.
  virtual void PseudoChildAttributeToXml(const CSerializationContext& context,
                                         const CXmlGeneratedClass* owner, CXmlWriter* writer) const;

  /// Whether the element has this record's name, by the context's setting on namespaces. False for
  /// null.
  bool IsThisElement(const CSerializationContext& context, const CXmlElement* element) const;
  const WString& GetElementName() const { return m_name; }
  const WString& GetElementNamespace() const { return m_namespace; }
  std::int32_t GetPropertyIndex() const { return m_propertyIndex; }

  /// Reads the property. Throws `CTovikValidationException` "Failed to get the property value for
  /// [%s]." around what the property threw.
  void InvokePropertyGet(CXmlGeneratedClass* owner, TovikVariant& value) const;
  void ReadProperty(const CXmlGeneratedClass* owner, TovikVariant& value) const;
  /// Sets the property. Throws `CTovikValidationException` "Failed to set the property value." with
  /// the path of `element` around what the property threw.
  void InvokePropertySet(CXmlGeneratedClass* owner, TovikVariant& value,
                         const CXmlElement& element) const;
  /// Tests the facets of a primitive record; a generated setter calls it if it wants them tested on
  /// reading. Throws `CTovikException` "Cannot CheckRestriction for type: " and the value's type on
  /// a record of another kind.
  void CheckRestriction(const TovikVariant& value) const;

 protected:
  /// Class, collection and wildcard records.
  CElementInfo(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex);
  /// Enumeration records.
  CElementInfo(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
               bool nillable, EnumToText enumToText, TextToEnum textToEnum,
               const wchar* defaultValue);
  /// Primitive records.
  CElementInfo(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
               bool nillable, ItemType itemType, const wchar* formatOverride,
               CWhitespaceUtils::WhitespaceRule whitespaceRule,
               const CPrimitiveRestrictions& restrictions, const wchar* defaultValue);
  CElementInfo(const CElementInfo&) = default;
  CElementInfo& operator=(const CElementInfo&) = default;

  // Each writes the property if it is there, and tells whether it was.
  bool ElementToXmlPrim(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                        CXmlWriter* writer) const;
  bool ElementToXmlEnum(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                        CXmlWriter* writer, EnumToText enumToText) const;
  bool ElementToXmlCls(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                       CXmlWriter* writer, bool isOptionalChoice) const;
  bool ElementToXmlCol(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                       CXmlWriter* writer) const;
  // Each reads the element at the cursor into the property and moves the cursor on.
  void ElementFromXmlPrim(const CSerializationContext& context, CXmlGeneratedClass* owner,
                          CXmlElement** child) const;
  void ElementFromXmlEnum(const CSerializationContext& context, CXmlGeneratedClass* owner,
                          CXmlElement** child) const;

  /// What the property holds, without the guard of `ReadProperty`.
  TovikVariant AccessProperty(const CXmlGeneratedClass* owner) const;
  /// The object of the property; null if it has none.
  CSmartPtr<CXmlObjectBase> ReadObject(const CXmlGeneratedClass* owner) const;
  /// The collection of the property. Throws as `RequirePresent` if it has none.
  CSmartPtr<CXmlCollectionBase> ReadCollection(const CXmlGeneratedClass* owner) const;
  CSmartPtr<CXmlCollectionBase> CollectionOf(const TovikVariant& value) const;
  /// Throws `CTovikInvalidParamException` "The Property [%s] is mandatory, it may not be NULL".
  void RequirePresent(bool present) const;
  /// Checks the collection's count, unless the context ignores counts, and writes it.
  bool CountedColToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                       CXmlWriter* writer) const;
  /// Writes the attributes of all items on the open element.
  void ItemAttributesToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                           CXmlWriter* writer) const;
  bool IsPrimitive() const { return m_isPrimitive; }
  EnumToText GetEnumToText() const { return m_enumToText; }

  // Bridges to the protected operations of an object.
  static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* parent, CXmlElement* child,
                                  const CSerializationContext& context, bool isOptionalChoice);
  static void AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                  const CSerializationContext& context);

  /// Whether this is a wildcard record that takes elements of every local name.
  bool IsAnyElement() const;
  /// The namespace of the element made for a wildcard: by its `namespace` attribute, the namespace
  /// of the class that holds it and the target namespace of the schema.
  static WString GetAnyDefaultNamespace(const wchar* anyNamespaces, const wchar* defaultNamespace,
                                        const wchar* targetNamespace);
  /// Lets a wildcard's collection take elements from the cursor on: any, or a run of those with
  /// this record's name and the namespace of the first.
  CXmlElement* UntpdColFromXml(const CSerializationContext& context, CXmlCollectionBase* collection,
                               CXmlElement* parent, CXmlElement* child) const;
  /// The body of `Validate` of mandatory records.
  bool ValidateMnd(bool seen, bool parentIsElement) const;

 private:
  friend class TovikXmlLib16::CXmlGeneratedClass;

  /// Whether the element must be there, once.
  virtual bool IsMandatory() const { return false; }
  /// Whether the record lets the choice in which it stands be empty.
  virtual bool MayLeaveChoiceEmpty(const CXmlGeneratedClass* /*owner*/) const { return false; }
  /// Whether `ElementFromXml` looks at the default namespace that it is given.
  virtual bool UsesDefaultNamespace() const { return false; }

  void WriteElement(CXmlWriter* writer, const WString& text, ItemType itemType) const;
  void WriteNil(CXmlWriter* writer) const;
  /// Writes the element of a value that equals the default; false if it does not.
  bool WriteDefault(const CSerializationContext& context, CXmlWriter* writer, const WString& text,
                    ItemType itemType) const;
  const WString& TextOrDefault(const CXmlElement& element) const;
  bool IsNilMarked(const CSerializationContext& context, const CXmlElement& element) const;

  WString m_name;
  WString m_namespace;
  std::int32_t m_propertyIndex;
  ItemType m_itemType = it_invalid;
  CWhitespaceUtils::WhitespaceRule m_whitespaceRule = CWhitespaceUtils::ws_none;
  bool m_nillable = false;
  bool m_isPrimitive = false;
  WString m_formatOverride;
  WString m_defaultValue;
  EnumToText m_enumToText = nullptr;
  TextToEnum m_textToEnum = nullptr;
  CPrimitiveRestrictions m_restrictions;
};

/// Base of all attribute records.
class TOVIKXML_EXPORT CAttributeInfo {
 public:
  virtual ~CAttributeInfo();

  virtual void AttributeToXml(const CSerializationContext& context, const CXmlGeneratedClass* owner,
                              CXmlWriter* writer) const = 0;
  /// True if this record took the attribute.
  virtual bool AttributeFromXml(const CSerializationContext& context, CXmlGeneratedClass* owner,
                                CXmlAttribute* attribute) = 0;
  /// Asked after all attributes were read. Throws `CTovikValidationException` "Failed to find the
  /// required Attribute [%s]." if one is missing.
  virtual void Validate(const CSerializationContext& context, bool seen) const = 0;

  bool IsThisAttribute(const CSerializationContext& context, const CXmlAttribute* attribute) const;
  const WString& GetAttributeName() const { return m_name; }
  const WString& GetAttributeNamespace() const { return m_namespace; }
  std::int32_t GetPropertyIndex() const { return m_propertyIndex; }

  // As for elements; a failed set is "Failed to set the property value [%s]." with the attribute's
  // value and path.
  void InvokePropertyGet(CXmlGeneratedClass* owner, TovikVariant& value) const;
  void ReadProperty(const CXmlGeneratedClass* owner, TovikVariant& value) const;
  void InvokePropertySet(CXmlGeneratedClass* owner, TovikVariant& value,
                         const CXmlAttribute& attribute) const;

  // The rule of `CXmlObjectBase::IsNamespaceValid`.
  static void TestNamespace(const WString& namespaceUri, const WString& allowed,
                            const WString& targetNamespace);
  static bool IsNamespaceValid(const WString& namespaceUri, const WString& allowed,
                               const WString& targetNamespace);

 protected:
  CAttributeInfo(const wchar* name, const wchar* namespaceUri, std::int32_t propertyIndex,
                 bool optional, const wchar* defaultValue);
  CAttributeInfo(const CAttributeInfo&) = default;
  CAttributeInfo& operator=(const CAttributeInfo&) = default;

  bool IsOptional() const { return m_optional; }
  /// Whether the context wants an optional attribute with this text left out.
  bool IsSuppressedDefault(const CSerializationContext& context, const WString& text) const;
  /// The body of `Validate` for attributes with a name.
  void RequireIfMandatory(bool seen) const;

  // Bridges to the protected operations of an object.
  static void ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                        const wchar* namespaceUri, const CSerializationContext& context);
  static WString GetTargetNamespace(const CXmlObjectBase* object);

 private:
  WString m_name;
  WString m_namespace;
  std::int32_t m_propertyIndex;
  bool m_optional;
  WString m_defaultValue;
};

}  // namespace TovikXmlLib16Data

#endif  // TOVIKXML_BINDING_CLASS_INFO_H_
