#include "model/ScenarioSweep.h"

#include "model/MainWindowModel.h"
#include "model/ReportRun.h"
#include "reports/ReportText.h"
#include "reports/RtfWriter.h"
#include "reports/TextFiles.h"
#include "tables/NumericText.h"

namespace pescavo {

namespace {

std::string number(int value, char separator) { return fixedForm(value, "0", separator); }

// What Report.txt holds before the first section: one blank line.
const char* const kEmptyReport = " ";

void resetReportFile(MainWindowModel& model) {
  ReportState& report = model.report();
  try {
    txt_WriteAll(reportTxtPath(model), kEmptyReport, *report.files);
    report.sweepTxtUnwritten = false;
  } catch (const ReportFileError& error) {
    reportFileFailure(model, error.what());
  }
}

// Report.txt as the sweep leaves it, whether or not it could be written.
std::string sweepReportText(const ReportState& report) {
  return kEmptyReport + std::string(kCrLf) + report.sweepSections;
}

// The sections are gathered in memory and each file is replaced once, so a failure leaves the
// files from before the sweep, never the first runs of this one alone.
class SweepFiles {
 public:
  explicit SweepFiles(ReportState& report) : m_report(report) {
    m_report.sweepCollecting = true;
    m_report.sweepSections.clear();
    m_report.sweepRtfDue = false;
  }
  ~SweepFiles() { m_report.sweepCollecting = false; }
  SweepFiles(const SweepFiles&) = delete;
  SweepFiles& operator=(const SweepFiles&) = delete;

  void write(MainWindowModel& model) {
    m_report.sweepCollecting = false;
    try {
      replaceFile(reportTxtPath(model), {kEmptyReport, kCrLf, m_report.sweepSections},
                  *m_report.files);
      m_report.sweepTxtUnwritten = false;
    } catch (const ReportFileError& error) {
      m_report.sweepTxtUnwritten = true;
      reportFileFailure(model, error.what());
    }
    if (!m_report.sweepRtfDue) return;
    try {
      RtfWriter::save(reportRtfPath(model), RtfWriter::document(m_report.richText),
                      *m_report.files);
    } catch (const ReportFileError& error) {
      reportFileFailure(model, error.what());
    }
  }

