#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ReportTestSupport.h"
#include "reports/Credits.h"
#include "reports/RtfWriter.h"
#include "reports/ScenarioSweep.h"
#include "reports/TextFiles.h"

namespace pescavo::test {
namespace {

const std::string kRule70(70, '_');
const std::string kRule41(41, '_');
const std::string kMrbd = "\"maximum reasonable balanced diet (MRBD)\"";
const std::string kNotSolvable =
    "The problem is not solvable. Add more or try different components.\r\n\r\n";

const char* const kHeadings[17] = {
    "",
    "Scenario 1: Without PC, CC, F ",
    "Scenario 2: Without PC, CC, F  - \"maximum reasonable balanced diet (MRBD)\"",
    "Scenario 3: PC used",
    "Scenario 4: PC - \"maximum reasonable balanced diet (MRBD)\"",
    "Scenario 5: CC used",
    "Scenario 6: CC used with  - \"maximum reasonable balanced diet (MRBD)\"",
    "Scenario 7: F used ",
    "Scenario 8: F used with  - \"maximum reasonable balanced diet (MRBD)\"",
    "Scenario 9: PC and CC used ",
    "Scenario 10: PC and CC used with  - \"maximum reasonable balanced diet (MRBD)\"",
    "Scenario 11: PC and F used ",
    "Scenario 12: PC and F used with  - \"maximum reasonable balanced diet (MRBD)\"",
    "Scenario 13: CC and F used ",
    "Scenario 14: CC and F used with  - \"maximum reasonable balanced diet (MRBD)\"",
    "Scenario 15:PC, CC and F used ",
    "Scenario 16: PC, CC and F used with  - \"maximum reasonable balanced diet (MRBD)\"",
};

std::string heading(int run) {
  return "\r\n" + kRule70 + "\r\n\r\n" + kHeadings[run] + "\r\n\r\n\r\n" + kRule70 + "\r\n\r\n";
}

// One component X (lipid 10, protein 40: the carp targets exactly; DM 80, residue 1.6, so
// 2 mg/kg of dry matter; at most 50 % for carp). Without limits X alone is the optimum in
// every scenario. With limits only scenario 8 is feasible: X 50 %, then lipid and protein
// force CC = 0.5 / 2.882, PC = 1.772 CC and F = 0.11 CC.
class ScenarioSweepTest : public ::testing::Test {
 protected:
  void SetUp() override { build(80, 1.6); }

  void build(double dm, double residue) {
    model = std::make_unique<MainWindowModel>(dialogs, '.');
    setUpTables(*model, "Substance A");
    for (int i = 0; i < 3; ++i) model->table.addComponent(FeedComponent());
    model->species = {{"Common carp", 10, 40}, {"Rainbow trout", 20, 42}};
    model->fishmeal = {{60, 8}, {62, 9}, {65, 10}};
    model->report.reportFolder = folder.path();
    model->fischfutter1 = {entry("X (feed)", "Fat", "1")};
    WorkingSetEntry x;
    x.lipid = 10;
    x.protein = 40;
    x.residue = residue;
    x.dm = dm;
    x.maxCarp = 50;
    x.maxTrout = 50;
    model->workingSet = {x};
    model->fischfutter2 = model->fischfutter1;
  }

