// docs/guide/getting_started.md

#include <iostream>

#include "examples/guide/section.h"
#include "examples/orders/generated/customer.h"
#include "examples/orders/generated/item_col.h"
#include "examples/orders/generated/order_col.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

void Read() {
  // snippet: read
  CSerializationContext context;
  CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  list->FromXmlFile(u"orders.xml", context);

  for (Orders::COrder* order : *list->GetOrders()) {
    std::cout << order->GetId() << ", " << DisplayUtf8(order->GetCustomer()->GetName()) << '\n';
    for (Orders::CItem* item : *order->GetItems()) {
      const CDecimal total = item->GetPrice() * CDecimal(item->GetQuantity());
      std::cout << DisplayUtf8(item->GetSku()) << ": " << DisplayUtf8(total.ToString()) << '\n';
    }
  }
  // end snippet
}

void Write() {
  // snippet: write
  CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  CSmartPtr<Orders::COrder> order = list->GetOrders()->Add();
  order->SetId(8);
  order->SetDate(CDateTime(2026, 11, 23));
  order->SetStatus(Orders::Status_new);
  order->GetCustomer()->SetName(u"Ada");
  order->GetCustomer()->SetPostalCode(u"1010");
  CSmartPtr<Orders::CItem> item = order->GetItems()->Add();
  item->SetSku(u"042-AB7");
  item->SetQuantity(2);
  item->SetPrice(CDecimal(u"19.95"));
  item->SetShipDate(CDateTime(2026, 11, 27));

  CSerializationContext context;
  context.SetDefaultNamespaceURI(u"urn:example:bench:orders");
  context.SetIndentChars(u"  ");
  std::cout << DisplayUtf8(list->ToXml(true, true, EOL_LF, context));
  // end snippet
  std::cout << '\n';

  // snippet: carriers
  CBinaryData xml =
      list->ToXmlStream(true, false, Encoding_UTF8, EOL_LF, context, Compression_None);
  CBinaryData packed =
      list->ToXmlStream(true, false, Encoding_UTF8, EOL_LF, context, Compression_GZip);
  CBinaryData infoset = list->ToFastInfosetStream(fid_None, context, Compression_None);
  list->ToJsonFile(u"orders.json", true, Encoding_UTF8, EOL_LF, context, Compression_None);

  list->FromXmlStream(xml, context);
  list->FromXmlStream(packed, context);
  list->FromXmlStream(infoset, context);
  list->FromJsonFile(u"orders.json", context);
  // end snippet
}

}  // namespace

int main() {
  Section("read");
  Read();
  Section("write");
  Write();
}
