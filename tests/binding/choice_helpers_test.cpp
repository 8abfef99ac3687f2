#include <gtest/gtest.h>

#include "tests/support/bag.h"
#include "tests/support/data_rows.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;

namespace {

const Shape& Empty() {
  static const Shape shape(xgt_Sequence, xet_Element, u"item");
  return shape;
}

class Setters : public Bag {
 public:
  Setters() : Bag(Empty()) {}
  using Bag::Choice_CollectionChanged;
  using Bag::Choice_Read_Collection;
  using Bag::Choice_SelectElement;
  using Bag::Choice_SetElementValid;
  using Bag::DoesElementNameMatch;
  using Bag::IsElementInList;
  using Bag::Throw_IfElementNameDiffers;
  using Bag::Throw_IfPropertyIsNull;
};

class Factory : public CClassfactoryBase {
 public:
  using CClassfactoryBase::GetElementType;
  using CClassfactoryBase::GetElementTypeNamespaceUri;
};

}  // namespace

TEST(ChoiceHelpers, KeepOneElementSelected) {
  const CSmartPtr<Setters> setters(new Setters);
  const CSmartPtr<Bag> object = NewBag(Empty());
  ForEachRow("binding/choice.txt", "selection",
             [&](const WString& before, const std::string& operation, bool value,
                 const WString& after, const WString& exception) {
               WString selected = before;
               const auto call = [&] {
                 if (operation == "valid") {
                   setters->Choice_SetElementValid(value, u"a", selected);
                 } else if (operation == "collection") {
                   setters->Choice_CollectionChanged(u"a", value ? 2 : 0, selected);
                 } else {
                   setters->Choice_SelectElement(u"a", value ? object.Get() : nullptr, selected);
                 }
               };
               EXPECT_EQ(Outcome(call), exception);
               EXPECT_EQ(selected, after);
             });
}

TEST(ChoiceHelpers, ReadACollectionOnce) {
  const CSmartPtr<Setters> setters(new Setters);
  const CSerializationContext context;
  CXmlDocument document;
  document.LoadXml("<root><item/><item/><other/></root>");
  CXmlElement* root = document.GetDocumentElement();
  const CSmartPtr<BagCol> items(new BagCol(u"item", Empty(), 0, 2));
  long count = 0;
  CXmlElement* child = root->GetFirstElement();
  setters->Choice_Read_Collection(items, root, child, count, context);
  EXPECT_EQ(items->GetCount(), 2);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(child->GetLocalName(), u"other");
  child = root->GetFirstElement();
  setters->Choice_Read_Collection(items, root, child, count, context);
  EXPECT_EQ(items->GetCount(), 2);
  EXPECT_EQ(child, root->GetFirstElement());
}

TEST(SetterHelpers, RefuseNullAndOtherNames) {
  const CSmartPtr<Setters> setters(new Setters);
  EXPECT_EQ(Outcome([&] { setters->Throw_IfPropertyIsNull(nullptr, u"p"); }),
            u"!InvalidParam The Property [p] is mandatory, it may node be NULL");
  setters->Throw_IfElementNameDiffers(nullptr, u"p");
  setters->Throw_IfElementNameDiffers(setters, u"item");
  EXPECT_EQ(Outcome([&] { setters->Throw_IfElementNameDiffers(setters, u"Item"); }),
            u"!InvalidParam This property requires an element with the name Item the element being "
            u"set has the element name item");
}

TEST(SetterHelpers, CompareNamesByTheContext) {
  CXmlDocument document;
  document.LoadXml("<a xmlns='urn:a'/>");
  const CXmlElement* element = document.GetDocumentElement();
  const CSmartPtr<Setters> setters(new Setters);
  CSerializationContext context;
  EXPECT_TRUE(setters->DoesElementNameMatch(context, element, u"a", u"urn:a"));
  EXPECT_FALSE(setters->DoesElementNameMatch(context, element, u"a", u"urn:b"));
  context.SetIgnoreNamespaces(true);
  EXPECT_TRUE(setters->DoesElementNameMatch(context, element, u"a", u"urn:b"));
  EXPECT_FALSE(setters->DoesElementNameMatch(context, element, u"A", u"urn:a"));
}

TEST(ClassFactory, FindsTheTypeOfAnElement) {
  CXmlDocument document;
  document.LoadXml(
      "<r xmlns='urn:d' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' xmlns:p='urn:p'>"
      "<a i:type='p:T:x'/><a i:type='T'/><a/><a i:type='z:T'/><a type='U'/></r>");
  const std::pair<const wchar*, const wchar*> rows[] = {
      {u"T:x", u"urn:p"}, {u"T", u"urn:d"}, {u"", u"urn:d"}, {u"T", u"urn:d"}, {u"", u"urn:d"}};
  CXmlElement* element = document.GetDocumentElement()->GetFirstElement();
  for (const auto& [type, uri] : rows) {
    EXPECT_EQ(Factory::GetElementType(element), type);
    EXPECT_EQ(Factory::GetElementTypeNamespaceUri(element), uri);
    element = element->GetNextSiblingElement();
  }
}
