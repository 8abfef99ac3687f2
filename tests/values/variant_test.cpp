#include "tovikxml/values/variant.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include "tests/support/bag.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;
using W = CWhitespaceUtils;

namespace {

int g_alive = 0;

const Shape& Empty() {
  static const Shape shape(xgt_Sequence);
  return shape;
}

class Counted : public Bag {
 public:
  Counted() : Bag(Empty()) { ++g_alive; }

 protected:
  ~Counted() override { --g_alive; }
};

CBinaryData Bytes() {
  CBinaryData data;
  data.SetAsHexString(u"4D616E");
  return data;
}

CDateTime Date(const WString& text) {
  return CConversions::dateFromString(text, W::ws_none);
}

CDateTime Time(const WString& text) {
  return CConversions::timeFromString(text, W::ws_none);
}

// Long enough to be allocated, so that a sanitizer sees a text that is lost or freed twice.
const WString kLong = u"a text that no small buffer holds";
const WString kDigits(60, u'7');

struct KindRow {
  ItemType kind;
  const wchar* name;
  WString text;  // a lexical form that is written as it is read
  std::function<void(TovikVariant&)> set;
  std::function<bool(const TovikVariant&)> has;
};

template <class Set, class Get, class T>
KindRow Row(ItemType kind, const wchar* name, const WString& text, Set set, Get get, T value) {
  return {kind, name, text, [=](TovikVariant& v) { (v.*set)(value); },
          [=](const TovikVariant& v) { return (v.*get)() == value; }};
}

const std::vector<KindRow>& Kinds() {
  using V = TovikVariant;
  static const std::vector<KindRow> kRows = {
      Row(it_i1, u"i1", u"-128", &V::SetI1, &V::GetI1, std::int8_t{-128}),
      Row(it_i2, u"i2", u"-300", &V::SetI2, &V::GetI2, std::int16_t{-300}),
      Row(it_i4, u"i4", u"-70000", &V::SetI4, &V::GetI4, -70000),
      Row(it_i8, u"i8", u"-5000000000", &V::SetI8, &V::GetI8, std::int64_t{-5000000000}),
      Row(it_ui1, u"ui1", u"255", &V::SetUI1, &V::GetUI1, std::uint8_t{255}),
      Row(it_ui2, u"ui2", u"65535", &V::SetUI2, &V::GetUI2, std::uint16_t{65535}),
      Row(it_ui4, u"ui4", u"4294967295", &V::SetUI4, &V::GetUI4, 4294967295u),
      Row(it_ui8, u"ui8", u"18446744073709551615", &V::SetUI8, &V::GetUI8, ~std::uint64_t{0}),
      Row(it_r4, u"r4", u"0.1", &V::SetR4, &V::GetR4, 0.1f),
      Row(it_r8, u"r8", u"-0.1", &V::SetR8, &V::GetR8, -0.1),
      Row(it_char, u"char", u"\u4e16", &V::SetChar, &V::GetChar, u'\u4e16'),
      Row(it_string, u"string", kLong, &V::SetString, &V::GetString, kLong),
      Row(it_boolean, u"boolean", u"true", &V::SetBoolean, &V::GetBoolean, true),
      Row(it_hexBinary, u"hexBinary", u"4D616E", &V::SetHexBinary, &V::GetHexBinary, Bytes()),
      Row(it_base64Binary, u"base64Binary", u"TWFu", &V::SetBase64Binary, &V::GetBase64Binary,
          Bytes()),
      Row(it_decimal, u"decimal", u"-12.05", &V::SetDecimal, &V::GetDecimal, CDecimal(u"-12.05")),
      Row(it_integer, u"integer", u"-" + kDigits, &V::SetInteger, &V::GetInteger,
          CBigInteger(kDigits.c_str()).GetNegative()),
      Row(it_duration, u"duration", u"P1YT2M", &V::SetDuration, &V::GetDuration,
          CDateTimeSpan(1, 0, 0, 0, 2, 0)),
      Row(it_yearMonth, u"yearMonth", u"2000-05", &V::SetYearMonth, &V::GetYearMonth,
          Date(u"2000-05")),
      Row(it_monthDay, u"monthDay", u"--02-29", &V::SetMonthDay, &V::GetMonthDay, Date(u"--02-29")),
      Row(it_year, u"year", u"2000", &V::SetYear, &V::GetYear, std::uint16_t{2000}),
      Row(it_month, u"month", u"--03", &V::SetMonth, &V::GetMonth, std::uint8_t{3}),
      Row(it_day, u"day", u"---09", &V::SetDay, &V::GetDay, std::uint8_t{9}),
      Row(it_date, u"date", u"2000-05-06Z", &V::SetDate, &V::GetDate, Date(u"2000-05-06Z")),
      Row(it_datetime, u"datetime", u"2000-05-06T07:08:09.5", &V::SetDateTime, &V::GetDateTime,
          CDateTime(2000, 5, 6, 7, 8, 9, 500, 0, 0)),
      Row(it_time, u"time", u"07:08:09-05:00", &V::SetTime, &V::GetTime, Time(u"07:08:09-05:00")),
  };
  return kRows;
}

void ExpectHolds(const TovikVariant& value, const KindRow& row) {
  SCOPED_TRACE(DisplayUtf8(row.name));
  EXPECT_TRUE(value.IsValid());
  EXPECT_FALSE(value.IsNil());
  EXPECT_EQ(value.GetTypeAsEnum(), row.kind);
  EXPECT_EQ(value.GetType(), row.name);
  EXPECT_TRUE(row.has(value));
  EXPECT_EQ(value.ToString(nullptr), row.text);
  WString scratch = u"left over";
  EXPECT_EQ(value.GetText(u"", scratch), row.text);
}

}  // namespace

