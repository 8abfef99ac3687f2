#include <iostream>

#include "examples/orders/generated/item_col.h"
#include "examples/orders/generated/order_col.h"
#include "examples/orders/generated/order_list.h"

using namespace TovikXmlLib16;

int main() {
  CSerializationContext context;
  context.SetDefaultNamespaceURI(u"urn:example:bench:orders");
  context.SetIndentChars(u"  ");

  CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  list->FromXmlFile(u"orders.xml", context);  // plain, gzip or zlib
  CSmartPtr<Orders::CItem> item = list->GetOrders()->Item(0)->GetItems()->Item(0);
  item->SetPrice(item->GetPrice() * CDecimal(u"1.1"));  // exact: 19.95 becomes 21.945
  list->ToXmlFile(u"orders.xml.gz", true, true, Encoding_UTF8, EOL_LF, context, Compression_GZip);
  list->ToFastInfosetFile(u"orders.fi", fid_None, context, Compression_None);
  std::cout << DisplayUtf8(item->ToJson(true, EOL_LF, context)) << '\n';

  try {
    list->FromXmlFile(u"faulty.xml", context);
  } catch (const CTovikException& e) {
    std::cout << e.what() << '\n';
  }
}
