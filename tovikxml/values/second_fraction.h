#ifndef TOVIKXML_VALUES_SECOND_FRACTION_H_
#define TOVIKXML_VALUES_SECOND_FRACTION_H_

#include <cstddef>
#include <cstdint>

#include "tovikxml/base/wide_string.h"

/// The fraction of a second in times and durations. Internal.
namespace TovikXmlLib16 {

/// The three groups of three digits behind the decimal point.
struct SecondFraction {
  std::uint16_t milli = 0;
  std::uint16_t micro = 0;
  std::uint16_t nano = 0;

  std::uint64_t Nanoseconds() const { return milli * 1'000'000ull + micro * 1'000ull + nano; }
};

/// Reads the digits at `at` and moves it past them. False at a tenth digit.
bool ReadFraction(WStringView text, std::size_t& at, SecondFraction& fraction);

/// Writes the point and up to nine digits without trailing zeros, or nothing, and returns the end.
/// Each group takes at least three digits, and at most five.
char* WriteFraction(char* out, const SecondFraction& fraction);

/// Writes decimal digits, at least `width` of them, and returns the end.
char* WritePadded(char* out, std::uint64_t value, int width);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_VALUES_SECOND_FRACTION_H_
