#ifndef TESTS_PROPERTIES_RANDOM_VALUES_H_
#define TESTS_PROPERTIES_RANDOM_VALUES_H_

#include <random>

#include "tests/properties/all_kinds.h"

namespace TovikXmlTest {

/// Random lexical forms of each kind: the ends of its range, and what formats have trouble with.
class RandomValues {
 public:
  RandomValues(unsigned seed, const Features& leftOut) : m_random(seed), m_leftOut(leftOut) {}

  unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
  bool Chance(unsigned percent) { return Below(100) < percent; }
  bool Has(Feature feature) const { return !m_leftOut[feature]; }

  WString Value(ItemType type, bool inAttribute);

 private:
  WString Integer(std::int64_t least, std::int64_t most);
  WString Digits(unsigned most);
  WString Real(bool isSingle);
  WString Date();
  WString Time();
  WString Zone();
  WString Text(bool inAttribute);

  std::mt19937_64 m_random;
  Features m_leftOut;
};

}  // namespace TovikXmlTest

#endif  // TESTS_PROPERTIES_RANDOM_VALUES_H_
