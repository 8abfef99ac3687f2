// Drives tovikxml-convert as a user does: by its command line, files and pipes.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/data_rows.h"
#include "tests/support/temp_dir.h"
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
  for (const std::string form : {"-t xml", "-t xml -e utf-16", "-t fi", "-t json"}) {
    for (const std::string compression : {" -z gzip", " --compress=zlib"}) {
      SCOPED_TRACE(form + compression);
      const std::string packed = Through({form + compression}, large);
      EXPECT_LT(packed.size(), large.size() / 2);
      ExpectSameDocument(large, Through({"-t xml"}, packed));
    }
  }
}

TEST_F(Convert, KeepsThePrefixesOfTheSource) {
  const std::string written = Through({"-t fi", "-t json", "-t xml"}, kOrder);
  EXPECT_NE(written.find("<o:order "), std::string::npos) << written;
  EXPECT_NE(written.find("xmlns:q=\"urn:types\""), std::string::npos) << written;
  EXPECT_NE(written.find("<f:y "), std::string::npos) << written;
  const std::string plain = "<a xmlns='urn:a' type='s:int' xmlns:s='urn:s'><b/></a>";
  const std::string kept = Through({"-t xml"}, plain);
  EXPECT_NE(kept.find("<a xmlns=\"urn:a\" xmlns:s=\"urn:s\" type="), std::string::npos) << kept;
}

TEST_F(Convert, FindsPrefixesWhereTheSourceIsAmbiguous) {
  ForEachRow("convert.txt", "ambiguous prefixes", [&](const std::string& document) {
    ExpectSameDocument(document, Through({"-t xml", "-t json", "-t fi", "-t xml"}, document));
  });
}

TEST_F(Convert, SpellsJsonByItsOptions) {
  ForEachRow("convert.txt", "JSON by options",
             [&](const std::string& options, const std::string& xml, const std::string& json) {
               EXPECT_EQ(Through({options}, xml), json);
             });
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
  ExpectFailure(out, "<a>\n<b></a>", 1, "at line 2");
  ExpectFailure(out, "", 1, "empty");
  ExpectFailure(out, "{\"a\": [1,}", 1, "line 1");
  ExpectFailure(out, "{\"a\": 1, \"b\": 2}", 1, "");
  ExpectFailure(out, std::string("\xE0\x00\x00\x01\x00\x3C", 6), 1, "Failed to parse FastInfoset");
  ExpectFailure(out + " --from json", "<a/>", 1, "line 1");
  const std::string packed = Through({"-t xml -z gzip"}, "<a>" + std::string(999, 'x') + "</a>");
  ExpectFailure(out, packed.substr(0, packed.size() / 2), 1, "neither XML nor JSON");
  ExpectFailure("-t fi '" + Path("absent") + "'", "", 1, "cannot read");
  ExpectFailure("-t fi - '" + Path("absent/out") + "'", "<a/>", 1, "cannot write");
  EXPECT_EQ(FileBytes(Path("out.xml")), "before");
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
