#include "tovikxml/collections/element.h"

#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/data_rows.h"
#include "tests/support/small_stack.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;

namespace {

CSmartPtr<CElement> Parsed(const WString& text) {
  CSmartPtr<CElement> element(new CElement(u"unread"));
  element->FromXml(text.c_str());
  return element;
}

WString Written(CXmlObjectBase* object, bool formatted = false) {
  return object->ToXml(false, formatted, EOL_LF, CSerializationContext());
}

CSmartPtr<CElementCol> Elements(const wchar* uri, const wchar* restriction) {
  return new CElementCol(uri, restriction, u"urn:t", 0, -1);
}

WString Nested(int levels) {
  WString text;
  for (int i = 0; i < levels; ++i) text += u"<e>";
  for (int i = 0; i < levels; ++i) text += u"</e>";
  return text;
}

/// <order xmlns="urn:d"> with one foreign and one own child.
const Shape& Order() {
  static Shape shape(xgt_Sequence, xet_Element, u"order", u"urn:d");
  static const bool built =
      (shape.Add(Prim<CElementInfoSeqPrimOpt>(u"own", 0, it_string, u"", false, u"urn:d"))
           .Add(Prim<CElementInfoSeqPrimOpt>(u"far", 1, it_string, u"", false, u"urn:f"))
           .Add(Attribute(u"id", 2)),
       true);
  (void)built;
  return shape;
}

CSmartPtr<CElement> OpenOrder() {
  const CSmartPtr<Bag> order = NewBag(Order());
  order->Value(0).SetString(u"a<b");
  order->Value(1).SetString(u"c");
  order->Value(2).SetString(u"7");
  return new CElement(order.Get(), u"urn:d");
}

class Hooked : public CElement {
 public:
  Hooked() : CElement(u"before") {}
  WString log;

 protected:
  void FireOnChangeName(const wchar* name) override { log += GetName() + u">" + name + u" "; }
  void FireOnChangeNamespace(const wchar* uri) override {
    log += GetNamespace() + u">" + uri + u" ";
  }
  void FireOnChangeText(const wchar* text) override { log += GetText() + u">" + text; }
};

const WString kLimit = u"!Exception The objects are nested deeper than the limit of 256 levels";

}  // namespace

TEST(Element, TestsItsNamespaceWhenItIsMade) {
  ForEachRow("collections/elements.txt", "namespaces",
             [](const WString& uri, const WString& restriction, const WString& target,
                const WString& outcome) {
               EXPECT_EQ(Outcome([&] {
                           CSmartPtr<CElement>(new CElement(u"e", uri.c_str(), restriction.c_str(),
                                                            target.c_str()));
                         }),
                         outcome);
             });
  EXPECT_NO_THROW(CSmartPtr<CElement>(new CElement(u"e", nullptr, u"##local", u"")));
}

TEST(Element, NamesTheArgumentThatIsMissing) {
  const wchar* const none = nullptr;
  const std::pair<std::function<void()>, WString> rows[] = {
      {[&] { new CElement(none, u"", none, none); }, u"Element Name must have a value"},
      {[&] { new CElement(u"e", u"", none, none); }, u"Namespace Restriction must have a value"},
      {[&] { new CElement(u"e", none); }, u"Namespace Restriction must have a value"},
      {[&] { new CElement(u"e", u"", u"", none); }, u"Target Namespace must have a value"},
      {[&] { new CElement(none, u"##any"); }, u"Invalid Namespace [##any]."},
      {[&] { new CElement(u"e", u"##targetNamespace"); },
       u"Invalid Namespace [##targetNamespace]."}};
  for (const auto& [make, message] : rows) {
    EXPECT_EQ(Outcome(make), u"!InvalidNamespace " + message);
  }
  EXPECT_THROW(new CElement(static_cast<CXmlObjectBase*>(nullptr), u""),
               CTovikInvalidParamException);
}

TEST(Element, GivesBackWhatItReads) {
  ForEachRow("collections/elements.txt", "documents",
             [](const WString& in, const WString& out) { EXPECT_EQ(Written(Parsed(in)), out); });
}

