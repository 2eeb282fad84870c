#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tables/NumericText.h"
#include "tables/TableCells.h"

namespace pescavo {
namespace {

// The texts of a list written "a|b|c".
std::vector<std::string> bars(const std::string& list) {
  std::vector<std::string> texts(1);
  for (const char c : list) {
    if (c == '|')
      texts.emplace_back();
    else
      texts.back().push_back(c);
  }
  return texts;
}

std::uint64_t bitsOf(double value) {
  std::uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

// A numeric cell holds one number or is refused (what it holds reads as zahl reads it, below).
TEST(NumberCell, OneNumberReadsAsZahlReadsItAnythingElseIsRefused) {
  for (const std::string& text : bars("12,5| 0 . 02 |- 5|+.5|5.|1 000|1d2|1D-2|4.9e-324|1e-400")) {
    ASSERT_TRUE(numberCell(text)) << text;
    EXPECT_EQ(bitsOf(*numberCell(text)), bitsOf(zahl(text))) << text;
  }
  for (const char* zero : {"-0", "-0.000", "-0e5", "0e999"}) {
    EXPECT_EQ(bitsOf(numberCell(zero).value_or(1)), bitsOf(0.0)) << zero;  // no negative zero
  }
  const auto refused = bars(
      "|   |high|NaN|nan|Inf|-Infinity|abc|0.21 mg/kg|1,234.5|1.2.3|1,5,0|&H10|&O17|0x10|1e400|"
      "-1e400|1E|1e+|E5|--1|+-1|12.5%|.|-|1 2e|5 % protein|1e5.5|1\xC2\xA0"
      "000|1\r|\xEF\xBC\x91");
  for (const std::string& text : refused) EXPECT_FALSE(numberCell(text)) << text;
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
