#ifndef TOVIKXML_VALUES_LIMB_ARRAY_H_
#define TOVIKXML_VALUES_LIMB_ARRAY_H_

#include <cstddef>
#include <cstdint>
#include <memory>

#include "tovikxml/base/export.h"

namespace TovikXmlLib16::tovikxml_detail {

/// The storage of `CBigInteger`: a growable array of 32-bit limbs, the least significant one first.
/// Up to `kInline` limbs, 54 decimal digits, need no memory of their own. A value; an array that
/// was moved from is empty.
class TOVIKXML_EXPORT LimbArray {
 public:
  using Limb = std::uint32_t;

  static constexpr std::size_t kInline = 6;
  /// About 150 million decimal digits.
  static constexpr std::size_t kMaxSize = std::size_t{1} << 24;

  LimbArray() noexcept {}
  LimbArray(const LimbArray& other) { Assign(other); }
  LimbArray(LimbArray&& other) noexcept { Take(other); }
  LimbArray& operator=(const LimbArray& other);
  LimbArray& operator=(LimbArray&& other) noexcept;
  ~LimbArray() = default;

  std::size_t Size() const { return m_size; }
  bool IsEmpty() const { return m_size == 0; }
  Limb* Data() { return m_heap ? m_heap.get() : m_inline; }
  const Limb* Data() const { return m_heap ? m_heap.get() : m_inline; }
  Limb& operator[](std::size_t index) { return Data()[index]; }
  Limb operator[](std::size_t index) const { return Data()[index]; }
  Limb Back() const { return Data()[m_size - 1]; }

  /// Drops limbs at the high end or adds zeros there. Throws `CTovikOverFlowException` "The number
  /// has too many digits" for more than `kMaxSize` limbs.
  void Resize(std::size_t size) {
    if (size > m_size) {
      Grow(size);
    } else {
      m_size = static_cast<std::uint32_t>(size);
    }
  }

 private:
  void Grow(std::size_t size);
  void Reserve(std::size_t size);
  void Assign(const LimbArray& other);
  void Take(LimbArray& other) noexcept;

  std::uint32_t m_size = 0;
  std::uint32_t m_capacity = kInline;
  Limb m_inline[kInline];
  std::unique_ptr<Limb[]> m_heap;
};

}  // namespace TovikXmlLib16::tovikxml_detail

#endif  // TOVIKXML_VALUES_LIMB_ARRAY_H_
