// docs/guide/json.md

#include "examples/guide/album.h"
#include "examples/guide/section.h"

using namespace TovikXmlLib16;

namespace {

CSmartPtr<Music::CAlbum> MakeAlbum() {
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  album->SetTitle(u"Night Train");
  album->SetMedium(Music::Medium_disc);
  const CSmartPtr<Music::CTrack> track = album->GetTracks()->Add();
  track->SetText(u"C Jam Blues");
  track->SetLength(CDateTimeSpan(0, 3, 24));
  album->GetLabels()->Add(u"jazz");
  return album;
}

void Send(const Music::CAlbum& album) {
  // snippet: send
  CSerializationContext context;
  context.SetIndentChars(u"  ");
  context.GetJsonContext().SetSupportRoundtrip(jrt_Marked);
  std::cout << DisplayUtf8(album.ToJson(true, EOL_LF, context)) << '\n';
  // end snippet
}

void Body(const Music::CAlbum& album) {
  CSerializationContext context;
  context.GetJsonContext().SetSupportRoundtrip(jrt_Marked);
  // snippet: body
  CBinaryData body = album.ToJsonStream(false, Encoding_UTF8, EOL_LF, context, Compression_None);
  std::cout.write(reinterpret_cast<const char*>(body.GetData()),
                  static_cast<std::streamsize>(body.GetLength()));
  // end snippet
  std::cout << '\n';
}

void Receive() {
  // snippet: receive
  CSerializationContext context;
  context.GetJsonContext().SetSupportRoundtrip(jrt_Marked);
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  album->FromJson(R"({"album": {"@medium": "vinyl", "title": "Zoë",
                                "track": [{"@length": "PT2M", "#text": "a"}]}})",
                  context);
  std::cout << DisplayUtf8(album->GetTitle()) << ", " << album->GetTracks()->GetCount() << '\n';
  // end snippet
}

void Unwrapped() {
  // snippet: unwrapped
  CSerializationContext context;
  context.GetJsonContext().SetSupportRoundtrip(jrt_Marked);
  context.GetJsonContext().SetRootElementName(u"album");
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  album->FromJson(R"({"@medium": "disc", "title": "t", "track": {"@length": "PT1S"}})", context);
  // end snippet
  std::cout << album->GetTracks()->GetCount() << " track\n";
}

void Tree() {
  // snippet: tree
  CXmlDocument document;
  const CBinaryData xml = document.LoadJson(R"({"city": {"@id": 8001, "name": "Zürich"}})");
  document.LoadXmlStream(xml.GetData(), xml.GetLength());
  const CXmlElement* city = document.GetDocumentElement();
  std::cout << DisplayUtf8(city->GetAttribute(u"id", u"")) << ", "
            << DisplayUtf8(city->GetFirstElement()->GetText()) << '\n';
  // end snippet
}

void Faulty() {
  // snippet: faulty
  CSerializationContext context;
  CSmartPtr<Music::CAlbum> album(new Music::CAlbum);
  for (const char* text :
       {R"({"album": {"title": "t", }})", R"({"album": {"@medium": "tape", "title": "t"}})"}) {
    try {
      album->FromJson(text, context);
    } catch (const CTovikException& e) {
      std::cout << e.what() << "\n\n";
    }
  }
  // end snippet
}

}  // namespace

int main() {
  const CSmartPtr<Music::CAlbum> album = MakeAlbum();
  Section("send");
  Send(*album);
  Section("body");
  Body(*album);
  Section("receive");
  Receive();
  Section("unwrapped");
  Unwrapped();
  Section("tree");
  Tree();
  Section("faulty");
  Faulty();
}
