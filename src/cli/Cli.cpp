#include "cli/Cli.h"

#include <algorithm>
#include <ostream>
#include <sstream>

#include "cli/CliCommands.h"
#include "model/MainWindowModel.h"
#include "tables/NumericText.h"
#include "tables/TableError.h"

namespace pescavo {

namespace {

// Messages of the core go to stderr; nobody can answer a question, so every question is No.
class StreamDialogs : public Dialogs {
 public:
  explicit StreamDialogs(std::ostream& err) : m_err(err) {}
  void information(const std::string& text) override { m_err << text << '\n'; }
  bool askYesNo(const std::string& text) override {
    m_err << text << " [No]\n";
    return false;
  }

 private:
  std::ostream& m_err;
};

class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The options each command takes besides --input, --decimal and --report-folder. The sweep
// sets the pseudo-components and the MRBD switch itself, so it takes neither.
const std::vector<std::string>& optionsOf(const std::string& command, bool scenarios) {
  static const std::vector<std::string> none;
  static const std::vector<std::string> substance = {"--substance", "--substance-number"};
  static const std::vector<std::string> sweep = {"--substance", "--substance-number", "--species",
                                                 "--criterion", "--component",        "--all",
                                                 "--fishmeal"};
  static const std::vector<std::string> run = {"--substance", "--substance-number",
                                               "--species",   "--criterion",
                                               "--component", "--all",
                                               "--no-pc",     "--no-cc",
                                               "--no-f",      "--no-mrbd",
                                               "--fishmeal",  "--simple"};
  static const std::vector<std::string> verify = [] {
    std::vector<std::string> options = run;
    options.push_back("--scenarios");
    return options;
  }();
  static const std::vector<std::string> explain = [] {
    std::vector<std::string> options = run;
    options.push_back("--format");
    return options;
  }();
  static const std::vector<std::string> verifyScenarios = [] {
    std::vector<std::string> options = sweep;
    options.push_back("--scenarios");
    return options;
  }();
  static const std::vector<std::string> screenScenarios = {"--species", "--criterion", "--fishmeal",
                                                           "--scenarios", "--format"};
  static const std::vector<std::string> screen = {"--species",   "--criterion", "--fishmeal",
                                                  "--scenarios", "--format",    "--no-pc",
                                                  "--no-cc",     "--no-f",      "--no-mrbd"};
  if (command == "check" || command == "substances") return none;
  if (command == "components") return substance;
  if (command == "sweep") return sweep;
  if (command == "verify") return scenarios ? verifyScenarios : verify;
  if (command == "screen") return scenarios ? screenScenarios : screen;
  if (command == "optimize" || command == "report" || command == "lp") return run;
  if (command == "explain") return explain;
  throw UsageError("unknown command " + command);
}

bool isGlobal(const std::string& option) {
  return option == "--input" || option == "--decimal" || option == "--report-folder";
}

bool isRepeatable(const std::string& option) {
  return option == "--component" || option == "--all";
}

int parseCount(const std::string& option, const std::string& value, int lowest) {
  std::istringstream in(value);
  int number = 0;
  if (!(in >> number) || !in.eof() || number < lowest)
    throw UsageError(option + " takes a whole number from " + std::to_string(lowest) + " up");
  return number;
}

std::string takeValue(const std::vector<std::string>& args, size_t& i) {
  if (i + 1 >= args.size()) throw UsageError(args[i] + " needs a value");
  return args[++i];
}

void readOption(const std::vector<std::string>& args, size_t& i, CliOptions& options) {
  const std::string& arg = args[i];
  if (arg == "--input") {
    options.inputFolder = takeValue(args, i);
    if (options.inputFolder.empty()) throw UsageError("--input needs a folder");
  } else if (arg == "--decimal") {
    const std::string value = takeValue(args, i);
    if (value != "." && value != ",") throw UsageError("--decimal takes \".\" or \",\"");
    options.decimal = value[0];
  } else if (arg == "--report-folder") {
    options.reportFolder = takeValue(args, i);
    if (options.reportFolder.empty()) throw UsageError("--report-folder needs a folder");
  } else if (arg == "--substance") {
    options.substance = takeValue(args, i);
    options.hasSubstance = true;
  } else if (arg == "--substance-number") {
    options.substanceNumber = parseCount(arg, takeValue(args, i), 1);
  } else if (arg == "--species") {
    const std::string value = takeValue(args, i);
    options.bothSpecies = value == "both";
    if (value != "carp" && value != "trout" && !options.bothSpecies)
      throw UsageError("--species takes carp or trout (screen also both)");
    options.carp = value == "carp";
  } else if (arg == "--criterion") {
    const std::string value = takeValue(args, i);
    if (value != "max" && value != "min") throw UsageError("--criterion takes max or min");
    options.minimum = value == "min";
  } else if (arg == "--component") {
    options.moves.push_back({false, takeValue(args, i)});
  } else if (arg == "--all") {
    options.moves.push_back({true, std::string()});
  } else if (arg == "--no-pc") {
    options.pc = false;
  } else if (arg == "--no-cc") {
    options.cc = false;
  } else if (arg == "--no-f") {
    options.f = false;
  } else if (arg == "--no-mrbd") {
    options.mrbd = false;
  } else if (arg == "--fishmeal") {
    options.fishmeal = parseCount(arg, takeValue(args, i), 0);
  } else if (arg == "--simple") {
    options.simple = true;
  } else if (arg == "--format") {
    options.format = takeValue(args, i);
  } else if (arg == "--scenarios") {
    options.scenarios = true;
  } else {
    throw UsageError("unknown option " + arg);
  }
}

CliOptions parse(const std::vector<std::string>& args, char defaultDecimal) {
  CliOptions options;
  options.decimal = defaultDecimal;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (arg.empty() || arg[0] != '-') {
      if (!options.command.empty()) throw UsageError("unexpected argument \"" + arg + "\"");
      options.command = arg;
      continue;
    }
    const bool seen =
        std::find(options.given.begin(), options.given.end(), arg) != options.given.end();
    if (seen && !isRepeatable(arg)) throw UsageError(arg + " is given more than once");
    readOption(args, i, options);
    if (!seen) options.given.push_back(arg);
  }
  if (options.command.empty()) throw UsageError("no command given");
  const std::vector<std::string>& taken = optionsOf(options.command, options.scenarios);
  for (const std::string& option : options.given) {
    if (!isGlobal(option) && std::find(taken.begin(), taken.end(), option) == taken.end())
      throw UsageError(options.command + " does not take " + option);
  }
  if (!options.format.empty()) {
    const bool screen = options.command == "screen";
    if (screen && options.format != "tsv" && options.format != "csv")
      throw UsageError("--format takes tsv or csv");
    if (!screen && options.format != "text" && options.format != "tsv")
      throw UsageError("--format takes text or tsv");
  }
  if (options.bothSpecies && options.command != "screen")
    throw UsageError("--species both is for screen only");
  if (options.simple && !options.pc)
    throw UsageError("--simple always uses fish meal (PC); it cannot be given with --no-pc");
  return options;
}

// The substance named by --substance or --substance-number, as a 0-based list position.
int substancePosition(const CliOptions& options, const ComponentTable& table) {
  const int count = table.substanceCount();
  if (options.substanceNumber > 0) {
    if (options.substanceNumber > count)
      throw UsageError("--substance-number " + std::to_string(options.substanceNumber) +
                       ": there are only " + std::to_string(count) + " substances");
    const std::string& name = table.substanceName(options.substanceNumber);
    if (options.hasSubstance && name != options.substance)
      throw UsageError("substance " + std::to_string(options.substanceNumber) + " is \"" + name +
                       "\", not \"" + options.substance + "\"");
    return options.substanceNumber - 1;
  }
  if (!options.hasSubstance) throw UsageError("--substance NAME is required");
  std::vector<int> holders;
  for (int s = 1; s <= count; ++s)
    if (table.substanceName(s) == options.substance) holders.push_back(s);
  if (holders.empty()) throw UsageError("unknown substance \"" + options.substance + "\"");
  if (holders.size() > 1) {
    std::string numbers;
    for (size_t k = 0; k < holders.size(); ++k)
      numbers += (k == 0                    ? ""
                  : k + 1 == holders.size() ? " and "
                                            : ", ") +
                 std::to_string(holders[k]);
    throw UsageError("substances " + numbers + " are all named \"" + options.substance +
                     "\"; choose one with --substance-number " + std::to_string(holders[0]));
  }
  return holders[0] - 1;
}

// Sets the controls as a user would: substance, then the moves, then the options.
// The grades come from Fishmeal.tab, so a grade can be judged only once the tables are read.
void checkFishmealGrade(const CliOptions& options, const MainWindowModel& model) {
  const int grades = static_cast<int>(model.runInput().fishmeal.size());
  if (options.fishmeal >= grades)
    throw UsageError("--fishmeal " + std::to_string(options.fishmeal) + ": there are only " +
                     std::to_string(grades) + " fish-meal grades");
}

void applyRunOptions(const CliOptions& options, MainWindowModel& model) {
  model.selectSubstance(substancePosition(options, model.database().table()));
  for (const CliOptions::Move& move : options.moves) {
    if (move.all) {
      model.selection().alle_rein();
      continue;
    }
    const std::vector<ListEntry>& available = model.selection().available();
    const auto found =
        std::find_if(available.begin(), available.end(),
                     [&](const ListEntry& entry) { return entry.text == move.component; });
    if (found == available.end())
      throw UsageError("component \"" + move.component + "\" is not available for \"" +
                       model.substanceName() + "\"");
    model.selection().clearSelection();
    model.selection().setSelected(static_cast<int>(found - available.begin()), true);
    model.selection().Rein();
  }
  model.options().setSpeciesOption(options.carp ? Species::CommonCarp : Species::RainbowTrout);
  model.options().setCriterionOption(options.minimum ? Criterion::Minimum : Criterion::Maximum);
  model.options().setPseudoComponents({options.pc || options.simple, options.cc, options.f});
  model.options().setMrbdLimits(options.mrbd);
  if (options.fishmeal >= 0) {
    model.options().setFishmealGrade(options.fishmeal);
    model.options().setKeepFishmealGrade(true);
  }
}

int runCheck(const MainWindowModel& model, std::ostream& out, std::ostream& err) {
  for (const std::string& warning : model.database().duplicateWarnings()) err << warning << '\n';
  out << model.database().table().componentCount() << " components, "
      << model.database().table().substanceCount() << " substances, "
      << model.runInput().species.size() << " species, " << model.runInput().fishmeal.size()
      << " fish-meal grades\n";
  return kExitOk;
}

int runSubstances(const MainWindowModel& model, std::ostream& out) {
  for (int s = 1; s <= model.database().table().substanceCount(); ++s)
    out << model.database().table().substanceName(s) << '\n';
  return kExitOk;
}

int runComponents(const MainWindowModel& model, std::ostream& out) {
  for (const ListEntry& entry : model.selection().available()) out << entry.text << '\n';
  return kExitOk;
}

using Runner = int (*)(MainWindowModel&, const CliOptions&, std::ostream&, std::ostream&);

Runner runnerOf(const CliOptions& options) {
  const std::string& command = options.command;
  if (command == "optimize") return runOptimize;
  if (command == "report") return runReport;
  if (command == "sweep") return runSweep;
  if (command == "lp") return runLp;
  if (command == "verify") return options.scenarios ? runVerifyScenarios : runVerify;
  if (command == "explain") return runExplain;
  return nullptr;
}

}  // namespace

