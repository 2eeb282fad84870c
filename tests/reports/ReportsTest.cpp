#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <string>
#include <tuple>
#include <vector>

#include "reports/ExpectedSection.h"
#include "reports/ReportText.h"
#include "reports/ReportValues.h"
#include "reports/ResultTables.h"
#include "reports/RtfWriter.h"

namespace pescavo::test {
namespace {

// Carp, wheat (DM 88, STMR), rapeseed meal (DM 0, STMR-P), pseudo shares fixed; S = 85.
ReportValues feedValues(int mask, bool minimum) {
  ReportValues v;
  v.substance = "Substance A", v.speciesName = "Common carp", v.burden = 0.85;
  v.lipidTarget = 10, v.proteinTarget = 40, v.fishmealProtein = 65, v.fishmealLipid = 10;
  v.maximum = !minimum, v.criterionText = minimum ? "Minimum content" : "Maximum content";
  ReportComponent wheat, rape;
  wheat.maxInclusion = 40, wheat.dryMatter = 88, wheat.residue = 1.25, wheat.share = 60;
  wheat.name = "Wheat (grain)", wheat.category = "Cereal Grains/ Crop Seeds";
  wheat.basisLabel = "STMR", wheat.protein = 12.5, wheat.lipid = 2.1, wheat.storedResidue = 1.1;
  rape.maxInclusion = 25, rape.dryMatter = 0, rape.residue = 0.5, rape.share = 20;
  rape.name = "Rapeseed (meal)", rape.category = "By-Products";
  rape.basisLabel = "STMR-P", rape.protein = 38, rape.lipid = 3.5, rape.storedResidue = 0.5;
  v.components = {wheat, rape};
  const VariableKind kinds[3] = {VariableKind::PC, VariableKind::CC, VariableKind::F};
  const double shares[3] = {12.5, 5.25, 2.25};
  for (int k = 0; k < 3; ++k) {
    if (!(mask >> k & 1)) continue;
    ReportPseudo pseudo;
    pseudo.kind = kinds[k], pseudo.maxInclusion = 100, pseudo.share = shares[k];
    v.pseudos.push_back(pseudo);
  }
  return v;
}

const std::vector<Row> kFeedRows = {
    {"Wheat (grain)", "40.00", "88.0", "1.100", "STMR", "1.250", "60.00", "88.24"},
    {"Rapeseed (meal)", "25.00", "-", "0.500", "STMR-P", "0.500", "20.00", "11.76"}};

std::string labelsOf(const std::vector<PieSlice>& slices) {
  std::string labels;
  for (const PieSlice& slice : slices) labels += slice.label + "|";
  return labels;
}

TEST(ReportText, SectionTableAndChartsForEveryPseudoCombinationAndBothSeparators) {
  for (int mask = 0; mask < 8; ++mask) {
    for (const char sep : {'.', ','}) {
      SCOPED_TRACE("pseudo mask " + std::to_string(mask) + " separator " + sep);
      const ReportValues values = feedValues(mask, sep == ',');
      std::string text = titleBlock(values.substance);
      const double sum = appendReportSection(values, sep, text);
      EXPECT_DOUBLE_EQ(sum, 85);
      EXPECT_EQ(text, kHeader + "\r\n" +
                          expectedSection(kFeedRows, mask, {"12.50", "5.25", "2.25"},
                                          sep == ',' ? "Minimum" : "Maximum", "0.850", sep));
      const std::vector<CompositionRow> grid = compositionTable(values, sum, sep);
      EXPECT_EQ(grid.size(), 3 + values.pseudos.size());
      if (mask != 7 || sep != ',') continue;

      std::string table;
      for (const CompositionRow& row : grid)
        for (const std::string& cell : row) table += cell + "|";
      EXPECT_EQ(
          table,
          "Category|Crop (Commodity)|CP (%)|CL (%)|max (%)|Residue input value|Residue value "
          "(mg/kg)|Feed composition (%)|Dietary load (%)|"
          "Cereal Grains/ Crop Seeds|Wheat (grain)|12,5 |2,1 |40,00 |STMR |1,1 |60,00 |88,24 |"
          "By-Products|Rapeseed (meal)|38 |3,5 |25,00 |STMR-P |0,5 |20,00 |11,76 |"
          "Fish meal ||65,00|10,00|100,00|-|0|12,50|0,00|CC ||0,10|0,10|100,00|-|0|5,25|0,00|"
          "F||0,00|100,00|100,00|-|0|2,25|0,00|");
      PieChart chart = Diagrammzeichnen(values, sum, kFeedComposition, sep);
      EXPECT_EQ(chart.title + "|" + chart.footnote + "|" + labelsOf(chart.slices),
                "Best case feed composition regarding Common carp|"
                "Minimum content dietary burden based on Substance A is 0,850 mg/kg.|"
                "Wheat (grain)(60,00 %)|Rapeseed (meal)(20,00 %)|Fish meal (65,00% protein, "
                "10,00% lipid) (12,50 %)|CC ( 0.1% protein, 0.1% lipid) (5,25 %)|F ( 100% lipid) "
                "(2,25 %)|");
      chart = Diagrammzeichnen(values, sum, kDietaryLoad, sep);
      EXPECT_EQ(
          chart.title + "|" + std::to_string(chart.zeroCount) + "|" + labelsOf(chart.slices),
          "Dietary load regarding Common carp|3|Wheat (grain)(88,24 %)|Rapeseed (meal)(11,76 %)|");
      EXPECT_EQ(Diagrammzeichnen(feedValues(mask, false), sum, kFeedComposition, sep).title,
                "Worst case feed composition regarding Common carp");
      // All residues zero: no load, and no NaN slices.
      EXPECT_TRUE(Diagrammzeichnen(values, 0, kDietaryLoad, sep).slices.empty());
    }
  }
}

TEST(PieSlices, LargestFiveAndOtherInStableOrder) {
  const std::tuple<std::vector<double>, int, std::string> cases[] = {
      {{0, 5, 1, 2, 3, 4, 6, 7},
       1,
       "h(7,00 %)|g(6,00 %)|b(5,00 %)|f(4,00 %)|e(3,00 %)|Other(3,00 %)|"},
      {{0, 1, 2, 3, 4, 5, 6}, 1, "g(6,00 %)|f(5,00 %)|e(4,00 %)|d(3,00 %)|c(2,00 %)|b(1,00 %)|"},
      {{5, 0, 4, 3, 2, 1}, 1, "a(5,00 %)|c(4,00 %)|d(3,00 %)|e(2,00 %)|f(1,00 %)|"},
      // Ascending and stable, drawn from the end: the later of two equal values comes first.
      {{2, 1, 2, 1}, 0, "c(2,00 %)|a(2,00 %)|d(1,00 %)|b(1,00 %)|"}};
  for (const auto& [values, zeroCount, expected] : cases) {
    int zeros = -1;  // labels beyond the values are dropped
    EXPECT_EQ(labelsOf(pieSlices(values, {"a", "b", "c", "d", "e", "f", "g", "h"}, ',', zeros)),
              expected);
    EXPECT_EQ(zeros, zeroCount);
  }
}

// On screen every column fits: the widths fill the visible width exactly and keep the design's
// proportions to within a pixel.
TEST(CompositionWidths, ScreenColumnsFillTheGridInTheDesignProportions) {
  const std::array<int, 9> design = compositionColumnWidths(100000),
                           screen = compositionScreenWidths(913);
  const double designTotal = std::accumulate(design.begin(), design.end(), 0.0);
  EXPECT_EQ(std::accumulate(screen.begin(), screen.end(), 0), 913);
  for (int c = 0; c < 9; ++c) EXPECT_NEAR(screen[c], design[c] * 913 / designTotal, 1.0) << c;
}

// The head names the font and the colours its runs take.
TEST(RtfWriter, DocumentHeadAndColouredRuns) {
  EXPECT_EQ(
      RtfWriter::document({{"Max", true, 255}, {"\r\nnext"}}),
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fmodern\\fcharset0 Courier New;}}"
      "\r\n{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green0\\blue0;}\r\n\\pard\\f0\\fs20 "
      "{\\b\\cf1 Max}{\\cf2 \\par\r\nnext}\r\n}\r\n");
}