TEST(Variant, EachKindReplacesEachOtherInEveryWay) {
  for (const KindRow& before : Kinds()) {
    for (const KindRow& row : Kinds()) {
      TovikVariant source, value;
      row.set(source);
      before.set(value);
      row.set(value);
      ExpectHolds(value, row);
      before.set(value);
      value.FromString(row.text, row.kind, W::ws_collapse);
      ExpectHolds(value, row);
      before.set(value);
      value = source;
      ExpectHolds(value, row);
      auto& same = value;
      value = same;
      value = std::move(same);
      ExpectHolds(TovikVariant(value), row);
      before.set(value);
      value = std::move(source);
      const TovikVariant moved(std::move(value));
      ExpectHolds(moved, row);
      EXPECT_FALSE(value.IsValid());
    }
  }
}

TEST(Variant, NilKeepsTheKindAndHoldsNothing) {
  for (const KindRow& row : Kinds()) {
    SCOPED_TRACE(DisplayUtf8(row.name));
    TovikVariant value;
    row.set(value);
    value.SetNil();
    const TovikVariant copy(value);
    EXPECT_TRUE(copy.IsNil() && copy.IsValid());
    EXPECT_EQ(copy.GetTypeAsEnum(), row.kind);
    EXPECT_EQ(copy.GetI8(), 0);
    row.set(value);
    ExpectHolds(value, row);
    value = copy;
    EXPECT_TRUE(value.IsNil());
    value.Clear();
    EXPECT_FALSE(value.IsValid() || value.IsNil());
  }
  TovikVariant fresh;
  fresh.SetNil();
  EXPECT_TRUE(fresh.IsValid());
  EXPECT_EQ(fresh.GetTypeAsEnum(), it_invalid);
  fresh.SetInvalid();
  EXPECT_FALSE(fresh.IsValid());
}

TEST(Variant, OwnedKindsHaveNoValueWhenNilOrOfAnotherClass) {
  const WString start = u"!InvalidState The variant holds no value of the type ";
  TovikVariant value, other;
  WString scratch;
  int owned = 0;
  other.SetI4(1);
  for (const KindRow& row : Kinds()) {
    value.SetNil(row.kind);
    if (Outcome([&] { row.has(value); }).empty()) continue;  // held in the variant itself
    ++owned;
    for (const TovikVariant& none : {value, other}) {
      EXPECT_EQ(Outcome([&] { row.has(none); }), start + row.name);
    }
    EXPECT_EQ(Outcome([&] { value.ToString(nullptr); }), start + row.name);
    EXPECT_EQ(Outcome([&] { value.GetText(nullptr, scratch); }), start + row.name);
  }
  EXPECT_EQ(owned, 11);
  EXPECT_EQ(Outcome([&] { other.TakeString(); }), start + u"string");
  EXPECT_EQ(other.GetXmlObject().Get(), nullptr);
  EXPECT_EQ(other.GetXmlCollection().Get(), nullptr);
  value.SetNil(it_string);
  EXPECT_EQ(Outcome([&] { value.GetString(); }), start + u"string");
  value.SetHexBinary(Bytes());
  EXPECT_EQ(value.GetBase64Binary(), Bytes());
  value.SetDate(Time(u"07:08:09"));
  EXPECT_EQ(value.GetType(), u"date");
  EXPECT_EQ(value.GetTime().ToString(), u"07:08:09");
}