TEST(Element, LeavesAForbiddenRootAloneAndAddsToWhatIsThere) {
  const CSmartPtr<CElement> element(new CElement(u"e", u"urn:a"));
  element->FromXml(u"<x xmlns='urn:b'><c/></x>");
  EXPECT_EQ(Written(element), u"<AA:e xmlns:AA=\"urn:a\"/>");
  // Below the element nothing is tested.
  element->FromXml(u"<y xmlns='urn:a' i='1'><c xmlns=''/></y>");
  element->FromXml(u"<z><d/></z>");
  EXPECT_EQ(Written(element), u"<z i=\"1\"><c/><d/></z>");
  EXPECT_THROW(element->FromXml(u"<z>"), CTovikException);
  CSerializationContext shallow;
  shallow.SetMaxNesting(0);
  EXPECT_THROW(element->FromXml(u"<r><z/></r>", shallow), CTovikException);
  EXPECT_THROW(element->Clone(shallow), CTovikException);
  EXPECT_THROW(element->SetNamespaceRestrictions(u"##any", u"", shallow), CTovikException);
}

TEST(Element, TellsItsHooksBeforeItChanges) {
  const CSmartPtr<Hooked> element(new Hooked);
  element->SetName(u"after");
  element->SetNamespace(u"urn:n");
  element->SetText(u"t");
  EXPECT_EQ(element->log, u"before>after >urn:n >t");
  EXPECT_EQ(Written(element), u"<AA:after xmlns:AA=\"urn:n\">t</AA:after>");
}

TEST(Element, GivesItsNamespaceToNewContent) {
  const CSmartPtr<CElement> element(new CElement(u"e", u"urn:a"));
  element->GetAttributes()->Add(u"i", u"1");
  element->GetChildElements()->Add(u"c")->SetText(u"t");
  element->GetChildElements()->Add(u"d", u"urn:other");
  EXPECT_EQ(Written(element),
            u"<AA:e xmlns:AA=\"urn:a\" AA:i=\"1\"><AA:c>t</AA:c>"
            u"<AB:d xmlns:AB=\"urn:other\"/></AA:e>");
}

TEST(Element, ChecksARestrictionWithoutKeepingIt) {
  const CSmartPtr<CElement> element =
      Parsed(u"<e xmlns='urn:a'><c><d xmlns:b='urn:b' b:x=''/></c></e>");
  EXPECT_NO_THROW(element->SetNamespaceRestrictions(u"urn:a urn:b", u""));
  const auto invalid = [](const WString& name) {
    return u"The namespace urn:a in the class " + name + u" is invalid against restriction urn:a\n";
  };
  EXPECT_EQ(Outcome([&] { element->SetNamespaceRestrictions(u"urn:a", u""); }),
            u"!InvalidNamespace " + invalid(u"e") + invalid(u"c") + invalid(u"d") +
                u"Invalid namespace [urn:b]. The namespace must be one of [urn:a] where the target "
                u"namespace is [].");
  element->FromXml(u"<f xmlns='urn:z'/>");
  EXPECT_EQ(element->GetName(), u"f");
}

TEST(Element, ClonesDeeply) {
  const CSmartPtr<CElement> element = Parsed(u"<e i='1'><c>t</c>u</e>");
  const CSmartPtr<CElement> copy = element->Clone();
  element->GetChildElements()->Item(0)->SetText(u"changed");
  element->GetAttributes()->Clear();
  EXPECT_EQ(Written(copy), u"<e i=\"1\"><c>t</c>u</e>");
}

TEST(Element, IsMadeOfAnyObject) {
  const CSmartPtr<CElement> order = OpenOrder();
  const WString text =
      u"<order xmlns=\"urn:d\" id=\"7\"><own>a&lt;b</own>"
      u"<AA:far xmlns:AA=\"urn:f\">c</AA:far></order>";
  EXPECT_EQ(Written(order), text);
  // Inside another element it keeps its declaration; the copy is written the ordinary way.
  const CSmartPtr<CElement> outer(new CElement(u"outer", u"urn:o"));
  outer->GetChildElements()->Add(order);
  EXPECT_EQ(Written(outer), u"<AA:outer xmlns:AA=\"urn:o\">" + text + u"</AA:outer>");
  EXPECT_EQ(
      Written(outer, true),
      u"<AA:outer xmlns:AA=\"urn:o\">\n<order xmlns=\"urn:d\" id=\"7\">\n\t<own>a&lt;b</own>\n"
      u"\t<AA:far xmlns:AA=\"urn:f\">c</AA:far>\n</order>\n\n</AA:outer>\n");
  EXPECT_EQ(Written(order->Clone()),
            u"<AA:order xmlns:AA=\"urn:d\" id=\"7\"><AA:own>a&lt;b</AA:own>"
            u"<AB:far xmlns:AB=\"urn:f\">c</AB:far></AA:order>");
  CSerializationContext bare;
  bare.GetJsonContext().SetSupportRoundtrip(jrt_Marked);
  EXPECT_EQ(order->ToJson(false, EOL_LF, bare),
            u"{\"order\": {\"@id\": \"7\",\"own\": \"a<b\",\"far\": \"c\",\"#text\": null}}");
  // And back into an object.
  const CSmartPtr<Bag> back = NewBag(Order());
  back->FromXmlElement(order.Get(), CSerializationContext());
  EXPECT_EQ(back->Value(0).GetString() + back->Value(1).GetString(), u"a<bc");
  EXPECT_THROW(back->FromXmlElement(static_cast<CElement*>(nullptr), CSerializationContext()),
               CTovikInvalidParamException);
}

