#ifndef TOVIKXML_PLATFORM_ASYNC_FILES_H_
#define TOVIKXML_PLATFORM_ASYNC_FILES_H_

#include "tovikxml/base/export.h"

/// @file
/// Whether files are read and written in overlapped mode: block after block, where the operating
/// system works on one block while the library works on another, and only a block or two are held
/// in memory. Both settings are false at start and hold for the whole process.
namespace TovikXmlLib16 {

/// Lets the entry points that write XML and JSON files write in overlapped mode. Compressed output
/// is always made in memory first.
TOVIKXML_EXPORT void AsyncToXmlFile(bool enable);
TOVIKXML_EXPORT bool IsAsyncToXmlFile();

/// Lets `CXmlDocument::Load` read in overlapped mode. Only XML text can be read that way, neither
/// compressed documents nor Fast Infoset.
TOVIKXML_EXPORT void AsyncFromXmlFile(bool enable);
TOVIKXML_EXPORT bool IsAsyncFromXmlFile();

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_PLATFORM_ASYNC_FILES_H_
