#include "tools/convert/options.h"

#include <getopt.h>

#include <charconv>
#include <string_view>

using namespace TovikXmlLib16;

namespace TovikXmlConvert {
namespace {

constexpr int kMaxIndent = 16;
// Each level takes stack, of which a process has 8 MB by default.
constexpr int kHighestMaxNesting = 5000;

enum Choice : int {
  kHelp = 'h',
  kTo = 't',
  kFrom = 'f',
  kEncoding = 'e',
  kCompress = 'z',
  kJsonMode = 'j',
  kPretty = 'p',
  kVersion = 'V',
  kIndent = 256,
  kSuggestedValues,
  kTyped,
  kStats,
  kMaxNesting
};

constexpr option kLongOptions[] = {
    {"to", required_argument, nullptr, kTo},
    {"from", required_argument, nullptr, kFrom},
    {"encoding", required_argument, nullptr, kEncoding},
    {"compress", required_argument, nullptr, kCompress},
    {"json-mode", required_argument, nullptr, kJsonMode},
    {"typed", no_argument, nullptr, kTyped},
    {"suggested-values", no_argument, nullptr, kSuggestedValues},
    {"pretty", no_argument, nullptr, kPretty},
    {"indent", required_argument, nullptr, kIndent},
    {"max-nesting", required_argument, nullptr, kMaxNesting},
    {"stats", no_argument, nullptr, kStats},
    {"help", no_argument, nullptr, kHelp},
    {"version", no_argument, nullptr, kVersion},
    {nullptr, 0, nullptr, 0},
};

template <class T>
struct Word {
  std::string_view word;
  T value;
};

constexpr Word<Format> kFormats[] = {
    {"xml", Format::kXml}, {"json", Format::kJson}, {"fi", Format::kFastInfoset}};
constexpr Word<Format> kInputFormats[] = {{"xml", Format::kXml},
                                          {"json", Format::kJson},
                                          {"fi", Format::kFastInfoset},
                                          {"auto", Format::kUnknown}};
constexpr Word<Format> kSuffixes[] = {{".xml", Format::kXml},
                                      {".json", Format::kJson},
                                      {".fi", Format::kFastInfoset},
                                      {".finf", Format::kFastInfoset}};
constexpr Word<XmlEncoding> kEncodings[] = {{"utf-8", Encoding_UTF8}, {"utf-16", Encoding_UTF16}};
constexpr Word<CompressionType> kCompressions[] = {
    {"none", Compression_None}, {"gzip", Compression_GZip}, {"zlib", Compression_ZLib}};
constexpr Word<JsonRoundTrip> kJsonModes[] = {
    {"bare", jrt_Bare}, {"marked", jrt_Marked}, {"full", jrt_Full}};

template <class T, std::size_t N>
T Choose(const char* name, const Word<T> (&words)[N], std::string_view given) {
  std::string known;
  for (const Word<T>& word : words) {
    if (word.word == given) return word.value;
    known += (known.empty() ? "" : ", ") + std::string(word.word);
  }
  throw UsageError("--" + std::string(name) + " takes one of " + known + ", not '" +
                   std::string(given) + "'");
}

int Number(const char* name, std::string_view given, int lowest, int highest) {
  int value = 0;
  const auto [end, error] = std::from_chars(given.data(), given.data() + given.size(), value);
  if (error != std::errc() || end != given.data() + given.size() || value < lowest ||
      value > highest) {
    throw UsageError("--" + std::string(name) + " takes a number from " + std::to_string(lowest) +
                     " to " + std::to_string(highest) + ", not '" + std::string(given) + "'");
  }
  return value;
}

WString Indent(std::string_view given) {
  if (given == "tab") return u"\t";
  return WString(static_cast<std::size_t>(Number("indent", given, 0, kMaxIndent)), u' ');
}

// What was given, beside the options themselves, to see what does not fit together.
struct Given {
  bool encoding = false;
};

void Take(int choice, Options& options, Given& given) {
  switch (choice) {
    case kTo:
      options.to = Choose("to", kFormats, optarg);
      break;
    case kFrom:
      options.from = Choose("from", kInputFormats, optarg);
      break;
    case kEncoding:
      options.encoding = Choose("encoding", kEncodings, optarg);
      given.encoding = true;
      break;
    case kCompress:
      options.compression = Choose("compress", kCompressions, optarg);
      break;
    case kJsonMode:
      options.jsonMode = Choose("json-mode", kJsonModes, optarg);
      break;
    case kTyped:
      options.typed = true;
      break;
    case kSuggestedValues:
      options.suggestedValues = true;
      break;
    case kIndent:
      options.indent = Indent(optarg);
      [[fallthrough]];
    case kPretty:
      options.formatted = true;
      break;
    case kMaxNesting:
      options.maxNesting = Number("max-nesting", optarg, 1, kHighestMaxNesting);
      break;
    case kStats:
      options.stats = true;
      break;
    case kHelp:
      options.action = Options::Action::kHelp;
      break;
    case kVersion:
      options.action = Options::Action::kVersion;
      break;
    default:
      throw UsageError("see --help");  // getopt_long has told what is wrong
  }
}

// The format that the name of a file stands for, with or without ".gz" behind.
Format FormatOfName(std::string_view name) {
  if (name.ends_with(".gz")) name.remove_suffix(3);
  for (const auto& [suffix, format] : kSuffixes) {
    if (name.ends_with(suffix)) return format;
  }
  return Format::kUnknown;
}

void TakeFiles(int argc, char** argv, Options& options) {
  if (argc - optind > 2) throw UsageError("at most one input and one output can be given");
  if (optind < argc) options.input = argv[optind];
  if (optind + 1 < argc) options.output = argv[optind + 1];
}

void CheckTogether(const Options& options, const Given& given) {
  if (options.to == Format::kUnknown) {
    throw UsageError("--to is needed: the output has no name that tells the format");
  }
  const bool isFastInfoset = options.to == Format::kFastInfoset;
  if (isFastInfoset && given.encoding) throw UsageError("--encoding does not go with --to fi");
  if (isFastInfoset && options.formatted) {
    throw UsageError("--pretty and --indent do not go with --to fi");
  }
  if (!isFastInfoset && options.suggestedValues) {
    throw UsageError("--suggested-values goes with --to fi only");
  }
  if (options.typed && options.to != Format::kJson) {
    throw UsageError("--typed goes with --to json only");
  }
}

}  // namespace

const char* NameOf(Format format) {
  for (const auto& [word, value] : kFormats) {
    if (value == format) return word.data();
  }
  return "";
}

Options ParseOptions(int argc, char** argv) {
  Options options;
  Given given;
  int choice = 0;
  while ((choice = getopt_long(argc, argv, "t:f:e:z:j:phV", kLongOptions, nullptr)) != -1) {
    Take(choice, options, given);
  }
  if (options.action != Options::Action::kConvert) return options;
  TakeFiles(argc, argv, options);
  if (options.to == Format::kUnknown) options.to = FormatOfName(options.output);
  CheckTogether(options, given);
  return options;
}

const char* HelpText() {
  return R"(usage: tovikxml-convert [OPTION...] [INPUT [OUTPUT]]

Converts a document between XML text, Fast Infoset and JSON. INPUT and OUTPUT
are files; without them, or with "-", standard input and output are taken.

  -t, --to FORMAT        what to write: xml, json or fi; told by the name of
                         OUTPUT (.xml, .json, .fi, .finf) if not given
  -f, --from FORMAT      what to read: xml, json, fi or auto (default)
  -e, --encoding NAME    utf-8 (default) or utf-16, for xml and json
  -z, --compress KIND    none (default), gzip or zlib; compressed input is
                         recognised
  -j, --json-mode MODE   bare, marked or full (default), for reading and writing
      --typed            JSON: numbers, true and false stand without quotes
      --suggested-values Fast Infoset: numbers and dates take half the octets
  -p, --pretty           lay the output out in lines
      --indent N         the same with N blanks for each level, or "tab"
      --max-nesting N    refuse deeper elements (default 256)
      --stats            one line about the conversion on standard error
  -h, --help             this text
  -V, --version          the version

Exit status: 0 for success, 1 for a document that is refused or a file that
cannot be read or written, 2 for wrong usage.
)";
}

}  // namespace TovikXmlConvert
