#pragma once

// Why the worst (or best) case is what it is, in figures and in words an assessor reads: the
// limits the optimum sits on, how much each further percent of them would move the burden,
// and over which values of the limit that holds. Always of the true optimum: where the
// fixed-pass method reported something else, the explanation says so.

#include <string>
#include <vector>

#include "engine/IndependentCheck.h"
#include "engine/OptimisationProblem.h"
#include "engine/Sensitivity.h"

namespace pescavo {

class FeedRun;

struct ExplanationLine {
  std::string constraint;  // the component's display text, "lipid", "protein" or "sum"
  LimitSensitivity limit;
};

struct Explanation {
  bool available = false;  // the independent solver found the optimum
  Criterion criterion = Criterion::Maximum;
  double optimum = 0;          // mg/kg, the true one
  bool reportDiffers = false;  // the run's own result is not the true optimum
  double reportedBurden = 0;
  bool reportedSolvable = false;
  std::vector<ExplanationLine> lines;  // lipid, protein, sum, then the chosen components
};

Explanation explainOptimum(const OptimisationProblem& problem, Criterion criterion,
                           const OptimisationResult& reported, const CheckResult& check);
// The last run's, when it gave a result; otherwise nothing is available.
Explanation explainRun(const FeedRun& run);

// A header line, then one line per constraint: constraint, binding (yes/no), limit, rate,
// lower and upper end of the range; TAB-separated, an unlimited end empty.
std::string explanationTsv(const Explanation& explanation, char decimalSeparator);
// The same as a table in columns, for reading.
std::string explanationTable(const Explanation& explanation, char decimalSeparator);
// The sentences: what the optimum is, then one per binding limit.
std::vector<std::string> explanationSentences(const Explanation& explanation,
                                              char decimalSeparator);
// Sentences, a blank line and the table, lines ended by "\n"; what the window shows.
std::string explanationText(const Explanation& explanation, char decimalSeparator);

}  // namespace pescavo
