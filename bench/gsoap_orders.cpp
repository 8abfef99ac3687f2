#include "bench/gsoap_orders.h"

#include <istream>
#include <sstream>
#include <stdexcept>
#include <streambuf>

#include "ns1.nsmap"
#include "soapH.h"

namespace TovikXmlBench {
namespace {

// A stream over the document as it lies, so that no copy counts.
class View : public std::streambuf {
 public:
  explicit View(const std::string& text) {
    char* const begin = const_cast<char*>(text.data());
    setg(begin, begin, begin + text.size());
  }
};

}  // namespace

struct GsoapOrders::State {
  soap* context = soap_new1(SOAP_C_UTFSTRING | SOAP_XML_INDENT);
  ns1__OrderList root;

  State() = default;
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State() { soap_free(context); }
};

GsoapOrders::GsoapOrders() : m_state(new State) {}

GsoapOrders::~GsoapOrders() {
  Free();
}

void GsoapOrders::Free() {
  m_state->root.soap_default(m_state->context);
  soap_destroy(m_state->context);
  soap_end(m_state->context);
}

void GsoapOrders::Read(const std::string& document) {
  View view(document);
  std::istream in(&view);
  soap* const context = m_state->context;
  context->is = &in;
  m_state->root.soap_default(context);
  if (soap_begin_recv(context) ||
      !soap_get_ns1__OrderList(context, &m_state->root, "ns1:orders", nullptr) ||
      soap_end_recv(context)) {
    throw std::runtime_error("gSOAP can not read the document");
  }
}

std::string GsoapOrders::Write() {
  std::ostringstream out;
  soap* const context = m_state->context;
  context->os = &out;
  m_state->root.soap_serialize(context);
  if (soap_begin_send(context) || m_state->root.soap_put(context, "ns1:orders", nullptr) ||
      soap_end_send(context)) {
    throw std::runtime_error("gSOAP can not write the objects");
  }
  return out.str();
}

}  // namespace TovikXmlBench
