// Bytes of JSON to objects, in every mode. What was read whole must come out as JSON that reads
// back to the same, if it reads back at all: a floating point NaN, for one, has no JSON. The
// transcoder must give the XML text that the reader gives, or nothing.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "examples/mime_database/generated/mime_info.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/json/reader_to_xml_handler.h"
#include "tovikxml/json/transcoder.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

template <class Root>
void ReadAndBack(const std::uint8_t* data, std::size_t size, const CSerializationContext& context) {
  try {
    const CSmartPtr<Root> root(new Root);
    root->FromJsonStream(const_cast<std::uint8_t*>(data), size, context);
    const WString json = root->ToJson(size % 2 == 0, EOL_LF, context);
    const WString xml = root->ToXml(false, false, EOL_LF, context);
    const CSmartPtr<Root> copy(new Root);
    copy->FromJson(json.c_str(), context);
    if (copy->ToXml(false, false, EOL_LF, context) != xml) std::abort();
  } catch (const CTovikException&) {
    // the only way to fail
  }
}

void CompareRoads(const std::uint8_t* data, std::size_t size,
                  const CSerializationContext& context) {
  const std::string_view json(reinterpret_cast<const char*>(data), size);
  const auto fast = CJsonTranscoder(context).Transcode(json);
  if (!fast) return;
  try {
    const CBinaryData xml = ConvertJsonToXml(FromUtf8(json), context);
    const auto* bytes = reinterpret_cast<const char*>(xml.GetData());
    if (*fast == std::string_view(bytes, xml.GetLength())) return;
  } catch (const CTovikException&) {
    // what the reader refuses
  }
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const JsonRoundTrip mode : {jrt_Bare, jrt_Marked, jrt_Full}) {
    CSerializationContext context;
    context.SetMaxDecompressedSize(1 << 20);
    context.GetJsonContext().SetSupportRoundtrip(mode);
    context.GetJsonContext().GetAllowComments(mode != jrt_Full);
    context.SetIgnoreUnknownAttributes(mode == jrt_Bare);
    context.SetIgnoreUnknownElements(mode == jrt_Bare);
    CompareRoads(data, size, context);
    ReadAndBack<Orders::COrderList>(data, size, context);
    ReadAndBack<MimeDatabase::CMimeInfo>(data, size, context);
    context.GetJsonContext().SetRootElementName(u"orders");
    ReadAndBack<Orders::COrderList>(data, size, context);
    CompareRoads(data, size, context);
  }
  return 0;
}
