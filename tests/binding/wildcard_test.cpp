#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/bag.h"
#include "tests/support/small_stack.h"
#include "tests/support/text.h"

// The wildcard records: what each answers, where it leaves the cursor, and what wildcards carry
// through the formats.

using namespace TovikXmlTest;

namespace {

constexpr const wchar* kTarget = u"urn:t";

template <class Record>
CElementInfo* Any(const wchar* name = u"AnyElement", const wchar* allowed = u"##other") {
  return new Record(name, u"urn:record", 0, allowed, kTarget);
}

template <class Record>
CElementInfo* Many(const wchar* name = u"AnyElement") {
  return new Record(name, u"urn:record", 0);
}

CElement* Foreign(Bag& bag, int property) {
  return static_cast<CElement*>(bag.Value(property).GetXmlObject().Get());
}

/// What one call of `ElementFromXml` does at the first child of a document: "+" or "-" for the
/// answer, the name under the cursor, and behind it what the property holds: ":" and the name of an
/// element, which is "old" at the start, or "#" and a count. Or the message.
std::string Ask(CElementInfo* record, const char* document, XmlElementType parentType) {
  const bool isCollection = dynamic_cast<CElementInfoSeqCol*>(record) ||
                            dynamic_cast<CElementInfoAllCol*>(record) ||
                            dynamic_cast<CElementInfoChoiceCol*>(record);
  Shape shape(xgt_Sequence);
  shape.Add(record).StartWith(0, [isCollection](TovikVariant& value) {
    if (isCollection) {
      value.SetXmlCollection(new CElementCol(u"", u"##any", kTarget, 0, 2));
    } else {
      value.SetXmlObject(new CElement(u"old", u"", u"##other", kTarget));
    }
  });
  CXmlDocument parsed;
  parsed.LoadXml(document);
  CXmlElement* root = parsed.GetDocumentElement();
  CXmlElement* child = root->GetFirstElement();
  const CSmartPtr<Bag> bag = NewBag(shape);
  std::string result;
  try {
    const CSerializationContext context;
    result = record->ElementFromXml(context, bag, root, &child, u"", parentType) ? "+" : "-";
  } catch (const CTovikException& e) {
    return DisplayUtf8(e.GetMessage());
  }
  if (child) result += DisplayUtf8(child->GetLocalName());
  if (isCollection)
    return result + "#" + std::to_string(bag->Value(0).GetXmlCollection()->GetCount());
  const CElement* held = Foreign(*bag, 0);
  return result + (held ? ":" + DisplayUtf8(held->GetName()) : "");
}

constexpr const char* kAllowed = "<r><a xmlns='urn:u'/><z/></r>";
constexpr const char* kForbidden = "<r><a xmlns='urn:t'/><z/></r>";
constexpr const char* kEmpty = "<r/>";
constexpr const char* kRun = "<r><a/><a/><z/></r>";
constexpr const char* kLong = "<r><a/><a/><a/></r>";

/// An envelope in urn:t: a note of another namespace, then any number of elements, any attributes.
const Shape& Envelope() {
  static Shape shape(xgt_Sequence, xet_Element, u"envelope", kTarget);
  static const bool built =
      (shape.Add(new CElementInfoSeqUntpdOpt(u"note", kTarget, 0, u"##other", kTarget))
           .Add(new CElementInfoSeqUntpdCol(u"AnyElement", kTarget, 1))
           .Add(new CAttributeInfoAny(u"", u"", 2, true, u"##any", kTarget, u""))
           .StartWith(1,
                      [](TovikVariant& value) {
                        value.SetXmlCollection(new CElementCol(u"", u"##any", kTarget, 0, 3));
                      })
           .StartWith(2,
                      [](TovikVariant& value) {
                        value.SetXmlCollection(new CAttributeCol(u"", u"##any", kTarget));
                      }),
       true);
  (void)built;
  return shape;
}

const WString kLetter =
    u"<t:envelope xmlns:f=\"urn:f\" xmlns:g=\"urn:g\" xmlns:t=\"urn:t\" f:id=\"7\">"
    u"<f:note g:lang=\"en\" at=\"&lt;&amp;&quot;\"><f:p>one</f:p><f:p/><g:q><r/></g:q>tail</f:note>"
    u"<t:open>\u00e9\U0001F600</t:open><g:a g:n=\"\"/><g:a>2</g:a></t:envelope>";

CSerializationContext WithAliases() {
  CSerializationContext context;
  for (const wchar* letter : {u"f", u"g", u"t"}) {
    context.GetNamespaceAliases().Add(letter, (WString(u"urn:") + letter).c_str());
  }
  return context;
}

WString WithoutLayout(WString text) {
  text.erase(std::remove_if(text.begin(), text.end(),
                            [](wchar unit) { return unit == u'\n' || unit == u'\t'; }),
             text.end());
  return text;
}

struct DefaultNamespace : CElementInfoSeqCol {
  using CElementInfo::GetAnyDefaultNamespace;
};

}  // namespace

