#pragma once

#include <array>
#include <string>
#include <vector>

namespace pescavo {

struct ReportValues;

using CompositionRow = std::array<std::string, 9>;

// The composition table ErgebnisGrid of a run: row 0 the headers, then one row per chosen
// component and one per pseudo-component (PC, CC, F). The dietary load divides by burdenSum.
std::vector<CompositionRow> compositionTable(const ReportValues& values, double burdenSum,
                                             char decimalSeparator);
// Column widths for a grid of the given width; they add up to more than it on purpose.
std::array<int, 9> compositionColumnWidths(int gridWidth);
// The same proportions on screen, scaled so that every column fits the grid's visible width
// and together they fill it exactly.
std::array<int, 9> compositionScreenWidths(int visibleWidth);
// Header cells and columns 2 to 8 are centred; the other body cells keep the default.
bool compositionCellCentred(int row, int column);

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

// The pie chart of the chosen kind for a run; the dietary load divides by burdenSum, the S of
// the last report section.
PieChart Diagrammzeichnen(const ReportValues& values, double burdenSum, int kind,
                          char decimalSeparator);

// Widths are whole units, rounded half to even as the grid's integer properties do.
int roundedWidth(double width);

// The slices of values V(1..n) with labels L(1..n): a stable ascending sort, zeros dropped,
// the five largest and "Other" for the rest when seven or more are non-zero.
std::vector<PieSlice> pieSlices(std::vector<double> values, std::vector<std::string> labels,
                                char decimalSeparator, int& zeroCount);

}  // namespace pescavo
