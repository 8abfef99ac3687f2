// XML text to a tree, XML text to objects, objects to XML text, Fast Infoset both ways, on an
// orders document and on the MIME database, with the peers that are installed measured beside in
// the same run. Rates are bytes of the UTF-8 document.

#include <benchmark/benchmark.h>

#include "bench/documents.h"
#include "examples/mime_database/generated/mime_info.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

#ifdef TOVIKXML_BENCH_LIBXML2
#include <libxml/parser.h>
#include <libxml/tree.h>
#endif
#ifdef TOVIKXML_BENCH_PUGIXML
#include <pugixml.hpp>
#endif
#ifdef TOVIKXML_BENCH_GSOAP
#include "bench/gsoap_orders.h"
#endif
#ifdef TOVIKXML_BENCH_XSD
#include <sstream>

#include "orders.hxx"
#endif

using namespace TovikXmlLib16;
using TovikXmlBench::Bytes;
using TovikXmlBench::MimeDocument;
using TovikXmlBench::OrdersDocument;

namespace {

void CountBytes(benchmark::State& state, const std::string& document) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * document.size()));
}

void TextToTree(benchmark::State& state, const std::string& document) {
  for (auto _ : state) {
    CXmlDocument tree;
    tree.LoadXmlStream(Bytes(document), document.size());
    benchmark::DoNotOptimize(tree.GetDocumentElement());
  }
  CountBytes(state, document);
}

template <class Root>
void TextToObjects(benchmark::State& state, const std::string& document) {
  for (auto _ : state) {
    const CSmartPtr<Root> root(new Root);
    root->FromXmlStream(Bytes(document), document.size(),
                        CSerializationContext::GetDefaultContext());
  }
  CountBytes(state, document);
}

template <class Root>
void ObjectsToText(benchmark::State& state, const std::string& document, const wchar* uri) {
  CSerializationContext context;
  context.SetDefaultNamespaceURI(uri);
  const CSmartPtr<Root> root(new Root);
  root->FromXmlStream(Bytes(document), document.size(), context);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        root->ToXmlStream(true, true, Encoding_UTF8, EOL_LF, context, Compression_None));
  }
  CountBytes(state, document);
}

CSerializationContext FastInfosetContext(bool suggested) {
  CSerializationContext context;
  if (suggested) context.GetFIContext().SetSuggestedValues();
  return context;
}

template <class Root>
void ObjectsToFastInfoset(benchmark::State& state, const std::string& document, bool suggested) {
  const CSerializationContext context = FastInfosetContext(suggested);
  const CSmartPtr<Root> root(new Root);
  root->FromXmlStream(Bytes(document), document.size(), context);
  unsigned long octets = 0;
  for (auto _ : state) {
    octets = root->ToFastInfosetStream(fid_None, context, Compression_None).GetLength();
  }
  CountBytes(state, document);
  state.counters["octets"] = static_cast<double>(octets);
}

template <class Root>
void FastInfosetToObjects(benchmark::State& state, const std::string& document, bool suggested) {
  const CSerializationContext context = FastInfosetContext(suggested);
  const CSmartPtr<Root> root(new Root);
  root->FromXmlStream(Bytes(document), document.size(), context);
  const CBinaryData infoset = root->ToFastInfosetStream(fid_None, context, Compression_None);
  for (auto _ : state) root->FromXmlStream(infoset, context);
  CountBytes(state, document);
}

#ifdef TOVIKXML_BENCH_LIBXML2
void Libxml2Tree(benchmark::State& state, const std::string& document) {
  for (auto _ : state) {
    xmlDocPtr tree = xmlReadMemory(document.data(), static_cast<int>(document.size()), nullptr,
                                   nullptr, XML_PARSE_HUGE);
    benchmark::DoNotOptimize(tree);
    xmlFreeDoc(tree);
  }
  CountBytes(state, document);
}
#endif

#ifdef TOVIKXML_BENCH_PUGIXML
void PugixmlTree(benchmark::State& state, const std::string& document) {
  for (auto _ : state) {
    pugi::xml_document tree;
    benchmark::DoNotOptimize(tree.load_buffer(document.data(), document.size()));
  }
  CountBytes(state, document);
}
#endif

#ifdef TOVIKXML_BENCH_XSD
constexpr auto kXsdFlags = xml_schema::flags::dont_validate;

void XsdObjects(benchmark::State& state, const std::string& document) {
  for (auto _ : state) {
    std::istringstream in(document);
    benchmark::DoNotOptimize(orders_xsd::orders(in, kXsdFlags));
  }
  CountBytes(state, document);
}

void XsdText(benchmark::State& state, const std::string& document) {
  std::istringstream in(document);
  const auto root = orders_xsd::orders(in, kXsdFlags);
  xml_schema::namespace_infomap namespaces;
  namespaces[""].name = "urn:example:bench:orders";
  for (auto _ : state) {
    std::ostringstream out;
    orders_xsd::orders(out, *root, namespaces);
    benchmark::DoNotOptimize(out.str());
  }
  CountBytes(state, document);
}
#endif

#ifdef TOVIKXML_BENCH_GSOAP
void GsoapObjects(benchmark::State& state, const std::string& document) {
  TovikXmlBench::GsoapOrders orders;
  for (auto _ : state) {
    orders.Read(document);
    orders.Free();
  }
  CountBytes(state, document);
}

void GsoapText(benchmark::State& state, const std::string& document) {
  TovikXmlBench::GsoapOrders orders;
  orders.Read(document);
  for (auto _ : state) benchmark::DoNotOptimize(orders.Write());
  CountBytes(state, document);
}
#endif

template <class Root>
void Register(const std::string& name, const std::string& document, const wchar* uri) {
  if (document.empty()) return;
  const auto add = [&](const char* work, auto function, auto... arguments) {
    benchmark::RegisterBenchmark((name + "/" + work).c_str(), function, document, arguments...)
        ->Unit(benchmark::kMillisecond);
  };
  add("text to tree", TextToTree);
#ifdef TOVIKXML_BENCH_LIBXML2
  add("text to tree, libxml2", Libxml2Tree);
#endif
#ifdef TOVIKXML_BENCH_PUGIXML
  add("text to tree, pugixml", PugixmlTree);
#endif
  add("text to objects", TextToObjects<Root>);
  add("objects to text", ObjectsToText<Root>, uri);
  for (const bool suggested : {false, true}) {
    const char* values = suggested ? ", suggested values" : "";
    add((std::string("objects to Fast Infoset") + values).c_str(), ObjectsToFastInfoset<Root>,
        suggested);
    add((std::string("Fast Infoset to objects") + values).c_str(), FastInfosetToObjects<Root>,
        suggested);
  }
#ifdef TOVIKXML_BENCH_GSOAP
  if (name == "orders") {
    add("text to objects, gSOAP", GsoapObjects);
    add("objects to text, gSOAP", GsoapText);
  }
#endif
#ifdef TOVIKXML_BENCH_XSD
  if (name == "orders") {
    add("text to objects, CodeSynthesis XSD", XsdObjects);
    add("objects to text, CodeSynthesis XSD", XsdText);
  }
#endif
}

}  // namespace

int main(int argc, char** argv) {
  Register<Orders::COrderList>("orders", OrdersDocument(), u"urn:example:bench:orders");
  Register<MimeDatabase::CMimeInfo>("mime", MimeDocument(),
                                    u"http://www.freedesktop.org/standards/shared-mime-info");
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
