#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <memory>

#include "tests/support/bag.h"
#include "tests/support/data_rows.h"
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

CSmartPtr<CXmlObjectBase> Suitable(int shapeNumber, const wchar* name) {
  return MakeBag(shapeNumber, name);
}

const Shape& ShapeNamed(const WString& name) {
  return name == u"a" ? Leaf() : Pseudo();
}

XmlElementType TypeNamed(const WString& name) {
  return name == u"a" ? xet_Element : xet_PseudoElement;
}

// Constructors take null, braces and overloaded functions for arguments.
template <class Record>
CElementInfo* Primitive(const WString&) {
  return new Record(u"a", NULL, 0, {}, it_string, NULL, CWhitespaceUtils::ws_collapse, {}, NULL);
}

template <class Record>
CElementInfo* Enumeration(const WString&) {
  return Colour<Record>(u"a", 0, u"red");
}

template <class Record>
CElementInfo* Object(const WString& name) {
  return new Record(name.c_str(), NULL, 0, TypeNamed(name), Suitable, ShapeNamed(name).Number());
}

CElementInfo* Mandatory(const WString& name) {
  if (name != u"p!") return Object<CElementInfoSeqClsMnd>(name);
  return new CElementInfoSeqClsMnd(u"p", NULL, 0, xet_PseudoElement, Suitable, Pseudo().Number(),
                                   true);
}

template <class Record>
CElementInfo* Abstract(const WString& name) {
  return new Record(name.c_str(), NULL, 0, TypeNamed(name), Suitable);
}

template <class Record>
CElementInfo* Many(const WString& name) {
  return new Record(name.c_str(), u"", 0, xet_Element);
}

template <class Record>
CElementInfo* Any(const WString& name) {
  return new Record(name.c_str(), u"urn:record", 0, u"##other", u"urn:t");
}

template <class Record>
CElementInfo* ManyOfAny(const WString& name) {
  return new Record(name.c_str(), u"urn:record", 0);
}

const std::map<std::string, CElementInfo* (*)(const WString& name)> kRecords = {
    {"SeqPrimMnd", Primitive<CElementInfoSeqPrimMnd>},
    {"SeqPrimOpt", Primitive<CElementInfoSeqPrimOpt>},
    {"SeqEnumMnd", Enumeration<CElementInfoSeqEnumMnd>},
    {"SeqEnumOpt", Enumeration<CElementInfoSeqEnumOpt>},
    {"AllPrimMnd", Primitive<CElementInfoAllPrimMnd>},
    {"AllPrimOpt", Primitive<CElementInfoAllPrimOpt>},
    {"AllEnumMnd", Enumeration<CElementInfoAllEnumMnd>},
    {"AllEnumOpt", Enumeration<CElementInfoAllEnumOpt>},
    {"ChoicePrimOpt", Primitive<CElementInfoChoicePrimOpt>},
    {"ChoiceEnumOpt", Enumeration<CElementInfoChoiceEnumOpt>},
    {"SeqClsMnd", Mandatory},
    {"SeqClsOpt", Object<CElementInfoSeqClsOpt>},
    {"AllClsMnd", Object<CElementInfoAllClsMnd>},
    {"AllClsOpt", Object<CElementInfoAllClsOpt>},
    {"ChoiceClsOpt", Object<CElementInfoChoiceClsOpt>},
    {"SeqAbsClsMnd", Abstract<CElementInfoSeqAbsClsMnd>},
    {"SeqAbsClsOpt", Abstract<CElementInfoSeqAbsClsOpt>},
    {"AllAbsClsMnd", Abstract<CElementInfoAllAbsClsMnd>},
    {"AllAbsClsOpt", Abstract<CElementInfoAllAbsClsOpt>},
    {"ChoiceAbsClsOpt", Abstract<CElementInfoChoiceAbsClsOpt>},
    {"SeqClsCol", Many<CElementInfoSeqClsCol>},
    {"SeqAbsClsCol", Many<CElementInfoSeqAbsClsCol>},
    {"AllClsCol", Many<CElementInfoAllClsCol>},
    {"ChoiceClsCol", Many<CElementInfoChoiceClsCol>},
    {"ChoiceAbsClsCol", Many<CElementInfoChoiceAbsClsCol>},
    {"SeqUntpdMnd", Any<CElementInfoSeqUntpdMnd>},
    {"SeqUntpdOpt", Any<CElementInfoSeqUntpdOpt>},
    {"AllUntpdMnd", Any<CElementInfoAllUntpdMnd>},
    {"AllUntpdOpt", Any<CElementInfoAllUntpdOpt>},
    {"ChoiceUntpdOpt", Any<CElementInfoChoiceUntpdOpt>},
    {"SeqUntpdCol", ManyOfAny<CElementInfoSeqUntpdCol>},
    {"AllUntpdCol", ManyOfAny<CElementInfoAllUntpdCol>},
    {"ChoiceUntpdCol", ManyOfAny<CElementInfoChoiceUntpdCol>},
};

