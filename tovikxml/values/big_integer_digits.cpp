// Arithmetic of magnitudes in base 10^9. A limb, and the sum of two, fit 32 bits; the product of
// two limbs and a few limbs more fit 64 bits.

#include <algorithm>
#include <cmath>
#include <utility>

#include "tovikxml/values/big_integer.h"

namespace TovikXmlLib16 {
namespace {

constexpr std::uint32_t kPowers[] = {1,      10,      100,      1000,      10000,
                                     100000, 1000000, 10000000, 100000000, 1000000000};

int DigitCount(std::uint32_t limb) {
  int count = 1;
  while (count < 9 && limb >= kPowers[count]) ++count;
  return count;
}

}  // namespace

void CBigInteger::Clean(Digits& digits) {
  std::size_t size = digits.Size();
  while (size > 1 && digits[size - 1] == 0) --size;
  digits.Resize(size);
}

bool CBigInteger::IsZero(const Digits& digits) {
  return digits.IsEmpty() || (digits.Size() == 1 && digits[0] == 0);
}

int CBigInteger::Compare(const Digits& a, const Digits& b) {
  if (IsZero(a) || IsZero(b)) return static_cast<int>(IsZero(b)) - static_cast<int>(IsZero(a));
  if (a.Size() != b.Size()) return a.Size() < b.Size() ? -1 : 1;
  for (std::size_t i = a.Size(); i-- > 0;) {
    if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
  }
  return 0;
}

int CBigInteger::Position(const Digits& digits) {
  if (digits.IsEmpty()) return 1;
  return static_cast<int>(digits.Size() - 1) * kLimbDigits + DigitCount(digits.Back());
}

int CBigInteger::TrailingZeros(const Digits& digits) {
  if (IsZero(digits)) return -1;
  std::size_t index = 0;
  while (digits[index] == 0) ++index;
  int zeros = 0;
  for (Limb limb = digits[index]; limb % 10 == 0; limb /= 10) ++zeros;
  return static_cast<int>(index) * kLimbDigits + zeros;
}

int CBigInteger::DigitAt(const Digits& digits, int place) {
  const auto index = static_cast<std::size_t>(place / kLimbDigits);
  if (index >= digits.Size()) return 0;
  return static_cast<int>(digits[index] / kPowers[place % kLimbDigits] % 10);
}

void CBigInteger::ShiftLeft(Digits& digits, int n) {
  if (n < 1 || IsZero(digits)) return;
  const auto limbs = static_cast<std::size_t>(n / kLimbDigits);
  const Limb factor = kPowers[n % kLimbDigits];
  const Limb split = kPowers[kLimbDigits - n % kLimbDigits];
  const std::size_t size = digits.Size();
  digits.Resize(size + limbs + 1);
  for (std::size_t i = size; i-- > 0;) {
    const Limb limb = digits[i];
    digits[i + limbs + 1] += limb / split;
    digits[i + limbs] = limb % split * factor;
  }
  std::fill_n(digits.Data(), limbs, Limb{0});
  Clean(digits);
}

void CBigInteger::ShiftRight(Digits& digits, int n) {
  if (n < 1 || digits.IsEmpty()) return;
  const auto limbs = static_cast<std::size_t>(n / kLimbDigits);
  const Limb divisor = kPowers[n % kLimbDigits];
  const Limb factor = kPowers[kLimbDigits - n % kLimbDigits];
  const std::size_t size = digits.Size();
  for (std::size_t i = limbs; i < size; ++i) {
    const Limb higher = i + 1 < size ? digits[i + 1] : 0;
    digits[i - limbs] = digits[i] / divisor + higher % divisor * factor;
  }
  digits.Resize(size > limbs ? size - limbs : 0);
  Clean(digits);
}

void CBigInteger::KeepLow(Digits& digits, int n) {
  const auto limbs = static_cast<std::size_t>(n / kLimbDigits);
  if (digits.Size() <= limbs) return;
  digits[limbs] %= kPowers[n % kLimbDigits];
  digits.Resize(limbs + 1);
  Clean(digits);
}

void CBigInteger::Pow10(unsigned int n, Digits& digits) {
  Digits power;
  power.Resize(n / kLimbDigits + 1);
  power[n / kLimbDigits] = kPowers[n % kLimbDigits];
  digits = std::move(power);
}

void CBigInteger::BuildDWORDLONG(unsigned long long value, Digits& digits) {
  std::size_t size = 0;
  do {
    digits.Resize(size + 1);
    digits[size++] = static_cast<Limb>(value % kBase);
    value /= kBase;
  } while (value != 0);
  digits.Resize(size);
}

void CBigInteger::BuildDouble(double value, Digits& digits) {
  double whole = std::floor(value);
  if (value - whole > 0.5) ++whole;
  // Above 53 bits the number is a 53-bit integer times a power of two.
  int exponent = 0;
  const double mantissa = std::ldexp(std::frexp(whole, &exponent), 53);
  exponent -= 53;
  if (exponent <= 0) {
    BuildDWORDLONG(static_cast<unsigned long long>(whole), digits);
    return;
  }
  BuildDWORDLONG(static_cast<unsigned long long>(mantissa), digits);
  for (constexpr int kStep = 29; exponent > 0; exponent -= kStep) {
    Multiply(digits, Limb{1} << std::min(exponent, kStep), digits);
  }
}

void CBigInteger::Add(const Digits& a, const Digits& b, Digits& result) {
  const Digits& longer = a.Size() < b.Size() ? b : a;
  const Digits& shorter = a.Size() < b.Size() ? a : b;
  Digits sum;
  sum.Resize(longer.Size() + 1);
  Limb carry = 0;
  for (std::size_t i = 0; i < longer.Size(); ++i) {
    const Limb limb = longer[i] + (i < shorter.Size() ? shorter[i] : 0) + carry;
    carry = limb >= kBase ? 1 : 0;
    sum[i] = limb - carry * kBase;
  }
  sum[longer.Size()] = carry;
  Clean(sum);
  result = std::move(sum);
}

void CBigInteger::Subtract(const Digits& a, const Digits& b, Digits& result) {
  Digits difference(a);
  Limb borrow = 0;
  for (std::size_t i = 0; i < a.Size() && (i < b.Size() || borrow != 0); ++i) {
    const Limb taken = (i < b.Size() ? b[i] : 0) + borrow;
    borrow = difference[i] < taken ? 1 : 0;
    difference[i] += borrow * kBase - taken;
  }
  Clean(difference);
  result = std::move(difference);
}

void CBigInteger::Multiply(const Digits& a, Limb limb, Digits& result) {
  Digits product;
  product.Resize(a.Size() + 1);
  std::uint64_t carry = 0;
  for (std::size_t i = 0; i < a.Size(); ++i) {
    carry += std::uint64_t{a[i]} * limb;
    product[i] = static_cast<Limb>(carry % kBase);
    carry /= kBase;
  }
  product[a.Size()] = static_cast<Limb>(carry);
  Clean(product);
  result = std::move(product);
}

void CBigInteger::Multiply(const Digits& a, const Digits& b, Digits& result) {
  Digits product;
  product.Resize(a.Size() + b.Size() + 1);
  for (std::size_t j = 0; j < b.Size(); ++j) {
    if (b[j] == 0) continue;
    Limb* const row = product.Data() + j;
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < a.Size(); ++i) {
      carry += std::uint64_t{a[i]} * b[j] + row[i];
      row[i] = static_cast<Limb>(carry % kBase);
      carry /= kBase;
    }
    row[a.Size()] = static_cast<Limb>(carry);
  }
  Clean(product);
  result = std::move(product);
}

}  // namespace TovikXmlLib16