  static std::string section(bool pc, bool cc, bool f, bool mrbd) {
    const std::string fishmeal = "Fish meal (65.00% protein, 10.00% lipid)";
    const bool all = pc && cc && f && mrbd;
    std::string s = "INPUT\r\n=====\r\n\r\nTarget content for Common carp:\r\n";
    s += " Crude fat\t10.00%\r\n Crude protein\t40.00%\r\n\r\n";
    s += "Maximum principal content of components in the diet:\r\n";
    s += std::string(" X (feed)\t") + (mrbd ? "50.00%" : "100.00%") + "\r\n";
    if (pc) s += " " + fishmeal + " 100.00%\r\n";
    if (cc) s += " CC (0.1% protein,0.1 % lipid) 100.00%\r\n";
    if (f) s += " F (100 % lipid) 100.00%\r\n";
    s += "\r\nPercent dry matter of components:\r\n X (feed)\t80.0%\r\n";
    s += "\r\nSubstance A residues in the components:\r\n X (feed)\t1.600 mg/kg (STMR-P)\r\n";
    s += "\r\n\r\nSubstance A residues in the components (dry matter):\r\n";
    s += " X (feed)\t2.000 mg/kg (STMR-P \\dry matter)\r\n";
    if (pc) s += " " + fishmeal + "\t0.000 mg/kg.\r\n";
    if (cc) s += " CC (0.1% protein, 0.1% lipid )\t0.000 mg/kg.\r\n";
    if (f) s += " F (100% lipid )\t0.000 mg/kg.\r\n";
    s += "\r\n\r\nRESULTS\r\n=======\r\n\r\n";
    s += std::string("Maximum content dietary burden based on Substance A is ") +
         (all ? "1.000" : "2.000") + " mg/kg (dry matter).\r\n\r\n";
    s += "The respective composition of the feed is:\r\n";
    s += std::string(" X (feed)\t") + (all ? "50.00%" : "100.00%") + "\r\n";
    if (pc) s += " " + fishmeal + "\t" + (all ? "30.74%" : "0.00%") + "\r\n";
    if (cc)
      s += std::string(" CC (0.1% protein, 0.1% lipid)\t") + (all ? "17.35%" : "0.00%") + "\r\n";
    if (f) s += std::string(" F(100% lipid)\t") + (all ? "1.91%" : "0.00%") + "\r\n";
    s += "\r\n\r\nThe dietary load of Substance A caused by the individual components is:\r\n";
    s += " X (feed)\t100.00%\r\n";
    if (pc) s += " " + fishmeal + "\t0.00%\r\n";
    if (cc) s += " CC (0.1 % protein, 0.1% lipid)\t0.00%\r\n";
    if (f) s += " F (100% lipid)\t0.00%\r\n";
    return s;
  }

  // Report.txt after the sweep: the blank line, then per solvable run what the report text
  // held (the headings of unsolvable runs before it included), each with one more CR LF.
  static std::string expectedReportFile() {
    const bool pcOf[9] = {false, false, true, false, false, true, true, false, true};
    const bool ccOf[9] = {false, false, false, true, false, true, false, true, true};
    const bool fOf[9] = {false, false, false, false, true, false, true, true, true};
    std::string file = " \r\n";
    std::string pending;
    for (int k = 1; k <= 8; ++k) {
      file += pending + heading(2 * k - 1) + section(pcOf[k], ccOf[k], fOf[k], false) + "\r\n";
      pending = heading(2 * k) + (k < 8 ? kNotSolvable : "");
    }
    return file + pending + section(true, true, true, true) + "\r\n";
  }

  static std::string expectedSummary(const char* odd, const char* last) {
    std::string s = "REPORT\r\n\r\nScenario\tMaximum Residue Value\r\n" + kRule41 + "\r\n\r\n";
    for (int r = 1; r <= 16; ++r) {
      const std::string value = r == 16 ? last : r % 2 == 1 ? odd : "-";
      s += "   " + std::to_string(r) + "\t          \t" + value + "\r\n";
    }
    return s;
  }

