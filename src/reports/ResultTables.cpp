#include "reports/ResultTables.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "reports/PseudoLabels.h"
#include "reports/ReportValues.h"
#include "tables/NumericText.h"

namespace pescavo {

namespace {

const CompositionRow kCompositionHeaders = {"Category",
                                            "Crop (Commodity)",
                                            "CP (%)",
                                            "CL (%)",
                                            "max (%)",
                                            "Residue input value",
                                            "Residue value (mg/kg)",
                                            "Feed composition (%)",
                                            "Dietary load (%)"};

CompositionRow componentRow(const ReportComponent& c, double sum, char sep) {
  const std::string blank = " ";
  return {c.category,
          c.name,
          generalForm(c.protein, sep) + blank,
          generalForm(c.lipid, sep) + blank,
          fixedForm(c.maxInclusion, "0.00", sep) + blank,
          c.basisLabel + blank,
          generalForm(c.storedResidue, sep) + blank,
          fixedForm(c.share, "0.00", sep) + blank,
          fixedForm(loadShare(c, sum), "0.00", sep) + blank};
}

CompositionRow pseudoRow(const ReportPseudo& pseudo, const ReportValues& values, double sum,
                         char sep) {
  const auto f2 = [sep](double value) { return fixedForm(value, "0.00", sep); };
  CompositionRow row;
  row[0] = pseudoLabel(pseudo.kind, LabelPlace::TableCategory);
  switch (pseudo.kind) {
    case VariableKind::PC:
      row[2] = f2(values.fishmealProtein), row[3] = f2(values.fishmealLipid);
      break;
    case VariableKind::CC:
      row[2] = f2(kStarchMakeUp.protein), row[3] = f2(kStarchMakeUp.lipid);
      break;
    case VariableKind::F:
    case VariableKind::Component:
      row[2] = f2(kOilMakeUp.protein), row[3] = f2(kOilMakeUp.lipid);
      break;
  }
  row[4] = f2(100);
  row[5] = "-";
  row[6] = "0";
  row[7] = f2(pseudo.share);
  row[8] = f2(loadShare(pseudo, sum));
  return row;
}

std::string pseudoChartLabel(VariableKind kind, const ReportValues& values, char sep) {
  if (kind != VariableKind::PC) return pseudoLabel(kind, LabelPlace::Chart);
  return "Fish meal (" + fixedForm(values.fishmealProtein, "0.00", sep) + "% protein, " +
         fixedForm(values.fishmealLipid, "0.00", sep) + fishmealLabelEnd(LabelPlace::Chart);
}

}  // namespace

int roundedWidth(double width) { return static_cast<int>(std::nearbyint(width)); }

std::vector<CompositionRow> compositionTable(const ReportValues& values, double sum, char sep) {
  std::vector<CompositionRow> rows;
  rows.reserve(1 + values.components.size() + values.pseudos.size());
  rows.push_back(kCompositionHeaders);
  for (const ReportComponent& component : values.components)
    rows.push_back(componentRow(component, sum, sep));
  for (const ReportPseudo& pseudo : values.pseudos)
    rows.push_back(pseudoRow(pseudo, values, sum, sep));
  return rows;
}

std::array<int, 9> compositionColumnWidths(int gridWidth) {
  const double w = gridWidth;
  return {roundedWidth(w / 4),  roundedWidth(w / 4),  roundedWidth(w / 11),
          roundedWidth(w / 11), roundedWidth(w / 11), roundedWidth(w / 6),
          roundedWidth(w / 5),  roundedWidth(w / 5),  roundedWidth(w / 7)};
}

std::array<int, 9> compositionScreenWidths(int visibleWidth) {
  const std::array<int, 9> design = compositionColumnWidths(100000);
  const double total = std::accumulate(design.begin(), design.end(), 0.0);
  std::array<int, 9> widths{};
  // Each column ends where its share of the whole ends, so the rounding never adds up.
  double end = 0;
  int left = 0;
  for (int c = 0; c < 9; ++c) {
    end += design[c];
    const int right = static_cast<int>(std::floor(end / total * std::max(0, visibleWidth)));
    widths[c] = right - left;
    left = right;
  }
  return widths;
}

bool compositionCellCentred(int row, int column) { return row == 0 || column >= 2; }

PieChart Diagrammzeichnen(const ReportValues& values, double sum, int kind, char sep) {
  PieChart chart;
  if (kind == kDietaryLoad) {
    chart.title = "Dietary load regarding " + values.speciesName;
  } else {
    chart.title = std::string(values.maximum ? "Worst" : "Best") +
                  " case feed composition regarding " + values.speciesName;
  }

  // V and L in the order of the LP variables: the components, then the pseudo-components.
  std::vector<double> v;
  std::vector<std::string> labels;
  v.reserve(values.components.size() + values.pseudos.size());
  labels.reserve(v.capacity());
  const auto value = [&](const ReportVariable& variable) {
    return kind == kDietaryLoad ? loadShare(variable, sum) : variable.share;
  };
  for (const ReportComponent& component : values.components) {
    v.push_back(value(component));
    labels.push_back(component.name);
  }
  for (const ReportPseudo& pseudo : values.pseudos) {
    v.push_back(value(pseudo));
    labels.push_back(pseudoChartLabel(pseudo.kind, values, sep));
  }

  chart.slices = pieSlices(std::move(v), std::move(labels), sep, chart.zeroCount);
  chart.footnote = values.criterionText + " dietary burden based on " + values.substance + " is " +
                   fixedForm(values.burden, "0.000", sep) + " mg/kg.";
  return chart;
}

std::vector<PieSlice> pieSlices(std::vector<double> values, std::vector<std::string> labels,
                                char decimalSeparator, int& zeroCount) {
  const int n = static_cast<int>(values.size());
  labels.resize(n);
  // Neighbour exchange only on a strict inequality, so equal values keep their order.
  for (bool exchanged = true; exchanged;) {
    exchanged = false;
    for (int j = 0; j + 1 < n; ++j) {
      if (values[j] > values[j + 1]) {
        std::swap(values[j], values[j + 1]);
        std::swap(labels[j], labels[j + 1]);
        exchanged = true;
      }
    }
  }
  // 1-based below, as the counts z and m are defined.
  const auto V = [&](int j) -> double& { return values[j - 1]; };
  const auto L = [&](int j) -> std::string& { return labels[j - 1]; };
  int z = 0;
  for (int j = n; j >= 1; --j) {
    if (V(j) == 0) {
      z = j;
      break;
    }
  }
  zeroCount = z;
  const int m = n - z;
  int rows = m <= 5 ? m : 6;
  if (m >= 7) {
    for (int j = z + 1; j <= n - 6; ++j) V(n - 5) = V(n - 5) + V(j);
    L(n - 5) = "Other";
  }
  std::vector<PieSlice> slices;
  slices.reserve(rows);
  for (int r = 1; r <= rows; ++r) {
    const int j = n - r + 1;
    slices.push_back({L(j) + "(" + fixedForm(V(j), "0.00", decimalSeparator) + " %)", V(j)});
  }
  return slices;
}

}  // namespace pescavo
