#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "examples/mime_database/generated/mime_info.h"
#include "examples/orders/generated/customer.h"
#include "examples/orders/generated/item_col.h"
#include "examples/orders/generated/order_col.h"
#include "examples/orders/generated/order_list.h"
#include "tests/json/json_checker.h"
#include "tests/support/bag.h"
#include "tests/support/temp_dir.h"
#include "tests/support/text.h"
#include "tovikxml/platform/error_box.h"

using namespace TovikXmlTest;

namespace {

constexpr JsonRoundTrip kModes[] = {jrt_Bare, jrt_Marked, jrt_Full};

CSerializationContext ContextOf(JsonRoundTrip mode, const wchar* defaultNamespace = u"") {
  CSerializationContext context;
  context.GetJsonContext().SetSupportRoundtrip(mode);
  context.SetDefaultNamespaceURI(defaultNamespace);
  return context;
}

// Takes what `original` holds to JSON and into `copy`, which is to hold the same.
void RoundTrip(const CXmlObjectBase& original, CXmlObjectBase& copy,
               const CSerializationContext& context) {
  const WString xml = original.ToXml(false, false, EOL_LF, context);
  for (const bool formatted : {false, true}) {
    const WString json = original.ToJson(formatted, formatted ? EOL_CRLF : EOL_LF, context);
    EXPECT_TRUE(IsJson(json)) << DisplayUtf8(json.substr(0, 2000));
    copy.FromJson(json.c_str(), context);
    EXPECT_EQ(copy.ToXml(false, false, EOL_LF, context), xml);
  }
}

/// "r" with the child "a" and an attribute.
const Shape& Marked() {
  static Shape shape(xgt_Sequence, xet_Element, u"r", u"urn:r");
  static const bool built =
      (shape.Add(Prim<CElementInfoSeqPrimOpt>(u"a", 0, it_string, u"", false, u"urn:r"))
           .Add(Attribute(u"b", 1, true, it_i4)),
       true);
  (void)built;
  return shape;
}

CSmartPtr<Bag> Sample(const WString& text = u"\u00e9\U0001F600 & \"\\" + WString(3000, u'x')) {
  CSmartPtr<Bag> bag = NewBag(Marked());
  bag->Value(0).SetString(text);
  bag->Value(1).SetI4(7);
  return bag;
}

/// One row: a shape, and XML text of an object of it.
struct Fixture {
  std::function<void(Shape&)> build;
  XmlElementGroupType group;
  const wchar* xml;
};

const Shape& Leaf() {
  static Shape shape(xgt_Sequence, xet_Element, u"x");
  static const bool built = (shape.Add(Prim<CElementInfoSeqPrimOpt>(u"in", 0))
                                 .Add(Prim<CElementInfoSeqPrimOpt>(u"n", 1, it_decimal)),
                             true);
  (void)built;
  return shape;
}

const Shape& Group() {
  static Shape shape(xgt_Choice, xet_PseudoElement, u"p");
  static const bool built = (shape.Add(Prim<CElementInfoChoicePrimOpt>(u"a", 0))
                                 .Add(Prim<CElementInfoChoicePrimOpt>(u"b", 1, it_i4))
                                 .Add(Cls<CElementInfoChoiceClsOpt>(u"x", 2, Leaf())),
                             true);
  (void)built;
  return shape;
}

const Shape& Branch() {
  static Shape shape(xgt_Sequence, xet_Element, u"y");
  static const bool built = (shape.StartWithItems(0, u"x", Leaf())
                                 .Add(new CElementInfoSeqClsCol(u"x", u"", 0, xet_Element)),
                             true);
  (void)built;
  return shape;
}

// A group that repeats, and in which an element repeats.
const Shape& RepeatedInGroup() {
  static Shape shape(xgt_Sequence, xet_PseudoElement, u"q");
  static const bool built = (shape.Add(Prim<CElementInfoSeqPrimMnd>(u"a", 1))
                                 .StartWithItems(0, u"x", Leaf())
                                 .Add(new CElementInfoSeqClsCol(u"x", u"", 0, xet_Element)),
                             true);
  (void)built;
  return shape;
}

void AddItems(Shape& shape, const wchar* name, const Shape& items, XmlElementType type) {
  shape.StartWithItems(0, name, items).Add(new CElementInfoSeqClsCol(name, u"", 0, type));
}

}  // namespace

