// docs/guide/fast_infoset.md

#include "examples/guide/section.h"
#include "examples/orders/generated/item_col.h"
#include "examples/orders/generated/order_col.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

// snippet: vocabulary
// What both sides of the exchange know beforehand, in the same order.
void FillVocabulary(CSerializationContext& context) {
  CFIVocabulary& vocabulary = *context.GetFIContext().GetVocabulary();
  const wchar* uri = u"urn:example:bench:orders";
  for (const wchar* name :
       {u"orders", u"order", u"customer", u"name", u"street", u"city", u"postalCode", u"country",
        u"item", u"description", u"quantity", u"price", u"weight", u"shipDate", u"inStock"}) {
    vocabulary.AddElement(u"", uri, name);
  }
  for (const wchar* name : {u"id", u"date", u"status", u"sku"}) {
    vocabulary.AddAttribute(u"", u"", name);
  }
  vocabulary.AddAttributeValue(u"confirmed");
  context.GetFIContext().SetUseGeneratedVocabulary(true);
  context.GetFIContext().SetExternalVocabularyURI(u"urn:example:bench:orders:vocabulary:1");
}
// end snippet

void WriteAndRead(Orders::COrderList& list) {
  // snippet: write
  CSerializationContext context;
  context.SetDefaultNamespaceURI(u"urn:example:bench:orders");
  list.ToFastInfosetFile(u"orders.fi", fid_None, context, Compression_None);
  list.FromXmlFile(u"orders.fi", context);  // recognises what it is
  // end snippet
}

void Sizes(Orders::COrderList& list) {
  // snippet: sizes
  CSerializationContext plain;
  plain.SetDefaultNamespaceURI(u"urn:example:bench:orders");
  CSerializationContext suggested(plain);
  suggested.GetFIContext().SetSuggestedValues();
  CSerializationContext shared(suggested);
  FillVocabulary(shared);

  const auto octets = [&](const CSerializationContext& context) {
    return list.ToFastInfosetStream(fid_None, context, Compression_None).GetLength();
  };
  std::cout << "XML text " << list.ToXml(false, false, EOL_LF, plain).size() << '\n'
            << "Fast Infoset " << octets(plain) << '\n'
            << "with suggested values " << octets(suggested) << '\n'
            << "with a vocabulary as well " << octets(shared) << '\n';
  // end snippet

  // snippet: read
  CBinaryData message = list.ToFastInfosetStream(fid_None, shared, Compression_None);
  CSerializationContext receiver;
  FillVocabulary(receiver);
  CSmartPtr<Orders::COrderList> received(new Orders::COrderList);
  received->FromXmlStream(message, receiver);
  // end snippet
  Section("received");
  std::cout << received->GetOrders()->GetCount() << " order received\n";
}

void Refused(Orders::COrderList& list) {
  // snippet: refused
  CSerializationContext suggested;
  suggested.GetFIContext().SetSuggestedValues();
  CDateTime date(2026, 11, 24);
  date.SetTimeZone(1, 0);
  list.GetOrders()->Item(0)->GetItems()->Item(0)->SetShipDate(date);
  try {
    list.ToFastInfosetStream(fid_None, suggested, Compression_None);
  } catch (const CTovikException& e) {
    std::cout << e.what() << '\n';
  }
  suggested.GetFIContext().SetEncoding(it_date, {CFastInfosetContext::ces_Default, 0});
  list.ToFastInfosetStream(fid_None, suggested, Compression_None);
  // end snippet
}

}  // namespace

int main() {
  const CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  list->FromXmlFile(u"orders.xml", CSerializationContext());
  WriteAndRead(*list);
  Section("sizes");
  Sizes(*list);
  Section("refused");
  Refused(*list);
}