// Long texts whose characters straddle the escape's blocks at every offset, and runs of one
// character (line ends grow six-fold), escape piece by piece as short texts do. Bytes that are
// not UTF-8 (lone lead bytes, one before ASCII, surrogates, beyond U+10FFFF, overlong) are
// code-page bytes; code points beyond 0x7FFF are signed 16 bits, beyond 0xFFFF a pair.
TEST(RtfWriter, LongTextsEscapeAsTheirPieces) {
  // clang-format off
  const std::pair<std::string, std::string> pieces[] = {
      {"\xC3\xA4", "\\u228?"}, {"\xE2\x82\xAC", "\\u8364?"}, {"\xEF\xBF\xBF", "\\u-1?"},
      {"\xF0\x9F\x98\x80", "\\u-10179?\\u-8704?"}, {"\xC3", "\\'c3"}, {"\xE2\x82", "\\'e2\\'82"},
      {"\xED\xA0\x80", "\\'ed\\'a0\\'80"}, {"\xF4\x90\x80\x80", "\\'f4\\'90\\'80\\'80"},
      {"\xC0\x80", "\\'c0\\'80"}, {"\r\n", "\\par\r\n"}, {"\r", "\\par\r\n"}, {"{", "\\{"},
      {"}", "\\}"}, {"\\", "\\\\"}, {"\n", "\\par\r\n"}, {"\t", "\\tab "},
      {"\x7F\x01", "\x7F\\'01"}, {"\xE4x", "\\'e4x"}, {"plain ", "plain "}};
  // clang-format on
  std::string text, escaped;
  for (int k = 0; k < 100; ++k)
    for (const auto& [piece, escape] : pieces) text += piece, escaped += escape;
  for (int shift = 0; shift < 4; ++shift) {
    std::string out = "kept|";
    RtfWriter::escape(std::string(shift, 'a') + text, out);
    EXPECT_TRUE(out == "kept|" + std::string(shift, 'a') + escaped) << "shifted by " << shift;
  }
  for (const auto& [piece, escape] : pieces) {
    std::string out, many, expected;
    for (int k = 0; k < 600; ++k) many += piece, expected += escape;
    RtfWriter::escape(many, out);
    EXPECT_TRUE(out == expected) << piece;
  }
  EXPECT_EQ(RtfWriter::document(text), RtfWriter::document(std::vector<RtfRun>{{text}}));
}

}  // namespace
}  // namespace pescavo::test
