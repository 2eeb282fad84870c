#pragma once

#include <string>
#include <vector>

#include "engine/OptimisationProblem.h"

namespace pescavo {

// One LP variable of the last run as the reports read it.
struct ReportVariable {
  double maxInclusion = 0;  // M(j), percent
  double dryMatter = 0;     // DM(j), percent; 0 for pseudo-components
  double residue = 0;       // c(j), mg/kg of dry matter
  double share = 0;         // x(j), percent of the feed
};

struct ReportComponent : ReportVariable {
  std::string name;  // Fischfutter2 item
  std::string category;
  std::string basisLabel;  // "STMR" or "STMR-P"
  double protein = 0;      // as stored, percent of DM
  double lipid = 0;
  double storedResidue = 0;  // mg/kg as entered
};

struct ReportPseudo : ReportVariable {
  VariableKind kind = VariableKind::PC;
};

// Everything the report text, the composition table and the pie charts read of a run: its
// problem and result and the choices it was made with. The main window's model fills it; the
// sweep fills one sixteen times, so it is filled in place.
struct ReportValues {
  std::string substance;
  std::string speciesName;
  double lipidTarget = 0;
  double proteinTarget = 0;
  bool maximum = true;
  std::string criterionText;  // "Maximum content" or "Minimum content"
  double burden = 0;
  double fishmealProtein = 0;               // P of the chosen grade
  double fishmealLipid = 0;                 // L of the chosen grade
  std::vector<ReportComponent> components;  // LP variables 1.. in list order
  std::vector<ReportPseudo> pseudos;        // the pseudo-components of the run, PC, CC, F
};

// share(j) = c(j) x(j) / S x 100; 0 when S is 0 (all residues zero), never a division by 0.
double loadShare(const ReportVariable& variable, double burdenSum);

// BurdenSum S: the sum of c(j) x(j), components first, then the pseudo-components.
double burdenSum(const ReportValues& values);

}  // namespace pescavo
