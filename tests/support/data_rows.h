#ifndef TESTS_SUPPORT_DATA_ROWS_H_
#define TESTS_SUPPORT_DATA_ROWS_H_

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tovikxml/base/item_type.h"
#include "tovikxml/base/wide_string.h"

/// Cases that are kept as text under tests/data, one row a line:
///
///     === refused            the rows below belong to the section "refused"
///     # text, message        comments; the first one of a section names its fields
///     12x<tab>no number
///
/// In a field \t, \n, \r and \\ stand for what they do in C++, \uXXXX for a 16-bit unit,
/// \UXXXXXXXX for a character beyond those and \{N*text\} for N times a text.
/// Fields that are missing at the end of a row are empty.
namespace TovikXmlTest {

struct DataRow {
  std::string place;  ///< file and line
  std::vector<TovikXmlLib16::WString> fields;
};

/// The rows of a section of a file under tests/data; a failure of the test if there are none.
std::vector<DataRow> RowsOf(const std::string& file, const std::string& section);

/// A field as an argument of a test: text of either width, a number, a truth value ("true" or
/// "false"), one character, or a kind by its name; a failure of the test if it is none.
template <class Value>
Value FieldAs(const TovikXmlLib16::WString& field);
template <>
TovikXmlLib16::WString FieldAs(const TovikXmlLib16::WString& field);
template <>
std::string FieldAs(const TovikXmlLib16::WString& field);
template <>
bool FieldAs(const TovikXmlLib16::WString& field);
template <>
char FieldAs(const TovikXmlLib16::WString& field);
template <>
long long FieldAs(const TovikXmlLib16::WString& field);
template <>
int FieldAs(const TovikXmlLib16::WString& field);
template <>
double FieldAs(const TovikXmlLib16::WString& field);
template <>
TovikXmlLib16::ItemType FieldAs(const TovikXmlLib16::WString& field);

template <class Action, class... Arguments, std::size_t... index>
void CallWithFields(const Action& action, void (Action::*)(Arguments...) const, DataRow row,
                    std::index_sequence<index...>) {
  SCOPED_TRACE(row.place);
  EXPECT_LE(row.fields.size(), sizeof...(Arguments));
  row.fields.resize(sizeof...(Arguments));
  action(FieldAs<std::decay_t<Arguments>>(row.fields[index])...);
}

template <class Action, class... Arguments>
void CallForEach(const std::vector<DataRow>& rows, const Action& action,
                 void (Action::*call)(Arguments...) const) {
  for (const DataRow& row : rows) {
    CallWithFields(action, call, row, std::index_sequence_for<Arguments...>());
  }
}

/// Calls `action` with the fields of each row, traced with its place:
///
///     ForEachRow("values/decimals.txt", "texts", [](const WString& text, const WString& value) {
///       EXPECT_EQ(CDecimal(text.c_str()).ToString(), value);
///     });
template <class Action>
void ForEachRow(const std::string& file, const std::string& section, const Action& action) {
  CallForEach(RowsOf(file, section), action, &Action::operator());
}

}  // namespace TovikXmlTest

#endif  // TESTS_SUPPORT_DATA_ROWS_H_
