#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ReportTestSupport.h"
#include "reports/ReportText.h"
#include "reports/ResultTables.h"

namespace pescavo::test {
namespace {

std::vector<std::string> labelsOf(const std::vector<PieSlice>& slices) {
  std::vector<std::string> labels;
  for (const PieSlice& slice : slices) labels.push_back(slice.label);
  return labels;
}

TEST(PieSlices, SevenNonZeroValuesFoldTheSmallestIntoOther) {
  int z = -1;
  const auto slices = pieSlices({0, 5, 1, 2, 3, 4, 6, 7, 0},
                                {"z1", "e", "a", "b", "c", "d", "f", "g", "z2"}, '.', z);
  EXPECT_EQ(z, 2);
  EXPECT_EQ(labelsOf(slices),
            (std::vector<std::string>{"g(7.00 %)", "f(6.00 %)", "e(5.00 %)", "d(4.00 %)",
                                      "c(3.00 %)", "Other(3.00 %)"}));
  EXPECT_DOUBLE_EQ(slices[5].value, 3);  // 2 + 1
}

TEST(PieSlices, EightNonZeroValuesKeepTheTotal) {
  int z = -1;
  const auto slices = pieSlices({1.5, 2.5, 10, 20, 30, 15, 12, 9},
                                {"a", "b", "c", "d", "e", "f", "g", "h"}, ',', z);
  EXPECT_EQ(z, 0);
  ASSERT_EQ(slices.size(), 6u);
  EXPECT_EQ(slices[5].label, "Other(13,00 %)");  // 9 + 1.5 + 2.5
  double total = 0;
  for (const PieSlice& slice : slices) total += slice.value;
  EXPECT_DOUBLE_EQ(total, 100);
}

TEST(PieSlices, SixNonZeroValuesHaveNoOther) {
  int z = -1;
  const auto slices = pieSlices({0, 1, 2, 3, 4, 5, 6}, {"z", "a", "b", "c", "d", "e", "f"}, '.', z);
  EXPECT_EQ(z, 1);
  EXPECT_EQ(labelsOf(slices), (std::vector<std::string>{"f(6.00 %)", "e(5.00 %)", "d(4.00 %)",
                                                        "c(3.00 %)", "b(2.00 %)", "a(1.00 %)"}));
}

TEST(PieSlices, FiveNonZeroValuesAndAllZero) {
  int z = -1;
  auto slices = pieSlices({5, 0, 4, 3, 2, 1}, {"a", "z", "b", "c", "d", "e"}, '.', z);
  EXPECT_EQ(z, 1);
  EXPECT_EQ(labelsOf(slices), (std::vector<std::string>{"a(5.00 %)", "b(4.00 %)", "c(3.00 %)",
                                                        "d(2.00 %)", "e(1.00 %)"}));
  slices = pieSlices({0, 0, 0}, {"a", "b", "c"}, '.', z);
  EXPECT_EQ(z, 3);
  EXPECT_TRUE(slices.empty());
}

TEST(PieSlices, EqualValuesKeepTheirListOrder) {
  int z = -1;
  // Ascending and stable, drawn from the end: the later of two equal values comes first.
  const auto slices = pieSlices({2, 1, 2, 1}, {"a", "b", "c", "d"}, '.', z);
  EXPECT_EQ(labelsOf(slices),
            (std::vector<std::string>{"c(2.00 %)", "a(2.00 %)", "d(1.00 %)", "b(1.00 %)"}));
}

class ResultTablesTest : public ::testing::Test {
 protected:
  // Wheat and rapeseed meal with PC, CC and F; S = 1.25 * 60 + 0.5 * 20 = 85.
  void build(char sep) {
    model = std::make_unique<MainWindowModel>(dialogs, sep);
    setUpTables(*model, "Substance A");
    model->fischfutter2 = {entry("Wheat (grain)", "Cereal Grains/ Crop Seeds", "0"),
                           entry("Rapeseed (meal)", "By-Products", "1")};
    // An older entry with the same text comes first: the later one holds the stored figures.
    model->fischfutter1 = {model->fischfutter2[0], model->fischfutter2[0], model->fischfutter2[1]};
    WorkingSetEntry stale;
    stale.protein = 99;
    WorkingSetEntry wheat;
    wheat.protein = 12.5;
    wheat.lipid = 2.1;
    wheat.residue = 1.1;
    wheat.dm = 88;
    WorkingSetEntry rapeseed;
    rapeseed.protein = 38;
    rapeseed.lipid = 3.5;
    rapeseed.residue = 0.5;
    model->workingSet = {stale, wheat, rapeseed};
    OptimisationProblem& p = model->problem;
    p.n = 5;
    p.maxInclusion = {40, 25, 100, 100, 100};
    p.dryMatter = {88, 0, 0, 0, 0};
    p.residue = {1.25, 0.5, 0, 0, 0};
    model->result.composition = {60, 20, 12.5, 5.25, 2.25, 0, 0, 0};
    model->result.burden = 0.85;
    model->report.burdenSum = 85;
  }

