#include "model/ScreeningView.h"

#include <algorithm>
#include <cstdlib>

#include "model/MainWindowModel.h"

namespace pescavo {

namespace {

// Without scenarios the columns after the criterion move one to the left.
int logical(int column, bool scenarios) { return !scenarios && column >= 4 ? column + 1 : column; }

enum Column {
  kNumber,
  kName,
  kSpecies,
  kCriterion,
  kScenario,
  kBurden,
  kAbove,
  kVerdict,
  kTrueOptimum
};

// A figure cell's value, with either decimal separator; nothing for an empty cell.
std::optional<double> figure(const std::string& cell) {
  if (cell.empty()) return std::nullopt;
  std::string text = cell;
  std::replace(text.begin(), text.end(), ',', '.');
  return std::strtod(text.c_str(), nullptr);
}

// Refused runs, then those below the limit, then those above: as the cells read.
int aboveKey(const ScreeningRow& row) { return row.stop == RunStop::None ? int(row.above) : -1; }

bool less(const ScreeningRow& a, const ScreeningRow& b, int column) {
  switch (column) {
    case kNumber:
      return a.substance < b.substance;
    case kName:
      return a.name < b.name;
    case kSpecies:
      return a.species < b.species;
    case kCriterion:
      return a.criterion < b.criterion;
    case kScenario:
      return a.scenario < b.scenario;
    case kBurden:
      return a.stop == RunStop::None ? a.burden < b.burden : a.refusal < b.refusal;
    case kAbove:
      return aboveKey(a) < aboveKey(b);
    case kVerdict:
      return a.verdictCell < b.verdictCell;
    default:
      return figure(a.trueOptimumCell) < figure(b.trueOptimumCell);
  }
}

// A run without the figure a column ranks by goes after the figures either way.
std::optional<bool> figureFirst(const ScreeningRow& a, const ScreeningRow& b, int column) {
  bool hasA = true, hasB = true;
  if (column == kBurden) {
    hasA = a.stop == RunStop::None;
    hasB = b.stop == RunStop::None;
  } else if (column == kTrueOptimum) {
    hasA = !a.trueOptimumCell.empty();
    hasB = !b.trueOptimumCell.empty();
  }
  if (hasA == hasB) return std::nullopt;
  return hasA;
}

}  // namespace

bool screeningEntryShown(const MainWindowModel& model) {
  return model.layout().at(ControlId::MenuEdit).visible;
}

ScreeningRequest screeningRequest(const MainWindowModel& model) {
  const WindowOptions& options = model.options();
  ScreeningRequest request;
  request.species = {static_cast<int>(options.speciesOption())};
  request.criteria = {options.criterionOption()};
  request.base = options.run();
  return request;
}

std::string screeningStatus(int done, int total, bool running, bool cancelled) {
  const std::string counts = std::to_string(done) + " of " + std::to_string(total) + " runs";
  if (running) return "Screening: " + counts;
  if (cancelled) return "Cancelled after " + counts;
  return std::to_string(done) + " runs screened";
}

ScreeningCellStyle screeningCellStyle(const ScreeningRow& row, int column, bool scenarios) {
  ScreeningCellStyle style;
  if (row.above) style.text = Rgb{255, 0, 0};
  const std::optional<RunMark> mark = scenarioRunMark(row.verdict, row.checked);
  if (!mark) return style;
  style.background = mark->background;
  if (logical(column, scenarios) >= kVerdict) {
    style.text = mark->checkText;
    style.bold = mark->checkBold;
  }
  return style;
}

bool screeningAlignedRight(const ScreeningRow& row, int column, bool scenarios) {
  const int c = logical(column, scenarios);
  if (c == kBurden) return row.stop == RunStop::None;
  return c == kNumber || c == kScenario || c == kTrueOptimum;
}

std::vector<int> screeningOrder(const std::vector<ScreeningRow>& rows, int column, bool descending,
                                bool scenarios) {
  std::vector<int> order(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) order[i] = static_cast<int>(i);
  const int c = logical(column, scenarios);
  std::stable_sort(order.begin(), order.end(), [&](int left, int right) {
    const ScreeningRow& a = rows[static_cast<std::size_t>(left)];
    const ScreeningRow& b = rows[static_cast<std::size_t>(right)];
    if (const std::optional<bool> first = figureFirst(a, b, c)) return *first;
    return descending ? less(b, a, c) : less(a, b, c);
  });
  return order;
}

std::string screeningText(const std::vector<ScreeningRow>& rows, const std::vector<int>& order,
                          bool scenarios, const std::vector<FishSpecies>& species,
                          ScreeningFormat format) {
  std::string text = screeningHeaderLine(scenarios, format);
  for (int i : order)
    text += screeningLine(rows[static_cast<std::size_t>(i)], scenarios, species, format);
  return text;
}

bool selectScreeningRun(MainWindowModel& model, const ScreeningRow& row) {
  if (model.substances().editor().editing()) return false;
  const ComponentTable& table = model.database().table();
  if (row.substance < 1 || row.substance > table.substanceCount() ||
      table.substanceName(row.substance) != row.name) {
    model.dialogs().information(kScreeningListChanged);
    return false;
  }
  model.selectSubstance(row.substance - 1);
  model.selection().chooseAllAvailable();
  WindowOptions& options = model.options();
  options.setCriterionOption(row.options.criterion);
  options.setSpeciesOption(static_cast<Species>(row.options.species));
  options.setRun(row.options);
  return true;
}

}  // namespace pescavo
