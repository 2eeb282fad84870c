#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ReportTestSupport.h"
#include "reports/RtfWriter.h"
#include "reports/ScenarioSweep.h"
#include "reports/TextFiles.h"

namespace pescavo::test {
namespace {

const std::string kMrbd = "\"maximum reasonable balanced diet (MRBD)\"";
const std::string kNotSolvable =
    "The problem is not solvable. Add more or try different components.";
// Runs 2k - 1 and 2k of scenario k; the second is followed by " - " and the MRBD caption.
const char* const kHeadings[8][2] = {
    {"Scenario 1: Without PC, CC, F ", "Scenario 2: Without PC, CC, F "},
    {"Scenario 3: PC used", "Scenario 4: PC"},
    {"Scenario 5: CC used", "Scenario 6: CC used with "},
    {"Scenario 7: F used ", "Scenario 8: F used with "},
    {"Scenario 9: PC and CC used ", "Scenario 10: PC and CC used with "},
    {"Scenario 11: PC and F used ", "Scenario 12: PC and F used with "},
    {"Scenario 13: CC and F used ", "Scenario 14: CC and F used with "},
    {"Scenario 15:PC, CC and F used ", "Scenario 16: PC, CC and F used with "}};
const int kPseudoMasks[8] = {0, 1, 2, 4, 3, 5, 6, 7};  // PC 1, CC 2, F 4

std::string heading(int run) {
  const std::string rule(70, '_');
  return "\r\n" + rule + "\r\n\r\n" + kHeadings[(run - 1) / 2][(run - 1) % 2] +
         (run % 2 == 1 ? "" : " - " + kMrbd) + "\r\n\r\n\r\n" + rule + "\r\n\r\n";
}

// X alone, except with every pseudo-component and the limits on.
std::string xSection(int mask, bool mrbd) {
  const bool all = mask == 7 && mrbd;
  return expectedSection({{"X (feed)", mrbd ? "50.00" : "100.00", "80.0", "1.600", "STMR-P",
                           "2.000", all ? "50.00" : "100.00", "100.00"}},
                         {(mask & 1) != 0, (mask & 2) != 0, (mask & 4) != 0},
                         all ? Three{"30.74", "17.35", "1.91"} : Three{"0.00", "0.00", "0.00"},
                         "Maximum", all ? "1.000" : "2.000", {"10.00", "40.00", "65.00"}, '.');
}

// Per solvable run what the text held since the last one (headings of unsolvable runs
// included), each with one more CR LF.
std::string expectedReportFile() {
  std::string file = " \r\n", pending;
  for (int k = 1; k <= 8; ++k) {
    file += pending + heading(2 * k - 1) + xSection(kPseudoMasks[k - 1], false) + "\r\n";
    pending = heading(2 * k) + (k < 8 ? kNotSolvable + "\r\n\r\n" : "");
  }
  return file + pending + xSection(7, true) + "\r\n";
}

std::string expectedSummary(const std::string& odd, const std::string& last) {
  std::string s = "REPORT\r\n\r\nScenario\tMaximum Residue Value\r\n" + std::string(41, '_');
  s += "\r\n\r\n";
  for (int r = 1; r <= 16; ++r) {
    const std::string value = r == 16 ? last : r % 2 == 1 ? odd : "-";
    s += "   " + std::to_string(r) + "\t          \t" + value + "\r\n";
  }
  return s;
}

// One component X (lipid 10, protein 40: the carp targets exactly; residue 1.6 at DM 80, so
// 2 mg/kg of dry matter; at most 50 %). Without limits X alone is optimal in every scenario.
// With them only scenario 8 is feasible: X 50 %, CC = 0.5 / 2.882, PC = 1.772 CC, F = 0.11 CC.
class ScenarioSweepTest : public ::testing::Test {
 protected:
  void SetUp() override { build(80, 1.6); }

  void build(double dm, double residue) {
    model = std::make_unique<MainWindowModel>(dialogs, '.');
    model->table.addSubstance("Substance A");
    for (int i = 0; i < 3; ++i) model->table.addComponent(FeedComponent());
    model->schadstoff = 0;
    model->species = {{"Common carp", 10, 40}, {"Rainbow trout", 20, 42}};
    model->fishmeal = {{60, 8}, {62, 9}, {65, 10}};
    model->report.reportFolder = folder.file();
    model->fischfutter2 = {{"X (feed)", "X (feed)", "Fat", "1"}};
    model->fischfutter1 = model->fischfutter2;
    model->workingSet = {{10, 40, residue, 50, 50, dm, ""}};
  }

  std::string reportFile() const { return txt_ReadAll(folder.file("Report.txt")); }

