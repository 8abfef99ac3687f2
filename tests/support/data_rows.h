#ifndef TESTS_SUPPORT_DATA_ROWS_H_
#define TESTS_SUPPORT_DATA_ROWS_H_

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace TovikXmlTest {

/// The rows of a file in tests/data, whose directory is the macro TOVIKXML_TEST_DATA: one row a
/// line, fields with a tab between, lines with "#" at the start left out.
inline std::vector<std::vector<std::string>> DataRows(const std::string& directory,
                                                      const std::string& name) {
  std::ifstream file(directory + "/" + name);
  EXPECT_TRUE(file.is_open()) << name;
  std::vector<std::vector<std::string>> rows;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.front() == '#') continue;
    std::vector<std::string>& row = rows.emplace_back(1);
    for (const char c : line) {
      if (c == '\t') {
        row.emplace_back();
      } else {
        row.back().push_back(c);
      }
    }
  }
  EXPECT_FALSE(rows.empty()) << name;
  return rows;
}

}  // namespace TovikXmlTest

#endif  // TESTS_SUPPORT_DATA_ROWS_H_
