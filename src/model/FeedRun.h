#pragma once

#include <string>
#include <vector>

#include "engine/IndependentCheck.h"
#include "engine/OptimisationProblem.h"
#include "engine/SimplexTableau.h"
#include "model/RunOptions.h"
#include "reports/ReportValues.h"
#include "tables/ComponentViews.h"
#include "tables/FishTables.h"
#include "tables/TextIndex.h"

namespace pescavo {

// A burden above this is red wherever it is shown, mg/kg feed dry matter.
constexpr double kBurdenLimit = 0.1;
inline bool aboveBurdenLimit(double burden) { return burden > kBurdenLimit; }

// What a run reads besides its options. Everything referred to outlives the run's use of it.
struct RunInput {
  const std::vector<FishSpecies>& species;
  const std::vector<FishMealGrade>& fishmeal;
  const std::vector<ListEntry>& available;  // Fischfutter1 and its companions
  const std::vector<WorkingSetEntry>& working;
  const std::vector<ListEntry>& chosen;  // Fischfutter2
  int componentCount;                    // of the whole table
  char decimalSeparator;
};

// Why a run stops short of a result, in the order the run finds out; None for a result.
enum class RunStop { None, NoComponents, AllZero, UnusableFigures, NotSolvable, UnusableBurden };

// One optimisation: Laden builds the problem from the input and the options, Rechnen solves it
// and checks the optimum independently. The single run, each run of the sweep, the "Details"
// buttons and the command-line runner all go through run(). The problem's storage is kept
// from run to run, since runs mostly repeat with the same lists.
class FeedRun {
 public:
  static constexpr const char* kNotSolvable =
      "The problem is not solvable. Add more or try different components.";

  // Laden, the refusals before solving, Rechnen and the refusals after it.
  RunStop run(const RunInput& input, const RunOptions& options);
  void Laden(const RunInput& input, const RunOptions& options);
  void Rechnen();

  // What a stop is shown as. The sweep words an all-zero substance its own way.
  std::string message(RunStop stop, bool sweep) const;
  // Why the problem cannot be solved in figures that can be shown, or empty: a value that is
  // not finite, or one so large that its results would not be.
  std::string unusableFigures() const;
  // The same for the burden of a solvable run.
  std::string unusableBurden() const;
  // "geht nicht" when the last run reached the solver and its ratio test failed.
  const std::string& pivotFailure() const;
  RunStop lastStop() const { return m_stop; }
  // The last problem built was solved, with figures that can be shown.
  bool solverRan() const { return m_solved && m_stop != RunStop::UnusableBurden; }

  const RunOptions& options() const { return m_options; }
  const OptimisationProblem& problem() const { return m_problem; }
  const SimplexTableau& tableau() const { return m_tableau; }
  const OptimisationResult& result() const { return m_result; }
  const CheckResult& check() const { return m_check; }
  const std::string& checkSentence() const { return m_checkSentence; }
  // The result box's sentence for a run that gave a result.
  std::string statement(const std::string& substance) const;
  // What the report text, the composition table and the charts are written from.
  void fillReportValues(const RunInput& input, const std::string& substance,
                        ReportValues& values) const;

 private:
  void sizeProblem(int chosen);
  void matchChosenEntries(const RunInput& input);
  void setTargets(const RunInput& input);
  void addPseudoComponents(const RunInput& input);
  void applyMrbdLimits();
  void convertToDryMatter();

  RunOptions m_options;
  char m_decimalSeparator = '.';
  RunStop m_stop = RunStop::NoComponents;
  bool m_solved = false;  // Rechnen ran on the problem Laden built last
  OptimisationProblem m_problem;
  SimplexTableau m_tableau;
  OptimisationResult m_result;
  CheckResult m_check;
  std::string m_checkSentence;
  // The chosen entries as the last Laden matched them: their companions are the matched
  // available entry's.
  std::vector<ListEntry> m_entries;
  LastTextPosition m_lookup;   // kept from run to run
  std::vector<int> m_matched;  // per chosen entry, the available position the last Laden used
};

}  // namespace pescavo
