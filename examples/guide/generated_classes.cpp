// docs/guide/generated_classes.md

#include "examples/guide/album.h"
#include "examples/guide/section.h"

using namespace TovikXmlLib16;

int main() {
  CXmlDocument schema;
  schema.Load(u"album.xsd");

  Section("use");
  // snippet: use
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  album->SetTitle(u"Night Train");
  album->SetReleased(CDateTime(1962, 12, 1));
  album->SetMedium(Music::Medium_vinyl);
  CSmartPtr<Music::CTrack> track = album->GetTracks()->Add();
  track->SetText(u"C Jam Blues");
  track->SetLength(CDateTimeSpan(0, 3, 24));
  album->GetLabels()->Add(u"jazz");

  CSerializationContext context;
  context.SetDefaultNamespaceURI(u"urn:example:music");
  context.SetIndentChars(u"  ");
  std::cout << DisplayUtf8(album->ToXml(false, true, EOL_LF, context)) << '\n';
  // end snippet

  Section("checks");
  // snippet: checks
  album->SetTitle(WString(41, u'x'));
  try {
    album->ToXml(false, false, EOL_LF, context);
  } catch (const CTovikException& e) {
    std::cout << e.what() << '\n';
  }
  // end snippet
}
