#ifndef TOVIKXML_BASE_INSTANCE_MONITOR_H_
#define TOVIKXML_BASE_INSTANCE_MONITOR_H_

#include "tovikxml/base/export.h"
#include "tovikxml/base/wide_string.h"

/// Common base of the library's writers, streams, documents, nodes and collections. It takes the
/// name of the class that derives from it and keeps nothing; it gives all of them a virtual
/// destructor.
class TOVIKXML_EXPORT CInstanceMonitor {
 public:
  explicit CInstanceMonitor(const TovikXmlLib16::wchar* /*className*/) {}
  CInstanceMonitor(const CInstanceMonitor&) = default;
  CInstanceMonitor& operator=(const CInstanceMonitor&) = default;
  virtual ~CInstanceMonitor() = default;
};

#endif  // TOVIKXML_BASE_INSTANCE_MONITOR_H_
