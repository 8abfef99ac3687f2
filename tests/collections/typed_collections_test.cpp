#include "tovikxml/collections/typed_collections.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/collections/listener.h"
#include "tests/support/bag.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;

namespace {

struct Settings {
  int minOccurs = 0;
  int maxOccurs = -1;
  const wchar* pattern = u"";
  long maxLength = -1;
  const wchar* maxExclusive = u"";
  CWhitespaceUtils::WhitespaceRule rule = CWhitespaceUtils::ws_collapse;
  const wchar* format = u"";
};

/// A collection of elements <v> of the namespace "urn:v".
template <class Col>
CSmartPtr<Col> Make(const Settings& s = {}) {
  return new Col(u"v", u"urn:v", s.minOccurs, s.maxOccurs, s.pattern, -1, s.maxLength, u"", u"",
                 u"", s.maxExclusive, -1, -1, -1, s.rule, s.format);
}

template <class Col, class... Values>
CSmartPtr<Col> Filled(const Values&... values) {
  CSmartPtr<Col> items = Make<Col>();
  (items->Add(values), ...);
  return items;
}

/// A class with nothing but the collection.
class Holder {
 public:
  explicit Holder(CSmartPtr<CXmlCollectionBase> items) {
    m_shape.Add(new CElementInfoSeqPrimCol(u"v", u"urn:v", 0));
    m_shape.StartWith(0, [items](TovikVariant& value) { value.SetXmlCollection(items); });
    m_bag = NewBag(m_shape);
    m_context.SetDefaultNamespaceURI(u"urn:v");
    m_context.GetJsonContext().SetSupportRoundtrip(jrt_Bare);
    m_context.GetFIContext().SetSuggestedValues();
  }

  void Read(const WString& elements) { m_bag->FromXml(Document(elements).c_str(), m_context); }
  void ExpectWritten(const WString& elements) const {
    EXPECT_EQ(m_bag->ToXml(false, false, EOL_LF, m_context), Document(elements));
  }
  WString Json() const { return m_bag->ToJson(false, EOL_LF, m_context); }
  WString PackedHex() const {
    return m_bag->ToFastInfosetStream(fid_None, m_context, Compression_None).GetAsHexString();
  }

 private:
  static WString Document(const WString& elements) {
    const WString start = u"<root xmlns=\"urn:v\"";
    return start + (elements.empty() ? u"/>" : u">" + elements + u"</root>");
  }

  Shape m_shape{xgt_Sequence, xet_Element, u"root", u"urn:v"};
  CSerializationContext m_context;
  CSmartPtr<Bag> m_bag;
};

/// Remembers the value of the last event that had one, which is the same at both events of it.
template <class T>
class ValueListener : public Listener {
 public:
  void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) override {
    Listener::OnEvent(sender, type, data);
    if (!data || type == CollectionRemove || type == CollectionRemoveComplete) return;
    EXPECT_TRUE(type == CollectionAdd || data == m_pointer);
    m_pointer = data;
    m_value = *static_cast<const T*>(data);
  }
  const T& Value() const { return m_value; }

 private:
  void* m_pointer = nullptr;
  T m_value{};
};

