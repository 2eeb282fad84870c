#pragma once

#include <array>
#include <string>
#include <vector>

#include "reports/ResultTables.h"

namespace pescavo {

class MainWindowModel;

// One of the eight combinations of PC, CC and F, with its texts as the sweep writes them.
struct Scenario {
  bool pc;
  bool cc;
  bool f;
  const char* headingOff;  // report heading after "Scenario N", MRBD off
  const char* headingOn;   // MRBD on; followed by " - " and the MRBD caption
  const char* cellOff;     // scenario table, MRBD off
  const char* cellOn;      // MRBD on; followed by " - " and the MRBD caption
};

extern const std::array<Scenario, 8> kScenarios;

constexpr int kScenarioRuns = 16;
constexpr int kAlignLeft = 1;
constexpr int kAlignCentre = 4;

// Run N of scenario k (1..8) with MRBD off (m = 0) or on (m = 1).
constexpr int scenarioRun(int k, int m) { return 2 * k - 1 + m; }

// "Optimize all Scenarios": all-scenario mode, criterion and species from the option buttons,
// then the sweep. True when the report window is to be shown.
bool Optimierung2_Click(MainWindowModel& model);

// The sweep: sixteen runs, the scenario table, Report.txt and Report.rtf, ScenarioSummary.
// The check boxes and the fish-meal grade are as before afterwards; the problem and result
// are those of the last run made. True when the report window is to be shown.
bool Tabellezeichnen(MainWindowModel& model);

// Column widths of the scenario table for a grid of the given width.
std::array<int, 4> scenarioColumnWidths(int gridWidth);

// "Open Full Report File" (the text side): one more header block, the report text becomes the
// header blocks and the summary, Report.txt is prefixed with them. Returns the path of
// Report.txt for the window to open in the text editor.
std::string openFullReportFile(MainWindowModel& model);

// "Done": switches the main window on, forgets the window's texts and resets Report.txt to a
// single blank line. reportWindowUnloaded is the same without the reset (closed otherwise).
void reportDone(MainWindowModel& model);
void reportWindowUnloaded(MainWindowModel& model);

// What a "Details" button hands to its single-result window.
struct ScenarioDetails {
  bool shown = false;   // false when the repeated run was refused or not solvable
  std::string caption;  // "Report Szenario " + number + ": " + description
  std::string text;     // title block and the run's section
  std::vector<CompositionRow> table;
  PieChart feedComposition;  // drawn when the window loads
  PieChart dietaryLoad;
};

// "Details" of run index + 1 (index 0..15): repeats that run as a single run in all-scenario
// mode and writes its section (appended to Report.txt as well).
ScenarioDetails runScenarioDetails(MainWindowModel& model, int index);

}  // namespace pescavo
