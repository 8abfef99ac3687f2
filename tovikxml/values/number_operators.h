#ifndef TOVIKXML_VALUES_NUMBER_OPERATORS_H_
#define TOVIKXML_VALUES_NUMBER_OPERATORS_H_

#include <type_traits>
#include <utility>

/// @file
/// The operators of `CBigInteger` and `CDecimal` for a built-in integer on either side, which is
/// converted to the class of the other operand:
///
///     CBigInteger next = count + 1;
///     if (5u < total) ++total;
namespace TovikXmlLib16 {

class CBigInteger;
class CDecimal;

namespace tovikxml_detail {

template <class T>
constexpr bool kIsNumber = std::is_same_v<T, CBigInteger> || std::is_same_v<T, CDecimal>;

/// The class of the operand that is no built-in integer; nothing for other pairs of operands.
template <class A, class B, class = void>
struct MixedOperands {};
template <class A, class B>
struct MixedOperands<A, B, std::enable_if_t<kIsNumber<A> && std::is_integral_v<B>>> {
  using Number = A;
};
template <class A, class B>
struct MixedOperands<A, B, std::enable_if_t<std::is_integral_v<A> && kIsNumber<B>>> {
  using Number = B;
};

}  // namespace tovikxml_detail

template <class A, class B>
using MixedNumber = typename tovikxml_detail::MixedOperands<A, B>::Number;

// clang-format off
template <class A, class B, class N = MixedNumber<A, B>>
N operator+(const A& a, const B& b) { return static_cast<const N&>(a) + static_cast<const N&>(b); }
template <class A, class B, class N = MixedNumber<A, B>>
N operator-(const A& a, const B& b) { return static_cast<const N&>(a) - static_cast<const N&>(b); }
template <class A, class B, class N = MixedNumber<A, B>>
N operator*(const A& a, const B& b) { return static_cast<const N&>(a) * static_cast<const N&>(b); }
template <class A, class B, class N = MixedNumber<A, B>>
N operator/(const A& a, const B& b) { return static_cast<const N&>(a) / static_cast<const N&>(b); }
/// For integers alone.
template <class A, class B, class N = MixedNumber<A, B>>
auto operator%(const A& a, const B& b) -> decltype(std::declval<const N&>() % std::declval<const N&>()) {
  return static_cast<const N&>(a) % static_cast<const N&>(b);
}
template <class A, class B, class N = MixedNumber<A, B>>
bool operator==(const A& a, const B& b) { return static_cast<const N&>(a) == static_cast<const N&>(b); }
template <class A, class B, class N = MixedNumber<A, B>>
bool operator!=(const A& a, const B& b) { return static_cast<const N&>(a) != static_cast<const N&>(b); }
template <class A, class B, class N = MixedNumber<A, B>>
bool operator<(const A& a, const B& b) { return static_cast<const N&>(a) < static_cast<const N&>(b); }
template <class A, class B, class N = MixedNumber<A, B>>
bool operator>(const A& a, const B& b) { return static_cast<const N&>(a) > static_cast<const N&>(b); }
template <class A, class B, class N = MixedNumber<A, B>>
bool operator<=(const A& a, const B& b) { return static_cast<const N&>(a) <= static_cast<const N&>(b); }
template <class A, class B, class N = MixedNumber<A, B>>
bool operator>=(const A& a, const B& b) { return static_cast<const N&>(a) >= static_cast<const N&>(b); }
// clang-format on

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_NUMBER_OPERATORS_H_
