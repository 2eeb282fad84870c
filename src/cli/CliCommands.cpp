#include "cli/CliCommands.h"

#include <ostream>

#include "cli/Cli.h"
#include "engine/IndependentCheck.h"
#include "engine/LpWriter.h"
#include "engine/MainWindowModel.h"

namespace pescavo {

int runOptimize(MainWindowModel& model, const CliOptions&, std::ostream& out, std::ostream&) {
  model.Optimierung_Click();
  if (!model.ergebnisVisible) return kExitRefused;
  out << model.ergebnisText << '\n';
  return kExitOk;
}

int runLp(MainWindowModel& model, const CliOptions&, std::ostream& out, std::ostream&) {
  // The single run's own first steps, then the programme it would solve.
  model.prepareSingleRun();
  if (model.pleaseAddComponents()) return kExitRefused;
  model.Laden();
  out << writeLp(model.problem, model.criterion(), model.variableNames());
  return kExitOk;
}

int runVerify(MainWindowModel& model, const CliOptions& options, std::ostream& out,
              std::ostream& err) {
  // The run counts as refused when it never reached the solver.
  model.problem = OptimisationProblem();
  const int status = runOptimize(model, options, out, err);
  const bool solved = status == kExitOk || (model.problem.n > 0 && model.problem.residueSum != 0);
  if (!solved) return kExitRefused;
  const CheckResult& check = model.check;
  out << cliLine(check, model.criterion(), model.decimalSeparator) << '\n';
  if (check.verdict == CheckVerdict::Agrees) return kExitOk;
  if (check.verdict == CheckVerdict::Differs) return kExitDiffers;
  return kExitUnchecked;
}

}  // namespace pescavo
