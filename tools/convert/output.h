#ifndef TOVIKXML_TOOLS_CONVERT_OUTPUT_H_
#define TOVIKXML_TOOLS_CONVERT_OUTPUT_H_

#include <cstddef>
#include <string_view>
#include <vector>

#include "tools/convert/options.h"
#include "tools/convert/tree_object.h"
#include "tovikxml/tovikxml.h"

namespace TovikXmlConvert {

/// A document in bytes, with what a file of it has in front and behind.
struct Encoded {
  std::string_view mark;
  TovikXmlLib16::CBinaryData document;
  std::string_view lineEnd;

  std::vector<std::string_view> Pieces() const;
  std::size_t GetSize() const { return mark.size() + document.GetLength() + lineEnd.size(); }
};

/// The document as the options ask for it. Throws `CTovikException`.
Encoded Encode(const CTreeObject& object, const Options& options,
               const TovikXmlLib16::CSerializationContext& context);

}  // namespace TovikXmlConvert

#endif  // TOVIKXML_TOOLS_CONVERT_OUTPUT_H_
