#ifndef TESTS_SUPPORT_BAG_H_
#define TESTS_SUPPORT_BAG_H_

#include <functional>
#include <memory>
#include <vector>

#include "tovikxml/tovikxml.h"

/// A generated-style class whose shape a test puts together: any records, any content model.
///
///     const Shape shape = Shape(xgt_Sequence).Add(new CElementInfoSeqPrimMnd(...));
///     CSmartPtr<Bag> bag(new Bag(shape));
///     bag->FromXml(u"<root><a>1</a></root>", context);
///     bag->Value(0).GetI4();
namespace TovikXmlTest {

using namespace TovikXmlLib16;
using namespace TovikXmlLib16Data;

class Bag;

/// What describes one class. A shape outlives its bags, and stays where it is once made.
class Shape {
 public:
  explicit Shape(XmlElementGroupType group, XmlElementType type = xet_Element,
                 const wchar* name = u"root", const wchar* namespaceUri = u"");
  Shape(const Shape&) = delete;
  Shape& operator=(const Shape&) = delete;
  ~Shape();

  Shape& Add(CElementInfo* record);
  Shape& Add(CAttributeInfo* record);
  /// Text of the class itself, at a property.
  Shape& Text(int property, ItemType type, bool asString = false);
  Shape& WithBaseClasses();
  Shape& LetUnknownAttributesThrough();
  Shape& Nillable();
  /// How a property starts: an object of a shape, or a collection.
  Shape& StartWith(int property, std::function<void(TovikVariant&)> make);
  Shape& StartWithObject(int property, const wchar* name, const Shape& shape);
  Shape& StartWithItems(int property, const wchar* name, const Shape& itemShape, int minOccurs = 0,
                        int maxOccurs = -1);
  /// Lets the setter of a property refuse every value.
  Shape& Refuse(int property);

  /// For class records: the number by which `MakeBag` knows this shape.
  int Number() const { return m_number; }
  bool IsNillable() const { return m_nillable; }
  bool IsElement() const { return m_type == xet_Element; }

 private:
  friend class Bag;
  void Rebuild();

  XmlElementGroupType m_group;
  XmlElementType m_type;
  WString m_name;
  WString m_namespace;
  int m_textProperty = -1;
  ItemType m_textType = it_invalid;
  bool m_textAsString = false;
  bool m_hasBaseClasses = false;
  bool m_failIfAttributeUnknown = true;
  bool m_nillable = false;
  int m_refused = -1;
  std::unique_ptr<CParentElementInfo> m_info;
  std::vector<CElementInfo*> m_elements{nullptr};
  std::vector<CAttributeInfo*> m_attributes{nullptr};
  std::vector<std::pair<int, std::function<void(TovikVariant&)>>> m_starts;
  int m_number;
};

class Bag : public CXmlGeneratedClass {
 public:
  static constexpr int kProperties = 8;

  explicit Bag(const Shape& shape, const wchar* name = nullptr);

  CXmlObjectBase* GetBase() override { return this; }
  using CXmlObjectBase::GetBase;

  TovikVariant& Value(int property) { return m_values[property]; }
  Bag* Object(int property) { return static_cast<Bag*>(m_values[property].GetXmlObject().Get()); }
  WString Name() const { return GetElementName(); }
  void Rename(const wchar* name) { SetElementName(name); }

 protected:
  WString GetTargetNamespace() const override;
  WString GetNamespace() const override;
  void AccessProperty(int propertyIndex, bool read, TovikVariant& value) override;
  CParentElementInfo* GetClassInfo() const override;
  CElementInfo** GetClassElementInfo() const override;
  CAttributeInfo** GetClassAttributeInfo() const override;
  void Init() override;

  const Shape& m_shape;

 private:
  TovikVariant m_values[kProperties];
};

class NillableBag : public Bag, public INillable {
 public:
  using Bag::Bag;
  bool IsNil() const override { return m_nil; }
  void SetNil(bool nil) override { m_nil = nil; }

 protected:
  void Init() override {
    m_nil = false;
    Bag::Init();
  }

 private:
  bool m_nil = false;
};

/// A bag of the shape, nillable if the shape is.
CSmartPtr<Bag> NewBag(const Shape& shape, const wchar* name = nullptr);
/// The factory of class records; the argument is the number of a shape.
CSmartPtr<CXmlObjectBase> MakeBag(int shapeNumber, const wchar* name);

/// A repeated object as a generator would emit it, for items with and without an element.
class BagCol : public CXmlCollection {
 public:
  BagCol(const wchar* name, const Shape& itemShape, int minOccurs, int maxOccurs);

  CSmartPtr<Bag> Add();
  void Add(Bag* item) { AppendItem(item); }
  Bag* Item(int index) const { return static_cast<Bag*>(GetNodeAtIndex(index)->item.Get()); }

  // The protected operations, for tests of the base.
  using CXmlCollection::AddAfterItem;
  using CXmlCollection::AddBeforeItem;
  using CXmlCollection::AddItemAt;
  using CXmlCollection::AppendItem;
  using CXmlCollection::GetFirstNode;
  using CXmlCollection::GetNodeAtIndex;
  using CXmlCollection::PrependItem;
  using CXmlCollection::RemoveNode;

 protected:
  void ToXml_Int(CXmlWriter* writer, bool isRoot, const wchar* namespaceUri,
                 const CSerializationContext& context, bool isOptionalChoice) const override;
  CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                           const CSerializationContext& context, bool isOptionalChoice) override;

 private:
  const Shape& m_itemShape;
};

// Records with the arguments that tests seldom vary.

inline CPrimitiveRestrictions NoFacets() {
  return {u"", -1, -1, u"", u"", u"", u"", -1, -1, -1};
}

template <class Record>
CElementInfo* Prim(const wchar* name, int property, ItemType type = it_string,
                   const wchar* defaultValue = u"", bool nillable = false,
                   const wchar* namespaceUri = u"") {
  return new Record(name, namespaceUri, property, nillable, type, u"",
                    CWhitespaceUtils::ws_collapse, NoFacets(), defaultValue);
}

/// An enumeration: "red" 0, "green" 1; any other text throws.
const wchar* ColourToText(int value);
int ColourFromText(const wchar* text);

template <class Record>
CElementInfo* Colour(const wchar* name, int property, const wchar* defaultValue = u"",
                     bool nillable = false) {
  return new Record(name, u"", property, nillable, ColourToText, ColourFromText, defaultValue);
}

template <class Record>
CElementInfo* Cls(const wchar* name, int property, const Shape& shape,
                  XmlElementType type = xet_Element) {
  return new Record(name, u"", property, type, MakeBag, shape.Number());
}

inline CAttributeInfo* Attribute(const wchar* name, int property, bool optional = true,
                                 ItemType type = it_string, const wchar* defaultValue = u"",
                                 const wchar* namespaceUri = u"") {
  return new CAttributeInfoPrimitive(name, namespaceUri, property, optional, type, u"",
                                     CWhitespaceUtils::ws_collapse, NoFacets(), defaultValue);
}

}  // namespace TovikXmlTest

#endif  // TESTS_SUPPORT_BAG_H_
