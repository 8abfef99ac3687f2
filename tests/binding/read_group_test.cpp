#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/text.h"

// The three group drivers and the attributes, on documents in and objects out.

using namespace TovikXmlTest;

namespace {

enum Lenience : unsigned {
  kStrict = 0,
  kUnknownElements = 1,
  kMissingElements = 2,
  kUnknownAttributes = 4,
  kMissingChoice = 8,
  kNamespaces = 16,
  kCounts = 32
};

CSerializationContext ContextFor(unsigned lenience) {
  CSerializationContext context;
  context.SetIgnoreUnknownElements(lenience & kUnknownElements);
  context.SetIgnoreMissingMandatoryElements(lenience & kMissingElements);
  context.SetIgnoreUnknownAttributes(lenience & kUnknownAttributes);
  context.SetIgnoreMissingChoice(lenience & kMissingChoice);
  context.SetIgnoreNamespaces(lenience & kNamespaces);
  context.SetIgnoreInvalidCollectionCounts(lenience & kCounts);
  return context;
}

/// What reading gives: the values of the properties that hold one, or the whole message.
std::string Read(const Shape& shape, const char* document, unsigned lenience = kStrict) {
  const CSmartPtr<Bag> bag = NewBag(shape);
  try {
    bag->FromXml(document, ContextFor(lenience));
  } catch (const CTovikException& e) {
    return e.what();
  }
  std::string values;
  for (int i = 0; i < Bag::kProperties; ++i) {
    const TovikVariant& value = bag->Value(i);
    if (value.GetXmlCollection()) {
      values += "#" + std::to_string(value.GetXmlCollection()->GetCount());
    } else if (value.GetXmlObject()) {
      values += "*";
    } else if (value.IsNil()) {
      values += "nil";
    } else if (value.IsValid()) {
      values += DisplayUtf8(value.ToString(nullptr));
    }
    values += i + 1 < Bag::kProperties ? "," : "";
  }
  values.erase(values.find_last_not_of(',') + 1);
  return values;
}

struct Row {
  const char* document;
  unsigned lenience;
  std::string outcome;
};

template <std::size_t count>
void ExpectReads(const Shape& shape, const Row (&rows)[count]) {
  for (const Row& row : rows) {
    EXPECT_EQ(Read(shape, row.document, row.lenience), row.outcome)
        << row.document << " with lenience " << row.lenience;
  }
}

std::string LeftOver(const char* child, const char* parent = "root", const char* path = "/root") {
  return std::string("Failed read all the elements held within the element [") + parent +
         "]. The unexpected element [" + child + "] remains un processed\nPath: " + path;
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
  shape.Add(Prim<CElementInfoSeqPrimMnd>(u"a", 0)).Add(Prim<CElementInfoSeqPrimOpt>(u"b", 1));
  shape.Add(Prim<CElementInfoSeqPrimMnd>(u"c", 2));
  const std::string missing = "Failed to find the required child element [c].\nPath: /root";
  ExpectReads(
      shape,
      {
          {"<root><a>1</a><b>2</b><c>3</c></root>", kStrict, "1,2,3"},
          {"<other><a>1</a><c>3</c></other>", kStrict, "1,,3"},
          {"<root><a>1</a><b>2</b></root>", kStrict, missing},
          {"<root><c>1</c></root>", kStrict,
           "Failed to find the required child element [a].\nPath: /root"},
          {"<root><a>1</a><c>3</c><b>2</b></root>", kStrict, LeftOver("b")},
          {"<root><x/><a>1</a><x/><b>2</b><x/><c>3</c><x/><x/></root>", kUnknownElements, "1,,3"},
          {"<root><x/><a>1</a><b>2</b><x/><c>3</c></root>", kUnknownElements, "1,2,3"},
          {"<root><a>1</a></root>", kUnknownElements, missing},
          {"<root><a>1</a></root>", kMissingElements, "1"},
          {"<root><c>3</c></root>", kMissingElements, ",,3"},
          {"<root><a>1</a><c>3</c><c>4</c></root>", kMissingElements, LeftOver("c")},
          {"<root><a xmlns='u'>1</a><c>3</c></root>", kNamespaces, "1,,3"},
          {"<root><A>1</A><c>3</c></root>", kNamespaces,
           "Failed to find the required child element [a].\nPath: /root"},
      });
}

TEST(ReadSequence, GoesOnWithItsLastCollectionBehindUnknownElements) {
  Shape shape(xgt_Sequence);
  shape.Add(new CElementInfoSeqClsCol(u"item", u"", 0, xet_Element));
  shape.StartWithItems(0, u"item", Item(), 1, 3);
  ExpectReads(shape, {
                         {"<root><item/><item/></root>", kStrict, "#2"},
                         {"<root><item/><x/><item/><x/></root>", kUnknownElements, "#2"},
                         {"<root><item/><x/></root>", kStrict, LeftOver("x")},
                         {"<root/>", kStrict,
                          "Failed to process the element.\nPath: /root\n"
                          "The Minimum number of [item] elements allowed in this collection is 1"},
                         {"<root/>", kCounts, "#0"},
                         {"<root><item/><item/><item/><item/></root>", kStrict,
                          "Failed to process the element.\nPath: /root\n"
                          "The Maximum number of [item] elements allowed in this collection is 3"},
                     });
}

TEST(ReadAll, TakesAnyOrderOnce) {
  Shape shape(xgt_All);
  shape.Add(Prim<CElementInfoAllPrimMnd>(u"a", 0)).Add(Colour<CElementInfoAllEnumMnd>(u"b", 1));
  shape.Add(Prim<CElementInfoAllPrimOpt>(u"c", 2));
  const std::string missing =
      "Failed to process the element.\nPath: /root\nFailed to find the mandatory element [a].";
  ExpectReads(shape, {
                         {"<root><c>3</c><b>green</b><a>1</a></root>", kStrict, "1,1,3"},
                         {"<root><a>1</a><b>red</b></root>", kStrict, "1,0"},
                         {"<root><b>red</b></root>", kStrict, missing},
                         {"<root/>", kMissingElements, missing},
                         {"<root><a>1</a><b>red</b><a>2</a></root>", kStrict, LeftOver("a")},
                         {"<root><a>1</a><b>red</b><x/><c>3</c></root>", kUnknownElements, "1,0"},
                         {"<root><a>1</a><x/><b>red</b></root>", kUnknownElements,
                          "Failed to process the element.\nPath: /root\nFailed to find the "
                          "mandatory element [b]."},
                     });
}

TEST(ReadAll, FailsAtTheEndWithACollectionInItsTable) {
  Shape shape(xgt_All);
  shape.Add(new CElementInfoAllClsCol(u"item", u"", 0, xet_Element));
  shape.StartWithItems(0, u"item", Item());
  EXPECT_EQ(Read(shape, "<root><item/></root>"),
            "Failed to process the element.\nPath: /root\nNot implemented, should never be called");
}

TEST(ReadChoice, TakesOneChild) {
  Shape shape(xgt_Choice);
  shape.Add(Prim<CElementInfoChoicePrimOpt>(u"a", 0))
      .Add(Colour<CElementInfoChoiceEnumOpt>(u"b", 1));
  shape.Add(new CElementInfoChoiceClsCol(u"item", u"", 2, xet_Element));
  shape.StartWithItems(2, u"item", Item(), 1, 2);
  ExpectReads(shape, {
                         {"<root><a>1</a></root>", kStrict, "1,,#0"},
                         {"<root><b>green</b></root>", kStrict, ",1,#0"},
                         {"<root><item/><item/></root>", kStrict, ",,#2"},
                         {"<root/>", kStrict, ",,#0"},
                         {"<root><a>1</a><b>green</b></root>", kStrict, LeftOver("b")},
                         {"<root><x/></root>", kStrict, LeftOver("x")},
                         {"<root><x/><x/><b>red</b><a>1</a></root>", kUnknownElements, ",0,#0"},
                         {"<root><item/><item/><item/></root>", kStrict,
                          "Failed to process the element.\nPath: /root\n"
                          "The Maximum number of [item] elements allowed in this collection is 2"},
                     });
}

TEST(ReadChoice, DemandsAChildWhereNoneIsOptional) {
  Shape shape(xgt_Choice), outer(xgt_Choice);
  shape.Add(Prim<CElementInfoAllPrimOpt>(u"a", 0));
  const std::string none =
      "No child elements within the element [root] were populated. The element represents a "
      "choice, so one and only one element should be populated. The element contained no sutable "
      "child elements\nPath: /root";
  ExpectReads(shape, {
                         {"<root><a>1</a></root>", kStrict, "1"},
                         {"<root/>", kStrict, none},
                         {"<root><x/></root>", kStrict, none},
                         {"<root><x/></root>", kUnknownElements, none},
                         {"<root/>", kMissingChoice, ""},
                         {"<root><x/></root>", kMissingChoice, LeftOver("x")},
                     });
  outer.Add(Cls<CElementInfoChoiceClsOpt>(u"in", 0, shape));
  EXPECT_EQ(Read(outer, "<root><in/></root>"), "*");
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
    shape.Add(Cls<CElementInfoSeqClsOpt>(u"s", 0, sequence, type));
    shape.Add(Cls<CElementInfoSeqClsOpt>(u"c", 1, choice, type));
    shape.Add(Cls<CElementInfoSeqClsOpt>(u"l", 2, all, type));
    shape.Add(Prim<CElementInfoSeqPrimOpt>(u"z", 3));
    ExpectReads(shape,
                {
                    {"<root><a>1</a><b>red</b><e/><g/><f/><z>9</z></root>", kStrict, "*,*,*,9"},
                    {"<root><z>9</z></root>", kStrict, ",,,9"},
                    {"<root><a>1</a><z>9</z></root>", kStrict, LeftOver("a")},
                    {"<root><a>1</a><x/><b>red</b></root>", kStrict, LeftOver("a")},
                    {"<root><d/><e/></root>", kStrict, LeftOver("e")},
                    {"<root><g/><z>9</z></root>", kStrict, LeftOver("g")},
                    {"<root><f/><g/><z>9</z></root>", kStrict, ",,*,9"},
                });
  }
}

