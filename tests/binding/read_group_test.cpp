#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/data_rows.h"
#include "tests/support/text.h"

// The three group drivers and the attributes, on documents in and objects out.

using namespace TovikXmlTest;

namespace {

CSerializationContext ContextThatIgnores(const WString& what) {
  CSerializationContext context;
  context.SetIgnoreUnknownElements(what == u"unknown elements");
  context.SetIgnoreMissingMandatoryElements(what == u"missing elements");
  context.SetIgnoreUnknownAttributes(what == u"unknown attributes");
  context.SetIgnoreMissingChoice(what == u"missing choice");
  context.SetIgnoreNamespaces(what == u"namespaces");
  context.SetIgnoreInvalidCollectionCounts(what == u"counts");
  return context;
}

WString ValuesOf(Bag& bag);

WString Held(const TovikVariant& value) {
  if (value.GetXmlCollection()) return u"#" + NumberText(value.GetXmlCollection()->GetCount());
  const CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
  if (auto* bag = dynamic_cast<Bag*>(object.Get())) return u"(" + ValuesOf(*bag) + u")";
  if (auto* foreign = dynamic_cast<CElement*>(object.Get())) return u":" + foreign->GetName();
  if (value.IsNil()) return u"nil";
  return value.IsValid() ? value.ToString(nullptr) : u"";
}

/// The values of the properties up to the last that holds one, with commas between.
WString ValuesOf(Bag& bag) {
  WString values;
  for (int i = 0; i < Bag::kProperties; ++i) values += Held(bag.Value(i)) + u",";
  values.erase(values.find_last_not_of(u',') + 1);
  return values;
}

void ExpectReads(const Shape& shape, const std::string& section) {
  ForEachRow("binding/read_group.txt", section,
             [&](const WString& document, const WString& ignored, const WString& outcome) {
               const CSmartPtr<Bag> bag = NewBag(shape);
               EXPECT_EQ(Outcome([&] {
                           bag->FromXml(document.c_str(), ContextThatIgnores(ignored));
                           return ValuesOf(*bag);
                         }),
                         outcome);
             });
}

const Shape& Item() {
  static Shape shape(xgt_Sequence, xet_Element, u"item");
  static const bool built = (shape.Text(0, it_string), true);
  (void)built;
  return shape;
}

}  // namespace

TEST(ReadSequence, TakesRecordsInTableOrder) {
  Shape shape(xgt_Sequence);
  shape.Add(Prim<CElementInfoSeqPrimMnd>(u"a", 0))
      .Add(Prim<CElementInfoSeqPrimOpt>(u"b", 1))
      .Add(Prim<CElementInfoSeqPrimMnd>(u"c", 2));
  ExpectReads(shape, "sequence");
}

TEST(ReadSequence, GoesOnWithItsLastCollectionBehindUnknownElementsAndWithNoMandatoryRecord) {
  Shape shape(xgt_Sequence), wildcard(xgt_Sequence);
  wildcard.Add(new CElementInfoSeqUntpdMnd(u"AnyElement", u"", 0, u"##any", u""))
      .StartWith(0, [](TovikVariant& value) { value.SetXmlObject(new CElement(u"w")); });
  ExpectReads(wildcard, "mandatory wildcard at the end");
  shape.Add(new CElementInfoSeqClsCol(u"item", u"", 0, xet_Element));
  shape.StartWithItems(0, u"item", Item(), 1, 3);
  ExpectReads(shape, "sequence that ends with a collection");
}

TEST(ReadAll, TakesAnyOrderOnceAndNoCollection) {
  Shape shape(xgt_All), repeated(xgt_All);
  shape.Add(Prim<CElementInfoAllPrimMnd>(u"a", 0))
      .Add(Colour<CElementInfoAllEnumMnd>(u"b", 1))
      .Add(Prim<CElementInfoAllPrimOpt>(u"c", 2));
  ExpectReads(shape, "all");
  repeated.Add(new CElementInfoAllClsCol(u"item", u"", 0, xet_Element));
  repeated.StartWithItems(0, u"item", Item());
  ExpectReads(repeated, "collection in an all group");
}

