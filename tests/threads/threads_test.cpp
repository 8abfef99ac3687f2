#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <thread>
#include <vector>

#include "examples/orders/generated/customer.h"
#include "examples/orders/generated/item_col.h"
#include "examples/orders/generated/order_col.h"
#include "examples/orders/generated/order_list.h"
#include "tests/support/temp_dir.h"
#include "tests/support/text.h"
#include "tovikxml/tovikxml.h"

// What several threads may do at once. The thread sanitizer is what fails here.

using namespace TovikXmlTest;
using namespace TovikXmlLib16;

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 12;

const bool g_versionStated = (SetGeneratorVersion(16, 1), true);

// Runs the action on several threads, which all begin together.
void RunOnThreads(const std::function<void(int)>& action) {
  std::latch start(kThreads);
  std::vector<std::thread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&, number] {
      start.arrive_and_wait();
      action(number);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

CSmartPtr<Orders::COrderList> MakeOrders(int number) {
  CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  const CSmartPtr<Orders::COrder> order = list->GetOrders()->Add();
  order->SetId(100000 + number);
  order->SetDate(CDateTime(2024, 2, 29));
  order->SetStatus(Orders::Status_confirmed);
  order->GetCustomer()->SetName(u"Zo\u00eb");
  order->GetCustomer()->SetStreet(u"12 K\u00f6nigsallee");
  order->GetCustomer()->SetCity(u"Z\u00fcrich");
  order->GetCustomer()->SetPostalCode(u"08001");
  order->GetCustomer()->SetCountry(u"CH");
  for (int i = 0; i < 5; ++i) {
    const CSmartPtr<Orders::CItem> item = order->GetItems()->Add();
    item->SetSku(u"042-AB7");
    item->SetDescription(u"valve");
    item->SetQuantity(4);
    item->SetPrice(CDecimal(u"19.95"));
    item->SetWeight(0.125);
    item->SetShipDate(CDateTime(2024, 3, 4));
    item->SetInStock(true);
  }
  return list;
}

WString XmlOf(const CXmlObjectBase& object, const CSerializationContext& context) {
  return object.ToXml(true, false, EOL_LF, context);
}

/// One format there and back.
using Road = void (*)(const CXmlObjectBase& from, CXmlObjectBase& to, const CSerializationContext&);

const Road kRoads[] = {
    [](const CXmlObjectBase& from, CXmlObjectBase& to, const CSerializationContext& context) {
      to.FromXml(XmlOf(from, context).c_str(), context);
    },
    [](const CXmlObjectBase& from, CXmlObjectBase& to, const CSerializationContext& context) {
      to.FromXmlStream(
          from.ToXmlStream(true, true, Encoding_UTF16, EOL_LF, context, Compression_GZip), context);
    },
    [](const CXmlObjectBase& from, CXmlObjectBase& to, const CSerializationContext& context) {
      to.FromXmlStream(from.ToFastInfosetStream(fid_None, context, Compression_None), context);
    },
    [](const CXmlObjectBase& from, CXmlObjectBase& to, const CSerializationContext& context) {
      to.FromJson(from.ToJson(true, EOL_LF, context).c_str(), context);
    },
};

}  // namespace

// The metadata of the classes, the parts of the context and the compiled patterns are made by
// whichever thread needs them first.
TEST(Threads, ShareAFreshContextAndTheClasses) {
  for (int round = 0; round < kRounds; ++round) {
    for (const Road road : kRoads) {
      CSerializationContext fresh;
      fresh.SetDefaultNamespaceURI(u"urn:example:bench:orders");
      const CSerializationContext& context = fresh;
      RunOnThreads([&](int number) {
        const CSmartPtr<Orders::COrderList> orders = MakeOrders(number);
        const CSmartPtr<Orders::COrderList> copy(new Orders::COrderList);
        road(*orders, *copy, context);
        EXPECT_EQ(XmlOf(*copy, context), XmlOf(*orders, context));
        EXPECT_THROW(copy->FromXml(u"<orders><order/></orders>", context), CTovikException);
      });
    }
  }
}

TEST(Threads, WriteOneObjectAtOnceAndCopyTheirContext) {
  const CSmartPtr<Orders::COrderList> orders = MakeOrders(7);
  CSerializationContext fresh;
  fresh.SetDefaultNamespaceURI(u"urn:example:bench:orders");
  const CSerializationContext& context = fresh;
  RunOnThreads([&](int /*number*/) {
    for (const Road road : kRoads) {
      const CSmartPtr<Orders::COrderList> copy(new Orders::COrderList);
      const CSerializationContext own(context);
      road(*orders, *copy, context);
      EXPECT_EQ(XmlOf(*copy, own), XmlOf(*orders, own));
    }
  });
}

TEST(Threads, ShareTheDefaultContext) {
  RunOnThreads([](int number) {
    const WString text = FormatString(u"<e a=\"%d\"><x>text</x></e>", number);
    const CSmartPtr<CElement> element(new CElement(u"e"));
    element->FromXml(text.c_str());
    EXPECT_EQ(element->ToXml(false, false, EOL_LF, CSerializationContext::GetDefaultContext()),
              text);
  });
}

// Reading JSON without namespaces sets a flag of the context, unless it is set.
TEST(Threads, ReadBareJsonUnderAFlagThatIsSet) {
  CSerializationContext ready;
  ready.GetJsonContext().SetSupportRoundtrip(jrt_Marked);
  ready.SetIgnoreNamespaces(true);
  const CSerializationContext& context = ready;
  RunOnThreads([&](int number) {
    const CSmartPtr<Orders::COrderList> orders = MakeOrders(number);
    const CSmartPtr<Orders::COrderList> copy(new Orders::COrderList);
    copy->FromJson(orders->ToJson(false, EOL_LF, context).c_str(), context);
    EXPECT_EQ(XmlOf(*copy, context), XmlOf(*orders, context));
  });
}

TEST(Threads, WriteAndReadFilesAtOnce) {
  const TempDir directory;
  const CSerializationContext context;
  for (const bool overlapped : {false, true}) {
    AsyncToXmlFile(overlapped);
    AsyncFromXmlFile(overlapped);
    RunOnThreads([&](int number) {
      const WString name = directory / FormatString(u"%d", number);
      const CSmartPtr<Orders::COrderList> orders = MakeOrders(number);
      const CSmartPtr<Orders::COrderList> copy(new Orders::COrderList);
      orders->ToXmlFile(name.c_str(), true, true, Encoding_UTF16, EOL_LF, context,
                        Compression_None);
      copy->FromXmlFile(name.c_str(), context);
      EXPECT_EQ(XmlOf(*copy, context), XmlOf(*orders, context));
    });
  }
  AsyncToXmlFile(false);
  AsyncFromXmlFile(false);
}
