#ifndef EXAMPLES_GUIDE_SECTION_H_
#define EXAMPLES_GUIDE_SECTION_H_

#include <iostream>

/// Starts a part of what a program of the guide prints. The test of the documents compares the part
/// with the block that shows it.
inline void Section(const char* name) {
  std::cout << "== " << name << " ==\n";
}

#endif  // EXAMPLES_GUIDE_SECTION_H_
