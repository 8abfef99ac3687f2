// Bytes to objects, strict and lenient. What was read whole must come out as XML that reads back
// to the same.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

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
  const CSmartPtr<Root> copy(new Root);
  copy->FromXml(text.c_str(), context);
  if (copy->ToXml(false, false, EOL_LF, context) != text) std::abort();
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
