#include "tovikxml/values/pattern.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tovikxml/base/exception.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

// Distinct patterns, more than are kept compiled.
std::string Counted(int i) {
  return "a{" + std::to_string(i) + "}";
}

}  // namespace

TEST(Pattern, MatchesTheWholeValue) {
  ForEachRow("values/patterns.txt", "matches",
             [](const std::string& pattern, const WString& value, bool matches) {
               EXPECT_EQ(MatchPattern(pattern, value), matches) << pattern;
             });
}

TEST(Pattern, RefusesABadExpressionEachTime) {
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Outcome([] { MatchPattern("a(", u"v\u00e9"); }),
              u"!Exception Invalid Regular Expression: v\u00e9 Error: "
              u"'missing closing parenthesis'");
  }
  const auto refuse = [](const std::string& pattern) {
    EXPECT_EQ(Outcome([&] { MatchPattern(pattern, u"v"); }).substr(0, 48),
              u"!Exception Invalid Regular Expression: v Error: ")
        << pattern;
  };
  ForEachRow("values/patterns.txt", "bad patterns", refuse);
  refuse("\xff");
}

TEST(Pattern, GivesUpWhatBacktracksWithoutEnd) {
  const auto expect = [](const char* pattern, const WString& value, const wchar* reason) {
    SCOPED_TRACE(pattern);
    EXPECT_EQ(Outcome([&] { MatchPattern(pattern, value); }),
              u"!Exception Regular Expression exceeds its limits: " + value + u" Error: '" +
                  reason + u"'");
  };
  expect("(a|aa)+b?c?", WString(200, u'a') + u"!", u"match limit exceeded");
  expect("((a|b)(c|d)?)*", WString(1000000, u'a'), u"heap limit exceeded");
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
