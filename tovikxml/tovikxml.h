#ifndef TOVIKXML_TOVIKXML_H_
#define TOVIKXML_TOVIKXML_H_

/// @file
/// The one header for applications and generated code.

/// @namespace TovikXmlLib16
/// All of the library but the records of metadata.

/// @namespace TovikXmlLib16Data
/// The records of metadata with which a generated class describes itself.

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/item_type.h"
#include "tovikxml/base/smart_ptr.h"
#include "tovikxml/base/utf8.h"
#include "tovikxml/base/version.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/binding/attribute_info.h"
#include "tovikxml/binding/class_factory.h"
#include "tovikxml/binding/element_info.h"
#include "tovikxml/binding/generated_class.h"
#include "tovikxml/binding/object_base.h"
#include "tovikxml/collections/attribute_col.h"
#include "tovikxml/collections/collection.h"
#include "tovikxml/collections/element.h"
#include "tovikxml/collections/element_col.h"
#include "tovikxml/collections/typed_collections.h"
#include "tovikxml/document/document.h"
#include "tovikxml/document/writer.h"
#include "tovikxml/fastinfoset/declaration.h"
#include "tovikxml/fastinfoset/encoding_algorithms.h"
#include "tovikxml/fastinfoset/vocabulary.h"
#include "tovikxml/platform/async_files.h"
#include "tovikxml/settings/fastinfoset_context.h"
#include "tovikxml/settings/json_context.h"
#include "tovikxml/settings/serialization_context.h"
#include "tovikxml/values/big_integer.h"
#include "tovikxml/values/binary_data.h"
#include "tovikxml/values/conversions.h"
#include "tovikxml/values/date_time.h"
#include "tovikxml/values/date_time_span.h"
#include "tovikxml/values/decimal.h"
#include "tovikxml/values/restrictions.h"
#include "tovikxml/values/variant.h"
#include "tovikxml/values/whitespace.h"

#endif  // TOVIKXML_TOVIKXML_H_