TEST(WildcardRecord, AnswersByGroupAndOccurrence) {
  const std::string missing = "Failed to find the required child element [AnyElement].\nPath: /r";
  const std::string forbidden =
      "Failed to find the required element from namespace [urn:record].\nPath: /r";
  const std::string tooMany = "The Maximum number of [] elements allowed in this collection is 2";
  constexpr XmlElementType kReal = xet_Element, kPart = xet_PseudoElement;
  using Make = CElementInfo* (*)();
  const struct {
    Make make;
    const char* document;
    XmlElementType parentType;
    std::string outcome;
  } rows[] = {
      {[] { return Any<CElementInfoSeqUntpdMnd>(); }, kAllowed, kReal, "+z:a"},
      {[] { return Any<CElementInfoSeqUntpdMnd>(); }, kAllowed, kPart, "+z:a"},
      {[] { return Any<CElementInfoSeqUntpdMnd>(u"a"); }, kAllowed, kReal, "+z:a"},
      {[] { return Any<CElementInfoSeqUntpdMnd>(); }, kForbidden, kReal, forbidden},
      {[] { return Any<CElementInfoSeqUntpdMnd>(); }, kForbidden, kPart, "-a:old"},
      {[] { return Any<CElementInfoSeqUntpdMnd>(u"b"); }, kAllowed, kReal, forbidden},
      {[] { return Any<CElementInfoSeqUntpdMnd>(u"b"); }, kAllowed, kPart, "-a:old"},
      {[] { return Any<CElementInfoSeqUntpdMnd>(); }, kEmpty, kReal, missing},
      {[] { return Any<CElementInfoSeqUntpdMnd>(); }, kEmpty, kPart, missing},
      {[] { return Any<CElementInfoSeqUntpdOpt>(); }, kAllowed, kReal, "+z:a"},
      {[] { return Any<CElementInfoSeqUntpdOpt>(); }, kForbidden, kReal, "+a:old"},
      {[] { return Any<CElementInfoSeqUntpdOpt>(u"b"); }, kAllowed, kReal, "+a:old"},
      {[] { return Any<CElementInfoSeqUntpdOpt>(); }, kEmpty, kReal, "+:old"},
      {[] { return Any<CElementInfoAllUntpdMnd>(); }, kAllowed, kReal, "+z:a"},
      {[] { return Any<CElementInfoAllUntpdMnd>(); }, kForbidden, kReal, "-a:old"},
      {[] { return Any<CElementInfoAllUntpdMnd>(); }, kEmpty, kReal, "-:old"},
      {[] { return Any<CElementInfoAllUntpdOpt>(); }, kAllowed, kReal, "+z:a"},
      {[] { return Any<CElementInfoAllUntpdOpt>(u"b"); }, kAllowed, kReal, "-a:old"},
      {[] { return Any<CElementInfoAllUntpdOpt>(); }, kEmpty, kReal, "-:old"},
      {[] { return Any<CElementInfoChoiceUntpdOpt>(); }, kAllowed, kReal, "+z:a"},
      {[] { return Any<CElementInfoChoiceUntpdOpt>(); }, kForbidden, kReal, "-a"},
      {[] { return Any<CElementInfoChoiceUntpdOpt>(u"b"); }, kAllowed, kReal, "-a"},
      {[] { return Any<CElementInfoChoiceUntpdOpt>(); }, kEmpty, kReal, "-:old"},
      // collections: any name, or a run of one
      {[] { return Many<CElementInfoSeqUntpdCol>(); }, kForbidden, kReal, "+#2"},
      {[] { return Many<CElementInfoSeqUntpdCol>(); }, kEmpty, kReal, "+#0"},
      {[] { return Many<CElementInfoSeqUntpdCol>(); }, kLong, kReal, tooMany},
      {[] { return Many<CElementInfoSeqUntpdCol>(); }, kLong, kPart, "-#3"},
      {[] { return Many<CElementInfoSeqUntpdCol>(u"a"); }, kRun, kReal, "+z#2"},
      {[] { return Many<CElementInfoSeqUntpdCol>(u"a"); }, "<r><a/><a xmlns='u:u'/></r>", kReal,
       "+a#1"},
      {[] { return Many<CElementInfoSeqUntpdCol>(u"b"); }, kRun, kReal, "+a#0"},
      {[] { return Many<CElementInfoSeqUntpdCol>(u"a"); }, kEmpty, kReal, "+#0"},
      {[] { return Many<CElementInfoAllUntpdCol>(u"b"); }, kForbidden, kReal, "-#2"},
      {[] { return Many<CElementInfoChoiceUntpdCol>(); }, kForbidden, kReal, "+#2"},
      {[] { return Many<CElementInfoChoiceUntpdCol>(u"a"); }, kRun, kReal, "+z#2"},
      {[] { return Many<CElementInfoChoiceUntpdCol>(u"b"); }, kRun, kReal, "-a#0"},
      {[] { return Many<CElementInfoChoiceUntpdCol>(); }, kLong, kReal, tooMany},
      {[] { return Many<CElementInfoChoiceUntpdCol>(u"a"); }, kLong, kPart, "-a#3"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Ask(row.make(), row.document, row.parentType), row.outcome)
        << "row " << &row - rows << " on " << row.document;
  }
}