TEST(ReadChoice, TakesOneChild) {
  Shape shape(xgt_Choice);
  shape.Add(Prim<CElementInfoChoicePrimOpt>(u"a", 0))
      .Add(Colour<CElementInfoChoiceEnumOpt>(u"b", 1))
      .Add(new CElementInfoChoiceClsCol(u"item", u"", 2, xet_Element))
      .StartWithItems(2, u"item", Item(), 1, 2);
  ExpectReads(shape, "choice");
}

TEST(ReadChoice, DemandsAChildWhereNoneIsOptional) {
  Shape shape(xgt_Choice), outer(xgt_Choice);
  shape.Add(Prim<CElementInfoAllPrimOpt>(u"a", 0));
  ExpectReads(shape, "choice that may not be empty");
  outer.Add(Cls<CElementInfoChoiceClsOpt>(u"in", 0, shape));
  ExpectReads(outer, "choice of a choice");
}

TEST(ReadChoice, AsksForTheMinimumOfItsCollectionWithoutAGuard) {
  struct Failing : Bag {
    using Bag::Bag;
    using Bag::DoesElementContainOptionalElements;
    void AccessProperty(int, bool, TovikVariant&) override { throw CTovikException(u"no access"); }
  };
  Shape shape(xgt_Choice);
  shape.Add(new CElementInfoChoicePrimCol(u"a", u"", 0));
  const CSmartPtr<Failing> bag(new Failing(shape));
  EXPECT_EQ(Outcome([&] { bag->DoesElementContainOptionalElements(); }), u"!Exception no access");
}

TEST(ReadPseudo, HandsBackWhatItDoesNotTake) {
  for (const XmlElementType type : {xet_PseudoElement, xet_PseudoElementNoAttributes}) {
    Shape sequence(xgt_Sequence, type, u"s"), choice(xgt_Choice, type, u"c");
    Shape all(xgt_All, type, u"l"), shape(xgt_Sequence);
    sequence.Add(Prim<CElementInfoSeqPrimMnd>(u"a", 0))
        .Add(Colour<CElementInfoSeqEnumMnd>(u"b", 1));
    choice.Add(Prim<CElementInfoChoicePrimOpt>(u"d", 0))
        .Add(Prim<CElementInfoChoicePrimOpt>(u"e", 1));
    all.Add(Prim<CElementInfoAllPrimMnd>(u"f", 0)).Add(Prim<CElementInfoAllPrimMnd>(u"g", 1));
    shape.Add(Cls<CElementInfoSeqClsOpt>(u"s", 0, sequence, type))
        .Add(Cls<CElementInfoSeqClsOpt>(u"c", 1, choice, type))
        .Add(Cls<CElementInfoSeqClsOpt>(u"l", 2, all, type))
        .Add(Prim<CElementInfoSeqPrimOpt>(u"z", 3));
    ExpectReads(shape, "pseudo elements");
  }
}

TEST(ReadPseudo, MayHaveToTakeSomething) {
  Shape sequence(xgt_Sequence, xet_PseudoElement, u"s");
  sequence.Add(Prim<CElementInfoSeqPrimOpt>(u"a", 0));
  for (const bool must : {true, false}) {
    Shape shape(xgt_Sequence), last(xgt_Sequence);
    const auto record = [must] {
      return new CElementInfoSeqClsMnd(u"s", u"", 0, xet_PseudoElement, MakeBag, 0, must);
    };
    shape.Add(record())
        .Add(Prim<CElementInfoSeqPrimOpt>(u"z", 1))
        .StartWithObject(0, u"s", sequence);
    ExpectReads(shape, must ? "pseudo element that must take something"
                            : "pseudo element that may take nothing");
    last.Add(record()).StartWithObject(0, u"s", sequence);
    ExpectReads(last, "mandatory pseudo element at the end");
  }
}

