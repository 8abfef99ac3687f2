#include "tovikxml/collections/attribute_col.h"

#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/data_rows.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;

namespace {

CSmartPtr<CAttributeCol> Attributes(const wchar* uri, const wchar* restriction) {
  return new CAttributeCol(uri, restriction, u"urn:target");
}

/// A class with a named attribute and a wildcard behind it.
class Open : public Shape {
 public:
  explicit Open(const wchar* allowed) : Shape(xgt_Sequence) {
    Add(Attribute(u"named", 0));
    Add(new CAttributeInfoAny(u"", u"", 1, true, allowed, u"urn:target", u""));
    StartWith(1,
              [allowed](TovikVariant& value) { value.SetXmlCollection(Attributes(u"", allowed)); });
  }
};

}  // namespace

TEST(AttributeCol, GivesNewAttributesTheNamespaceOfItsRestriction) {
  ForEachRow("collections/elements.txt", "new attributes",
             [](const WString& uri, const WString& restriction, const WString& result) {
               const CSmartPtr<CAttributeCol> attributes =
                   Attributes(uri.c_str(), restriction.c_str());
               EXPECT_EQ(attributes->Add(u"n", u"v")->GetNamespace(), result);
             });
}

TEST(AttributeCol, RefusesOtherNamespacesBeforeAnyChange) {
  const CSmartPtr<CAttributeCol> attributes = Attributes(u"urn:bad", u"urn:a");
  const WString message =
      u"!InvalidNamespace Invalid namespace [urn:bad]. The namespace must be one of [urn:a] where "
      u"the target "
      u"namespace is [urn:target].";
  EXPECT_EQ(Outcome([&] { attributes->Add(u"n"); }), message);
  EXPECT_EQ(Outcome([&] { attributes->Add(u"n", u"v", u"urn:bad"); }), message);
  EXPECT_EQ(attributes->GetCount(), 0);
  attributes->Add(Attributes(u"", u"##any")->Add(u"n", u"v", u"urn:bad"));
  EXPECT_EQ(attributes->Item(0)->GetNamespace(), u"urn:bad");
}

TEST(AttributeCol, ClonesDeeply) {
  const CSmartPtr<CAttributeCol> attributes = Attributes(u"urn:a", u"urn:a");
  const CSmartPtr<CAttribute> first = attributes->Add(u"n", u"v");
  const CSmartPtr<CAttributeCol> copy = attributes->Clone();
  first->SetValue(u"changed");
  EXPECT_EQ(copy->Item(0)->GetValue(), u"v");
  EXPECT_EQ(copy->Add(u"m")->GetNamespace(), u"urn:a");
  EXPECT_EQ(attributes->GetCount(), 1);
}

TEST(AttributeWildcard, TakesWhatItsNamespacesAllow) {
  const CSerializationContext context;
  const Open shape(u"##other");
  const CSmartPtr<Bag> bag = NewBag(shape);
  const WString text =
      u"<root named=\"1\" xmlns:AA=\"urn:x\" AA:b=\"2\" xmlns:AB=\"urn:y\" "
      u"AB:c=\"&lt;3\"/>";
  bag->FromXml(text.c_str(), context);
  EXPECT_EQ(bag->Value(0).GetString(), u"1");
  EXPECT_EQ(bag->Value(1).GetXmlCollection()->GetCount(), 2);
  EXPECT_EQ(bag->ToXml(false, false, EOL_LF, context), text);
  EXPECT_EQ(MessageOf<CTovikException>([&] {
              bag->FromXml(u"<root xmlns:t='urn:target' t:d='1'/>", context);
            }).substr(0, 27),
            u"Unexpected Attribute found.");
}

TEST(AttributeWildcard, NeedsAnAttributeCollectionBehindIt) {
  Shape shape(xgt_Sequence);
  shape.Add(new CAttributeInfoAny(u"", u"", 0, true, u"##any", u"", u""));
  shape.StartWithItems(0, u"item", shape);
  EXPECT_EQ(MessageOf<CTovikValidationException>(
                [&] { NewBag(shape)->FromXml(u"<root a='1'/>", CSerializationContext()); }),
            u"Failed to process the element.\nPath: /root");
}
