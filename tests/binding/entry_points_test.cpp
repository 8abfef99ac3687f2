#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "tests/support/bag.h"
#include "tests/support/temp_dir.h"
#include "tests/support/text.h"
#include "tovikxml/platform/error_box.h"

using namespace TovikXmlTest;
using namespace std::string_view_literals;

namespace {

const Shape& Record() {
  static Shape shape(xgt_Sequence, xet_Element, u"root", u"urn:r");
  static const bool built =
      (shape.Add(Prim<CElementInfoSeqPrimOpt>(u"a", 0)).Add(Attribute(u"b", 1)), true);
  (void)built;
  return shape;
}

CSmartPtr<Bag> Sample(const WString& text = u"\u00e9\U0001F600 & <" + WString(3000, u'x')) {
  CSmartPtr<Bag> bag = NewBag(Record());
  bag->Value(0).SetString(text);
  bag->Value(1).SetString(u"one two");
  return bag;
}

CBinaryData Bytes(const Bag& bag, XmlEncoding encoding, CompressionType compression) {
  return bag.ToXmlStream(true, false, encoding, EOL_LF, CSerializationContext(), compression);
}

class OverlappedFiles {
 public:
  explicit OverlappedFiles(bool on) { Set(on); }
  ~OverlappedFiles() { Set(false); }

 private:
  static void Set(bool on) {
    AsyncToXmlFile(on);
    AsyncFromXmlFile(on);
  }
};

WString g_boxes;

}  // namespace

TEST(EntryPoints, MarkFilesWithTheirByteOrder) {
  const TempDir directory;
  const CSerializationContext context;
  const CSmartPtr<Bag> bag = Sample(WString(300000, u'\u00e9'));
  for (const XmlEncoding encoding : {Encoding_UTF8, Encoding_UTF16, Encoding_UTF16_Undeclared}) {
    std::string written[2];
    for (const bool overlapped : {false, true}) {
      const OverlappedFiles files(overlapped);
      const WString name = directory / u"\u00fcber.xml";
      bag->ToXmlFile(name.c_str(), true, true, encoding, EOL_CRLF, context, Compression_None);
      written[overlapped] = FileBytes(directory.Path() / u"\u00fcber.xml");
    }
    EXPECT_EQ(written[0].substr(0, 2), encoding == Encoding_UTF8 ? "<?" : "\xff\xfe");
    EXPECT_EQ(written[0], written[1]);
    // UTF-16 has no mark in a stream.
    EXPECT_EQ(Bytes(*bag, encoding, Compression_None)[0], '<');
  }
  const WString zipped = directory / u"zipped.xml";
  bag->ToXmlFile(zipped.c_str(), true, true, Encoding_UTF16, EOL_LF, context, Compression_GZip);
  EXPECT_EQ(FileBytes(directory.Path() / "zipped.xml").substr(0, 2), "\x1f\x8b");
  const OverlappedFiles files(true);
  EXPECT_EQ(Outcome([&] { NewBag(Record())->FromXmlFile(zipped.c_str(), context); }),
            u"!Exception not well-formed (invalid token) at line 1");
}

TEST(EntryPoints, RefuseTextWithoutUtf8FormAndDataThatDoesNotShrinkOrGrowsTooMuch) {
  const TempDir directory;
  CSerializationContext context;
  const CSmartPtr<Bag> bag = Sample(WString(1, wchar(0xD800)));
  const WString refusal =
      u"!InvalidValue The text has an unpaired surrogate and cannot be written as UTF-8";
  EXPECT_EQ(Outcome([&] { Bytes(*bag, Encoding_UTF8, Compression_None); }), refusal);
  for (const bool overlapped : {false, true}) {
    const OverlappedFiles files(overlapped);
    EXPECT_EQ(Outcome([&] {
                bag->ToXmlFile((directory / u"x").c_str(), true, true, Encoding_UTF8, EOL_LF,
                               context, Compression_None);
              }),
              refusal);
  }
  EXPECT_EQ(Outcome([&] { Bytes(*bag, Encoding_None, Compression_None); }),
            u"!Exception Unknown Encoding, select UTF-8 (contact our support team)");
  EXPECT_EQ(
      Outcome([&] { Bytes(*NewBag(Record()), Encoding_UTF8, Compression_GZip); }).substr(0, 49),
      u"!Exception Failed to compress data. [Error Code: ");
  context.SetMaxDecompressedSize(1000);
  EXPECT_EQ(Outcome([&] {
              NewBag(Record())->FromXmlStream(Bytes(*Sample(), Encoding_UTF8, Compression_ZLib),
                                              context);
            }),
            u"!Exception The decompressed data exceeds the limit of 1000 bytes");
  const CBinaryData rootless = ToBytes("\xE0\0\0\x01\0\xF0"sv);
  EXPECT_EQ(Outcome([&] { NewBag(Record())->FromXmlStream(rootless, context); }),
            u"!Exception Invalid or empty XML document");
}

