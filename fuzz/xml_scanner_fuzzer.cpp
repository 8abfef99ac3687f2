// Bytes and 16-bit text on both roads: with a callback the parser reads a document, without one the
// scanner does where it is certain. Trees, prefixes and messages have to be the same.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

using Texts = std::set<WString>;
using Load = std::function<void(CXmlDocument&)>;

bool KeepAll(CXmlElement*) {
  return false;
}

void Append(WString& result, const wchar* kind, const WString& name, const WString& uri,
            const WString& text) {
  result += FormatString(u"%s %llu ", kind, static_cast<unsigned long long>(text.size()));
  result.append(name).append(u" {").append(uri).append(u"} ").append(text).append(u"\n");
}

// Every node in document order, and the end of every element.
WString Describe(const CXmlElement* root, Texts& uris) {
  WString result;
  const CXmlElement* element = root;
  while (element) {
    Append(result, u"element", element->GetLocalName(), element->GetNamespaceURI(),
           element->GetText());
    uris.insert(element->GetNamespaceURI());
    for (const CXmlAttribute* attribute : element->GetAttributes()) {
      Append(result, u"attribute", attribute->GetLocalName(), attribute->GetNamespaceURI(),
             attribute->GetValue());
      uris.insert(attribute->GetNamespaceURI());
    }
    const CXmlElement* next = element->GetFirstElement();
    for (; !next && element; element = element->GetParentElm()) {
      result += u"end\n";
      next = element->GetNextSiblingElement();
    }
    element = next;
  }
  return result;
}

WString Outcome(CXmlDocument::ElementCallback callback, const Load& load, const Texts& prefixes) {
  CXmlDocument document(callback);
  try {
    load(document);
  } catch (const CTovikException& failure) {
    return u"! " + failure.GetMessage();
  }
  Texts uris;
  WString result = Describe(document.GetDocumentElement(), uris);
  for (const WString& prefix : prefixes) {
    const WString uri = document.LookupNamespaceFromAlias(prefix.c_str());
    Append(result, u"prefix", prefix, uri, WString());
    uris.insert(uri);
  }
  for (const WString& uri : uris) {
    Append(result, u"alias", document.LookupAliasFromNamespace(uri.c_str()), uri, WString());
  }
  return result;
}

void RequireEqual(const WString& text, const Load& load, const Texts& prefixes) {
  const WString scanned = Outcome(nullptr, load, prefixes);
  const WString parsed = Outcome(KeepAll, load, prefixes);
  if (scanned == parsed) return;
  std::fprintf(stderr, "The roads differ for\n%s\n\nwith the scanner:\n%s\n\nparser alone:\n%s\n",
               DisplayUtf8(text).c_str(), DisplayUtf8(scanned).c_str(),
               DisplayUtf8(parsed).c_str());
  std::abort();
}

// What is no UTF-8 becomes a text with surrogates, of which few have a partner.
WString Widen(std::string_view bytes) {
  if (auto text = DecodeUtf8(bytes)) return *std::move(text);
  WString text;
  for (const char byte : bytes) {
    const auto unit = static_cast<unsigned char>(byte);
    text += static_cast<wchar>(unit < 0xF8 ? unit : unit << 8 & 0xDFFF);
  }
  return text;
}

// Every prefix that a document can declare, and some more.
Texts PrefixesIn(const WString& text) {
  Texts prefixes = {u"", u"xml", u"xmlns"};
  const WString declaration = u"xmlns:";
  for (std::size_t at = text.find(declaration); at != WString::npos;
       at = text.find(declaration, at)) {
    at += declaration.size();
    const std::size_t end = text.find_first_of(u" \t\r\n=", at);
    prefixes.insert(text.substr(at, end == WString::npos ? end : end - at));
  }
  return prefixes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const WString text = Widen({reinterpret_cast<const char*>(data), size});
  const Texts prefixes = PrefixesIn(text);
  RequireEqual(
      text, [&](CXmlDocument& document) { document.LoadXmlStream(data, size); }, prefixes);
  RequireEqual(
      text, [&](CXmlDocument& document) { document.LoadXml(text.c_str()); }, prefixes);
  return 0;
}
