#include "examples/mime_database/generated/enumerations.h"

using namespace TovikXmlLib16;

namespace MimeDatabase {
namespace {

constexpr const wchar* kIconNameTexts[] = {u"application-x-executable",
                                           u"audio-x-generic",
                                           u"folder",
                                           u"font-x-generic",
                                           u"image-x-generic",
                                           u"package-x-generic",
                                           u"text-html",
                                           u"text-x-generic",
                                           u"text-x-generic-template",
                                           u"text-x-script",
                                           u"video-x-generic",
                                           u"x-office-address-book",
                                           u"x-office-calendar",
                                           u"x-office-document",
                                           u"x-office-presentation",
                                           u"x-office-spreadsheet"};
constexpr const wchar* kMatchTypeTexts[] = {u"string",   u"big16",  u"big32",  u"little16",
                                            u"little32", u"host16", u"host32", u"byte"};
constexpr const wchar* kTreematchTypeTexts[] = {u"file", u"directory", u"link"};

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

const wchar* IconNameToText(int value) {
  return ToText(kIconNameTexts, value);
}

int IconNameFromText(const wchar* text) {
  return FromText(kIconNameTexts, text);
}

const wchar* MatchTypeToText(int value) {
  return ToText(kMatchTypeTexts, value);
}

int MatchTypeFromText(const wchar* text) {
  return FromText(kMatchTypeTexts, text);
}

const wchar* TreematchTypeToText(int value) {
  return ToText(kTreematchTypeTexts, value);
}

int TreematchTypeFromText(const wchar* text) {
  return FromText(kTreematchTypeTexts, text);
}

}  // namespace MimeDatabase