TEST(WildcardRecord, ChoosesTheNamespaceOfItsElement) {
  const struct {
    const wchar* any;
    const wchar* defaultNamespace;
    WString result;
  } rows[] = {{u"##any", u"urn:d", u"urn:d"},
              {u"##other", u"urn:d", u""},
              {u"##other", u"", u"DefaultNamespace"},
              {u"##local", u"urn:d", u""},
              {u"##targetNamespace", u"urn:d", kTarget},
              {u"##targetNamespace ##local", u"urn:d", kTarget},
              {u"##any urn:a", u"urn:d", u"urn:d"},
              {u"##anything", u"urn:d", u""},
              {u"urn:a ##any", u"urn:d", u""},
              {u"", u"urn:d", u""}};
  for (const auto& row : rows) {
    EXPECT_EQ(DefaultNamespace::GetAnyDefaultNamespace(row.any, row.defaultNamespace, kTarget),
              row.result);
  }
  // A record is given the namespace of the class, and the content it makes takes it over.
  Shape shape(xgt_Sequence, xet_Element, u"root", u"urn:class");
  shape.Add(Any<CElementInfoSeqUntpdOpt>(u"AnyElement", u"##any"));
  const CSmartPtr<Bag> bag = NewBag(shape);
  bag->FromXml(u"<root xmlns='urn:class'><a xmlns='urn:u'/></root>", CSerializationContext());
  EXPECT_EQ(Foreign(*bag, 0)->GetNamespace(), u"urn:u");
  EXPECT_EQ(Foreign(*bag, 0)->GetAttributes()->Add(u"i")->GetNamespace(), u"urn:class");
}