TEST(Variant, TextIsTakenOrSeenWithoutACopy) {
  TovikVariant value;
  value.SetString(kLong);
  WString scratch = u"kept";
  const wchar* const units = value.GetText(nullptr, scratch).data();
  EXPECT_EQ(scratch, u"kept");
  const WString taken = value.TakeString();
  EXPECT_EQ(taken.data(), units);
  EXPECT_EQ(value.GetString(), u"");
  EXPECT_EQ(value.GetTypeAsEnum(), it_string);
  value.SetI8(std::numeric_limits<std::int64_t>::min());
  scratch = kLong;
  const wchar* const room = scratch.data();
  EXPECT_EQ(value.GetText(nullptr, scratch), u"-9223372036854775808");
  EXPECT_EQ(scratch.data(), room);
}

TEST(Variant, OnlyRealsAndDecimalsHeedTheFormat) {
  TovikVariant value;
  value.SetR8(2.5);
  EXPECT_EQ(value.ToString(u"%.2f"), u"2.50");
  value.SetR4(2.5f);
  EXPECT_EQ(value.ToString(u"%.2f"), u"2.50");
  value.SetDecimal(CDecimal(u"2.555"));
  EXPECT_EQ(value.ToString(u"2"), u"2.56");
  EXPECT_EQ(value.ToString(u"%.2f"), u"3.");
  for (const KindRow& row : Kinds()) {
    if (row.kind == it_r4 || row.kind == it_r8 || row.kind == it_decimal) continue;
    row.set(value);
    EXPECT_EQ(value.ToString(u"%.2f"), row.text);
  }
}

TEST(Variant, KindsWithoutATextAreRefused) {
  TovikVariant rows[3];
  rows[1].SetXmlObject(nullptr);
  rows[2].SetXmlCollection(nullptr);
  for (const TovikVariant& value : rows) {
    const WString start = u"!Exception Invalid Type " + NumberText(int{value.GetTypeAsEnum()});
    EXPECT_EQ(Outcome([&] { value.GetType(); }), start);
    EXPECT_EQ(Outcome([&] { value.ToString(nullptr); }), start + u" to convert to string");
  }
  for (const int kind : {0, 27, 28, 29, 31}) {
    EXPECT_EQ(Outcome([&] { rows[0].FromString(u"1", static_cast<ItemType>(kind), W::ws_none); }),
              u"!Exception Invalid Type " + NumberText(kind) + u" to convert to string");
  }
}

TEST(Variant, AFailedReadLeavesTheValue) {
  TovikVariant value;
  value.SetString(kLong);
  EXPECT_THROW(value.FromString(u"x", it_i4, W::ws_none), CTovikInvalidValueException);
  EXPECT_THROW(value.FromString(u"0G", it_hexBinary, W::ws_none), CTovikException);
  EXPECT_EQ(value.GetString(), kLong);
}

TEST(Variant, ReferencesAreCountedByEachVariant) {
  {
    TovikVariant first;
    first.SetXmlObject(new Counted);
    TovikVariant second(first);
    TovikVariant third;
    third.SetString(kLong);
    third = second;
    second.SetXmlObject(first.GetXmlObject());
    second.Clear();
    first = std::move(third);
    EXPECT_EQ(g_alive, 1);
    EXPECT_EQ(first.GetXmlObject()->AddRef(), 3);  // the variant, the pointer at work, this one
    EXPECT_EQ(first.GetXmlObject()->Release(), 2);
    EXPECT_EQ(first.GetXmlCollection().Get(), nullptr);
    first.SetXmlCollection(new BagCol(u"item", Empty(), 0, -1));
    EXPECT_EQ(g_alive, 0);
    EXPECT_EQ(first.GetXmlCollection()->GetCount(), 0);
    EXPECT_NE(first.GetXmlObject().Get(), nullptr);
    second.SetXmlObject(first.GetXmlCollection());
    EXPECT_EQ(second.GetXmlCollection().Get(), first.GetXmlCollection().Get());
    second.SetNil();
    EXPECT_EQ(second.GetXmlObject().Get(), nullptr);
  }
  EXPECT_EQ(g_alive, 0);
}

TEST(Variant, AssignmentSurvivesASourceInsideTheOldValue) {
  for (const bool move : {false, true}) {
    auto* const object = new Counted;
    object->Value(0).SetString(kLong);
    TovikVariant holder;
    holder.SetXmlObject(object);
    if (move) {
      holder = std::move(object->Value(0));
    } else {
      holder = object->Value(0);
    }
    EXPECT_EQ(holder.GetString(), kLong);
    EXPECT_EQ(g_alive, 0);
  }
}