TEST(JsonObjects, RoundTripInEveryMode) {
  const Fixture fixtures[] = {
      {[](Shape&) {}, xgt_Sequence, u"<root/>"},
      {[](Shape& s) {
         s.Add(Prim<CElementInfoAllPrimOpt>(u"a", 0))
             .Add(Prim<CElementInfoAllPrimOpt>(u"b", 1, it_boolean))
             .Add(Colour<CElementInfoAllEnumOpt>(u"c", 2))
             .Add(Prim<CElementInfoAllPrimOpt>(u"d", 3, it_base64Binary))
             .Add(Prim<CElementInfoAllPrimOpt>(u"e", 4, it_duration))
             .Add(Prim<CElementInfoAllPrimOpt>(u"f", 5, it_decimal));
       },
       xgt_All,
       u"<root><a>\u00e9 &lt;\"\\/\U0001F600</a><b>true</b><c>red</c><d>TWFu</d><e>P1D</e>"
       u"<f>-0.50</f></root>"},
      {[](Shape& s) { s.Add(Prim<CElementInfoSeqPrimOpt>(u"a", 0)); }, xgt_Sequence,
       u"<root><a/></root>"},
      {[](Shape& s) { AddItems(s, u"x", Leaf(), xet_Element); }, xgt_Sequence,
       u"<root><x/></root>"},
      {[](Shape& s) { AddItems(s, u"x", Leaf(), xet_Element); }, xgt_Sequence,
       u"<root><x/><x><in>1</in><n>2</n></x><x/></root>"},
      {[](Shape& s) { AddItems(s, u"y", Branch(), xet_Element); }, xgt_Sequence,
       u"<root><y><x/><x><in>1</in></x></y><y/><y><x><n>1</n></x></y></root>"},
      {[](Shape& s) { AddItems(s, u"p", Group(), xet_PseudoElement); }, xgt_Sequence,
       u"<root><a>1</a><a>2</a><b>3</b><x><n>1</n></x><x/><a/><b>4</b></root>"},
      {[](Shape& s) { AddItems(s, u"q", RepeatedInGroup(), xet_PseudoElement); }, xgt_Sequence,
       u"<root><a>1</a><x/><x><n>2</n></x><a>3</a><a>4</a><x/></root>"},
  };
  for (const Fixture& fixture : fixtures) {
    SCOPED_TRACE(DisplayUtf8(fixture.xml));
    Shape shape(fixture.group);
    fixture.build(shape);
    const CSmartPtr<Bag> original = NewBag(shape);
    original->FromXml(fixture.xml, CSerializationContext());
    for (const JsonRoundTrip mode : kModes) {
      RoundTrip(*original, *NewBag(shape), ContextOf(mode));
    }
  }
}

TEST(JsonObjects, KeepAttributesAndNamespacesWhereTheModeDoes) {
  const CSmartPtr<Bag> original = Sample(u"x");
  RoundTrip(*original, *NewBag(Marked()), ContextOf(jrt_Marked));
  RoundTrip(*original, *NewBag(Marked()), ContextOf(jrt_Full, u"urn:r"));
  RoundTrip(*original, *NewBag(Marked()), ContextOf(jrt_Full));
  EXPECT_EQ(original->ToJson(false, EOL_LF, ContextOf(jrt_Bare)),
            u"{\"r\": {\"b\": 7,\"a\": \"x\"}}");
  EXPECT_EQ(original->ToJson(false, EOL_LF, ContextOf(jrt_Full)),
            u"{\"AA:r\": {\"@xmlns:AA\": \"urn:r\",\"@b\": 7,\"AA:a\": \"x\"}}");
  // Of an attribute in a namespace, the other modes keep too little for it to be read.
  Shape shape(xgt_Sequence, xet_Element, u"r");
  shape.Text(1, it_string, true);
  shape.Add(Attribute(u"lang", 0, true, it_string, u"", u"http://www.w3.org/XML/1998/namespace"));
  const CSmartPtr<Bag> bag = NewBag(shape);
  bag->Value(0).SetString(u"en");
  bag->Value(1).SetString(u"own");
  RoundTrip(*bag, *NewBag(shape), ContextOf(jrt_Full));
  EXPECT_THROW(RoundTrip(*bag, *NewBag(shape), ContextOf(jrt_Marked)), CTovikException);
}

