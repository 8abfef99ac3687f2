// docs/guide/threads.md

#include <thread>
#include <vector>

#include "examples/guide/section.h"
#include "examples/orders/generated/order_col.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

CSerializationContext Settings() {
  CSerializationContext context;
  context.SetIgnoreUnknownElements(true);
  return context;
}

void OwnContexts() {
  // snippet: own
  std::vector<int> counts(4);
  std::vector<std::thread> threads;
  for (int& count : counts) {
    threads.emplace_back([&count] {
      const CSerializationContext context = Settings();
      CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
      list->FromXmlFile(u"orders.xml", context);
      count = list->GetOrders()->GetCount();
    });
  }
  for (std::thread& thread : threads) thread.join();
  // end snippet
  int total = 0;
  for (const int count : counts) total += count;
  std::cout << total << " orders\n";
}

void SharedContext() {
  // snippet: shared
  const CSerializationContext context = Settings();
  const auto work = [&context] {
    CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
    list->FromXmlFile(u"orders.xml", context);
    list->ToFastInfosetStream(fid_None, context, Compression_None);
  };
  std::thread first(work), second(work);
  first.join();
  second.join();
  // end snippet
}

}  // namespace

int main() {
  Section("own");
  OwnContexts();
  SharedContext();
}
