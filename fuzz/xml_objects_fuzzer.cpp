// Bytes to objects, strict and lenient. What was read whole must come out as XML that reads back
// to the same, but for what the XML writer passes on as it stands: values that Fast Infoset carries
// and XML text does not, and values that begin as a CDATA section.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "examples/mime_database/generated/mime_info.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/base/utf8.h"
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

bool IsXmlUnit(wchar unit) {
  return unit == u'\t' || unit == u'\n' || unit == u'\r' || (unit >= u' ' && unit < 0xFFFE);
}

bool IsPlainXml(const WString& text) {
  return std::all_of(text.begin(), text.end(), IsXmlUnit) && EncodeUtf8(text) &&
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
  if (!IsPlainXml(text)) return;
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
