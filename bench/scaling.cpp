// How cost grows with the size of a document: each row is a shape of document and a piece of work,
// at sizes of which each is ten times the one before. Cost that grows linearly shows much the same
// figure in every column: nanoseconds of processor time for one byte of the document.
//
//   scaling [LARGEST_MB [LARGEST_COUNT]]
//
// LARGEST_MB (50 unless told) holds for the orders document, LARGEST_COUNT (100000) for the number
// of items, attributes, namespaces and nested elements.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>

#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;
using Orders::COrderList;

namespace {

// The bytes as the entry points take them, which do not write to them.
unsigned char* Bytes(const std::string& text) {
  return reinterpret_cast<unsigned char*>(const_cast<char*>(text.data()));
}

// Documents.

std::string Items(std::size_t first, std::size_t count) {
  std::string text;
  for (std::size_t i = first; i < first + count; ++i) {
    text += "<item sku=\"SKU-" + std::to_string(i) +
            "\"><description>Blue widget, large</description><quantity>3</quantity>"
            "<price>1234.56</price><weight>0.75</weight><shipDate>2021-05-28</shipDate>"
            "<inStock>true</inStock></item>\n";
  }
  return text;
}

std::string OrdersOf(std::size_t orders, std::size_t itemsInEach) {
  std::string text = "<orders xmlns=\"urn:example:bench:orders\">\n";
  for (std::size_t i = 0; i < orders; ++i) {
    text += "<order id=\"" + std::to_string(i) +
            "\" date=\"2021-05-24\" status=\"new\"><customer><name>Fran\xC3\xA7ois Nguyen</name>"
            "<street>50 Main Street</street><city>Malm\xC3\xB6</city><postalCode>04726</postalCode>"
            "<country>SE</country></customer>\n" +
            Items(i * itemsInEach, itemsInEach) + "</order>\n";
  }
  return text + "</orders>\n";
}

// About a megabyte for each 1,000.
std::string ManyOrders(std::size_t count) {
  return OrdersOf(count, 5);
}

std::string ManyItems(std::size_t count) {
  return OrdersOf(1, count);
}

std::string ManyAttributes(std::size_t count) {
  std::string text = "<r";
  for (std::size_t i = 0; i < count; ++i) text += " a" + std::to_string(i) + "=\"1\"";
  return text + "/>";
}

std::string ManyNamespaces(std::size_t count) {
  std::string text = "<r>";
  for (std::size_t i = 0; i < count; ++i) {
    const std::string n = std::to_string(i);
    text += "<p" + n + ":e xmlns:p" + n + "=\"urn:" + n + "\"/>";
  }
  return text + "</r>";
}

std::string ManyLevels(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += "<e>";
  for (std::size_t i = 0; i < count; ++i) text += "</e>";
  return text;
}

// Work. Each function prepares what it does not measure and returns what it does.

using Work = std::function<void()>;

Work ToTree(const std::string& text) {
  return [&text] {
    CXmlDocument document;
    document.LoadXmlStream(Bytes(text), text.size());
  };
}

// The path of the innermost element of the last branch.
Work ToPath(const std::string& text) {
  return [&text] {
    CXmlDocument document;
    document.LoadXmlStream(Bytes(text), text.size());
    const CXmlElement* element = document.GetDocumentElement();
    while (element->GetFirstElement()) element = element->GetFirstElement();
    element->GetXPath();
  };
}

const CSerializationContext& Context() {
  return CSerializationContext::GetDefaultContext();
}

template <class Root>
CSmartPtr<Root> Read(const std::string& text) {
  CSmartPtr<Root> root(new Root);
  root->FromXmlStream(Bytes(text), text.size(), Context());
  return root;
}

template <class Root>
Work ToObjects(const std::string& text) {
  return [&text] { Read<Root>(text); };
}

template <class Root>
Work ToXml(const std::string& text) {
  return [root = Read<Root>(text)] {
    root->ToXmlStream(true, true, Encoding_UTF8, EOL_LF, Context(), Compression_None);
  };
}

template <class Root>
Work ToJson(const std::string& text) {
  return [root = Read<Root>(text)] {
    root->ToJsonStream(true, Encoding_UTF8, EOL_LF, Context(), Compression_None);
  };
}

template <class Root>
Work FromJson(const std::string& text) {
  return [json = Read<Root>(text)->ToJsonStream(true, Encoding_UTF8, EOL_LF, Context(),
                                                Compression_None)] {
    const CSmartPtr<Root> root(new Root);
    root->FromJsonStream(json, Context());
  };
}

template <class Root>
Work ToFastInfoset(const std::string& text) {
  return [root = Read<Root>(text)] {
    root->ToFastInfosetStream(fid_None, Context(), Compression_None);
  };
}

template <class Root>
Work FromFastInfoset(const std::string& text) {
  return [infoset = Read<Root>(text)->ToFastInfosetStream(fid_None, Context(), Compression_None)] {
    const CSmartPtr<Root> root(new Root);
    root->FromXmlStream(infoset, Context());
  };
}

// The open content of any document.
Work ToElement(const std::string& text) {
  return [wide = FromUtf8(text)] {
    const CSmartPtr<CElement> element(new CElement(u"r"));
    element->FromXml(wide.c_str());
  };
}

Work ElementToXml(const std::string& text) {
  const CSmartPtr<CElement> element(new CElement(u"r"));
  element->FromXml(FromUtf8(text).c_str());
  return [element] { element->ToXml(false, false, EOL_LF, Context()); };
}

// Measurement.

double ProcessorSeconds() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

// The best of as many rounds as fit into a moment.
double SecondsFor(const Work& work) {
  double best = 1e9;
  const double begin = ProcessorSeconds();
  do {
    const double before = ProcessorSeconds();
    work();
    best = std::min(best, ProcessorSeconds() - before);
  } while (ProcessorSeconds() - begin < 0.3);
  return best;
}

void Row(const char* name, std::string (*make)(std::size_t), std::size_t largest,
         Work (*prepare)(const std::string&)) {
  std::printf("%-40s", name);
  for (std::size_t count = largest / 1000; count <= largest; count *= 10) {
    if (count == 0) continue;
    const std::string text = make(count);
    std::printf(" %8.1f", SecondsFor(prepare(text)) * 1e9 / static_cast<double>(text.size()));
    std::fflush(stdout);
  }
  std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
  const std::size_t orders = 1000 * std::strtoul(argc > 1 ? argv[1] : "50", nullptr, 10);
  const std::size_t count = std::strtoul(argc > 2 ? argv[2] : "100000", nullptr, 10);
  std::printf("%-40s %8s %8s %8s %8s\n", "ns per byte at a size of", "1/1000", "1/100", "1/10",
              "1");
  Row("orders to tree", ManyOrders, orders, ToTree);
  Row("orders to objects", ManyOrders, orders, ToObjects<COrderList>);
  Row("orders to text", ManyOrders, orders, ToXml<COrderList>);
  Row("items of one order from text", ManyItems, count, ToObjects<COrderList>);
  Row("items of one order to text", ManyItems, count, ToXml<COrderList>);
  Row("items of one order to JSON", ManyItems, count, ToJson<COrderList>);
  Row("items of one order from JSON", ManyItems, count, FromJson<COrderList>);
  Row("items of one order to Fast Infoset", ManyItems, count, ToFastInfoset<COrderList>);
  Row("items of one order from Fast Infoset", ManyItems, count, FromFastInfoset<COrderList>);
  Row("attributes to tree", ManyAttributes, count, ToTree);
  Row("attributes to open content", ManyAttributes, count, ToElement);
  Row("attributes of open content to text", ManyAttributes, count, ElementToXml);
  Row("namespaces to tree", ManyNamespaces, count, ToTree);
  Row("namespaces to open content", ManyNamespaces, count, ToElement);
  Row("namespaces of open content to text", ManyNamespaces, count, ElementToXml);
  Row("levels to tree", ManyLevels, count, ToTree);
  Row("levels to path", ManyLevels, count, ToPath);
}
