#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "model/MainWindowModel.h"
#include "model/ReportRun.h"
#include "model/ScenarioSweep.h"
#include "reports/ExpectedSection.h"
#include "reports/RtfWriter.h"
#include "reports/TextFiles.h"
#include "support/ErringTables.h"
#include "support/RecordingDialogs.h"
#include "support/TempFolder.h"
#include "tables/FileReplacer.h"

namespace pescavo::test {
namespace {

const std::string kMrbd = "\"maximum reasonable balanced diet (MRBD)\"";
const char kNotSolvable[] = "The problem is not solvable. Add more or try different components.";
const int kPseudoMasks[8] = {0, 1, 2, 4, 3, 5, 6, 7};  // PC 1, CC 2, F 4

// Runs 2k - 1 and 2k are scenario k's; the second with the limits, named after the heading.
std::string heading(int run) {
  const Scenario& scenario = kScenarios[(run - 1) / 2];
  const std::string rule(70, '_');
  return "\r\n" + rule + "\r\n\r\nScenario " + std::to_string(run) +
         (run % 2 ? scenario.headingOff : scenario.headingOn + (" - " + kMrbd)) + "\r\n\r\n\r\n" +
         rule + "\r\n\r\n";
}

// X alone, except with every pseudo-component and the limits on (all).
std::string xSection(int mask, bool all = false) {
  const std::string p = all ? "50.00" : "100.00";
  return expectedSection({{"X (feed)", p, "80.0", "1.600", "STMR-P", "2.000", p, "100.00"}}, mask,
                         all ? Three{"30.74", "17.35", "1.91"} : Three{"0.00", "0.00", "0.00"},
                         "Maximum", all ? "1.000" : "2.000", '.');
}

// A solvable run appends the text since the last one (unsolvable headings too) and CR LF.
std::string expectedReportFile() {
  std::string file = " \r\n", pending;
  for (int k = 1; k <= 8; ++k) {
    file += pending + heading(2 * k - 1) + xSection(kPseudoMasks[k - 1]) + "\r\n";
    pending = heading(2 * k) + (k < 8 ? std::string(kNotSolvable) + "\r\n\r\n" : "");
  }
  return file + pending + xSection(7, true) + "\r\n";
}

std::string expectedSummary(const std::string& odd, const std::string& last) {
  const std::string values[3] = {"-", odd, last};
  std::string s =
      "REPORT\r\n\r\nScenario\tMaximum Residue Value\r\n" + std::string(41, '_') + "\r\n\r\n";
  for (int r = 1; r <= 16; ++r)
    s += "   " + std::to_string(r) + "\t          \t" + values[r == 16 ? 2 : r % 2] + "\r\n";
  return s;
}

// One component X (lipid 10, protein 40: the carp targets exactly; residue 1.6 at DM 80, so
// 2 mg/kg of dry matter; at most 50 %). Without limits X alone is optimal in every scenario.
// With them only scenario 8 is feasible: X 50 %, CC = 0.5 / 2.882, PC = 1.772 CC, F = 0.11 CC.
struct Sweep {
  Sweep() {
    ComponentTable table;
    table.addSubstance("Substance A");
    table.addComponent({"Fat", "X", "feed", "", 40, 10, 80, 50, 50});
    table.setResidue(1, 1, 1.6);
    table.setBasis(1, 1, 1);
    m.load(table, {{"Common carp", 10, 40}}, {{60, 8}, {62, 9}, {65, 10}});
    m.report().reportFolder = file();
    m.selection().alle_rein();
  }
  std::string reportFile() const { return txt_ReadAll(file("Report.txt")); }
  std::string file(const std::string& name = "") const { return folder.file(name); }

