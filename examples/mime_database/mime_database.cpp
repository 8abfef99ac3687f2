// Reads the shared MIME database of the desktop, tells what it holds, and takes it through every
// carrier and back.
//
//   mime_database [FILE]

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "examples/mime_database/generated/acronyms.h"
#include "examples/mime_database/generated/comment_col.h"
#include "examples/mime_database/generated/glob.h"
#include "examples/mime_database/generated/magic.h"
#include "examples/mime_database/generated/mime_info.h"
#include "examples/mime_database/generated/mime_type_col.h"
#include "examples/mime_database/generated/property_col.h"
#include "tovikxml/tovikxml.h"

using namespace TovikXmlLib16;
using MimeDatabase::CMimeInfo;

namespace {

constexpr const char* kDefaultFile = "/usr/share/mime/packages/freedesktop.org.xml";
constexpr const wchar* kNamespace = u"http://www.freedesktop.org/standards/shared-mime-info";

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// A line that is overwritten by the next, for people who watch.
void ShowProgress(const std::string& step) {
  if (isatty(STDERR_FILENO)) std::fprintf(stderr, "\r\033[K%s", step.c_str());
}

// Settings that let the output look like the original.
const CSerializationContext& Settings() {
  static const CSerializationContext context = [] {
    CSerializationContext settings;
    settings.SetDefaultNamespaceURI(kNamespace);
    settings.SetIndentChars(u"  ");
    return settings;
  }();
  return context;
}

// The same with the compact encodings of Fast Infoset for numbers, dates and the like.
const CSerializationContext& SuggestedValues() {
  static const CSerializationContext context = [] {
    CSerializationContext settings(Settings());
    settings.GetFIContext().SetSuggestedValues();
    return settings;
  }();
  return context;
}

WString CanonicalText(const CMimeInfo& info) {
  return info.ToXml(false, false, EOL_LF, Settings());
}

void PrintContents(const CMimeInfo& info) {
  std::size_t comments = 0, patterns = 0, magics = 0, acronyms = 0;
  std::map<WString, std::size_t> languages;
  for (const MimeDatabase::CMimeType* type : *info.GetTypes()) {
    for (const MimeDatabase::CComment* comment : *type->GetComments()) {
      ++comments;
      if (comment->IsValidLang()) ++languages[comment->GetLang()];
    }
    acronyms += type->GetAcronyms() ? 1 : 0;
    for (const MimeDatabase::CProperty* property : *type->GetProperties()) {
      patterns += property->GetGlob() ? 1 : 0;
      magics += property->GetMagic() ? 1 : 0;
    }
  }
  std::printf(
      "%d types, %zu descriptions in %zu languages, %zu acronyms, %zu patterns, %zu magic\n",
      info.GetTypes()->GetCount(), comments, languages.size() + 1, acronyms, patterns, magics);
  std::printf("languages:");
  for (const auto& [language, count] : languages) {
    std::printf(" %s(%zu)", DisplayUtf8(language).c_str(), count);
  }
  std::printf("\n\n");
}

bool IsBlank(const WString& text) {
  return text.find_first_not_of(u" \t\r\n") == WString::npos;
}

// Whether two trees hold the same elements, attributes and texts, but for the white space between
// elements. Prints the first difference.
bool IsSameTree(const CXmlElement& a, const CXmlElement& b, std::size_t& elements) {
  ++elements;
  const auto differ = [&](const char* what) {
    std::cout << "different " << what << " at " << DisplayUtf8(a.GetXPath()) << '\n';
    return false;
  };
  if (a.GetLocalName() != b.GetLocalName() || a.GetNamespaceURI() != b.GetNamespaceURI()) {
    return differ("name");
  }
  if (a.GetText() != b.GetText() && !(IsBlank(a.GetText()) && IsBlank(b.GetText()))) {
    return differ("text");
  }
  if (a.GetAttributes().size() != b.GetAttributes().size()) return differ("number of attributes");
  for (const CXmlAttribute* attribute : a.GetAttributes()) {
    if (attribute->GetValue() !=
        b.GetAttribute(attribute->GetLocalName(), attribute->GetNamespaceURI())) {
      return differ("attribute");
    }
  }
  const CXmlElement* childOfA = a.GetFirstElement();
  const CXmlElement* childOfB = b.GetFirstElement();
  for (; childOfA && childOfB;
       childOfA = childOfA->GetNextSiblingElement(), childOfB = childOfB->GetNextSiblingElement()) {
    if (!IsSameTree(*childOfA, *childOfB, elements)) return false;
  }
  return childOfA || childOfB ? differ("number of children") : true;
}

/// One way out of the objects and back in. `write` gives the size in bytes.
struct Carrier {
  const char* name;
  std::function<std::size_t()> write;
  std::function<void(CMimeInfo&)> read;
};

class Carriers {
 public:
  Carriers(const CMimeInfo& info, const std::filesystem::path& folder)
      : m_info(info), m_folder(folder) {}

