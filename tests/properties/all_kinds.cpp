#include "tests/properties/all_kinds.h"

#include <algorithm>
#include <memory>

#include "tests/properties/random_values.h"
#include "tests/support/text.h"

namespace TovikXmlTest {
namespace {

// Typed collections are filled from texts and asked for texts, whatever their type.
struct TextItems {
  virtual void AddText(const WString& text) = 0;
  virtual WString TextAt(int index) const = 0;

 protected:
  ~TextItems() = default;
};

template <class T>
WString TextOf(const T& value) {
  if constexpr (std::is_same_v<T, WString>) {
    return value;
  } else if constexpr (std::is_same_v<T, CBinaryData>) {
    return value.GetAsHexString();
  } else if constexpr (std::is_floating_point_v<T>) {
    return CConversions::r8ToString(value);
  } else if constexpr (std::is_unsigned_v<T>) {
    return CConversions::ui8ToString(value);
  } else if constexpr (std::is_integral_v<T>) {
    return CConversions::i8ToString(value);
  } else {
    return value.ToString();
  }
}

template <class Collection>
class Items final : public Collection, public TextItems {
 public:
  explicit Items(const wchar* name)
      : Collection(name, u"", 0, -1, u"", -1, -1, u"", u"", u"", u"", -1, -1, -1,
                   CWhitespaceUtils::ws_none, u"") {}
  void AddText(const WString& text) override { this->AddFromString(text); }
  WString TextAt(int index) const override { return TextOf(this->Item(index)); }
};

template <class Collection>
CXmlCollectionBase* Make(const wchar* name) {
  return new Items<Collection>(name);
}

struct Kind {
  ItemType type;
  CXmlCollectionBase* (*makeCollection)(const wchar* name);
};

// A record of the kind `it_char` is refused, so that it has no place here but as text of a class.
const Kind kKinds[] = {
    {it_hexBinary, Make<ChexBinaryCol>},
    {it_base64Binary, Make<Cbase64BinaryCol>},
    {it_i1, Make<Ci1Col>},
    {it_i2, Make<Ci2Col>},
    {it_i4, Make<Ci4Col>},
    {it_i8, Make<Ci8Col>},
    {it_ui1, Make<Cui1Col>},
    {it_ui2, Make<Cui2Col>},
    {it_ui4, Make<Cui4Col>},
    {it_ui8, Make<Cui8Col>},
    {it_r4, Make<Cr4Col>},
    {it_r8, Make<Cr8Col>},
    {it_duration, Make<CdurationCol>},
    {it_yearMonth, Make<CyearMonthCol>},
    {it_monthDay, Make<CmonthDayCol>},
    {it_year, Make<CyearCol>},
    {it_month, Make<CmonthCol>},
    {it_day, Make<CdayCol>},
    {it_date, Make<CdateCol>},
    {it_datetime, Make<CdatetimeCol>},
    {it_time, Make<CtimeCol>},
    {it_string, Make<CstringCol>},
    {it_boolean, Make<CbooleanCol>},
    {it_decimal, Make<CdecimalCol>},
    {it_integer, Make<CintegerCol>},
};
constexpr int kKindCount = static_cast<int>(std::size(kKinds));
static_assert(kKindCount == it_integer - 1, "one row for each kind but the character");

template <class Record>
CElementInfo* Object(const wchar* name, int property, const Shape& shape,
                     const wchar* namespaceUri = u"", XmlElementType type = xet_Element) {
  return new Record(name, namespaceUri, property, type, MakeBag, shape.Number());
}

/// All the shapes, which stay where they are. A cell shows one kind in every place:
///
///     a, q:a      attributes              m, o, n     elements: mandatory, optional, nillable
///     r           repeated element        t           a class with text of its own
///     c, d, e     a choice without tags: the kind, an enumeration, or the repeated kind
class Schema {
 public:
  Schema() {
    for (const Kind& kind : kKinds) AddCell(kind);
    for (int first = 0; first < kKindCount; first += Bag::kProperties - 1) AddGroup(first);
    AddItems();
    BuildRoot();
  }
  const Shape& Root() const { return *m_root; }

