#include "model/ScenarioSweep.h"

#include "model/MainWindowModel.h"
#include "model/ReportRun.h"
#include "reports/ReportText.h"
#include "reports/RtfWriter.h"
#include "reports/TextFiles.h"
#include "tables/NumericText.h"

namespace pescavo {

namespace {

const char* const kPollutantsZero =
    "Values of pollutants are possiblibly all zero. Check the pollutants value and try again.";

struct SavedOptions {
  MainWindowModel::PseudoComponents pseudo;
  bool mrbd;
  int fishmealGrade;
};

SavedOptions saveOptions(const MainWindowModel& model) {
  return {model.pseudoComponents(), model.mrbdLimits(), model.fishmealGrade()};
}

void restoreOptions(MainWindowModel& model, const SavedOptions& saved) {
  model.setPseudoComponents(saved.pseudo);
  model.setMrbdLimits(saved.mrbd);
  model.setFishmealGrade(saved.fishmealGrade);
}

void setScenario(MainWindowModel& model, int k, int m) {
  const Scenario& scenario = kScenarios[k - 1];
  model.setPseudoComponents({scenario.pc, scenario.cc, scenario.f});
  model.setMrbdLimits(m == 1);
}

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
  report.scenarioCells[0] = {
      "Szenario", "Description",
      model.criterion() == Criterion::Maximum ? "Maximum Residue Value" : "Minimum Residue Value",
      ""};
  for (int c = 0; c < 3; ++c) report.scenarioAlignment[0][c] = kAlignCentre;
  for (int r = 1; r <= kScenarioRuns; ++r) {
    report.scenarioCells[r][0] = number(r, model.decimalSeparator());
    report.scenarioAlignment[r][0] = kAlignCentre;
  }
}

// A failed pivot search is shown and the run counts as not solvable.
bool solved(MainWindowModel& model) {
  if (!model.result().pivotFailure.empty()) {
    model.dialogs().information(model.result().pivotFailure);
    return false;
  }
  return model.result().solvable;
}

// Stops the sweep with a message when a run's figures cannot be used.
bool refused(MainWindowModel& model, const SavedOptions& saved, const std::string& why) {
  if (why.empty()) return false;
  model.dialogs().information(why);
  restoreOptions(model, saved);
  return true;
}

void recordCheck(MainWindowModel& model, int run) {
  ReportState& report = model.report();
  const char sep = model.decimalSeparator();
  report.scenarioChecks[run - 1] = model.check();
  report.scenarioVerdicts[run - 1] = verdictCell(model.check());
  report.scenarioVerdictTooltips[run - 1] = verdictTooltip(model.check(), model.criterion(), sep);
  report.scenarioTrueOptima[run - 1] = trueOptimumCell(model.check(), sep);
}

}  // namespace

bool Optimierung2_Click(MainWindowModel& model) {
  model.setAllScenariosMode(true);
  model.Ergebnis_ausblenden();
  model.setCriterion(model.criterionOption());
  model.setSpecies(static_cast<int>(model.speciesOption()));
  return Tabellezeichnen(model);
}

namespace {

// The sixteen runs; false when one of them stopped the sweep (with its message shown and the
// options restored).
bool runScenarios(MainWindowModel& model, const SavedOptions& saved) {
  ReportState& report = model.report();
  for (int k = 1; k <= 8; ++k) {
    for (int m = 0; m <= 1; ++m) {
      const int run = scenarioRun(k, m);
      setScenario(model, k, m);
      report.scenarioCells[run][1] =
          appendScenarioHeading(report.bericht, k, run, m == 1, model.decimalSeparator());
      report.scenarioAlignment[run][1] = kAlignLeft;
      model.Laden();
      if (model.problem().residueSum == 0) return !refused(model, saved, kPollutantsZero);
      if (refused(model, saved, model.unusableFigures())) return false;
      model.Rechnen();
      if (refused(model, saved, model.unusableBurden())) return false;
      recordCheck(model, run);
      report.bericht += "\r\n\r\n";
      report.bericht += kScenarioRule;
      report.bericht += "\r\n\r\n";
      if (solved(model)) {
        Berichtschreiben(model);
        report.scenarioCells[run][2] =
            fixedForm(model.result().burden, "0.000", model.decimalSeparator());
      } else {
        report.bericht += MainWindowModel::kNotSolvable;
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
  const SavedOptions saved = saveOptions(model);

  const bool completed = runScenarios(model, saved);
  files.write(model);
  if (!completed) return false;
  report.scenarioSummary =
      scenarioSummary(report.scenarioCells, model.criterion() == Criterion::Maximum);
  report.scenarioTableFilled = true;
  restoreOptions(model, saved);
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
  model.setAllScenariosMode(true);
  setScenario(model, index / 2 + 1, index % 2);
  model.setFishmealGrade(run <= 2 ? 0 : 2);
  startFileRun(model.report());
  model.EinfacheOptimierung();
  // EinfacheOptimierung has shown why when it stopped; there is no section to show then.
  const bool ran = !model.chosen().empty() && model.problem().residueSum != 0 &&
                   model.unusableFigures().empty() && model.result().solvable &&
                   model.result().pivotFailure.empty() && model.unusableBurden().empty();
  if (!ran) return details;

  Berichtschreiben(model);
  details.shown = true;
  details.text = model.report().berichtNeu;
  details.caption = "Report Szenario " + number(run, model.decimalSeparator()) + ": " +
                    model.report().scenarioCells[run][1];
  details.labels = reportLabels(model);
  details.verdict = model.check().verdict;
  details.checkSentence = model.checkSentence();
  details.table = compositionTable(model);
  details.feedComposition = Diagrammzeichnen(model, kFeedComposition);
  details.dietaryLoad = Diagrammzeichnen(model, kDietaryLoad);
  return details;
}

}  // namespace pescavo
