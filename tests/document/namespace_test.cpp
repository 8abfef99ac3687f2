#include <gtest/gtest.h>

#include "tests/support/text.h"
#include "tovikxml/document/namespace_alias_map.h"
#include "tovikxml/document/namespace_rule.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;

TEST(NamespaceAliasMap, KeepsOneAliasForEachNamespace) {
  CNamespaceAliasMap map;
  EXPECT_EQ(MessageOf<CTovikException>([&] { map.GetNamespaceFromAlias(u""); }),
            u"Namespace alias [] not found");
  map.Add(u"p", u"urn:a");
  map.Add(u"q", u"urn:a");
  EXPECT_EQ(map.GetNamespaceCount(), 1);
  EXPECT_EQ(map.GetAliasFromNamespace(u"urn:a"), u"q");
  EXPECT_FALSE(map.DoesAliasExist(u"p"));
  map.Add(u"q", u"urn:b");
  EXPECT_EQ(map.GetNamespaceFromAlias(u"q"), u"urn:a");
  map.Add(u"x", u"urn:0");
  EXPECT_EQ(map.GetNamespaceAt(0), u"urn:0");
  EXPECT_EQ(map.GetNamespaceAt(-1), u"urn:0");
  EXPECT_EQ(map.GetNamespaceAt(2), u"urn:b");
  map.RemoveNamespace(u"urn:unknown");
  map.RemoveNamespace(u"urn:0");
  EXPECT_EQ(map.GetNamespaceCount(), 2);
}

TEST(NamespaceAliasMap, LookingUpAnUnknownNamespaceLeavesAnEmptyEntry) {
  CNamespaceAliasMap map;
  EXPECT_EQ(map.GetAliasFromNamespace(u"urn:a"), u"");
  EXPECT_TRUE(map.DoesNamespaceExist(u"urn:a"));
  CNamespaceAliasMap copy = map;
  copy.RemoveNamespace(u"urn:a");
  EXPECT_EQ(map.GetNamespaceCount(), 1);
}

TEST(NamespaceRule, FollowsTheWildcard) {
  const struct {
    const wchar* uri;
    const wchar* allowed;
    const wchar* target;
    bool passes;
  } rows[] = {
      {u"urn:a", u"##any", u"t", true},
      {u"", u"##any", u"t", true},
      {u"urn:a", u"##other", u"t", true},
      {u"t", u"##other", u"t", false},
      {u"", u"##other", u"t", true},
      {u"", u"##other", u"", false},
      {u"", u"##local", u"t", true},
      {u"urn:a", u"##local", u"t", false},
      {u"t", u"##targetNamespace", u"t", true},
      {u"", u"##targetNamespace", u"t", false},
      {u"urn:a", u"urn:a urn:b", u"t", true},
      {u"urn:b", u"urn:a  urn:b ", u"t", true},
      {u"urn:c", u"urn:a urn:b", u"t", false},
      {u"", u"urn:a", u"t", true},
      {u"t", u"##local ##targetNamespace", u"t", true},
      {u"", u"", u"t", true},
      {u"urn:a", u"", u"t", false},
      {u"", u"##targetNamespace ", u"t", false},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(IsNamespaceAllowed(row.uri, row.allowed, row.target), row.passes)
        << DisplayUtf8(row.uri) << " in " << DisplayUtf8(row.allowed);
  }
  EXPECT_EQ(MessageOf<CTovikInvalidNamespaceException>(
                [] { RequireNamespaceAllowed(u"urn:c", u"urn:a", u"t"); }),
            u"Invalid namespace [urn:c]. The namespace must be one of [urn:a] where the target "
            u"namespace is [t].");
}
