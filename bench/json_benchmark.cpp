// Objects to JSON, JSON to objects, JSON to XML text, on the orders document, with the peers that
// are installed beside: they parse the same JSON to a tree of values and write it back, which is
// less work than objects with checks. Rates are bytes of JSON.

#include <benchmark/benchmark.h>

#include "bench/documents.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/json/reader_to_xml_handler.h"
#include "tovikxml/tovikxml.h"

#ifdef TOVIKXML_BENCH_RAPIDJSON
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#endif
#ifdef TOVIKXML_BENCH_NLOHMANN
#include <nlohmann/json.hpp>
#endif

using namespace TovikXmlLib16;
using Orders::COrderList;

namespace {

const CSerializationContext& Context() {
  return CSerializationContext::GetDefaultContext();
}

CSmartPtr<COrderList> ReadOrders() {
  const std::string& xml = TovikXmlBench::OrdersDocument();
  CSmartPtr<COrderList> root(new COrderList);
  root->FromXmlStream(TovikXmlBench::Bytes(xml), xml.size(), Context());
  return root;
}

const std::string& OrdersJson() {
  static const std::string json = [] {
    const CBinaryData bytes =
        ReadOrders()->ToJsonStream(false, Encoding_UTF8, EOL_LF, Context(), Compression_None);
    return std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
  }();
  return json;
}

void CountBytes(benchmark::State& state) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * OrdersJson().size()));
}

void ObjectsToJson(benchmark::State& state) {
  const CSmartPtr<COrderList> root = ReadOrders();
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        root->ToJsonStream(false, Encoding_UTF8, EOL_LF, Context(), Compression_None));
  }
  CountBytes(state);
}

void JsonToObjects(benchmark::State& state) {
  const std::string& json = OrdersJson();
  for (auto _ : state) {
    const CSmartPtr<COrderList> root(new COrderList);
    root->FromJsonStream(TovikXmlBench::Bytes(json), json.size(), Context());
  }
  CountBytes(state);
}

void JsonToXmlText(benchmark::State& state) {
  const WString json = DecodeUtf8(OrdersJson()).value();
  for (auto _ : state) benchmark::DoNotOptimize(ConvertJsonToXml(json, Context()));
  CountBytes(state);
}

#ifdef TOVIKXML_BENCH_RAPIDJSON
void RapidJsonParse(benchmark::State& state) {
  for (auto _ : state) {
    rapidjson::Document tree;
    benchmark::DoNotOptimize(tree.Parse(OrdersJson().c_str()).HasParseError());
  }
  CountBytes(state);
}

void RapidJsonWrite(benchmark::State& state) {
  rapidjson::Document tree;
  tree.Parse(OrdersJson().c_str());
  for (auto _ : state) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    tree.Accept(writer);
    benchmark::DoNotOptimize(buffer.GetString());
  }
  CountBytes(state);
}
#endif

#ifdef TOVIKXML_BENCH_NLOHMANN
void NlohmannParse(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(nlohmann::json::parse(OrdersJson()));
  CountBytes(state);
}

void NlohmannWrite(benchmark::State& state) {
  const auto tree = nlohmann::json::parse(OrdersJson());
  for (auto _ : state) benchmark::DoNotOptimize(tree.dump());
  CountBytes(state);
}
#endif

}  // namespace

int main(int argc, char** argv) {
  const auto add = [](const char* name, auto function) {
    benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond);
  };
  add("objects to JSON", ObjectsToJson);
  add("JSON to objects", JsonToObjects);
  add("JSON to XML text", JsonToXmlText);
#ifdef TOVIKXML_BENCH_RAPIDJSON
  add("JSON to values, RapidJSON", RapidJsonParse);
  add("values to JSON, RapidJSON", RapidJsonWrite);
#endif
#ifdef TOVIKXML_BENCH_NLOHMANN
  add("JSON to values, nlohmann", NlohmannParse);
  add("values to JSON, nlohmann", NlohmannWrite);
#endif
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
