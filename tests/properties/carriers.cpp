#include "tests/properties/carriers.h"

namespace TovikXmlTest {
namespace {

const wchar* const kNamespaces[] = {u"urn:own", u"urn:q", u"urn:o", u"urn:g", u"urn:x"};

void FillVocabulary(CFIVocabulary& vocabulary) {
  vocabulary.AddElement(u"g", u"urn:g", u"g0");
  vocabulary.AddElement(u"", u"", u"m");
  vocabulary.AddElement(u"AA", u"urn:o", u"o");
  vocabulary.AddAttribute(u"", u"", u"a");
  vocabulary.AddAttributeValue(u"0");
  vocabulary.AddElementValue(u"true");
}

CSerializationContext ContextOf(Family family, bool aliases) {
  CSerializationContext context;
  if (aliases || family == kFullJson) {
    for (const wchar* uri : kNamespaces) context.GetNamespaceAliases().Add(uri + 4, uri);
  }
  if (family >= kBareJson) {
    context.GetJsonContext().SetSupportRoundtrip(static_cast<JsonRoundTrip>(family - kBareJson));
  }
  if (family == kSuggestedFastInfoset) context.GetFIContext().SetSuggestedValues();
  if (family == kFastInfoset || family == kSuggestedFastInfoset) {
    context.GetFIContext().SetUseGeneratedVocabulary(aliases);
    FillVocabulary(*context.GetFIContext().GetVocabulary());
  }
  return context;
}

}  // namespace

Carrier::Carrier(Family family, Target target, XmlEncoding encoding, CompressionType compression,
                 bool formatted, EOLType eol, bool header, bool aliases)
    : m_family(family),
      m_target(target),
      m_encoding(encoding),
      m_compression(compression),
      m_formatted(formatted),
      m_eol(eol),
      m_header(header),
      m_aliases(aliases),
      m_context(ContextOf(family, aliases)) {}

WString Carrier::ToText(const Bag& object) const {
  return IsJson() ? object.ToJson(m_formatted, m_eol, m_context)
                  : object.ToXml(m_header, m_formatted, m_eol, m_context);
}

CBinaryData Carrier::ToBytes(const Bag& object) const {
  if (IsJson()) {
    return object.ToJsonStream(m_formatted, m_encoding, m_eol, m_context, m_compression);
  }
  if (IsFastInfoset()) {
    return object.ToFastInfosetStream(m_header ? fid_V10 : fid_None, m_context, m_compression);
  }
  return object.ToXmlStream(m_header, m_formatted, m_encoding, m_eol, m_context, m_compression);
}

void Carrier::ToFile(const Bag& object, const wchar* name) const {
  if (IsJson()) {
    object.ToJsonFile(name, m_formatted, m_encoding, m_eol, m_context, m_compression);
  } else if (IsFastInfoset()) {
    object.ToFastInfosetFile(name, m_header ? fid_V10 : fid_None, m_context, m_compression);
  } else {
    object.ToXmlFile(name, m_header, m_formatted, m_encoding, m_eol, m_context, m_compression);
  }
}

std::function<void(Bag&)> Carrier::Write(const Bag& object, const TempDir& directory) const {
  if (m_target == kText) {
    return [this, text = ToText(object)](Bag& copy) {
      IsJson() ? copy.FromJson(text.c_str(), m_context) : copy.FromXml(text.c_str(), m_context);
    };
  }
  if (m_target == kBytes) {
    return [this, bytes = ToBytes(object)](Bag& copy) {
      IsJson() ? copy.FromJsonStream(bytes, m_context) : copy.FromXmlStream(bytes, m_context);
    };
  }
  struct Overlap {
    explicit Overlap(bool on) { Set(on); }
    ~Overlap() { Set(false); }
    static void Set(bool on) {
      AsyncToXmlFile(on);
      AsyncFromXmlFile(on);
    }
  };
  const WString name = directory / u"carrier";
  const Overlap overlap(m_target == kOverlappedFile);
  ToFile(object, name.c_str());
  return [this, name](Bag& copy) {
    const Overlap again(m_target == kOverlappedFile);
    IsJson() ? copy.FromJsonFile(name.c_str(), m_context)
             : copy.FromXmlFile(name.c_str(), m_context);
  };
}

std::string Carrier::Name() const {
  static const char* const families[] = {"XML",          "indented XML", "Fast Infoset",
                                         "suggested FI", "bare JSON",    "marked JSON",
                                         "full JSON"};
  static const char* const targets[] = {"text", "bytes", "file", "overlapped file"};
  return std::string(families[m_family]) + " to " + targets[m_target] + ", encoding " +
         std::to_string(m_encoding) + ", compression " + std::to_string(m_compression) +
         (m_formatted ? ", formatted" : "") + (m_eol == EOL_CRLF ? ", CRLF" : "") +
         (m_header ? ", header" : "") + (m_aliases ? ", aliases or vocabulary" : "");
}

const std::vector<Carrier>& AllCarriers() {
  static const std::vector<Carrier> carriers = [] {
    std::vector<Carrier> all;
    const auto everyTarget = [&](Family family, bool formatted, EOLType eol, bool header,
                                 bool aliases) {
      const bool isXml = family == kXml || family == kIndentedXml;
      const bool isFastInfoset = family == kFastInfoset || family == kSuggestedFastInfoset;
      const auto add = [&](Carrier::Target target, XmlEncoding encoding,
                           CompressionType compression) {
        all.emplace_back(family, target, encoding, compression, formatted, eol, header, aliases);
      };
      if (!isFastInfoset) add(Carrier::kText, Encoding_None, Compression_None);
      for (int encoding = Encoding_UTF8;
           encoding <= (isXml ? Encoding_UTF16_Undeclared : Encoding_UTF8); ++encoding) {
        const auto chosen = static_cast<XmlEncoding>(encoding);
        for (const CompressionType compression :
             {Compression_None, Compression_GZip, Compression_ZLib}) {
          add(Carrier::kBytes, chosen, compression);
          if (compression != Compression_ZLib) add(Carrier::kFile, chosen, compression);
        }
        if (!isFastInfoset) add(Carrier::kOverlappedFile, chosen, Compression_None);
      }
    };
    for (const bool aliases : {false, true}) {
      for (const bool header : {false, true}) {
        everyTarget(kFastInfoset, false, EOL_LF, header, aliases);
        everyTarget(kSuggestedFastInfoset, false, EOL_LF, header, aliases);
        for (const EOLType eol : {EOL_CRLF, EOL_LF}) {
          everyTarget(kXml, false, eol, header, aliases);
          everyTarget(kIndentedXml, true, eol, header, aliases);
          if (header != aliases) continue;
          for (const Family family : {kBareJson, kMarkedJson, kFullJson}) {
            everyTarget(family, header, eol, false, false);
          }
        }
      }
    }
    return all;
  }();
  return carriers;
}

}  // namespace TovikXmlTest
