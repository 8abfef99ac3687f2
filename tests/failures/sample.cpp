#include "tests/failures/sample.h"

namespace TovikXmlTest {
namespace {

const Shape& Inner() {
  static Shape shape(xgt_All, xet_Element, u"inner");
  static const bool built = (shape.Nillable()
                                 .Add(Prim<CElementInfoAllPrimOpt>(u"bytes", 0, it_base64Binary))
                                 .Add(Prim<CElementInfoAllPrimOpt>(u"date", 1, it_datetime))
                                 .Add(Prim<CElementInfoAllPrimOpt>(u"span", 2, it_duration))
                                 .Add(Attribute(u"id", 3, true, it_i4)),
                             true);
  (void)built;
  return shape;
}

}  // namespace

const Shape& Sample() {
  static Shape shape(xgt_Sequence, xet_Element, u"sample", u"urn:s");
  static const bool built =
      (shape.Add(Attribute(u"note", 0))
           .Add(new CAttributeInfoAny(u"", u"", 1, true, u"##any", u"urn:s", u""))
           .Add(Prim<CElementInfoSeqPrimMnd>(u"text", 2, it_string, u"", false, u"urn:s"))
           .Add(Prim<CElementInfoSeqPrimOpt>(u"number", 3, it_decimal))
           .Add(Prim<CElementInfoSeqPrimOpt>(u"count", 4, it_integer, u"", true))
           .Add(new CElementInfoSeqPrimCol(u"word", u"", 5))
           .Add(new CElementInfoSeqClsCol(u"inner", u"", 6, xet_Element))
           .Add(new CElementInfoSeqUntpdCol(u"AnyElement", u"", 7))
           .StartWith(1,
                      [](TovikVariant& value) {
                        value.SetXmlCollection(new CAttributeCol(u"", u"##any", u"urn:s"));
                      })
           .StartWith(5,
                      [](TovikVariant& value) {
                        value.SetXmlCollection(new CstringCol(u"word", u"", 0, -1, u"[a-z]+", -1,
                                                              100, u"", u"", u"", u"", -1, -1, -1,
                                                              CWhitespaceUtils::ws_collapse, u""));
                      })
           .StartWithItems(6, u"inner", Inner())
           .StartWith(7,
                      [](TovikVariant& value) {
                        value.SetXmlCollection(new CElementCol(u"", u"##any", u"urn:s", 0, -1));
                      }),
       true);
  (void)built;
  return shape;
}

const WString kSampleXml =
    u"<s:sample xmlns:s=\"urn:s\" xmlns:x=\"urn:x\" note=\"a note too long for a short string\" "
    u"x:extra=\"another value that needs room of its own\"><s:text>\u00e9\U0001F600 &lt;text&gt; "
    u"that is too long for a short string</s:text><number>-"
    u"1234567890123456789012345678901234567890123456789012345678901234567890.5</number><count>"
    u"123456789012345678901234567890123456789012345678901234567890123456789012345678901</count>"
    u"<word>abcdefghijklmnopqrstuvwxyz</word><word>short</word><inner id=\"7\"><bytes>"
    u"VGhlIHF1aWNrIGJyb3duIGZveCBqdW1wcw==</bytes><date>2024-02-29T12:00:00Z</date><span>P1DT2H"
    u"</span></inner><inner/><x:open at=\"a value of open content, not short\"><x:deeper>with text "
    u"that is not short either</x:deeper></x:open></s:sample>";

CSerializationContext SampleContext() {
  CSerializationContext context;
  context.GetNamespaceAliases().Add(u"s", u"urn:s");
  context.GetNamespaceAliases().Add(u"x", u"urn:x");
  context.GetFIContext().SetSuggestedValues();
  context.GetFIContext().GetVocabulary()->AddElement(u"s", u"urn:s", u"text");
  context.GetFIContext().SetUseGeneratedVocabulary(true);
  return context;
}

}  // namespace TovikXmlTest
