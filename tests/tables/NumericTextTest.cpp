#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <tuple>

#include "tables/NumericText.h"

namespace pescavo {
namespace {

// zahl: every comma becomes a point, so in "1,234,5" the second point ends the number. Fixed
// forms round half away from zero on the value rounded to 15 significant digits.
TEST(NumericText, ZahlGeneralAndFixedForms) {
  // clang-format off
  const std::pair<const char*, double> cases[] = {
      {"12,5", 12.5}, {"  12.5  ", 12.5}, {"0.05\t", 0.05}, {"1 000", 1000}, {"1\n2", 12},
      {"1,234,5", 1.234}, {"-1,5E+2", -150}, {"", 0}, {"abc", 0}, {"--5", 0}, {".", 0},
      {"5 % protein", 5}, {"+5", 5}, {"-.5", -0.5}, {"1\r2", 1}, {"1 2 . 5", 12.5},
      {"2.5D-3", 0.0025}, {"2.5d3", 2500}, {"1E - 2", 0.01}, {"1e", 1}, {"3Dx", 3}, {"1e-400", 0},
      {"&H1F", 31}, {"&hff", 255}, {"&O17", 15}, {"&o18", 1}, {"&Hzz", 0}, {"&", 0}};
  const std::tuple<double, char, const char*> general[] = {
      {12, '.', "12"}, {12.5, ',', "12,5"}, {0.1 + 0.2, '.', "0.3"}, {-0.25, '.', "-0.25"},
      {1.0 / 3, '.', "0.333333333333333"}, {2.0 / 3, '.', "0.666666666666667"},
      {-0.0, '.', "0"}, {0.0001, '.', "0.0001"}, {0.00001, '.', "1E-05"},
      {-0.000015, ',', "-1,5E-05"}, {123456789012345.0, '.', "123456789012345"},
      {1e15, '.', "1E+15"}, {9.9999999999999999e14, '.', "1E+15"}, {1.5e20, '.', "1.5E+20"},
      {1.7976931348623157e308, '.', "1.79769313486232E+308"}, {5e-324, '.', "5E-324"}};
  const std::tuple<double, const char*, const char*> fixed[] = {
      {0.0005, "0.000", "0.001"}, {2.675, "0.00", "2.68"}, {1.005, "0.00", "1.01"},
      {0.15, "0.0", "0.2"}, {0.125, "0.0", "0.1"}, {-1.5, "0", "-2"}, {0.4999, "0", "0"},
      {9.9996, "0.000", "10.000"}, {99.95, "0.0", "100.0"}, {-0.0001, "0.000", "0.000"},
      {-1e-20, "0", "0"}, {0.25, "0.000", "0.250"}, {1e20, "0", "100000000000000000000"}};
  // clang-format on
  for (const auto& [text, value] : cases) EXPECT_EQ(zahl(text), value) << text;
  EXPECT_EQ(leadingNumber("12,5"), 12);
  EXPECT_TRUE(std::isinf(zahl("1e400")) && std::isinf(zahl("-1e99999999999999999999")));
  EXPECT_EQ(zahl(std::string(300, '9')), 1e300);
  for (const auto& [value, separator, text] : general)
    EXPECT_EQ(generalForm(value, separator), text) << text;
  for (const auto& [value, format, text] : fixed) EXPECT_EQ(fixedForm(value, format, '.'), text);
  EXPECT_EQ(fixedForm(3.14159, "0.00", ','), "3,14");
}

// Up to 15 significant digits read back exactly, in at most 15 digits, with either separator.
TEST(GeneralForm, RandomRoundTrips) {
  std::mt19937_64 random(20261123);
  for (int k = 0; k < 20000; ++k) {
    const std::string source = (k % 2 ? "-" : "") +
                               std::to_string((random() % 999999999999999 >> random() % 50) + 1) +
                               "E" + std::to_string(static_cast<int>(random() % 81) - 54);
    const double value = zahl(source);
    for (const char separator : {'.', ','}) {
      const std::string text = generalForm(value, separator);
      ASSERT_EQ(zahl(text), value) << source << " -> " << text;
      const std::string mantissa = text.substr(0, text.find('E'));
      const auto first = mantissa.begin() + mantissa.find_first_of("123456789");
      ASSERT_LE(std::count_if(first, mantissa.end(), ::isdigit), 15) << text;
    }
  }
}

TEST(FilterKey, NumericEditorTakesDigitsPointEnterAndBackspaceOnly) {
  std::string text = "25";
  int caret = 0;
  for (const char key : std::string("09.\b\r")) EXPECT_EQ(filterKey(key, text, caret), key);
  for (const char key : std::string("-+aE /:")) EXPECT_FALSE(filterKey(key, text, caret)) << key;
  EXPECT_EQ(text + "|" + std::to_string(caret), "25|0");
  EXPECT_FALSE(filterKey(',', text, caret));  // typed as a point at the end
  EXPECT_EQ(text + "|" + std::to_string(caret), "25.|3");
}

}  // namespace
}  // namespace pescavo