 private:
  Shape& New(XmlElementGroupType group, XmlElementType type = xet_Element,
             const wchar* name = u"-") {
    return *m_shapes.emplace_back(
        std::make_unique<Shape>(group, type, name, type == xet_Element ? u"urn:own" : u""));
  }
  static std::function<void(TovikVariant&)> Repeated(const Kind& kind, const wchar* name) {
    return
        [&kind, name](TovikVariant& value) { value.SetXmlCollection(kind.makeCollection(name)); };
  }

  void AddCell(const Kind& kind) {
    Shape& text = New(xgt_Sequence, xet_Element, u"t");
    text.Text(0, kind.type).Add(PlainAttribute(u"b", 1, it_boolean));
    Shape& choice = New(xgt_Choice, xet_PseudoElement, u"choice");
    choice.Add(Plain<CElementInfoChoicePrimOpt>(u"c", 0, kind.type))
        .Add(Colour<CElementInfoChoiceEnumOpt>(u"d", 1))
        .Add(new CElementInfoChoicePrimCol(u"e", u"", 2))
        .StartWith(2, Repeated(kind, u"e"));
    Shape& cell = New(xgt_Sequence, xet_Element, u"cell");
    cell.Add(PlainAttribute(u"a", 0, kind.type))
        .Add(PlainAttribute(u"a", 1, kind.type, u"urn:q"))
        .Add(Plain<CElementInfoSeqPrimMnd>(u"m", 2, kind.type))
        .Add(Plain<CElementInfoSeqPrimOpt>(u"o", 3, kind.type, false, u"urn:o"))
        .Add(Plain<CElementInfoSeqPrimOpt>(u"n", 4, kind.type, true))
        .Add(new CElementInfoSeqPrimCol(u"r", u"", 5))
        .Add(Object<CElementInfoSeqClsOpt>(u"t", 6, text, u"urn:o"))
        .Add(Object<CElementInfoSeqClsOpt>(u"", 7, choice, u"", xet_PseudoElement))
        .StartWith(5, Repeated(kind, u"r"));
    m_cells.push_back({&cell, &text, &choice});
  }

  static const wchar* CellName(int number) {
    static const std::vector<WString> names = [] {
      std::vector<WString> all;
      for (int i = 0; i < kKindCount; ++i) all.push_back(FormatString(u"k%d", i));
      return all;
    }();
    return names[static_cast<std::size_t>(number)].c_str();
  }

  // Groups by turns: a sequence, an all group, a sequence without tags, an all group without tags.
  void AddGroup(int first) {
    const bool isAll = m_groups.size() % 2 == 1;
    Shape& group = New(isAll ? xgt_All : xgt_Sequence,
                       m_groups.size() < 2 ? xet_Element : xet_PseudoElement, u"group");
    for (int i = 0; i < Bag::kProperties - 1 && first + i < kKindCount; ++i) {
      const Shape& cell = *m_cells[static_cast<std::size_t>(first + i)].whole;
      const wchar* const uri = i % 2 ? u"urn:g" : u"";
      group.Add(isAll ? Object<CElementInfoAllClsOpt>(CellName(first + i), i, cell, uri)
                      : Object<CElementInfoSeqClsOpt>(CellName(first + i), i, cell, uri));
    }
    group.Add(isAll ? Colour<CElementInfoAllEnumOpt>(u"z", 7)
                    : Colour<CElementInfoSeqEnumOpt>(u"z", 7, u"", true));
    m_groups.push_back(&group);
  }

  // A repeated element that may be nil, and a repeated choice without tags.
  void AddItems() {
    Shape& item = New(xgt_Sequence, xet_Element, u"item");
    item.Nillable()
        .Add(Plain<CElementInfoSeqPrimMnd>(u"id", 0, it_i4))
        .Add(Object<CElementInfoSeqClsOpt>(u"item", 1, item))
        .Add(new CAttributeInfoEnum(u"colour", u"", 2, true, ColourToText, ColourFromText, u""));
    Shape& part = New(xgt_Choice, xet_PseudoElement, u"part");
    part.Add(Plain<CElementInfoChoicePrimOpt>(u"word", 0, it_string))
        .Add(Colour<CElementInfoChoiceEnumOpt>(u"hue", 1))
        .Add(Object<CElementInfoChoiceClsOpt>(u"thing", 2, item));
    m_item = &item;
    m_part = &part;
  }