/// Two values of each type as they are written, the first below the second.
template <class Col>
constexpr const wchar* kSamples[2] = {nullptr, nullptr};
// clang-format off
template <> constexpr const wchar* kSamples<ChexBinaryCol>[2]    = {u"00", u"4D61"};
template <> constexpr const wchar* kSamples<Cbase64BinaryCol>[2] = {u"AA==", u"TWFu"};
template <> constexpr const wchar* kSamples<Ci1Col>[2]           = {u"-128", u"127"};
template <> constexpr const wchar* kSamples<Ci2Col>[2]           = {u"-32768", u"32767"};
template <> constexpr const wchar* kSamples<Ci4Col>[2]           = {u"-2147483648", u"2147483647"};
template <> constexpr const wchar* kSamples<Ci8Col>[2]           = {u"-9223372036854775808", u"9223372036854775807"};
template <> constexpr const wchar* kSamples<Cui1Col>[2]          = {u"0", u"255"};
template <> constexpr const wchar* kSamples<Cui2Col>[2]          = {u"0", u"65535"};
template <> constexpr const wchar* kSamples<Cui4Col>[2]          = {u"0", u"4294967295"};
template <> constexpr const wchar* kSamples<Cui8Col>[2]          = {u"0", u"18446744073709551615"};
template <> constexpr const wchar* kSamples<Cr4Col>[2]           = {u"-INF", u"0.1"};
template <> constexpr const wchar* kSamples<Cr8Col>[2]           = {u"-0.1", u"1e+300"};
template <> constexpr const wchar* kSamples<CdurationCol>[2]     = {u"-P1Y", u"PT1.5S"};
template <> constexpr const wchar* kSamples<CyearCol>[2]         = {u"1999", u"2000"};
template <> constexpr const wchar* kSamples<CmonthCol>[2]        = {u"--01", u"--12"};
template <> constexpr const wchar* kSamples<CdayCol>[2]          = {u"---01", u"---31"};
template <> constexpr const wchar* kSamples<CstringCol>[2]       = {u"a", u"a text that no small buffer holds"};
template <> constexpr const wchar* kSamples<CbooleanCol>[2]      = {u"false", u"true"};
template <> constexpr const wchar* kSamples<CdecimalCol>[2]      = {u"-1.05", u"12345678901234567890.5"};
template <> constexpr const wchar* kSamples<CintegerCol>[2]      = {u"-1", u"12345678901234567890"};
template <> constexpr const wchar* kSamples<CdateCol>[2]         = {u"-0001-01-01", u"2000-02-29Z"};
template <> constexpr const wchar* kSamples<CdatetimeCol>[2]     = {u"1999-12-31T23:59:59", u"2000-01-01T00:00:00.5"};
template <> constexpr const wchar* kSamples<CtimeCol>[2]         = {u"01:00:00", u"23:59:59.999"};
template <> constexpr const wchar* kSamples<CyearMonthCol>[2]    = {u"1999-12", u"2000-01"};
template <> constexpr const wchar* kSamples<CmonthDayCol>[2]     = {u"--02-29", u"--12-31"};
// clang-format on

template <class Col>
WString Elements(std::initializer_list<int> numbers) {
  WString elements;
  for (const int number : numbers) elements += u"<v>" + WString(kSamples<Col>[number]) + u"</v>";
  return elements;
}

template <class Col>
constexpr bool kIsDate = std::is_base_of_v<CdatetimeBaseCol, Col>;

template <class Col>
class TypedCollection : public testing::Test {};

using All = testing::Types<ChexBinaryCol, Cbase64BinaryCol, Ci1Col, Ci2Col, Ci4Col, Ci8Col, Cui1Col,
                           Cui2Col, Cui4Col, Cui8Col, Cr4Col, Cr8Col, CdurationCol, CyearCol,
                           CmonthCol, CdayCol, CstringCol, CbooleanCol, CdecimalCol, CintegerCol,
                           CdateCol, CdatetimeCol, CtimeCol, CyearMonthCol, CmonthDayCol>;
TYPED_TEST_SUITE(TypedCollection, All);

}  // namespace

TYPED_TEST(TypedCollection, ReadsWritesAndKeepsOrder) {
  using T = typename TypeParam::iterator::value_type;
  const auto items = Make<TypeParam>();
  Holder holder(items);
  holder.ExpectWritten(u"");
  holder.Read(Elements<TypeParam>({1, 0}));
  holder.ExpectWritten(Elements<TypeParam>({1, 0}));
  const T high = items->Item(0), low = items->Item(1);
  items->AddAt(1, high);
  items->Add(low);
  items->AddAt(0, low);
  holder.ExpectWritten(Elements<TypeParam>({0, 1, 1, 0, 0}));
  EXPECT_EQ(std::count(items->begin(), items->end(), high), 2);
  items->Remove(1);
  items->Remove(0);
  items->AddAt(0, *(items->end() - 1));
  items->Remove(3);
  holder.ExpectWritten(Elements<TypeParam>({0, 1, 0}));
  items->Clear();
  EXPECT_EQ(items->begin(), items->end());
}