  RecordingDialogs dialogs;
  TempFolder folder;
  std::unique_ptr<MainWindowModel> model;
};

TEST_F(ScenarioSweepTest, ReportFileTableAndSummaryAfterTheSweep) {
  ASSERT_TRUE(Optimierung2_Click(*model));
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_TRUE(model->allScenariosMode);
  EXPECT_EQ(txt_ReadAll(folder.file("Report.txt")), expectedReportFile());
  // Report.rtf holds only the last run's heading and section.
  EXPECT_EQ(txt_ReadAll(folder.file("Report.rtf")),
            RtfWriter::document(heading(16) + section(true, true, true, true)));
  EXPECT_EQ(model->report.bericht, "");
  EXPECT_EQ(model->report.berichtNeu.rfind(std::string(70, '-') + "\r\n\r\nPescavo concerning "
                                                                  "Substance A\r\n",
                                           0),
            0u);

  const auto& cells = model->report.scenarioCells;
  EXPECT_EQ(cells[0],
            (std::array<std::string, 4>{"Szenario", "Description", "Maximum Residue Value", ""}));
  EXPECT_EQ(cells[1][1], "Without PC, CC, F ");
  EXPECT_EQ(cells[2][1], "Without PC, CC, F - " + kMrbd);
  EXPECT_EQ(cells[5][1], "CC used  ");
  EXPECT_EQ(cells[6][1], "CC used with  - " + kMrbd);
  EXPECT_EQ(cells[16][1], "PC, CC and F used  - " + kMrbd);
  for (int r = 1; r <= 16; ++r) {
    EXPECT_EQ(cells[r][0], std::to_string(r));
    EXPECT_EQ(cells[r][2], r == 16 ? "1.000" : r % 2 == 1 ? "2.000" : "-") << "row " << r;
    EXPECT_EQ(model->report.scenarioAlignment[r],
              (std::array<int, 4>{kAlignCentre, kAlignLeft, kAlignCentre, 0}));
  }
  EXPECT_EQ(model->report.scenarioSummary, expectedSummary("2.000", "1.000"));
}

TEST_F(ScenarioSweepTest, SummaryLineOfRunSevenWithBurdenOnePointFive) {
  build(0, 1.5);  // DM 0: the residue stays as entered
  ASSERT_TRUE(Optimierung2_Click(*model));
  const std::string& summary = model->report.scenarioSummary;
  EXPECT_NE(summary.find("\r\n   7\t          \t1.500\r\n   8\t"), std::string::npos);
  EXPECT_EQ(summary, expectedSummary("1.500", "0.750"));
}

TEST_F(ScenarioSweepTest, MinimumHasNoReportLine) {
  model->option1 = true;
  ASSERT_TRUE(Optimierung2_Click(*model));
  EXPECT_EQ(model->minMax, 1);
  EXPECT_EQ(model->report.scenarioCells[0][2], "Minimum Residue Value");
  EXPECT_EQ(model->report.scenarioSummary.rfind(
                "Scenario\tMinimum Residue Value\r\n" + kRule41 + "\r\n\r\n   1\t", 0),
            0u);
}

TEST_F(ScenarioSweepTest, OptionsRestoredAndLastRunKept) {
  model->check1 = false;
  model->check2 = false;
  model->check4 = true;
  model->check5 = false;
  model->fischmehl = 1;
  model->fishmeal[1] = {65, 10};  // the sweep builds PC from the chosen grade
  ASSERT_TRUE(Optimierung2_Click(*model));
  EXPECT_FALSE(model->check1);
  EXPECT_FALSE(model->check2);
  EXPECT_TRUE(model->check4);
  EXPECT_FALSE(model->check5);
  EXPECT_EQ(model->fischmehl, 1);
  EXPECT_EQ(model->report.scenarioCells[16][2], "1.000");
  // Run 16: X, PC, CC and F with the limits on.
  EXPECT_EQ(model->problem.n, 4);
  EXPECT_DOUBLE_EQ(model->problem.maxInclusion[0], 50);
  EXPECT_NEAR(model->result.composition[0], 50, 1e-9);
  EXPECT_NEAR(model->result.burden, 1, 1e-9);
}

TEST_F(ScenarioSweepTest, OpenFullReportFileOnceAndTwice) {
  ASSERT_TRUE(Optimierung2_Click(*model));
  const std::string header = std::string(70, '-') + "\r\n\r\nPescavo concerning Substance A\r\n" +
                             kCreditLine + "\r\n(Version: 08-Mar-2018)\r\n\r\n" +
                             std::string(70, '-') + "\r\n\r\n";
  const std::string summary = expectedSummary("2.000", "1.000");
  const std::string afterSweep = expectedReportFile();

  EXPECT_EQ(openFullReportFile(*model), folder.file("Report.txt"));
  EXPECT_EQ(model->report.bericht, header + summary + "\r\n");
  const std::string once = header + summary + afterSweep + "\r\n";
  EXPECT_EQ(txt_ReadAll(folder.file("Report.txt")), once);

  openFullReportFile(*model);
  EXPECT_EQ(model->report.bericht, header + header + summary + "\r\n");
  EXPECT_EQ(txt_ReadAll(folder.file("Report.txt")), header + header + summary + once + "\r\n");

  reportDone(*model);
  EXPECT_EQ(txt_ReadAll(folder.file("Report.txt")), " \r\n");
  EXPECT_TRUE(model->report.mainWindowEnabled);
  EXPECT_EQ(model->report.headerText, "");
}

TEST_F(ScenarioSweepTest, ClosingWithoutDoneKeepsTheReportFile) {
  ASSERT_TRUE(Optimierung2_Click(*model));
  model->report.mainWindowEnabled = false;
  reportWindowUnloaded(*model);
  EXPECT_TRUE(model->report.mainWindowEnabled);
  EXPECT_EQ(txt_ReadAll(folder.file("Report.txt")), expectedReportFile());
}

TEST_F(ScenarioSweepTest, DetailsRepeatsOneRun) {
  ASSERT_TRUE(Optimierung2_Click(*model));
  const std::string before = txt_ReadAll(folder.file("Report.txt"));

  ScenarioDetails details = runScenarioDetails(*model, 0);
  ASSERT_TRUE(details.shown);
  EXPECT_EQ(details.caption, "Report Szenario 1: Without PC, CC, F ");
  const std::string run1 = section(false, false, false, false);
  EXPECT_EQ(details.text.substr(details.text.size() - run1.size()), run1);
  EXPECT_EQ(details.text.rfind(std::string(70, '-'), 0), 0u);
  EXPECT_EQ(txt_ReadAll(folder.file("Report.txt")), before + run1 + "\r\n");
  EXPECT_EQ(details.table.size(), 2u);
  EXPECT_EQ(details.feedComposition.slices.size(), 1u);
  EXPECT_EQ(details.dietaryLoad.title, "Dietary load regarding Common carp");

  details = runScenarioDetails(*model, 15);
  ASSERT_TRUE(details.shown);
  EXPECT_EQ(details.caption, "Report Szenario 16: PC, CC and F used  - " + kMrbd);
  EXPECT_EQ(details.table.size(), 5u);
  EXPECT_EQ(details.table[2][0], "Fish meal ");
  EXPECT_EQ(details.table[2][7], "30.74");
  EXPECT_TRUE(dialogs.messages.empty());

  // Run 4 cannot meet the targets: the single run says so and no window opens.
  details = runScenarioDetails(*model, 3);
  EXPECT_FALSE(details.shown);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0],
            "The problem is not solvable. Add more or try different components.");
}

