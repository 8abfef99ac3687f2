#ifndef BENCH_DOCUMENTS_H_
#define BENCH_DOCUMENTS_H_

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

/// The documents that the benchmarks work on.
namespace TovikXmlBench {

inline std::string ReadFile(const char* name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// 1 MB of orders, made at build time by gendoc; another file with the variable ORDERS_XML.
inline const std::string& OrdersDocument() {
  static const std::string document = [] {
    const char* name = std::getenv("ORDERS_XML");
    return ReadFile(name ? name : TOVIKXML_BENCH_ORDERS);
  }();
  return document;
}

/// The MIME database of the system; empty if it has none.
inline const std::string& MimeDocument() {
  static const std::string document = ReadFile("/usr/share/mime/packages/freedesktop.org.xml");
  return document;
}

/// The bytes as the entry points take them, which do not write to them.
inline unsigned char* Bytes(const std::string& text) {
  return reinterpret_cast<unsigned char*>(const_cast<char*>(text.data()));
}

}  // namespace TovikXmlBench

#endif  // BENCH_DOCUMENTS_H_
