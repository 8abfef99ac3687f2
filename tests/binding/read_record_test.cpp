#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tests/support/bag.h"
#include "tests/support/text.h"

// Every record class on its own: what it answers and where it leaves the cursor.

using namespace TovikXmlTest;

namespace {

const Shape& Leaf() {
  static Shape shape(xgt_Sequence, xet_Element, u"a");
  static const bool built = (shape.Add(Prim<CElementInfoSeqPrimOpt>(u"in", 0)), true);
  (void)built;
  return shape;
}

/// Takes a run of <in> elements.
const Shape& Pseudo() {
  static Shape shape(xgt_Sequence, xet_PseudoElement, u"p");
  static const bool built = (shape.Add(Prim<CElementInfoSeqPrimMnd>(u"in", 0)), true);
  (void)built;
  return shape;
}

CSmartPtr<CXmlObjectBase> Suitable(CXmlElement* element) {
  if (element->GetAttribute(u"t", u"") == u"none") return nullptr;
  const bool pseudo = element->GetLocalName() == u"in";
  static Shape open(xgt_Sequence, xet_Element, u"a");
  static const bool built = (open.LetUnknownAttributesThrough(), true);
  (void)built;
  return MakeBag(pseudo ? Pseudo().Number() : open.Number(), u"a");
}

template <class Record>
CElementInfo* Abstract(XmlElementType type = xet_Element) {
  return new Record(type == xet_Element ? u"a" : u"p", u"", 0, type, Suitable);
}

template <class Record>
CElementInfo* Object(XmlElementType type = xet_Element) {
  const Shape& shape = type == xet_Element ? Leaf() : Pseudo();
  return Cls<Record>(shape.IsElement() ? u"a" : u"p", 0, shape, type);
}

template <class Record>
CElementInfo* Must() {
  return new Record(u"p", u"", 0, xet_PseudoElement, MakeBag, Pseudo().Number(), true);
}

template <class Record>
CElementInfo* Many() {
  return new Record(u"a", u"", 0, xet_Element);
}

/// What one call of `ElementFromXml` does at the first child of a document: "+" or "-" for the
/// answer, the name under the cursor behind it, "*" if the property then holds something; or the
/// message.
std::string Ask(CElementInfo* record, const char* document, XmlElementType parentType,
                unsigned lenience = 0) {
  Shape shape(xgt_Sequence);
  shape.Add(record);
  const auto add = [&](const Shape& start, const wchar* name) {
    if (dynamic_cast<CElementInfoSeqClsMnd*>(record) ||
        dynamic_cast<CElementInfoAllClsMnd*>(record)) {
      shape.StartWithObject(0, name, start);
    }
  };
  const bool pseudo = record->GetElementName() == u"p";
  add(pseudo ? Pseudo() : Leaf(), pseudo ? u"p" : u"a");
  if (dynamic_cast<CElementInfoSeqCol*>(record) || dynamic_cast<CElementInfoAllCol*>(record) ||
      dynamic_cast<CElementInfoChoiceCol*>(record)) {
    shape.StartWithItems(0, u"a", Leaf(), 0, 2);
  }
  CSerializationContext context;
  context.SetIgnoreUnknownElements(lenience == 1);
  context.SetIgnoreMissingMandatoryElements(lenience == 2);
  CXmlDocument parsed;
  parsed.LoadXml(document);
  CXmlElement* root = parsed.GetDocumentElement();
  CXmlElement* child = root->GetFirstElement();
  const CSmartPtr<Bag> bag = NewBag(shape);
  std::string result;
  try {
    result = record->ElementFromXml(context, bag, root, &child, u"", parentType) ? "+" : "-";
  } catch (const CTovikException& e) {
    return DisplayUtf8(e.GetMessage());
  }
  if (child) result += DisplayUtf8(child->GetLocalName());
  const CSmartPtr<CXmlCollectionBase> items = bag->Value(0).GetXmlCollection();
  if (items) return result + "#" + std::to_string(items->GetCount());
  const bool holdsObject = bag->Value(0).GetXmlObject().Get() != nullptr;
  const bool holdsValue = bag->Value(0).GetTypeAsEnum() < it_xmlObject && bag->Value(0).IsValid();
  return result + (holdsObject || holdsValue ? "*" : "");
}

constexpr const char* kMatch = "<r><a/><z/></r>";
constexpr const char* kOther = "<r><x/><a/></r>";
constexpr const char* kEmpty = "<r/>";
constexpr const char* kInner = "<r><in/><z/></r>";

}  // namespace

