#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/IndependentCheck.h"
#include "reports/ReportValues.h"
#include "reports/ResultTables.h"
#include "reports/Scenarios.h"
#include "tables/FileReplacer.h"

namespace pescavo {

// What the report windows hold between runs; the windows only show it.
struct ReportState {
  ReportValues values;     // what the last report section was written from
  std::string bericht;     // the report text (Bericht)
  std::string richText;    // RichTextBox1: the last sweep run's text
  std::string berichtNeu;  // the shared single-result window's text
  std::string headerText;  // title blocks collected for the full report
  std::string scenarioSummary;
  double burdenSum = 0;            // S of the last Berichtschreiben
  std::string reportFolder = ".";  // where Report.txt and Report.rtf go
  bool mainWindowEnabled = true;
  // Scenario table AllScnErgebnis; alignment 1 left, 4 centred, 0 the grid's default.
  ScenarioCells scenarioCells{};
  std::array<std::array<int, 4>, kScenarioRuns + 1> scenarioAlignment{};
  bool scenarioTableFilled = false;
  // The independent check of each sweep run (run N at N - 1) and what the scenario table shows
  // of it: "agrees" or "differs", its tooltip, and the true optimum ("0.000" or "not solvable").
  std::array<CheckResult, kScenarioRuns> scenarioChecks{};
  std::array<std::string, kScenarioRuns> scenarioVerdicts{};
  std::array<std::string, kScenarioRuns> scenarioVerdictTooltips{};
  std::array<std::string, kScenarioRuns> scenarioTrueOptima{};
  // Composition table ErgebnisGrid of the last single-mode report; row 0 is the header.
  std::vector<CompositionRow> ergebnisGrid;
  // Report file failures already shown during the current sweep or Details run.
  std::vector<std::string> fileFailuresShown;
  // A report file could not be written since the last sweep or Details run began.
  bool fileWriteFailed = false;
  // Where the report files are written; a test hands in one that fails.
  const FileReplacer* files = &FileReplacer::disk();
  // A sweep writes its files once, at its end: meanwhile its sections for Report.txt (each
  // followed by CR LF) gather here, and Report.rtf (richText) is due once a run was solved.
  bool sweepCollecting = false;
  std::string sweepSections;
  bool sweepRtfDue = false;
  // Report.txt could not take the last sweep's sections, so it does not hold that sweep.
  bool sweepTxtUnwritten = false;
};

}  // namespace pescavo
