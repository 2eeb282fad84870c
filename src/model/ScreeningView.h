#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/CheckStyles.h"
#include "model/Screening.h"

namespace pescavo {

class MainWindowModel;

// The screening window's texts and rules, decided here so that a test without a window sees
// them. Columns are those of screeningHeadings().
constexpr const char* kScreeningCaption = "Screen all substances";
constexpr const char* kScreeningEntry = "S&creen all substances";  // the menu's, with its key
constexpr const char* kScreeningBothSpecies = "Both";
constexpr const char* kScreeningScenarios = "All 16 scenarios";
constexpr const char* kScreeningStart = "Start";
constexpr const char* kScreeningCancel = "Cancel";
constexpr const char* kScreeningCopy = "Copy into Clipboard";
constexpr const char* kScreeningPrint = "Print";
constexpr const char* kScreeningSave = "Save as CSV";
constexpr const char* kScreeningPrintTitle = "Pescavo - Screening of all substances";
constexpr const char* kScreeningFileName = "Screening.csv";
constexpr const char* kScreeningFileFilter = "CSV files (*.csv)";
constexpr const char* kScreeningListChanged =
    "The substance list has changed since this screening. Please screen again.";

// The entry is one of the options the all-options switch brings, so it goes with the "&Edit"
// menu: shown in the full layout with the switch on, never while a substance is edited.
bool screeningEntryShown(const MainWindowModel& model);

// The request the window starts with: the species and criterion the option buttons show and
// the check boxes and fish-meal grade of the window, so that a row repeats as a single run.
ScreeningRequest screeningRequest(const MainWindowModel& model);

// The line beside the progress bar.
std::string screeningStatus(int done, int total, bool running, bool cancelled);

// How a cell looks: the whole row red above the limit, and a run the check does not vouch for
// marked as the scenario table marks it.
struct ScreeningCellStyle {
  std::optional<Rgb> text;
  bool bold = false;
  std::optional<Rgb> background;
};
ScreeningCellStyle screeningCellStyle(const ScreeningRow& row, int column, bool scenarios);
// Figures are aligned right; a refusal in the burden column reads from the left.
bool screeningAlignedRight(const ScreeningRow& row, int column, bool scenarios);

// The rows' places in the order of a column: numbers by value, burdens by value with the
// refused runs after them, texts by their characters; equal keys keep the screening's order.
std::vector<int> screeningOrder(const std::vector<ScreeningRow>& rows, int column, bool descending,
                                bool scenarios);

// The rows in the given order under the header line: the clipboard's TAB text and the CSV file.
std::string screeningText(const std::vector<ScreeningRow>& rows, const std::vector<int>& order,
                          bool scenarios, const std::vector<FishSpecies>& species,
                          ScreeningFormat format);

// A double click: the row's substance becomes the current one with all its available
// components chosen and the run's options set, so that "Optimize" repeats the run. False, with
// a message, when the substance list no longer matches the row; false while a substance is
// edited.
bool selectScreeningRun(MainWindowModel& model, const ScreeningRow& row);

}  // namespace pescavo