TEST(ReadRecord, AnswersByGroupKindAndOccurrence) {
  const std::string required = "Failed to find the required child element [a].\nPath: /r";
  const std::string requiredPseudo = "Failed to find the required child element [p].\nPath: /r";
  const std::string substitute =
      "Failed to find a suitable substitution element for [a].\nPath: /r";
  using Make = CElementInfo* (*)();
  constexpr XmlElementType kReal = xet_Element, kPart = xet_PseudoElementNoAttributes;
  const struct {
    Make make;
    const char* document;
    XmlElementType parentType;
    unsigned lenience;
    std::string outcome;
  } rows[] = {
      // primitives and enumerations of a sequence
      {[] { return Prim<CElementInfoSeqPrimMnd>(u"a", 0); }, kMatch, kReal, 0, "+z*"},
      {[] { return Prim<CElementInfoSeqPrimMnd>(u"a", 0); }, kOther, kReal, 0, required},
      {[] { return Prim<CElementInfoSeqPrimMnd>(u"a", 0); }, kOther, kReal, 1, "+*"},
      {[] { return Prim<CElementInfoSeqPrimMnd>(u"a", 0); }, kOther, kReal, 2, "+x"},
      {[] { return Prim<CElementInfoSeqPrimMnd>(u"a", 0); }, kOther, kPart, 0, "-x"},
      {[] { return Prim<CElementInfoSeqPrimMnd>(u"a", 0); }, kOther, kPart, 1, "+*"},
      {[] { return Prim<CElementInfoSeqPrimMnd>(u"a", 0); }, kOther, kPart, 2, "-x"},
      {[] { return Prim<CElementInfoSeqPrimMnd>(u"a", 0); }, kEmpty, kReal, 1, required},
      {[] { return Prim<CElementInfoSeqPrimMnd>(u"a", 0); }, kEmpty, kPart, 1, "-"},
      {[] { return Colour<CElementInfoSeqEnumMnd>(u"a", 0, u"red"); }, kOther, kReal, 1, "+*"},
      {[] { return Colour<CElementInfoSeqEnumMnd>(u"a", 0, u"red"); }, kOther, kPart, 1, "-x"},
      {[] { return Colour<CElementInfoSeqEnumMnd>(u"a", 0, u"red"); }, kMatch, kPart, 0, "+z*"},
      {[] { return Prim<CElementInfoSeqPrimOpt>(u"a", 0); }, kMatch, kReal, 0, "+z*"},
      {[] { return Prim<CElementInfoSeqPrimOpt>(u"a", 0); }, kOther, kReal, 1, "+x"},
      {[] { return Colour<CElementInfoSeqEnumOpt>(u"a", 0, u"red"); }, kEmpty, kReal, 0, "+"},
      // primitives and enumerations of the other groups
      {[] { return Prim<CElementInfoAllPrimMnd>(u"a", 0); }, kMatch, kReal, 0, "+z*"},
      {[] { return Prim<CElementInfoAllPrimMnd>(u"a", 0); }, kOther, kReal, 1, "-x"},
      {[] { return Prim<CElementInfoAllPrimOpt>(u"a", 0); }, kEmpty, kReal, 0, "-"},
      {[] { return Colour<CElementInfoAllEnumMnd>(u"a", 0, u"red"); }, kMatch, kReal, 0, "+z*"},
      {[] { return Colour<CElementInfoAllEnumOpt>(u"a", 0, u"red"); }, kOther, kReal, 0, "-x"},
      {[] { return Prim<CElementInfoChoicePrimOpt>(u"a", 0); }, kMatch, kReal, 0, "+z*"},
      {[] { return Prim<CElementInfoChoicePrimOpt>(u"a", 0); }, kOther, kReal, 1, "-x"},
      {[] { return Colour<CElementInfoChoiceEnumOpt>(u"a", 0, u"red"); }, kEmpty, kReal, 0, "-"},
      // objects with an element of their own
      {[] { return Object<CElementInfoSeqClsMnd>(); }, kMatch, kReal, 0, "+z*"},
      {[] { return Object<CElementInfoSeqClsMnd>(); }, kOther, kReal, 0, required},
      {[] { return Object<CElementInfoSeqClsMnd>(); }, kOther, kReal, 1, "+*"},
      {[] { return Object<CElementInfoSeqClsMnd>(); }, kOther, kReal, 2, "+x*"},
      {[] { return Object<CElementInfoSeqClsMnd>(); }, kOther, kPart, 1, "-x*"},
      {[] { return Object<CElementInfoSeqClsOpt>(); }, kMatch, kReal, 0, "+z*"},
      {[] { return Object<CElementInfoSeqClsOpt>(); }, kOther, kReal, 0, "+x"},
      {[] { return Object<CElementInfoAllClsMnd>(); }, kMatch, kReal, 0, "+z*"},
      {[] { return Object<CElementInfoAllClsMnd>(); }, kEmpty, kReal, 0, "-*"},
      {[] { return Object<CElementInfoAllClsOpt>(); }, kMatch, kReal, 0, "+z*"},
      {[] { return Object<CElementInfoAllClsOpt>(); }, kOther, kReal, 0, "-x"},
      {[] { return Object<CElementInfoChoiceClsOpt>(); }, kMatch, kReal, 0, "+z*"},
      {[] { return Object<CElementInfoChoiceClsOpt>(); }, kOther, kReal, 0, "-x"},
      // pseudo elements
      {[] { return Must<CElementInfoSeqClsMnd>(); }, kInner, kReal, 0, "+z*"},
      {[] { return Must<CElementInfoSeqClsMnd>(); }, kOther, kReal, 0, requiredPseudo},
      {[] { return Must<CElementInfoSeqClsMnd>(); }, kEmpty, kReal, 0, requiredPseudo},
      {[] { return Must<CElementInfoSeqClsMnd>(); }, kOther, kPart, 0, "-x*"},
      {[] { return Must<CElementInfoSeqClsMnd>(); }, kEmpty, kPart, 0, "-*"},
      {[] { return Object<CElementInfoSeqClsMnd>(xet_PseudoElement); }, kOther, kReal, 0, "+x*"},
      {[] { return Object<CElementInfoSeqClsMnd>(xet_PseudoElement); }, kOther, kReal, 1, "-x*"},
      {[] { return Object<CElementInfoSeqClsMnd>(xet_PseudoElement); }, kOther, kPart, 1, "+x*"},
      {[] { return Object<CElementInfoSeqClsOpt>(xet_PseudoElement); }, kInner, kReal, 0, "+z*"},
      {[] { return Object<CElementInfoSeqClsOpt>(xet_PseudoElement); }, kOther, kReal, 0, "+x"},
      {[] { return Object<CElementInfoAllClsMnd>(xet_PseudoElement); }, kInner, kReal, 0, "+z*"},
      {[] { return Object<CElementInfoAllClsMnd>(xet_PseudoElement); }, kOther, kReal, 0, "-x*"},
      {[] { return Object<CElementInfoAllClsOpt>(xet_PseudoElement); }, kInner, kReal, 0, "+z*"},
      {[] { return Object<CElementInfoAllClsOpt>(xet_PseudoElement); }, kEmpty, kReal, 0, "-"},
      {[] { return Object<CElementInfoChoiceClsOpt>(xet_PseudoElement); }, kInner, kReal, 0, "+z*"},
      {[] { return Object<CElementInfoChoiceClsOpt>(xet_PseudoElement); }, kOther, kReal, 0, "-x"},
      {[] { return Object<CElementInfoChoiceClsOpt>(xet_PseudoElement); }, kEmpty, kReal, 0, "-"},
      // objects of a class chosen by the element
      {[] { return Abstract<CElementInfoSeqAbsClsMnd>(); }, kMatch, kReal, 0, "+z*"},
      {[] { return Abstract<CElementInfoSeqAbsClsMnd>(); }, kOther, kReal, 1, substitute},
      {[] { return Abstract<CElementInfoSeqAbsClsMnd>(); }, "<r><a t='none'/></r>", kReal, 0,
       substitute},
      {[] { return Abstract<CElementInfoSeqAbsClsMnd>(); }, kOther, kPart, 0, "-x"},
      {[] { return Abstract<CElementInfoSeqAbsClsOpt>(); }, kMatch, kReal, 0, "+z*"},
      {[] { return Abstract<CElementInfoSeqAbsClsOpt>(); }, "<r><a t='none'/></r>", kReal, 0, "+a"},
      {[] { return Abstract<CElementInfoAllAbsClsMnd>(); }, kMatch, kReal, 0, "+z*"},
      {[] { return Abstract<CElementInfoAllAbsClsMnd>(); }, kOther, kReal, 0, "-x"},
      {[] { return Abstract<CElementInfoAllAbsClsOpt>(xet_PseudoElement); }, kInner, kReal, 0,
       "+z*"},
      {[] { return Abstract<CElementInfoAllAbsClsOpt>(xet_PseudoElement); }, kEmpty, kReal, 0, "-"},
      {[] { return Abstract<CElementInfoChoiceAbsClsOpt>(); }, kMatch, kReal, 0, "+z*"},
      {[] { return Abstract<CElementInfoChoiceAbsClsOpt>(); }, "<r><a t='none'/></r>", kReal, 0,
       "-a"},
      // collections
      {[] { return Many<CElementInfoSeqClsCol>(); }, "<r><a/><a/><z/></r>", kReal, 0, "+z#2"},
      {[] { return Many<CElementInfoSeqClsCol>(); }, kOther, kReal, 0, "+x#0"},
      {[] { return Many<CElementInfoSeqAbsClsCol>(); }, "<r><a/><a/><a/></r>", kPart, 0, "-#3"},
      {[] { return Many<CElementInfoAllClsCol>(); }, "<r><a/><z/></r>", kReal, 0, "-z#1"},
      {[] { return Many<CElementInfoChoiceClsCol>(); }, "<r><a/><z/></r>", kReal, 0, "+z#1"},
      {[] { return Many<CElementInfoChoiceClsCol>(); }, kOther, kReal, 0, "-x#0"},
      {[] { return Many<CElementInfoChoiceAbsClsCol>(); }, "<r><a/><a/><a/></r>", kPart, 0, "-a#3"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Ask(row.make(), row.document, row.parentType, row.lenience), row.outcome)
        << "row " << &row - rows << " on " << row.document;
  }
}

