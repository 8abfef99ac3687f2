#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <memory>
#include <new>

#include "tests/failures/allocation_faults.h"
#include "tests/failures/sample.h"
#include "tests/support/temp_dir.h"
#include "tests/support/text.h"

// Each allocation of an operation fails once, alone and with all behind it: the operation ends in
// `std::bad_alloc` or an exception of the library, loses no memory, and leaves objects that can be
// used and freed.

using namespace TovikXmlTest;

namespace {

constexpr long kMost = 100000;

enum class Ending { untouched, failed, survived, wrong };

// Runs an operation under a fault. It tells whether its result is right, also where it could do
// without the allocation that failed.
template <class Action>
Ending RunWithFault(long number, bool lasting, const Action& action) {
  bool isRight = false;
  try {
    const AllocationFaults faults(number, lasting);
    isRight = action();
  } catch (const std::bad_alloc&) {
    return Ending::failed;
  } catch (const CTovikException&) {
    return Ending::failed;
  }
  if (!isRight) return Ending::wrong;
  return AllocationFaults::HaveStruck() ? Ending::survived : Ending::untouched;
}

/// One operation. `prepare` makes it, outside of the faults, with what it works on.
template <class Prepare>
void FailEachAllocation(const std::string& name, Prepare prepare) {
  prepare()();  // what is made once for the program is made now
  for (const bool lasting : {false, true}) {
    long number = 0;
    Ending outcome = Ending::failed;
    while (outcome != Ending::untouched && ++number < kMost) {
      const long before = LiveBlocks();
      outcome = RunWithFault(number, lasting, prepare());
      ASSERT_NE(outcome, Ending::wrong) << name << ": allocation " << number;
      ASSERT_EQ(LiveBlocks(), before)
          << name << ": allocation " << number << " lasting " << lasting;
    }
    EXPECT_GT(number, 1) << name << " allocates nothing";
    EXPECT_LT(number, kMost) << name;
  }
}

WString XmlOf(const Bag& bag) {
  return bag.ToXml(false, false, EOL_LF, SampleContext());
}

CSmartPtr<Bag> FilledSample() {
  CSmartPtr<Bag> bag = NewBag(Sample());
  bag->FromXml(kSampleXml.c_str(), CSerializationContext());
  return bag;
}

/// An object for a reading that may fail: afterwards it is written if it can be, read again, and
/// holds what it should.
class Subject {
 public:
  explicit Subject(const WString& expected) : m_expected(expected), m_bag(NewBag(Sample())) {}
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;
  ~Subject() {
    try {
      const WString xml = XmlOf(*m_bag);
      EXPECT_TRUE(!m_isRead || xml == m_expected);
    } catch (const CTovikException&) {
      EXPECT_FALSE(m_isRead);  // it may lack what is mandatory
    }
    m_bag->FromXml(kSampleXml.c_str(), CSerializationContext());
    EXPECT_EQ(XmlOf(*m_bag), kSampleXml);
  }
  template <class Read>
  bool Try(Read read) {
    read(*m_bag);
    return m_isRead = true;
  }

 private:
  const WString& m_expected;
  bool m_isRead = false;
  CSmartPtr<Bag> m_bag;
};

template <class Read>
void FailReading(const std::string& name, Read read) {
  const CSmartPtr<Bag> unharmed = NewBag(Sample());
  read(*unharmed);
  const WString expected = XmlOf(*unharmed);
  FailEachAllocation(name, [&] {
    return [&read, subject = std::make_shared<Subject>(expected)] { return subject->Try(read); };
  });
}

/// `write` gives what it wrote.
template <class Write>
void FailWriting(const std::string& name, Write write) {
  const auto expected = write();
  FailEachAllocation(name, [&] { return [&] { return write() == expected; }; });
}

template <class Action>
void FailAction(const std::string& name, Action action) {
  FailEachAllocation(name, [&] { return [&] { return action(), true; }; });
}

class Overlapped {
 public:
  Overlapped() { Set(true); }
  ~Overlapped() { Set(false); }

 private:
  static void Set(bool on) {
    AsyncToXmlFile(on);
    AsyncFromXmlFile(on);
  }
};

}  // namespace