  RecordingDialogs dialogs;
  TempFolder folder;
  std::unique_ptr<MainWindowModel> model;
};

TEST_F(ScenarioSweepTest, ReportFilesSummaryFullReportDoneAndDetails) {
  model->check1 = model->check2 = model->check5 = false;
  ASSERT_TRUE(Optimierung2_Click(*model));
  EXPECT_EQ(reportFile(), expectedReportFile());
  EXPECT_EQ(txt_ReadAll(folder.file("Report.rtf")),
            RtfWriter::document(heading(16) + xSection(7, true)));
  const std::string summary = expectedSummary("2.000", "1.000");
  EXPECT_EQ(model->report.scenarioSummary, summary);
  // The options are as before; problem and result stay those of run 16.
  EXPECT_EQ((std::array{model->check1, model->check2, model->check4, model->check5}),
            (std::array{false, false, true, false}));
  EXPECT_EQ(model->problem.n, 4);

  const std::string h = header("Substance A");
  const std::string once = h + summary + expectedReportFile() + "\r\n";
  EXPECT_EQ(openFullReportFile(*model), folder.file("Report.txt"));
  EXPECT_EQ(model->report.bericht, h + summary + "\r\n");
  EXPECT_EQ(reportFile(), once);
  openFullReportFile(*model);
  EXPECT_EQ(model->report.bericht, h + h + summary + "\r\n");
  EXPECT_EQ(reportFile(), h + h + summary + once + "\r\n");
  reportDone(*model);
  EXPECT_EQ(reportFile(), " \r\n");
  EXPECT_TRUE(model->report.mainWindowEnabled);
  EXPECT_EQ(model->report.headerText, "");

  // "Details" repeats one run and appends its section.
  ScenarioDetails details = runScenarioDetails(*model, 0);
  ASSERT_TRUE(details.shown);
  EXPECT_EQ(details.caption, "Report Szenario 1: Without PC, CC, F ");
  EXPECT_EQ(details.text, header("Substance A") + "\r\n" + xSection(0, false));
  EXPECT_EQ(reportFile(), " \r\n" + xSection(0, false) + "\r\n");

  details = runScenarioDetails(*model, 15);
  ASSERT_TRUE(details.shown);
  EXPECT_EQ(details.caption, "Report Szenario 16: PC, CC and F used  - " + kMrbd);

  EXPECT_FALSE(runScenarioDetails(*model, 3).shown);  // run 4 cannot meet the targets
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{kNotSolvable});  // the only message
}

TEST_F(ScenarioSweepTest, RunSevenAtDmZeroAndTheMinimumSummary) {
  build(0, 1.5);  // DM 0: the residue stays as entered
  ASSERT_TRUE(Optimierung2_Click(*model));
  EXPECT_EQ(model->report.scenarioSummary, expectedSummary("1.500", "0.750"));
  model->option1 = true;
  ASSERT_TRUE(Optimierung2_Click(*model));
  EXPECT_EQ(model->report.scenarioCells[0][2], "Minimum Residue Value");
  EXPECT_EQ(model->report.scenarioSummary.rfind(
                "Scenario\tMinimum Residue Value\r\n" + std::string(41, '_') + "\r\n\r\n   1\t", 0),
            0u);
}

TEST_F(ScenarioSweepTest, FileFailuresAndZeroResidues) {
  model->report.reportFolder = folder.file("missing");
  ASSERT_TRUE(Optimierung2_Click(*model));
  ASSERT_EQ(dialogs.messages.size(), 2u);  // once per file
  EXPECT_NE(dialogs.messages[0].find(folder.file("missing/Report.txt")), std::string::npos);
  EXPECT_NE(dialogs.messages[1].find(folder.file("missing/Report.rtf")), std::string::npos);
  build(80, 0);
  EXPECT_FALSE(Optimierung2_Click(*model));
  EXPECT_EQ(dialogs.messages.back(),
            "Values of pollutants are possiblibly all zero. Check the "
            "pollutants value and try again.");
  EXPECT_EQ(model->problem.n, 1);  // stopped in run 1

  txt_AppendLine(folder.file("a.txt"), "a\tb\nc \xC3\xA4\r\n");  // passed on untouched
  EXPECT_EQ(txt_ReadAll(folder.file("a.txt")), "a\tb\nc \xC3\xA4\r\n\r\n");
  EXPECT_THROW(txt_ReadAll(folder.file()), ReportFileError);  // a folder, no file
}

TEST(RtfWriter, EscapesAndRuns) {
  const std::pair<std::string, std::string> cases[] = {
      {"a\\b{c}", "a\\\\b\\{c\\}"},
      {"\r\r\n", "\\par\r\n\\par\r\n"},
      {" x\ty\r\nz\n", " x\\tab y\\par\r\nz\\par\r\n"},
      {"M\xC3\xA4is", "M\\u228?is"},
      {"\u20AC5", "\\u8364?5"},                     // euro sign before a digit
      {"\xEA\xB0\x80", "\\u-21504?"},               // beyond 0x7FFF: signed 16 bits
      {"\xF0\x9F\x98\x80", "\\u-10179?\\u-8704?"},  // surrogate pair
      // Bytes that are not UTF-8 are taken as the declared Windows code page.
      {"\xE4x", "\\'e4x"},
      {"\xC3", "\\'c3"},
      {"\x01", "\\'01"}};
  for (const auto& [text, expected] : cases) {
    std::string out;
    RtfWriter::escape(text, out);
    EXPECT_EQ(out, expected);
  }
  const RtfRun statement{"Maximum content dietary burden based on A is 0.200 mg/kg.", true, 255};
  const std::string rtf = RtfWriter::document({statement, RtfRun{"\r\nnext"}});
  EXPECT_EQ(rtf.rfind("{\\rtf1\\ansi\\ansicpg1252", 0), 0u);
  EXPECT_NE(rtf.find("{\\b\\cf1 Maximum content"), std::string::npos);
  EXPECT_NE(rtf.find("{\\cf2 \\par\r\nnext}"), std::string::npos);
  EXPECT_EQ(rtf.substr(rtf.size() - 3), "}\r\n");
}

}  // namespace
}  // namespace pescavo::test