TEST(ReadRecord, ValidatesAtTheEndOfAnAllGroup) {
  const CSerializationContext context;
  const auto ask = [&](CElementInfo* made, bool seen, bool parentIsElement) -> std::string {
    const std::unique_ptr<CElementInfo> record(made);
    try {
      return record->Validate(context, nullptr, seen, parentIsElement) ? "+" : "-";
    } catch (const CTovikException& e) {
      EXPECT_EQ(e.GetPath(), u"");
      return DisplayUtf8(e.GetMessage());
    }
  };
  const std::string missing = "Failed to find the mandatory element [a].";
  EXPECT_EQ(ask(Prim<CElementInfoAllPrimMnd>(u"a", 0), true, true), "+");
  EXPECT_EQ(ask(Prim<CElementInfoAllPrimMnd>(u"a", 0), false, false), "-");
  EXPECT_EQ(ask(Prim<CElementInfoAllPrimMnd>(u"a", 0), false, true), missing);
  EXPECT_EQ(ask(Abstract<CElementInfoAllAbsClsMnd>(), false, true), missing);
  EXPECT_EQ(ask(Prim<CElementInfoAllPrimOpt>(u"a", 0), false, true), "+");
  EXPECT_EQ(ask(Object<CElementInfoAllClsMnd>(), false, true), "+");
  EXPECT_EQ(ask(Object<CElementInfoAllClsMnd>(), false, false), "-");
  EXPECT_EQ(ask(Object<CElementInfoAllClsMnd>(xet_PseudoElementNoAttributes), false, true), "+");
  EXPECT_EQ(ask(Object<CElementInfoAllClsMnd>(xet_PseudoElement), false, true),
            "Failed to find the mandatory element [p].");
  EXPECT_EQ(ask(Prim<CElementInfoSeqPrimMnd>(u"a", 0), true, true),
            "Not implemented, should never be called");
}

