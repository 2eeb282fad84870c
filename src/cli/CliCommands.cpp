#include "cli/CliCommands.h"

#include <ostream>

#include "cli/Cli.h"
#include "engine/IndependentCheck.h"
#include "engine/LpWriter.h"
#include "model/MainWindowModel.h"

namespace pescavo {

void CheckTally::add(CheckVerdict verdict) {
  m_differs = m_differs || verdict == CheckVerdict::Differs;
  m_unchecked = m_unchecked || verdict == CheckVerdict::CouldNotRun;
}

int CheckTally::exitStatus() const {
  if (m_differs) return kExitDiffers;
  return m_unchecked ? kExitUnchecked : kExitOk;
}

int runOptimize(MainWindowModel& model, const CliOptions&, std::ostream& out, std::ostream&) {
  model.Optimierung_Click();
  if (!model.visible(ControlId::Ergebnis)) return kExitRefused;
  out << model.result().text << '\n';
  return kExitOk;
}

int runLp(MainWindowModel& model, const CliOptions&, std::ostream& out, std::ostream&) {
  // The single run's own first steps, then the programme it would solve.
  model.prepareSingleRun();
  if (model.pleaseAddComponents()) return kExitRefused;
  model.lastRun().Laden(model.runInput(), model.options().run());
  if (const std::string why = model.lastRun().unusableFigures(); !why.empty()) {
    model.dialogs().information(why);
    return kExitRefused;
  }
  out << writeLp(model.lastRun().problem(), model.lastRun().options().criterion);
  return kExitOk;
}

int runVerify(MainWindowModel& model, const CliOptions& options, std::ostream& out,
              std::ostream& err) {
  const int status = runOptimize(model, options, out, err);
  // The check is of the programme solved: a run refused before the solver has none, and
  // neither has one whose figures could not be shown.
  const FeedRun& run = model.lastRun();
  if (status != kExitOk && !run.solverRan()) return kExitRefused;
  const CheckResult& check = run.check();
  out << cliLine(check, run.options().criterion, model.decimalSeparator()) << '\n';
  CheckTally tally;
  tally.add(check.verdict);
  return tally.exitStatus();
}

}  // namespace pescavo
