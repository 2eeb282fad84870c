#include "model/ReportRun.h"

#include <algorithm>
#include <filesystem>

#include "model/MainWindowModel.h"
#include "reports/ReportText.h"
#include "reports/RtfWriter.h"
#include "reports/TextFiles.h"
#include "tables/NumericText.h"

namespace pescavo {

namespace {

// What the report text, the composition table and the charts are written from.
void fillReportValues(const MainWindowModel& model, ReportValues& values) {
  model.lastRun().fillReportValues(model.runInput(), model.substanceName(), values);
}

std::string reportFile(const MainWindowModel& model, const char* name) {
  return (std::filesystem::path(model.report().reportFolder) / name).string();
}

void writeScenarioFiles(MainWindowModel& model) {
  ReportState& report = model.report();
  if (report.sweepCollecting) {  // the sweep writes both files at its end
    report.sweepSections += report.bericht;
    report.sweepSections += kCrLf;
    report.sweepRtfDue = true;
    return;
  }
  try {
    txt_AppendLine(reportTxtPath(model), report.bericht, *report.files);
  } catch (const ReportFileError& error) {
    reportFileFailure(model, error.what());
  }
  try {
    RtfWriter::save(reportRtfPath(model), RtfWriter::document(report.richText), *report.files);
  } catch (const ReportFileError& error) {
    reportFileFailure(model, error.what());
  }
}

}  // namespace

void Berichtschreiben(MainWindowModel& model) {
  ReportState& report = model.report();
  ReportValues& values = report.values;
  fillReportValues(model, values);
  if (!model.options().allScenariosMode()) report.bericht += titleBlock(values.substance);
  report.burdenSum = appendReportSection(values, model.decimalSeparator(), report.bericht);

  if (!model.options().allScenariosMode()) {
    report.ergebnisGrid =
        pescavo::compositionTable(values, report.burdenSum, model.decimalSeparator());
    report.mainWindowEnabled = false;
    return;
  }
  // Filled in place: the texts keep their storage from run to run.
  report.berichtNeu.clear();
  report.berichtNeu += titleBlock(values.substance);
  report.berichtNeu += report.bericht;
  report.richText = report.bericht;
  writeScenarioFiles(model);
  report.bericht.clear();
}

std::vector<CompositionRow> compositionTable(const MainWindowModel& model) {
  ReportValues values;
  fillReportValues(model, values);
  return pescavo::compositionTable(values, model.report().burdenSum, model.decimalSeparator());
}

PieChart Diagrammzeichnen(const MainWindowModel& model, int kind) {
  ReportValues values;
  fillReportValues(model, values);
  return pescavo::Diagrammzeichnen(values, model.report().burdenSum, kind,
                                   model.decimalSeparator());
}

ReportLabels reportLabels(const MainWindowModel& model) {
  ReportLabels labels;
  labels.substance = model.substanceName();
  const auto& table = model.runInput().species;
  const int position = model.options().species();
  FishSpecies species;
  if (position >= 0 && position < static_cast<int>(table.size())) species = table[position];
  const char sep = model.decimalSeparator();
  labels.speciesName = species.name;
  labels.speciesTargets = "(" + fixedForm(species.lipid, "0.00", sep) + "% Lipid; " +
                          fixedForm(species.protein, "0.00", sep) + "% Protein)";
  labels.printTitle = "Pescavo - Substance: " + labels.substance +
                      "\tSpecies: " + labels.speciesName + labels.speciesTargets;
  return labels;
}

std::string reportTxtPath(const MainWindowModel& model) { return reportFile(model, "Report.txt"); }

std::string reportRtfPath(const MainWindowModel& model) { return reportFile(model, "Report.rtf"); }

void reportFileFailure(MainWindowModel& model, const std::string& message) {
  ReportState& report = model.report();
  report.fileWriteFailed = true;
  std::vector<std::string>& shown = report.fileFailuresShown;
  if (std::find(shown.begin(), shown.end(), message) != shown.end()) return;
  shown.push_back(message);
  model.dialogs().information(message);
}

}  // namespace pescavo
