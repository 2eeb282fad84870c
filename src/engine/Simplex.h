#pragma once

#include "engine/OptimisationProblem.h"
#include "engine/SimplexTableau.h"

namespace pescavo {

// Solves the problem Laden built with the fixed-pass two-phase simplex method. When phase 1
// ends infeasible (or a ratio test finds no row), result.solvable is false and burden and
// composition keep their previous values.
void Rechnen(const OptimisationProblem& problem, Criterion criterion, SimplexTableau& tableau,
             OptimisationResult& result);

}  // namespace pescavo
