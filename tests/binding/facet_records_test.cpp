#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/text.h"

// Facets as records see them: tested on writing, and on reading where a setter asks for it.

using namespace TovikXmlTest;

namespace {

const CPrimitiveRestrictions kAtMostTen(u"", -1, -1, u"", u"10", u"", u"", -1, -1, -1);
const CPrimitiveRestrictions kCapitals(u"[A-Z]+", -1, 3, u"", u"", u"", u"", -1, -1, -1);

/// <root code="ABC"><n>10</n></root>
const Shape& Checked() {
  static Shape shape(xgt_Sequence);
  static const bool built = [] {
    shape.Add(new CElementInfoSeqPrimMnd(u"n", u"", 0, true, it_i4, u"",
                                         CWhitespaceUtils::ws_collapse, kAtMostTen, u""));
    shape.Add(new CAttributeInfoPrimitive(u"code", u"", 1, true, it_string, u"",
                                          CWhitespaceUtils::ws_collapse, kCapitals, u""));
    return true;
  }();
  (void)built;
  return shape;
}

/// Its setters let no value in that does not meet the facets.
class CarefulBag : public Bag {
 public:
  using Bag::Bag;

 protected:
  void AccessProperty(int propertyIndex, bool read, TovikVariant& value) override {
    if (!read && !value.IsNil()) Check(propertyIndex, value);
    Bag::AccessProperty(propertyIndex, read, value);
  }

 private:
  void Check(int propertyIndex, const TovikVariant& value) const {
    if (propertyIndex == 0) {
      GetClassElementInfo()[0]->CheckRestriction(value);
    } else {
      static_cast<CAttributeInfoPrimitive*>(GetClassAttributeInfo()[0])->CheckRestriction(value);
    }
  }
};

}  // namespace

TEST(FacetRecords, RefuseAValueOnWriting) {
  const CSerializationContext context;
  const auto bag = NewBag(Checked());
  const auto write = [&] { return bag->ToXml(false, false, EOL_LF, context); };
  bag->FromXml(u"<root code='abc'><n>10</n></root>", context);
  EXPECT_EQ(Outcome(write),
            u"!Validation Failed to convert the element [root] to XML\n"
            u"Failed to convert attributes to XML\nInvalid Value for code [abc].");
  bag->Value(1).SetString(u"ABC");
  EXPECT_EQ(write(), u"<root code=\"ABC\"><n>10</n></root>");
  bag->Value(0).SetI4(11);
  EXPECT_EQ(Outcome(write),
            u"!Validation Failed to convert the element [root] to XML\nInvalid Value for n [11]");
  bag->Value(0).SetNil();
  EXPECT_NE(write().find(u"nil"), WString::npos);
}

TEST(FacetRecords, RefuseAValueOnReadingThroughACarefulSetter) {
  const CSmartPtr<Bag> bag(new CarefulBag(Checked()));
  const auto read = [&](const wchar* xml) {
    return Outcome([&] { bag->FromXml(xml, CSerializationContext()); });
  };
  EXPECT_EQ(read(u"<root code='ABC'><n>10</n></root>"), u"");
  EXPECT_EQ(read(u"<root><n>11</n></root>"),
            u"!Exception Failed to set the property value.\nPath: /root/n\n"
            u"Invalid Value for n [11]");
  EXPECT_EQ(read(u"<root code='ABCD'><n>1</n></root>"),
            u"!Exception Failed to set the property value [ABCD].\nPath: /root/@code\n"
            u"Invalid Value for code [ABCD].");
  EXPECT_FALSE(bag->Value(1).IsValid());
}

TEST(FacetRecords, RefuseToCheckWhatIsNotPrimitive) {
  Shape shape(xgt_Sequence);
  CElementInfo* const record = Colour<CElementInfoSeqEnumOpt>(u"c", 0);
  shape.Add(record);
  TovikVariant value;
  value.SetI4(1);
  EXPECT_EQ(Outcome([&] { record->CheckRestriction(value); }),
            u"!Exception Cannot CheckRestriction for type: i4");
}
