// Bytes of any format to objects, and these through every format: XML text, Fast Infoset with the
// suggested encodings, JSON, XML text. What XML text can hold must come out as it went in.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "examples/mime_database/generated/mime_info.h"
#include "examples/orders/generated/order_list.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

CSerializationContext MakeContext(bool suggested) {
  CSerializationContext context;
  context.SetMaxDecompressedSize(1 << 20);
  context.SetMaxExpandedText(1 << 22);
  context.GetNamespaceAliases().Add(u"o", u"urn:example:bench:orders");
  context.GetNamespaceAliases().Add(u"m", u"http://www.freedesktop.org/standards/shared-mime-info");
  if (suggested) context.GetFIContext().SetSuggestedValues();
  return context;
}

WString XmlOf(const CXmlObjectBase& object, const CSerializationContext& context) {
  return object.ToXml(false, false, EOL_LF, context);
}

template <class Root>
CSmartPtr<Root> ReadAny(const std::uint8_t* data, std::size_t size,
                        const CSerializationContext& context) {
  CSmartPtr<Root> root(new Root);
  auto* const bytes = const_cast<std::uint8_t*>(data);
  try {
    root->FromXmlStream(bytes, size, context);
  } catch (const CTovikException&) {
    root = new Root;
    root->FromJsonStream(bytes, size, context);
  }
  return root;
}

// Objects that come out of XML text as they went in. Others hold what XML text has no form for, a
// carriage return in an attribute of Fast Infoset, say, and may need several turns to lose it.
template <class Root>
CSmartPtr<Root> Settle(CSmartPtr<Root> root, const CSerializationContext& context) {
  for (int turn = 0; turn < 5; ++turn) {
    const WString text = XmlOf(*root, context);
    CSmartPtr<Root> next(new Root);
    next->FromXml(text.c_str(), context);
    root = next;
    if (XmlOf(*root, context) == text) return root;
  }
  throw CTovikException(u"never the same twice");
}

void Require(bool isKept) {
  if (!isKept) std::abort();
}

// The suggested encodings have no form for fractions of seconds, for one.
template <class Root>
CBinaryData FastInfosetOf(const Root& root, const CSerializationContext& suggested,
                          const CSerializationContext& plain) {
  try {
    return root.ToFastInfosetStream(fid_None, suggested, Compression_None);
  } catch (const CTovikException&) {
    return root.ToFastInfosetStream(fid_None, plain, Compression_None);
  }
}

bool MayHoldWhatJsonDoesNot(const WString& xml) {
  for (const wchar* sign : {u"NaN", u"INF", u"<![CDATA["}) {
    if (xml.find(sign) != WString::npos) return true;
  }
  return false;
}

template <class Root>
void RoundTrip(const std::uint8_t* data, std::size_t size) {
  const CSerializationContext suggested = MakeContext(true), plain = MakeContext(false);
  CSmartPtr<Root> root;
  try {
    root = Settle(ReadAny<Root>(data, size, plain), plain);
  } catch (const CTovikException&) {
    return;
  }
  const WString xml = XmlOf(*root, plain);
  CSmartPtr<Root> copy(new Root);
  copy->FromXmlStream(FastInfosetOf(*root, suggested, plain), suggested);
  Require(XmlOf(*copy, plain) == xml);
  if (MayHoldWhatJsonDoesNot(xml)) return;
  const WString json = copy->ToJson(size % 2 == 0, EOL_LF, plain);
  copy = new Root;
  copy->FromJson(json.c_str(), plain);
  Require(XmlOf(*copy, plain) == xml);
}

}  // namespace

// An exception that is not caught here ends the program as a difference does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  RoundTrip<Orders::COrderList>(data, size);
  RoundTrip<MimeDatabase::CMimeInfo>(data, size);
  return 0;
}
