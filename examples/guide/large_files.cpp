// docs/guide/large_files.md

#include "examples/guide/section.h"
#include "examples/orders/generated/customer.h"
#include "examples/orders/generated/item_col.h"
#include "examples/orders/generated/order_col.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

CSmartPtr<Orders::COrderList> MakeOrders(int count) {
  CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  for (int id = 1; id <= count; ++id) {
    const CSmartPtr<Orders::COrder> order = list->GetOrders()->Add();
    order->SetId(id);
    order->SetDate(CDateTime(2026, 11, 23));
    const CSmartPtr<Orders::CItem> item = order->GetItems()->Add();
    item->SetQuantity(id % 7 + 1);
    item->SetPrice(CDecimal(u"0.35"));
    item->SetShipDate(CDateTime(2026, 11, 27));
  }
  return list;
}

// snippet: callback
struct Totals {
  int orders = 0;
  CDecimal amount;
};
thread_local Totals* g_totals = nullptr;

// Sees every element at its end tag. True frees the element, with all that is in it.
bool TakeOrder(CXmlElement* element) {
  if (element->GetLocalName() != u"order") return false;
  const CSmartPtr<Orders::COrder> order(new Orders::COrder);
  order->FromXmlElement(element, CSerializationContext::GetDefaultContext());
  for (const Orders::CItem* item : *order->GetItems()) {
    g_totals->amount += item->GetPrice() * CDecimal(item->GetQuantity());
  }
  ++g_totals->orders;
  return true;
}
// end snippet

void ReadOneByOne() {
  // snippet: read
  Totals totals;
  g_totals = &totals;
  AsyncFromXmlFile(true);
  CXmlDocument document(&TakeOrder);
  document.Load(u"many.xml");
  AsyncFromXmlFile(false);
  std::cout << totals.orders << " orders, " << DisplayUtf8(totals.amount.ToString()) << '\n';
  // end snippet
}

}  // namespace

int main() {
  const CSmartPtr<Orders::COrderList> list = MakeOrders(20000);
  // snippet: write
  CSerializationContext context;
  context.SetDefaultNamespaceURI(u"urn:example:bench:orders");
  AsyncToXmlFile(true);
  list->ToXmlFile(u"many.xml", true, false, Encoding_UTF8, EOL_LF, context, Compression_None);
  AsyncToXmlFile(false);
  // end snippet
  Section("read");
  ReadOneByOne();
}
