// docs/guide/open_content.md

#include "examples/envelope/generated/body.h"
#include "examples/envelope/generated/envelope.h"
#include "examples/envelope/generated/header.h"
#include "examples/guide/section.h"
#include "examples/orders/generated/order_col.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

constexpr const wchar* kTracing = u"urn:example:tracing";

CSerializationContext MakeContext() {
  // snippet: context
  CSerializationContext context;
  context.SetIndentChars(u"  ");
  context.GetNamespaceAliases().Add(u"m", u"urn:example:messages");
  context.GetNamespaceAliases().Add(u"t", u"urn:example:tracing");
  context.GetNamespaceAliases().Add(u"o", u"urn:example:bench:orders");
  // end snippet
  return context;
}

CSmartPtr<Messages::CEnvelope> Pass(const CSerializationContext& context) {
  // snippet: pass
  CSmartPtr<Messages::CEnvelope> envelope(new Messages::CEnvelope);
  envelope->FromXml(
      "<m:envelope xmlns:m='urn:example:messages'>"
      "<m:header><t:hop xmlns:t='urn:example:tracing' station='sender'>urgent</t:hop></m:header>"
      "<m:body><note xmlns='urn:example:notes'>Ring twice</note></m:body>"
      "</m:envelope>",
      context);
  CSmartPtr<CElementCol> hops = envelope->GetHeader()->GetAnyElements();
  hops->Add(u"hop", kTracing)->GetAttributes()->Add(u"station", u"relay", u"");
  std::cout << DisplayUtf8(envelope->ToXml(false, true, EOL_LF, context)) << '\n';
  // end snippet
  return envelope;
}

void Walk(const Messages::CEnvelope& envelope) {
  // snippet: walk
  for (const CElement* hop : *envelope.GetHeader()->GetAnyElements()) {
    std::cout << DisplayUtf8(hop->GetName()) << " at "
              << DisplayUtf8(hop->GetAttributes()->Item(0)->GetValue()) << " says ["
              << DisplayUtf8(hop->GetText()) << "]\n";
  }
  // end snippet
}

void Typed(Messages::CEnvelope& envelope, const CSerializationContext& context) {
  // snippet: typed
  CSmartPtr<Orders::COrderList> sent(new Orders::COrderList);
  sent->FromXmlFile(u"orders.xml", context);
  envelope.GetBody()->SetAnyElement(CSmartPtr<CElement>(new CElement(sent, nullptr)));

  CSmartPtr<Orders::COrderList> received(new Orders::COrderList);
  received->FromXmlElement(envelope.GetBody()->GetAnyElement(), context);
  std::cout << received->GetOrders()->GetCount() << " order\n";
  // end snippet
}

void Refused(const CSerializationContext& context) {
  // snippet: refused
  CSmartPtr<Messages::CEnvelope> envelope(new Messages::CEnvelope);
  try {
    envelope->FromXml("<envelope xmlns='urn:example:messages'><body/><seal xmlns=''/></envelope>",
                      context);
  } catch (const CTovikException& e) {
    std::cout << e.what() << '\n';
  }
  // end snippet
}

void Lenient() {
  // snippet: lenient
  CSerializationContext lenient;
  lenient.SetIgnoreUnknownElements(true);
  lenient.SetIgnoreUnknownAttributes(true);
  CSmartPtr<Orders::COrderList> list(new Orders::COrderList);
  list->FromXml(
      "<orders xmlns='urn:example:bench:orders' version='2'>"
      "<order id='1' date='2026-11-23' status='new' colour='red'><customer><name/><street/><city/>"
      "<postalCode/><country/><phone>1</phone></customer>"
      "<item sku='042-AB7'><description/><quantity>1</quantity><price>1</price><weight>1</weight>"
      "<shipDate>2026-11-23</shipDate><inStock>true</inStock></item></order></orders>",
      lenient);
  // end snippet
  std::cout << list->GetOrders()->GetCount() << " order\n";
}

}  // namespace

int main() {
  const CSerializationContext context = MakeContext();
  Section("pass");
  const CSmartPtr<Messages::CEnvelope> envelope = Pass(context);
  Section("walk");
  Walk(*envelope);
  Section("typed");
  Typed(*envelope, context);
  Section("refused");
  Refused(context);
  Section("lenient");
  Lenient();
}