TEST(Allocation, FaultsAreInForce) {
  const long before = LiveBlocks();
  // Called as a function, and kept where it must be: a compiler may leave out a new and its delete.
  const auto allocate = [] {
    void* volatile block = ::operator new(1);
    ::operator delete(block);
    return true;
  };
  EXPECT_EQ(RunWithFault(1, false, allocate), Ending::failed);
  EXPECT_EQ(RunWithFault(2, false, allocate), Ending::untouched);
  void* volatile block = ::operator new(1);
  EXPECT_EQ(LiveBlocks(), before + 1);
  ::operator delete(block);
  const auto allocateInC = [] {
    void* volatile inC = std::malloc(1);
    std::free(inC);
    return true;
  };
  EXPECT_EQ(RunWithFault(1, false, allocateInC),
            ReachCLibraries() ? Ending::survived : Ending::untouched);
}

TEST(Allocation, FailsWhileReading) {
  const TempDir directory;
  const CSmartPtr<Bag> bag = FilledSample();
  const CSerializationContext context = SampleContext();
  const std::string xml = *EncodeUtf8(kSampleXml);
  const WString json = bag->ToJson(true, EOL_LF, context);
  const CBinaryData gzip =
      bag->ToXmlStream(true, true, Encoding_UTF16, EOL_LF, context, Compression_GZip);
  const CBinaryData octets = bag->ToFastInfosetStream(fid_V10, context, Compression_ZLib);
  const WString file = directory / u"f";
  bag->ToXmlFile(file.c_str(), true, false, Encoding_UTF8, EOL_LF, context, Compression_None);
  FailReading("text", [&](Bag& to) { to.FromXml(xml.c_str(), context); });
  FailReading("wide text", [&](Bag& to) { to.FromXml(kSampleXml.c_str(), context); });
  FailReading("gzip", [&](Bag& to) { to.FromXmlStream(gzip, context); });
  FailReading("Fast Infoset", [&](Bag& to) { to.FromXmlStream(octets, context); });
  FailReading("JSON", [&](Bag& to) { to.FromJson(json.c_str(), context); });
  FailReading("file", [&](Bag& to) { to.FromXmlFile(file.c_str(), context); });
  const Overlapped overlapped;
  FailReading("overlapped", [&](Bag& to) { to.FromXmlFile(file.c_str(), context); });
}

TEST(Allocation, FailsWhileWriting) {
  const TempDir directory;
  const CSmartPtr<Bag> bag = FilledSample();
  const CSerializationContext context = SampleContext();
  const WString file = directory / u"f";
  FailWriting("text", [&] { return bag->ToXml(true, true, EOL_LF, context); });
  FailWriting("prefixes",
              [&] { return bag->ToXml(false, false, EOL_LF, CSerializationContext()); });
  FailWriting("gzip", [&] {
    return bag->ToXmlStream(true, true, Encoding_UTF8, EOL_LF, context, Compression_GZip);
  });
  FailWriting("Fast Infoset",
              [&] { return bag->ToFastInfosetStream(fid_V10, context, Compression_None); });
  FailWriting("JSON", [&] {
    return bag->ToJsonStream(true, Encoding_UTF8, EOL_CRLF, context, Compression_ZLib);
  });
  // A small file is compared by its size, which takes no memory.
  const auto failFile = [&](const char* name, CompressionType compression) {
    const auto write = [&] {
      bag->ToXmlFile(file.c_str(), true, true, Encoding_UTF16, EOL_LF, context, compression);
      struct stat status {};
      ::stat((directory.Path() / "f").c_str(), &status);
      return status.st_size;
    };
    FailWriting(name, write);
  };
  failFile("file", Compression_GZip);
  const Overlapped overlapped;
  failFile("overlapped", Compression_None);
  EXPECT_EQ(XmlOf(*bag), kSampleXml);
}

