#pragma once

#include <string>
#include <vector>

#include "engine/OptimisationProblem.h"

namespace pescavo {

// The programme of one run in CPLEX LP format, as glpsol --lp reads it: objective "burden",
// rows "lipid", "protein" and "sum", and the bounds 0 <= x <= max inclusion / 100 as the
// tableau's upper-bound rows state them. Variables are named after what they stand for.
// Numbers round-trip (%.17g).
std::string writeLp(const OptimisationProblem& problem, Criterion criterion);

// "x<j>_<name>" reduced to letters, digits and underscores: legal in LP files and unique
// through its number.
std::string lpVariableName(int j, const std::string& name);

}  // namespace pescavo
