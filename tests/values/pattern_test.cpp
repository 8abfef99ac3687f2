#include "tovikxml/values/pattern.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/support/text.h"
#include "tovikxml/base/exception.h"

using namespace TovikXmlLib16;
using TovikXmlTest::MessageOf;

namespace {

struct Row {
  const char* pattern;
  const wchar* value;
  bool matches;
};

// Distinct patterns, more than are kept compiled.
std::string Counted(int i) {
  return "a{" + std::to_string(i) + "}";
}

}  // namespace

TEST(Pattern, MatchesTheWholeValue) {
  const Row kRows[] = {
      {R"(\d{3})", u"123", true}, {R"(\d{3})", u"1234", false},    {R"(\d{3})", u"12", false},
      {R"(a|b)", u"a", true},     {R"(a|b)", u"b", true},          {R"(a|b)", u"ab", false},
      {R"(a*)", u"", true},       {R"(a*)", u"a\n", false},        {R"(a)", u"a\n", false},
      {R"(a\n)", u"a\n", true},   {R"(a)", u"\na", false},         {R"(aa\Ka)", u"aaa", false},
      {R"(.)", u"\u4e16", true},  {R"(..)", u"\U0001F600", false}, {R"(\p{Lu}+)", u"\u00c9A", true},
      {R"((x)(y)?)", u"x", true},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.pattern);
    EXPECT_EQ(MatchPattern(row.pattern, row.value), row.matches) << DisplayUtf8(row.value);
  }
}

TEST(Pattern, KnowsNameCharactersAndBlocks) {
  const Row kRows[] = {
      {R"(\i\c*)", u"abc", true},
      {R"(\i\c*)", u"_a", true},
      {R"(\i\c*)", u":a-1.b", true},
      {R"(\i\c*)", u"1a", false},
      {R"(\i\c*)", u"-a", false},
      {R"(\I)", u"1", true},
      {R"(\I)", u"a", false},
      {R"(\C+)", u"!?", true},
      {R"(\C)", u"-", false},
      {R"(\\i)", u"\\i", true},
      {R"(\\i)", u"\\a", false},
      {R"(\\\i)", u"\\a", true},
      {R"(\\\\i)", u"\\\\i", true},
      {R"(\p{IsBasicLatin}+)", u"a\u007f", true},
      {R"(\p{IsBasicLatin})", u"\u0080", false},
      {R"(\p{IsLatin-1Supplement}+)", u"\u0080\u00ff", true},
      {R"(\p{IsLatin-1Supplement})", u"\u0100", false},
      {R"(\p{IsLatinExtended-A}+)", u"\u0100\u017f", true},
      {R"(\p{IsLatinExtended-A})", u"\u0180", false},
      {R"(\p{IsLatinExtended-B}+)", u"\u0180\u024f", true},
      {R"(\p{IsLatinExtended-B})", u"\u0250", false},
      {R"(\p{IsLatinExtended-B})", u"7", false},
      {"\001", u"\\", true},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.pattern);
    EXPECT_EQ(MatchPattern(row.pattern, row.value), row.matches) << DisplayUtf8(row.value);
  }
}

TEST(Pattern, TakesValuesThatHaveNoWholeUtf8Form) {
  EXPECT_TRUE(MatchPattern("a", WString(u"a\0b", 3)));
  EXPECT_FALSE(MatchPattern(".*", WString(1, u'\xd800')));
}

TEST(Pattern, RefusesABadExpressionEachTime) {
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(MessageOf<CTovikException>([] { MatchPattern("a(", u"v\u00e9"); }),
              u"Invalid Regular Expression: v\u00e9 Error: 'missing closing parenthesis'");
  }
  for (const char* bad :
       {"[", "a**+", "\\p{IsGreek}", "\xff", "(((((a{1,99}){99}){99}){99}){99})"}) {
    SCOPED_TRACE(bad);
    EXPECT_EQ(MessageOf<CTovikException>([&] { MatchPattern(bad, u"v"); }).substr(0, 29),
              u"Invalid Regular Expression: v");
  }
}

TEST(Pattern, GivesUpWhatBacktracksWithoutEnd) {
  const auto expect = [](const char* pattern, const WString& value, const wchar* reason) {
    SCOPED_TRACE(pattern);
    EXPECT_EQ(MessageOf<CTovikException>([&] { MatchPattern(pattern, value); }),
              u"Regular Expression exceeds its limits: " + value + u" Error: '" + reason + u"'");
  };
  expect("(a|aa)+b?c?", WString(200, u'a') + u"!", u"match limit exceeded");
  expect("((a|b)(c|d)?)*", WString(1000000, u'a'), u"heap limit exceeded");
  EXPECT_TRUE(MatchPattern(R"(\i\c*)", WString(100000, u'a')));
}

TEST(Pattern, AnswersTheSameOnManyThreads) {
  std::vector<std::thread> threads;
  std::vector<int> wrong(4);
  for (int& count : wrong) {
    threads.emplace_back([&count] {
      for (int i = 0; i < 600; ++i) {
        const WString value(static_cast<std::size_t>(i % 300), u'a');
        count += !MatchPattern(Counted(i % 300), value);
        count += MatchPattern(Counted(i % 300), value + u"a");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, std::vector<int>(4));
}
