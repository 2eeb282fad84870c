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

struct OptimisationProblem {
  int n = 0;            // variable count
  int chosenCount = 0;  // variables 1..chosenCount are chosen components
  bool pc = false;
  bool cc = false;
  bool f = false;
  // Per variable j at index j - 1.
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
