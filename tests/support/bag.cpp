#include "tests/support/bag.h"

#include <map>

namespace TovikXmlTest {
namespace {

const bool g_versionStated = (SetGeneratorVersion(16, 1), true);

std::map<int, const Shape*>& Shapes() {
  static std::map<int, const Shape*> shapes;
  return shapes;
}

}  // namespace

Shape::Shape(XmlElementGroupType group, XmlElementType type, const wchar* name,
             const wchar* namespaceUri)
    : m_group(group), m_type(type), m_name(name), m_namespace(namespaceUri) {
  static int last = 0;
  m_number = ++last;
  Shapes()[m_number] = this;
  m_failIfAttributeUnknown = type == xet_Element;
  Rebuild();
}

Shape::~Shape() {
  Shapes().erase(m_number);
  for (CElementInfo* record : m_elements) delete record;
  for (CAttributeInfo* record : m_attributes) delete record;
}

void Shape::Rebuild() {
  m_info = std::make_unique<CParentElementInfo>(
      m_group, m_type, m_name.c_str(), m_namespace.c_str(), m_failIfAttributeUnknown,
      m_hasBaseClasses, m_textProperty, m_textType, nullptr, m_textAsString);
}

Shape& Shape::Add(CElementInfo* record) {
  m_elements.insert(m_elements.end() - 1, record);
  return *this;
}

Shape& Shape::Add(CAttributeInfo* record) {
  m_attributes.insert(m_attributes.end() - 1, record);
  return *this;
}

Shape& Shape::Text(int property, ItemType type, bool asString) {
  m_textProperty = property;
  m_textType = type;
  m_textAsString = asString;
  Rebuild();
  return *this;
}

Shape& Shape::WithBaseClasses() {
  m_hasBaseClasses = true;
  Rebuild();
  return *this;
}

Shape& Shape::LetUnknownAttributesThrough() {
  m_failIfAttributeUnknown = false;
  Rebuild();
  return *this;
}

Shape& Shape::Nillable() {
  m_nillable = true;
  return *this;
}

Shape& Shape::Refuse(int property) {
  m_refused = property;
  return *this;
}

Shape& Shape::StartWith(int property, std::function<void(TovikVariant&)> make) {
  m_starts.emplace_back(property, std::move(make));
  return *this;
}

Shape& Shape::StartWithObject(int property, const wchar* name, const Shape& shape) {
  return StartWith(
      property, [name, &shape](TovikVariant& value) { value.SetXmlObject(NewBag(shape, name)); });
}

Shape& Shape::StartWithItems(int property, const wchar* name, const Shape& itemShape, int minOccurs,
                             int maxOccurs) {
  return StartWith(property, [=, &itemShape](TovikVariant& value) {
    value.SetXmlCollection(new BagCol(name, itemShape, minOccurs, maxOccurs));
  });
}

Bag::Bag(const Shape& shape, const wchar* name) : m_shape(shape) {
  SetElementName(name ? name : shape.m_name.c_str());
  Bag::Init();
}

WString Bag::GetTargetNamespace() const {
  return m_shape.m_namespace;
}

WString Bag::GetNamespace() const {
  return m_shape.m_namespace;
}

void Bag::AccessProperty(int propertyIndex, bool read, TovikVariant& value) {
  if (propertyIndex == m_shape.m_refused) throw CTovikInvalidStateException(u"refused");
  (read ? value : m_values[propertyIndex]) = read ? m_values[propertyIndex] : value;
}

CParentElementInfo* Bag::GetClassInfo() const {
  return m_shape.m_info.get();
}

CElementInfo** Bag::GetClassElementInfo() const {
  return const_cast<CElementInfo**>(m_shape.m_elements.data());
}

CAttributeInfo** Bag::GetClassAttributeInfo() const {
  return const_cast<CAttributeInfo**>(m_shape.m_attributes.data());
}

void Bag::Init() {
  for (TovikVariant& value : m_values) value.Clear();
  for (const auto& [property, make] : m_shape.m_starts) make(m_values[property]);
}

CSmartPtr<Bag> NewBag(const Shape& shape, const wchar* name) {
  return shape.IsNillable() ? new NillableBag(shape, name) : new Bag(shape, name);
}

CSmartPtr<CXmlObjectBase> MakeBag(int shapeNumber, const wchar* name) {
  return NewBag(*Shapes().at(shapeNumber), name);
}

BagCol::BagCol(const wchar* name, const Shape& itemShape, int minOccurs, int maxOccurs)
    : CXmlCollection(name, u"", minOccurs, maxOccurs), m_itemShape(itemShape) {}

CSmartPtr<Bag> BagCol::Add() {
  CSmartPtr<Bag> item = NewBag(m_itemShape, GetElementName().c_str());
  AppendItem(item);
  return item;
}

void BagCol::ToXml_Int(CXmlWriter* writer, bool /*isRoot*/, const wchar* namespaceUri,
                       const CSerializationContext& context, bool /*isOptionalChoice*/) const {
  ValidateCount(context);
  for (const CNode* node = GetFirstNode(); node; node = node->next) {
    CXmlObjectBase::ToXml_Int(node->item, writer, false, namespaceUri, context, false);
  }
}

CXmlElement* BagCol::FromXml_Int(CXmlElement* parent, CXmlElement* firstChild,
                                 const CSerializationContext& context, bool /*isOptionalChoice*/) {
  const WString name = GetElementName();
  CXmlElement* child = firstChild;
  while (child) {
    const CSmartPtr<Bag> item = NewBag(m_itemShape, name.c_str());
    CXmlElement* next = child;
    if (!m_itemShape.IsElement()) {
      next = CXmlObjectBase::FromXml_Int(item, parent, child, context);
    } else if (DoesElementNameMatch(context, child, name.c_str(), u"")) {
      CXmlObjectBase::FromXml_Int(item, child, child->GetFirstElement(), context);
      next = child->GetNextSiblingElement();
    }
    if (next == child) break;
    child = next;
    AppendItem(item);
  }
  return child;
}

const wchar* ColourToText(int value) {
  return value == 0 ? u"red" : u"green";
}

int ColourFromText(const wchar* text) {
  if (WStringView(text) == u"red") return 0;
  if (WStringView(text) == u"green") return 1;
  throw CTovikInvalidValueException(FormatString(u"no colour [%s]", text));
}

}  // namespace TovikXmlTest
