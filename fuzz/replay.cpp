// Runs a fuzz target over every file of a folder, over all prefixes of the short ones, and over
// each with a bit turned here and there: what a fuzzer once found stays found. Then over a number
// of random mutations of each, the same on every machine.
//
//   fuzz_NAME FOLDER [MUTATIONS]

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
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

// Changes one place: another byte, often one that formats give a meaning, a stretch from elsewhere,
// or a stretch less.
void Mutate(std::vector<std::uint8_t>& bytes, std::mt19937& random) {
  constexpr char kMeaningful[] = "<>&;:/=\"'!?-[]|{},# \t\r\n\0a1x";
  constexpr std::size_t kLongest = 24;
  const auto below = [&](std::size_t limit) { return random() % limit; };
  const auto place = [&] {
    return bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size()));
  };
  if (bytes.empty()) return;
  const auto at = place();
  const auto stretch = [&](auto from) {
    return from + static_cast<std::ptrdiff_t>(
                      1 + below(std::min<std::size_t>(kLongest, bytes.end() - from)));
  };
  switch (below(4)) {
    case 0:
      *at = static_cast<std::uint8_t>(random());
      break;
    case 1:
      *at = static_cast<std::uint8_t>(kMeaningful[below(sizeof kMeaningful - 1)]);
      break;
    case 2:
      bytes.erase(at, stretch(at));
      break;
    default: {
      const auto from = place();
      const std::vector<std::uint8_t> copied(from, stretch(from));
      bytes.insert(at, copied.begin(), copied.end());
    }
  }
}

void RunMutations(const std::vector<std::uint8_t>& bytes, int count) {
  std::mt19937 random(1);
  for (; count > 0; --count) {
    std::vector<std::uint8_t> mutated = bytes;
    for (auto changes = 1 + random() % 3; changes > 0; --changes) Mutate(mutated, random);
    Run(mutated, mutated.size());
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) return 2;
  const int mutations = argc == 3 ? std::atoi(argv[2]) : 0;
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    const std::vector<std::uint8_t> bytes = ReadFile(entry.path());
    RunVariants(bytes);
    RunMutations(bytes, mutations);
    ++files;
  }
  std::printf("%d inputs replayed\n", files);
  return files == 0;
}
