#pragma once

#include <string>
#include <vector>

#include "engine/IndependentCheck.h"
#include "model/ReportRun.h"
#include "model/RunOptions.h"
#include "reports/ResultTables.h"
#include "reports/Scenarios.h"

namespace pescavo {

class MainWindowModel;

// Run 1..16 of the sweep: the options given with the run's pseudo-components and MRBD switch.
// Every sweep and screening run takes its options from here.
RunOptions scenarioRunOptions(RunOptions options, int run);

// "Optimize all Scenarios": all-scenario mode, criterion and species from the option buttons,
// then the sweep. True when the report window is to be shown.
bool Optimierung2_Click(MainWindowModel& model);

// The sweep: sixteen runs, the scenario table, Report.txt and Report.rtf, ScenarioSummary.
// Each run takes the window's options with its own pseudo-components and MRBD switch; the
// window's options are left as they are. The problem and result are those of the last run
// made. True when the report window is to be shown.
bool Tabellezeichnen(MainWindowModel& model);

// "Open Full Report File" (the text side): one more header block, the report text becomes the
// header blocks and the summary, Report.txt is prefixed with them. Returns the path of
// Report.txt for the window to open in the text editor.
std::string openFullReportFile(MainWindowModel& model);

// When the desktop has no program for Report.txt: the file and where the text is meanwhile.
inline std::string cannotOpenReportFile(const std::string& path) {
  return "No program could open " + path + ". The full report is shown here and kept in that file.";
}

// "Done": switches the main window on, forgets the window's texts and resets Report.txt to a
// single blank line. reportWindowUnloaded is the same without the reset (closed otherwise).
void reportDone(MainWindowModel& model);
void reportWindowUnloaded(MainWindowModel& model);

// Headings of the two columns beside the scenario table that show each run's independent check.
constexpr const char* kCheckColumnHeadings[2] = {"Independent check", "True optimum"};

// What a "Details" button hands to its single-result window.
struct ScenarioDetails {
  bool shown = false;   // false when the repeated run was refused or not solvable
  std::string caption;  // "Report Szenario " + number + ": " + description
  std::string text;     // title block and the run's section
  ReportLabels labels;
  // The independent check of the repeated run.
  CheckVerdict verdict = CheckVerdict::CouldNotRun;
  std::string checkSentence;
  std::vector<CompositionRow> table;
  PieChart feedComposition;  // drawn when the window loads
  PieChart dietaryLoad;
};

// "Details" of run index + 1 (index 0..15): repeats that run as a single run in all-scenario
// mode and writes its section (appended to Report.txt as well).
ScenarioDetails runScenarioDetails(MainWindowModel& model, int index);

}  // namespace pescavo
