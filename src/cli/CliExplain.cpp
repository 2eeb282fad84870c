#include <ostream>

#include "cli/Cli.h"
#include "cli/CliCommands.h"
#include "model/Explanation.h"
#include "model/MainWindowModel.h"

namespace pescavo {

// As optimize (the TSV without its statement, so that every line is a row), then the
// explanation of the true optimum. A result the method got wrong, or a programme it could not
// solve that has an optimum, is explained too, with status 3.
int runExplain(MainWindowModel& model, const CliOptions& options, std::ostream& out,
               std::ostream&) {
  const bool tsv = options.format == "tsv";
  model.Optimierung_Click();
  const bool result = model.visible(ControlId::Ergebnis);
  if (result && !tsv) out << model.result().text << '\n';
  const FeedRun& run = model.lastRun();
  if (!run.solverRan()) return kExitRefused;
  const Explanation explanation = explainRun(run);
  if (!explanation.available) return kExitRefused;
  const char separator = model.decimalSeparator();
  out << (tsv ? explanationTsv(explanation, separator) : explanationText(explanation, separator));
  if (explanation.reportDiffers) return kExitDiffers;
  return result ? kExitOk : kExitRefused;
}

}  // namespace pescavo
