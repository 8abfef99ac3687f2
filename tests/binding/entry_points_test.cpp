#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "tests/support/bag.h"
#include "tests/support/temp_dir.h"
#include "tests/support/text.h"
#include "tovikxml/platform/error_box.h"

using namespace TovikXmlTest;

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

int g_boxes = 0;
WString g_boxText;

class WatchedBox {
 public:
  WatchedBox() {
    g_boxes = 0;
    m_previous = SetErrorBox([](const WString& title, const WString& text) {
      ++g_boxes;
      g_boxText = title + u": " + text;
    });
  }
  ~WatchedBox() { SetErrorBox(m_previous); }

 private:
  ErrorBox m_previous;
};

}  // namespace

TEST(EntryPoints, RoundTripThroughEveryStream) {
  const CSerializationContext context;
  const CSmartPtr<Bag> bag = Sample();
  for (const XmlEncoding encoding : {Encoding_UTF8, Encoding_UTF16, Encoding_UTF16_Undeclared}) {
    for (const CompressionType compression :
         {Compression_None, Compression_GZip, Compression_ZLib}) {
      const CBinaryData bytes = Bytes(*bag, encoding, compression);
      if (encoding != Encoding_UTF8 && compression == Compression_None) {
        // UTF-16 has no mark in a stream, so that nothing tells the parser of it.
        EXPECT_EQ(bytes[0], '<');
        EXPECT_EQ(bytes[1], 0);
        continue;
      }
      if (encoding != Encoding_UTF8) continue;
      const CSmartPtr<Bag> copy = NewBag(Record());
      copy->FromXmlStream(bytes, context);
      EXPECT_EQ(copy->Value(0).GetString(), bag->Value(0).GetString());
      EXPECT_EQ(copy->Value(1).GetString(), u"one two");
    }
  }
}

TEST(EntryPoints, RoundTripThroughEveryFile) {
  const TempDir directory;
  const CSerializationContext context;
  const CSmartPtr<Bag> bag = Sample(WString(300000, u'\u00e9'));
  for (const bool overlapped : {false, true}) {
    const OverlappedFiles files(overlapped);
    for (const XmlEncoding encoding : {Encoding_UTF8, Encoding_UTF16, Encoding_UTF16_Undeclared}) {
      const WString name = directory / u"\u00fcber.xml";
      bag->ToXmlFile(name.c_str(), true, true, encoding, EOL_CRLF, context, Compression_None);
      const std::string bytes = FileBytes(directory.Path() / u"\u00fcber.xml");
      EXPECT_EQ(bytes.substr(0, 2), encoding == Encoding_UTF8 ? "<?" : "\xff\xfe");
      const CSmartPtr<Bag> copy = NewBag(Record());
      copy->FromXmlFile(name.c_str(), context);
      EXPECT_EQ(copy->Value(0).GetString(), bag->Value(0).GetString());
    }
  }
  const WString zipped = directory / u"zipped.xml";
  bag->ToXmlFile(zipped.c_str(), true, true, Encoding_UTF16, EOL_LF, context, Compression_GZip);
  EXPECT_EQ(FileBytes(directory.Path() / "zipped.xml").substr(0, 2), "\x1f\x8b");
  {
    const OverlappedFiles files(true);
    EXPECT_EQ(
        MessageOf<CTovikException>([&] { NewBag(Record())->FromXmlFile(zipped.c_str(), context); }),
        u"not well-formed (invalid token) at line 1");
  }
}

TEST(EntryPoints, WriteTheSameFileOverlapped) {
  const TempDir directory;
  const CSerializationContext context;
  const CSmartPtr<Bag> bag = Sample(WString(50000, u'y'));
  for (const bool overlapped : {false, true}) {
    const OverlappedFiles files(overlapped);
    bag->ToXmlFile((directory / (overlapped ? u"o" : u"p")).c_str(), true, true, Encoding_UTF16,
                   EOL_LF, context, Compression_None);
  }
  EXPECT_EQ(FileBytes(directory.Path() / "o"), FileBytes(directory.Path() / "p"));
}

TEST(EntryPoints, RefuseTextThatHasNoUtf8) {
  const TempDir directory;
  const CSerializationContext context;
  const CSmartPtr<Bag> bag = Sample(WString(1, wchar(0xD800)));
  MessageOf<CTovikInvalidValueException>([&] { Bytes(*bag, Encoding_UTF8, Compression_None); });
  for (const bool overlapped : {false, true}) {
    const OverlappedFiles files(overlapped);
    MessageOf<CTovikInvalidValueException>([&] {
      bag->ToXmlFile((directory / u"x").c_str(), true, true, Encoding_UTF8, EOL_LF, context,
                     Compression_None);
    });
  }
  EXPECT_EQ(MessageOf<CTovikException>([&] { Bytes(*bag, Encoding_None, Compression_None); }),
            u"Unknown Encoding, select UTF-8 (contact our support team)");
}

