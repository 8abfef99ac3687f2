#include "tovikxml/values/whitespace.h"

#include <iterator>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

bool IsLineBreakOrTab(wchar unit) {
  return unit == u'\t' || unit == u'\r' || unit == u'\n';
}

// Each line end becomes `lineEnd`; a tab becomes `tab`.
void Normalize(WStringView text, wchar lineEnd, wchar tab, WString& out) {
  out.clear();
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar unit = text[i];
    if (unit == u'\r') {
      out.push_back(lineEnd);
      if (i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    } else if (unit == u'\n') {
      out.push_back(lineEnd);
    } else {
      out.push_back(unit == u'\t' ? tab : unit);
    }
  }
}

void PreserveInto(WStringView text, WString& out) {
  Normalize(text, u'\n', u'\t', out);
}

void ReplaceInto(WStringView text, WString& out) {
  Normalize(text, u' ', u' ', out);
}

void CollapseInto(WStringView text, WString& out) {
  out.clear();
  out.reserve(text.size());
  bool blankWritten = true;
  for (const wchar unit : text) {
    const bool blank = CWhitespaceUtils::IsWhiteSpace(unit);
    if (!blank || !blankWritten) out.push_back(blank ? u' ' : unit);
    blankWritten = blank;
  }
  if (blankWritten && !out.empty()) out.pop_back();
}

bool HasCarriageReturn(WStringView text) {
  return FindUnit(text, u'\r') != text.size();
}

bool NeedsReplacing(WStringView text) {
  for (const wchar unit : text) {
    if (IsLineBreakOrTab(unit)) return true;
  }
  return false;
}

bool HasBlankOrControl(WStringView text) {
  for (const wchar unit : text) {
    if (unit <= u' ') return true;
  }
  return false;
}

bool NeedsCollapsing(WStringView text) {
  if (!HasBlankOrControl(text)) return false;
  bool blankBefore = true;
  for (const wchar unit : text) {
    const bool blank = unit == u' ';
    if ((blank && blankBefore) || IsLineBreakOrTab(unit)) return true;
    blankBefore = blank;
  }
  return blankBefore && !text.empty();
}

// What a rule does: whether it changes a text, and the changed text.
struct Rule {
  bool (*changes)(WStringView text);
  void (*apply)(WStringView text, WString& out);
};

constexpr Rule kRules[] = {{[](WStringView) { return false; }, nullptr},
                           {HasCarriageReturn, PreserveInto},
                           {NeedsReplacing, ReplaceInto},
                           {NeedsCollapsing, CollapseInto}};

}  // namespace

WString CWhitespaceUtils::ApplyRule(WhitespaceRule rule, const WString& text) {
  WString scratch;
  const WString& result = ApplyRule(rule, text, scratch);
  return &result == &scratch ? std::move(scratch) : text;
}

const WString& CWhitespaceUtils::ApplyRule(WhitespaceRule rule, const WString& text,
                                           WString& scratch) {
  const auto index = static_cast<unsigned>(rule);
  if (index >= std::size(kRules)) throw CTovikException(u"Unknown WhitespaceRule");
  if (!kRules[index].changes(text)) return text;
  kRules[index].apply(text, scratch);
  return scratch;
}

WString CWhitespaceUtils::Preserve(const WString& text) {
  return ApplyRule(ws_preserve, text);
}

WString CWhitespaceUtils::Preserve(const wchar* text, int length) {
  if (length < 0 || (!text && length != 0)) {
    throw CTovikInvalidParamException(u"Invalid text or length");
  }
  WString out;
  PreserveInto(WStringView(text, static_cast<std::size_t>(length)), out);
  return out;
}

WString CWhitespaceUtils::Replace(const WString& text) {
  return ApplyRule(ws_replace, text);
}

WString CWhitespaceUtils::Collapse(const WString& text) {
  return ApplyRule(ws_collapse, text);
}

}  // namespace TovikXmlLib16
