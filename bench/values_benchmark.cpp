// Values to text and from text, beside the C library, the standard library and GMP; facets; and a
// long typed collection.

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdlib>
#include <string>

#include "tovikxml/tovikxml.h"
#include "tovikxml/values/facets.h"

#ifdef TOVIKXML_BENCH_GMP
#include <gmp.h>
#endif

using namespace TovikXmlLib16;

namespace {

constexpr auto kRule = CWhitespaceUtils::ws_collapse;

struct Sample {
  const char* name;
  ItemType type;
  WString text;
};

WString Digits(std::size_t count) {
  WString text;
  for (std::size_t i = 0; i < count; ++i) text.push_back(static_cast<wchar>(u'1' + i % 9));
  return text;
}

const Sample kSamples[] = {
    {"i4", it_i4, u"-1234567"},
    {"ui8", it_ui8, u"18446744073709551615"},
    {"r8", it_r8, u"0.1234567"},
    {"boolean", it_boolean, u"true"},
    {"decimal", it_decimal, u"1234.56"},
    {"integer, 20 digits", it_integer, Digits(20)},
    {"integer, 1000 digits", it_integer, Digits(1000)},
    {"date", it_date, u"2024-02-29"},
    {"dateTime", it_datetime, u"2024-02-29T23:59:59.125+01:00"},
    {"duration", it_duration, u"P1Y2M3DT4H5M6.5S"},
    {"hexBinary, 64 octets", it_hexBinary, WString(128, u'A')},
    {"base64Binary, 63 octets", it_base64Binary, WString(84, u'A')},
};

void FromText(benchmark::State& state, const Sample& sample) {
  TovikVariant value;
  for (auto _ : state) {
    value.FromString(sample.text, sample.type, kRule);
    benchmark::DoNotOptimize(value);
  }
}

void ToText(benchmark::State& state, const Sample& sample) {
  TovikVariant value;
  value.FromString(sample.text, sample.type, kRule);
  WString scratch;
  for (auto _ : state) benchmark::DoNotOptimize(value.GetText(u"", scratch));
}

void StrtodPeer(benchmark::State& state) {
  const std::string text = "0.1234567";
  for (auto _ : state) benchmark::DoNotOptimize(std::strtod(text.c_str(), nullptr));
}

void FromCharsPeer(benchmark::State& state) {
  const std::string text = "0.1234567";
  for (auto _ : state) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    benchmark::DoNotOptimize(value);
  }
}

#ifdef TOVIKXML_BENCH_GMP
void GmpFromText(benchmark::State& state) {
  const std::string text = DisplayUtf8(Digits(1000));
  mpz_t number;
  mpz_init(number);
  for (auto _ : state) mpz_set_str(number, text.c_str(), 10);
  mpz_clear(number);
}
#endif

void PatternFacet(benchmark::State& state) {
  const CPrimitiveRestrictions facets(u"\\d{3}-[A-Z]{2}\\d{4}", -1, -1, u"", u"", u"", u"", -1, -1,
                                      -1);
  TovikVariant value;
  value.SetString(u"042-AB1234");
  for (auto _ : state) CheckFacets(u"sku", value, it_string, facets);
}

constexpr int kItems = 100000;

CSmartPtr<Ci4Col> NewList() {
  return new Ci4Col(u"n", u"", 0, -1, u"", -1, -1, u"", u"", u"", u"", -1, -1, -1, kRule, u"");
}

/// A class with one repeated value, in the form of generated code.
class CNumbers : public CXmlGeneratedClass {
 public:
  CNumbers() : numbers(NewList()) { SetElementName(u"numbers"); }
  CXmlObjectBase* GetBase() override { return this; }
  const CSmartPtr<Ci4Col> numbers;

 protected:
  WString GetTargetNamespace() const override { return u""; }
  WString GetNamespace() const override { return u""; }
  void AccessProperty(int, bool, TovikVariant& value) override { value.SetXmlCollection(numbers); }
  TovikXmlLib16Data::CParentElementInfo* GetClassInfo() const override {
    static TovikXmlLib16Data::CParentElementInfo info(TovikXmlLib16Data::xgt_Sequence,
                                                      TovikXmlLib16Data::xet_Element, u"numbers",
                                                      u"", true, false, -1, it_invalid, u"", false);
    return &info;
  }
  CElementInfo** GetClassElementInfo() const override {
    static TovikXmlLib16Data::CElementInfoSeqPrimCol record(u"n", u"", 0);
    static CElementInfo* records[] = {&record, nullptr};
    return records;
  }
  CAttributeInfo** GetClassAttributeInfo() const override {
    static CAttributeInfo* records[] = {nullptr};
    return records;
  }
  void Init() override { numbers->Clear(); }
};

CSmartPtr<CNumbers> FilledNumbers() {
  CSmartPtr<CNumbers> object(new CNumbers);
  for (int i = 0; i < kItems; ++i) object->numbers->Add(i);
  return object;
}

void WriteCollection(benchmark::State& state) {
  const CSmartPtr<CNumbers> object = FilledNumbers();
  const CSerializationContext& context = CSerializationContext::GetDefaultContext();
  for (auto _ : state) benchmark::DoNotOptimize(object->ToXml(false, false, EOL_LF, context));
  state.SetItemsProcessed(state.iterations() * kItems);
}

void ReadCollection(benchmark::State& state) {
  const CSmartPtr<CNumbers> object = FilledNumbers();
  const CSerializationContext& context = CSerializationContext::GetDefaultContext();
  const WString text = object->ToXml(false, false, EOL_LF, context);
  for (auto _ : state) object->FromXml(text.c_str(), context);
  state.SetItemsProcessed(state.iterations() * kItems);
}

void FillCollection(benchmark::State& state) {
  for (auto _ : state) {
    const CSmartPtr<Ci4Col> list = NewList();
    for (int i = 0; i < kItems; ++i) list->Add(i);
  }
  state.SetItemsProcessed(state.iterations() * kItems);
}

}  // namespace

int main(int argc, char** argv) {
  for (const Sample& sample : kSamples) {
    const std::string name = sample.name;
    benchmark::RegisterBenchmark((name + "/from text").c_str(), FromText, sample);
    benchmark::RegisterBenchmark((name + "/to text").c_str(), ToText, sample);
  }
  benchmark::RegisterBenchmark("r8/from text, strtod", StrtodPeer);
  benchmark::RegisterBenchmark("r8/from text, std::from_chars", FromCharsPeer);
#ifdef TOVIKXML_BENCH_GMP
  benchmark::RegisterBenchmark("integer, 1000 digits/from text, GMP", GmpFromText);
#endif
  benchmark::RegisterBenchmark("pattern facet", PatternFacet);
  SetGeneratorVersion(16, 1);
  const auto add = [](const char* name, auto function) {
    benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond);
  };
  add("i4 list, 100000 values added", FillCollection);
  add("i4 list, 100000 values written", WriteCollection);
  add("i4 list, 100000 values read", ReadCollection);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