TEST(JsonObjects, GoThroughEveryCarrier) {
  const TempDir directory;
  const CSerializationContext context = ContextOf(jrt_Full, u"urn:r");
  const CSmartPtr<Bag> original = Sample();
  const auto expectSame = [&](const std::function<void(Bag&)>& read) {
    const CSmartPtr<Bag> copy = NewBag(Marked());
    read(*copy);
    EXPECT_EQ(copy->Value(0).GetString(), original->Value(0).GetString());
  };
  const WString text = original->ToJson(true, EOL_LF, context);
  expectSame([&](Bag& bag) { bag.FromJson(text.c_str(), context); });
  expectSame([&](Bag& bag) { bag.FromJson(EncodeUtf8(text)->c_str(), context); });
  for (const CompressionType compression : {Compression_None, Compression_GZip, Compression_ZLib}) {
    const CBinaryData bytes =
        original->ToJsonStream(true, Encoding_UTF8, EOL_LF, context, compression);
    expectSame([&](Bag& bag) { bag.FromJsonStream(bytes, context); });
    if (compression == Compression_ZLib) continue;
    for (const bool overlapped : {false, true}) {
      const WString name = directory / u"j.json";
      AsyncToXmlFile(overlapped);
      original->ToJsonFile(name.c_str(), true, Encoding_UTF8, EOL_LF, context, compression);
      AsyncToXmlFile(false);
      expectSame([&](Bag& bag) { bag.FromJsonFile(name.c_str(), context); });
    }
  }
  // Only an overlapped file begins with a byte order mark.
  for (const bool overlapped : {false, true}) {
    AsyncToXmlFile(overlapped);
    original->ToJsonFile((directory / u"16").c_str(), false, Encoding_UTF16, EOL_LF, context,
                         Compression_None);
    AsyncToXmlFile(false);
    EXPECT_EQ(FileBytes(directory.Path() / "16").substr(0, 2),
              overlapped ? "\xff\xfe" : std::string("{\0", 2));
  }
}

TEST(JsonObjects, PutTheNamespaceSettingBack) {
  const struct {
    const char* json;
    bool fails;
  } rows[] = {{"{\"r\": {\"a\": 1}}", false}, {"{\"r\": {\"x\": 1}}", true}, {"{", true}};
  for (const auto& row : rows) {
    for (const JsonRoundTrip mode : {jrt_Bare, jrt_Marked}) {
      for (const bool before : {false, true}) {
        CSerializationContext context = ContextOf(mode);
        context.SetIgnoreNamespaces(before);
        const CSmartPtr<Bag> bag = NewBag(Marked());
        if (row.fails) {
          EXPECT_THROW(bag->FromJson(row.json, context), CTovikException);
        } else {
          bag->FromJson(row.json, context);
        }
        EXPECT_EQ(context.GetIgnoreNamespaces(), before);
      }
    }
  }
}

TEST(JsonObjects, CompareNamespacesInFullAlone) {
  static Shape shape(xgt_Sequence, xet_Element, u"r");
  shape.Add(Prim<CElementInfoSeqPrimMnd>(u"a", 0, it_i4, u"", false, u"urn:a"));
  const char* const plain = "{\"r\": {\"a\": 1}}";
  for (const JsonRoundTrip mode : {jrt_Bare, jrt_Marked}) {
    const CSmartPtr<Bag> bag = NewBag(shape);
    bag->FromJson(plain, ContextOf(mode));
    EXPECT_EQ(bag->Value(0).GetI4(), 1);
  }
  const CSerializationContext full = ContextOf(jrt_Full);
  EXPECT_EQ(MessageOf<CTovikException>([&] { NewBag(shape)->FromJson(plain, full); }),
            u"Error converting JSON to XML:\n<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r>\n\t"
            u"<a>1</a>\n</r>\n");
  NewBag(shape)->FromJson("{\"r\": {\"@xmlns:p\": \"urn:a\", \"p:a\": 1}}", full);
}

TEST(JsonObjects, RefuseBadInput) {
  const CSerializationContext context = ContextOf(jrt_Marked);
  const auto read = [&](const WString& json) { NewBag(Marked())->FromJson(json.c_str(), context); };
  // Names and characters that are not XML, no root and two roots show when the XML is parsed.
  for (const WString json : {u"{\"r\": {\"a b\": 1}}", u"{\"r\": {\"a\": \"\\u0001\"}}", u" ",
                             u"null", u"{\"r\": {}, \"s\": {}}", u"{\"r\": {\"@b\": [1, 2]}}"}) {
    EXPECT_TRUE(MessageOf<CTovikException>([&] {
                  read(json);
                }).starts_with(u"Error converting JSON to XML:\n<?xml "));
  }
  MessageOf<CTovikException>([&] { read(u"{\"r\": {\"a\": 1, \"a\": 2}}"); });
  MessageOf<CTovikValidationException>([&] { read(u"{\"r\": {\"a\": 1} "); });
  const CSmartPtr<Bag> bag = NewBag(Marked());
  const WString large(1 << 20, u'\u00e9');
  bag->FromJson((u"{\"r\": {\"a\": \"" + large + u"\"}}").c_str(), context);
  EXPECT_EQ(bag->Value(0).GetString(), large);
  // Text without a UTF-8 form is not written as bytes.
  bag->Value(0).SetString(WString(1, wchar(0xDC00)));
  MessageOf<CTovikInvalidValueException>(
      [&] { bag->ToJsonStream(false, Encoding_UTF8, EOL_LF, context, Compression_None); });
}

