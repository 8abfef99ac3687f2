#include "tovikxml/fastinfoset/vocabulary.h"

#include <gtest/gtest.h>

#include "tests/fastinfoset/octets.h"

using namespace TovikXmlTest;

namespace {

WString Parts(const CFIVocabulary::CFIQNameTable& table) {
  WString out;
  for (const auto& parts : table) {
    out += FormatString(u"%lu.%lu.%lu ", parts.prefixIndex, parts.namespaceIndex,
                        parts.localNameIndex);
  }
  return out;
}

WString Joined(const CFIVocabulary::CFIStringTable& table) {
  WString out;
  for (const WString& text : table) out += text + u" ";
  return out;
}

}  // namespace

TEST(Vocabulary, NumbersNamesOnce) {
  CFIVocabulary vocabulary;
  EXPECT_EQ(Joined(vocabulary.GetPrefixNamesTable()), u"xml ");
  EXPECT_EQ(Joined(vocabulary.GetNamespaceNamesTable()), u"http://www.w3.org/XML/1998/namespace ");
  vocabulary.AddElement(u"", u"", u"a");
  vocabulary.AddElement(u"p", u"urn:x", u"a");
  vocabulary.AddElement(u"q", u"urn:x", u"a");
  vocabulary.AddElement(u"p", u"urn:x", u"a");
  vocabulary.AddAttribute(u"p", u"urn:x", u"b");
  vocabulary.AddAttribute(u"", u"", u"a");
  EXPECT_EQ(Parts(vocabulary.GetElementNamesTable()), u"0.0.1 2.2.1 3.2.1 ");
  EXPECT_EQ(Parts(vocabulary.GetAttributeNamesTable()), u"2.2.2 0.0.1 ");
  EXPECT_EQ(Joined(vocabulary.GetPrefixNamesTable()), u"xml p q ");
  EXPECT_EQ(Joined(vocabulary.GetLocalNamesTable()), u"a b ");
}

TEST(Vocabulary, AppendsSingleStringsAsTheyCome) {
  CFIVocabulary vocabulary;
  vocabulary.AddLocalName(u"a");
  vocabulary.AddLocalName(u"a");
  vocabulary.AddAttributeValue(u"v");
  vocabulary.AddElementValue(u"w");
  vocabulary.AddElement(u"", u"", u"a");
  vocabulary.AddElement(u"", u"", u"b");
  EXPECT_EQ(Joined(vocabulary.GetLocalNamesTable()), u"a a b ");
  EXPECT_EQ(Joined(vocabulary.GetAttributeValuesTable()), u"v ");
  EXPECT_EQ(Joined(vocabulary.GetCharacterChunksTable()), u"w ");
  EXPECT_EQ(Parts(vocabulary.GetElementNamesTable()), u"0.0.1 0.0.3 ");
}

TEST(Vocabulary, IsCopiedWithContexts) {
  CSerializationContext context;
  CFIVocabulary& vocabulary = *context.GetFIContext().GetVocabulary();
  vocabulary.AddElement(u"p", u"urn:x", u"a");
  context.GetFIContext().SetElementMaxAddLength(9);
  context.SetMaxExpandedText(77);
  const CSerializationContext copy(context);
  CFIVocabulary& same = vocabulary;
  vocabulary = same;
  vocabulary.AddElement(u"", u"", u"b");
  EXPECT_EQ(Parts(vocabulary.GetElementNamesTable()), u"2.2.1 0.0.2 ");
  EXPECT_EQ(Parts(copy.GetFIContext().GetVocabulary()->GetElementNamesTable()), u"2.2.1 ");
  EXPECT_EQ(copy.GetFIContext().GetElementMaxAddLength(), 9u);
  EXPECT_EQ(copy.GetMaxExpandedText(), 77u);
}

TEST(FastInfosetContext, SuggestsEncodings) {
  CFastInfosetContext context;
  const auto encodings = [&] {
    std::string out;
    for (unsigned long type = 0; type <= it_xmlCollection; ++type) {
      const auto encoding = context.GetEncoding(type);
      out += "_at"[encoding.kind == 0 ? 0 : encoding.kind == 1 ? 1 : 2];
      if (encoding.kind != 0) out += std::to_string(encoding.index);
    }
    return out;
  };
  EXPECT_EQ(encodings(), std::string(29, '_'));
  context.SetEncoding(it_duration, {CFastInfosetContext::ces_EncodingAlgorithm, 10});
  context.SetAttributeMaxAddLength(3);
  context.SetSuggestedValues();
  EXPECT_EQ(encodings(), "_t1t2t3t3t4t5t3t4t5t5t7t8_a2a2a2a2a2a2a2a2__t6a1a1__");
  EXPECT_EQ(context.GetAttributeMaxAddLength(), 3u);
  EXPECT_EQ(context.GetElementMaxAddLength(), 6u);
  EXPECT_THROW(context.GetEncoding(29), CTovikInvalidParamException);
  EXPECT_THROW(context.SetEncoding(29, {}), CTovikInvalidParamException);
}

// A table that is full takes nothing, on either side: what is new is written again and again.
TEST(Vocabulary, EndsAtTheLimitOfTheFormat) {
  CSerializationContext context;
  CFastInfosetContext& settings = context.GetFIContext();
  settings.SetUseGeneratedVocabulary(true);
  settings.SetExternalVocabularyURI(u"u");
  CFIVocabulary& vocabulary = *settings.GetVocabulary();
  for (unsigned i = 0; i < (1u << 20) - 1; ++i) {
    const WString text = FormatString(u"%x", i);
    vocabulary.AddLocalName(text);
    vocabulary.AddElementValue(text);
  }
  const CBinaryData octets = WriteDocument(
      [](CFastInfosetWriter& w) { RunScript(w, u"<x 'x' <y 'y' <x 'x' <y 'y' > > > >"); },
      settings);
  EXPECT_EQ(octets.GetAsHexString(),
            Digits("E0000001 20 1000 0075 38F0 3C0078 9078 3C0079 8079 00 B80BFBEF 3C0079 8079 "
                   "FFFF F0"));
  EXPECT_EQ(TreeOf(octets, context), u"x'x'(y'y'(x'x'(y'y')))");
  vocabulary.AddLocalName(u"x");
  EXPECT_EQ(Outcome([&] { vocabulary.AddElement(u"", u"", u"y"); }),
            u"!InvalidState The vocabulary table is full");
  EXPECT_EQ(Parts(vocabulary.GetElementNamesTable()), u"");
  EXPECT_THROW(vocabulary.AddLocalName(u"y"), CTovikInvalidStateException);
  vocabulary.AddElement(u"", u"", u"x");
}
