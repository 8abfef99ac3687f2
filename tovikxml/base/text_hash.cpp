#include "tovikxml/base/text_hash.h"

#include <array>
#include <bit>
#include <chrono>
#include <cstring>
#include <exception>
#include <random>

namespace TovikXmlLib16 {
namespace {

constexpr std::size_t kShortWords = 4;  // of 32 bits

struct HashKey {
  std::uint64_t sip[2];
  std::uint64_t factors[kShortWords + 2];  // of the words and the length, and what is added

  HashKey() {
    std::seed_seq seed = Seed();
    std::mt19937_64 generator(seed);
    for (std::uint64_t& part : sip) part = generator();
    for (std::uint64_t& factor : factors) factor = generator();
  }

  // Where the system has no source of randomness, time and place have to do.
  static std::seed_seq Seed() {
    std::array<std::uint32_t, 16> parts{};
    try {
      std::random_device device;
      for (std::uint32_t& part : parts) part = device();
    } catch (const std::exception&) {
      const auto time = static_cast<std::uint64_t>(
          std::chrono::high_resolution_clock::now().time_since_epoch().count());
      const std::uint64_t place = reinterpret_cast<std::uintptr_t>(&parts);
      std::memcpy(parts.data(), &time, sizeof time);
      std::memcpy(parts.data() + 2, &place, sizeof place);
    }
    return std::seed_seq(parts.begin(), parts.end());
  }
};

const HashKey& Key() {
  static const HashKey key;
  return key;
}

// Lemire and Kaser, "Strongly universal string hashing is fast": the upper half of a sum of words
// of 32 bits times random factors of 64 bits.
std::uint64_t HashWords(const std::uint32_t (&words)[kShortWords], std::size_t length) {
  const HashKey& key = Key();
  std::uint64_t sum = key.factors[kShortWords] * length + key.factors[kShortWords + 1];
  for (std::size_t i = 0; i < kShortWords; ++i) sum += key.factors[i] * words[i];
  return sum >> 32;
}

// SipHash (Aumasson and Bernstein) with one round for each word of 64 bits and three at the end.
class SipState {
 public:
  explicit SipState(const HashKey& key)
      : m_a(key.sip[0] ^ 0x736f6d6570736575u),
        m_b(key.sip[1] ^ 0x646f72616e646f6du),
        m_c(key.sip[0] ^ 0x6c7967656e657261u),
        m_d(key.sip[1] ^ 0x7465646279746573u) {}

  void Take(std::uint64_t word) {
    m_d ^= word;
    Round();
    m_a ^= word;
  }

  std::uint64_t Finish() {
    m_c ^= 0xff;
    for (int i = 0; i < 3; ++i) Round();
    return m_a ^ m_b ^ m_c ^ m_d;
  }

 private:
  void Round() {
    m_a += m_b;
    m_b = std::rotl(m_b, 13) ^ m_a;
    m_a = std::rotl(m_a, 32);
    m_c += m_d;
    m_d = std::rotl(m_d, 16) ^ m_c;
    m_a += m_d;
    m_d = std::rotl(m_d, 21) ^ m_a;
    m_c += m_b;
    m_b = std::rotl(m_b, 17) ^ m_c;
    m_c = std::rotl(m_c, 32);
  }

  std::uint64_t m_a;
  std::uint64_t m_b;
  std::uint64_t m_c;
  std::uint64_t m_d;
};

std::uint64_t HashLong(std::string_view bytes) {
  SipState state(Key());
  const char* at = bytes.data();
  std::size_t left = bytes.size();
  for (std::uint64_t word; left >= sizeof word; left -= sizeof word, at += sizeof word) {
    std::memcpy(&word, at, sizeof word);
    state.Take(word);
  }
  std::uint64_t rest = 0;
  if (left != 0) std::memcpy(&rest, at, left);
  state.Take(rest | static_cast<std::uint64_t>(bytes.size()) << 56);
  return state.Finish();
}

}  // namespace

std::uint64_t HashBytes(std::string_view bytes) {
  std::uint32_t words[kShortWords] = {};
  if (bytes.size() > sizeof words) return HashLong(bytes);
  if (!bytes.empty()) std::memcpy(words, bytes.data(), bytes.size());
  return HashWords(words, bytes.size());
}

std::uint64_t HashNumber(std::uint64_t number) {
  return HashWords({static_cast<std::uint32_t>(number), static_cast<std::uint32_t>(number >> 32)},
                   0);
}

}  // namespace TovikXmlLib16
