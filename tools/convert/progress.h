#ifndef TOVIKXML_TOOLS_CONVERT_PROGRESS_H_
#define TOVIKXML_TOOLS_CONVERT_PROGRESS_H_

#include <cstddef>
#include <string>

namespace TovikXmlConvert {

/// A line on standard error that is overwritten by the next, for people who watch: only if
/// standard error is a terminal, and only for long input. It is wiped out in the end.
class Progress {
 public:
  Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  /// So many bytes of the input are read.
  void CountRead(std::size_t bytes);
  void Step(const std::string& step);
  void Clear();

 private:
  void Show(const std::string& line);

  bool m_isTerminal;
  bool m_isShown = false;
  std::size_t m_bytes = 0;
};

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_PROGRESS_H_
