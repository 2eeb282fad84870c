#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

#include "tables/NumericText.h"

namespace pescavo {
namespace {

TEST(Zahl, CommaTolerantLeadingNumber) {
  const struct {
    const char* text;
    double value;
  } cases[] = {{"12,5", 12.5},    {"  12.5  ", 12.5},
               {"0.05\t", 0.05},  {"1 000", 1000},
               {"1\n2", 12},      {"1,234,5", 1.234},  // every comma a point; the 2nd point ends it
               {"-1,5E+2", -150}, {"", 0},
               {"abc", 0},        {"--5", 0},
               {"-", 0},          {".", 0}};
  for (const auto& c : cases) EXPECT_EQ(zahl(c.text), c.value) << c.text;
}

TEST(LeadingNumber, SignDigitsPointAndExponent) {
  const struct {
    const char* text;
    double value;
  } cases[] = {{"5 % protein", 5}, {"12,5", 12},       {"1.2.3", 1.2},  {"+5", 5},
               {"-.5", -0.5},      {"5.", 5},          {"007", 7},      {"1\r2", 1},
               {"1 2 . 5", 12.5},  {"2.5D-3", 0.0025}, {"2.5d3", 2500}, {"1E - 2", 0.01},
               {"1e", 1},          {"1E+", 1},         {"3Dx", 3},      {"1e-400", 0},
               {"&H1F", 31},       {"&hff", 255},      {"&O17", 15},    {"&o18", 1},
               {"&Hzz", 0},        {"&X1", 0},         {"&", 0}};
  for (const auto& c : cases) EXPECT_EQ(leadingNumber(c.text), c.value) << c.text;
  EXPECT_TRUE(std::isinf(leadingNumber("1e400")));
  EXPECT_TRUE(std::isinf(leadingNumber("-1e99999999999999999999")));
  EXPECT_EQ(leadingNumber(std::string(300, '9')), 1e300);
}

TEST(GeneralForm, PlainAndExponentForms) {
  const struct {
    double value;
    char separator;
    const char* text;
  } cases[] = {{12, '.', "12"},
               {12.5, ',', "12,5"},
               {0.1 + 0.2, '.', "0.3"},
               {1.0 / 3, '.', "0.333333333333333"},
               {2.0 / 3, '.', "0.666666666666667"},
               {-0.25, '.', "-0.25"},
               {-0.0, '.', "0"},
               {0.0001, '.', "0.0001"},
               {0.00001, '.', "1E-05"},
               {-0.000015, ',', "-1,5E-05"},
               {123456789012345.0, '.', "123456789012345"},
               {1e15, '.', "1E+15"},
               {1.5e20, '.', "1.5E+20"},
               {1e100, '.', "1E+100"},
               {9.9999999999999999e14, '.', "1E+15"},  // rounding carries over
               {DBL_MAX, '.', "1.79769313486232E+308"},
               {5e-324, '.', "5E-324"}};
  for (const auto& c : cases) EXPECT_EQ(generalForm(c.value, c.separator), c.text) << c.text;
}

// Any decimal of up to 15 significant digits comes back through zahl exactly, in at most
// 15 digits, with either separator.
TEST(GeneralForm, ReadsBackExactlyForDecimalsOfFifteenDigits) {
  std::mt19937_64 random(20261123);
  std::uniform_int_distribution<int> digit(0, 9);
  for (int k = 0; k < 20000; ++k) {
    std::string source = k % 2 ? "-" : "";
    source += static_cast<char>('1' + digit(random) % 9);
    source += '.';
    for (int d = 1 + static_cast<int>(random() % 15); d > 1; --d) source += '0' + digit(random);
    source += "E" + std::to_string(static_cast<int>(random() % 81) - 40);
    const double value = zahl(source);
    for (const char separator : {'.', ','}) {
      const std::string text = generalForm(value, separator);
      ASSERT_EQ(zahl(text), value) << source << " -> " << text;
      const std::string mantissa = text.substr(0, text.find('E'));
      const std::size_t first = mantissa.find_first_of("123456789");
      std::size_t digits = 0;
      for (std::size_t i = first; i < mantissa.size(); ++i)
        digits += std::isdigit(mantissa[i]) != 0;
      ASSERT_LE(digits, 15u) << text;
    }
  }
}

// Arbitrary doubles need up to 17 digits; 15 keep them within rounding, and a second pass
// changes nothing.
TEST(GeneralForm, ArbitraryDoublesRoundToFifteenDigitsStably) {
  std::mt19937_64 random(7);
  for (int k = 0; k < 20000; ++k) {
    const std::uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) continue;
    const std::string text = generalForm(value, '.');
    const double back = zahl(text);
    ASSERT_LE(std::fabs(back - value), std::fabs(value) * 5e-15) << text;
    ASSERT_EQ(generalForm(back, '.'), text);
  }
}

TEST(FixedForm, HalfAwayFromZeroOnTheFifteenDigitValue) {
  const struct {
    double value;
    const char* format;
    const char* text;
  } cases[] = {{0.0005, "0.000", "0.001"},
               {2.675, "0.00", "2.68"},
               {1.005, "0.00", "1.01"},
               {0.15, "0.0", "0.2"},
               {0.125, "0.0", "0.1"},
               {-1.5, "0", "-2"},
               {0.5, "0", "1"},
               {0.4999, "0", "0"},
               {9.9996, "0.000", "10.000"},
               {99.95, "0.0", "100.0"},
               {0, "0.00", "0.00"},
               {-0.0001, "0.000", "0.000"},
               {-1e-20, "0", "0"},
               {0.25, "0.000", "0.250"},
               {1234567.891, "0.0", "1234567.9"},
               {1e20, "0", "100000000000000000000"},
               {-12.3456, "0.000", "-12.346"}};
  for (const auto& c : cases) EXPECT_EQ(fixedForm(c.value, c.format, '.'), c.text) << c.value;
  EXPECT_EQ(fixedForm(3.14159, "0.00", ','), "3,14");
}

// Types keys into a numeric editor through the filter, inserting at the caret as an edit
// box does.
std::string typeInto(std::string text, int caret, const std::string& keys) {
  for (const char key : keys) {
    const std::optional<int> passed = filterKey(key, text, caret);
    if (!passed || *passed == 13) continue;
    if (*passed == 8) {
      if (caret > 0) text.erase(static_cast<std::size_t>(--caret), 1);
    } else {
      text.insert(static_cast<std::size_t>(caret++), 1, static_cast<char>(*passed));
    }
  }
  return text;
}

TEST(FilterKey, NumericEditorAcceptsDigitsAndPointsOnly) {
  EXPECT_EQ(typeInto("", 0, "1,5"), "1.5");
  EXPECT_EQ(typeInto("", 0, "-12a E3 "), "123");
  EXPECT_EQ(typeInto("", 0, "1.2.3"), "1.2.3");
  EXPECT_EQ(typeInto("25", 0, ",7"), "25.7");  // the comma moved the caret to the end
  EXPECT_EQ(typeInto("25", 2, "\b"), "2");
  std::string text = "4";
  int caret = 0;
  EXPECT_EQ(filterKey(13, text, caret), 13);
}

}  // namespace
}  // namespace pescavo
