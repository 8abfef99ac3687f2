#include "tovikxml/collections/collection.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/bag.h"
#include "tests/support/text.h"

using namespace TovikXmlTest;

namespace {

const Shape& ItemShape() {
  static const Shape shape(xgt_Sequence, xet_Element, u"item");
  return shape;
}

/// Writes what it hears as a line: the letters A, a, R, r, C for the five events.
class Listener : public IEventSink {
 public:
  void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) override {
    heard += "CAaRr"[type];
    if (type == CollectionRemove || type == CollectionRemoveComplete) {
      heard += data ? std::to_string(*static_cast<int*>(data)) : "-";
    } else if (data) {
      heard += std::to_string(static_cast<CXmlCollectionBase*>(sender)->GetCount());
    }
    if (refuses && type == CollectionAdd) throw CTovikInvalidValueException(u"no");
  }

  std::string heard;
  bool refuses = false;
};

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
  const auto heard = [&] { return std::exchange(listener.heard, std::string()); };
  items->AppendItem(Named(u"a"));
  EXPECT_EQ(heard(), "A0a1C");
  items->Remove(0);
  EXPECT_EQ(heard(), "R-r-C");
  const CSmartPtr<Bag> stranger = Named(u"s");
  EXPECT_EQ(
      MessageOf<CTovikInvalidParamException>([&] { items->AddAfterItem(stranger, Named(u"b")); }),
      u"The object was not found in the collection");
  EXPECT_EQ(heard(), "A0");
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>([&] { items->AddItemAt(1, stranger); }),
            u"Index out of range");
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>([&] { items->Remove(0); }),
            u"Index 0 is out of range, use 0 - -1");
  MessageOf<CTovikInvalidParamException>([&] { items->AppendItem(nullptr); });
  EXPECT_EQ(heard(), "");
  listener.refuses = true;
  MessageOf<CTovikInvalidValueException>([&] { items->AppendItem(stranger); });
  EXPECT_EQ(items->GetCount(), 0);
  listener.refuses = false;
  heard();

  items->AddEventListener(&listener);
  items->AppendItem(stranger);
  EXPECT_EQ(heard(), "A0A0a1a1CC");
  items->RemoveEventListener(&listener);
  items->Clear();
  EXPECT_EQ(heard(), "");
  MessageOf<CTovikInvalidParamException>([&] { items->AddEventListener(nullptr); });
}

TEST(Collection, ChecksItsCountMaximumFirst) {
  const CSerializationContext strict;
  CSerializationContext lenient;
  lenient.SetIgnoreInvalidCollectionCounts(true);
  const CSmartPtr<BagCol> items(new BagCol(u"item", ItemShape(), 5, 2));
  EXPECT_EQ(MessageOf<CTovikValidationException>([&] { items->ValidateCount(strict); }),
            u"The Minimum number of [item] elements allowed in this collection is 5");
  for (int i = 0; i < 3; ++i) items->Add();
  EXPECT_EQ(MessageOf<CTovikValidationException>([&] { items->ValidateCount(strict); }),
            u"The Maximum number of [item] elements allowed in this collection is 2");
  EXPECT_FALSE(items->IsValidCount(strict));
  EXPECT_TRUE(items->IsValidCount(lenient));
  items->ValidateCount(lenient);
  EXPECT_EQ(MessageOf<CTovikInvalidParamException>([&] { items->GetNodeAtIndex(3); }),
            u"Index 3 is out of range, use 0 - 2");
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
  EXPECT_EQ(MessageOf<CTovikException>([&] { ++second; }), u"No More Elements in the Collection");
}
