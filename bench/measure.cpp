// Does one piece of work on one document a number of times, for a profiler or a counter around it.
//
//   measure WORK FILE COUNT
//
// WORK names a line of the table below. Everything but the work itself is done once, so that the
// difference between two counts is the cost of the work alone. Tells the peak of memory, too.

#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <string>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "examples/mime_database/generated/mime_info.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

using Work = std::function<void()>;

std::string ReadFile(const char* name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

unsigned char* BytesOf(std::string& text) {
  return reinterpret_cast<unsigned char*>(text.data());
}

template <class Root>
Work ReadObjects(std::string& text) {
  return [&text] {
    const CSmartPtr<Root> root(new Root);
    root->FromXmlStream(BytesOf(text), text.size(), CSerializationContext::GetDefaultContext());
  };
}

template <class Root>
Work WalkTree(std::string& text) {
  auto document = std::make_shared<CXmlDocument>();
  document->LoadXmlStream(BytesOf(text), text.size());
  return [document] {
    const CSmartPtr<Root> root(new Root);
    root->FromXmlElement(document->GetDocumentElement(),
                         CSerializationContext::GetDefaultContext());
  };
}

template <class Root>
Work WriteObjects(std::string& text, const wchar* namespaceUri) {
  auto context = std::make_shared<CSerializationContext>();
  context->SetDefaultNamespaceURI(namespaceUri);
  const CSmartPtr<Root> root(new Root);
  root->FromXmlStream(BytesOf(text), text.size(), *context);
  return [root, context] {
    root->ToXmlStream(true, true, Encoding_UTF8, EOL_LF, *context, Compression_None);
  };
}

template <class Root>
CSmartPtr<Root> ReadRoot(std::string& text) {
  CSmartPtr<Root> root(new Root);
  root->FromXmlStream(BytesOf(text), text.size(), CSerializationContext::GetDefaultContext());
  return root;
}

template <class Root>
Work WriteJson(std::string& text) {
  const CSmartPtr<Root> root = ReadRoot<Root>(text);
  const CSerializationContext& context = CSerializationContext::GetDefaultContext();
  return [root, &context] {
    root->ToJsonStream(true, Encoding_UTF8, EOL_LF, context, Compression_None);
  };
}

template <class Root>
Work ReadJson(std::string& text) {
  const CSmartPtr<Root> root = ReadRoot<Root>(text);
  const CSerializationContext& context = CSerializationContext::GetDefaultContext();
  const CBinaryData json =
      root->ToJsonStream(true, Encoding_UTF8, EOL_LF, context, Compression_None);
  return [json, &context] {
    const CSmartPtr<Root> copy(new Root);
    copy->FromJsonStream(json, context);
  };
}

CSerializationContext FastInfosetContext(bool suggested) {
  CSerializationContext context;
  if (suggested) context.GetFIContext().SetSuggestedValues();
  return context;
}

template <class Root>
Work WriteFastInfoset(std::string& text, bool suggested) {
  return [root = ReadRoot<Root>(text), context = FastInfosetContext(suggested)] {
    root->ToFastInfosetStream(fid_None, context, Compression_None);
  };
}

template <class Root>
Work ReadFastInfoset(std::string& text, bool suggested) {
  const CBinaryData infoset = ReadRoot<Root>(text)->ToFastInfosetStream(
      fid_None, FastInfosetContext(suggested), Compression_None);
  std::cerr << infoset.GetLength() << " octets\n";
  return [infoset] {
    const CSmartPtr<Root> copy(new Root);
    copy->FromXmlStream(infoset, CSerializationContext::GetDefaultContext());
  };
}

Work FastInfosetTree(std::string& text) {
  const CBinaryData infoset = ReadRoot<Orders::COrderList>(text)->ToFastInfosetStream(
      fid_None, FastInfosetContext(false), Compression_None);
  return [infoset] {
    CXmlDocument document;
    document.LoadXmlStream(infoset.GetData(), infoset.GetLength());
  };
}

constexpr const wchar* kOrders = u"urn:example:bench:orders";
constexpr const wchar* kMime = u"http://www.freedesktop.org/standards/shared-mime-info";

Work MakeWork(const std::string& name, std::string& text) {
  using MimeDatabase::CMimeInfo;
  using Orders::COrderList;
  const std::map<std::string, std::function<Work()>> works = {
      {"tree",
       [&] {
         return [&text] {
           CXmlDocument document;
           document.LoadXmlStream(BytesOf(text), text.size());
         };
       }},
      {"tree-wide",
       [&]() -> Work {
         // Without the declaration, which names another encoding.
         return [wide = FromUtf8(text.substr(text.find("?>") + 2))] {
           CXmlDocument document;
           document.LoadXml(wide.c_str());
         };
       }},
      {"tree-flat",
       [&] {
         return [&text] {
           // The document is given by its name here, so that it is never whole in memory.
           AsyncFromXmlFile(true);
           CXmlDocument document([](CXmlElement*) { return true; });
           document.Load(DecodeUtf8(text).value().c_str());
         };
       }},
      {"orders-read", [&] { return ReadObjects<COrderList>(text); }},
      {"orders-bind", [&] { return WalkTree<COrderList>(text); }},
      {"orders-write", [&] { return WriteObjects<COrderList>(text, kOrders); }},
      {"orders-json-write", [&] { return WriteJson<COrderList>(text); }},
      {"orders-json-read", [&] { return ReadJson<COrderList>(text); }},
      {"fi-tree", [&] { return FastInfosetTree(text); }},
      {"fi-read", [&] { return ReadFastInfoset<COrderList>(text, false); }},
      {"fi-read-suggested", [&] { return ReadFastInfoset<COrderList>(text, true); }},
      {"fi-write", [&] { return WriteFastInfoset<COrderList>(text, false); }},
      {"fi-write-suggested", [&] { return WriteFastInfoset<COrderList>(text, true); }},
      {"mime-read", [&] { return ReadObjects<CMimeInfo>(text); }},
      {"mime-bind", [&] { return WalkTree<CMimeInfo>(text); }},
      {"mime-write", [&] { return WriteObjects<CMimeInfo>(text, kMime); }},
  };
  return works.at(name)();
}

// A line of the status of this process, in KB; 0 where the system has none.
long StatusLine(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    long size = 0;
    if (word == name + ":" && status >> size) return size;
  }
  return 0;
}

// From here on the peak is that of the work, which finds no memory left over.
void ForgetPeak() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
  std::ofstream("/proc/self/clear_refs") << "5";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: measure WORK FILE COUNT\n";
    return 2;
  }
  std::string text = std::string(argv[1]) == "tree-flat" ? argv[2] : ReadFile(argv[2]);
  const Work work = MakeWork(argv[1], text);
  ForgetPeak();
  const long before = StatusLine("VmRSS");
  for (int i = std::atoi(argv[3]); i > 0; --i) work();
  std::cerr << "peak beyond the preparation: " << (StatusLine("VmHWM") - before) / 1024 << " MiB\n";
}
