#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;

namespace {

const WString kXsi = u"http://www.w3.org/2001/XMLSchema-instance";

WString Write(Bag& bag, const CSerializationContext& context = CSerializationContext()) {
  return bag.ToXml(false, false, EOL_LF, context);
}

WString FullFailure(Bag& bag, const CSerializationContext& context = CSerializationContext()) {
  try {
    return u"written: " + Write(bag, context);
  } catch (const CTovikException& e) {
    EXPECT_NE(dynamic_cast<const CTovikValidationException*>(&e), nullptr);
    return e.GetFullMessage();
  }
}

const Shape& Empty() {
  static const Shape shape(xgt_Sequence, xet_Element, u"item");
  return shape;
}

}  // namespace

TEST(Write, PutsTheRootTogetherInOrder) {
  Shape shape(xgt_Sequence, xet_Element, u"T", u"urn:t");
  Shape pseudo(xgt_Sequence, xet_PseudoElement, u"p");
  pseudo.Add(Attribute(u"pa", 0)).Add(Prim<CElementInfoSeqPrimOpt>(u"pe", 1));
  shape.WithBaseClasses().Text(7, it_string);
  shape.Add(Attribute(u"a", 0)).Add(Prim<CElementInfoSeqPrimOpt>(u"e", 1));
  shape.Add(Cls<CElementInfoSeqClsOpt>(u"p", 2, pseudo, xet_PseudoElement));
  const CSmartPtr<Bag> bag = NewBag(shape, u"root");
  const CSmartPtr<Bag> child = NewBag(pseudo);
  bag->Value(0).SetString(u"1");
  bag->Value(1).SetString(u"2");
  bag->Value(2).SetXmlObject(child);
  bag->Value(7).SetString(u"own");
  child->Value(0).SetString(u"3");
  child->Value(1).SetString(u"4");

  CSerializationContext context;
  context.GetProcessingInstructions() = {u"<?one?>", u"<?two?>"};
  context.SetDefaultNamespaceURI(u"urn:d");
  context.GetNamespaceAliases().Add(u"t", u"urn:t");
  context.GetNamespaceAliases().Add(u"xsi", kXsi.c_str());
  context.GetAdditionalRootAttributes()->Add(u"x", u"0", u"urn:x");
  context.SetInLineSchema(u"<s/>");
  const WString rest = u" a=\"1\" pa=\"3\" \n<s/>\n><e>2</e><pe>4</pe>own</t:root>";
  const WString start = u"<?one?>\n\n<?two?>\n\n<t:root xmlns=\"urn:d\" xmlns:xsi=\"" + kXsi +
                        u"\" xmlns:t=\"urn:t\" xmlns:AA=\"urn:x\" AA:x=\"0\"";
  EXPECT_EQ(Write(*bag, context), start + u" xsi:type=\"t:T\"" + rest);
  context.SetWriteTypeAttribute(false);
  EXPECT_EQ(Write(*bag, context), start + rest);
}

TEST(Write, MarksTheTypeOnlyWhereTheNameDiffersAndTheClassHasBases) {
  Shape plain(xgt_Sequence, xet_Element, u"T");
  Shape derived(xgt_Sequence, xet_Element, u"T");
  derived.WithBaseClasses();
  EXPECT_EQ(Write(*NewBag(plain, u"root")), u"<root/>");
  EXPECT_EQ(Write(*NewBag(derived, u"T")), u"<T/>");
  EXPECT_EQ(Write(*NewBag(derived, u"root")), u"<root xmlns:AA=\"" + kXsi + u"\" AA:type=\"T\"/>");
}

TEST(Write, LeavesAttributesOfTheOtherPseudoElementOut) {
  Shape inner(xgt_Sequence, xet_PseudoElementNoAttributes, u"p");
  inner.Add(Attribute(u"a", 0)).Add(Prim<CElementInfoSeqPrimOpt>(u"e", 1));
  Shape outer(xgt_Sequence);
  outer.Add(Cls<CElementInfoSeqClsOpt>(u"p", 0, inner, xet_PseudoElementNoAttributes));
  const CSmartPtr<Bag> bag = NewBag(outer), child = NewBag(inner);
  child->Value(0).SetString(u"1");
  child->Value(1).SetString(u"2");
  bag->Value(0).SetXmlObject(child);
  EXPECT_EQ(Write(*bag), u"<root><e>2</e></root>");
}

