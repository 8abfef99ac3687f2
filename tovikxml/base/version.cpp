#include "tovikxml/base/version.h"

namespace TovikXmlLib16 {
namespace {

Version g_generatorVersion{0, 0};

}  // namespace

void SetGeneratorVersion(int major, int minor) {
  g_generatorVersion = {major, minor};
}

Version GetGeneratorVersion() {
  return g_generatorVersion;
}

}  // namespace TovikXmlLib16
