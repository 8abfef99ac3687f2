#include "tests/support/data_rows.h"

#include <charconv>
#include <cstdlib>
#include <fstream>

#include "tests/support/text.h"
#include "tovikxml/values/variant.h"

namespace TovikXmlTest {
namespace {

using namespace TovikXmlLib16;

// Takes escapes from the front of a field.
class Unescaper {
 public:
  explicit Unescaper(WStringView field) : m_rest(field) {}

  WString Text() {
    WString text;
    while (!m_rest.empty()) text += Next();
    return text;
  }

 private:
  WString Take(std::size_t count) {
    const WString taken(m_rest.substr(0, count));
    EXPECT_EQ(taken.size(), count) << "an escape is cut";
    m_rest.remove_prefix(taken.size());
    return taken;
  }

  char32_t Hexadecimal(std::size_t digits) {
    return static_cast<char32_t>(std::stoul(DisplayUtf8(Take(digits)), nullptr, 16));
  }

  WString Next() {
    const WString first = Take(1);
    return first == u"\\" ? Escape(Take(1)[0]) : first;
  }

  WString Escape(wchar letter) {
    switch (letter) {
      case u't':
        return u"\t";
      case u'n':
        return u"\n";
      case u'r':
        return u"\r";
      case u'u':
        return WString(1, static_cast<wchar>(Hexadecimal(4)));
      case u'U': {
        const char32_t above = Hexadecimal(8) - 0x10000;
        return {static_cast<wchar>(0xD800 + (above >> 10)),
                static_cast<wchar>(0xDC00 + (above & 0x3FF))};
      }
      case u'{':
        return Repeated();
      default:
        EXPECT_EQ(letter, u'\\') << "an unknown escape";
        return WString(1, letter);
    }
  }

  WString Repeated() {
    const std::size_t star = m_rest.find(u'*'), end = m_rest.find(u"\\}");
    const WString text = Unescaper(m_rest.substr(star + 1, end - star - 1)).Text();
    WString result;
    for (int i = FieldAs<int>(WString(m_rest.substr(0, star))); i > 0; --i) result += text;
    m_rest.remove_prefix(end + 2);
    return result;
  }

  WStringView m_rest;
};

std::vector<WString> FieldsOf(WStringView line) {
  std::vector<WString> fields;
  for (std::size_t end = 0; end != WStringView::npos;) {
    end = line.find(u'\t');
    fields.push_back(Unescaper(line.substr(0, end)).Text());
    line.remove_prefix(end == WStringView::npos ? 0 : end + 1);
  }
  return fields;
}

template <class Number>
Number NumberOf(const WString& field) {
  const std::string text = DisplayUtf8(field);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  EXPECT_TRUE(error == std::errc() && end == text.data() + text.size()) << "no number: " << text;
  return number;
}

}  // namespace

std::vector<DataRow> RowsOf(const std::string& file, const std::string& section) {
  const std::string kSectionMark = "=== ";
  std::ifstream in(std::string(TOVIKXML_TEST_DATA) + "/" + file);
  std::vector<DataRow> rows;
  std::string current;
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (line.starts_with(kSectionMark)) current = line.substr(kSectionMark.size());
    if (line.empty() || line.starts_with('#') || line.starts_with(kSectionMark)) continue;
    if (current != section) continue;
    rows.push_back({"tests/data/" + file + ":" + std::to_string(number), FieldsOf(Wide(line))});
  }
  EXPECT_FALSE(rows.empty()) << "no rows in " << file << ", section " << section;
  return rows;
}

template <>
WString FieldAs(const WString& field) {
  return field;
}

template <>
std::string FieldAs(const WString& field) {
  const auto utf8 = EncodeUtf8(field);
  EXPECT_TRUE(utf8) << "a field without UTF-8 form";
  return utf8.value_or("");
}

template <>
bool FieldAs(const WString& field) {
  EXPECT_TRUE(field == u"true" || field == u"false") << "no truth value: " << DisplayUtf8(field);
  return field == u"true";
}

template <>
char FieldAs(const WString& field) {
  EXPECT_EQ(field.size(), 1u) << "no character: " << DisplayUtf8(field);
  return static_cast<char>(field[0]);
}

template <>
long long FieldAs(const WString& field) {
  return NumberOf<long long>(field);
}

template <>
int FieldAs(const WString& field) {
  return NumberOf<int>(field);
}

template <>
double FieldAs(const WString& field) {
  return NumberOf<double>(field);
}

template <>
ItemType FieldAs(const WString& field) {
  for (int kind = it_invalid + 1; kind <= it_integer; ++kind) {
    TovikVariant value;
    value.SetNil(static_cast<ItemType>(kind));
    if (value.GetType() == field) return static_cast<ItemType>(kind);
  }
  ADD_FAILURE() << "no kind: " << DisplayUtf8(field);
  return it_invalid;
}

}  // namespace TovikXmlTest