 private:
  ReportState& m_report;
};

void startFileRun(ReportState& report) {
  report.fileFailuresShown.clear();
  report.fileWriteFailed = false;
}

void tableHead(MainWindowModel& model) {
  ReportState& report = model.report();
  report.scenarioCells = {};
  report.scenarioAlignment = {};
  report.scenarioTableFilled = false;
  report.scenarioCells[0] = {"Szenario", "Description",
                             model.options().criterion() == Criterion::Maximum
                                 ? "Maximum Residue Value"
                                 : "Minimum Residue Value",
                             ""};
  for (int c = 0; c < 3; ++c) report.scenarioAlignment[0][c] = kAlignCentre;
  for (int r = 1; r <= kScenarioRuns; ++r) {
    report.scenarioCells[r][0] = number(r, model.decimalSeparator());
    report.scenarioAlignment[r][0] = kAlignCentre;
  }
}

void recordCheck(MainWindowModel& model, int run) {
  ReportState& report = model.report();
  const char sep = model.decimalSeparator();
  const FeedRun& last = model.lastRun();
  report.scenarioChecks[run - 1] = last.check();
  report.scenarioVerdicts[run - 1] = verdictCell(last.check());
  report.scenarioVerdictTooltips[run - 1] =
      verdictTooltip(last.check(), last.options().criterion, sep);
  report.scenarioTrueOptima[run - 1] = trueOptimumCell(last.check(), sep);
}

}  // namespace

RunOptions scenarioRunOptions(RunOptions options, int run) {
  const Scenario& scenario = kScenarios[(run + 1) / 2 - 1];
  options.pseudo = {scenario.pc, scenario.cc, scenario.f};
  options.mrbd = run % 2 == 0;
  return options;
}

bool Optimierung2_Click(MainWindowModel& model) {
  model.options().setAllScenariosMode(true);
  model.Ergebnis_ausblenden();
  model.options().setCriterion(model.options().criterionOption());
  model.options().setSpecies(static_cast<int>(model.options().speciesOption()));
  return Tabellezeichnen(model);
}

namespace {

// The sixteen runs; false when one of them stopped the sweep (with its message shown). Each run
// gets the window's options but its own pseudo-components and MRBD switch; the window's stay as
// they are.
bool runScenarios(MainWindowModel& model) {
  ReportState& report = model.report();
  RunOptions options = model.options().run();
  FeedRun& feedRun = model.lastRun();
  const RunInput input = model.runInput();
  for (int k = 1; k <= 8; ++k) {
    for (int m = 0; m <= 1; ++m) {
      const int run = scenarioRun(k, m);
      options = scenarioRunOptions(options, run);
      report.scenarioCells[run][1] =
          appendScenarioHeading(report.bericht, k, run, m == 1, model.decimalSeparator());
      report.scenarioAlignment[run][1] = kAlignLeft;
      const RunStop stop = feedRun.run(input, options);
      if (stop != RunStop::None && stop != RunStop::NotSolvable) {
        model.dialogs().information(feedRun.message(stop, true));
        return false;
      }
      recordCheck(model, run);
      report.bericht += "\r\n\r\n";
      report.bericht += kScenarioRule;
      report.bericht += "\r\n\r\n";
      // A failed pivot search is shown and the run counts as not solvable.
      if (!feedRun.pivotFailure().empty()) model.dialogs().information(feedRun.pivotFailure());
      if (stop == RunStop::None) {
        Berichtschreiben(model);
        report.scenarioCells[run][2] =
            fixedForm(feedRun.result().burden, "0.000", model.decimalSeparator());
      } else {
        report.bericht += FeedRun::kNotSolvable;
        report.bericht += "\r\n\r\n";
        report.scenarioCells[run][2] = "-";
      }
      report.scenarioAlignment[run][2] = kAlignCentre;
    }
  }
  return true;
}

}  // namespace

bool Tabellezeichnen(MainWindowModel& model) {
  if (model.pleaseAddComponents()) return false;
  ReportState& report = model.report();
  startFileRun(report);
  SweepFiles files(report);
  report.bericht.clear();
  report.scenarioChecks.fill(CheckResult());
  report.scenarioVerdicts.fill(std::string());
  report.scenarioVerdictTooltips.fill(std::string());
  report.scenarioTrueOptima.fill(std::string());
  tableHead(model);
  model.Ergebnis_ausblenden();
  const bool completed = runScenarios(model);
  files.write(model);
  if (!completed) return false;
  report.scenarioSummary =
      scenarioSummary(report.scenarioCells, model.options().criterion() == Criterion::Maximum);
  report.scenarioTableFilled = true;
  return true;
}

std::string openFullReportFile(MainWindowModel& model) {
  ReportState& report = model.report();
  report.headerText += headerBlock(model.substanceName());
  report.bericht = report.headerText + report.scenarioSummary + kCrLf;
  const std::string path = reportTxtPath(model);
  try {
    // After a failed sweep write the file still holds an earlier report, not this sweep's.
    const std::string old = report.sweepTxtUnwritten ? sweepReportText(report) : txt_ReadAll(path);
    txt_WriteAll(path, report.headerText + report.scenarioSummary + old, *report.files);
    report.sweepTxtUnwritten = false;
  } catch (const ReportFileError& error) {
    reportFileFailure(model, error.what());
  }
  return path;
}

void reportWindowUnloaded(MainWindowModel& model) {
  ReportState& report = model.report();
  report.mainWindowEnabled = true;
  report.bericht.clear();
  report.headerText.clear();
}

void reportDone(MainWindowModel& model) {
  reportWindowUnloaded(model);
  startFileRun(model.report());
  resetReportFile(model);
}

ScenarioDetails runScenarioDetails(MainWindowModel& model, int index) {
  ScenarioDetails details;
  if (index < 0 || index >= kScenarioRuns) return details;
  const int run = index + 1;
  // The buttons belong to the sweep, so their runs are all-scenario runs even after a single
  // run was made from the main window in between.
  model.options().setAllScenariosMode(true);
  model.options().setRun(scenarioRunOptions(model.options().run(), run));
  model.options().setFishmealGrade(run <= 2 ? 0 : 2);
  startFileRun(model.report());
  model.EinfacheOptimierung();
  // EinfacheOptimierung has shown why when it stopped; there is no section to show then.
  if (model.selection().chosen().empty() || model.lastRun().lastStop() != RunStop::None)
    return details;

  Berichtschreiben(model);
  details.shown = true;
  details.text = model.report().berichtNeu;
  details.caption = "Report Szenario " + number(run, model.decimalSeparator()) + ": " +
                    model.report().scenarioCells[run][1];
  details.labels = reportLabels(model);
  details.verdict = model.lastRun().check().verdict;
  details.checkSentence = model.lastRun().checkSentence();
  details.table = compositionTable(model);
  details.feedComposition = Diagrammzeichnen(model, kFeedComposition);
  details.dietaryLoad = Diagrammzeichnen(model, kDietaryLoad);
  return details;
}

}  // namespace pescavo
