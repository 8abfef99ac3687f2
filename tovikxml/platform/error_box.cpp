#include "tovikxml/platform/error_box.h"

#include <atomic>
#include <cstdio>

#include "tovikxml/base/utf8.h"

namespace TovikXmlLib16 {
namespace {

std::atomic<ErrorBox> g_box{nullptr};

void PrintToStandardError(const WString& title, const WString& text) {
  const std::string line = DisplayUtf8(title + u": " + text + u"\n");
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

void ShowErrorBox(const WString& title, const WString& text) {
  const ErrorBox box = g_box;
  (box ? box : PrintToStandardError)(title, text);
}

ErrorBox SetErrorBox(ErrorBox box) {
  return g_box.exchange(box);
}

}  // namespace TovikXmlLib16
