#pragma once

// Why an optimum is what it is: which limits of the programme hold it where it is, how fast
// the burden follows each of them, and over which values of the limit that rate stays true.
// Read from GLPK's optimal basis: the dual of each equation and the reduced cost of each share
// at its maximum inclusion, their ranges from the basis staying feasible as the limit moves.
//
// Every limit is in percent as the assessor sets it: the maximum inclusion and the sum in
// percent of the feed DM, the lipid and protein targets in percent of DM. The programme holds
// the shares and the sum as fractions, so their duals are divided by 100.

#include <vector>

#include "engine/OptimisationProblem.h"

namespace pescavo {

enum class LimitKind { Lipid, Protein, Sum, MaxInclusion };

struct LimitSensitivity {
  LimitKind kind = LimitKind::Sum;
  int variable = 0;      // 1-based, for MaxInclusion
  bool binding = false;  // the optimum sits on this limit
  double limit = 0;      // percent
  double rate = 0;       // d burden / d limit, mg/kg per percentage point
  // The limit's values between which the rate holds, percent; an unlimited end is infinite.
  double lowest = 0;
  double highest = 0;
};

struct Sensitivity {
  bool solved = false;              // GLPK found an optimum
  double optimum = 0;               // mg/kg of feed DM
  std::vector<double> composition;  // percent per variable, index j - 1
  // Lipid, protein and sum, then the maximum inclusion of each chosen component.
  std::vector<LimitSensitivity> limits;
};

// Solves the programme with GLPK from the basis startPercent implies (the reported
// composition; empty for GLPK's own start), so that among equal optima the one reported is
// explained.
Sensitivity analyseSensitivity(const OptimisationProblem& problem, Criterion criterion,
                               const std::vector<double>& startPercent);

}  // namespace pescavo
