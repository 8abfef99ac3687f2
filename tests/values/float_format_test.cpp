#include "tovikxml/values/float_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/support/data_rows.h"
#include "tests/support/text.h"
#include "tovikxml/base/text.h"

using namespace TovikXmlLib16;
using namespace TovikXmlTest;

namespace {

// The C library as the judge of formats that it is known to understand.
std::string ByC(const std::string& format, double value) {
  std::vector<char> text(2000);
  const int length = std::snprintf(text.data(), text.size(), format.c_str(), value);
  return std::string(text.data(), static_cast<std::size_t>(length));
}

double RandomDouble(std::mt19937_64& random) {
  for (;;) {
    const std::uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (std::isfinite(value)) return value;
  }
}

}  // namespace

TEST(FloatFormat, AgreesWithPrintf) {
  using Limits = std::numeric_limits<double>;
  std::vector<double> values = {
      0.0,         -0.0,  1.0,    -1.5,          0.1,           2.5, 1e5, 1e6, 1e-4, 0.000099999995,
      123456789.0, 1e100, 5e-324, Limits::max(), Limits::min(), 0.5, 3.5};
  std::mt19937_64 random(7);
  for (int i = 0; i < 20; ++i) values.push_back(RandomDouble(random));
  for (const char* const flags : {"", "-", "+", " ", "#", "0", "+0", "-0", "# ", "-+#0 "}) {
    for (const char* const field : {"", "1", "12", "30", ".", ".0", ".1", ".7", "20.3", "9.17"}) {
      for (const char letter : std::string("aAeEfFgG")) {
        const std::string format = std::string("%") + flags + field + letter;
        for (const double value : values) {
          EXPECT_EQ(FormatFloat(value, Wide(format)), WidenAscii(ByC(format, value)))
              << format << " of " << value;
        }
      }
    }
  }
  // Some C libraries drop the zeros when rounding adds a digit before the point.
  EXPECT_EQ(FormatFloat(999999.5, u"%#g"), u"1.00000e+06");
  EXPECT_EQ(FormatFloat(999.9, u"%#.3G"), u"1.00E+03");
  EXPECT_EQ(FormatFloat(99.96, u"%#.3g"), u"100.");
  EXPECT_EQ(FormatFloat(1.0, u"%.1100f"), WidenAscii(ByC("%.1100f", 1.0)));
  EXPECT_EQ(FormatFloat(-1.0, u"%9999.9999e").size(), 10006u);
}

TEST(FloatFormat, KeepsTextAroundTheConversion) {
  EXPECT_EQ(FormatFloat(12.345, u"%%%.2f%% \u20ac%%"), u"%12.35% \u20ac%");
  EXPECT_EQ(FormatFloat(2.0, u"about %lg m"), u"about 2 m");
  EXPECT_EQ(FormatFloat(2.0, WStringView(u"%g\0%s", 5)), u"2");
}

TEST(FloatFormat, RefusesEveryOtherFormat) {
  ForEachRow("values/conversions.txt", "bad number formats", [](const WString& format) {
    EXPECT_EQ(Outcome([&] { FormatFloat(1, format); }),
              u"!InvalidValue Invalid number format [" + format + u"]");
  });
}