TEST(EntryPoints, ReportDataThatDoesNotShrinkAndDataThatGrowsTooMuch) {
  const CSmartPtr<Bag> small = NewBag(Record());
  EXPECT_EQ(MessageOf<CTovikException>([&] {
              small->ToXmlStream(false, false, Encoding_UTF8, EOL_LF, CSerializationContext(),
                                 Compression_GZip);
            }).substr(0, 38),
            u"Failed to compress data. [Error Code: ");
  CSerializationContext context;
  context.SetMaxDecompressedSize(1000);
  EXPECT_EQ(MessageOf<CTovikException>([&] {
              NewBag(Record())->FromXmlStream(Bytes(*Sample(), Encoding_UTF8, Compression_ZLib),
                                              context);
            }),
            u"The decompressed data exceeds the limit of 1000 bytes");
}

TEST(EntryPoints, ReadFromAPartOfADocument) {
  CXmlDocument document;
  document.LoadXml("<x><root b='1'><a>2</a></root></x>");
  const CSmartPtr<Bag> bag = NewBag(Record());
  const CXmlElement* part = document.GetDocumentElement()->GetFirstElement();
  bag->FromXmlElement(part, CSerializationContext());
  EXPECT_EQ(bag->Value(0).GetString(), u"2");
  MessageOf<CTovikInvalidParamException>([&] {
    bag->FromXmlElement(static_cast<const CXmlElement*>(nullptr), CSerializationContext());
  });
}

TEST(EntryPoints, RefuseAnotherGeneratorVersion) {
  const CSerializationContext context;
  const CSmartPtr<Bag> bag = Sample();
  const WatchedBox box;
  const WString name = u"nowhere/x";
  CXmlDocument document;
  document.LoadXml("<root/>");
  unsigned char byte = '<';
  const std::function<void()> calls[] = {
      [&] { bag->ToXml(false, false, EOL_LF, context); },
      [&] { Bytes(*bag, Encoding_UTF8, Compression_None); },
      [&] {
        bag->ToXmlFile(name.c_str(), false, false, Encoding_UTF8, EOL_LF, context,
                       Compression_None);
      },
      [&] { bag->FromXml("<root/>", context); },
      [&] { bag->FromXml(u"<root/>", context); },
      [&] { bag->FromXmlStream(&byte, 1, context); },
      [&] { bag->FromXmlFile(name.c_str(), context); },
      [&] { bag->FromXmlElement(document.GetDocumentElement(), context); },
  };
  SetGeneratorVersion(16, 2);
  for (const auto& call : calls) {
    EXPECT_EQ(MessageOf<CTovikException>(call),
              u"Wrong Version (Tovik Runtime: v16.1, Generator: v16.2)");
  }
  EXPECT_EQ(MessageOf<CTovikException>([&] {
              bag->ToXmlFile(name.c_str(), false, false, Encoding_UTF8, EOL_LF, context,
                             Compression_ZLib);
            }),
            u"ZLIB Compression only available for To Stream methods.");
  SetGeneratorVersion(16, 1);
  EXPECT_EQ(g_boxes, static_cast<int>(std::size(calls)));
  EXPECT_EQ(g_boxText,
            u"Version Mismatch Error: Please ensure your generated code is the same version as "
            u"this library (Tovik Runtime: v16.1, Generator: v16.2).");
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

TEST(Objects, AreUsedOnSeveralThreadsWithSharedMetadataAndContext) {
  const CSerializationContext context;
  context.GetAdditionalRootAttributes();
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&context, i] {
      const CSmartPtr<Bag> bag = Sample(WString(10, static_cast<wchar>(u'a' + i)));
      const CSmartPtr<Bag> copy = NewBag(Record());
      for (int k = 0; k < 50; ++k) {
        copy->FromXml(bag->ToXml(true, true, EOL_LF, context).c_str(), context);
        EXPECT_EQ(copy->Value(0).GetString(), bag->Value(0).GetString());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(Objects, CopyTheirNameButNotTheirCount) {
  const CSmartPtr<Bag> bag = NewBag(Record(), u"named");
  const CSmartPtr<Bag> copy(new Bag(*bag));
  EXPECT_EQ(copy->Name(), u"named");
  EXPECT_EQ(copy->AddRef(), 2);
  EXPECT_EQ(copy->Release(), 1);
}
