#include <iostream>

#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  try {
    CXmlDocument document;
    document.Load(FromUtf8(argv[1]).c_str());
    for (const CXmlElement* child = document.GetDocumentElement()->GetFirstElement(); child;
         child = child->GetNextSiblingElement()) {
      std::cout << DisplayUtf8(child->GetXPath()) << '\n';
    }
  } catch (const CTovikException& e) {
    std::cerr << e.what() << '\n';
    return 1;
  }
}