// A change of a list is made or not made; and a list goes on afterwards.
TEST(Allocation, FailsWhileListsChange) {
  const WString value = u"letters";
  const auto makeWords = [] {
    return CSmartPtr<CstringCol>(new CstringCol(u"w", u"", 0, -1, u"", -1, -1, u"", u"", u"", u"",
                                                -1, -1, -1, CWhitespaceUtils::ws_none, u""));
  };
  FailEachAllocation("typed list", [&] {
    const CSmartPtr<CstringCol> words = makeWords();
    for (int i = 0; i < 4; ++i) words->Add(value + u" that are not a short string");
    return [words] {
      const int before = words->GetCount();
      try {
        words->AddAt(1, u"another that is not a short string");
      } catch (...) {
        if (words->GetCount() != before) return false;
        throw;
      }
      return words->GetCount() == before + 1;
    };
  });
  FailEachAllocation("elements", [&] {
    const CSmartPtr<CElementCol> elements(new CElementCol(u"", u"##any", u"", 0, -1));
    elements->Add(u"first", u"urn:a namespace that is long");
    return [elements] {
      const CSmartPtr<CElement> added =
          elements->Add(u"an element with a long name", u"urn:another long namespace");
      added->SetText(u"a text that is not a short string");
      added->GetAttributes()->Add(u"an attribute", u"a value that is not a short string", u"");
      added->GetChildElements()->Add(added->Clone().Get());
      return elements->Clone()->GetCount() == 2;
    };
  });
  FailAction("open content from an object", [] {
    const CSmartPtr<Bag> bag = FilledSample();
    const CSmartPtr<CElement> element(new CElement(bag.Get(), u"urn:s"));
    element->ToXml(false, true, EOL_LF, CSerializationContext());
    NewBag(Sample())->FromXmlElement(element.Get(), CSerializationContext());
  });
}

TEST(Allocation, FailsWhileTreesAreBuiltAndSearched) {
  FailAction("tree", [] {
    CXmlDocument document;
    document.LoadXml(kSampleXml.c_str());
    const CXmlElement* element = document.GetDocumentElement();
    while (element->GetFirstElement()) element = element->GetFirstElement();
    element->GetXPath();
    document.LoadXml("<again>a document</again>");
  });
  // A document whose loading failed can be loaded again.
  CXmlDocument document;
  for (long number = 1; number < 40; ++number) {
    RunWithFault(number, false, [&] { return document.LoadXml(kSampleXml.c_str()), true; });
    document.LoadXml("<again/>");
    EXPECT_EQ(document.GetDocumentElement()->GetLocalName(), u"again");
  }
}

TEST(Allocation, FailsWhileValuesAreComputed) {
  FailAction("values", [] {
    CBigInteger number(u"123456789012345678901234567890123456789012345678901234567890123456789");
    number *= number;
    number /= CBigInteger(u"98765432109876543210987654321098765432109876543210987654321");
    CDecimal decimal(u"1234567890123456789012345678901234567890123456789012345678.25");
    decimal *= decimal;
    CBinaryData bytes(number.ToString().c_str());
    CBinaryData copy = bytes;
    copy.Append(static_cast<unsigned char>('x'));
    TovikVariant value;
    value.SetDecimal(decimal);
    TovikVariant other = value;
    other.SetString(bytes.GetAsBase64() + value.ToString(u""));
    value = other;
  });
  FailAction("context", [] {
    CSerializationContext context = SampleContext();
    context.GetAdditionalRootAttributes()->Add(u"name", u"a value that is not short", u"");
    CSerializationContext copy = context;
    copy = SampleContext();
  });
}

// A pattern that is seen for the first time is kept, so that memory is not counted here.
TEST(Allocation, FailsWhilePatternsAreCompiled) {
  for (const bool lasting : {false, true}) {
    long number = 0;
    Ending outcome = Ending::failed;
    while (outcome != Ending::untouched && ++number < kMost) {
      const WString pattern = FormatString(u"[a-c]{2,%ld}(x|y)*%d", number + 1, lasting);
      const CSmartPtr<CstringCol> words(new CstringCol(u"w", u"", 0, -1, pattern.c_str(), -1, -1,
                                                       u"", u"", u"", u"", -1, -1, -1,
                                                       CWhitespaceUtils::ws_none, u""));
      const WString good = FormatString(u"abxy%d", lasting);
      outcome = RunWithFault(number, lasting, [&] { return words->Add(good), true; });
      words->Add(good);
      EXPECT_THROW(words->Add(u"z"), CTovikException);
    }
    EXPECT_GT(number, 3);
  }
}
