#include "tovikxml/collections/collection.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "tests/collections/listener.h"
#include "tests/support/bag.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;

namespace {

const Shape& ItemShape() {
  static const Shape shape(xgt_Sequence, xet_Element, u"item");
  return shape;
}

CSmartPtr<Bag> Named(const wchar* name) {
  return NewBag(ItemShape(), name);
}

std::u16string Names(const BagCol& items) {
  std::u16string names;
  for (int i = 0; i < items.GetCount(); ++i) names += items.Item(i)->Name();
  return names;
}

}  // namespace

TEST(Collection, AddsAtEveryPlace) {
  const CSmartPtr<BagCol> items(new BagCol(u"item", ItemShape(), 0, -1));
  const CSmartPtr<Bag> a = Named(u"a"), b = Named(u"b"), c = Named(u"c");
  items->AppendItem(b);
  items->PrependItem(a);
  items->AddAfterItem(b, c);
  EXPECT_EQ(Names(*items), u"abc");
  items->AddAfterItem(nullptr, Named(u"1"));
  items->AddBeforeItem(nullptr, Named(u"9"));
  items->AddBeforeItem(b, Named(u"2"));
  items->AddAfterItem(a, Named(u"3"));
  items->AddItemAt(0, Named(u"x"));
  items->AddItemAt(items->GetCount(), Named(u"y"));
  items->AddItemAt(3, Named(u"z"));
  EXPECT_EQ(Names(*items), u"x1az32bc9y");
  items->Remove(0);
  items->Remove(8);
  items->Remove(2);
  EXPECT_EQ(Names(*items), u"1a32bc9");
}

TEST(Collection, TellsListenersInOrderAlsoOnFailure) {
  const CSmartPtr<BagCol> items(new BagCol(u"item", ItemShape(), 0, -1));
  Listener listener;
  items->AddEventListener(&listener);
  items->AppendItem(Named(u"a"));
  EXPECT_EQ(listener.Heard(), "A0a1C");
  items->Remove(0);
  EXPECT_EQ(listener.Heard(), "R-r-C");
  const CSmartPtr<Bag> stranger = Named(u"s");
  EXPECT_EQ(Outcome([&] { items->AddAfterItem(stranger, Named(u"b")); }),
            u"!InvalidParam The object was not found in the collection");
  EXPECT_EQ(listener.Heard(), "A0");
  EXPECT_EQ(Outcome([&] { items->AddItemAt(1, stranger); }), u"!InvalidParam Index out of range");
  EXPECT_EQ(Outcome([&] { items->Remove(0); }),
            u"!InvalidParam Index 0 is out of range, use 0 - -1");
  EXPECT_THROW(items->AppendItem(nullptr), CTovikInvalidParamException);
  EXPECT_EQ(listener.Heard(), "");
  listener.refuses = true;
  EXPECT_THROW(items->AppendItem(stranger), CTovikInvalidValueException);
  EXPECT_EQ(items->GetCount(), 0);
  listener.refuses = false;
  listener.Heard();

  items->AddEventListener(&listener);
  items->AppendItem(stranger);
  EXPECT_EQ(listener.Heard(), "A0A0a1a1CC");
  items->RemoveEventListener(&listener);
  items->Clear();
  EXPECT_EQ(listener.Heard(), "");
  EXPECT_THROW(items->AddEventListener(nullptr), CTovikInvalidParamException);
}

// Does in an event what a listener may think of.
class Meddler : public IEventSink {
 public:
  explicit Meddler(std::function<void(CXmlObjectBase*, MsgType)> act) : m_act(std::move(act)) {}
  void OnEvent(CXmlObjectBase* sender, MsgType type, void* /*data*/) override {
    m_act(sender, type);
  }

 private:
  std::function<void(CXmlObjectBase*, MsgType)> m_act;
};

TEST(Collection, StandsListenersThatMeddle) {
  CSmartPtr<BagCol> items(new BagCol(u"item", ItemShape(), 0, -1));
  Bag* added = nullptr;
  bool isMeddling = false;
  Meddler meddler([&](CXmlObjectBase* sender, IEventSink::MsgType type) {
    const CSmartPtr<CXmlObjectBase> held(sender);
    if (type == IEventSink::CollectionAdd) const CSmartPtr<Bag> heldItem(added);
    if (type == IEventSink::CollectionRemove && !std::exchange(isMeddling, true)) items->Remove(0);
  });
  Meddler leaver([&](CXmlObjectBase* sender, IEventSink::MsgType) {
    static_cast<BagCol*>(sender)->RemoveEventListener(&leaver);
  });
  Listener last;
  items->AddEventListener(&meddler);
  items->AddEventListener(&leaver);
  items->AddEventListener(&last);
  items->AppendItem(added = new Bag(ItemShape()));
  items->AppendItem(added = new Bag(ItemShape()));
  EXPECT_EQ(last.Heard(), "A0a1CA1a2C");
  items->Remove(0);
  EXPECT_EQ(last.Heard(), "R-r-CR-");
  EXPECT_EQ(items->GetCount(), 1);
  items = nullptr;  // its events come out of the destructor
  EXPECT_EQ(last.Heard(), "R-r-C");
}

TEST(Collection, ChecksItsCountMaximumFirst) {
  const CSerializationContext strict;
  CSerializationContext lenient;
  lenient.SetIgnoreInvalidCollectionCounts(true);
  const CSmartPtr<BagCol> items(new BagCol(u"item", ItemShape(), 5, 2));
  EXPECT_EQ(Outcome([&] { items->ValidateCount(strict); }),
            u"!Validation The Minimum number of [item] elements allowed in this collection is 5");
  for (int i = 0; i < 3; ++i) items->Add();
  EXPECT_EQ(Outcome([&] { items->ValidateCount(strict); }),
            u"!Validation The Maximum number of [item] elements allowed in this collection is 2");
  EXPECT_FALSE(items->IsValidCount(strict));
  EXPECT_TRUE(items->IsValidCount(lenient));
  items->ValidateCount(lenient);
  EXPECT_EQ(Outcome([&] { items->GetNodeAtIndex(3); }),
            u"!InvalidParam Index 3 is out of range, use 0 - 2");
}

TEST(Collection, HoldsReferencesOnItsItems) {
  const CSmartPtr<Bag> item = Named(u"a");
  {
    const CSmartPtr<BagCol> items(new BagCol(u"item", ItemShape(), 0, -1));
    items->AppendItem(item);
    items->AppendItem(item);
    EXPECT_EQ(item->AddRef(), 4);
    items->Remove(1);
    EXPECT_EQ(item->Release(), 2);
  }
  EXPECT_EQ(item->AddRef(), 2);
  item->Release();
}

TEST(Collection, IteratesForward) {
  const CSmartPtr<BagCol> items(new BagCol(u"item", ItemShape(), 0, -1));
  const CSmartPtr<Bag> same = Named(u"a");
  items->AppendItem(same);
  items->AppendItem(same);
  using Iterator = CTovikIterator<Bag>;
  Iterator first(items->GetFirstNode());
  Iterator second = first;
  ++second;
  EXPECT_TRUE(first == second);  // different nodes, the same item
  EXPECT_EQ((*second)->Name(), u"a");
  EXPECT_TRUE(++second == Iterator());
  EXPECT_EQ(Outcome([&] { ++second; }), u"!Exception No More Elements in the Collection");
}
