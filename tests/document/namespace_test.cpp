#include <gtest/gtest.h>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tovikxml/document/namespace_rule.h"
#include "tovikxml/settings/namespace_alias_map.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

TEST(NamespaceAliasMap, KeepsOneAliasForEachNamespace) {
  CNamespaceAliasMap map;
  EXPECT_EQ(Outcome([&] { map.GetNamespaceFromAlias(u""); }),
            u"!Exception Namespace alias [] not found");
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
  ForEachRow("document/documents.txt", "namespaces of wildcards",
             [](const WString& uri, const WString& allowed, const WString& target, bool passes) {
               EXPECT_EQ(IsNamespaceAllowed(uri, allowed, target), passes);
               const WString refusal = u"!InvalidNamespace Invalid namespace [" + uri +
                                       u"]. The namespace must be one of [" + allowed +
                                       u"] where the target namespace is [" + target + u"].";
               EXPECT_EQ(Outcome([&] { RequireNamespaceAllowed(uri, allowed, target); }),
                         passes ? u"" : refusal);
             });
}
