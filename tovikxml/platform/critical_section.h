#ifndef TOVIKXML_PLATFORM_CRITICAL_SECTION_H_
#define TOVIKXML_PLATFORM_CRITICAL_SECTION_H_

#include <mutex>

#include "tovikxml/base/export.h"

/// A recursive lock, the only lock class of the library's interface. Generated code uses it
/// through `CXmlGeneratedClass::m_csInit`.
class TOVIKXML_EXPORT CTovikCriticalSection {
 public:
  CTovikCriticalSection() = default;
  CTovikCriticalSection(const CTovikCriticalSection&) = delete;
  CTovikCriticalSection& operator=(const CTovikCriticalSection&) = delete;
  virtual ~CTovikCriticalSection() = default;

  void Enter() { m_mutex.lock(); }
  void Leave() { m_mutex.unlock(); }

 private:
  std::recursive_mutex m_mutex;
};

#endif  // TOVIKXML_PLATFORM_CRITICAL_SECTION_H_
