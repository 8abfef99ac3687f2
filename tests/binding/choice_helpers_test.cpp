#include <gtest/gtest.h>

#include "tests/support/bag.h"
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
  enum Operation { kSelect, kCollection, kValid };
  const WString set = u" is already set. Only one element within this class bay be set at a time";
  const struct {
    Operation operation;
    WString before;
    bool value;
    WString after;
    WString message;
  } rows[] = {
      {kSelect, u"a", true, u"a", u""},
      {kSelect, u"a", false, u"", u""},
      {kSelect, u"", true, u"a", u""},
      {kSelect, u"", false, u"a", u""},
      {kSelect, u"b", false, u"b", u""},
      {kSelect, u"b", true, u"b", u"The Property [b]" + set},
      {kCollection, u"a", true, u"a", u""},
      {kCollection, u"a", false, u"", u""},
      {kCollection, u"", true, u"a", u""},
      {kCollection, u"", false, u"", u""},
      {kCollection, u"b", false, u"b", u""},
      {kCollection, u"b", true, u"b", u"The Property [b]" + set},
      {kValid, u"", true, u"a", u""},
      {kValid, u"a", true, u"a", u""},
      {kValid, u"b", false, u"", u""},
      {kValid, u"b", true, u"b", u"The Property b" + set},
  };
  for (const auto& row : rows) {
    WString selected = row.before;
    const auto call = [&] {
      if (row.operation == kValid)
        return setters->Choice_SetElementValid(row.value, u"a", selected);
      if (row.operation == kCollection) {
        return setters->Choice_CollectionChanged(u"a", row.value ? 2 : 0, selected);
      }
      setters->Choice_SelectElement(u"a", row.value ? object.Get() : nullptr, selected);
    };
    if (row.message.empty()) {
      call();
    } else {
      EXPECT_EQ(MessageOf<CTovikInvalidStateException>(call), row.message);
    }
    EXPECT_EQ(selected, row.after) << "row " << &row - rows;
  }
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
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>(
                [&] { setters->Throw_IfPropertyIsNull(nullptr, u"p"); }),
            u"The Property [p] is mandatory, it may node be NULL");
  setters->Throw_IfElementNameDiffers(nullptr, u"p");
  setters->Throw_IfElementNameDiffers(setters, u"item");
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>(
                [&] { setters->Throw_IfElementNameDiffers(setters, u"Item"); }),
            u"This property requires an element with the name Item the element being set has the "
            u"element name item");
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
