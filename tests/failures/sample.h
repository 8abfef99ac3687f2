#ifndef TESTS_FAILURES_SAMPLE_H_
#define TESTS_FAILURES_SAMPLE_H_

#include "tests/support/bag.h"

/// A small class that takes every road of the library: attributes, values of classes, a typed list
/// with a pattern, objects in objects, nil, open content and open attributes.
namespace TovikXmlTest {

const Shape& Sample();

/// XML text of an object of it that holds something in every property.
extern const WString kSampleXml;

/// With an alias for each namespace, the suggested encodings and a vocabulary.
CSerializationContext SampleContext();

}  // namespace TovikXmlTest

#endif  // TESTS_FAILURES_SAMPLE_H_