  void BuildRoot() {
    m_root = &New(xgt_Sequence, xet_Element, u"root");
    m_root->Add(Object<CElementInfoSeqClsMnd>(u"g0", 0, *m_groups[0], u"urn:g"))
        .Add(Object<CElementInfoSeqClsOpt>(u"g1", 1, *m_groups[1]))
        .Add(Object<CElementInfoSeqClsOpt>(u"", 2, *m_groups[2], u"", xet_PseudoElement))
        .Add(Object<CElementInfoSeqClsOpt>(u"", 3, *m_groups[3], u"", xet_PseudoElement))
        .Add(new CElementInfoSeqClsCol(u"item", u"", 4, xet_Element))
        .Add(new CElementInfoSeqClsCol(u"part", u"", 5, xet_PseudoElement))
        .Add(new CElementInfoSeqUntpdCol(u"AnyElement", u"", 6))
        .Add(new CAttributeInfoAny(u"", u"", 7, true, u"##any", u"urn:own", u""))
        .StartWithObject(0, u"g0", *m_groups[0])
        .StartWithItems(4, u"item", *m_item)
        .StartWithItems(5, u"part", *m_part)
        .StartWith(6,
                   [](TovikVariant& value) {
                     value.SetXmlCollection(new CElementCol(u"", u"##any", u"urn:own", 0, -1));
                   })
        .StartWith(7, [](TovikVariant& value) {
          value.SetXmlCollection(new CAttributeCol(u"", u"##any", u"urn:own"));
        });
  }

  friend class Filling;
  std::vector<std::unique_ptr<Shape>> m_shapes;
  struct Cell {
    const Shape* whole;
    const Shape* text;
    const Shape* choice;
  };
  std::vector<Cell> m_cells;
  std::vector<const Shape*> m_groups;
  const Shape* m_item = nullptr;
  const Shape* m_part = nullptr;
  Shape* m_root = nullptr;
};

const Schema& TheSchema() {
  static const Schema schema;
  return schema;
}

template <class Collection>
Collection* Held(Bag& bag, int property) {
  return dynamic_cast<Collection*>(bag.Value(property).GetXmlCollection().Get());
}

// Fills objects, by the same numbers as `Schema` numbers its properties.
class Filling {
 public:
  Filling(unsigned seed, const Features& leftOut) : m_random(seed, leftOut) {}

  CSmartPtr<Bag> Root() {
    CSmartPtr<Bag> root = NewBag(m_schema.Root());
    Group(*root->Object(0), 0);
    for (int i = 1; i < 4; ++i) {
      if (m_random.Chance(70)) root->Value(i).SetXmlObject(Group(i));
    }
    for (unsigned left = m_random.Below(4); left > 0; --left) {
      Held<BagCol>(*root, 4)->Add(Item(0, u"item").Get());
    }
    for (unsigned left = m_random.Below(6); left > 0; --left) Part(*Held<BagCol>(*root, 5)->Add());
    for (unsigned left = m_random.Below(4); left > 0; --left) {
      Held<CElementCol>(*root, 6)->Add(Open(0).Get());
    }
    // What does not shrink cannot be compressed, so that something always does.
    Held<CElementCol>(*root, 6)->Add(u"room", u"")->SetText(WString(500, u'x').c_str());
    Attributes(*Held<CAttributeCol>(*root, 7));
    return root;
  }

 private:
  void Put(Bag& bag, int property, ItemType type, bool inAttribute = false) {
    bag.Value(property).FromString(m_random.Value(type, inAttribute), type,
                                   CWhitespaceUtils::ws_none);
  }
  void PutMany(Bag& bag, int property, ItemType type, unsigned least) {
    for (unsigned left = least + m_random.Below(4); left > 0; --left) {
      Held<TextItems>(bag, property)->AddText(m_random.Value(type, false));
    }
  }

  CSmartPtr<Bag> Group(int number) {
    CSmartPtr<Bag> group =
        NewBag(*m_schema.m_groups[static_cast<std::size_t>(number)], number == 1 ? u"g1" : u"");
    Group(*group, number);
    return group;
  }
  void Group(Bag& group, int number) {
    const int first = number * (Bag::kProperties - 1);
    for (int i = 0; i < Bag::kProperties - 1 && first + i < kKindCount; ++i) {
      if (m_random.Chance(80)) group.Value(i).SetXmlObject(Cell(first + i));
    }
    // A group without tags is not there unless it holds something.
    if (number > 1 || m_random.Chance(50)) {
      group.Value(7).SetI4(static_cast<int>(m_random.Below(2)));
    }
  }