  std::vector<Carrier> All() {
    return {
        {"XML text, 16-bit", [this] { return WriteText(); },
         [this](CMimeInfo& info) { info.FromXml(m_text.c_str(), Settings()); }},
        File("XML file, UTF-8", Encoding_UTF8, Compression_None, false),
        File("XML file, UTF-16", Encoding_UTF16, Compression_None, false),
        File("XML file, gzip", Encoding_UTF8, Compression_GZip, false),
        {"XML stream, zlib", [this] { return WriteStream(); },
         [this](CMimeInfo& info) { info.FromXmlStream(m_bytes, Settings()); }},
        File("XML file, UTF-8, overlapped", Encoding_UTF8, Compression_None, true),
        File("XML file, UTF-16, overlapped", Encoding_UTF16, Compression_None, true),
        {"JSON text, 16-bit", [this] { return WriteJson(); },
         [this](CMimeInfo& info) { info.FromJson(m_text.c_str(), Settings()); }},
        JsonFile("JSON file, UTF-8", Compression_None),
        JsonFile("JSON file, gzip", Compression_GZip),
        FastInfosetFile("Fast Infoset file", Settings(), Compression_None),
        FastInfosetFile("Fast Infoset, suggested values", SuggestedValues(), Compression_None),
        FastInfosetFile("Fast Infoset file, gzip", Settings(), Compression_GZip),
    };
  }

 private:
  std::size_t WriteText() {
    m_text = m_info.ToXml(true, true, EOL_LF, Settings());
    return m_text.size() * sizeof(wchar);
  }

  std::size_t WriteStream() {
    m_bytes = m_info.ToXmlStream(true, true, Encoding_UTF8, EOL_LF, Settings(), Compression_ZLib);
    return m_bytes.GetLength();
  }

  std::size_t WriteJson() {
    m_text = m_info.ToJson(true, EOL_LF, Settings());
    return m_text.size() * sizeof(wchar);
  }

  Carrier JsonFile(const char* name, CompressionType compression) {
    const std::filesystem::path path = m_folder / "mime.json";
    const WString file = path.u16string();
    return {name,
            [=, this] {
              m_info.ToJsonFile(file.c_str(), true, Encoding_UTF8, EOL_LF, Settings(), compression);
              return std::filesystem::file_size(path);
            },
            [=](CMimeInfo& info) { info.FromJsonFile(file.c_str(), Settings()); }};
  }

  Carrier FastInfosetFile(const char* name, const CSerializationContext& context,
                          CompressionType compression) {
    const std::filesystem::path path = m_folder / "mime.finf";
    const WString file = path.u16string();
    return {name,
            [=, this, &context] {
              m_info.ToFastInfosetFile(file.c_str(), fid_None, context, compression);
              return std::filesystem::file_size(path);
            },
            [=](CMimeInfo& info) { info.FromXmlFile(file.c_str(), Settings()); }};
  }

