#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "tables/DecimalSeparator.h"
#include "tables/NumericText.h"
#include "tables/TableCells.h"

namespace pescavo {
namespace {

// zahl: every comma becomes a point, so in "1,234,5" the second point ends the number. The
// fixed forms are judged against their plain definition below.
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
  // clang-format on
  for (const auto& [text, value] : cases) EXPECT_EQ(zahl(text), value) << text;
  EXPECT_EQ(leadingNumber("12,5"), 12);
  EXPECT_TRUE(std::isinf(zahl("1e400")) && std::isinf(zahl("-1e99999999999999999999")));
  EXPECT_EQ(zahl(std::string(300, '9')), 1e300);
  for (const auto& [value, separator, text] : general)
    EXPECT_EQ(generalForm(value, separator), text) << text;
  EXPECT_EQ(fixedForm(3.14159, "0.00", ','), "3,14");
}

// fixedForm written out plainly: printf's 15 significant digits, then half away from zero on
// the digit string.
std::string referenceFixed(double value, int decimals, char separator) {
  char text[64];
  std::snprintf(text, sizeof text, "%.14e", std::fabs(value));
  std::string digits = text[0] + std::string(text + 2, 14);
  int point = std::atoi(std::strchr(text, 'e') + 1) + 1;  // digits before the point
  if (point <= 0) {
    digits.insert(0, static_cast<std::size_t>(1 - point), '0');
    point = 1;
  }
  if (digits.size() < static_cast<std::size_t>(point + decimals + 1))
    digits.resize(static_cast<std::size_t>(point + decimals + 1), '0');
  std::string kept = "0" + digits.substr(0, static_cast<std::size_t>(point + decimals));
  if (digits[static_cast<std::size_t>(point + decimals)] >= '5') {
    std::size_t k = kept.size() - 1;
    for (; kept[k] == '9'; --k) kept[k] = '0';
    ++kept[k];
  }
  const std::size_t integerEnd = kept.size() - static_cast<std::size_t>(decimals);
  const std::size_t first = std::min(kept.find_first_not_of('0'), integerEnd - 1);
  std::string result = value < 0 && kept.find_first_not_of('0') != std::string::npos ? "-" : "";
  result += kept.substr(first, integerEnd - first);
  if (decimals > 0) result += separator + kept.substr(integerEnd);
  return result;
}

// Random decimal fractions, values a hair from a rounding tie, exact ties at the 15th digit,
// and the edges of the range held in integers (1e-8 and 1e15); writeFixedForm, where it
// writes, writes the same.
TEST(FixedForm, MatchesThePlainDefinition) {
  std::mt19937_64 random(20261123);
  std::vector<double> values = {0.0, -0.0, 5e-324, 1.7976931348623157e308};
  for (const double edge : {1e-8, 1e15, 999999999999999.5, 0.0005, 0.995, 99.995}) {
    double below = edge, above = edge;
    for (int k = 0; k < 200; ++k) {
      values.push_back(below = std::nextafter(below, 0.0));
      values.push_back(above = std::nextafter(above, 1e300));
    }
  }
  for (int k = 0; k < 40000; ++k) {
    double value = static_cast<double>(random() % 2000000000000000) / std::pow(10.0, random() % 20);
    if (k % 2) {  // an odd multiple of 2^-places with 16 significant digits: a tie at the 15th
      const int places = 1 + static_cast<int>(random() % 10);
      const auto low = static_cast<std::uint64_t>(std::ldexp(std::pow(10.0, 15 - places), places));
      value = std::ldexp(static_cast<double>((low + random() % (8 * low)) | 1), -places);
    }
    values.push_back(k % 4 < 2 ? -value : value);
  }
  const char* const formats[] = {"0", "0.0", "0.00", "0.000"};
  for (const double value : values) {
    if (!std::isfinite(value)) continue;
    for (int decimals = 0; decimals < 4; ++decimals) {
      const char separator = decimals % 2 ? ',' : '.';
      const std::string expected = referenceFixed(value, decimals, separator);
      ASSERT_EQ(fixedForm(value, formats[decimals], separator), expected) << std::hexfloat << value;
      char written[kFixedFormRoom];
      const std::size_t length = writeFixedForm(written, value, formats[decimals], separator);
      if (length != 0) {
        ASSERT_EQ(std::string(written, length), expected);
      }
    }
  }
}

// A comma decimal point is the only other separator the numeric texts know.
TEST(DecimalSeparator, CommaOrPointFromTheLocaleAndTheCLocaleLeftBehind) {
  EXPECT_EQ(decimalSeparatorOf(","), ',');
  for (const char* point : {".", "", static_cast<const char*>(nullptr), "\xD9\xAB"})
    EXPECT_EQ(decimalSeparatorOf(point), '.');

  // A user locale other than "C", so that one left in force shows.
  const char* before = std::getenv("LC_ALL");
  const std::string saved = before ? before : "";
  ::setenv("LC_ALL", "C.UTF-8", 1);
  EXPECT_EQ(userDecimalSeparator(), '.');
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
  before ? ::setenv("LC_ALL", saved.c_str(), 1) : ::unsetenv("LC_ALL");
}

TEST(FilterKey, NumericEditorTakesDigitsPointEnterAndBackspaceOnly) {
  std::string text = "25";
  int caret = 0;
  for (const char key : std::string("09.\b\r")) EXPECT_EQ(filterKey(key, text, caret), key);
  for (const char key : std::string("-+aE /:")) EXPECT_FALSE(filterKey(key, text, caret)) << key;
  EXPECT_FALSE(filterKey(',', text, caret));  // typed as a point at the end
  EXPECT_EQ(text + "|" + std::to_string(caret), "25.|3");
}

TEST(PlainDecimalText, ShortestTextThatReadsBackExactly) {
  // clang-format off
  const std::pair<double, const char*> cases[] = {
      {0, "0"}, {-0.0, "0"}, {12, "12"}, {12.5, "12.5"}, {0.1, "0.1"}, {-1, "-1"},
      {1e6, "1000000"}, {0.1 + 0.2, "0.30000000000000004"}, {0.00001, "0.00001"},
      {1e-7, "0.0000001"}, {1.5e-8, "1.5E-08"}, {123456789012345.0, "123456789012345"},
      {1e15, "1E+15"}, {2.5e-300, "2.5E-300"}};
  // clang-format on
  for (const auto& [value, text] : cases) EXPECT_EQ(plainDecimalText(value), text);
}

std::uint64_t bitsOf(double value) {
  std::uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

// A numeric cell holds one number or is refused (what it holds reads as zahl reads it, below).
TEST(NumberCell, OneNumberReadsAsZahlReadsItAnythingElseIsRefused) {
  for (const std::string text :
       {"12,5", " 0 . 02 ", "- 5", "+.5", "5.", "1 000", "1d2", "1D-2", "4.9e-324", "1e-400"}) {
    ASSERT_TRUE(numberCell(text)) << text;
    EXPECT_EQ(bitsOf(*numberCell(text)), bitsOf(zahl(text))) << text;
  }
  for (const char* zero : {"-0", "-0.000", "-0e5", "0e999"})  // no negative zero
    EXPECT_EQ(bitsOf(numberCell(zero).value_or(1)), bitsOf(0.0)) << zero;
  const char* const refused[] = {
      "",           "   ",     "high",        "NaN",   "nan",        "Inf",  "-Infinity",   "abc",
      "0.21 mg/kg", "1,234.5", "1.2.3",       "1,5,0", "&H10",       "&O17", "0x10",        "1e400",
      "-1e400",     "1E",      "1e+",         "E5",    "--1",        "+-1",  "12.5%",       ".",
      "-",          "1 2e",    "5 % protein", "1e5.5", "1\u00A0000", "1\r",  "\xEF\xBC\x91"};
  for (const std::string text : refused) EXPECT_FALSE(numberCell(text)) << text;
}

// Random cells of every form the grammar takes: numberCell matches zahl bit for bit, and the
// short reading of plain cells matches numberCell.
TEST(NumberCell, FastReadingsGiveZahlsBitsOnRandomCells) {
  std::mt19937_64 random(20240611);
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  const auto digits = [&](int count) {
    std::string text;
    for (int d = 0; d < count; ++d)
      text += static_cast<char>('0' + (below(3) == 0 ? 0 : below(10)));
    return text;
  };
  int accepted = 0, plain = 0;
  for (int k = 0; k < 300000; ++k) {
    std::string text;
    if (below(4) == 0) text += "-+"[below(2)];
    text += digits(below(4) == 0 ? below(25) : below(6));
    if (below(3) != 0) text += ".,"[below(4) == 0];
    text += digits(below(4) == 0 ? below(25) : below(8));
    if (below(5) == 0) {
      text += "EeDd"[below(4)];
      if (below(2)) text += "+-"[below(2)];
      text += std::to_string(below(4) == 0 ? below(400) : below(30));
    }
    if (below(10) == 0) text.insert(static_cast<std::size_t>(below(int(text.size()) + 1)), " ");
    const std::optional<double> value = numberCell(text);
    if (value) {
      ++accepted;
      ASSERT_EQ(bitsOf(*value), bitsOf(zahl(text))) << text;
    }
    const std::string cell = text + "\t";
    double fast = 0;
    if (const char* end = plainNumberCell(cell.data(), cell.data() + cell.size(), fast)) {
      ++plain;
      ASSERT_TRUE(value) << text;
      ASSERT_EQ(bitsOf(fast), bitsOf(*value)) << text;
      ASSERT_EQ(end, cell.data() + text.size()) << text;
    }
  }
  EXPECT_GT(plain, 50000);  // both readings were exercised
  EXPECT_GT(accepted, plain + 50000);
}

TEST(TableCells, AQuotedTextIsCutAfter40BytesBetweenCharacters) {
  // 39 ASCII bytes and a two-byte character across the cut: the character goes whole.
  EXPECT_EQ(quotedText(std::string(39, 'a') + "\xC3\xA4" + "bc"),
            "\"" + std::string(39, 'a') + "...\"");
  EXPECT_EQ(quotedText("short"), "\"short\"");
}

}  // namespace
}  // namespace pescavo