TEST(Write, WritesValuesDefaultsAndNil) {
  const WString nil = u" xmlns:AA=\"" + kXsi + u"\" AA:nil=\"true\"/>";
  const struct {
    std::function<void(TovikVariant&)> set;
    const wchar* defaultValue;
    bool writeDefaults;
    WString text;
  } rows[] = {
      {[](TovikVariant&) {}, u"", false, u"<root/>"},
      {[](TovikVariant& v) { v.SetI4(5); }, u"", false, u"<root><a>5</a></root>"},
      {[](TovikVariant& v) { v.SetI4(5); }, u"5", false, u"<root><a/></root>"},
      {[](TovikVariant& v) { v.SetI4(5); }, u"5", true, u"<root><a>5</a></root>"},
      {[](TovikVariant& v) { v.SetI4(5); }, u"05", false, u"<root><a>5</a></root>"},
      {[](TovikVariant& v) { v.SetString(u""); }, u"", false, u"<root><a/></root>"},
      {[](TovikVariant& v) { v.SetNil(it_i4); }, u"", false, u"<root><a" + nil + u"</root>"},
  };
  for (const auto& row : rows) {
    Shape shape(xgt_All);
    shape.Add(Prim<CElementInfoAllPrimOpt>(u"a", 0, it_i4, row.defaultValue));
    const CSmartPtr<Bag> bag = NewBag(shape);
    row.set(bag->Value(0));
    CSerializationContext context;
    context.SetWriteDefaultElementValues(row.writeDefaults);
    EXPECT_EQ(Write(*bag, context), row.text) << "row " << &row - rows;
  }
  Shape enums(xgt_Sequence);
  enums.Add(Colour<CElementInfoSeqEnumMnd>(u"a", 0)).Add(Colour<CElementInfoSeqEnumOpt>(u"b", 1));
  enums.Add(Colour<CElementInfoSeqEnumOpt>(u"c", 2, u"green"));
  const CSmartPtr<Bag> bag = NewBag(enums);
  bag->Value(0).SetI4(1);
  bag->Value(1).SetNil(it_i4);
  bag->Value(2).SetI4(1);
  EXPECT_EQ(Write(*bag), u"<root><a>green</a><b" + nil + u"<c/></root>");
}

TEST(Write, LeavesOptionalAttributesOutOnRequest) {
  Shape shape(xgt_Sequence);
  shape.Add(Attribute(u"o", 0, true, it_i4, u"5")).Add(Attribute(u"r", 1, false, it_i4, u"5"));
  shape.Add(new CAttributeInfoEnum(u"e", u"", 2, true, ColourToText, ColourFromText, u"red"));
  const CSmartPtr<Bag> bag = NewBag(shape);
  EXPECT_EQ(FullFailure(*bag),
            u"Failed to convert the element [root] to XML\nFailed to convert attributes to XML\n"
            u"Invalid Type 0 to convert to string");
  bag->Value(1).SetI4(5);
  EXPECT_EQ(Write(*bag), u"<root r=\"5\"/>");
  bag->Value(0).SetI4(5);
  bag->Value(2).SetI4(0);
  EXPECT_EQ(Write(*bag), u"<root o=\"5\" r=\"5\" e=\"red\"/>");
  CSerializationContext context;
  context.SetNoOptionalAttributeDefaultOutput(true);
  EXPECT_EQ(Write(*bag, context), u"<root r=\"5\"/>");
  bag->Value(0).SetI4(6);
  EXPECT_EQ(Write(*bag, context), u"<root o=\"6\" r=\"5\"/>");
}

TEST(Write, WritesANilObjectWithItsAttributesAlone) {
  Shape shape(xgt_Sequence);
  shape.Nillable().Text(2, it_string);
  shape.Add(Attribute(u"a", 0)).Add(Prim<CElementInfoSeqPrimMnd>(u"e", 1));
  const CSmartPtr<Bag> bag = NewBag(shape);
  bag->Value(0).SetString(u"1");
  dynamic_cast<INillable*>(bag.Get())->SetNil(true);
  EXPECT_EQ(Write(*bag), u"<root a=\"1\" xmlns:AA=\"" + kXsi + u"\" AA:nil=\"true\"/>");
}

TEST(Write, WritesTheFirstOfAChoice) {
  Shape shape(xgt_Choice);
  shape.Add(Prim<CElementInfoChoicePrimOpt>(u"a", 0)).Add(Prim<CElementInfoChoicePrimOpt>(u"b", 1));
  const CSmartPtr<Bag> bag = NewBag(shape);
  EXPECT_EQ(Write(*bag), u"<root/>");  // the records are optional
  bag->Value(1).SetString(u"2");
  EXPECT_EQ(Write(*bag), u"<root><b>2</b></root>");
  bag->Value(0).SetString(u"1");
  EXPECT_EQ(Write(*bag), u"<root><a>1</a></root>");
}