  CSmartPtr<Bag> Cell(int number) {
    const ItemType type = kKinds[number].type;
    const Schema::Cell& shapes = m_schema.m_cells[static_cast<std::size_t>(number)];
    CSmartPtr<Bag> cell = NewBag(*shapes.whole, Schema::CellName(number));
    if (m_random.Has(kAttributes) && m_random.Chance(70)) Put(*cell, 0, type, true);
    if (m_random.Has(kQualifiedAttributes) && m_random.Chance(50)) Put(*cell, 1, type, true);
    Put(*cell, 2, type);
    if (m_random.Chance(60)) Put(*cell, 3, type);
    if (m_random.Has(kNil) && m_random.Chance(40)) {
      cell->Value(4).SetNil(type);
    } else if (m_random.Chance(50)) {
      Put(*cell, 4, type);
    }
    PutMany(*cell, 5, type, 0);
    if (m_random.Chance(60)) cell->Value(6).SetXmlObject(Text(*shapes.text, type));
    if (m_random.Chance(60)) cell->Value(7).SetXmlObject(Choice(*shapes.choice, type));
    return cell;
  }
  CSmartPtr<Bag> Text(const Shape& shape, ItemType type) {
    CSmartPtr<Bag> text = NewBag(shape);
    Put(*text, 0, type);
    if (m_random.Has(kAttributes) && m_random.Chance(50)) Put(*text, 1, it_boolean, true);
    return text;
  }
  CSmartPtr<Bag> Choice(const Shape& shape, ItemType type) {
    CSmartPtr<Bag> choice = NewBag(shape, u"");
    switch (m_random.Below(3)) {
      case 0:
        Put(*choice, 0, type);
        break;
      case 1:
        choice->Value(1).SetI4(1);
        break;
      default:
        PutMany(*choice, 2, type, 1);
    }
    return choice;
  }

  CSmartPtr<Bag> Item(int depth, const wchar* name) {
    CSmartPtr<Bag> item = NewBag(*m_schema.m_item, name);
    if (m_random.Has(kAttributes) && m_random.Chance(50)) item->Value(2).SetI4(0);
    if (m_random.Has(kNil) && m_random.Chance(20)) {
      static_cast<NillableBag&>(*item).SetNil(true);
      return item;
    }
    Put(*item, 0, it_i4);
    if (depth < 5 && m_random.Chance(40)) item->Value(1).SetXmlObject(Item(depth + 1, u"item"));
    return item;
  }
  void Part(Bag& part) {
    switch (m_random.Below(3)) {
      case 0:
        Put(part, 0, it_string);
        break;
      case 1:
        part.Value(1).SetI4(static_cast<int>(m_random.Below(2)));
        break;
      default:
        part.Value(2).SetXmlObject(Item(4, u"thing"));
    }
  }

  const wchar* OpenNamespace(Feature feature) {
    return m_random.Has(feature) && m_random.Chance(50) ? u"urn:x" : u"";
  }
  CSmartPtr<CElement> Open(int depth) {
    static const wchar* const names[] = {u"open", u"\u00e9l\u00e9ment", u"_.-1"};
    CSmartPtr<CElement> element(
        new CElement(names[m_random.Below(3)], OpenNamespace(kOpenNamespaces), u"##any", u"urn:t"));
    Attributes(*element->GetAttributes());
    if (m_random.Chance(60)) element->SetText(m_random.Value(it_string, false).c_str());
    if (!m_random.Has(kOpenChildren)) return element;
    for (unsigned left = depth < 3 ? m_random.Below(4) : 0; left > 0; --left) {
      element->GetChildElements()->Add(Open(depth + 1).Get());
    }
    return element;
  }
  void Attributes(CAttributeCol& attributes) {
    if (!m_random.Has(kAttributes)) return;
    for (const wchar* name : {u"x1", u"x2"}) {
      if (m_random.Chance(50)) {
        attributes.Add(name, m_random.Value(it_string, true).c_str(),
                       OpenNamespace(kQualifiedAttributes));
      }
    }
  }

