// Builds an order, writes it as XML, reads it back, and shows what a faulty document says.

#include <iostream>

#include "examples/orders/generated/customer.h"
#include "examples/orders/generated/item_col.h"
#include "examples/orders/generated/order_col.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

CSmartPtr<Orders::COrderList> MakeOrders() {
  CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  const CSmartPtr<Orders::COrder> order = list->GetOrders()->Add();
  order->SetId(100001);
  order->SetDate(CDateTime(2024, 2, 29));
  order->SetStatus(Orders::Status_confirmed);
  order->GetCustomer()->SetName(u"Zo\u00eb M\u00fcller");
  order->GetCustomer()->SetStreet(u"12 K\u00f6nigsallee");
  order->GetCustomer()->SetCity(u"Z\u00fcrich");
  order->GetCustomer()->SetPostalCode(u"08001");
  order->GetCustomer()->SetCountry(u"CH");
  const CSmartPtr<Orders::CItem> item = order->GetItems()->Add();
  item->SetSku(u"042-AB7");
  item->SetDescription(u"valve <DN 25>");
  item->SetQuantity(4);
  item->SetPrice(CDecimal(u"19.95"));
  item->SetWeight(0.125);
  item->SetShipDate(CDateTime(2024, 3, 4));
  item->SetInStock(true);
  return list;
}

}  // namespace

int main() {
  const CSerializationContext context = [] {
    CSerializationContext settings;
    settings.SetDefaultNamespaceURI(u"urn:example:bench:orders");
    settings.SetIndentChars(u"  ");
    return settings;
  }();

  const WString xml = MakeOrders()->ToXml(true, true, EOL_LF, context);
  std::cout << DisplayUtf8(xml) << '\n';

  CSmartPtr<Orders::COrderList> copy(new Orders::COrderList);
  copy->FromXml(xml.c_str(), context);
  if (copy->ToXml(true, true, EOL_LF, context) != xml) return 1;

  // The same objects in the other formats.
  const WString json = copy->ToJson(false, EOL_LF, context);
  const CBinaryData infoset = copy->ToFastInfosetStream(fid_None, context, Compression_None);
  CSerializationContext compact(context);
  compact.GetFIContext().SetSuggestedValues();
  const CBinaryData small = copy->ToFastInfosetStream(fid_None, compact, Compression_None);
  copy->FromJson(json.c_str(), context);
  if (copy->ToXml(true, true, EOL_LF, context) != xml) return 1;
  copy->FromXmlStream(small, compact);
  if (copy->ToXml(true, true, EOL_LF, context) != xml) return 1;
  std::cout << "XML " << xml.size() << " characters, JSON " << json.size()
            << " characters, Fast Infoset " << infoset.GetLength()
            << " octets, with suggested values " << small.GetLength() << "\n\n";

  try {
    WString faulty = xml;
    faulty.replace(faulty.find(u">4<"), 3, u">four<");
    copy->FromXml(faulty.c_str(), context);
  } catch (const CTovikException& e) {
    std::cout << "A faulty document is refused:\n" << e.what() << '\n';
    return 0;
  }
  return 1;
}
