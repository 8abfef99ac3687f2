// Documents of one shape each, the same bytes on every machine.
//
//   genshape SHAPE SIZE FILE
//
// SIZE counts bytes, but for `names` the names. All but `namespaces`, `names` and `large` are
// documents of the orders example.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>

namespace {

const char* const kWords[] = {"Lieferung nach Übereinkunft ",    "доставка по договорённости ",
                              "Leave with the porter, please. ", "配送は平日の午前中に限ります。",
                              "à remettre en mains propres ",    "между 8 и 12 часами "};
constexpr std::size_t kWordCount = sizeof kWords / sizeof *kWords;

std::string Prose(std::size_t first, std::size_t bytes) {
  std::string text;
  while (text.size() < bytes) text += kWords[first++ % kWordCount];
  return text;
}

std::string Item(std::size_t i, const std::string& description) {
  const std::string n = std::to_string(i);
  return "    <item sku=\"SKU-" + n + "\">\n      <description>" + description +
         "</description>\n      <quantity>" + std::to_string(1 + i % 5000) +
         "</quantity>\n      <price>" + std::to_string(i % 10007) + ".95</price>\n      <weight>" +
         std::to_string(i % 401) + ".03125</weight>\n      <shipDate>2021-05-28</shipDate>\n" +
         "      <inStock>true</inStock>\n    </item>\n";
}

std::string Order(std::size_t id, const std::string& notes, std::size_t items,
                  const std::string& description) {
  std::string text = "  <order id=\"" + std::to_string(id) +
                     "\" date=\"2021-05-24\" status=\"new\">\n    <customer>\n"
                     "      <name>Anna Jones</name>\n      <street>50 Main Street</street>\n"
                     "      <city>Boston</city>\n      <postalCode>04726</postalCode>\n"
                     "      <country>US</country>\n    </customer>\n";
  if (!notes.empty()) text += "    <notes>" + notes + "</notes>\n";
  for (std::size_t i = 0; i < items; ++i) text += Item(id + i, description);
  return text + "  </order>\n";
}

// `make` gives the part with a number.
std::string Fill(std::size_t bytes, const std::string& start, const std::string& end,
                 const std::function<std::string(std::size_t)>& make) {
  std::string text = start;
  for (std::size_t i = 0; text.size() + end.size() < bytes; ++i) text += make(i);
  return text + end;
}

constexpr const char* kStart = "<orders xmlns=\"urn:example:bench:orders\">\n";
constexpr const char* kEnd = "</orders>\n";

std::string Orders(std::size_t bytes, const std::function<std::string(std::size_t)>& make) {
  return Fill(bytes, kStart, kEnd, make);
}

std::string Message(const std::string& notes) {
  return kStart + Order(7, notes, 1, "x") + kEnd;
}

std::string Namespaced(std::size_t i) {
  const std::string n = std::to_string(i % 8);
  return "  <a" + n + ":entry xmlns:a" + n + "=\"urn:example:shapes:first:" + n + "\" xmlns:b" + n +
         "=\"urn:example:shapes:second:" + n + "\" b" + n + ":id=\"" + std::to_string(i) + "\" b" +
         n + ":state=\"open\" kind=\"k\" a" + n + ":owner=\"x\">\n    <b" + n +
         ":value c=\"1\" d=\"2\" e=\"3\"/>\n  </a" + n + ":entry>\n";
}

const std::map<std::string, std::function<std::string(std::size_t)>> kShapes = {
    // Long texts, half of their bytes in characters of several bytes.
    {"text",
     [](std::size_t bytes) {
       return Orders(bytes,
                     [](std::size_t i) { return Order(i, Prose(i, 3000), 1, Prose(i, 900)); });
     }},
    {"numbers",
     [](std::size_t bytes) {
       return Orders(bytes, [](std::size_t i) { return Order(i, {}, 50, "x"); });
     }},
    {"namespaces",
     [](std::size_t bytes) { return Fill(bytes, "<list>\n", "</list>\n", Namespaced); }},
    {"message",
     [](std::size_t bytes) {
       const std::size_t least = Message("-").size();
       return Message(std::string(bytes > least ? bytes - least + 1 : 1, 'n'));
     }},
    {"names",
     [](std::size_t count) {
       std::string text = "<r>";
       for (std::size_t i = 0; i < count; ++i) text += "<n" + std::to_string(i) + "/>\n";
       return text + "</r>";
     }},
    {"large",
     [](std::size_t bytes) {
       return Fill(bytes, "<r>", "</r>", [](std::size_t) {
         return std::string("All of this is one text, line after line, and nothing else.\n");
       });
     }},
};

}  // namespace

int main(int argc, char** argv) {
  const auto shape = argc == 4 ? kShapes.find(argv[1]) : kShapes.end();
  if (shape == kShapes.end()) {
    std::cerr << "usage: genshape SHAPE SIZE FILE\nshapes:";
    for (const auto& entry : kShapes) std::cerr << ' ' << entry.first;
    std::cerr << '\n';
    return 2;
  }
  std::ofstream file(argv[3], std::ios::binary);
  file << shape->second(std::strtoull(argv[2], nullptr, 10));
  return file.flush() ? 0 : 1;
}
