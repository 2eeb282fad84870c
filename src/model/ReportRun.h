#pragma once

#include <string>
#include <vector>

#include "reports/ResultTables.h"

namespace pescavo {

class MainWindowModel;

// Appends the last run's report section to the report text and finishes: in single mode
// (title block first) it fills the composition table and switches the main window off; in
// all-scenario mode it fills the shared single-result text, appends the text to Report.txt,
// replaces Report.rtf and empties the report text. A file that cannot be written is named in
// a message; the run's results stay.
void Berichtschreiben(MainWindowModel& model);

// The composition table and a pie chart of the last run, as the report windows show them.
std::vector<CompositionRow> compositionTable(const MainWindowModel& model);
PieChart Diagrammzeichnen(const MainWindowModel& model, int kind);

// What the report windows show above the table and title their printouts with, from the main
// window's current substance and species.
struct ReportLabels {
  std::string substance;       // TextSubstanz
  std::string speciesName;     // TextFischname
  std::string speciesTargets;  // TextFischname2: "(" + lipid + "% Lipid; " + protein + "% Protein)"
  std::string printTitle;      // "Pescavo - Substance: " + substance + TAB + "Species: " ...
};
ReportLabels reportLabels(const MainWindowModel& model);

std::string reportTxtPath(const MainWindowModel& model);
std::string reportRtfPath(const MainWindowModel& model);

// Shows a report file failure once per sweep or Details run, not once per section.
void reportFileFailure(MainWindowModel& model, const std::string& message);

}  // namespace pescavo
