#include "tovikxml/settings/serialization_context.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"
#include "tovikxml/collections/attribute_col.h"
#include "tovikxml/settings/fastinfoset_context.h"
#include "tovikxml/settings/json_context.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

TEST(SerializationContext, RefusesToIgnoreBothUnknownAndMissingElements) {
  const WString both =
      u"!InvalidState The parser can only ignore additional elements, or ignore the fact that some "
      u"required ones are missing, you can not ignore both\nSet Ignore";
  CSerializationContext context;
  context.SetIgnoreMissingMandatoryElements(true);
  EXPECT_EQ(
      Outcome([&] { context.SetIgnoreUnknownElements(true); }),
      both + u"MissingMandatoryElements to false before setting IgnoreUnknownElements to true");
  EXPECT_FALSE(context.GetIgnoreUnknownElements());
  context.SetIgnoreMissingMandatoryElements(false);
  context.SetIgnoreUnknownElements(true);
  EXPECT_EQ(
      Outcome([&] { context.SetIgnoreMissingMandatoryElements(true); }),
      both + u"UnknownElements to false before setting IgnoreMissingMandatoryElements to true");
  EXPECT_FALSE(context.GetIgnoreMissingMandatoryElements());
}

TEST(SerializationContext, TakesBlanksAndTabsAsIndent) {
  CSerializationContext context;
  EXPECT_EQ(context.GetIndentChars(), u"\t");
  context.SetIndentChars(u"  \t");
  EXPECT_EQ(Outcome([&] { context.SetIndentChars(u" x"); }),
            u"!InvalidParam IndentChars can only contain Whitespace characters, i.e. \t or spaces");
  EXPECT_EQ(context.GetIndentChars(), u"  \t");
  context.SetIndentChars(nullptr);
  EXPECT_EQ(context.GetIndentChars(), u"");
}

TEST(SerializationContext, IgnoresNamespacesWhereASchemaHasNone) {
  CSerializationContext context;
  context.SetSchemaType(st_NamespacedAlternate);
  EXPECT_FALSE(context.GetIgnoreNamespaces());
  context.SetSchemaType(st_NoNamespaces);
  EXPECT_TRUE(context.GetIgnoreNamespaces());
}

TEST(SerializationContext, CopiesItsSettingsAndSharesItsRootAttributes) {
  CSerializationContext source;
  source.SetWriteTypeAttribute(false);
  source.SetStripCDATA(false);
  source.SetIgnoreMissingChoice(true);
  source.SetMaxNesting(7);
  source.SetMaxDecompressionRatio(8);
  source.SetMaxTableEntries(9);
  source.SetInLineSchema(u"<s/>");
  source.GetNamespaceAliases().Add(u"p", u"urn:p");
  source.GetProcessingInstructions().push_back(u"<?pi?>");
  source.GetJsonContext().SetSupportRoundtrip(jrt_Bare);
  source.GetAdditionalRootAttributes()->Add(u"a");

  CSerializationContext copy(source);
  EXPECT_FALSE(copy.GetWriteTypeAttribute());
  EXPECT_FALSE(copy.GetStripCDATA());
  EXPECT_TRUE(copy.GetIgnoreMissingChoice());
  EXPECT_EQ(copy.GetMaxNesting(), 7);
  EXPECT_EQ(copy.GetMaxDecompressionRatio(), 8u);
  EXPECT_EQ(copy.GetMaxTableEntries(), 9u);
  EXPECT_EQ(copy.GetInLineSchema(), u"<s/>");
  EXPECT_TRUE(copy.GetNamespaceAliases().DoesAliasExist(u"p"));
  EXPECT_EQ(copy.GetProcessingInstructions().at(0), u"<?pi?>");
  EXPECT_EQ(copy.GetJsonContext().GetSupportRoundtrip(), jrt_Bare);
  EXPECT_NE(&copy.GetJsonContext(), &source.GetJsonContext());
  source.GetAdditionalRootAttributes()->Add(u"b");
  EXPECT_EQ(copy.GetAdditionalRootAttributes()->GetCount(), 2);

  // References to what hangs off the context outlive the assignment, and so do listeners that use
  // it while the former attributes go.
  class Asker : public IEventSink {
   public:
    void OnEvent(CXmlObjectBase*, MsgType, void*) override {
      CSerializationContext::GetDefaultContext().GetJsonContext();
    }
  } asker;
  const CJsonContext& json = copy.GetJsonContext();
  copy.GetFIContext().SetElementMaxAddLength(1);
  source = copy;
  copy.GetAdditionalRootAttributes()->AddEventListener(&asker);
  source = CSerializationContext();
  copy = CSerializationContext();
  EXPECT_EQ(&json, &copy.GetJsonContext());
  EXPECT_EQ(copy.GetFIContext().GetElementMaxAddLength(), 6u);
  EXPECT_EQ(copy.GetNamespaceAliases().GetNamespaceCount(), 0);
  EXPECT_EQ(copy.GetAdditionalRootAttributes()->GetCount(), 0);
  EXPECT_EQ(copy.GetJsonContext().GetSupportRoundtrip(), jrt_Full);
  EXPECT_TRUE(copy.GetJsonContext().GetAllowComments());
}