TYPED_TEST(TypedCollection, TellsListenersInOrderAlsoOnFailure) {
  using T = typename TypeParam::iterator::value_type;
  const auto items = Make<TypeParam>();
  Holder holder(items);
  ValueListener<T> listener;
  items->AddEventListener(&listener);
  holder.Read(Elements<TypeParam>({0, 1}));
  EXPECT_EQ(listener.Heard(), "A0a1CA1a2C");
  const T value = items->Item(0);
  items->AddAt(2, value);
  EXPECT_EQ(listener.Heard(), "A2a3C");
  EXPECT_EQ(listener.Value(), value);
  for (const int index : {-1, 5}) {
    EXPECT_EQ(Outcome([&] { items->AddAt(index, value); }), u"!InvalidParam Index out of range");
    EXPECT_EQ(listener.Heard(), "A3");
  }
  EXPECT_EQ(Outcome([&] { items->Remove(3); }),
            u"!InvalidParam Index 3 is out of range, use 0 - 2");
  EXPECT_EQ(listener.Heard(), "R3");
  EXPECT_EQ(Outcome([&] { items->Item(-1); }),
            u"!InvalidParam Index -1 is out of range, use 0 - 2");
  EXPECT_EQ(listener.Heard(), "");
  items->Remove(1);
  EXPECT_EQ(listener.Heard(), "R1r1C");
  CSmartPtr<CXmlCollectionBase> copy;
  copy = CSmartPtr<TypeParam>(new TypeParam(*items));
  copy->Clear();
  EXPECT_EQ(listener.Heard(), "") << "a copy has no listeners";
  items->Clear();
  EXPECT_EQ(listener.Heard(), "R0r0CR0r0C");
}

TYPED_TEST(TypedCollection, RefusesWhatTheFacetsForbid) {
  // Each type knows one of the two.
  const auto items = Make<TypeParam>({.maxLength = 1, .maxExclusive = kSamples<TypeParam>[1]});
  Holder holder(items);
  Listener listener;
  items->AddEventListener(&listener);
  const auto read = [&] { holder.Read(Elements<TypeParam>({0, 1})); };
  if (std::is_same_v<TypeParam, CbooleanCol>) {
    read();
    EXPECT_EQ(items->GetCount(), 2);
    return;
  }
  EXPECT_EQ(MessageOf<CTovikValidationException>(read).substr(0, 29),
            u"Failed to process the element");
  // The lists of dates and times check the value first.
  EXPECT_EQ(listener.Heard(), kIsDate<TypeParam> ? "A0a1C" : "A0a1CA1");
  holder.ExpectWritten(Elements<TypeParam>({0}));
  const auto free = Make<TypeParam>();
  Holder(free).Read(Elements<TypeParam>({1, 1}));
  EXPECT_EQ(MessageOf<CTovikException>([&] { items->AddAt(0, free->Item(0)); }).substr(0, 21),
            u"Invalid Value for v [");
  EXPECT_EQ(items->GetCount(), 1);
}

TEST(TypedCollections, DatesMustBeOfTheListsType) {
  const auto refuse = [](CdatetimeBaseCol* items, const CDateTime& date, const WString& type) {
    Listener listener;
    items->AddEventListener(&listener);
    const WString refusal = u"!InvalidParam Dates added to this collection must be of type " + type;
    EXPECT_EQ(Outcome([&] { items->Add(date); }), refusal);
    EXPECT_EQ(Outcome([&] { items->AddAt(9, CDateTime(CDateTime::dt_gYear)); }), refusal);
    EXPECT_EQ(listener.Heard(), "");
    items->RemoveEventListener(&listener);
  };
  refuse(Make<CdateCol>(), CDateTime(7), u"dt_date");
  refuse(Make<CtimeCol>(), CDateTime(7), u"dt_time");
  refuse(Make<CyearMonthCol>(), CDateTime(7), u"dt_gYearMonth");
  refuse(Make<CmonthDayCol>(), CDateTime(7), u"dt_gMonthDay");
  refuse(Make<CdatetimeCol>(), CDateTime(2000, 1, 1), u"dt_dateTime");
  // Its text has the shape of a year.
  EXPECT_THROW(Holder(Make<CdateCol>()).Read(u"<v>2000</v>"), CTovikValidationException);
}