TEST(ReadRecord, ReadsNilDefaultsAndAttributesOfPrimitives) {
  const std::string xsi = " xmlns:i='http://www.w3.org/2001/XMLSchema-instance' ";
  const auto read = [&](bool nillable, const std::string& attributes, const char* text,
                        const wchar* defaultValue = u"7") -> std::string {
    Shape shape(xgt_Sequence);
    shape.Add(Prim<CElementInfoSeqPrimMnd>(u"a", 0, it_i4, defaultValue, nillable));
    const CSmartPtr<Bag> bag = NewBag(shape);
    try {
      bag->FromXml(("<r" + xsi + "><a " + attributes + ">" + text + "</a></r>").c_str(),
                   CSerializationContext());
    } catch (const CTovikException& e) {
      return e.what();
    }
    const CSerializationContext context;
    return bag->Value(0).IsNil() ? "nil " + DisplayUtf8(bag->Value(0).GetType())
                                 : DisplayUtf8(bag->Value(0).ToString(nullptr));
  };
  EXPECT_EQ(read(false, "", " 5 "), "5");
  EXPECT_EQ(read(false, "", ""), "7");
  EXPECT_EQ(read(false, "", "", u""),
            "Failed to process the element.\nPath: /r\nThe value [] can not be converted to a i4");
  EXPECT_EQ(read(true, "i:nil='true'", "5"), "nil i4");
  EXPECT_EQ(read(true, "i:nil='1'", ""), "nil i4");
  EXPECT_EQ(read(false, "i:nil='FALSE'", "5"), "5");
  EXPECT_EQ(read(false, "i:nil='true'", ""),
            "Invalid use of 'nil' attribute in non-nillable element.\nPath: /r/a");
  EXPECT_EQ(read(true, "i:nil='maybe'", ""),
            "Unexpected Value [maybe] for 'nil' Attribute found.\nPath: /r/a/@i:nil");
  EXPECT_EQ(read(true, "i:type='t'", "5"), "Unexpected Attribute found.\nPath: /r/a/@i:type");
}
