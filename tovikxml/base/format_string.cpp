#include "tovikxml/base/format_string.h"

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "tovikxml/base/exception.h"
#include "tovikxml/base/printf_field.h"
#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

// Steps through the format and takes the arguments as it asks for them.
class Formatter {
 public:
  Formatter(const wchar* format, std::va_list* arguments)
      : m_format(format), m_at(format), m_arguments(arguments) {}

  WString Format();

 private:
  [[noreturn]] void Refuse() const;
  bool Accept(wchar unit);
  int ReadNumber();
  void ReadWidth(PrintfField& field);
  void ReadPrecision(PrintfField& field);
  WString ReadLength();
  void AppendArgument();
  void AppendInteger(PrintfField field, const WString& length, bool isSigned);
  void AppendFloat(const PrintfField& field, const WString& length);
  template <class Unit>
  void AppendText(const PrintfField& field);

  template <class T>
  T Next() {
    return va_arg(*m_arguments, T);
  }

  const wchar* m_format;
  const wchar* m_at;
  std::va_list* m_arguments;
  WString m_out;
};

void Formatter::Refuse() const {
  throw CTovikInvalidParamException(WString(u"Unknown conversion in the format [") + m_format +
                                    u"]");
}

bool Formatter::Accept(wchar unit) {
  if (*m_at != unit) return false;
  ++m_at;
  return true;
}

WString Formatter::Format() {
  while (*m_at) {
    if (!Accept(u'%')) {
      m_out.push_back(*m_at++);
    } else if (Accept(u'%')) {
      m_out.push_back(u'%');
    } else {
      AppendArgument();
    }
  }
  return std::move(m_out);
}

int Formatter::ReadNumber() {
  constexpr int kMaxNumber = 1'000'000'000;
  int number = 0;
  for (; *m_at >= u'0' && *m_at <= u'9'; ++m_at) {
    number = number * 10 + (*m_at - u'0');
    if (number > kMaxNumber / 10) Refuse();
  }
  return number;
}

void Formatter::ReadWidth(PrintfField& field) {
  const std::int64_t width = Accept(u'*') ? Next<int>() : ReadNumber();
  if (width < 0) field.leftAlign = true;
  field.width = static_cast<std::size_t>(width < 0 ? -width : width);
}

void Formatter::ReadPrecision(PrintfField& field) {
  if (!Accept(u'.')) return;
  const int precision = Accept(u'*') ? Next<int>() : ReadNumber();
  if (precision >= 0) field.precision = precision;
}

WString Formatter::ReadLength() {
  const wchar* const start = m_at;
  while (WStringView(u"hljztL").find(*m_at) != WStringView::npos && m_at - start < 2) ++m_at;
  return WString(start, m_at);
}

void Formatter::AppendArgument() {
  PrintfField field;
  while (field.TakeFlag(*m_at)) ++m_at;
  ReadWidth(field);
  ReadPrecision(field);
  const WString length = ReadLength();
  const wchar letter = *m_at ? *m_at++ : u'\0';
  const wchar lower = ToAsciiLower(letter);
  field.letter = static_cast<char>(lower);
  field.upper = letter != lower;
  switch (letter) {
    case u's':
    case u'S':
      if (letter == u'S' || length == u"h") return AppendText<char>(field);
      return AppendText<wchar>(field);
    case u'c': {
      const auto unit = static_cast<wchar>(Next<int>());
      field.precision.reset();
      return AppendField(m_out, field, WStringView(&unit, 1));
    }
    case u'd':
    case u'i':
      field.letter = 'd';
      return AppendInteger(field, length, true);
    case u'o':
    case u'u':
    case u'x':
    case u'X':
      return AppendInteger(field, length, false);
    case u'p':
      field.letter = 'x';
      field.alternate = true;
      return AppendField(m_out, field, false, reinterpret_cast<std::uintptr_t>(Next<void*>()));
    default:
      if (WStringView(u"aefg").find(lower) == WStringView::npos) Refuse();
      return AppendFloat(field, length);
  }
}

// What the width of the length modifier leaves of the value, signed or not.
void Formatter::AppendInteger(PrintfField field, const WString& length, bool isSigned) {
  std::int64_t value = 0;
  std::uint64_t bits = 0;
  const auto take = [&](auto argument) {
    using Signed = std::make_signed_t<decltype(argument)>;
    using Unsigned = std::make_unsigned_t<decltype(argument)>;
    value = static_cast<Signed>(argument);
    bits = static_cast<Unsigned>(argument);
  };
  if (length.empty()) {
    take(Next<int>());
  } else if (length == u"hh") {
    take(static_cast<signed char>(Next<int>()));
  } else if (length == u"h") {
    take(static_cast<short>(Next<int>()));
  } else if (length == u"l") {
    take(Next<long>());
  } else if (length == u"ll") {
    take(Next<long long>());
  } else if (length == u"j") {
    take(Next<std::intmax_t>());
  } else if (length == u"z") {
    take(Next<std::size_t>());
  } else if (length == u"t") {
    take(Next<std::ptrdiff_t>());
  } else {
    Refuse();
  }
  const bool isNegative = isSigned && value < 0;
  if (isSigned) bits = static_cast<std::uint64_t>(value);
  AppendField(m_out, field, isNegative, isNegative ? 0 - bits : bits);
}

void Formatter::AppendFloat(const PrintfField& field, const WString& length) {
  if (length == u"L") return AppendField(m_out, field, Next<long double>());
  if (!length.empty() && length != u"l") Refuse();
  AppendField(m_out, field, Next<double>());
}

// A text with a precision needs no end of its own.
template <class Unit>
void Formatter::AppendText(const PrintfField& field) {
  const auto* const text = Next<const Unit*>();
  if (!text) return AppendField(m_out, field, u"(null)");
  std::size_t size = 0;
  while (!(field.precision && size == static_cast<std::size_t>(*field.precision)) && text[size]) {
    ++size;
  }
  AppendField(m_out, field, WString(text, text + size));
}

}  // namespace

WString FormatString(const wchar* format, ...) {
  if (!format) return WString();
  std::va_list arguments;
  va_start(arguments, format);
  struct Ending {
    std::va_list* arguments;
    ~Ending() { va_end(*arguments); }
  } const ending{&arguments};
  return Formatter(format, &arguments).Format();
}

}  // namespace TovikXmlLib16