/// How the property of a record starts: mandatory objects and collections are there, and behind a
/// wildcard is the element "old".
void Start(Shape& shape, const std::string& record, const WString& name) {
  const bool foreign = record.find("Untpd") != std::string::npos;
  if (record.ends_with("Col") && !foreign) {
    shape.StartWithItems(0, u"a", Leaf(), 0, 2);
  } else if (foreign) {
    shape.StartWith(0, [many = record.ends_with("Col")](TovikVariant& value) {
      if (many) {
        value.SetXmlCollection(new CElementCol(u"", u"##any", u"urn:t", 0, 2));
      } else {
        value.SetXmlObject(new CElement(u"old", u"", u"##other", u"urn:t"));
      }
    });
  } else if (record == "SeqClsMnd" || record == "AllClsMnd") {
    shape.StartWithObject(0, name == u"a" ? u"a" : u"p", ShapeNamed(name));
  }
}

/// What a property holds: "#" and the count of a collection, ":" and the name of a foreign element,
/// or "*".
WString Held(const TovikVariant& value) {
  if (value.GetXmlCollection()) return u"#" + NumberText(value.GetXmlCollection()->GetCount());
  const CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
  if (const auto* foreign = dynamic_cast<CElement*>(object.Get())) {
    return u":" + foreign->GetName();
  }
  const bool isPrimitive = value.GetTypeAsEnum() < it_xmlObject && value.IsValid();
  return object.Get() || isPrimitive ? u"*" : u"";
}

XmlElementType ParentNamed(const std::string& parent) {
  return parent == "element" ? xet_Element : xet_PseudoElementNoAttributes;
}

}  // namespace

// One call at the first child of a document: "+" or "-" for the answer, the name under the cursor
// behind it, and what the property then holds; or the message.
TEST(ReadRecord, AnswersByGroupKindAndOccurrence) {
  ForEachRow("binding/records.txt", "reading",
             [](const std::string& record, const WString& name, const std::string& document,
                const std::string& parent, const std::string& lenience, const WString& outcome) {
               Shape shape(xgt_Sequence);
               CElementInfo* const info = kRecords.at(record)(name);
               shape.Add(info);
               Start(shape, record, name);
               CSerializationContext context;
               context.SetIgnoreUnknownElements(lenience == "unknown");
               context.SetIgnoreMissingMandatoryElements(lenience == "missing");
               CXmlDocument parsed;
               parsed.LoadXml(document.c_str());
               CXmlElement* root = parsed.GetDocumentElement();
               CXmlElement* child = root->GetFirstElement();
               const CSmartPtr<Bag> bag = NewBag(shape);
               try {
                 const bool answer =
                     info->ElementFromXml(context, bag, root, &child, u"", ParentNamed(parent));
                 EXPECT_EQ((answer ? u"+" : u"-") + (child ? child->GetLocalName() : u"") +
                               Held(bag->Value(0)),
                           outcome);
               } catch (const CTovikException& e) {
                 EXPECT_EQ(e.GetMessage(), outcome);
               }
             });
}

TEST(ReadRecord, ValidatesAtTheEndOfAnAllGroup) {
  ForEachRow("binding/records.txt", "end of an all group",
             [](const std::string& record, const WString& name, bool seen,
                const std::string& parent, const WString& outcome) {
               const std::unique_ptr<CElementInfo> info(kRecords.at(record)(name));
               const CSerializationContext context;
               try {
                 const bool answer = info->Validate(context, nullptr, seen, parent == "element");
                 EXPECT_EQ(answer ? u"+" : u"-", outcome);
               } catch (const CTovikException& e) {
                 EXPECT_EQ(e.GetPath(), u"");
                 EXPECT_EQ(e.GetMessage(), outcome);
               }
             });
}

TEST(ReadRecord, ReadsNilDefaultsAndAttributesOfPrimitives) {
  ForEachRow(
      "binding/records.txt", "nil and defaults",
      [](bool nillable, const WString& defaultValue, const WString& attributes, const WString& text,
         const WString& outcome) {
        Shape shape(xgt_Sequence);
        shape.Add(Prim<CElementInfoSeqPrimMnd>(u"a", 0, it_i4, defaultValue.c_str(), nillable));
        const CSmartPtr<Bag> bag = NewBag(shape);
        const TovikVariant& value = bag->Value(0);
        EXPECT_EQ(Outcome([&] {
                    bag->FromXml((u"<r xmlns:i='http://www.w3.org/2001/XMLSchema-instance'><a " +
                                  attributes + u">" + text + u"</a></r>")
                                     .c_str(),
                                 CSerializationContext());
                    return value.IsNil() ? u"nil " + value.GetType() : value.ToString(nullptr);
                  }),
                  outcome);
      });
}

TEST(ReadRecord, ChoosesTheNamespaceOfItsWildcard) {
  struct DefaultNamespace : CElementInfoSeqCol {
    using CElementInfo::GetAnyDefaultNamespace;
  };
  ForEachRow("binding/records.txt", "namespace of a wildcard",
             [](const WString& allowed, const WString& defaultNamespace, const WString& result) {
               EXPECT_EQ(DefaultNamespace::GetAnyDefaultNamespace(
                             allowed.c_str(), defaultNamespace.c_str(), u"urn:t"),
                         result);
             });
}
