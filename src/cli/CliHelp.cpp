#include "cli/CliCommands.h"

namespace pescavo {

namespace {

const char* const kUsage =
    "usage: pescavo-cli [--input DIR] [--decimal SEP] [--report-folder DIR] COMMAND [RUN OPTIONS]\n"
    "commands: check, substances, components --substance NAME, optimize, report, sweep, lp,\n"
    "          verify [--scenarios], explain [--format text|tsv],\n"
    "          screen [--species carp|trout|both] [--criterion max|min] [--scenarios]\n"
    "                 [--format tsv|csv]\n"
    "run options: --substance NAME | --substance-number N, --species carp|trout,\n"
    "             --criterion max|min, --component TEXT, --all, --no-pc, --no-cc, --no-f,\n"
    "             --no-mrbd, --fishmeal N, --simple";

// What --help prints; the manual page is made from it, so it is the one description.
const char* const kHelp =
    "Usage: pescavo-cli [--input DIR] [--decimal SEP] [--report-folder DIR] COMMAND [RUN OPTIONS]\n"
    "\n"
    "Computes the dietary burden of a fish feed for one pesticide, in mg/kg of feed dry matter,\n"
    "from feedstuff.tab, Species.tab and Fishmeal.tab, as the desktop program pescavo does.\n"
    "\n"
    "Commands:\n"
    "  check                  read the tables and count components, substances, species and\n"
    "                         fish-meal grades; warn of equal components or substance names\n"
    "  substances             list the substances, one per line\n"
    "  components             list the components available for --substance\n"
    "  optimize               \"Optimize\": print the result statement\n"
    "  report                 \"Optimize\", then \"Report\": print the report text\n"
    "  sweep                  \"Optimize all Scenarios\": write Report.txt and Report.rtf and\n"
    "                         print number, description and burden of each run\n"
    "  lp                     print the run's linear programme in CPLEX LP format\n"
    "  verify                 as optimize, then the independent check's verdict; with\n"
    "                         --scenarios the sweep and one verdict per run\n"
    "  explain                as optimize, then which limits hold the optimum where it is: per\n"
    "                         limit whether it binds, its value in percent, the burden's change\n"
    "                         in mg/kg per further percent of it and the range in percent over\n"
    "                         which that holds; with --format tsv a header line and one TAB-\n"
    "                         separated line per limit (constraint, binding, limit, rate, from,\n"
    "                         to; an end without a bound empty) and nothing else\n"
    "  screen                 every substance over all its available components, one row per\n"
    "                         run: number, substance, species, criterion, scenario (with\n"
    "                         --scenarios: the sweep's sixteen runs; a sweep refused at a run\n"
    "                         ends with that run's row, as the sweep does), burden or why\n"
    "                         there is none, above 0.1, the independent check's verdict and,\n"
    "                         where it differs, the true optimum. Takes --species (also\n"
    "                         both), --criterion, --format tsv|csv (default tsv), --fishmeal,\n"
    "                         and without --scenarios --no-pc, --no-cc, --no-f, --no-mrbd.\n"
    "                         Writes no report file; shows a progress bar when stderr is a\n"
    "                         terminal; Ctrl+C stops it and prints the rows done\n"
    "\n"
    "Options:\n"
    "  --input DIR            folder with the tables (default: Input)\n"
    "  --decimal SEP          \".\" or \",\" for written numbers (default: the locale's)\n"
    "  --report-folder DIR    where the sweep writes its report files (default: .)\n"
    "  --help                 print this text and exit\n"
    "  --version              print the version and exit\n"
    "\n"
    "Run options (the defaults are the main window's: Maximum, PC, CC, F and MRBD on, carp):\n"
    "  --substance NAME       the substance\n"
    "  --substance-number N   the substance by its 1-based place in the list\n"
    "  --species carp|trout   the fish species (screen: also both)\n"
    "  --criterion max|min    worst case (maximum) or best case (minimum)\n"
    "  --component TEXT       move the component \"Crop (Commodity)\" in (repeatable)\n"
    "  --all                  move every available component in\n"
    "  --no-pc, --no-cc, --no-f\n"
    "                         leave out fish meal, starch or oil\n"
    "  --no-mrbd              without the maximum inclusions (MRBD)\n"
    "  --fishmeal N           0-based fish-meal grade for PC, used as given; without it the\n"
    "                         third, 2\n"
    "  --simple               the simple layout: every available component takes part\n"
    "  --format text|tsv      explain: sentences and a table (default), or TSV\n"
    "\n"
    "Exit status:\n"
    "  0 done; 1 the run was refused or is not solvable; 2 bad options or a table that cannot\n"
    "  be read; 3 the independent check differs (explain then explains the true optimum);\n"
    "  4 the check could not run; 5 a report file could not be written (the old one is kept);\n"
    "  130 screen was stopped by Ctrl+C (the rows done are printed).\n";

}  // namespace

const char* cliUsage() { return kUsage; }
const char* cliHelp() { return kHelp; }

}  // namespace pescavo