  RecordingDialogs dialogs;
  std::unique_ptr<MainWindowModel> model;
};

TEST_F(ResultTablesTest, CompositionTableCells) {
  build(',');
  const auto rows = compositionTable(*model);
  ASSERT_EQ(rows.size(), 6u);
  EXPECT_EQ(rows[0], (CompositionRow{"Category", "Crop (Commodity)", "CP (%)", "CL (%)", "max (%)",
                                     "Residue input value", "Residue value (mg/kg)",
                                     "Feed composition (%)", "Dietary load (%)"}));
  EXPECT_EQ(rows[1], (CompositionRow{"Cereal Grains/ Crop Seeds", "Wheat (grain)", "12,5 ", "2,1 ",
                                     "40,00 ", "STMR ", "1,1 ", "60,00 ", "88,24 "}));
  EXPECT_EQ(rows[2], (CompositionRow{"By-Products", "Rapeseed (meal)", "38 ", "3,5 ", "25,00 ",
                                     "STMR-P ", "0,5 ", "20,00 ", "11,76 "}));
  EXPECT_EQ(rows[3], (CompositionRow{"Fish meal ", "", "64,00", "10,00", "100,00", "-", "0",
                                     "12,50", "0,00"}));
  EXPECT_EQ(rows[4],
            (CompositionRow{"CC ", "", "0,10", "0,10", "100,00", "-", "0", "5,25", "0,00"}));
  EXPECT_EQ(rows[5],
            (CompositionRow{"F", "", "0,00", "100,00", "100,00", "-", "0", "2,25", "0,00"}));
}

TEST_F(ResultTablesTest, OnlyEnabledPseudoRowsInOrder) {
  build('.');
  model->check1 = false;
  model->check4 = false;
  model->problem.n = 3;  // F is variable 3
  model->result.composition = {60, 20, 20, 0, 0, 0};
  const auto rows = compositionTable(*model);
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows[3][0], "F");
  EXPECT_EQ(rows[3][7], "20.00");
}

TEST_F(ResultTablesTest, ColumnWidthsAndAlignment) {
  EXPECT_EQ(compositionColumnWidths(1540),
            (std::array<int, 9>{385, 385, 140, 140, 140, 257, 308, 308, 220}));
  EXPECT_TRUE(compositionCellCentred(0, 0));
  EXPECT_FALSE(compositionCellCentred(3, 1));
  EXPECT_TRUE(compositionCellCentred(3, 2));
}

TEST_F(ResultTablesTest, FeedCompositionAndDietaryLoadCharts) {
  build('.');
  PieChart chart = Diagrammzeichnen(*model, kFeedComposition);
  EXPECT_EQ(chart.title, "Worst case feed composition regarding Common carp");
  EXPECT_EQ(chart.footnote, "Maximum content dietary burden based on Substance A is 0.850 mg/kg.");
  EXPECT_EQ(labelsOf(chart.slices),
            (std::vector<std::string>{"Wheat (grain)(60.00 %)", "Rapeseed (meal)(20.00 %)",
                                      "Fish meal (64.00% protein, 10.00% lipid) (12.50 %)",
                                      "CC ( 0.1% protein, 0.1% lipid) (5.25 %)",
                                      "F ( 100% lipid) (2.25 %)"}));

  chart = Diagrammzeichnen(*model, kDietaryLoad);
  EXPECT_EQ(chart.title, "Dietary load regarding Common carp");
  EXPECT_EQ(chart.zeroCount, 3);
  EXPECT_EQ(labelsOf(chart.slices),
            (std::vector<std::string>{"Wheat (grain)(88.24 %)", "Rapeseed (meal)(11.76 %)"}));

  model->minMax = 1;
  model->fischarten = 1;
  chart = Diagrammzeichnen(*model, kFeedComposition);
  EXPECT_EQ(chart.title, "Best case feed composition regarding Rainbow trout");
  EXPECT_EQ(chart.footnote.rfind("Minimum content dietary burden", 0), 0u);
}

}  // namespace
}  // namespace pescavo::test
