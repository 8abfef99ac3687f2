// Drives tovikxml-convert as a user does: by its command line, files and pipes.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/data_rows.h"
#include "tests/support/temp_dir.h"
#include "tests/support/text.h"
#include "tests/support/tree_text.h"
#include "tovikxml/tovikxml.h"

namespace {

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

// Of the Debian packages shared-mime-info, xkb-data, iso-codes and adwaita-icon-theme.
constexpr const char* kRealDocuments[] = {
    "/usr/share/mime/packages/freedesktop.org.xml", "/usr/share/X11/xkb/rules/base.xml",
    "/usr/share/xml/iso-codes/iso_3166.xml",
    "/usr/share/icons/Adwaita/scalable/places/folder-documents-symbolic.svg"};

const std::string kXmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

const std::string kOrder =
    "<o:order xmlns:o='urn:orders' xmlns:q='urn:types' xmlns:xsi="
    "'http://www.w3.org/2001/XMLSchema-instance' id='007' xsi:type='q:Rush'>"
    "<o:item q:sku='1200345.50'>a &lt; b</o:item><o:item/><o:item>\xC3\xA9\xF0\x9F\x98\x80</o:item>"
    "<note xml:lang='en'>2024-02-29</note><o:item>true</o:item>"
    "<f:x xmlns:f='urn:foreign'><f:y f:z=''>1234567890123</f:y></f:x></o:order>";

struct Result {
  int status = -1;
  std::string out;
  std::string err;
};

// The document in a line, without the blanks between elements.
WString TreeOf(const std::string& bytes) {
  CXmlDocument document;
  document.LoadXmlStream(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  return Describe(document, BlankTexts::kLeftOut);
}

void ExpectSameDocument(const std::string& a, const std::string& b) {
  EXPECT_EQ(TreeOf(a), TreeOf(b));
}

class Convert : public testing::Test {
 protected:
  std::string Path(const char* name) const { return (m_dir.Path() / name).string(); }

  Result Run(const std::string& arguments, const std::string& input = "") const {
    MakeFile(Path("stdin"), input);
    return Shell(TOVIKXML_CONVERT " " + arguments + " <'" + Path("stdin") + "'");
  }

  Result Shell(const std::string& command) const {
    const std::string line = command + " >'" + Path("stdout") + "' 2>'" + Path("stderr") + "'";
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileBytes(Path("stdout")),
            FileBytes(Path("stderr"))};
  }

  // Takes a document through outputs with these options, one after the other.
  std::string Through(const std::vector<std::string>& steps, std::string document) const {
    for (const std::string& step : steps) {
      const Result result = Run(step, document);
      EXPECT_EQ(result.status, 0) << step << ": " << result.err;
      EXPECT_EQ(result.err, "") << step;
      document = result.out;
    }
    return document;
  }

  void ExpectFailure(const std::string& arguments, const std::string& input, int status,
                     const std::string& message) const {
    const Result result = Run(arguments, input);
    EXPECT_EQ(result.status, status) << arguments;
    EXPECT_EQ(result.out, "") << arguments;
    EXPECT_NE(result.err.find(message), std::string::npos) << arguments << ": " << result.err;
  }

  TempDir m_dir;
};

TEST_F(Convert, KeepsADocumentInEveryDirection) {
  const std::vector<std::string> forms = {"-t xml",
                                          "-t xml -e utf-16",
                                          "-t xml -p",
                                          "-t fi",
                                          "-t fi --suggested-values",
                                          "-t json",
                                          "-t json -p --indent tab",
                                          "-t json --typed",
                                          "-t json -e utf-16"};
  for (const std::string& first : forms) {
    for (const std::string second : {"-t xml", "-t fi", "-t json"}) {
      SCOPED_TRACE(first + ", " + second);
      ExpectSameDocument(kOrder, Through({first, second, "-t xml"}, kOrder));
    }
  }
}

TEST_F(Convert, ReadsCompressedInputOfEveryFormat) {
  std::string large = kOrder;
  large.insert(large.rfind("</"), "<t>" + std::string(2000, 'x') + "</t>");
  for (const std::string form : {"-t xml", "-t fi", "-t json", "-t json -e utf-16"}) {
    for (const std::string compression : {" -z gzip", " --compress=zlib"}) {
      SCOPED_TRACE(form + compression);
      const std::string packed = Through({form + compression}, large);
      EXPECT_LT(packed.size(), large.size() / 2);
      ExpectSameDocument(large, Through({"-t xml"}, packed));
      ExpectFailure("-t xml", packed + "x", 1, "behind the end of the compressed data");
      ExpectFailure("-t xml", packed.substr(0, packed.size() / 2), 1, "ends too early");
    }
  }
  const std::string members = Path("members.gz");
  Shell("for part in '<a>' '<b/>' '</a>'; do printf \"$part\" | gzip >>'" + members + "'; done");
  EXPECT_EQ(Through({"-t xml '" + members + "'"}, ""), kXmlHead + "<a><b/></a>");
}

TEST_F(Convert, KeepsNamespacesWhereTheyStand) {
  ForEachRow("convert.txt", "kept word for word", [&](const std::string& document) {
    for (const std::string form : {"-t xml -z none", "-t json --typed", "-t fi"}) {
      EXPECT_EQ(Through({form, "-t xml"}, document), kXmlHead + document) << form;
    }
  });
}

TEST_F(Convert, MakesWellFormedTextOfFastInfoset) {
  ForEachRow(
      "convert.txt", "Fast Infoset as XML text",
      [&](const std::string& octets, const std::string& xml) {
        const std::string written = Through({"-t xml"}, FromHex("E0000001" + octets));
        EXPECT_EQ(written, kXmlHead + xml);
        EXPECT_EQ(Through({"-t fi --suggested-values", "-t json", "-t xml"}, written), written);
      });
}

TEST_F(Convert, SpellsJsonByItsOptions) {
  ForEachRow("convert.txt", "JSON by options",
             [&](const std::string& options, const std::string& xml, const std::string& json) {
               EXPECT_EQ(Run(options, xml).out, json);
             });
}

TEST_F(Convert, TellsThatTextWasMoved) {
  const Result moved = Run("-t xml", "<a>x<b/></a>");
  EXPECT_EQ(moved.out, kXmlHead + "<a><b/>x</a>");
  EXPECT_NE(moved.err.find("text beside elements stands behind them"), std::string::npos);
  Through({"-t xml -p", "-t json"}, "<a> <b/>\n</a>");
  Through({"-t xml"}, "{\"a\": {\"b\": 1, \"#text\": \"x\"}}");
}

TEST_F(Convert, PacksSuggestedValues) {
  std::string document = "<a>";
  for (int i = 0; i < 100; ++i) document += "<n>" + std::to_string(1234567890 + i) + "</n>";
  document += "</a>";
  const std::string plain = Through({"-t fi"}, document);
  const std::string packed = Through({"-t fi --suggested-values"}, document);
  EXPECT_LT(packed.size() + 300, plain.size());
}

TEST_F(Convert, TakesFilesAndTellsWhatItDid) {
  MakeFile(Path("in.xml"), kOrder);
  const std::string files = "'" + Path("in.xml") + "' '" + Path("out.json") + "'";
  const Result result = Run("--stats " + files);
  EXPECT_EQ(result.status, 0);
  const std::string written = FileBytes(Path("out.json"));
  const std::string expected = "xml, " + std::to_string(kOrder.size()) + " bytes -> json, " +
                               std::to_string(written.size()) + " bytes; read in ";
  EXPECT_EQ(result.err.substr(0, expected.size()), expected);
  ExpectSameDocument(kOrder, Through({"-t xml"}, written));

  const std::string inPlace = "'" + Path("in.xml") + "'";
  EXPECT_EQ(Run("-t fi " + inPlace + " " + inPlace).status, 0);
  ExpectSameDocument(kOrder, Through({"-t xml"}, FileBytes(Path("in.xml"))));
}

TEST_F(Convert, RefusesFaultyDocumentsAndLeavesTheOutput) {
  MakeFile(Path("out.xml"), "before");
  const std::string out = "- '" + Path("out.xml") + "'";
  ForEachRow("convert.txt", "refused",
             [&](const std::string& document, const std::string& message) {
               ExpectFailure(out, document, 1, message);
             });
  ForEachRow("convert.txt", "refused octets",
             [&](const std::string& octets, const std::string& message) {
               ExpectFailure(out, FromHex("E0000001" + octets), 1, message);
             });
  ExpectFailure(out + " --from json", "<a/>", 1, "line 1");
  ExpectFailure("-t fi '" + Path("absent") + "'", "", 1, "cannot read");
  EXPECT_EQ(FileBytes(Path("out.xml")), "before");
}

// With a limit on the size of files in place of a full disk.
TEST_F(Convert, WritesFilesWholeOrNotAtAll) {
  namespace fs = std::filesystem;
  const fs::path folder = Path("folder");
  fs::create_directory(folder);
  const std::string file = (folder / "out.xml").string();
  const std::string link = (folder / "link").string();
  const std::string large = "<a>" + std::string(100000, 'x') + "</a>";
  MakeFile(Path("large.xml"), large);
  MakeFile(file, "before");
  fs::permissions(file, fs::perms(0640));
  fs::create_symlink("out.xml", link);
  const std::string command = TOVIKXML_CONVERT " -t xml '" + Path("large.xml") + "' '" + link + "'";
  const Result failed = Shell("trap '' XFSZ; ulimit -f 8; " + command);
  EXPECT_EQ(failed.status, 1);
  EXPECT_NE(failed.err.find("cannot write " + link), std::string::npos) << failed.err;
  EXPECT_EQ(FileBytes(file), "before");

  EXPECT_EQ(Shell(command).status, 0);
  EXPECT_EQ(FileBytes(file), kXmlHead + large);
  EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 2);

