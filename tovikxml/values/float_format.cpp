#include "tovikxml/values/float_format.h"

#include "tovikxml/base/exception.h"
#include "tovikxml/base/format_string.h"
#include "tovikxml/base/printf_field.h"
#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

constexpr int kMaxFieldDigits = 4;
// Reads the conversions and the text of a format from left to right.
class FormatCursor {
 public:
  explicit FormatCursor(WStringView format) : m_format(format.substr(0, format.find(u'\0'))) {}

  /// Adds text up to the next conversion, behind whose percent sign it stops; false at the end.
  bool CopyText(WString& out);
  PrintfField ReadConversion();
  [[noreturn]] void Refuse() const;

 private:
  wchar Peek() const { return m_at < m_format.size() ? m_format[m_at] : u'\0'; }
  bool Accept(wchar unit);
  int ReadNumber();

  WStringView m_format;
  std::size_t m_at = 0;
};

void FormatCursor::Refuse() const {
  throw CTovikInvalidValueException(
      FormatString(u"Invalid number format [%s]", WString(m_format).c_str()));
}

bool FormatCursor::Accept(wchar unit) {
  if (Peek() != unit) return false;
  ++m_at;
  return true;
}

bool FormatCursor::CopyText(WString& out) {
  while (m_at < m_format.size()) {
    if (!Accept(u'%')) {
      out.push_back(m_format[m_at++]);
    } else if (Accept(u'%')) {
      out.push_back(u'%');
    } else {
      return true;
    }
  }
  return false;
}

int FormatCursor::ReadNumber() {
  int number = 0;
  for (int digits = 0; IsAsciiDigit(Peek()); ++m_at) {
    if (++digits > kMaxFieldDigits) Refuse();
    number = number * 10 + (Peek() - u'0');
  }
  return number;
}

PrintfField FormatCursor::ReadConversion() {
  PrintfField conversion;
  while (conversion.TakeFlag(Peek())) ++m_at;
  conversion.width = static_cast<std::size_t>(ReadNumber());
  if (Accept(u'.')) conversion.precision = ReadNumber();
  Accept(u'l');
  const wchar lower = ToAsciiLower(Peek());
  if (lower != u'a' && (lower < u'e' || lower > u'g')) Refuse();
  conversion.letter = static_cast<char>(lower);
  conversion.upper = Peek() != lower;
  ++m_at;
  return conversion;
}

}  // namespace

WString FormatFloat(double value, WStringView format) {
  FormatCursor cursor(format);
  WString out;
  if (!cursor.CopyText(out)) cursor.Refuse();
  AppendField(out, cursor.ReadConversion(), value);
  if (cursor.CopyText(out)) cursor.Refuse();
  return out;
}

}  // namespace TovikXmlLib16
