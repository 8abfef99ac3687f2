#include "tovikxml/document/utf_conversion.h"

#include <utility>

#include "tovikxml/base/text.h"
#include "tovikxml/base/utf8.h"
#include "tovikxml/base/utf8_bytes.h"
#include "tovikxml/document/byte_array.h"

namespace TovikXmlLib16 {

CBinaryData Utf16ToUtf8(const wchar* text) {
  const WStringView view = ViewOf(text);
  ByteArray bytes = NewByteArray(Utf8Length(view));
  if (!WriteUtf8(view, bytes.data.get())) return CBinaryData();
  return ToBinaryData(std::move(bytes));
}

WString Utf8ToUtf16(const unsigned char* bytes, unsigned long length) {
  const std::string_view view(reinterpret_cast<const char*>(bytes), length);
  return DecodeUtf8(view).value_or(WString());
}

}  // namespace TovikXmlLib16
