#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace pescavo {

class MainWindowModel;
enum class CheckVerdict;

// The exit code the independent checks of a command's runs give: 3 when one differs, else 4
// when one could not run, else 0.
class CheckTally {
 public:
  void add(CheckVerdict verdict);
  int exitStatus() const;

 private:
  bool m_differs = false;
  bool m_unchecked = false;
};

struct CliOptions {
  struct Move {
    bool all = false;  // "---->>" rather than "--->" of one component
    std::string component;
  };
  std::string command;
  std::string inputFolder = "Input";
  std::string reportFolder = ".";
  char decimal = '.';
  std::string substance;
  bool hasSubstance = false;
  int substanceNumber = 0;  // 1-based list position; 0 when not given
  bool carp = true;
  bool minimum = false;
  std::vector<Move> moves;
  bool pc = true;
  bool cc = true;
  bool f = true;
  bool mrbd = true;
  int fishmeal = -1;  // chooser position; -1 leaves the default
  bool simple = false;
  bool scenarios = false;
  bool bothSpecies = false;        // screen --species both
  std::string format;              // empty: the command's own (explain text, screen tsv)
  std::vector<std::string> given;  // the options on the command line, each once
};

// The commands that run the engine; the model's controls are already set.
int runOptimize(MainWindowModel& model, const CliOptions& options, std::ostream& out,
                std::ostream& err);
int runReport(MainWindowModel& model, const CliOptions& options, std::ostream& out,
              std::ostream& err);
// The one-line usage shown with a bad command line, and what --help prints.
const char* cliUsage();
const char* cliHelp();

int runSweep(MainWindowModel& model, const CliOptions& options, std::ostream& out,
             std::ostream& err);
int runLp(MainWindowModel& model, const CliOptions& options, std::ostream& out, std::ostream& err);
int runVerify(MainWindowModel& model, const CliOptions& options, std::ostream& out,
              std::ostream& err);
int runExplain(MainWindowModel& model, const CliOptions& options, std::ostream& out,
               std::ostream& err);
int runScreen(MainWindowModel& model, const CliOptions& options, std::ostream& out,
              std::ostream& err);
int runVerifyScenarios(MainWindowModel& model, const CliOptions& options, std::ostream& out,
                       std::ostream& err);

}  // namespace pescavo