TEST(ReadPseudo, MayHaveToTakeSomething) {
  Shape sequence(xgt_Sequence, xet_PseudoElement, u"s"), shape(xgt_Sequence), lax(xgt_Sequence);
  sequence.Add(Prim<CElementInfoSeqPrimOpt>(u"a", 0));
  shape.Add(new CElementInfoSeqClsMnd(u"s", u"", 0, xet_PseudoElement, MakeBag, 0, true));
  shape.Add(Prim<CElementInfoSeqPrimOpt>(u"z", 1)).StartWithObject(0, u"s", sequence);
  const std::string missing = "Failed to find the required child element [s].\nPath: /root";
  ExpectReads(shape, {{"<root><a/><z>9</z></root>", kStrict, "*,9"},
                      {"<root><z>9</z></root>", kStrict, missing},
                      {"<root/>", kStrict, missing}});
  lax.Add(new CElementInfoSeqClsMnd(u"s", u"", 0, xet_PseudoElement, MakeBag, 0, false));
  lax.Add(Prim<CElementInfoSeqPrimOpt>(u"z", 1)).StartWithObject(0, u"s", sequence);
  ExpectReads(lax, {{"<root><z>9</z></root>", kStrict, "*,9"},
                    {"<root/>", kStrict, "*"},
                    {"<root><x/><a>1</a><z>9</z></root>", kUnknownElements, "*,9"}});
}