  Carrier File(const char* name, XmlEncoding encoding, CompressionType compression,
               bool overlapped) {
    const std::filesystem::path path = m_folder / "mime.xml";
    const WString file = path.u16string();
    return {name,
            [=, this] {
              AsyncToXmlFile(overlapped);
              m_info.ToXmlFile(file.c_str(), true, true, encoding, EOL_LF, Settings(), compression);
              AsyncToXmlFile(false);
              return std::filesystem::file_size(path);
            },
            [=](CMimeInfo& info) {
              AsyncFromXmlFile(overlapped);
              info.FromXmlFile(file.c_str(), Settings());
              AsyncFromXmlFile(false);
            }};
  }

  const CMimeInfo& m_info;
  std::filesystem::path m_folder;
  WString m_text;
  CBinaryData m_bytes;
};

// Takes the objects through one carrier and prints a line about it.
bool Travel(const Carrier& carrier, const WString& expected) {
  ShowProgress(std::string("writing and reading ") + carrier.name);
  const auto writing = Clock::now();
  const std::size_t size = carrier.write();
  const double writeTime = MillisecondsSince(writing);
  const CSmartPtr<CMimeInfo> copy(new CMimeInfo);
  const auto reading = Clock::now();
  carrier.read(*copy);
  const double readTime = MillisecondsSince(reading);
  const bool equal = CanonicalText(*copy) == expected;
  ShowProgress("");
  std::printf("%-30s %10zu bytes  write %7.1f ms  read %7.1f ms  %s\n", carrier.name, size,
              writeTime, readTime, equal ? "equal" : "DIFFERENT");
  return equal;
}

// Nothing of the file may be lost: its tree and that of the objects, written, must be the same.
bool IsLossless(const WString& file, const CMimeInfo& info) {
  CXmlDocument original;
  original.Load(file.c_str());
  CXmlDocument written;
  written.LoadXml(CanonicalText(info).c_str());
  std::size_t elements = 0;
  if (!IsSameTree(*original.GetDocumentElement(), *written.GetDocumentElement(), elements)) {
    return false;
  }
  std::printf("\nall %zu elements of the file are in the objects, with all their attributes\n",
              elements);
  return true;
}

bool Run(const std::string& fileName, const std::filesystem::path& folder) {
  const WString file = std::filesystem::path(fileName).u16string();
  const CSmartPtr<CMimeInfo> info(new CMimeInfo);
  ShowProgress("reading " + fileName);
  const auto start = Clock::now();
  info->FromXmlFile(file.c_str(), Settings());
  const double time = MillisecondsSince(start);
  ShowProgress("");
  std::printf("%s: %ju bytes, read in %.1f ms\n", fileName.c_str(),
              static_cast<std::uintmax_t>(std::filesystem::file_size(fileName)), time);
  PrintContents(*info);

  const WString expected = CanonicalText(*info);
  bool allEqual = true;
  Carriers carriers(*info, folder);
  for (const Carrier& carrier : carriers.All()) {
    allEqual = Travel(carrier, expected) && allEqual;
  }
  return IsLossless(file, *info) && allEqual;
}

}  // namespace

int main(int argc, char** argv) {
  constexpr int kSkipped = 77;
  const std::string file = argc > 1 ? argv[1] : kDefaultFile;
  if (argc == 1 && !std::filesystem::exists(file)) {
    std::cerr << "there is no " << file << "; the package shared-mime-info brings it\n";
    return kSkipped;
  }
  const auto folder =
      std::filesystem::temp_directory_path() / ("tovikxml-mime-" + std::to_string(getpid()));
  bool passed = false;
  try {
    std::filesystem::create_directory(folder);
    passed = Run(file, folder);
  } catch (const CTovikException& e) {
    std::cerr << e.what() << '\n';
  }
  std::filesystem::remove_all(folder);
  return passed ? 0 : 1;
}