  EXPECT_EQ(Run("-t xml - /dev/stdout", "<a/>").out, kXmlHead + "<a/>");
  EXPECT_EQ(Run("-t xml - /dev/full", "<a/>").status, 1);
  EXPECT_EQ(Shell("(" TOVIKXML_CONVERT " --help >/dev/full)").status, 1);
  ExpectFailure("-t fi - '" + Path("absent/out") + "'", "<a/>", 1, "cannot write");
  ExpectFailure("-t fi - '" + folder.string() + "'", "<a/>", 1, "cannot write");
}

TEST_F(Convert, LimitsTheNesting) {
  std::string deep;
  for (int i = 0; i < 5000; ++i) deep += "<a>";
  for (int i = 0; i < 5000; ++i) deep += "</a>";
  ExpectFailure("-t xml", deep, 1, "deeper than the limit of 256 levels");
  EXPECT_EQ(Run("-t fi --max-nesting 5000", deep).status, 0);
}

TEST_F(Convert, TellsWrongUsage) {
  ForEachRow("convert.txt", "wrong usage",
             [&](const std::string& arguments, const std::string& message) {
               ExpectFailure(arguments, "<a/>", 2, message);
             });
  EXPECT_EQ(Run("--help").out.substr(0, 6), "usage:");
  EXPECT_NE(Run("--version").out.find("16.1"), std::string::npos);
}

TEST_F(Convert, KeepsRealDocuments) {
  int found = 0;
  for (const char* path : kRealDocuments) {
    if (!std::filesystem::exists(path)) continue;
    SCOPED_TRACE(path);
    ++found;
    const std::string source = FileBytes(path);
    ExpectSameDocument(source, Through({"-t fi --suggested-values", "-t json --typed -z gzip",
                                        "-t xml -e utf-16", "-t fi -z zlib", "-t xml"},
                                       source));
  }
  if (found == 0) GTEST_SKIP() << "none of the documents is here";
}

// The canonical form by an independent program. Prefixes are part of it.
TEST_F(Convert, AgreesWithXmllint) {
  if (Shell("xmllint --version").status != 0) GTEST_SKIP() << "xmllint is absent";
  MakeFile(Path("source.xml"), kOrder);
  MakeFile(Path("result.xml"), Through({"-t fi", "-t json -p", "-t xml"}, kOrder));
  const Result source = Shell("xmllint --exc-c14n '" + Path("source.xml") + "'");
  const Result result = Shell("xmllint --exc-c14n '" + Path("result.xml") + "'");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_NE(source.out, "");
  EXPECT_EQ(result.out, source.out);
}

}  // namespace
