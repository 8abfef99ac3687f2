#include "tovikxml/values/facets.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tovikxml/values/restrictions.h"
#include "tovikxml/values/variant.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

// From "name=value" with a blank between each two.
CPrimitiveRestrictions FacetsOf(WStringView text) {
  std::map<WString, WString> texts;
  while (!text.empty()) {
    const WStringView facet = text.substr(0, text.find(u' '));
    const std::size_t sign = facet.find(u'=');
    texts[WString(facet.substr(0, sign))] = facet.substr(sign + 1);
    text.remove_prefix(std::min(facet.size() + 1, text.size()));
  }
  const auto number = [&](const wchar* name) {
    return texts.count(name) ? FieldAs<int>(texts[name]) : -1;
  };
  return {texts[u"pattern"].c_str(),      number(u"minLength"),
          number(u"maxLength"),           texts[u"minInclusive"].c_str(),
          texts[u"maxInclusive"].c_str(), texts[u"minExclusive"].c_str(),
          texts[u"maxExclusive"].c_str(), number(u"length"),
          number(u"totalDigits"),         number(u"fractionDigits")};
}

WString Check(ItemType kind, const WString& text, const CPrimitiveRestrictions& restrictions) {
  TovikVariant value;
  value.FromString(text, kind, CWhitespaceUtils::ws_collapse);
  return Outcome([&] { CheckFacets(u"e", value, kind, restrictions); });
}

}  // namespace

TEST(Facets, BoundsHoldForEachKind) {
  ForEachRow("values/facets.txt", "bounds",
             [](ItemType kind, const WString& first, const WString& second, const WString& third,
                const WString& fourth, const WString& shown) {
               const auto facets = [](const wchar* minInclusive, const wchar* maxInclusive,
                                      const wchar* minExclusive, const wchar* maxExclusive) {
                 return CPrimitiveRestrictions(u"", -1, -1, minInclusive, maxInclusive,
                                               minExclusive, maxExclusive, -1, -1, -1);
               };
               const WString spaced = u" " + second + u"\n";
               const auto inclusive = facets(spaced.c_str(), third.c_str(), u"", u"");
               const auto exclusive = facets(u"", u"", first.c_str(), fourth.c_str());
               const auto narrow = facets(u"", u"", second.c_str(), third.c_str());
               for (const CPrimitiveRestrictions& range : {inclusive, exclusive}) {
                 EXPECT_EQ(Check(kind, first, range), u"!Exception Invalid Value for e " + shown);
                 EXPECT_EQ(Check(kind, second, range), u"");
                 EXPECT_EQ(Check(kind, third, range), u"");
                 EXPECT_NE(Check(kind, fourth, range), u"");
               }
               EXPECT_NE(Check(kind, second, narrow), u"");
               EXPECT_NE(Check(kind, third, narrow), u"");
             });
}

TEST(Facets, EachKindHasItsOwnFacets) {
  ForEachRow(
      "values/facets.txt", "facets",
      [](ItemType kind, const WString& text, const WString& facets, const WString& exception) {
        EXPECT_EQ(Check(kind, text, FacetsOf(facets)), exception);
      });
}

TEST(Facets, AskForAValueOfTheirKindIfThereAreAny) {
  TovikVariant value;
  value.SetChar(u'x');
  for (const int kind : {0, 27, 28, 29, -1}) {
    for (const WString facets : {u"", u"totalDigits=1"}) {
      EXPECT_EQ(
          Outcome([&] { CheckFacets(u"e", value, static_cast<ItemType>(kind), FacetsOf(facets)); }),
          u"!InvalidValue Unknown type [char].")
          << kind;
    }
  }
  value.SetNil(it_string);
  CheckFacets(u"e", value, it_string, {});
  for (const ItemType kind : {it_string, it_i4}) {
    value.SetNil(kind);
    EXPECT_EQ(Outcome([&] { CheckFacets(u"e", value, it_string, FacetsOf(u"length=1")); }),
              u"!InvalidState The variant holds no value of the type string");
  }
}
