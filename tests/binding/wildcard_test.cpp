#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/small_stack.h"
#include "tests/support/text.h"

// What wildcards carry through the formats.

using namespace TovikXmlTest;

namespace {

constexpr const wchar* kTarget = u"urn:t";

CElement* Foreign(Bag& bag, int property) {
  return static_cast<CElement*>(bag.Value(property).GetXmlObject().Get());
}

/// An envelope in urn:t: a note of another namespace, then any number of elements, any attributes.
const Shape& Envelope() {
  static Shape shape(xgt_Sequence, xet_Element, u"envelope", kTarget);
  static const bool built =
      (shape.Add(new CElementInfoSeqUntpdOpt(u"note", kTarget, 0, u"##other", kTarget))
           .Add(new CElementInfoSeqUntpdCol(u"AnyElement", kTarget, 1))
           .Add(new CAttributeInfoAny(u"", u"", 2, true, u"##any", kTarget, u""))
           .StartWith(1,
                      [](TovikVariant& value) {
                        value.SetXmlCollection(new CElementCol(u"", u"##any", kTarget, 0, 3));
                      })
           .StartWith(2,
                      [](TovikVariant& value) {
                        value.SetXmlCollection(new CAttributeCol(u"", u"##any", kTarget));
                      }),
       true);
  (void)built;
  return shape;
}

const WString kLetter =
    u"<t:envelope xmlns:f=\"urn:f\" xmlns:g=\"urn:g\" xmlns:t=\"urn:t\" f:id=\"7\">"
    u"<f:note g:lang=\"en\" at=\"&lt;&amp;&quot;\"><f:p>one</f:p><f:p/><g:q><r/></g:q>tail</f:note>"
    u"<t:open>\u00e9\U0001F600</t:open><g:a g:n=\"\"/><g:a>2</g:a></t:envelope>";

CSerializationContext WithAliases() {
  CSerializationContext context;
  for (const wchar* letter : {u"f", u"g", u"t"}) {
    context.GetNamespaceAliases().Add(letter, (WString(u"urn:") + letter).c_str());
  }
  return context;
}

}  // namespace

// A record is given the namespace of the class, and the content it makes takes it over.
TEST(Wildcard, GivesTheNamespaceOfTheClassToNewContent) {
  Shape shape(xgt_Sequence, xet_Element, u"root", u"urn:class");
  shape.Add(new CElementInfoSeqUntpdOpt(u"AnyElement", u"urn:record", 0, u"##any", kTarget));
  const CSmartPtr<Bag> bag = NewBag(shape);
  bag->FromXml(u"<root xmlns='urn:class'><a xmlns='urn:u'/></root>", CSerializationContext());
  EXPECT_EQ(Foreign(*bag, 0)->GetNamespace(), u"urn:u");
  EXPECT_EQ(Foreign(*bag, 0)->GetAttributes()->Add(u"i")->GetNamespace(), u"urn:class");
}

TEST(Wildcard, GivesBackForeignContent) {
  const CSerializationContext context = WithAliases();
  const CSmartPtr<Bag> bag = NewBag(Envelope());
  bag->FromXml(kLetter.c_str(), context);
  EXPECT_EQ(Foreign(*bag, 0)->GetText(), u"tail");
  EXPECT_EQ(bag->Value(1).GetXmlCollection()->GetCount(), 3);
  const auto written = [&] { return bag->ToXml(false, false, EOL_LF, context); };
  ASSERT_EQ(written(), kLetter);
  // JSON declares prefixes on the root alone.
  EXPECT_THROW(bag->ToJson(false, EOL_LF, CSerializationContext()), CTovikValidationException);
}

TEST(Wildcard, RefusesWhatItMayNotHold) {
  const CSmartPtr<Bag> bag = NewBag(Envelope());
  for (const WString note : {u"<b/>", u"<note/><note xmlns='urn:t'><note/></note>"}) {
    const WString xml = u"<envelope xmlns:t='urn:t'>" + note + u"<b/><b/><b/></envelope>";
    EXPECT_EQ(Outcome([&] { bag->FromXml(xml.c_str(), CSerializationContext()); }),
              u"!Validation Failed to process the element.\nPath: /envelope\n"
              u"The Maximum number of [] elements allowed in this collection is 3");
  }
  // A property of another kind behind a fixed name.
  Shape shape(xgt_Sequence);
  shape.Add(new CElementInfoSeqUntpdCol(u"a", u"", 0)).StartWithItems(0, u"a", shape);
  EXPECT_THROW(NewBag(shape)->FromXml(u"<root><a/></root>", CSerializationContext()),
               CTovikValidationException);
  // A mandatory property without an object.
  Shape bare(xgt_Sequence);
  bare.Add(new CElementInfoSeqUntpdMnd(u"AnyElement", u"", 0, u"##other", kTarget));
  EXPECT_THROW(NewBag(bare)->FromXml(u"<root><a/></root>", CSerializationContext()),
               CTovikValidationException);
  EXPECT_THROW(NewBag(bare)->ToXml(false, false, EOL_LF, CSerializationContext()),
               CTovikValidationException);
}

TEST(Wildcard, KeepsToTheNestingLimit) {
  RunOnSmallStack([] {
    const auto letter = [](int levels) {
      WString text = u"<t:envelope xmlns:t=\"urn:t\">";
      for (int i = 1; i < levels; ++i) text += u"<e>";
      for (int i = 1; i < levels; ++i) text += u"</e>";
      return text + u"</t:envelope>";
    };
    const CSerializationContext context;
    const CSmartPtr<Bag> bag = NewBag(Envelope());
    bag->FromXml(letter(256).c_str(), context);
    bag->FromXmlStream(bag->ToFastInfosetStream(fid_None, context, Compression_None), context);
    CSerializationContext alias;
    alias.GetNamespaceAliases().Add(u"t", u"urn:t");
    EXPECT_EQ(bag->ToXml(false, false, EOL_LF, alias).size(), letter(256).size() - 3);
    for (const int levels : {257, 100000}) {
      EXPECT_THROW(bag->FromXml(letter(levels).c_str(), context), CTovikException);
    }
  });
}
