#include <ostream>

#include "cli/Cli.h"
#include "cli/CliCommands.h"
#include "engine/IndependentCheck.h"
#include "model/MainWindowModel.h"
#include "model/ReportRun.h"
#include "model/ScenarioSweep.h"

namespace pescavo {

int runReport(MainWindowModel& model, const CliOptions&, std::ostream& out, std::ostream&) {
  model.Optimierung_Click();
  if (!model.visible(ControlId::ReportButton)) return kExitRefused;
  Berichtschreiben(model);
  out << model.report().bericht;
  return kExitOk;
}

namespace {

// The sweep and one press of "Open Full Report File", without the text editor.
bool sweep(MainWindowModel& model) {
  if (!Optimierung2_Click(model)) return false;
  openFullReportFile(model);
  return true;
}

}  // namespace

int runSweep(MainWindowModel& model, const CliOptions&, std::ostream& out, std::ostream&) {
  if (!sweep(model)) return kExitRefused;
  const auto& cells = model.report().scenarioCells;
  for (int run = 1; run <= kScenarioRuns; ++run)
    out << cells[run][0] << '\t' << cells[run][1] << '\t' << cells[run][2] << '\n';
  return model.report().fileWriteFailed ? kExitReportFile : kExitOk;
}

int runVerifyScenarios(MainWindowModel& model, const CliOptions&, std::ostream& out,
                       std::ostream&) {
  if (!sweep(model)) return kExitRefused;
  const ReportState& report = model.report();
  CheckTally tally;
  for (int run = 1; run <= kScenarioRuns; ++run) {
    tally.add(report.scenarioChecks[run - 1].verdict);
    out << run << '\t' << report.scenarioVerdicts[run - 1] << '\t' << report.scenarioCells[run][2]
        << '\t' << report.scenarioTrueOptima[run - 1] << '\n';
  }
  return report.fileWriteFailed ? kExitReportFile : tally.exitStatus();
}

}  // namespace pescavo
