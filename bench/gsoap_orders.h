#ifndef BENCH_GSOAP_ORDERS_H_
#define BENCH_GSOAP_ORDERS_H_

#include <memory>
#include <string>

/// The orders document read and written by gSOAP, a peer that is optional. It keeps decimals and
/// dates as texts and checks no facets.
namespace TovikXmlBench {

class GsoapOrders {
 public:
  GsoapOrders();
  ~GsoapOrders();

  /// Reads a document into new objects. Throws `std::runtime_error` if gSOAP refuses it.
  void Read(const std::string& document);
  /// Writes the objects read last.
  std::string Write();
  /// Frees the objects.
  void Free();

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace TovikXmlBench

#endif  // BENCH_GSOAP_ORDERS_H_
