// docs/guide/text.md

#include "examples/guide/album.h"
#include "examples/guide/section.h"

using namespace TovikXmlLib16;

namespace {

void Convert() {
  // snippet: convert
  WString name = FromUtf8("Zoë");
  std::string bytes = ToUtf8(name);
  std::cout << name.size() << " units, " << bytes.size() << " bytes\n";
  std::cout << DisplayUtf8(name) << '\n';
  // end snippet
}

void IllFormed() {
  // snippet: ill-formed
  for (const char* bytes : {"Zo\xc3\xab", "Zo\xeb"}) {  // UTF-8, and Latin-1
    try {
      std::cout << DisplayUtf8(FromUtf8(bytes)) << '\n';
    } catch (const CTovikInvalidValueException& e) {
      std::cout << e.what() << '\n';
    }
  }
  if (!EncodeUtf8(u"half of a pair: \xD83D")) std::cout << "no UTF-8 form\n";
  std::cout << DisplayUtf8(u"half of a pair: \xD83D") << '\n';
  // end snippet
}

void Documents() {
  // snippet: documents
  CSerializationContext context;
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  album->FromXml(
      "<album xmlns='urn:example:music' medium='disc'><title>Größe</title>"
      "<track length='PT1M'>Δ</track></album>",
      context);
  std::cout << DisplayUtf8(album->GetTitle()) << '\n';
  std::string json = ToUtf8(album->ToJson(false, EOL_LF, context));
  album->FromJson(json.c_str(), context);
  std::cout << DisplayUtf8(album->GetTracks()->Item(0)->GetText()) << '\n';
  // end snippet
}

void Files() {
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  album->SetTitle(u"t");
  album->GetTracks()->Add();
  // snippet: files
  CSerializationContext context;
  WString file = FromUtf8("größe Δ.xml");
  album->ToXmlFile(file.c_str(), true, false, Encoding_UTF16, EOL_LF, context, Compression_None);
  album->FromXmlFile(file.c_str(), context);
  album->ToJsonFile(u"größe Δ.json", false, Encoding_UTF8, EOL_LF, context, Compression_GZip);
  album->FromJsonFile(u"größe Δ.json", context);
  // end snippet
  std::cout << DisplayUtf8(album->GetTitle()) << '\n';
}

}  // namespace

int main() {
  Section("convert");
  Convert();
  Section("ill-formed");
  IllFormed();
  Section("documents");
  Documents();
  Section("files");
  Files();
}
