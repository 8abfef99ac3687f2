// Bytes to a tree, with and without namespaces and CDATA markers, and the path of every node.

#include <cstddef>
#include <cstdint>

#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

namespace {

void WalkPaths(const CXmlElement* root) {
  int left = 50;  // paths cost the square of the tree, so only some are asked for
  for (const CXmlElement* element = root; element && left > 0; --left) {
    element->GetXPath();
    for (const CXmlAttribute* attribute : element->GetAttributes()) attribute->GetXPath();
    element =
        element->GetFirstElement() ? element->GetFirstElement() : element->GetNextSiblingElement();
  }
}

bool DropEveryOther(CXmlElement*) {
  static unsigned count = 0;
  return ++count % 2 == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (int variant = 0; variant < 3; ++variant) {
    CSerializationContext context;
    context.SetMaxDecompressedSize(1 << 20);
    context.SetSchemaType(variant == 1 ? st_NoNamespaces : st_Namespaced);
    context.SetStripCDATA(variant != 1);
    try {
      CXmlDocument document(variant == 2 ? DropEveryOther : nullptr, context);
      document.LoadXmlStream(data, size);
      WalkPaths(document.GetDocumentElement());
    } catch (const CTovikException&) {
      // the only way to fail
    }
  }
  return 0;
}
