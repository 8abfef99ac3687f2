// Runs a fuzz target over every file of a folder, over all prefixes of the short ones, and over
// each with a bit turned here and there: what a fuzzer once found stays found.
//
//   fuzz_NAME FOLDER

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::size_t kShort = 1024;

std::vector<std::uint8_t> ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The input is copied to a block of just its size, so that a sanitizer sees every read beyond it.
void Run(const std::vector<std::uint8_t>& bytes, std::size_t size) {
  const std::vector<std::uint8_t> exact(bytes.begin(),
                                        bytes.begin() + static_cast<std::ptrdiff_t>(size));
  LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

void RunVariants(std::vector<std::uint8_t> bytes) {
  Run(bytes, bytes.size());
  if (bytes.size() > kShort) return;
  for (std::size_t size = 0; size < bytes.size(); ++size) Run(bytes, size);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto bit = static_cast<std::uint8_t>(1u << (i % 8));
    bytes[i] ^= bit;
    Run(bytes, bytes.size());
    bytes[i] ^= bit;
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    RunVariants(ReadFile(entry.path()));
    ++files;
  }
  std::printf("%d inputs replayed\n", files);
  return files == 0;
}