TEST(JsonObjects, TakeTheSettingsOfTheContext) {
  CSerializationContext context = ContextOf(jrt_Marked);
  context.SetIndentChars(u" ");
  context.GetJsonContext().SetRootElementName(u"r");
  const CSmartPtr<Bag> bag = NewBag(Marked());
  bag->FromJson("// c\n{\"@b\": 7}", context);
  EXPECT_EQ(bag->ToJson(true, EOL_CRLF, context), u"{\r\n \"r\": {\r\n  \"@b\": 7\r\n }\r\n}");
  context.GetJsonContext().GetAllowComments(false);
  EXPECT_THROW(bag->FromJson("// c\n{\"@b\": 7}", context), CTovikValidationException);
}

TEST(JsonObjects, RefuseZlibFilesAndAnotherGeneratorVersion) {
  const CSerializationContext context;
  const CSmartPtr<Bag> bag = Sample();
  EXPECT_EQ(MessageOf<CTovikException>([&] {
              bag->ToJsonFile(u"nowhere/x", false, Encoding_UTF8, EOL_LF, context,
                              Compression_ZLib);
            }),
            u"ZLIB Compression only available for To Stream methods.");
  const ErrorBox previous = SetErrorBox([](const WString&, const WString&) {});
  SetGeneratorVersion(16, 2);
  unsigned char byte = '{';
  const std::function<void()> calls[] = {
      [&] { bag->ToJson(false, EOL_LF, context); },
      [&] { bag->ToJsonStream(false, Encoding_UTF8, EOL_LF, context, Compression_None); },
      [&] { bag->FromJson("{", context); },
      [&] { bag->FromJson(u"{", context); },
      [&] { bag->FromJsonStream(&byte, 1, context); },
      [&] { bag->FromJsonFile(u"nowhere/x", context); },
  };
  for (const auto& call : calls) {
    EXPECT_EQ(MessageOf<CTovikException>(call),
              u"Wrong Version (Tovik Runtime: v16.1, Generator: v16.2)");
  }
  SetGeneratorVersion(16, 1);
  SetErrorBox(previous);
}

TEST(JsonObjects, CarryOrders) {
  const CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  for (int i = 0; i < 3; ++i) {
    const CSmartPtr<Orders::COrder> order = list->GetOrders()->Add();
    order->SetId(100001 + i);
    order->SetDate(CDateTime(2024, 2, 29));
    order->SetStatus(Orders::Status_confirmed);
    order->GetCustomer()->SetName(u"Zo\u00eb \"M\" \\ \U0001F600");
    order->GetCustomer()->SetStreet(u"12 K\u00f6nigsallee");
    order->GetCustomer()->SetCity(u"Z\u00fcrich");
    order->GetCustomer()->SetPostalCode(u"08001");
    order->GetCustomer()->SetCountry(u"CH");
    for (int k = 0; k <= i; ++k) {
      const CSmartPtr<Orders::CItem> item = order->GetItems()->Add();
      item->SetSku(u"042-AB7");
      item->SetDescription(u"valve <DN 25>\nand more");
      item->SetQuantity(4);
      item->SetPrice(CDecimal(u"19.95"));
      item->SetWeight(0.125);
      item->SetShipDate(CDateTime(2024, 3, 4));
      item->SetInStock(true);
    }
  }
  for (const JsonRoundTrip mode : {jrt_Marked, jrt_Full}) {
    const CSmartPtr<Orders::COrderList> copy(new Orders::COrderList);
    RoundTrip(*list, *copy, ContextOf(mode, u"urn:example:bench:orders"));
  }
}

TEST(JsonObjects, CarryTheMimeDatabase) {
  const std::filesystem::path file = "/usr/share/mime/packages/freedesktop.org.xml";
  if (!std::filesystem::exists(file)) GTEST_SKIP() << "no MIME database on this system";
  const wchar* const kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";
  const CSmartPtr<MimeDatabase::CMimeInfo> info(new MimeDatabase::CMimeInfo);
  info->FromXmlFile(file.u16string().c_str(), CSerializationContext());
  const CSmartPtr<MimeDatabase::CMimeInfo> copy(new MimeDatabase::CMimeInfo);
  RoundTrip(*info, *copy, ContextOf(jrt_Full, kNamespace));
}