TEST(ReadAttributes, OffersThemToRecordsInOrder) {
  Shape shape(xgt_Sequence), open(xgt_Sequence);
  shape.Add(Attribute(u"a", 0, false))
      .Add(Attribute(u"a", 1))
      .Add(Attribute(u"b", 2, true, it_i4))
      .Add(new CAttributeInfoEnum(u"e", u"", 3, true, ColourToText, ColourFromText, u""))
      .Add(Attribute(u"l", 4, true, it_string, u"", u"urn:l"));
  ExpectReads(shape, "attributes");
  open.LetUnknownAttributesThrough();
  ExpectReads(open, "unknown attributes let through");
}

TEST(ReadNil, EndsAnObjectAtItsAttributes) {
  Shape shape(xgt_Sequence), plain(xgt_Sequence);
  shape.Nillable().Add(Prim<CElementInfoSeqPrimMnd>(u"e", 0)).Add(Attribute(u"a", 1));
  ExpectReads(shape, "nil");
  ExpectReads(plain, "not nillable");
}

TEST(ReadOwnText, ConvertsOrKeepsText) {
  Shape number(xgt_Sequence), text(xgt_Sequence);
  ExpectReads(number.Text(0, it_i4), "own text");
  ExpectReads(text.Text(0, it_i4, true), "own text as it stands");
}

TEST(ReadObject, ReplacesWhatWasThereAndTakesTheNameItFinds) {
  Shape shape(xgt_Sequence);
  shape.Add(Prim<CElementInfoSeqPrimOpt>(u"a", 0))
      .Add(Prim<CElementInfoSeqPrimOpt>(u"b", 1, it_i4));
  const CSmartPtr<Bag> bag = NewBag(shape);
  const CSerializationContext context;
  bag->FromXml("<root><a>1</a></root>", context);
  bag->FromXml("<other><b>2</b></other>", context);
  EXPECT_EQ(bag->ToXml(false, false, EOL_LF, context), u"<other><b>2</b></other>");
  EXPECT_THROW(bag->FromXml("<r><a>3</a><b>x</b></r>", context), CTovikException);
  EXPECT_EQ(bag->Value(0).GetString(), u"3");  // what was read so far stays
  EXPECT_FALSE(bag->Value(1).IsValid());
}

TEST(ReadObject, KeepsTheFirstPathAndLosesTheClassAboveIt) {
  Shape leaf(xgt_Sequence, xet_Element, u"leaf"), middle(xgt_Sequence), outer(xgt_Sequence);
  leaf.Add(Prim<CElementInfoSeqPrimOpt>(u"a", 0, it_i4));
  middle.Add(Cls<CElementInfoSeqClsOpt>(u"leaf", 0, leaf));
  outer.Add(Cls<CElementInfoSeqClsOpt>(u"middle", 0, middle));
  const CSerializationContext context;
  try {
    NewBag(outer)->FromXml("<r><middle><leaf><a>x</a></leaf></middle></r>", context);
    ADD_FAILURE();
  } catch (const CTovikException& e) {
    EXPECT_STREQ(typeid(e).name(), typeid(CTovikException).name());
    EXPECT_EQ(e.GetPath(), u"/r/middle/leaf");
    EXPECT_EQ(e.GetMessage(), u"Failed to process the element.\nPath: /r/middle/leaf");
    EXPECT_NE(dynamic_cast<const CTovikInvalidValueException*>(e.GetInnerException()), nullptr);
  }
  try {
    NewBag(leaf)->FromXml("<leaf><a>x</a></leaf>", context);
    ADD_FAILURE();
  } catch (const CTovikException& e) {
    EXPECT_STREQ(typeid(e).name(), typeid(CTovikValidationException).name());
  }
}

TEST(ReadObject, ReportsASetterThatRefuses) {
  Shape elements(xgt_Sequence), attributes(xgt_Sequence);
  const Shape unknown(static_cast<XmlElementGroupType>(9));
  ExpectReads(elements.Add(Prim<CElementInfoSeqPrimOpt>(u"a", 0)).Refuse(0), "refusing element");
  ExpectReads(attributes.Add(Attribute(u"a", 0)).Refuse(0), "refusing attribute");
  ExpectReads(unknown, "unknown group");
}
