#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/data_rows.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;

namespace {

const WString kXsi = u"http://www.w3.org/2001/XMLSchema-instance";

WString Write(Bag& bag, const CSerializationContext& context = CSerializationContext()) {
  return bag.ToXml(false, false, EOL_LF, context);
}

CSerializationContext ContextWith(const WString& setting) {
  CSerializationContext context;
  context.SetWriteDefaultElementValues(setting == u"defaults");
  context.SetNoOptionalAttributeDefaultOutput(setting == u"no optional attributes");
  context.SetIgnoreMissingChoice(setting == u"missing choice");
  context.SetIgnoreInvalidCollectionCounts(setting == u"counts");
  return context;
}

/// From "property:kind=value" with a blank between each two; the value "nil" is none.
void Fill(Bag& bag, WStringView values) {
  while (!values.empty()) {
    const WStringView item = values.substr(0, values.find(u' '));
    const std::size_t sign = item.find(u'=');
    TovikVariant& value = bag.Value(item[0] - u'0');
    const auto kind = FieldAs<ItemType>(WString(item.substr(2, sign - 2)));
    if (item.ends_with(u"=nil")) {
      value.SetNil(kind);
    } else {
      value.FromString(WString(item.substr(sign + 1)), kind, CWhitespaceUtils::ws_none);
    }
    values.remove_prefix(std::min(item.size() + 1, values.size()));
  }
}

void ExpectWrites(const Shape& shape, const std::string& section) {
  ForEachRow("binding/write.txt", section,
             [&](const WString& values, const WString& setting, const WString& outcome) {
               const CSmartPtr<Bag> bag = NewBag(shape);
               Fill(*bag, values);
               EXPECT_EQ(Outcome([&] { return Write(*bag, ContextWith(setting)); }), outcome);
             });
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
  const CSmartPtr<Bag> bag = NewBag(shape, u"root"), child = NewBag(pseudo);
  Fill(*bag, u"0:string=1 1:string=2 7:string=own");
  Fill(*child, u"0:string=3 1:string=4");
  bag->Value(2).SetXmlObject(child);

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
  Shape plain(xgt_Sequence, xet_Element, u"T"), derived(xgt_Sequence, xet_Element, u"T");
  derived.WithBaseClasses();
  EXPECT_EQ(Write(*NewBag(plain, u"root")), u"<root/>");
  EXPECT_EQ(Write(*NewBag(derived, u"T")), u"<T/>");
  EXPECT_EQ(Write(*NewBag(derived, u"root")), u"<root xmlns:AA=\"" + kXsi + u"\" AA:type=\"T\"/>");
}

TEST(Write, GivesAttributesOfOneKindOfPseudoElementToTheEnclosingElement) {
  for (const XmlElementType type : {xet_PseudoElement, xet_PseudoElementNoAttributes}) {
    const WString start = type == xet_PseudoElement ? u"<root a=\"1\">" : u"<root>";
    Shape inner(xgt_Sequence, type, u"p"), outer(xgt_Sequence), repeated(xgt_Sequence);
    inner.Add(Attribute(u"a", 0)).Add(Prim<CElementInfoSeqPrimOpt>(u"e", 1));
    outer.Add(Cls<CElementInfoSeqClsOpt>(u"p", 0, inner, type));
    repeated.Add(new CElementInfoSeqClsCol(u"p", u"", 0, type));
    repeated.StartWithItems(0, u"p", inner);
    const CSmartPtr<Bag> bag = NewBag(outer), many = NewBag(repeated), child = NewBag(inner);
    Fill(*child, u"0:string=1 1:string=2");
    bag->Value(0).SetXmlObject(child);
    EXPECT_EQ(Write(*bag), start + u"<e>2</e></root>");
    auto* const items = static_cast<BagCol*>(many->Value(0).GetXmlCollection().Get());
    items->Add(child.Get());
    Fill(*items->Add(), u"1:string=3");
    EXPECT_EQ(Write(*many), start + u"<e>2</e><e>3</e></root>");
  }
}

TEST(Write, WritesValuesDefaultsAndNil) {
  for (const WString text : {u"", u"5", u"05"}) {
    Shape shape(xgt_All);
    shape.Add(Prim<CElementInfoAllPrimOpt>(u"a", 0, it_i4, text.c_str()));
    ExpectWrites(shape, text.empty() ? "values and defaults" : "default " + DisplayUtf8(text));
  }
  Shape enums(xgt_Sequence);
  enums.Add(Colour<CElementInfoSeqEnumMnd>(u"a", 0))
      .Add(Colour<CElementInfoSeqEnumOpt>(u"b", 1))
      .Add(Colour<CElementInfoSeqEnumOpt>(u"c", 2, u"green"));
  ExpectWrites(enums, "enumerations");
}

TEST(Write, LeavesOptionalAttributesOutOnRequest) {
  Shape shape(xgt_Sequence);
  shape.Add(Attribute(u"o", 0, true, it_i4, u"5"))
      .Add(Attribute(u"r", 1, false, it_i4, u"5"))
      .Add(new CAttributeInfoEnum(u"e", u"", 2, true, ColourToText, ColourFromText, u"red"));
  ExpectWrites(shape, "optional attributes");
}

TEST(Write, WritesANilObjectWithItsAttributesAlone) {
  Shape shape(xgt_Sequence);
  shape.Nillable().Text(2, it_string);
  shape.Add(Attribute(u"a", 0)).Add(Prim<CElementInfoSeqPrimMnd>(u"e", 1));
  const CSmartPtr<Bag> bag = NewBag(shape);
  Fill(*bag, u"0:string=1");
  dynamic_cast<INillable*>(bag.Get())->SetNil(true);
  EXPECT_EQ(Write(*bag), u"<root a=\"1\" xmlns:AA=\"" + kXsi + u"\" AA:nil=\"true\"/>");
}

TEST(Write, WritesTheFirstOfAChoiceAndRefusesAnEmptyOneUnlessItMayBeEmpty) {
  Shape optional(xgt_Choice), strict(xgt_Choice), minimum(xgt_Choice), any(xgt_Choice);
  optional.Add(Prim<CElementInfoChoicePrimOpt>(u"a", 0))
      .Add(Prim<CElementInfoChoicePrimOpt>(u"b", 1));
  ExpectWrites(optional, "choice");
  strict.Add(Prim<CElementInfoAllPrimOpt>(u"a", 0));
  minimum.Add(new CElementInfoChoiceClsCol(u"item", u"", 0, xet_Element));
  minimum.StartWithItems(0, u"item", Empty(), 1);
  any.Add(new CElementInfoChoiceClsCol(u"item", u"", 0, xet_Element));
  any.StartWithItems(0, u"item", Empty());
  ExpectWrites(strict, "choice that may not be empty");
  ExpectWrites(minimum, "choice that may not be empty");
  ExpectWrites(any, "choice of any number of items");
  ExpectWrites(strict, "lenient choice");
  // Inside an optional object of a choice it is let through.
  Shape outer(xgt_Choice);
  outer.Add(Cls<CElementInfoChoiceClsOpt>(u"in", 0, strict));
  const CSmartPtr<Bag> bag = NewBag(outer);
  bag->Value(0).SetXmlObject(NewBag(strict, u"in"));
  EXPECT_EQ(Write(*bag), u"<root><in/></root>");
}

TEST(Write, ChecksCountsOfCollections) {
  Shape shape(xgt_Sequence);
  shape.Add(new CElementInfoSeqClsCol(u"item", u"", 0, xet_Element));
  shape.StartWithItems(0, u"item", Empty(), 1, 2);
  ExpectWrites(shape, "count");
  const CSmartPtr<Bag> bag = NewBag(shape);
  static_cast<BagCol*>(bag->Value(0).GetXmlCollection().Get())->Add();
  EXPECT_EQ(Write(*bag), u"<root><item/></root>");
}

TEST(Write, WrapsFailuresAtEachLevel) {
  Shape inner(xgt_Sequence, xet_Element, u"in"), outer(xgt_Sequence), refusing(xgt_Sequence);
  inner.Add(Prim<CElementInfoSeqPrimMnd>(u"e", 0));
  outer.Add(Cls<CElementInfoSeqClsMnd>(u"in", 0, inner));
  ExpectWrites(outer, "missing object");
  outer.StartWithObject(0, u"in", inner);
  ExpectWrites(outer, "failing object");
  refusing.Add(Prim<CElementInfoSeqPrimOpt>(u"e", 0)).Refuse(0);
  ExpectWrites(refusing, "refusing getter");
  ExpectWrites(Shape(static_cast<XmlElementGroupType>(3)), "unknown group");
}
