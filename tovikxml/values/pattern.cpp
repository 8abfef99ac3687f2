#include "tovikxml/values/pattern.h"

#include <pcre2.h>

#include <functional>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <unordered_map>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/utf8.h"
#include "tovikxml/values/restrictions.h"

namespace TovikXmlLib16 {
namespace {

struct Rewriting {
  std::string_view find;
  std::string_view replacement;
};

// In this order: the first hides an escaped backslash from the others, the last brings it back.
// The upper end of the last block has four octal digits, which only the hexadecimal form can tell.
constexpr Rewriting kRewritings[] = {
    {R"(\\)", "\001"},
    {R"(\i)", R"(([^\W\d]|:))"},
    {R"(\I)", R"(([\W\d]))"},
    {R"(\c)", R"((\w|\.|-|:))"},
    {R"(\C)", R"(([^\w\.\-\:]))"},
    {R"(\p{IsBasicLatin})", R"([\000-\177])"},
    {R"(\p{IsLatin-1Supplement})", R"([\200-\377])"},
    {R"(\p{IsLatinExtended-A})", R"([\400-\577])"},
    {R"(\p{IsLatinExtended-B})", R"([\600-\x{24f}])"},
    {"\001", R"(\\)"},
};

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(find, from)) != text.npos; from = at + find.size()) {
    result.append(text, from, at - from).append(replacement);
  }
  return result.append(text, from);
}

std::string Translate(std::string_view pattern) {
  std::string expression(pattern);
  for (const auto& [find, replacement] : kRewritings) {
    expression = ReplaceAll(expression, find, replacement);
  }
  return "^(" + expression + ")$";
}

[[noreturn]] void ThrowFailure(const wchar* message, const WString& value, int error) {
  char reason[256] = "";
  pcre2_get_error_message(error, reinterpret_cast<PCRE2_UCHAR*>(reason), sizeof reason);
  throw CTovikException(FormatString(message, value.c_str(), reason));
}

template <auto free>
struct Free {
  template <class T>
  void operator()(T* handle) const {
    free(handle);
  }
};

using Code = std::shared_ptr<const pcre2_code>;
using MatchData = std::unique_ptr<pcre2_match_data, Free<pcre2_match_data_free>>;
using MatchContext = std::unique_ptr<pcre2_match_context, Free<pcre2_match_context_free>>;

Code Compile(std::string_view pattern, const WString& value) {
  const std::string expression = Translate(pattern);
  int error = 0;
  PCRE2_SIZE offset = 0;
  pcre2_code* const code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression.data()),
                                         expression.size(), PCRE2_UTF, &error, &offset, nullptr);
  if (!code) ThrowFailure(u"Invalid Regular Expression: %s Error: '%S'", value, error);
  return Code(code, Free<pcre2_code_free>());
}

// The compiled expressions of the patterns seen so far. A program has a limited set of patterns, so
// what is full is simply emptied; a match in progress keeps what it uses.
class CodeCache {
 public:
  /// Null if there is none.
  Code Find(std::string_view pattern) {
    const std::lock_guard lock(m_mutex);
    const auto found = m_codes.find(pattern);
    return found == m_codes.end() ? nullptr : found->second;
  }

  void Keep(std::string_view pattern, const Code& code) {
    const std::lock_guard lock(m_mutex);
    if (m_codes.size() >= kLimit) m_codes.clear();
    m_codes.emplace(pattern, code);
  }

 private:
  static constexpr std::size_t kLimit = 256;

  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };

  std::mutex m_mutex;
  std::unordered_map<std::string, Code, Hash, std::equal_to<>> m_codes;
};

Code CodeOf(std::string_view pattern, const WString& value) {
  static CodeCache cache;
  Code code = cache.Find(pattern);
  if (!code) {
    code = Compile(pattern, value);
    cache.Keep(pattern, code);
  }
  return code;
}

// The limits in force, in a record that each thread has for itself.
pcre2_match_context* CurrentLimits() {
  thread_local const MatchContext limits(pcre2_match_context_create(nullptr));
  if (!limits) throw std::bad_alloc();
  pcre2_set_match_limit(limits.get(), CPrimitiveRestrictions::GetMaxPatternSteps());
  pcre2_set_heap_limit(limits.get(), CPrimitiveRestrictions::GetMaxPatternMemory());
  return limits.get();
}

// The result of PCRE2 for a match at the start of the subject; 0 if there were groups beyond the
// match itself, whose places are not wanted.
int RunMatch(const Code& code, std::string_view subject, const MatchData& match) {
  return pcre2_match(code.get(), reinterpret_cast<PCRE2_SPTR>(subject.data()), subject.size(), 0,
                     PCRE2_ANCHORED | PCRE2_NO_UTF_CHECK, match.get(), CurrentLimits());
}

bool IsLimit(int result) {
  return result == PCRE2_ERROR_MATCHLIMIT || result == PCRE2_ERROR_DEPTHLIMIT ||
         result == PCRE2_ERROR_HEAPLIMIT || result == PCRE2_ERROR_NOMEMORY;
}

}  // namespace

bool MatchPattern(std::string_view pattern, const WString& value) {
  const Code code = CodeOf(pattern, value);
  const std::optional<std::string> subject = EncodeUtf8(value.c_str());
  if (!subject) return false;
  const MatchData match(pcre2_match_data_create(1, nullptr));
  if (!match) throw std::bad_alloc();
  const int result = RunMatch(code, *subject, match);
  if (IsLimit(result)) {
    ThrowFailure(u"Regular Expression exceeds its limits: %s Error: '%S'", value, result);
  }
  if (result < 0) return false;
  // The dollar also matches before a line feed at the end, which is then left over.
  const PCRE2_SIZE* const place = pcre2_get_ovector_pointer(match.get());
  return place[0] == 0 && place[1] == subject->size();
}

}  // namespace TovikXmlLib16
