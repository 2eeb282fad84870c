#pragma once

// The linear programme of one run, x(j) the share of variable j (a fraction of the feed DM):
//
//   maximise or minimise   sum_j residue(j) x(j)                 [mg/kg DM]
//   subject to             sum_j lipid(j)   x(j) = lipidTarget     [% of DM]
//                          sum_j protein(j) x(j) = proteinTarget   [% of DM]
//                          sum_j x(j)            = 1
//                          x(j) <= maxInclusion(j) / 100,  x(j) >= 0
//
// Variables: the chosen components in list order, then PC, CC and F when switched on.

#include <string>
#include <vector>

namespace pescavo {

enum class Criterion { Maximum, Minimum };

// What a variable stands for: a chosen component or one of the uncontaminated
// pseudo-components, fish meal (PC), starch (CC) and oil (F).
enum class VariableKind { Component, PC, CC, F };

// "PC", "CC" or "F"; empty for a component.
const char* pseudoComponentName(VariableKind kind);

// Crude lipid and protein (percent of DM) of the pseudo-components whose make-up is fixed:
// starch (CC) and oil (F). Fish meal's comes from its grade.
struct PseudoMakeUp {
  double lipid;
  double protein;
};
constexpr PseudoMakeUp kStarchMakeUp{0.1, 0.1};
constexpr PseudoMakeUp kOilMakeUp{100, 0};

struct OptimisationProblem {
  int n = 0;            // variable count
  int chosenCount = 0;  // variables 1..chosenCount are chosen components
  // Per variable j at index j - 1.
  std::vector<VariableKind> kind;
  std::vector<std::string> name;  // the chosen entry's text, or PC, CC, F
  std::vector<double> lipid;
  std::vector<double> protein;
  std::vector<double> residue;       // dry-matter basis after Laden
  std::vector<double> maxInclusion;  // percent
  std::vector<double> dryMatter;     // percent; 0 for pseudo-components
  std::vector<std::string> ifnCode;
  double lipidTarget = 0;
  double proteinTarget = 0;
  double residueSum = 0;  // as read, before the dry-matter conversion
  // Order of the unit matrix: component count of the table + 2. Only matters when n
  // exceeds it (every component chosen together with PC, CC and F).
  int unitOrder = 0;

  // Some variable is of that kind.
  bool has(VariableKind k) const;
  // The name of variable j (1-based): the one recorded, or its pseudo-component name; empty
  // when the problem (one made by hand) says neither.
  std::string variableName(int j) const;
};

struct OptimisationResult {
  bool solvable = false;
  double burden = 0;  // mg/kg of feed DM
  // Share of variable j in percent at index j - 1; holds n + 3 working values.
  std::vector<double> composition;
  // "geht nicht" / "geht nicht 2" when a ratio test found no row; the run is then not solvable.
  std::string pivotFailure;
  int pivots = 0;  // pivots made in both phases
};

}  // namespace pescavo