TEST(EntryPoints, ReadFromAPartOfADocument) {
  CXmlDocument document;
  document.LoadXml("<x><root b='1'><a>2</a></root></x>");
  const CSmartPtr<Bag> bag = NewBag(Record());
  const CXmlElement* part = document.GetDocumentElement()->GetFirstElement();
  bag->FromXmlElement(part, CSerializationContext());
  EXPECT_EQ(bag->Value(0).GetString(), u"2");
  part = nullptr;
  EXPECT_THROW(bag->FromXmlElement(part, CSerializationContext()), CTovikInvalidParamException);
}

TEST(EntryPoints, RefuseAnotherGeneratorVersionAndZlibFiles) {
  const CSerializationContext context;
  const CSmartPtr<Bag> bag = Sample();
  const wchar* const name = u"nowhere/x";
  CXmlDocument document;
  document.LoadXml("<root/>");
  unsigned char byte = '<';
  constexpr auto kGZip = Compression_GZip, kZLib = Compression_ZLib;
  const auto toFiles = [&](CompressionType compression) -> std::vector<std::function<void()>> {
    return {
        [=] { bag->ToXmlFile(name, false, false, Encoding_UTF8, EOL_LF, context, compression); },
        [=] { bag->ToJsonFile(name, false, Encoding_UTF8, EOL_LF, context, compression); },
        [=] { bag->ToFastInfosetFile(name, fid_None, context, compression); }};
  };
  std::vector<std::function<void()>> calls = {
      [&] { bag->ToXml(false, false, EOL_LF, context); },
      [&] { bag->ToXmlStream(false, false, Encoding_UTF8, EOL_LF, context, kGZip); },
      [&] { bag->ToJson(false, EOL_LF, context); },
      [&] { bag->ToJsonStream(false, Encoding_UTF8, EOL_LF, context, kGZip); },
      [&] { bag->ToFastInfosetStream(fid_None, context, kGZip); },
      [&] { bag->FromXml("<root/>", context); },
      [&] { bag->FromXml(u"<root/>", context); },
      [&] { bag->FromXmlStream(&byte, 1, context); },
      [&] { bag->FromXmlFile(name, context); },
      [&] { bag->FromXmlElement(document.GetDocumentElement(), context); },
      [&] { bag->FromJson("{", context); },
      [&] { bag->FromJson(u"{", context); },
      [&] { bag->FromJsonStream(&byte, 1, context); },
      [&] { bag->FromJsonFile(name, context); },
  };
  for (auto& call : toFiles(kGZip)) calls.push_back(call);
  const ErrorBox previous = SetErrorBox(
      [](const WString& title, const WString& text) { g_boxes += title + u": " + text + u"\n"; });
  SetGeneratorVersion(16, 2);
  for (const auto& call : calls) {
    g_boxes.clear();
    EXPECT_EQ(Outcome(call), u"!Exception Wrong Version (Tovik Runtime: v16.1, Generator: v16.2)");
    EXPECT_EQ(g_boxes,
              u"Version Mismatch Error: Please ensure your generated code is the same version as "
              u"this library (Tovik Runtime: v16.1, Generator: v16.2).\n");
  }
  // What is wrong with the call itself is told first.
  for (const auto& call : toFiles(kZLib)) {
    EXPECT_EQ(Outcome(call), u"!Exception ZLIB Compression only available for To Stream methods.");
  }
  SetGeneratorVersion(16, 1);
  SetErrorBox(previous);
}

TEST(Objects, CountReferencesOnSeveralThreads) {
  const CSmartPtr<Bag> bag = NewBag(Record());
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&bag] {
      for (int k = 0; k < 10000; ++k) const CSmartPtr<Bag> copy = bag;
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(bag->AddRef(), 2);
  EXPECT_EQ(bag->Release(), 1);
}

TEST(Objects, CopyTheirNameButNotTheirCount) {
  const CSmartPtr<Bag> bag = NewBag(Record(), u"named");
  const CSmartPtr<Bag> copy(new Bag(*bag));
  EXPECT_EQ(copy->Name(), u"named");
  EXPECT_EQ(copy->AddRef(), 2);
  EXPECT_EQ(copy->Release(), 1);
}