  const Schema& m_schema = TheSchema();
  RandomValues m_random;
};

void List(const CElement& element, const std::string& path, std::vector<std::string>& lines) {
  const auto qualified = [](const auto& named) {
    return "{" + DisplayUtf8(named.GetNamespace()) + "}" + DisplayUtf8(named.GetName());
  };
  lines.push_back(path + ": " + qualified(element) + " '" + DisplayUtf8(element.GetText()) + "'");
  for (const CAttribute* attribute : *element.GetAttributes()) {
    lines.push_back(path + "/@" + qualified(*attribute) + "='" +
                    DisplayUtf8(attribute->GetValue()) + "'");
  }
  int number = 0;
  for (const CElement* child : *element.GetChildElements()) {
    List(*child, path + "/" + std::to_string(number++), lines);
  }
}

void List(Bag& bag, const std::string& path, std::vector<std::string>& lines);

void List(CXmlCollectionBase& collection, const std::string& path,
          std::vector<std::string>& lines) {
  lines.push_back(path + ": " + std::to_string(collection.GetCount()) + " items");
  for (int i = 0; i < collection.GetCount(); ++i) {
    const std::string item = path + "/" + std::to_string(i);
    if (const auto* texts = dynamic_cast<TextItems*>(&collection)) {
      lines.push_back(item + ": " + DisplayUtf8(texts->TextAt(i)));
    } else if (const auto* elements = dynamic_cast<CElementCol*>(&collection)) {
      List(*elements->Item(i), item, lines);
    } else if (const auto* attributes = dynamic_cast<CAttributeCol*>(&collection)) {
      const CSmartPtr<CAttribute> attribute = attributes->Item(i);
      lines.push_back(item + ": {" + DisplayUtf8(attribute->GetNamespace()) + "}" +
                      DisplayUtf8(attribute->GetName() + u"='" + attribute->GetValue()) + "'");
    } else {
      List(*dynamic_cast<BagCol&>(collection).Item(i), item, lines);
    }
  }
}

void List(Bag& bag, const std::string& path, std::vector<std::string>& lines) {
  const auto* nillable = dynamic_cast<NillableBag*>(&bag);
  lines.push_back(path + ": " + DisplayUtf8(bag.Name()) +
                  (nillable && nillable->IsNil() ? " nil" : ""));
  for (int i = 0; i < Bag::kProperties; ++i) {
    const TovikVariant& value = bag.Value(i);
    const std::string property = path + "/" + std::to_string(i);
    if (value.GetTypeAsEnum() == it_xmlObject && value.GetXmlObject().Get()) {
      const CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
      if (auto* inner = dynamic_cast<Bag*>(object.Get())) List(*inner, property, lines);
      if (auto* open = dynamic_cast<CElement*>(object.Get())) List(*open, property, lines);
    } else if (value.GetTypeAsEnum() == it_xmlCollection) {
      List(*value.GetXmlCollection(), property, lines);
    } else if (value.IsNil()) {
      lines.push_back(property + ": " + DisplayUtf8(value.GetType()) + " nil");
    } else if (value.IsValid() && value.GetTypeAsEnum() != it_xmlObject) {
      lines.push_back(property + ": " + DisplayUtf8(value.GetType() + u" " + value.ToString(u"")));
    }
  }
}

}  // namespace

const Shape& AllKinds() {
  return TheSchema().Root();
}

CSmartPtr<Bag> RandomObject(unsigned seed, const Features& leftOut) {
  return Filling(seed, leftOut).Root();
}

std::vector<std::string> Describe(const CXmlObjectBase& object) {
  std::vector<std::string> lines;
  List(dynamic_cast<Bag&>(const_cast<CXmlObjectBase&>(object)), "", lines);
  return lines;
}

std::string FirstDifference(const std::vector<std::string>& expected,
                            const std::vector<std::string>& actual) {
  const auto [a, b] = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
  if (a == expected.end() && b == actual.end()) return {};
  return "expected " + (a == expected.end() ? "nothing more" : *a) + ", came " +
         (b == actual.end() ? "nothing more" : *b);
}

}  // namespace TovikXmlTest
