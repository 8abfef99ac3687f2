#ifndef TESTS_SUPPORT_TEMP_DIR_H_
#define TESTS_SUPPORT_TEMP_DIR_H_

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tovikxml/base/wide_string.h"

namespace TovikXmlTest {

/// A directory of the test's own, removed with everything in it at the end.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tovikxml-XXXXXX").string();
    if (!mkdtemp(pattern.data())) ADD_FAILURE() << "no temporary directory " << pattern;
    m_path = pattern;
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  ~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }

  /// The path of an entry, in the forms that the library and the standard library take.
  TovikXmlLib16::WString operator/(std::u16string_view name) const {
    return (m_path / name).u16string();
  }
  const std::filesystem::path& Path() const { return m_path; }

 private:
  std::filesystem::path m_path;
};

/// The bytes of a file; a failure of the test if it cannot be read.
inline std::string FileBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) ADD_FAILURE() << "cannot read " << file;
  return {std::istreambuf_iterator<char>(in), {}};
}

/// Makes a file with the bytes given.
inline void MakeFile(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream out(file, std::ios::binary);
  out << bytes;
  if (!out.flush()) ADD_FAILURE() << "cannot write " << file;
}

}  // namespace TovikXmlTest

#endif  // TESTS_SUPPORT_TEMP_DIR_H_
