#pragma once

#include <array>
#include <string>
#include <vector>

namespace pescavo {

class MainWindowModel;

using CompositionRow = std::array<std::string, 9>;

// The composition table ErgebnisGrid of the last run: row 0 the headers, then one row per
// chosen component and one per enabled pseudo-component (PC, CC, F).
std::vector<CompositionRow> compositionTable(const MainWindowModel& model);
// Column widths for a grid of the given width; they add up to more than it on purpose.
std::array<int, 9> compositionColumnWidths(int gridWidth);
// Header cells and columns 2 to 8 are centred; the other body cells keep the default.
bool compositionCellCentred(int row, int column);

constexpr const char* kChartKinds[2] = {"Dietary Load", "Feed composition"};
enum ChartKind { kDietaryLoad = 0, kFeedComposition = 1 };

struct PieSlice {
  std::string label;  // with "(" + value + " %)"
  double value = 0;
};

struct PieChart {
  std::string title;
  std::string footnote;
  std::vector<PieSlice> slices;  // largest first; at most six, the sixth may be "Other"
  int zeroCount = 0;             // z
};

// The pie chart of the chosen kind for the last run; the dietary load divides by the S of the
// last Berichtschreiben.
PieChart Diagrammzeichnen(const MainWindowModel& model, int kind);

// The slices of values V(1..n) with labels L(1..n): a stable ascending sort, zeros dropped,
// the five largest and "Other" for the rest when seven or more are non-zero.
std::vector<PieSlice> pieSlices(std::vector<double> values, std::vector<std::string> labels,
                                char decimalSeparator, int& zeroCount);

}  // namespace pescavo