TEST(ReadAttributes, OffersThemToRecordsInOrder) {
  Shape shape(xgt_Sequence), open(xgt_Sequence);
  shape.Add(Attribute(u"a", 0, false)).Add(Attribute(u"a", 1)).Add(Attribute(u"b", 2, true, it_i4));
  shape.Add(new CAttributeInfoEnum(u"e", u"", 3, true, ColourToText, ColourFromText, u""));
  shape.Add(Attribute(u"l", 4, true, it_string, u"", u"urn:l"));
  const std::string unexpected = "Unexpected Attribute found.\nPath: /root/@";
  ExpectReads(shape,
              {
                  {"<root a=' x  y '/>", kStrict, "x y"},
                  {"<root a='1' b=' 2 ' e='green' xmlns:l='urn:l' l:l='4'/>", kStrict, "1,,2,1,4"},
                  {"<root b='2'/>", kStrict,
                   "Failed to process the element.\nPath: /root\n"
                   "Failed to find the required Attribute [a]."},
                  {"<root a='1' z='2'/>", kStrict, unexpected + "z"},
                  {"<root a='1' xmlns:p='u' p:b='2'/>", kStrict, unexpected + "p:b"},
                  {"<root a='1' z='2'/>", kUnknownAttributes, "1"},
                  {"<root a='1' xmlns:p='u' p:b='2'/>", kNamespaces, unexpected + "p:b"},
                  {"<root a='1' xmlns:p='u' p:e='red'/>", kNamespaces, "1,,,0"},
                  {"<root a='1' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:type='t' "
                   "i:schemaLocation='s'/>",
                   kStrict, "1"},
                  {"<root a='1' b='x'/>", kStrict,
                   "Failed to process the element.\nPath: /root\nThe value [x] can not be "
                   "converted to a i4"},
                  {"<root a='1' e='blue'/>", kStrict,
                   "Failed to process the element.\nPath: /root\nno colour [blue]"},
              });
  open.LetUnknownAttributesThrough();
  EXPECT_EQ(Read(open, "<root z='2'/>"), "");
}

