#include "tovikxml/binding/version_check.h"

#include <atomic>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/version.h"
#include "tovikxml/platform/error_box.h"

namespace TovikXmlLib16 {
namespace {

std::atomic<bool> g_firstObjectSeen{false};

bool IsVersionRight() {
  const Version generator = GetGeneratorVersion();
  return generator.major == kVersionMajor && generator.minor == kVersionMinor;
}

WString FormatVersions(const wchar* format) {
  const Version generator = GetGeneratorVersion();
  return FormatString(format, kVersionMajor, kVersionMinor, generator.major, generator.minor);
}

void ShowVersionMismatch() {
  ShowErrorBox(u"Version Mismatch Error",
               FormatVersions(u"Please ensure your generated code is the same version as this "
                              u"library (Tovik Runtime: v%d.%d, Generator: v%d.%d)."));
}

}  // namespace

void RequireGeneratorVersion() {
  if (IsVersionRight()) return;
  ShowVersionMismatch();
  throw CTovikException(
      FormatVersions(u"Wrong Version (Tovik Runtime: v%d.%d, Generator: v%d.%d)"));
}

void CheckVersionAtFirstObject() {
  if (g_firstObjectSeen.load(std::memory_order_relaxed)) return;
  if (!g_firstObjectSeen.exchange(true) && !IsVersionRight()) ShowVersionMismatch();
}

}  // namespace TovikXmlLib16
