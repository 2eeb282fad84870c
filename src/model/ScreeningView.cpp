#include "model/ScreeningView.h"

#include <algorithm>

#include "model/MainWindowModel.h"

namespace pescavo {

namespace {

enum class Kind { Count, Text, Burden };

// Without scenarios the columns after the criterion move one to the left.
int logical(int column, bool scenarios) { return !scenarios && column >= 4 ? column + 1 : column; }

constexpr int kNumber = 0, kScenario = 4, kBurden = 5, kTrueOptimum = 8;
constexpr int kVerdict = 7;

Kind kindOf(int column, bool scenarios) {
  switch (logical(column, scenarios)) {
    case kNumber:
    case kScenario:
      return Kind::Count;
    case kBurden:
      return Kind::Burden;
    default:
      return Kind::Text;
  }
}

const std::string& textKey(const ScreeningRow& row, int column, bool scenarios) {
  static const std::string kNone;
  switch (logical(column, scenarios)) {
    case 1:
      return row.name;
    case kVerdict:
      return row.verdictCell;
    case kTrueOptimum:
      return row.trueOptimumCell;
    default:
      return kNone;
  }
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
  const Kind kind = kindOf(column, scenarios);
  const int c = logical(column, scenarios);
  // Refused runs, then those below the limit, then those above: as the cells read.
  const auto above = [](const ScreeningRow& row) {
    return row.stop == RunStop::None ? int(row.above) : -1;
  };
  const auto less = [&](const ScreeningRow& a, const ScreeningRow& b) {
    switch (kind) {
      case Kind::Count:
        return c == kNumber ? a.substance < b.substance : a.scenario < b.scenario;
      case Kind::Burden:
        return a.stop == RunStop::None ? a.burden < b.burden : a.refusal < b.refusal;
      case Kind::Text:
        break;
    }
    if (c == 6) return above(a) < above(b);
    if (c == 2) return a.species < b.species;
    if (c == 3) return a.criterion < b.criterion;
    return textKey(a, column, scenarios) < textKey(b, column, scenarios);
  };
  std::stable_sort(order.begin(), order.end(), [&](int left, int right) {
    const ScreeningRow& a = rows[static_cast<std::size_t>(left)];
    const ScreeningRow& b = rows[static_cast<std::size_t>(right)];
    // A refusal has no burden to rank: it goes after the burdens either way.
    if (kind == Kind::Burden) {
      const bool resultA = a.stop == RunStop::None, resultB = b.stop == RunStop::None;
      if (resultA != resultB) return resultA;
    }
    return descending ? less(b, a) : less(a, b);
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
  if (model.editor().editing()) return false;
  const ComponentTable& table = model.table();
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
  options.setCriterion(row.options.criterion);
  options.setSpecies(row.options.species);
  options.setPseudoComponents(row.options.pseudo);
  options.setMrbdLimits(row.options.mrbd);
  options.setFishmealGrade(row.options.fishmealGrade);
  return true;
}

}  // namespace pescavo
