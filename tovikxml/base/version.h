#ifndef TOVIKXML_BASE_VERSION_H_
#define TOVIKXML_BASE_VERSION_H_

#include "tovikxml/base/export.h"

namespace TovikXmlLib16 {

/// The version of this library, which generated code must state as well.
constexpr int kVersionMajor = 16;
constexpr int kVersionMinor = 1;

/// The version of a library or of generated code.
struct Version {
  int major;
  int minor;
};

/// States the version that the generated code was made for. Generated code calls it once when it
/// is loaded, before any object exists. With another version than the library's, every entry point
/// refuses to work.
TOVIKXML_EXPORT void SetGeneratorVersion(int major, int minor);

/// The version last stated; 0, 0 at start.
TOVIKXML_EXPORT Version GetGeneratorVersion();

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_BASE_VERSION_H_
