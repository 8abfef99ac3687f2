#ifndef TESTS_PROPERTIES_ALL_KINDS_H_
#define TESTS_PROPERTIES_ALL_KINDS_H_

#include <bitset>
#include <random>
#include <string>
#include <vector>

#include "tests/support/bag.h"

/// One class that has everything: each kind of value as attribute, element, repeated element and
/// text of its own, in sequences, choices, all groups and groups without tags, with enumerations,
/// nil, namespaces and open content; and objects of it with random values that are legal but
/// awkward.
namespace TovikXmlTest {

/// What some carriers do not keep. A random object leaves out the features that it is told to.
enum Feature {
  kAttributes,           ///< any attribute
  kQualifiedAttributes,  ///< an attribute in a namespace
  kOpenNamespaces,       ///< open content in a namespace
  kOpenChildren,         ///< open content with children and text
  kNil,
  kNotFinite,         ///< NaN and the infinities
  kWideUnsigned,      ///< a ui8 beyond the signed range
  kFractionOrOffset,  ///< seconds with a fraction, zones east of Greenwich
  kAttributeTab,
  kCarriageReturn,
  kControl,
  kCDataMarker,  ///< a text that begins as a CDATA section does
  kNeverRandom,  ///< the object itself, or the metadata, decides
  kFeatures
};
using Features = std::bitset<kFeatures>;

/// The shape of the root.
const Shape& AllKinds();

/// An object of `AllKinds` that depends on the seed and on what is left out alone.
CSmartPtr<Bag> RandomObject(unsigned seed, const Features& leftOut);

/// All that an object holds, one value a line, such as "/1/2/n: i4 nil".
std::vector<std::string> Describe(const CXmlObjectBase& object);

/// The first line in which two descriptions differ; empty if they are the same.
std::string FirstDifference(const std::vector<std::string>& expected,
                            const std::vector<std::string>& actual);

/// An element record without facets and white space rule.
template <class Record>
CElementInfo* Plain(const wchar* name, int property, ItemType type, bool nillable = false,
                    const wchar* namespaceUri = u"") {
  return new Record(name, namespaceUri, property, nillable, type, u"", CWhitespaceUtils::ws_none,
                    NoFacets(), u"");
}
inline CAttributeInfo* PlainAttribute(const wchar* name, int property, ItemType type,
                                      const wchar* namespaceUri = u"") {
  return new CAttributeInfoPrimitive(name, namespaceUri, property, true, type, u"",
                                     CWhitespaceUtils::ws_none, NoFacets(), u"");
}

}  // namespace TovikXmlTest

#endif  // TESTS_PROPERTIES_ALL_KINDS_H_
