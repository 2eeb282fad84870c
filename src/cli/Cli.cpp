#include "cli/Cli.h"

#include <ostream>
#include <sstream>

#include "cli/CliCommands.h"
#include "engine/MainWindowModel.h"
#include "tables/NumericText.h"
#include "tables/TableError.h"

namespace pescavo {

namespace {

const char* const kUsage =
    "usage: pescavo-cli [--input DIR] [--decimal SEP] [--report-folder DIR] COMMAND [RUN OPTIONS]\n"
    "commands: check, substances, components --substance NAME, optimize, report, sweep, lp,\n"
    "          verify [--scenarios]\n"
    "run options: --substance NAME --species carp|trout --criterion max|min --component TEXT\n"
    "             --all --no-pc --no-cc --no-f --no-mrbd --fishmeal N --simple";

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

bool takeValue(const std::vector<std::string>& args, size_t& i, std::string& value) {
  if (i + 1 >= args.size()) throw UsageError(args[i] + " needs a value");
  value = args[++i];
  return true;
}

CliOptions parse(const std::vector<std::string>& args, char defaultDecimal) {
  CliOptions options;
  options.decimal = defaultDecimal;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    std::string value;
    if (arg == "--input") {
      takeValue(args, i, options.inputFolder);
    } else if (arg == "--decimal") {
      takeValue(args, i, value);
      if (value != "." && value != ",") throw UsageError("--decimal takes \".\" or \",\"");
      options.decimal = value[0];
    } else if (arg == "--report-folder") {
      takeValue(args, i, options.reportFolder);
    } else if (arg == "--substance") {
      takeValue(args, i, options.substance);
      options.hasSubstance = true;
    } else if (arg == "--species") {
      takeValue(args, i, value);
      if (value != "carp" && value != "trout") throw UsageError("--species takes carp or trout");
      options.carp = value == "carp";
    } else if (arg == "--criterion") {
      takeValue(args, i, value);
      if (value != "max" && value != "min") throw UsageError("--criterion takes max or min");
      options.minimum = value == "min";
    } else if (arg == "--component") {
      takeValue(args, i, value);
      options.moves.push_back({false, value});
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
      takeValue(args, i, value);
      std::istringstream in(value);
      int position = -1;
      if (!(in >> position) || !in.eof() || position < 0)
        throw UsageError("--fishmeal takes a chooser position 0, 1, 2, ...");
      options.fishmeal = position;
    } else if (arg == "--simple") {
      options.simple = true;
    } else if (arg == "--scenarios") {
      options.scenarios = true;
    } else if (!arg.empty() && arg[0] == '-') {
      throw UsageError("unknown option " + arg);
    } else if (options.command.empty()) {
      options.command = arg;
    } else {
      throw UsageError("unexpected argument " + arg);
    }
  }
  if (options.command.empty()) throw UsageError("no command given");
  return options;
}

// Sets the controls as a user would: substance, then the moves, then the options.
void applyRunOptions(const CliOptions& options, MainWindowModel& model) {
  if (!options.hasSubstance) throw UsageError("--substance NAME is required");
  int position = -1;
  for (int s = 1; s <= model.table.substanceCount(); ++s) {
    if (model.table.substanceName(s) == options.substance) {
      position = s - 1;
      break;
    }
  }
  if (position < 0) throw UsageError("unknown substance \"" + options.substance + "\"");
  model.selectSubstance(position);
  for (const CliOptions::Move& move : options.moves) {
    if (move.all) {
      model.alle_rein();
      continue;
    }
    int found = -1;
    for (size_t p = 0; p < model.fischfutter1.size(); ++p) {
      if (model.fischfutter1[p].text == move.component) {
        found = static_cast<int>(p);
        break;
      }
    }
    if (found < 0)
      throw UsageError("component \"" + move.component + "\" is not available for \"" +
                       options.substance + "\"");
    model.selected1.assign(model.fischfutter1.size(), false);
    model.setSelected1(found, true);
    model.Rein();
  }
  model.setOption3(options.carp);
  model.setOption1(options.minimum);
  model.setCheck1(options.pc || options.simple);
  model.setCheck4(options.cc);
  model.setCheck5(options.f);
  model.setCheck2(options.mrbd);
  if (options.fishmeal >= 0) {
    if (options.fishmeal >= static_cast<int>(model.fishmeal.size()))
      throw UsageError("--fishmeal " + std::to_string(options.fishmeal) + ": there are only " +
                       std::to_string(model.fishmeal.size()) + " fish-meal grades");
    model.setFischmehl(options.fishmeal);
  }
}

int runCheck(const MainWindowModel& model, std::ostream& out) {
  out << model.table.componentCount() << " components, " << model.table.substanceCount()
      << " substances, " << model.species.size() << " species, " << model.fishmeal.size()
      << " fish-meal grades\n";
  return kExitOk;
}

int runSubstances(const MainWindowModel& model, std::ostream& out) {
  for (int s = 1; s <= model.table.substanceCount(); ++s)
    out << model.table.substanceName(s) << '\n';
  return kExitOk;
}

int runComponents(const MainWindowModel& model, std::ostream& out) {
  for (const ListEntry& entry : model.fischfutter1) out << entry.text << '\n';
  return kExitOk;
}

}  // namespace

int runCli(const std::vector<std::string>& args, char defaultDecimal, std::ostream& out,
           std::ostream& err) {
  CliOptions options;
  try {
    options = parse(args, defaultDecimal);
  } catch (const UsageError& error) {
    err << "pescavo-cli: " << error.what() << '\n' << kUsage << '\n';
    return kExitBadInput;
  }
  StreamDialogs dialogs(err);
  MainWindowModel model(dialogs, options.decimal);
  model.report.reportFolder = options.reportFolder;
  try {
    model.startUp(options.inputFolder, options.simple);
  } catch (const TableError& error) {
    err << error.what() << '\n';
    return kExitBadInput;
  }
  const std::string& command = options.command;
  if (command == "check") return runCheck(model, out);
  if (command == "substances") return runSubstances(model, out);
  try {
    if (command == "components") {
      applyRunOptions(options, model);
      return runComponents(model, out);
    }
    using Runner = int (*)(MainWindowModel&, const CliOptions&, std::ostream&, std::ostream&);
    Runner runner = nullptr;
    if (command == "optimize") runner = runOptimize;
    if (command == "report") runner = runReport;
    if (command == "sweep") runner = runSweep;
    if (command == "lp") runner = runLp;
    if (command == "verify") runner = options.scenarios ? runVerifyScenarios : runVerify;
    if (!runner) throw UsageError("unknown command " + command);
    applyRunOptions(options, model);
    return runner(model, options, out, err);
  } catch (const UsageError& error) {
    err << "pescavo-cli: " << error.what() << '\n';
    return kExitBadInput;
  } catch (const TableError& error) {
    err << error.what() << '\n';
    return kExitRefused;
  }
}

}  // namespace pescavo