TEST(Wildcard, GivesBackForeignContentInEveryFormat) {
  const CSerializationContext context = WithAliases();
  const CSmartPtr<Bag> bag = NewBag(Envelope());
  bag->FromXml(kLetter.c_str(), context);
  EXPECT_EQ(Foreign(*bag, 0)->GetText(), u"tail");
  EXPECT_EQ(bag->Value(1).GetXmlCollection()->GetCount(), 3);
  const auto written = [&] { return bag->ToXml(false, false, EOL_LF, context); };
  ASSERT_EQ(written(), kLetter);
  bag->FromXml(bag->ToXml(true, false, EOL_CRLF, CSerializationContext()).c_str(), context);
  EXPECT_EQ(written(), kLetter) << "with generated prefixes";
  bag->FromXmlStream(bag->ToFastInfosetStream(fid_None, context, Compression_None), context);
  EXPECT_EQ(written(), kLetter) << "Fast Infoset";
  for (const bool formatted : {false, true}) {
    bag->FromJson(bag->ToJson(formatted, EOL_LF, context).c_str(), context);
    // JSON is read by way of indented XML text, whose white space stays in open content.
    EXPECT_EQ(WithoutLayout(written()), kLetter) << "JSON";
  }
  // JSON declares prefixes on the root alone.
  EXPECT_THROW(bag->ToJson(false, EOL_LF, CSerializationContext()), CTovikValidationException);
}

TEST(Wildcard, RefusesWhatItMayNotHold) {
  const struct {
    const wchar* inside;
    std::string cause;
  } rows[] = {
      {u"<b/><b/><b/><b/>", "The Maximum number of [] elements allowed in this collection is 3"},
      {u"<note/><note xmlns='urn:t'><note/></note><b/><b/><b/>",
       "The Maximum number of [] elements allowed in this collection is 3"},
  };
  for (const auto& row : rows) {
    const CSmartPtr<Bag> bag = NewBag(Envelope());
    try {
      bag->FromXml((WString(u"<envelope xmlns:t='urn:t'>") + row.inside + u"</envelope>").c_str(),
                   CSerializationContext());
      ADD_FAILURE() << row.cause;
    } catch (const CTovikException& e) {
      EXPECT_EQ(e.GetPath(), u"/envelope");
      EXPECT_EQ(DisplayUtf8(e.GetInnerException()->GetMessage()), row.cause);
    }
  }
  // A property of another kind behind a fixed name.
  Shape shape(xgt_Sequence);
  shape.Add(Many<CElementInfoSeqUntpdCol>(u"a")).StartWithItems(0, u"a", shape);
  EXPECT_THROW(NewBag(shape)->FromXml(u"<root><a/></root>", CSerializationContext()),
               CTovikValidationException);
  // A mandatory property without an object.
  Shape bare(xgt_Sequence);
  bare.Add(Any<CElementInfoSeqUntpdMnd>());
  EXPECT_THROW(NewBag(bare)->FromXml(u"<root><a/></root>", CSerializationContext()),
               CTovikValidationException);
  EXPECT_THROW(NewBag(bare)->ToXml(false, false, EOL_LF, CSerializationContext()),
               CTovikValidationException);
}

TEST(Wildcard, KeepsToTheNestingLimit) {
  RunOnSmallStack([] {
    const auto letter = [](int levels) {
      WString text = u"<t:envelope xmlns:t=\"urn:t\">";
      for (int i = 1; i < levels; ++i) text += u"<e>";
      for (int i = 1; i < levels; ++i) text += u"</e>";
      return text + u"</t:envelope>";
    };
    const CSerializationContext context;
    const CSmartPtr<Bag> bag = NewBag(Envelope());
    bag->FromXml(letter(256).c_str(), context);
    bag->FromXmlStream(bag->ToFastInfosetStream(fid_None, context, Compression_None), context);
    CSerializationContext alias;
    alias.GetNamespaceAliases().Add(u"t", u"urn:t");
    EXPECT_EQ(bag->ToXml(false, false, EOL_LF, alias).size(), letter(256).size() - 3);
    for (const int levels : {257, 100000}) {
      EXPECT_THROW(bag->FromXml(letter(levels).c_str(), context), CTovikException);
    }
  });
}
