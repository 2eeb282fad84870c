#include "reports/ScenarioSweep.h"

#include <cmath>

#include "engine/MainWindowModel.h"
#include "reports/ReportText.h"
#include "reports/TextFiles.h"
#include "tables/NumericText.h"

namespace pescavo {

const std::array<Scenario, 8> kScenarios = {{
    {false, false, false, ": Without PC, CC, F ", ": Without PC, CC, F ", "Without PC, CC, F ",
     "Without PC, CC, F"},
    {true, false, false, ": PC used", ": PC", "PC", "PC"},
    {false, true, false, ": CC used", ": CC used with ", "CC used  ", "CC used with "},
    {false, false, true, ": F used ", ": F used with ", "F used ", "F used with "},
    {true, true, false, ": PC and CC used ", ": PC and CC used with ", "PC and CC used ",
     "PC and CC used "},
    {true, false, true, ": PC and F used ", ": PC and F used with ", "PC and F used ",
     "PC and F used "},
    {false, true, true, ": CC and F used ", ": CC and F used with ", "CC and F used ",
     "CC and F used "},
    {true, true, true, ":PC, CC and F used ", ": PC, CC and F used with ", "PC, CC and F used ",
     "PC, CC and F used "},
}};

namespace {

const char* const kPollutantsZero =
    "Values of pollutants are possiblibly all zero. Check the pollutants value and try again.";
const std::string kHeadingRule(70, '_');
const std::string kSummaryRule(41, '_');

struct SavedOptions {
  bool check1;
  int fischmehl;
  bool check2;
  bool check4;
  bool check5;
};

SavedOptions saveOptions(const MainWindowModel& model) {
  return {model.check1, model.fischmehl, model.check2, model.check4, model.check5};
}

void restoreOptions(MainWindowModel& model, const SavedOptions& saved) {
  model.check1 = saved.check1;
  model.fischmehl = saved.fischmehl;
  model.check2 = saved.check2;
  model.check4 = saved.check4;
  model.check5 = saved.check5;
}

void setScenario(MainWindowModel& model, int k, int m) {
  const Scenario& scenario = kScenarios[k - 1];
  model.check1 = scenario.pc;
  model.check4 = scenario.cc;
  model.check5 = scenario.f;
  model.check2 = m == 1;
}

std::string number(int value, char separator) { return fixedForm(value, "0", separator); }

void resetReportFile(MainWindowModel& model) {
  try {
    txt_WriteAll(reportTxtPath(model), " ");
  } catch (const ReportFileError& error) {
    reportFileFailure(model, error.what());
  }
}

void tableHead(MainWindowModel& model) {
  ReportState& report = model.report;
  report.scenarioCells = {};
  report.scenarioAlignment = {};
  report.scenarioTableFilled = false;
  report.scenarioCells[0] = {"Szenario", "Description",
                             model.minMax == 0 ? "Maximum Residue Value" : "Minimum Residue Value",
                             ""};
  for (int c = 0; c < 3; ++c) report.scenarioAlignment[0][c] = kAlignCentre;
  for (int r = 1; r <= kScenarioRuns; ++r) {
    report.scenarioCells[r][0] = number(r, model.decimalSeparator);
    report.scenarioAlignment[r][0] = kAlignCentre;
  }
}

// Heading and table description of run N.
void writeHeading(MainWindowModel& model, int k, int run) {
  ReportState& report = model.report;
  const Scenario& scenario = kScenarios[k - 1];
  const char* const caption = MainWindowModel::kMrbdCaption;
  std::string& text = report.bericht;
  text += kCrLf;
  text += kHeadingRule;
  text += "\r\n\r\nScenario ";
  text += number(run, model.decimalSeparator);
  if (model.check2) {
    text += scenario.headingOn;
    text += " - ";
    text += caption;
    report.scenarioCells[run][1] = std::string(scenario.cellOn) + " - " + caption;
  } else {
    text += scenario.headingOff;
    report.scenarioCells[run][1] = scenario.cellOff;
  }
  text += kCrLf;
  report.scenarioAlignment[run][1] = kAlignLeft;
}

// A failed pivot search is shown and the run counts as not solvable.
bool solved(MainWindowModel& model) {
  if (!model.result.pivotFailure.empty()) {
    model.dialogs.information(model.result.pivotFailure);
    return false;
  }
  return model.result.solvable;
}

std::string scenarioSummary(const MainWindowModel& model) {
  const ReportState& report = model.report;
  std::string summary;
  if (model.minMax == 0) {
    summary += std::string("REPORT") + kCrLf + kCrLf;
    summary += std::string("Scenario\tMaximum Residue Value") + kCrLf;
  } else {
    summary += std::string("Scenario\tMinimum Residue Value") + kCrLf;
  }
  summary += kSummaryRule + kCrLf + kCrLf;
  for (int r = 1; r <= kScenarioRuns; ++r) {
    summary += "   " + report.scenarioCells[r][0] + "\t" + std::string(10, ' ') + "\t" +
               report.scenarioCells[r][2] + kCrLf;
  }
  return summary;
}

int roundedWidth(double width) { return static_cast<int>(std::nearbyint(width)); }

}  // namespace

bool Optimierung2_Click(MainWindowModel& model) {
  model.allScenariosMode = true;
  model.Ergebnis_ausblenden();
  model.minMax = model.option1 ? 1 : 0;
  model.fischarten = model.option3 ? 0 : 1;
  return Tabellezeichnen(model);
}

bool Tabellezeichnen(MainWindowModel& model) {
  if (model.pleaseAddComponents()) return false;
  ReportState& report = model.report;
  report.fileFailuresShown.clear();
  resetReportFile(model);
  report.bericht.clear();
  report.scenarioChecks.fill(CheckResult());
  report.scenarioVerdicts.fill(std::string());
  report.scenarioVerdictTooltips.fill(std::string());
  report.scenarioTrueOptima.fill(std::string());
  tableHead(model);
  model.Ergebnis_ausblenden();
  const SavedOptions saved = saveOptions(model);

  for (int k = 1; k <= 8; ++k) {
    for (int m = 0; m <= 1; ++m) {
      const int run = scenarioRun(k, m);
      setScenario(model, k, m);
      writeHeading(model, k, run);
      model.Laden();
      if (model.problem.residueSum == 0) {
        model.dialogs.information(kPollutantsZero);
        restoreOptions(model, saved);
        return false;
      }
      model.Rechnen();
      report.scenarioChecks[run - 1] = model.check;
      report.scenarioVerdicts[run - 1] = verdictCell(model.check);
      report.scenarioVerdictTooltips[run - 1] =
          verdictTooltip(model.check, model.criterion(), model.decimalSeparator);
      report.scenarioTrueOptima[run - 1] = trueOptimumCell(model.check, model.decimalSeparator);
      report.bericht += "\r\n\r\n";
      report.bericht += kHeadingRule;
      report.bericht += "\r\n\r\n";
      if (solved(model)) {
        Berichtschreiben(model);
        report.scenarioCells[run][2] =
            fixedForm(model.result.burden, "0.000", model.decimalSeparator);
      } else {
        report.bericht += MainWindowModel::kNotSolvable;
        report.bericht += "\r\n\r\n";
        report.scenarioCells[run][2] = "-";
      }
      report.scenarioAlignment[run][2] = kAlignCentre;
    }
  }

  report.scenarioSummary = scenarioSummary(model);
  report.scenarioTableFilled = true;
  restoreOptions(model, saved);
  return true;
}

std::array<int, 4> scenarioColumnWidths(int gridWidth) {
  const double w = gridWidth;
  return {roundedWidth(w / 12), roundedWidth(w / 1.5), roundedWidth(w / 6), roundedWidth(w / 14)};
}

std::string openFullReportFile(MainWindowModel& model) {
  ReportState& report = model.report;
  report.headerText += headerBlock(model.substanceName());
  report.bericht = report.headerText + report.scenarioSummary + kCrLf;
  const std::string path = reportTxtPath(model);
  try {
    const std::string old = txt_ReadAll(path);
    txt_WriteAll(path, report.headerText + report.scenarioSummary + old);
  } catch (const ReportFileError& error) {
    model.dialogs.information(error.what());
  }
  return path;
}

void reportWindowUnloaded(MainWindowModel& model) {
  ReportState& report = model.report;
  report.mainWindowEnabled = true;
  report.bericht.clear();
  report.headerText.clear();
}

void reportDone(MainWindowModel& model) {
  reportWindowUnloaded(model);
  model.report.fileFailuresShown.clear();
  resetReportFile(model);
}

ScenarioDetails runScenarioDetails(MainWindowModel& model, int index) {
  ScenarioDetails details;
  if (index < 0 || index >= kScenarioRuns) return details;
  const int run = index + 1;
  // The buttons belong to the sweep, so their runs are all-scenario runs even after a single
  // run was made from the main window in between.
  model.allScenariosMode = true;
  setScenario(model, index / 2 + 1, index % 2);
  model.fischmehl = run <= 2 ? 0 : 2;
  model.report.fileFailuresShown.clear();
  model.EinfacheOptimierung();
  // EinfacheOptimierung has shown why when it stopped; there is no section to show then.
  const bool ran = !model.fischfutter2.empty() && model.problem.residueSum != 0 &&
                   model.result.solvable && model.result.pivotFailure.empty();
  if (!ran) return details;

  Berichtschreiben(model);
  details.shown = true;
  details.text = model.report.berichtNeu;
  details.caption = "Report Szenario " + number(run, model.decimalSeparator) + ": " +
                    model.report.scenarioCells[run][1];
  details.table = compositionTable(model);
  details.feedComposition = Diagrammzeichnen(model, kFeedComposition);
  details.dietaryLoad = Diagrammzeichnen(model, kDietaryLoad);
  return details;
}

}  // namespace pescavo
