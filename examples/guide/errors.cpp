// docs/guide/errors.md

#include "examples/guide/album.h"
#include "examples/guide/section.h"

using namespace TovikXmlLib16;

namespace {

const char* const kMissingTitle =
    "<album xmlns='urn:example:music' medium='disc'><track length='PT1M'>a</track></album>";

void Chain(const CSerializationContext& context) {
  // snippet: chain
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  try {
    album->FromXml(
        "<album xmlns='urn:example:music' medium='disc'><title>t</title>"
        "<track length='PT1M'>a</track><track length='3:24'>b</track></album>",
        context);
  } catch (const CTovikException& e) {
    std::cout << e.what() << "\n\n";
    for (const CTovikException* link = &e; link; link = link->GetInnerException()) {
      std::cout << "path [" << DisplayUtf8(link->GetPath()) << "]\n";
    }
  }
  // end snippet
}

void Parser(const CSerializationContext& context) {
  // snippet: parser
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  try {
    album->FromXml("<album\n  medium='disc'>\n</albun>", context);
  } catch (const CTovikException& e) {
    std::cout << e.what() << '\n';
  }
  // end snippet
}

void Family() {
  // snippet: family
  try {
    CDecimal price(u"12,50");
  } catch (const CTovikInvalidValueException& e) {
    std::cout << "value: " << e.what() << '\n';
  }
  try {
    CDateTimeSpan span(0, 5000000000, 0, 0, 0, 0);
  } catch (const CTovikOverFlowException& e) {
    std::cout << "overflow: " << e.what() << '\n';
  }
  try {
    CSmartPtr<Music::CAlbum>(new Music::CAlbum)->GetTracks()->Item(3);
  } catch (const CTovikInvalidParamException& e) {
    std::cout << "argument: " << e.what() << '\n';
  }
  // end snippet
}

void Lenient(const CSerializationContext& context) {
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  // snippet: lenient
  try {
    album->FromXml(kMissingTitle, context);
  } catch (const CTovikException& e) {
    std::cout << e.what() << '\n';
  }
  CSerializationContext lenient;
  lenient.SetIgnoreMissingMandatoryElements(true);
  album->FromXml(kMissingTitle, lenient);
  std::cout << album->GetTracks()->GetCount() << " track\n";
  // end snippet
}

void Limits() {
  // snippet: limits
  CSerializationContext context;
  context.SetMaxNesting(64);
  context.SetMaxDecompressedSize(10'000'000);
  context.SetMaxExpandedText(10'000'000);
  CBigInteger::SetMaxTextDigits(1000);
  // end snippet
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  album->SetTitle(u"t");
  for (int i = 0; i < 20000; ++i) album->GetTracks()->Add();
  const CBinaryData bomb =
      album->ToXmlStream(false, false, Encoding_UTF8, EOL_LF, context, Compression_GZip);
  context.SetMaxDecompressedSize(100'000);
  try {
    album->FromXmlStream(bomb, context);
  } catch (const CTovikException& e) {
    std::cout << e.what() << '\n';
  }
}

}  // namespace

int main() {
  const CSerializationContext context;
  Section("chain");
  Chain(context);
  Section("parser");
  Parser(context);
  Section("family");
  Family();
  Section("lenient");
  Lenient(context);
  Section("limits");
  Limits();
}