TEST(Write, RefusesAnEmptyChoiceUnlessItMayBeEmpty) {
  const WString empty =
      u"This element is a choice, and as such must have at one (and only one) valid item, "
      u"currently there are none set";
  Shape strict(xgt_Choice), minimum(xgt_Choice), none(xgt_Choice), outer(xgt_Choice);
  strict.Add(Prim<CElementInfoAllPrimOpt>(u"a", 0));
  minimum.Add(new CElementInfoChoiceClsCol(u"item", u"", 0, xet_Element));
  minimum.StartWithItems(0, u"item", Empty(), 1);
  none.Add(new CElementInfoChoiceClsCol(u"item", u"", 0, xet_Element));
  none.StartWithItems(0, u"item", Empty());
  const WString failure = u"Failed to convert the element [root] to XML\n" + empty;
  EXPECT_EQ(FullFailure(*NewBag(strict)), failure);
  EXPECT_EQ(FullFailure(*NewBag(minimum)), failure);
  EXPECT_EQ(Write(*NewBag(none)), u"<root/>");
  CSerializationContext context;
  context.SetIgnoreMissingChoice(true);
  EXPECT_EQ(Write(*NewBag(strict), context), u"<root/>");
  // Inside an optional object of a choice it is let through.
  outer.Add(Cls<CElementInfoChoiceClsOpt>(u"in", 0, strict));
  const CSmartPtr<Bag> bag = NewBag(outer);
  bag->Value(0).SetXmlObject(NewBag(strict, u"in"));
  EXPECT_EQ(Write(*bag), u"<root><in/></root>");
}

TEST(Write, ChecksCountsOfCollections) {
  Shape shape(xgt_Sequence);
  shape.Add(new CElementInfoSeqClsCol(u"item", u"", 0, xet_Element));
  shape.StartWithItems(0, u"item", Empty(), 1, 2);
  const CSmartPtr<Bag> bag = NewBag(shape);
  CSerializationContext lenient;
  lenient.SetIgnoreInvalidCollectionCounts(true);
  EXPECT_EQ(FullFailure(*bag),
            u"Failed to convert the element [root] to XML\n"
            u"The Minimum number of [item] elements allowed in this collection is 1");
  EXPECT_EQ(Write(*bag, lenient), u"<root/>");
  static_cast<BagCol*>(bag->Value(0).GetXmlCollection().Get())->Add();
  EXPECT_EQ(Write(*bag), u"<root><item/></root>");
}

TEST(Write, GivesTheAttributesOfPseudoItemsToTheEnclosingElement) {
  Shape item(xgt_Sequence, xet_PseudoElement, u"item"), shape(xgt_Sequence);
  item.Add(Attribute(u"a", 0)).Add(Prim<CElementInfoSeqPrimOpt>(u"e", 1));
  shape.Add(new CElementInfoSeqClsCol(u"item", u"", 0, xet_PseudoElement));
  shape.StartWithItems(0, u"item", item);
  const CSmartPtr<Bag> bag = NewBag(shape);
  auto* items = static_cast<BagCol*>(bag->Value(0).GetXmlCollection().Get());
  items->Add()->Value(0).SetString(u"1");
  items->Add()->Value(1).SetString(u"2");
  EXPECT_EQ(Write(*bag), u"<root a=\"1\"><e>2</e></root>");
}

TEST(Write, WrapsFailuresAtEachLevel) {
  Shape inner(xgt_Sequence, xet_Element, u"in"), outer(xgt_Sequence), refusing(xgt_Sequence);
  inner.Add(Prim<CElementInfoSeqPrimMnd>(u"e", 0));
  outer.Add(Cls<CElementInfoSeqClsMnd>(u"in", 0, inner));
  EXPECT_EQ(FullFailure(*NewBag(outer)),
            u"Failed to convert the element [root] to XML\n"
            u"The Property [in] is mandatory, it may not be NULL");
  outer.StartWithObject(0, u"in", inner);
  EXPECT_EQ(FullFailure(*NewBag(outer)),
            u"Failed to convert the element [root] to XML\n"
            u"Failed to convert the element [in] to XML\n"
            u"The Property [e] is mandatory, it may not be NULL");
  refusing.Add(Prim<CElementInfoSeqPrimOpt>(u"e", 0)).Refuse(0);
  EXPECT_EQ(FullFailure(*NewBag(refusing)),
            u"Failed to convert the element [root] to XML\n"
            u"Failed to get the property value for [e].\nrefused");
  Shape unknown(static_cast<XmlElementGroupType>(3));
  EXPECT_EQ(FullFailure(*NewBag(unknown)),
            u"Failed to convert the element [root] to XML\nUnknown XML Group Type");
}

TEST(Records, CheckRestrictionsOfPrimitivesOnly) {
  Shape shape(xgt_Sequence);
  CElementInfo* record = Colour<CElementInfoSeqEnumOpt>(u"c", 0);
  shape.Add(record);
  TovikVariant value;
  value.SetI4(1);
  EXPECT_EQ(MessageOf<CTovikException>([&] { record->CheckRestriction(value); }),
            u"Cannot CheckRestriction for type: i4");
}
