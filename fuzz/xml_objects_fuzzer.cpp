// Bytes to objects, strict and lenient. What was read whole must come out as XML that reads back
// to the same; it need not read back where the XML writer passes on what XML text cannot carry:
// names and values of Fast Infoset, and values that begin as a CDATA section.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "examples/mime_database/generated/mime_info.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

CSerializationContext MakeContext(bool lenient) {
  CSerializationContext context;
  context.SetMaxDecompressedSize(1 << 20);
  context.SetIgnoreUnknownElements(lenient);
  context.SetIgnoreUnknownAttributes(lenient);
  context.SetIgnoreInvalidCollectionCounts(lenient);
  context.SetIgnoreMissingChoice(lenient);
  context.SetIgnoreNamespaces(lenient);
  return context;
}

// Whether what was read from the bytes must read back. "finf" declares Fast Infoset.
bool MustReadBack(const std::uint8_t* data, std::size_t size, const WString& text) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  return bytes.substr(0, 1) == "<" && bytes.find("finf") == std::string_view::npos &&
         text.find(u"<![CDATA[") == WString::npos;
}

template <class Root>
void ReadAndBack(const std::uint8_t* data, std::size_t size, const CSerializationContext& context) {
  const CSmartPtr<Root> root(new Root);
  WString text;
  try {
    root->FromXmlStream(const_cast<std::uint8_t*>(data), size, context);
    text = root->ToXml(false, false, EOL_LF, context);
  } catch (const CTovikException&) {
    return;
  }
  const bool mustReadBack = MustReadBack(data, size, text);
  try {
    const CSmartPtr<Root> copy(new Root);
    copy->FromXml(text.c_str(), context);
    if (mustReadBack && copy->ToXml(false, false, EOL_LF, context) != text) std::abort();
  } catch (const CTovikException&) {
    if (mustReadBack) throw;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const bool lenient : {false, true}) {
    const CSerializationContext context = MakeContext(lenient);
    ReadAndBack<Orders::COrderList>(data, size, context);
    ReadAndBack<MimeDatabase::CMimeInfo>(data, size, context);
  }
  return 0;
}
