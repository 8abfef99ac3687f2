#include "examples/orders/generated/enumerations.h"

using namespace TovikXmlLib16;

namespace Orders {
namespace {

constexpr const wchar* kStatusTexts[] = {u"new", u"confirmed", u"shipped", u"delivered",
                                         u"cancelled"};

template <std::size_t count>
const wchar* ToText(const wchar* const (&texts)[count], int value) {
  if (value < 0 || static_cast<std::size_t>(value) >= count) {
    throw CTovikInvalidValueException(FormatString(u"The enumeration has no value %d", value));
  }
  return texts[value];
}

template <std::size_t count>
int FromText(const wchar* const (&texts)[count], WStringView text) {
  for (std::size_t i = 0; i < count; ++i) {
    if (text == texts[i]) return static_cast<int>(i);
  }
  throw CTovikInvalidValueException(
      FormatString(u"The value [%s] is not in the enumeration", WString(text).c_str()));
}

}  // namespace

const wchar* StatusToText(int value) {
  return ToText(kStatusTexts, value);
}

int StatusFromText(const wchar* text) {
  return FromText(kStatusTexts, text);
}

}  // namespace Orders