TEST(ReadNil, EndsAnObjectAtItsAttributes) {
  Shape shape(xgt_Sequence), plain(xgt_Sequence);
  shape.Nillable().Add(Prim<CElementInfoSeqPrimMnd>(u"e", 0)).Add(Attribute(u"a", 1));
  const std::string xsi = "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'";
  const auto read = [&](const Shape& target, const std::string& attributes) {
    return Read(target, ("<root " + xsi + " " + attributes + "><e>5</e></root>").c_str());
  };
  EXPECT_EQ(read(shape, "xsi:nil='TRUE' a='1'"), ",1");
  EXPECT_EQ(read(shape, "xsi:nil='1'"), "");
  EXPECT_EQ(read(shape, "xsi:nil='False'"), "5");
  EXPECT_EQ(read(shape, "xsi:nil='0'"), "5");
  EXPECT_EQ(read(shape, "xsi:nil='maybe'"),
            "Unexpected Value [maybe] for 'nil' Attribute found.\nPath: /root/@xsi:nil");
  EXPECT_EQ(read(plain, "xsi:nil='false'"),
            "Invalid use of 'nil' attribute in non-nillable element.\nPath: /root");
}

TEST(ReadOwnText, ConvertsOrKeepsText) {
  Shape number(xgt_Sequence), text(xgt_Sequence);
  number.Text(0, it_i4);
  text.Text(0, it_i4, true);
  EXPECT_EQ(Read(number, "<root>42</root>"), "42");
  EXPECT_EQ(Read(number, "<root>4x</root>"),
            "Failed to process the element.\nPath: /root\n"
            "The value [4x] can not be converted to a i4");
  EXPECT_EQ(Read(text, "<root>4x</root>"), "4x");
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
  Shape elements(xgt_Sequence), attributes(xgt_Sequence),
      unknown(static_cast<XmlElementGroupType>(9));
  elements.Add(Prim<CElementInfoSeqPrimOpt>(u"a", 0)).Refuse(0);
  attributes.Add(Attribute(u"a", 0)).Refuse(0);
  EXPECT_EQ(Read(elements, "<root><a>1</a></root>"),
            "Failed to set the property value.\nPath: /root/a\nrefused");
  EXPECT_EQ(Read(attributes, "<root a='1'/>"),
            "Failed to set the property value [1].\nPath: /root/@a\nrefused");
  EXPECT_EQ(Read(unknown, "<root/>"),
            "Failed to process the element.\nPath: /root\nUnknown Group Type");
}