int runCli(const std::vector<std::string>& args, char defaultDecimal, std::ostream& out,
           std::ostream& err) {
  if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
    out << cliHelp();
    return kExitOk;
  }
  if (args.size() == 1 && args[0] == "--version") {
    out << "pescavo-cli " << PESCAVO_VERSION << '\n';
    return kExitOk;
  }
  CliOptions options;
  try {
    options = parse(args, defaultDecimal);
  } catch (const UsageError& error) {
    err << "pescavo-cli: " << error.what() << '\n' << cliUsage() << '\n';
    return kExitBadInput;
  }
  StreamDialogs dialogs(err);
  MainWindowModel model(dialogs, options.decimal);
  model.report().reportFolder = options.reportFolder;
  try {
    model.startUp(options.inputFolder, options.simple);
  } catch (const TableError& error) {
    err << error.what() << '\n';
    return kExitBadInput;
  }
  const std::string& command = options.command;
  if (command == "check") return runCheck(model, out, err);
  if (command == "substances") return runSubstances(model, out);
  try {
    checkFishmealGrade(options, model);
    if (command == "screen") return runScreen(model, options, out, err);
    applyRunOptions(options, model);
    if (command == "components") return runComponents(model, out);
    return runnerOf(options)(model, options, out, err);
  } catch (const UsageError& error) {
    err << "pescavo-cli: " << error.what() << '\n';
    return kExitBadInput;
  } catch (const TableError& error) {
    err << error.what() << '\n';
    return kExitRefused;
  }
}

}  // namespace pescavo
