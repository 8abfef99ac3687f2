#include "tovikxml/fastinfoset/writer.h"

#include <gtest/gtest.h>

#include "tests/fastinfoset/octets.h"
#include "tests/support/data_rows.h"
#include "tests/support/writer_script.h"

using namespace TovikXmlTest;

namespace {

const std::string kHead = "E0000001 00 ";

// "plain", "qualified", "suggested", "short" for tables of short strings alone, or the encoding of
// strings by its kind and index, such as "string 1 2".
CFastInfosetContext ContextNamed(const WString& name) {
  CFastInfosetContext context;
  if (name == u"suggested") context.SetSuggestedValues();
  context.SetQualifiedNames(name == u"qualified");
  if (name == u"short") {
    context.SetAttributeMaxAddLength(3);
    context.SetElementMaxAddLength(0);
  }
  if (name.starts_with(u"string")) {
    context.SetEncoding(
        it_string, {static_cast<CFastInfosetContext::EncodingKind>(FieldAs<int>(name.substr(7, 1))),
                    static_cast<std::uint32_t>(FieldAs<int>(name.substr(9)))});
  }
  return context;
}

CBinaryData WriteScript(const WString& script, const CFastInfosetContext& context = {},
                        FInfoDecl declaration = fid_None) {
  return WriteDocument([&](CFastInfosetWriter& w) { RunScript(w, script); }, context, declaration);
}

}  // namespace

TEST(FastInfosetWriter, WritesDocumentsOrRefuses) {
  ForEachRow("fastinfoset/writer.txt", "documents",
             [](const WString& settings, const WString& script, const std::string& outcome) {
               const auto write = [&] {
                 return WriteScript(script, ContextNamed(settings)).GetAsHexString();
               };
               EXPECT_EQ(Outcome(write),
                         outcome[0] == '!' ? Wide(outcome) : Digits(kHead + outcome));
             });
}

TEST(FastInfosetWriter, DeclaresTheDocument) {
  const auto begin = [](int declaration, const CFastInfosetContext& context = {}) {
    const CBinaryData octets = WriteScript(u"<a >", context, static_cast<FInfoDecl>(declaration));
    return std::string(octets.GetData(), octets.GetData() + octets.GetLength());
  };
  const std::string document = begin(fid_None);
  const char* attributes[] = {"",
                              "encoding='finf'",
                              "encoding='finf' standalone='yes'",
                              "encoding='finf' standalone='no'",
                              "version='1.0' encoding='finf'",
                              "version='1.0' encoding='finf' standalone='yes'",
                              "version='1.0' encoding='finf' standalone='no'",
                              "version='1.1' encoding='finf'",
                              "version='1.1' encoding='finf' standalone='yes'",
                              "version='1.1' encoding='finf' standalone='no'"};
  for (int i = 1; i < 10; ++i) {
    const std::string octets = begin(i);
    EXPECT_EQ(octets, "<?xml " + std::string(attributes[i]) + "?>" + document);
    EXPECT_EQ(TreeOf(ToHex(octets)), u"a");
  }
  for (const int wrong : {-1, 10}) EXPECT_THROW(begin(wrong), CTovikInvalidParamException);
  CFastInfosetContext context;
  context.SetUseGeneratedVocabulary(true);
  EXPECT_EQ(begin(fid_None, context).substr(4, 36),
            std::string("\x20\x10\0\x1F", 4) + "urn:tovikxml:external-vocabulary");
}
