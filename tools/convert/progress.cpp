#include "tools/convert/progress.h"

#include <unistd.h>

#include <cstdio>

namespace TovikXmlConvert {
namespace {

// Shorter input is done before anyone could read the line.
constexpr std::size_t kLongInput = 4u << 20;
constexpr std::size_t kMegabyte = 1u << 20;

}  // namespace

Progress::Progress() : m_isTerminal(isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() {
  Clear();
}

void Progress::Clear() {
  if (m_isShown) Show("");
  m_isShown = false;
}

void Progress::CountRead(std::size_t bytes) {
  const bool isNews = bytes / kMegabyte != m_bytes / kMegabyte;
  m_bytes = bytes;
  if (isNews) Step("reading");
}

void Progress::Step(const std::string& step) {
  if (!m_isTerminal || m_bytes < kLongInput) return;
  Show(step + ", " + std::to_string(m_bytes / kMegabyte) + " MB");
  m_isShown = true;
}

void Progress::Show(const std::string& line) {
  std::fprintf(stderr, "\r\033[K%s", line.c_str());
}

}  // namespace TovikXmlConvert
