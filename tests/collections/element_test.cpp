#include "tovikxml/collections/element.h"

#include <gtest/gtest.h>

#include "tests/support/bag.h"
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

const WString kLimit = u"The objects are nested deeper than the limit of 256 levels";

}  // namespace

TEST(Element, TestsItsNamespaceWhenItIsMade) {
  const struct {
    const wchar* uri;
    const wchar* restriction;
    const wchar* target;
    bool allowed;
  } rows[] = {{u"urn:t", u"##targetNamespace ##local", u"urn:t", true},
              {u"", u"##targetNamespace ##local", u"urn:t", true},
              {u"urn:u", u"##targetNamespace ##local", u"urn:t", false},
              {u"urn:b", u"urn:a urn:b", u"", true},
              {u"", u"urn:a urn:b", u"", true},
              {u"urn:c", u"urn:a urn:b", u"", false},
              {u"urn:t", u"##other", u"urn:t", false},
              {u"urn:u", u"##other", u"urn:t", true},
              {u"", u"##other", u"urn:t", true},
              {u"", u"##other", u"", false},
              {nullptr, u"##local", u"", true}};
  for (const auto& row : rows) {
    const auto make = [&] {
      CSmartPtr<CElement>(new CElement(u"e", row.uri, row.restriction, row.target));
    };
    SCOPED_TRACE(DisplayUtf8(row.restriction));
    if (row.allowed) {
      EXPECT_NO_THROW(make());
    } else {
      EXPECT_THROW(make(), CTovikInvalidNamespaceException);
    }
  }
}

TEST(Element, NamesTheArgumentThatIsMissing) {
  const struct {
    std::function<void()> make;
    WString message;
  } rows[] = {
      {[] { new CElement(nullptr, u"", nullptr, nullptr); }, u"Element Name must have a value"},
      {[] { new CElement(u"e", u"", nullptr, nullptr); },
       u"Namespace Restriction must have a value"},
      {[] { new CElement(u"e", nullptr); }, u"Namespace Restriction must have a value"},
      {[] { new CElement(u"e", u"", u"", nullptr); }, u"Target Namespace must have a value"},
      {[] { new CElement(static_cast<const wchar*>(nullptr), u"##any"); },
       u"Invalid Namespace [##any]."},
      {[] { new CElement(u"e", u"##targetNamespace"); }, u"Invalid Namespace [##targetNamespace]."},
      {[] { new CElement(u"e", u"urn:b", u"urn:a", u"urn:t"); },
       u"Invalid namespace [urn:b]. The namespace must be one of [urn:a] where the target "
       u"namespace is [urn:t]."}};
  for (const auto& row : rows) {
    EXPECT_EQ(MessageOf<CTovikInvalidNamespaceException>(row.make), row.message);
  }
  EXPECT_THROW(new CElement(static_cast<CXmlObjectBase*>(nullptr), u""),
               CTovikInvalidParamException);
}

TEST(Element, GivesBackWhatItReads) {
  const struct {
    WString in;
    WString out;
  } rows[] = {
      {u"<e/>", u"<e/>"},
      {u"<e>a<c/>b</e>", u"<e><c/>ab</e>"},
      {u"<e a='1' b='&lt;&quot;'><c>&amp;</c></e>",
       u"<e a=\"1\" b=\"&lt;&quot;\"><c>&amp;</c></e>"},
      {u"<e xmlns='urn:a'><c/><d xmlns=''/></e>", u"<AA:e xmlns:AA=\"urn:a\"><AA:c/><d/></AA:e>"},
      {u"<e p:a='1' xml:lang='en' xmlns:p='urn:p'/>",
       u"<e xmlns:AA=\"urn:p\" AA:a=\"1\" xml:lang=\"en\"/>"},
      {u"<e><c/><d/><c/></e>", u"<e><c/><d/><c/></e>"}};
  for (const auto& row : rows) EXPECT_EQ(Written(Parsed(row.in)), row.out);
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
  EXPECT_EQ(MessageOf<CTovikInvalidStateException>(
                [] { CSmartPtr<CElement>(new CElement(u"e"))->GetChildElements()->Add(u"c"); }),
            u"A Namespace has not been set for this Collection");
}

TEST(Element, ChecksARestrictionWithoutKeepingIt) {
  const CSmartPtr<CElement> element =
      Parsed(u"<e xmlns='urn:a'><c><d xmlns:b='urn:b' b:x=''/></c></e>");
  EXPECT_NO_THROW(element->SetNamespaceRestrictions(u"urn:a urn:b", u""));
  try {
    element->SetNamespaceRestrictions(u"urn:a", u"");
    ADD_FAILURE();
  } catch (const CTovikInvalidNamespaceException& e) {
    WString chain;
    for (const CTovikException* at = &e; at; at = at->GetInnerException()) {
      chain += at->GetMessage().substr(0, 37) + u"|";
    }
    EXPECT_EQ(chain,
              u"The namespace urn:a in the class e is|The namespace urn:a in the class c is|"
              u"The namespace urn:a in the class d is|Invalid namespace [urn:b]. The namesp|");
    EXPECT_EQ(e.GetMessage(),
              u"The namespace urn:a in the class e is invalid against restriction urn:a");
  }
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
  const struct {
    const wchar* uri;
    const wchar* restriction;
    const wchar* result;
  } rows[] = {{u"", u"urn:a urn:b", u"urn:a"},
              {u"urn:b", u"urn:a urn:b", u"urn:b"},
              {u"", u"##any", nullptr},
              {u"", u"##other urn:a", nullptr},
              {u"", u"", nullptr},
              {u"urn:t", u"##targetNamespace", u"urn:t"}};
  for (const auto& row : rows) {
    const CSmartPtr<CElementCol> elements = Elements(row.uri, row.restriction);
    if (row.result) {
      EXPECT_EQ(elements->Clone()->Add(u"e")->GetNamespace(), row.result);
    } else {
      EXPECT_THROW(elements->Add(u"e"), CTovikInvalidStateException);
    }
    // The restriction has served: anything may be added.
    elements->Clear();
    elements->Add(u"e", u"urn:z");
    elements->Add(CSmartPtr<CElement>(new CElement(u"f", u"urn:y")));
    EXPECT_EQ(elements->GetCount(), 2);
  }
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
      EXPECT_EQ(MessageOf<CTovikException>([&] { Parsed(Nested(levels)); }), kLimit);
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
    EXPECT_EQ(MessageOf<CTovikException>([&] { root->Clone(); }), kLimit);
    EXPECT_EQ(MessageOf<CTovikException>([&] { Written(root); }), kLimit);
    EXPECT_THROW(root->SetNamespaceRestrictions(u"##any", u""), CTovikInvalidNamespaceException);
    last = nullptr;
    root->GetChildElements()->Clear();
    EXPECT_EQ(kept->GetCount(), 1);  // what is held elsewhere lives on
  });
}