  TempFolder folder;
  RecordingDialogs dialogs;
  MainWindowModel m{dialogs, '.'};
};

// The labels above the report windows' tables and the print title follow the current species,
// with the regional decimal separator; a Details run hands them on with its check.
TEST(ScenarioSweep, ReportFilesSummaryFullReportDoneDetailsAndLabels) {
  Sweep s;
  s.m.options().setPseudoComponents({false, true, false});
  s.m.options().setMrbdLimits(false);
  ASSERT_TRUE(Optimierung2_Click(s.m));
  EXPECT_EQ(s.reportFile(), expectedReportFile());
  EXPECT_EQ(txt_ReadAll(s.file("Report.rtf")),
            RtfWriter::document(heading(16) + xSection(7, true)));
  const std::string summary = expectedSummary("2.000", "1.000");
  EXPECT_EQ(s.m.report().scenarioSummary, summary);
  EXPECT_FALSE(s.m.report().fileWriteFailed);
  // The options are as before; problem and result stay those of run 16.
  const MainWindowModel::PseudoComponents pseudo = s.m.options().pseudoComponents();
  EXPECT_EQ((std::array{pseudo.pc, s.m.options().mrbdLimits(), pseudo.cc, pseudo.f}),
            (std::array{false, false, true, false}));
  EXPECT_EQ(s.m.lastRun().problem().n, 4);

  const std::string once = kHeader + summary + expectedReportFile() + "\r\n";
  EXPECT_EQ(openFullReportFile(s.m), s.file("Report.txt"));
  EXPECT_EQ(s.m.report().bericht, kHeader + summary + "\r\n");
  EXPECT_EQ(s.reportFile(), once);
  openFullReportFile(s.m);
  EXPECT_EQ(s.reportFile(), kHeader + kHeader + summary + once + "\r\n");
  reportDone(s.m);
  EXPECT_EQ(s.reportFile(), " \r\n");
  EXPECT_TRUE(s.m.report().mainWindowEnabled && s.m.report().headerText.empty());

  const ScenarioDetails details = runScenarioDetails(s.m, 0);
  EXPECT_EQ(details.caption, "Report Szenario 1: Without PC, CC, F ");
  EXPECT_EQ(details.text, kHeader + "\r\n" + xSection(0));
  EXPECT_EQ(s.reportFile(), " \r\n" + xSection(0) + "\r\n");
  EXPECT_FALSE(runScenarioDetails(s.m, 3).shown);  // run 4 cannot meet the targets
  EXPECT_EQ(s.dialogs.messages, std::vector<std::string>{kNotSolvable});  // the only message

  s.m.setDecimalSeparator(',');
  const std::string title =
      "Pescavo - Substance: Substance A\tSpecies: Common carp(10,00% Lipid; 40,00% Protein)";
  EXPECT_EQ(reportLabels(s.m).printTitle, title);
  const ScenarioDetails third = runScenarioDetails(s.m, 2);
  EXPECT_EQ(std::tuple(third.labels.printTitle, third.verdict, third.checkSentence),
            std::tuple(title, CheckVerdict::Agrees, "Independent check: agrees."));
}

// A disk that takes writes until they would hold more than `room` bytes, then fails them all
// as a full disk does.
class SmallDisk : public FileReplacer {
 public:
  explicit SmallDisk(std::size_t room) : m_room(room) {}
  void replace(const std::string& path, std::initializer_list<std::string_view> pieces,
               NewFileMode mode) const override {
    std::size_t size = 0;
    for (std::string_view piece : pieces) size += piece.size();
    if (size > m_room) throw FileReplaceError(path, FileReplaceError::Step::Write, ENOSPC);
    m_room -= size;
    FileReplacer::disk().replace(path, pieces, mode);
  }

