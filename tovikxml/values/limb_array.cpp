#include "tovikxml/values/limb_array.h"

#include <algorithm>
#include <utility>

#include "tovikxml/base/exception.h"

namespace TovikXmlLib16::tovikxml_detail {

LimbArray& LimbArray::operator=(const LimbArray& other) {
  if (this != &other) Assign(other);
  return *this;
}

LimbArray& LimbArray::operator=(LimbArray&& other) noexcept {
  if (this != &other) Take(other);
  return *this;
}

void LimbArray::Grow(std::size_t size) {
  Reserve(size);
  std::fill(Data() + m_size, Data() + size, Limb{0});
  m_size = static_cast<std::uint32_t>(size);
}

void LimbArray::Reserve(std::size_t size) {
  if (size > kMaxSize) throw CTovikOverFlowException(u"The number has too many digits");
  if (size <= m_capacity) return;
  std::unique_ptr<Limb[]> larger(new Limb[size]);
  std::copy_n(Data(), m_size, larger.get());
  m_heap = std::move(larger);
  m_capacity = static_cast<std::uint32_t>(size);
}

void LimbArray::Assign(const LimbArray& other) {
  Reserve(other.m_size);
  std::copy_n(other.Data(), other.m_size, Data());
  m_size = other.m_size;
}

void LimbArray::Take(LimbArray& other) noexcept {
  m_heap = std::move(other.m_heap);
  m_size = std::exchange(other.m_size, 0);
  m_capacity = std::exchange(other.m_capacity, static_cast<std::uint32_t>(kInline));
  if (!m_heap) std::copy_n(other.m_inline, m_size, m_inline);
}

}  // namespace TovikXmlLib16::tovikxml_detail
