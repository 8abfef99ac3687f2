#include <utility>

#include "tovikxml/values/big_integer.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::uint64_t kWideBase = 1000000000;

// The next digit of a quotient from the three highest limbs of the remainder, which end before
// `top`, and the two highest limbs of a scaled divisor: exact or one too large (Knuth, The Art of
// Computer Programming, volume 2, 4.3.1, algorithm D).
std::uint64_t EstimateDigit(const std::uint32_t* top, std::uint64_t first, std::uint64_t second) {
  const std::uint64_t high = top[-1] * kWideBase + top[-2];
  std::uint64_t digit = high / first;
  std::uint64_t rest = high % first;
  while (digit >= kWideBase || digit * second > rest * kWideBase + top[-3]) {
    --digit;
    rest += first;
    if (rest >= kWideBase) break;
  }
  return digit;
}

// Takes digit * divisor off the limbs at `row`, one more than the divisor has. Returns what had to
// be borrowed from beyond them.
std::uint32_t SubtractMultiple(std::uint32_t* row, const std::uint32_t* divisor, std::size_t size,
                               std::uint64_t digit) {
  std::uint64_t carry = 0;
  for (std::size_t i = 0; i <= size; ++i) {
    if (i < size) carry += digit * divisor[i];
    const auto taken = static_cast<std::uint32_t>(carry % kWideBase);
    carry /= kWideBase;
    if (row[i] < taken) {
      row[i] += static_cast<std::uint32_t>(kWideBase);
      ++carry;
    }
    row[i] -= taken;
  }
  return static_cast<std::uint32_t>(carry);
}

// Adds the divisor to the limbs at `row`; the carry beyond them settles the borrow.
void AddBack(std::uint32_t* row, const std::uint32_t* divisor, std::size_t size) {
  std::uint64_t carry = 0;
  for (std::size_t i = 0; i <= size; ++i) {
    carry += row[i] + (i < size ? divisor[i] : std::uint64_t{0});
    row[i] = static_cast<std::uint32_t>(carry % kWideBase);
    carry /= kWideBase;
  }
}

}  // namespace

void CBigInteger::Divide(const Digits& a, const Digits& b, Digits& quotient, Digits& remainder) {
  if (Compare(a, b) < 0) {
    Digits kept(a);
    BuildDWORDLONG(0, quotient);
    remainder = std::move(kept);
  } else if (b.Size() == 1) {
    const Limb rest = DivideByLimb(a, b[0], quotient);
    BuildDWORDLONG(rest, remainder);
  } else {
    DivideLong(a, b, quotient, remainder);
  }
}

// Returns the remainder.
CBigInteger::Limb CBigInteger::DivideByLimb(const Digits& a, Limb divisor, Digits& quotient) {
  Digits result;
  result.Resize(a.Size());
  std::uint64_t rest = 0;
  for (std::size_t i = a.Size(); i-- > 0;) {
    rest = rest * kBase + a[i];
    result[i] = static_cast<Limb>(rest / divisor);
    rest %= divisor;
  }
  Clean(result);
  quotient = std::move(result);
  return static_cast<Limb>(rest);
}

// Long division by a divisor of two limbs or more, both scaled so that the divisor's highest limb
// is at least half the base.
void CBigInteger::DivideLong(const Digits& a, const Digits& b, Digits& quotient,
                             Digits& remainder) {
  const Limb scale = kBase / (b.Back() + 1);
  Digits rest, divisor, result;
  Multiply(a, scale, rest);
  Multiply(b, scale, divisor);
  const std::size_t size = divisor.Size();
  rest.Resize(a.Size() + 1);
  result.Resize(a.Size() - size + 1);
  for (std::size_t i = result.Size(); i-- > 0;) {
    Limb* const row = rest.Data() + i;
    std::uint64_t digit = EstimateDigit(row + size + 1, divisor[size - 1], divisor[size - 2]);
    if (SubtractMultiple(row, divisor.Data(), size, digit) != 0) {
      AddBack(row, divisor.Data(), size);
      --digit;
    }
    result[i] = static_cast<Limb>(digit);
  }
  Clean(result);
  Clean(rest);
  DivideByLimb(rest, scale, remainder);
  quotient = std::move(result);
}

}  // namespace TovikXmlLib16