TEST(ElementCol, GivesNewElementsTheNamespaceOfItsRestriction) {
  ForEachRow("collections/elements.txt", "new elements",
             [](const WString& uri, const WString& restriction, const WString& outcome) {
               const CSmartPtr<CElementCol> elements = Elements(uri.c_str(), restriction.c_str());
               const CSmartPtr<CElementCol> copy = elements->Clone();
               EXPECT_EQ(Outcome([&] { return copy->Add(u"e")->GetNamespace(); }), outcome);
               // The restriction has served: anything may be added.
               elements->Add(u"e", u"urn:z");
               elements->Add(CSmartPtr<CElement>(new CElement(u"f", u"urn:y")));
               EXPECT_EQ(elements->GetCount(), 2);
             });
  EXPECT_THROW(Elements(u"urn:c", u"urn:a urn:b"), CTovikInvalidNamespaceException);
  EXPECT_THROW(Elements(u"", u"##targetNamespace"), CTovikInvalidNamespaceException);
}

TEST(ElementCol, KeepsTheOrderAndCountsInWriting) {
  const CSmartPtr<CElementCol> elements(new CElementCol(u"", u"##any", u"", 1, 2));
  EXPECT_THROW(Written(elements), CTovikValidationException);
  const CSmartPtr<CElement> first = elements->Add(u"b", u"");
  elements->AddAfter(first, CSmartPtr<CElement>(new CElement(u"c")));
  EXPECT_EQ(Written(elements), u"<b/><c/>");
  elements->AddBefore(first, CSmartPtr<CElement>(new CElement(u"a")));
  EXPECT_EQ(elements->Item(0)->GetName(), u"a");
  EXPECT_THROW(Written(elements->Clone()), CTovikValidationException);
  EXPECT_THROW(elements->Add(static_cast<CElement*>(nullptr)), CTovikInvalidParamException);
}

TEST(ElementDepth, IsLimitedOnASmallStack) {
  RunOnSmallStack([] {
    const CSmartPtr<CElement> deepest = Parsed(Nested(256));
    EXPECT_EQ(Written(deepest->Clone()).size(), Nested(256).size() - 3);
    deepest->SetNamespaceRestrictions(u"##local", u"");
    for (const int levels : {257, 100000}) {
      EXPECT_EQ(Outcome([&] { Parsed(Nested(levels)); }), kLimit);
    }
  });
}

TEST(ElementDepth, IsNoBoundToFreeing) {
  RunOnSmallStack([] {
    const CSmartPtr<CElement> root(new CElement(u"e", u"urn:e"));
    CSmartPtr<CElementCol> kept;
    CSmartPtr<CElement> last = root;
    for (int i = 0; i < 100000; ++i) {
      last = last->GetChildElements()->Add(u"e");
      if (i == 50000) kept = last->GetChildElements();
    }
    EXPECT_EQ(Outcome([&] { root->Clone(); }), kLimit);
    EXPECT_EQ(Outcome([&] { Written(root); }), kLimit);
    EXPECT_THROW(root->SetNamespaceRestrictions(u"##any", u""), CTovikInvalidNamespaceException);
    last = nullptr;
    root->GetChildElements()->Clear();
    EXPECT_EQ(kept->GetCount(), 1);  // what is held elsewhere lives on
  });
}
