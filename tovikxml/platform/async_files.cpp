#include "tovikxml/platform/async_files.h"

#include <atomic>

namespace TovikXmlLib16 {
namespace {

std::atomic<bool> g_asyncToXmlFile{false};
std::atomic<bool> g_asyncFromXmlFile{false};

}  // namespace

void AsyncToXmlFile(bool enable) {
  g_asyncToXmlFile.store(enable, std::memory_order_relaxed);
}

bool IsAsyncToXmlFile() {
  return g_asyncToXmlFile.load(std::memory_order_relaxed);
}

void AsyncFromXmlFile(bool enable) {
  g_asyncFromXmlFile.store(enable, std::memory_order_relaxed);
}

bool IsAsyncFromXmlFile() {
  return g_asyncFromXmlFile.load(std::memory_order_relaxed);
}

}  // namespace TovikXmlLib16
