#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "ReportTestSupport.h"
#include "reports/ReportText.h"
#include "reports/ResultTables.h"

namespace pescavo::test {
namespace {

// Carp with wheat (DM 88, STMR) and rapeseed meal (DM 0, STMR-P), then the enabled
// pseudo-components with fixed shares; S = 1.25 * 60 + 0.5 * 20 = 85.
void setUpFeed(MainWindowModel& m, bool pc, bool cc, bool f) {
  m.table.addSubstance("Substance A");
  m.species = {{"Common carp", 7.5, 30}, {"Rainbow trout", 20, 42}};
  m.fishmeal = {{60, 8}, {62, 9}, {64, 10}};
  m.schadstoff = 0;
  std::tie(m.check1, m.check4, m.check5) = std::tie(pc, cc, f);
  m.fischfutter2 = {{"Wheat (grain)", "Wheat (grain)", "Cereal Grains/ Crop Seeds", "0"},
                    {"Rapeseed (meal)", "Rapeseed (meal)", "By-Products", "1"}};
  // An older entry with the same text comes first: the later one holds the stored figures.
  m.fischfutter1 = {m.fischfutter2[0], m.fischfutter2[0], m.fischfutter2[1]};
  m.workingSet = {
      {0, 99, 9, 0, 0, 0, ""}, {2.1, 12.5, 1.1, 0, 0, 88, ""}, {3.5, 38, 0.5, 0, 0, 0, ""}};
  m.problem.maxInclusion = {40, 25, 100, 100, 100};
  m.problem.dryMatter = {88, 0};
  m.problem.residue = {1.25, 0.5};
  m.result.composition = {60, 20};
  for (const auto& [use, share] : {std::pair{pc, 12.5}, std::pair{cc, 5.25}, std::pair{f, 2.25}})
    if (use) m.result.composition.push_back(share);
  m.problem.n = static_cast<int>(m.result.composition.size());
  m.result.burden = 0.85;
}

TEST(ReportText, SingleModeTextForEveryPseudoCombinationAndBothSeparators) {
  RecordingDialogs dialogs;
  for (int mask = 0; mask < 8; ++mask) {
    for (const char sep : {'.', ','}) {
      SCOPED_TRACE("pseudo mask " + std::to_string(mask) + " separator " + sep);
      const bool pc = mask & 1, cc = mask & 2, f = mask & 4;
      MainWindowModel m(dialogs, sep);
      setUpFeed(m, pc, cc, f);
      m.minMax = sep == ',' ? 1 : 0;
      Berichtschreiben(m);
      EXPECT_EQ(
          m.report.bericht,
          header("Substance A") + "\r\n" +
              expectedSection(
                  {{"Wheat (grain)", "40.00", "88.0", "1.100", "STMR", "1.250", "60.00", "88.24"},
                   {"Rapeseed (meal)", "25.00", "-", "0.500", "STMR-P", "0.500", "20.00", "11.76"}},
                  {pc, cc, f}, {"12.50", "5.25", "2.25"}, sep == ',' ? "Minimum" : "Maximum",
                  "0.850", {"7.50", "30.00", "64.00"}, sep));
      EXPECT_DOUBLE_EQ(m.report.burdenSum, 85);
      EXPECT_FALSE(m.report.mainWindowEnabled);
      EXPECT_EQ(m.report.ergebnisGrid.size(), 3u + pc + cc + f);
    }
  }
}

std::string labelsOf(const std::vector<PieSlice>& slices) {
  std::string labels;
  for (const PieSlice& slice : slices) labels += slice.label + "|";
  return labels;
}

TEST(PieSlices, LargestFiveAndOtherInStableOrder) {
  const std::tuple<std::vector<double>, int, std::string> cases[] = {
      {{0, 5, 1, 2, 3, 4, 6, 7, 0},
       2,
       "h(7,00 %)|g(6,00 %)|b(5,00 %)|f(4,00 %)|e(3,00 %)|Other(3,00 %)|"},
      {{0, 1, 2, 3, 4, 5, 6}, 1, "g(6,00 %)|f(5,00 %)|e(4,00 %)|d(3,00 %)|c(2,00 %)|b(1,00 %)|"},
      {{5, 0, 4, 3, 2, 1}, 1, "a(5,00 %)|c(4,00 %)|d(3,00 %)|e(2,00 %)|f(1,00 %)|"},
      {{0, 0, 0}, 3, ""},
      // Ascending and stable, drawn from the end: the later of two equal values comes first.
      {{2, 1, 2, 1}, 0, "c(2,00 %)|a(2,00 %)|d(1,00 %)|b(1,00 %)|"}};
  for (const auto& [values, zeroCount, expected] : cases) {
    std::vector<std::string> names;  // a, b, c, ... by position
    for (size_t i = 0; i < values.size(); ++i) names.push_back(std::string(1, char('a' + i)));
    int zeros = -1;
    const auto slices = pieSlices(values, names, ',', zeros);
    EXPECT_EQ(zeros, zeroCount);
    EXPECT_EQ(labelsOf(slices), expected);
  }
}

TEST(ResultTables, CompositionTableAndCharts) {
  RecordingDialogs dialogs;
  MainWindowModel m(dialogs, ',');
  setUpFeed(m, true, true, true);
  m.report.burdenSum = 85;
  const std::vector<CompositionRow> expected = {
      {"Cereal Grains/ Crop Seeds", "Wheat (grain)", "12,5 ", "2,1 ", "40,00 ", "STMR ", "1,1 ",
       "60,00 ", "88,24 "},
      {"By-Products", "Rapeseed (meal)", "38 ", "3,5 ", "25,00 ", "STMR-P ", "0,5 ", "20,00 ",
       "11,76 "},
      {"Fish meal ", "", "64,00", "10,00", "100,00", "-", "0", "12,50", "0,00"},
      {"CC ", "", "0,10", "0,10", "100,00", "-", "0", "5,25", "0,00"},
      {"F", "", "0,00", "100,00", "100,00", "-", "0", "2,25", "0,00"}};
  const auto rows = compositionTable(m);
  EXPECT_EQ(std::vector<CompositionRow>(rows.begin() + 1, rows.end()), expected);

  PieChart chart = Diagrammzeichnen(m, kFeedComposition);
  EXPECT_EQ(chart.title, "Worst case feed composition regarding Common carp");
  EXPECT_EQ(chart.footnote, "Maximum content dietary burden based on Substance A is 0,850 mg/kg.");
  EXPECT_EQ(labelsOf(chart.slices),
            "Wheat (grain)(60,00 %)|Rapeseed (meal)(20,00 %)|Fish meal (64,00% protein, 10,00% "
            "lipid) (12,50 %)|CC ( 0.1% protein, 0.1% lipid) (5,25 %)|F ( 100% lipid) (2,25 %)|");
  chart = Diagrammzeichnen(m, kDietaryLoad);
  EXPECT_EQ(chart.title, "Dietary load regarding Common carp");
  EXPECT_EQ(chart.zeroCount, 3);
  EXPECT_EQ(labelsOf(chart.slices), "Wheat (grain)(88,24 %)|Rapeseed (meal)(11,76 %)|");
  m.minMax = 1;
  EXPECT_EQ(Diagrammzeichnen(m, kFeedComposition).title,
            "Best case feed composition regarding Common carp");
  m.report.burdenSum = 0;  // all residues zero: no load, and no NaN slices
  EXPECT_TRUE(Diagrammzeichnen(m, kDietaryLoad).slices.empty());
}

}  // namespace
}  // namespace pescavo::test
