// A message in an envelope that knows nothing about its content: a sender puts orders in, a relay
// that has never heard of orders adds a line to the header and passes it on in another format, and
// the receiver takes the orders out.

#include "examples/envelope/generated/envelope.h"

#include <iostream>

#include "examples/envelope/generated/body.h"
#include "examples/envelope/generated/header.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

constexpr const wchar* kMessages = u"urn:example:messages";
constexpr const wchar* kOrders = u"urn:example:bench:orders";
constexpr const wchar* kTracing = u"urn:example:tracing";

constexpr const wchar* kOrderText =
    u"<orders xmlns='urn:example:bench:orders'>"
    u"<order id='7' date='2024-02-29' status='confirmed'>"
    u"<customer><name>Zo\u00eb M\u00fcller</name><street>12 K\u00f6nigsallee</street>"
    u"<city>Z\u00fcrich</city><postalCode>08001</postalCode><country>CH</country></customer>"
    u"<item sku='042-AB7'><description>valve &lt;DN 25></description><quantity>4</quantity>"
    u"<price>19.95</price><weight>0.125</weight><shipDate>2024-03-04</shipDate>"
    u"<inStock>true</inStock></item></order></orders>";

CSerializationContext MakeContext() {
  CSerializationContext context;
  context.SetIndentChars(u"  ");
  context.GetNamespaceAliases().Add(u"m", kMessages);
  context.GetNamespaceAliases().Add(u"o", kOrders);
  context.GetNamespaceAliases().Add(u"t", kTracing);
  return context;
}

void AddHop(Messages::CEnvelope& envelope, const wchar* station) {
  const CSmartPtr<CElement> hop = envelope.GetHeader()->GetAnyElements()->Add(u"hop", kTracing);
  hop->GetAttributes()->Add(u"station", station, u"");
}

CBinaryData Send(Orders::COrderList* orders, const CSerializationContext& context) {
  const CSmartPtr<Messages::CEnvelope> envelope(new Messages::CEnvelope);
  envelope->GetAnyAttributes()->Add(u"id", u"42", kTracing);
  envelope->SetHeader(CSmartPtr<Messages::CHeader>(new Messages::CHeader));
  AddHop(*envelope, u"sender");
  envelope->GetBody()->SetAnyElement(CSmartPtr<CElement>(new CElement(orders, nullptr)));
  std::cout << DisplayUtf8(envelope->ToXml(true, true, EOL_LF, context)) << '\n';
  return envelope->ToXmlStream(true, false, Encoding_UTF8, EOL_LF, context, Compression_None);
}

CBinaryData Relay(const CBinaryData& message, const CSerializationContext& context) {
  const CSmartPtr<Messages::CEnvelope> envelope(new Messages::CEnvelope);
  envelope->FromXmlStream(message, context);
  std::cout << "The relay passes on an element ["
            << DisplayUtf8(envelope->GetBody()->GetAnyElement()->GetName()) << "]\n";
  AddHop(*envelope, u"relay");
  return envelope->ToFastInfosetStream(fid_None, context, Compression_GZip);
}

// The envelope refuses content of its own namespace.
bool RefusesItsOwnKind(const CSerializationContext& context) {
  const CSmartPtr<Messages::CEnvelope> envelope(new Messages::CEnvelope);
  try {
    envelope->FromXml(u"<envelope xmlns='urn:example:messages'><body><body/></body></envelope>",
                      context);
  } catch (const CTovikException& e) {
    std::cout << "An envelope in an envelope is refused:\n" << e.what() << '\n';
    return true;
  }
  return false;
}

}  // namespace

int main() {
  const CSerializationContext context = MakeContext();
  const CSmartPtr<Orders::COrderList> sent(new Orders::COrderList);
  sent->FromXml(kOrderText, context);

  const CBinaryData relayed = Relay(Send(sent, context), context);

  const CSmartPtr<Messages::CEnvelope> envelope(new Messages::CEnvelope);
  envelope->FromXmlStream(relayed, context);
  for (const CElement* hop : *envelope->GetHeader()->GetAnyElements()) {
    std::cout << "hop: " << DisplayUtf8(hop->GetAttributes()->Item(0)->GetValue()) << '\n';
  }
  const CSmartPtr<Orders::COrderList> received(new Orders::COrderList);
  received->FromXmlElement(envelope->GetBody()->GetAnyElement(), context);
  const bool same =
      received->ToXml(false, false, EOL_LF, context) == sent->ToXml(false, false, EOL_LF, context);
  const bool complete = envelope->GetHeader()->GetAnyElements()->GetCount() == 2 &&
                        envelope->GetAnyAttributes()->Item(0)->GetValue() == u"42";
  return same && complete && RefusesItsOwnKind(context) ? 0 : 1;
}