TEST(TypedCollections, HandValuesToTheWriterWithTheirKind) {
  EXPECT_EQ(Holder(Filled<Cui1Col>(std::uint8_t{7}, std::uint8_t{8})).Json(),
            u"{\"root\": {\"v\": [7,8]}}");
  EXPECT_EQ(Holder(Filled<CbooleanCol>(true)).Json(), u"{\"root\": {\"v\": [true]}}");
  EXPECT_EQ(Holder(Filled<CstringCol>(u"7")).Json(), u"{\"root\": {\"v\": [\"7\"]}}");
  // A date is packed over the alphabet of dates.
  const WString octets = Holder(Filled<CdateCol>(CDateTime(2000, 1, 2))).PackedHex();
  EXPECT_NE(octets.find(u"2000A01A02"), WString::npos) << DisplayUtf8(octets);
}

TEST(TypedCollections, FormatSomeNumbers) {
  const auto expect = [](const auto& items, auto value, const WString& text) {
    items->Add(value);
    Holder(items).ExpectWritten(u"<v>" + text + u"</v>");
  };
  expect(Make<Cr4Col>({.format = u"%.2f"}), 1.5f, u"1.50");
  expect(Make<Cr8Col>({.format = u"%.3e"}), 1.5, u"1.500e+00");
  expect(Make<CdecimalCol>({.format = u"2"}), CDecimal(u"2.345"), u"2.35");
  expect(Make<Ci4Col>({.format = u"%.2f"}), 3, u"3");
  expect(Make<CdecimalCol>({.format = nullptr}), CDecimal(u"2.345"), u"2.345");
}

TEST(TypedCollections, TakeARunOfTheirElements) {
  const auto texts = Make<CstringCol>({.rule = CWhitespaceUtils::ws_replace});
  Holder holder(texts);
  holder.Read(u"<v a='1'> a\tb <x/></v><v xmlns='urn:v'/>");
  holder.ExpectWritten(u"<v> a b </v><v/>");
  EXPECT_THROW(holder.Read(u"<v>b</v><w/><v>d</v>"), CTovikException);
  EXPECT_THROW(holder.Read(u"<v xmlns='urn:other'>c</v>"), CTovikException);
  holder.ExpectWritten(u"<v> a b </v><v/><v>b</v>");
  EXPECT_THROW(Holder(Make<Ci4Col>()).Read(u"<v>x</v>"), CTovikValidationException);
}

TEST(TypedCollections, CheckTheirCountWhenWritten) {
  const auto few = Make<Ci4Col>({.minOccurs = 1});
  const auto many = Make<CdateCol>({.maxOccurs = 1});
  for (int i = 0; i < 2; ++i) many->Add(CDateTime(2000, 1, 1));
  EXPECT_TRUE(
      Outcome([&] {
        Holder(few).Json();
      }).ends_with(u"\nThe Minimum number of [v] elements allowed in this collection is 1"));
  EXPECT_TRUE(
      Outcome([&] {
        Holder(many).Json();
      }).ends_with(u"\nThe Maximum number of [v] elements allowed in this collection is 1"));
}

TEST(TypedCollections, SurviveWhatListenersDo) {
  // Adds and removes values while it is told of the first.
  struct Meddler : IEventSink {
    void OnEvent(CXmlObjectBase* sender, MsgType type, void*) override {
      if (type != CollectionAdd || std::exchange(done, true)) return;
      auto& items = dynamic_cast<CdecimalCol&>(*sender);
      for (int i = 0; i < 20; ++i) items.Add(i);
      items.Clear();
    }
    bool done = false;
  };
  const auto items = Make<CdecimalCol>();
  items->Add(CDecimal(u"1.5"));
  Meddler meddler;
  items->AddEventListener(&meddler);
  EXPECT_EQ(Outcome([&] { items->Add(*items->begin()); }), u"!InvalidParam Index out of range");
  items->AddAt(0, CDecimal(u"2.5"));
  EXPECT_EQ(items->Item(0), CDecimal(u"2.5"));
}
