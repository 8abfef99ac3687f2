#include <gtest/gtest.h>

#include "tests/json/json_checker.h"
#include "tests/support/bag.h"
#include "tests/support/temp_dir.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;

namespace {

CSerializationContext ContextOf(JsonRoundTrip mode, const wchar* defaultNamespace = u"") {
  CSerializationContext context;
  context.GetJsonContext().SetSupportRoundtrip(mode);
  context.SetDefaultNamespaceURI(defaultNamespace);
  return context;
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

}  // namespace

TEST(JsonObjects, AreReadInEveryModeAndPutTheNamespaceSettingBack) {
  ForEachRow("json/objects.txt", "reading",
             [](JsonRoundTrip mode, const WString& json, const WString& xml) {
               for (const bool ignores : {false, true}) {
                 CSerializationContext context = ContextOf(mode);
                 context.SetIgnoreNamespaces(ignores);
                 const CSmartPtr<Bag> bag = NewBag(Marked());
                 const auto read = [&] {
                   bag->FromJson(json.c_str(), context);
                   return bag->ToXml(false, false, EOL_LF, ContextOf(mode, u"urn:r"));
                 };
                 if (mode != jrt_Full || !ignores) {
                   EXPECT_EQ(Outcome(read), xml);
                 }
                 EXPECT_EQ(context.GetIgnoreNamespaces(), ignores);
               }
             });
}

TEST(JsonObjects, LoseTheNamespaceOfAnAttributeInAllModesButOne) {
  Shape shape(xgt_Sequence, xet_Element, u"r");
  shape.Add(Attribute(u"lang", 0, true, it_string, u"", u"http://www.w3.org/XML/1998/namespace"));
  const CSmartPtr<Bag> bag = NewBag(shape), copy = NewBag(shape);
  bag->Value(0).SetString(u"en");
  const auto carry = [&](JsonRoundTrip mode) {
    const CSerializationContext context = ContextOf(mode);
    copy->FromJson(bag->ToJson(false, EOL_LF, context).c_str(), context);
    return copy->Value(0).GetString();
  };
  EXPECT_EQ(carry(jrt_Full), u"en");
  EXPECT_THROW(carry(jrt_Marked), CTovikException);
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

TEST(JsonObjects, MarkOnlyAnOverlappedFileWithItsByteOrder) {
  const TempDir directory;
  const CSmartPtr<Bag> bag = NewBag(Marked());
  bag->Value(0).SetString(WString(1 << 20, u'\u00e9'));
  for (const bool overlapped : {false, true}) {
    AsyncToXmlFile(overlapped);
    bag->ToJsonFile((directory / u"16").c_str(), false, Encoding_UTF16, EOL_LF, ContextOf(jrt_Full),
                    Compression_None);
    AsyncToXmlFile(false);
    EXPECT_EQ(FileBytes(directory.Path() / "16").substr(0, 2),
              overlapped ? "\xff\xfe" : std::string("{\0", 2));
  }
  bag->Value(0).SetString(WString(1, wchar(0xDC00)));
  EXPECT_EQ(Outcome([&] {
              bag->ToJsonStream(false, Encoding_UTF8, EOL_LF, ContextOf(jrt_Full),
                                Compression_None);
            }),
            u"!InvalidValue The text has an unpaired surrogate and cannot be written as UTF-8");
}
