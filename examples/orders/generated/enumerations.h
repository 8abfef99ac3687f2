#ifndef EXAMPLES_ORDERS_GENERATED_ENUMERATIONS_H_
#define EXAMPLES_ORDERS_GENERATED_ENUMERATIONS_H_

#include "tovikxml/tovikxml.h"

/// The enumerations of the schema, each with its two functions.
namespace Orders {

enum Status {
  Status_new = 0,
  Status_confirmed = 1,
  Status_shipped = 2,
  Status_delivered = 3,
  Status_cancelled = 4
};
const TovikXmlLib16::wchar* StatusToText(int value);
int StatusFromText(const TovikXmlLib16::wchar* text);

}  // namespace Orders

#endif  // EXAMPLES_ORDERS_GENERATED_ENUMERATIONS_H_
