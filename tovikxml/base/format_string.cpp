#include "tovikxml/base/format_string.h"

#include <charconv>
#include <cstdarg>

#include "tovikxml/base/text.h"

namespace TovikXmlLib16 {
namespace {

struct Spec {
  bool leftAlign = false;
  bool zeroPad = false;
  std::size_t width = 0;
  int longs = 0;
  wchar conversion = 0;
};

// Reads one specification behind the percent sign and moves `at` past it.
Spec ParseSpec(const wchar*& at) {
  Spec spec;
  for (; *at == u'-' || *at == u'0'; ++at) (*at == u'-' ? spec.leftAlign : spec.zeroPad) = true;
  for (; *at >= u'0' && *at <= u'9'; ++at) {
    spec.width = spec.width * 10 + static_cast<std::size_t>(*at - u'0');
  }
  for (; *at == u'l'; ++at) ++spec.longs;
  spec.conversion = *at;
  if (*at) ++at;
  return spec;
}

void AppendPadded(WString& out, const Spec& spec, WStringView text) {
  const std::size_t fill = spec.width > text.size() ? spec.width - text.size() : 0;
  if (fill == 0 || spec.leftAlign) {
    out.append(text).append(fill, u' ');
    return;
  }
  if (spec.zeroPad && !text.empty() && text.front() == u'-') {
    out.push_back(u'-');
    text.remove_prefix(1);
  }
  out.append(fill, spec.zeroPad ? u'0' : u' ').append(text);
}

template <class Number>
void AppendNumber(WString& out, const Spec& spec, Number value, int base = 10) {
  char digits[72];
  const auto end = std::to_chars(digits, digits + sizeof digits, value, base).ptr;
  WString text(digits, end);
  if (spec.conversion == u'X') {
    for (wchar& unit : text) unit = ToAsciiUpper(unit);
  }
  AppendPadded(out, spec, text);
}

long long NextSigned(const Spec& spec, std::va_list* arguments) {
  if (spec.longs >= 2) return va_arg(*arguments, long long);
  if (spec.longs == 1) return va_arg(*arguments, long);
  return va_arg(*arguments, int);
}

unsigned long long NextUnsigned(const Spec& spec, std::va_list* arguments) {
  if (spec.longs >= 2) return va_arg(*arguments, unsigned long long);
  if (spec.longs == 1) return va_arg(*arguments, unsigned long);
  return va_arg(*arguments, unsigned int);
}

void AppendArgument(WString& out, const Spec& spec, std::va_list* arguments) {
  switch (spec.conversion) {
    case u's': {
      const wchar* text = va_arg(*arguments, const wchar*);
      AppendPadded(out, spec, text ? text : u"(null)");
      break;
    }
    case u'S': {
      const char* text = va_arg(*arguments, const char*);
      AppendPadded(out, spec, WidenAscii(text ? text : "(null)"));
      break;
    }
    case u'c':
      AppendPadded(out, spec, WString(1, static_cast<wchar>(va_arg(*arguments, int))));
      break;
    case u'd':
    case u'i':
      AppendNumber(out, spec, NextSigned(spec, arguments));
      break;
    case u'u':
      AppendNumber(out, spec, NextUnsigned(spec, arguments));
      break;
    case u'x':
    case u'X':
      AppendNumber(out, spec, NextUnsigned(spec, arguments), 16);
      break;
    default:
      if (spec.conversion) out.push_back(spec.conversion);
      break;
  }
}

WString FormatArguments(const wchar* format, std::va_list* arguments) {
  WString out;
  while (*format) {
    const wchar unit = *format++;
    if (unit != u'%') {
      out.push_back(unit);
    } else {
      const Spec spec = ParseSpec(format);
      AppendArgument(out, spec, arguments);
    }
  }
  return out;
}

}  // namespace

WString FormatString(const wchar* format, ...) {
  if (!format) return WString();
  std::va_list arguments;
  va_start(arguments, format);
  WString text = FormatArguments(format, &arguments);
  va_end(arguments);
  return text;
}

}  // namespace TovikXmlLib16