TEST_F(ScenarioSweepTest, AllZeroResiduesStopTheSweep) {
  build(80, 0);
  model->check2 = false;
  model->fischmehl = 0;
  EXPECT_FALSE(Optimierung2_Click(*model));
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0],
            "Values of pollutants are possiblibly all zero. Check the pollutants value and try "
            "again.");
  EXPECT_FALSE(model->check2);
  EXPECT_TRUE(model->check1);
  EXPECT_EQ(model->fischmehl, 0);
  EXPECT_EQ(model->problem.n, 1);  // stopped in run 1
  EXPECT_FALSE(model->report.scenarioTableFilled);
  EXPECT_EQ(txt_ReadAll(folder.file("Report.txt")), " \r\n");
}

TEST_F(ScenarioSweepTest, NoComponentsChangesNothing) {
  model->fischfutter2.clear();
  EXPECT_FALSE(Optimierung2_Click(*model));
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{"Please add components."});
  EXPECT_FALSE(model->label1Red);
  EXPECT_FALSE(std::filesystem::exists(folder.file("Report.txt")));
}

TEST_F(ScenarioSweepTest, UnwritableFolderIsReportedOncePerFile) {
  model->report.reportFolder = folder.file("missing");
  ASSERT_TRUE(Optimierung2_Click(*model));
  ASSERT_EQ(dialogs.messages.size(), 2u);
  EXPECT_NE(dialogs.messages[0].find("Report.txt"), std::string::npos);
  EXPECT_NE(dialogs.messages[1].find("Report.rtf"), std::string::npos);
  EXPECT_EQ(model->report.scenarioCells[1][2], "2.000");
}

TEST(ScenarioTable, ColumnWidthsAndRunNumbers) {
  EXPECT_EQ(scenarioColumnWidths(8400), (std::array<int, 4>{700, 5600, 1400, 600}));
  EXPECT_EQ(scenarioRun(1, 0), 1);
  EXPECT_EQ(scenarioRun(4, 1), 8);
  EXPECT_EQ(scenarioRun(8, 1), 16);
}

}  // namespace
}  // namespace pescavo::test
