#include "tests/support/text.h"

#include <typeinfo>

namespace TovikXmlTest {

using namespace TovikXmlLib16;

WString ClassNameOf(const CTovikException& e) {
  const std::pair<const std::type_info&, const wchar*> names[] = {
      {typeid(CTovikException), u"Exception"},
      {typeid(CTovikValidationException), u"Validation"},
      {typeid(CTovikInvalidValueException), u"InvalidValue"},
      {typeid(CTovikInvalidNamespaceException), u"InvalidNamespace"},
      {typeid(CTovikInvalidParamException), u"InvalidParam"},
      {typeid(CTovikInvalidStateException), u"InvalidState"},
      {typeid(CTovikOverFlowException), u"OverFlow"}};
  for (const auto& [type, name] : names) {
    if (type == typeid(e)) return name;
  }
  return u"unknown";
}

CBinaryData ToBytes(std::string_view bytes) {
  CBinaryData data;
  data.SetBuffer(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  return data;
}

std::string FromBytes(const CBinaryData& data) {
  return {reinterpret_cast<const char*>(data.GetData()), data.GetLength()};
}

std::string FromHex(std::string_view digits) {
  std::string bytes, pair;
  for (const char c : digits) {
    if (c != ' ') pair.push_back(c);
    if (pair.size() < 2) continue;
    bytes.push_back(static_cast<char>(std::stoi(pair, nullptr, 16)));
    pair.clear();
  }
  EXPECT_TRUE(pair.empty()) << "half a byte in " << digits;
  return bytes;
}

std::string ToHex(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string digits;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    digits.append(1, kDigits[byte / 16]).append(1, kDigits[byte % 16]);
  }
  return digits;
}

}  // namespace TovikXmlTest
