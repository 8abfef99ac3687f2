#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "tests/failures/sample.h"
#include "tests/support/temp_dir.h"

// A file that cannot be written to its end is reported, wherever the end comes.

using namespace TovikXmlTest;

namespace {

// While it lives, no file grows beyond the size.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    rlimit limit = m_before;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }

 private:
  void (*m_handler)(int);
  rlimit m_before{};
};

/// Several blocks of an overlapped file.
CSmartPtr<Bag> LargeSample() {
  CSmartPtr<Bag> bag = NewBag(Sample());
  bag->FromXml(kSampleXml.c_str(), CSerializationContext());
  const CSmartPtr<CXmlCollectionBase> held = bag->Value(5).GetXmlCollection();
  auto& words = dynamic_cast<CstringCol&>(*held);
  for (int i = 0; i < 600; ++i) words.Add(WString(static_cast<std::size_t>(i % 50 + 1), u'w'));
  return bag;
}

struct Road {
  const char* name;
  bool overlapped;
  std::function<void(const Bag&, const wchar*, const CSerializationContext&)> write;
};

const Road kRoads[] = {
    {"XML", false,
     [](const Bag& bag, const wchar* file, const CSerializationContext& context) {
       bag.ToXmlFile(file, true, true, Encoding_UTF8, EOL_LF, context, Compression_None);
     }},
    {"UTF-16", false,
     [](const Bag& bag, const wchar* file, const CSerializationContext& context) {
       bag.ToXmlFile(file, true, true, Encoding_UTF16, EOL_LF, context, Compression_None);
     }},
    {"gzip", false,
     [](const Bag& bag, const wchar* file, const CSerializationContext& context) {
       bag.ToXmlFile(file, true, true, Encoding_UTF8, EOL_LF, context, Compression_GZip);
     }},
    {"overlapped XML", true,
     [](const Bag& bag, const wchar* file, const CSerializationContext& context) {
       bag.ToXmlFile(file, true, true, Encoding_UTF16, EOL_LF, context, Compression_None);
     }},
    {"overlapped JSON", true,
     [](const Bag& bag, const wchar* file, const CSerializationContext& context) {
       bag.ToJsonFile(file, true, Encoding_UTF8, EOL_LF, context, Compression_None);
     }},
    {"Fast Infoset", false,
     [](const Bag& bag, const wchar* file, const CSerializationContext& context) {
       bag.ToFastInfosetFile(file, fid_None, context, Compression_None);
     }},
};

bool IsWritten(const Road& road, const Bag& bag, const wchar* file) {
  AsyncToXmlFile(road.overlapped);
  bool written = true;
  try {
    road.write(bag, file, SampleContext());
  } catch (const CTovikException&) {
    written = false;
  }
  AsyncToXmlFile(false);
  return written;
}

}  // namespace

TEST(Writing, ReportsAFileThatStopsAtAnyByte) {
  const TempDir directory;
  const WString name = directory / u"f";
  const CSmartPtr<Bag> bag = LargeSample();
  for (const Road& road : kRoads) {
    ASSERT_TRUE(IsWritten(road, *bag, name.c_str()));
    const std::string whole = FileBytes(directory.Path() / "f");
    ASSERT_GT(whole.size(), 100u);
    for (std::size_t size = 0; size <= whole.size(); size += size < 8 ? 1 : whole.size() / 60) {
      for (const std::size_t limit : {size, whole.size() - size}) {
        bool written = false;
        {
          const FileSizeLimit none(limit);
          written = IsWritten(road, *bag, name.c_str());
        }
        ASSERT_EQ(written, limit == whole.size()) << road.name << " at " << limit;
        const std::string part = FileBytes(directory.Path() / "f");
        ASSERT_LE(part.size(), limit);
        ASSERT_TRUE(whole.starts_with(part)) << road.name << " at " << limit;
      }
    }
  }
}

TEST(Writing, ReportsAFullDevice) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  const CSmartPtr<Bag> bag = LargeSample();
  for (const Road& road : kRoads) EXPECT_FALSE(IsWritten(road, *bag, u"/dev/full")) << road.name;
}
