#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/text.h"

// Every kind of value in every place that a class can have it: element, attribute, own text and
// collection.

using namespace TovikXmlTest;

namespace {

template <class Collection>
CXmlCollectionBase* Many() {
  return new Collection(u"m", u"", 0, -1, u"", -1, -1, u"", u"", u"", u"", -1, -1, -1,
                        CWhitespaceUtils::ws_collapse, u"");
}

struct Kind {
  ItemType type;
  const wchar* text;  ///< in the form in which it is written
  const wchar* bad;   ///< null where every text is good
  CXmlCollectionBase* (*makeCollection)();
};

const Kind kKinds[] = {
    {it_hexBinary, u"00FF", u"0", Many<ChexBinaryCol>},
    {it_base64Binary, u"TWFu", nullptr, Many<Cbase64BinaryCol>},
    {it_i1, u"-128", u"128", Many<Ci1Col>},
    {it_i2, u"-32768", u"32768", Many<Ci2Col>},
    {it_i4, u"-2147483648", u"x", Many<Ci4Col>},
    {it_i8, u"-9223372036854775808", u"x", Many<Ci8Col>},
    {it_ui1, u"255", u"256", Many<Cui1Col>},
    {it_ui2, u"65535", u"65536", Many<Cui2Col>},
    {it_ui4, u"4294967295", u"x", Many<Cui4Col>},
    {it_ui8, u"18446744073709551615", u"x", Many<Cui8Col>},
    {it_r4, u"0.1", u"x", Many<Cr4Col>},
    {it_r8, u"-INF", u"x", Many<Cr8Col>},
    {it_duration, u"P1Y2M3DT4H5M6S", u"1Y", Many<CdurationCol>},
    {it_yearMonth, u"2024-02", u"2024-13", Many<CyearMonthCol>},
    {it_monthDay, u"--02-29", u"--02-30", Many<CmonthDayCol>},
    {it_year, u"2024", u"x", Many<CyearCol>},
    {it_month, u"--12", u"--13", Many<CmonthCol>},
    {it_day, u"---31", u"---32", Many<CdayCol>},
    {it_date, u"2024-02-29", u"2023-02-29", Many<CdateCol>},
    {it_datetime, u"2024-02-29T12:00:00Z", u"2024-02-29", Many<CdatetimeCol>},
    {it_time, u"12:30:00", u"25:00:00", Many<CtimeCol>},
    {it_char, u"x", u"xy", nullptr},
    {it_string, u"a b", nullptr, Many<CstringCol>},
    {it_boolean, u"true", u"yes", Many<CbooleanCol>},
    {it_decimal, u"-1.5", u"1,5", Many<CdecimalCol>},
    {it_integer, u"123456789012345678901234567890", u"1x", Many<CintegerCol>},
};

WString Document(const Kind& kind, const WString& text) {
  const WString many = kind.makeCollection ? u"<m>" + text + u"</m><m>" + text + u"</m>" : u"";
  return u"<root a=\"" + text + u"\"><e>" + text + u"</e><t>" + text + u"</t>" + many + u"</root>";
}

}  // namespace

TEST(Kinds, TravelInEveryPlace) {
  static_assert(std::size(kKinds) == it_integer, "one row for each kind");
  const CSerializationContext context;
  for (const Kind& kind : kKinds) {
    Shape own(xgt_Sequence, xet_Element, u"t"), shape(xgt_Sequence);
    own.Text(0, kind.type);
    shape.Add(Attribute(u"a", 0, false, kind.type));
    shape.Add(Prim<CElementInfoSeqPrimMnd>(u"e", 1, kind.type));
    shape.Add(Cls<CElementInfoSeqClsMnd>(u"t", 2, own)).StartWithObject(2, u"t", own);
    if (kind.makeCollection) {
      shape.Add(new CElementInfoSeqPrimCol(u"m", u"", 3));
      shape.StartWith(3,
                      [&](TovikVariant& value) { value.SetXmlCollection(kind.makeCollection()); });
    }
    const CSmartPtr<Bag> bag = NewBag(shape);
    const WString document = Document(kind, kind.text);
    // A record of single characters is refused where facets are tested.
    if (kind.type == it_char) {
      bag->FromXml(document.c_str(), context);
      EXPECT_EQ(bag->Value(1).GetChar(), u'x');
      continue;
    }
    bag->FromXml(document.c_str(), context);
    EXPECT_EQ(bag->Value(0).GetTypeAsEnum(), kind.type);
    EXPECT_EQ(bag->ToXml(false, false, EOL_LF, context), document);
    if (kind.bad) {
      EXPECT_THROW(bag->FromXml(Document(kind, kind.bad).c_str(), context), CTovikException)
          << DisplayUtf8(kind.bad);
    }
  }
}