 private:
  mutable std::size_t m_room;
};

// Room for the first run's section, but neither for the whole report nor for the last run's
// rich text: a sweep that wrote run by run would leave the first runs alone in place of the
// old report. The next sweep starts afresh.
TEST(ScenarioSweep, AFullDiskKeepsTheReportsFromBeforeTheSweepByteForByte) {
  Sweep s;
  const std::string oldTxt = " \r\nold report\r\n", oldRtf = RtfWriter::document("old");
  txt_WriteAll(s.file("Report.txt"), " \r\nold report");
  RtfWriter::save(s.file("Report.rtf"), oldRtf);
  const std::size_t room = oldTxt.size() + heading(1).size() + xSection(0).size() + 2;
  ASSERT_LT(room, RtfWriter::document(heading(16) + xSection(7, true)).size());
  const SmallDisk full(room);
  s.m.report().files = &full;
  ASSERT_TRUE(Optimierung2_Click(s.m));
  EXPECT_EQ(s.reportFile(), oldTxt);
  EXPECT_EQ(txt_ReadAll(s.file("Report.rtf")), oldRtf);
  const std::string why = std::string(": ") + std::strerror(ENOSPC) + ".";
  EXPECT_EQ(s.dialogs.messages,
            (std::vector<std::string>{"Could not write the file " + s.file("Report.txt") + why,
                                      "Could not write the file " + s.file("Report.rtf") + why}));
  EXPECT_TRUE(s.m.report().fileWriteFailed);
  EXPECT_EQ(s.m.report().scenarioCells[16][2], "1.000");  // the results stay

  // The full report is not put together from an older report file: it waits for room.
  openFullReportFile(s.m);
  EXPECT_EQ(s.reportFile(), oldTxt);
  s.m.report().files = &FileReplacer::disk();
  openFullReportFile(s.m);
  EXPECT_EQ(s.reportFile(),
            kHeader + kHeader + s.m.report().scenarioSummary + expectedReportFile() + "\r\n");
  EXPECT_EQ(s.dialogs.messages.size(), 2u);

  s.m.options().setCriterionOption(Criterion::Minimum);  // whose summary has no title
  ASSERT_TRUE(Optimierung2_Click(s.m));
  EXPECT_FALSE(s.m.report().fileWriteFailed);
  const auto& heading = s.m.report().scenarioCells[0];
  EXPECT_EQ(heading[0] + "|" + heading[1] + "|" + heading[2],
            "Szenario|Description|Minimum Residue Value");
  EXPECT_EQ(s.m.report().scenarioSummary.rfind("Scenario\tMinimum Residue Value\r\n___", 0), 0u);
}

// The cells keep what the method found; the check beside them and the Details run say it differs.
TEST(ScenarioSweep, RunsWhereTheMethodErrsCarryTheVerdict) {
  Sweep s;
  loadErringTables(s.m);
  ASSERT_TRUE(Optimierung2_Click(s.m));
  const ReportState& report = s.m.report();
  for (int run : {1, 2})
    EXPECT_EQ(std::tuple(report.scenarioCells[run][2], report.scenarioChecks[run - 1].verdict,
                         report.scenarioVerdicts[run - 1], report.scenarioTrueOptima[run - 1],
                         report.scenarioVerdictTooltips[run - 1].substr(0, 70)),
              std::tuple("3.000", CheckVerdict::Differs, "differs", "5.000",
                         "Differs from an independent LP solver: the true minimum is 5.000 mg/kg"));
  EXPECT_EQ(runScenarioDetails(s.m, 0).verdict, CheckVerdict::Differs);
}

// A single run's report: title block and section, the composition table, the main window off.
TEST(SingleReport, BerichtschreibenAfterARun) {
  Sweep s;
  s.m.options().setPseudoComponents({false, false, false});
  s.m.options().setMrbdLimits(false);
  s.m.Optimierung_Click();
  ASSERT_TRUE(s.m.visible(ControlId::ReportButton));
  Berichtschreiben(s.m);
  EXPECT_EQ(s.m.report().bericht, kHeader + "\r\n" + xSection(0));
  EXPECT_FALSE(s.m.report().mainWindowEnabled);
  ASSERT_EQ(s.m.report().ergebnisGrid.size(), 2u);
  EXPECT_EQ(s.m.report().ergebnisGrid[1][1], "X (feed)");
  EXPECT_EQ(Diagrammzeichnen(s.m, kDietaryLoad).slices.size(), 1u);
  EXPECT_FALSE(std::filesystem::exists(s.file("Report.txt")));  // a single run writes no file
}

}  // namespace
}  // namespace pescavo::test
