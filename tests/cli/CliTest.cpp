#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "cli/Cli.h"
#include "engine/LpWriter.h"
#include "support/TempFolder.h"
#include "tables/ComponentTable.h"

namespace fs = std::filesystem;

namespace pescavo {
namespace {

std::string run(const std::string& command) {
  std::string output;
  if (FILE* pipe = popen(command.c_str(), "r")) {
    char buffer[4096];
    while (size_t n = fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, n);
    pclose(pipe);
  }
  return output;
}

// Runs the command line over a private copy of the sample tables that a test may break.
class CliTest : public ::testing::Test {
 protected:
  struct Outcome {
    int status;
    std::string out;
    std::string err;
  };

  void SetUp() override {
    std::filesystem::copy(PESCAVO_SAMPLE_INPUT, input());
    m_substance = lines(cli({"substances"}).out).at(0);
  }

  std::string input() const { return (m_root / "Input").string(); }
  Outcome cli(std::vector<std::string> args) const {
    args.insert(args.begin(), {"--input", input(), "--report-folder", m_root.string()});
    std::ostringstream out, err;
    const int status = runCli(args, '.', out, err);
    return {status, out.str(), err.str()};
  }
  static std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) result.push_back(line);
    return result;
  }
  static std::vector<std::string> cells(const std::string& line) {
    std::vector<std::string> result;
    std::istringstream in(line);
    for (std::string cell; std::getline(in, cell, '\t');) result.push_back(cell);
    return result;
  }

  TempFolder m_folder;
  const std::filesystem::path& m_root = m_folder.path();
  std::string m_substance;
};

// check describes the tables and alone warns, on one stderr line, of a component given twice.
// Every table is read before any command runs: a refused one stops the command with exit code
// 2, nothing on stdout and the reader's message on one stderr line; no sweep begins.
TEST_F(CliTest, CheckDescribesTheTablesAndARefusedTableStopsTheCommand) {
  const std::string path = input() + "/feedstuff.tab";
  const std::vector<std::string> all = lines(m_folder.read("Input/feedstuff.tab"));
  std::ofstream(path, std::ios::binary | std::ios::app) << all.at(1) << '\n';  // line 2 again
  const ComponentTable table = readComponentTable(path);
  const Outcome o = cli({"check"});
  ASSERT_EQ(o.status, 0) << o.err;
  EXPECT_EQ(o.out, std::to_string(table.componentCount()) + " components, " +
                       std::to_string(table.substanceCount()) + " substances, 2 species, 6 " +
                       "fish-meal grades\n");
  EXPECT_EQ(std::count(o.err.begin(), o.err.end(), '\n'), 1) << o.err;
  EXPECT_EQ(o.err.rfind("feedstuff.tab: lines 2 and " + std::to_string(all.size() + 1), 0), 0u);
  EXPECT_TRUE(cli({"substances"}).err.empty());  // check alone warns

  fs::copy_file(fs::path(PESCAVO_FUZZ_SEEDS) / "feedstuff-ranges.tab", path,
                fs::copy_options::overwrite_existing);
  const Outcome refused = cli({"sweep", "--substance", m_substance, "--all"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_TRUE(refused.out.empty());
  EXPECT_EQ(refused.err, path + ": line 2, cell 5: expected the crude protein CP (%) as a number " +
                             "from 0 to 100, found \"500\"\n");
  EXPECT_FALSE(fs::exists(m_root / "Report.txt"));
}

TEST_F(CliTest, OptimizeReportAndRefusals) {
  const Outcome o = cli({"optimize", "--substance", m_substance, "--all"});
  ASSERT_EQ(o.status, 0) << o.err;
  const std::regex statement("Maximum content dietary burden based on " +
                             std::regex_replace(m_substance, std::regex(R"([()])"), R"(\$&)") +
                             R"( is \d+\.\d{3} mg/kg\.\n)");
  EXPECT_TRUE(std::regex_match(o.out, statement)) << o.out;
  std::string comma = o.out;
  comma[comma.size() - 12] = ',';
  EXPECT_EQ(cli({"--decimal", ",", "optimize", "--substance", m_substance, "--all"}).out, comma);
  EXPECT_EQ(cli({"optimize", "--substance", m_substance, "--all", "--criterion", "min", "--species",
                 "trout"})
                .out.rfind("Minimum content dietary burden based on ", 0),
            0u);

  // The report text alone; its results line is the statement's, "(dry matter)" added.
  const Outcome report = cli({"report", "--substance", m_substance, "--all"});
  EXPECT_NE(report.out.find("RESULTS\r\n=======\r\n\r\n" + o.out.substr(0, o.out.size() - 8) +
                            " mg/kg (dry matter).\r\n"),
            std::string::npos);

  const Outcome none = cli({"optimize", "--substance", m_substance});
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.err, "Please add components.\n");
  for (const char* command : {"report", "verify"})  // a run refused before the solver
    EXPECT_EQ(cli({command, "--substance", m_substance}).status, 1) << command;
  // Command lines split at "|", then at blanks; the last give options the command does not
  // take, or takes once.
  std::istringstream commands(
      "optimize --all|optimize --substance Nothing --all|dance|--decimal ; check|"
      "optimize --substance-number 1 --component Moon|optimize --substance-number 99 --all|"
      "optimize --substance-number 1 --species pike|screen --fishmeal 9|screen --format xml|"
      "optimize --substance-number 1 --criterion median|optimize --substance-number 1 --bogus|"
      "optimize --substance-number 1 --fishmeal 99|optimize --substance-number 1 --fishmeal x|"
      "optimize --substance-number 1 --all --species both|check --all|screen --scenarios --no-pc|"
      "explain --substance-number 1 --all --format csv|screen --substance-number 1|"
      "optimize --substance-number 1 --all --scenarios|optimize --all --simple --no-pc|"
      "verify --scenarios --substance-number 1 --all --no-mrbd|lp --substance A --substance A");
  for (std::string bad; std::getline(commands, bad, '|');) {
    std::vector<std::string> args;
    std::istringstream words(bad);
    for (std::string word; words >> word;) args.push_back(word);
    const Outcome refused = cli(args);
    EXPECT_EQ(refused.status, 2) << bad;
    EXPECT_EQ(refused.err.rfind("pescavo-cli: ", 0), 0u) << refused.err;
    EXPECT_TRUE(refused.out.empty());
  }
  // A repeatable move is no repeated option.
  EXPECT_EQ(cli({"optimize", "--substance", m_substance, "--all", "--all"}).out, o.out);
  EXPECT_EQ(cli({"optimize", "--substance-number", "1", "--all"}).out, o.out);

  // Refused before any table is read.
  std::ostringstream out, err;
  EXPECT_EQ(runCli({"--input", (m_root / "nowhere").string(), "--report-folder", "", "check"}, '.',
                   out, err),
            2);
  EXPECT_EQ(err.str().rfind("pescavo-cli: --report-folder needs a folder\n", 0), 0u) << err.str();
}

// A grade given is the grade a run takes, in the simple layout too; without one, the third.
TEST_F(CliTest, FishmealGradeIsUsedAsGiven) {
  for (const char* command : {"optimize", "report", "lp", "verify"}) {
    for (bool simple : {false, true}) {
      std::vector<std::string> args = {command, "--substance", m_substance, "--all"};
      if (simple) args.push_back("--simple");
      const Outcome third = cli(args);
      ASSERT_EQ(third.status, 0) << command << third.err;
      args.insert(args.end(), {"--fishmeal", "2"});
      EXPECT_EQ(cli(args).out, third.out) << command;
      args.back() = "0";
      const Outcome first = cli(args);
      EXPECT_EQ(first.status, 0) << command << first.err;
      EXPECT_NE(first.out, third.out) << command << " simple " << simple;
    }
  }
}

// Two substances of one name: the name alone is refused with the way out, the number picks.
TEST_F(CliTest, ASubstanceNameHeldTwiceNeedsItsNumber) {
  const std::string path = input() + "/feedstuff.tab";
  ComponentTable table = readComponentTable(path);
  const std::string second = table.substanceName(2);
  const auto lp = [&](const char* number) {  // the programme, without the substance's name
    return cli({"lp", "--substance-number", number, "--substance", second, "--all"}).out;
  };
  const std::string expected = lp("2") + "|" + cli({"lp", "--substance-number", "3", "--all"}).out;
  table.setSubstanceName(3, second);
  writeComponentTable(table, path, '.');

  const Outcome ambiguous = cli({"optimize", "--substance", second, "--all"});
  EXPECT_EQ(ambiguous.status, 2);
  EXPECT_EQ(ambiguous.err, "pescavo-cli: substances 2 and 3 are all named \"" + second +
                               "\"; choose one with --substance-number 2\n");
  EXPECT_TRUE(lp("2") + "|" + lp("3") == expected);
  EXPECT_NE(lp("2"), lp("3"));
  EXPECT_EQ(cli({"optimize", "--substance-number", "1", "--substance", second, "--all"}).status, 2);
}

TEST_F(CliTest, ComponentsAreMovedInTheOrderGivenAndOnce) {
  const auto available = lines(cli({"components", "--substance", m_substance}).out);
  ASSERT_GE(available.size(), 3u);
  const auto lp = [&](std::vector<std::string> names) {
    std::vector<std::string> args = {"lp", "--substance", m_substance};
    for (const std::string& name : names) args.insert(args.end(), {"--component", name});
    return cli(args).out;
  };
  const std::string once = lp({available[2], available[0]});
  EXPECT_EQ(lp({available[2], available[0], available[2]}), once);
  // Variables are numbered in the order of the moves.
  EXPECT_NE(once.find(" " + lpVariableName(1, available[2]) + " "), std::string::npos) << once;
  EXPECT_NE(once.find(" " + lpVariableName(2, available[0]) + " "), std::string::npos) << once;
  EXPECT_EQ(once.find(lpVariableName(3, available[2])), std::string::npos) << once;
  const Outcome minimum = cli({"lp", "--substance", m_substance, "--all", "--criterion", "min"});
  EXPECT_NE(minimum.out.find("\nMinimize\n"), std::string::npos) << minimum.out;
}

// The sweep writes both reports; on a disk that takes no byte the last ones stay, each file is
// named once and the exit code says so. verify --scenarios prints a verdict for each run.
TEST_F(CliTest, SweepWritesBothReportsAndAFullDiskKeepsTheLastOnes) {
  const Outcome o = cli({"sweep", "--substance", m_substance, "--all"});
  ASSERT_EQ(o.status, 0) << o.err;
  const auto rows = lines(o.out);
  ASSERT_EQ(rows.size(), 16u);
  EXPECT_EQ(rows[0].rfind("1\tWithout PC, CC, F \t", 0), 0u);
  const std::string txt = m_folder.read("Report.txt"), rtf = m_folder.read("Report.rtf");
  EXPECT_NE(txt.find("REPORT\r\n\r\nScenario\tMaximum Residue Value\r\n"), std::string::npos);
  EXPECT_EQ(rtf.substr(0, 5), "{\\rtf");
  for (const char* command : {"sweep", "verify --scenarios"}) {
    const std::string output =
        run(std::string("trap '' XFSZ; ulimit -f 0; '") + PESCAVO_CLI + "' --input '" + input() +
            "' --report-folder '" + m_root.string() + "' " + command + " --substance '" +
            m_substance + "' --all 2>&1 >/dev/null; echo \"exit $?\"");
    EXPECT_NE(output.find("exit 5"), std::string::npos) << command << ": " << output;
    for (const std::string file : {"/Report.txt:", "/Report.rtf:"}) {
      const size_t first = output.find(file);
      EXPECT_NE(first, std::string::npos) << output;
      EXPECT_EQ(output.find(file, first + 1), std::string::npos) << "named twice: " << output;
    }
    EXPECT_EQ(m_folder.read("Report.txt"), txt) << command;
    EXPECT_EQ(m_folder.read("Report.rtf"), rtf) << command;
  }
  const Outcome verified = cli({"verify", "--scenarios", "--substance", m_substance, "--all"});
  EXPECT_EQ(verified.status, 0) << verified.out;
  const auto verdicts = lines(verified.out);
  ASSERT_EQ(verdicts.size(), 16u);
  for (size_t run = 0; run < verdicts.size(); ++run) {
    const std::string burden = cells(rows[run]).at(2);
    EXPECT_EQ(verdicts[run], std::to_string(run + 1) + "\tagrees\t" + burden + "\t" +
                                 (burden == "-" ? "not solvable" : burden));
  }
}

// --format tsv gives the limits' table alone, in the decimal separator asked for; the text
// form follows the statement.
TEST_F(CliTest, ExplainWritesTheLimitsAsTsvOrAsText) {
  const std::vector<std::string> run = {"explain", "--substance", m_substance, "--all"};
  std::vector<std::string> tsvArgs = run;
  tsvArgs.insert(tsvArgs.end(), {"--format", "tsv"});
  const Outcome tsv = cli(tsvArgs);
  ASSERT_EQ(tsv.status, 0) << tsv.err;
  EXPECT_EQ(tsv.out.rfind("constraint\tbinding\tlimit\trate\tfrom\tto\nlipid\tyes\t", 0), 0u);
  tsvArgs.insert(tsvArgs.begin(), {"--decimal", ","});
  EXPECT_EQ(cli(tsvArgs).out, std::regex_replace(tsv.out, std::regex("\\."), ","));
  const auto said = lines(cli(run).out);
  EXPECT_EQ(said.at(1), "The maximum dietary burden is " + said[0].substr(said[0].size() - 12));
  // A programme without a feed has nothing to explain.
  const Outcome none =
      cli({"explain", "--substance", m_substance, "--component", "Barley (grain)", "--no-pc"});
  EXPECT_EQ(std::pair(none.status, none.out), std::pair(1, std::string()));
  EXPECT_EQ(cli({"explain", "--substance", m_substance, "--all", "--format", "xml"}).status, 2);
}

// Two components that meet both trout targets on their own: without PC, the fixed-pass minimum
// feeds neither, which the check disputes with the true minimum (not the maximum, 4.276). Every
// command that checks says so by its exit code.
TEST_F(CliTest, ARunTheCheckDisputesExitsWithThree) {
  const std::string grain = "Cereal Grains/ Crop Seeds\t";
  std::ofstream(m_root / "Input" / "feedstuff.tab", std::ios::binary)
      << "Category\tCrop\tCommodity\tIFN Code\tCP (%)\tCL (%)\tDM(%)\tmax carp(%)\tmax trout "
         "(%)\tResidueInputValue\tExample\r\n"
      << grain << "Maize\tgrain\t4-02-935\t42\t15\t91.9\t100\t100\t0\t3.93\r\n"
      << grain << "Wheat\tgrain\t4-02-936\t42\t15\t91.9\t100\t100\t0\t1\r\n";
  const std::vector<std::string> run = {"--substance", "Example", "--species", "trout",
                                        "--criterion", "min",     "--all"};
  const auto with = [&](std::vector<std::string> command, std::vector<std::string> extra = {}) {
    command.insert(command.end(), run.begin(), run.end());
    command.insert(command.end(), extra.begin(), extra.end());
    return cli(command);
  };
  EXPECT_EQ(with({"verify"}).status, 0);  // PC takes the place of the maize
  const Outcome disputed = with({"verify"}, {"--no-pc"});
  EXPECT_EQ(disputed.status, 3);
  EXPECT_EQ(disputed.out,
            "Minimum content dietary burden based on Example is 0.000 mg/kg.\nIndependent check: "
            "differs: the true minimum is 1.088 mg/kg; the optimisation reported 0.000 mg/kg; its "
            "feed misses the crude protein target by 41.915 %\n");
  EXPECT_EQ(with({"verify", "--scenarios"}).status, 3);
  EXPECT_EQ(cli({"screen", "--species", "trout", "--criterion", "min"}).status, 0);
  EXPECT_EQ(cli({"screen", "--species", "trout", "--criterion", "min", "--scenarios"}).status, 3);
}

// screen passes its options on (a row is what verify says of that substance with the same
// options) and writes no report; --format csv quotes the burden's decimal comma, and the number
// of runs is said on stderr.
TEST_F(CliTest, ScreenRowsAreTheRunsOfTheOtherCommands) {
  const Outcome screen = cli({"screen", "--species", "both", "--criterion", "min"});
  ASSERT_EQ(screen.status, 0) << screen.err;
  EXPECT_FALSE(fs::exists(m_root / "Report.txt"));
  const std::vector<std::string> rows = lines(screen.out);
  const size_t substances = lines(cli({"substances"}).out).size();
  ASSERT_EQ(rows.size(), 1 + 2 * substances);
  EXPECT_EQ(rows[0],
            "Number\tSubstance\tSpecies\tCriterion\tBurden (mg/kg feed DM)\tAbove 0.1\t"
            "Independent check\tTrue optimum");
  const std::vector<std::string> row = cells(rows.back());
  const std::vector<std::string> verified =
      lines(cli({"verify", "--substance-number", row[0], "--all", "--species", "trout",
                 "--criterion", "min"})
                .out);
  ASSERT_EQ(verified.size(), 2u);
  EXPECT_EQ(verified[0],
            "Minimum content dietary burden based on " + row[1] + " is " + row[4] + " mg/kg.");
  EXPECT_EQ(verified[1].rfind("Independent check: " + row[6], 0), 0u) << verified[1];

  const std::vector<std::string> runs =
      lines(cli({"screen", "--scenarios", "--species", "trout"}).out);
  ASSERT_EQ(runs.size(), 1 + 16 * substances);
  const std::string last = "5\t" + lines(cli({"substances"}).out).back() + "\tRainbow trout\t";
  EXPECT_EQ(runs.back().rfind(last + "Maximum\t16\t", 0), 0u) << runs.back();

  const Outcome csv = cli({"--decimal", ",", "screen", "--format", "csv", "--no-mrbd"});
  EXPECT_TRUE(std::regex_search(lines(csv.out).at(1), std::regex(R"(,"\d+,\d{3}",(yes|no),)")))
      << csv.out;
  EXPECT_EQ(csv.err, "Screening 5 substances: 5 runs\n");
}

// Ctrl+C during a long screening, once the runner has said how many runs it makes (and so
// holds Ctrl+C): it stops, prints the rows done and says so.
TEST_F(CliTest, CtrlCStopsAScreeningWithTheRowsDone) {
  ComponentTable table;
  for (int s = 1; s <= 300; ++s) table.addSubstance("Substance " + std::to_string(s));
  for (int i = 1; i <= 150; ++i) {
    const int c = table.addComponent({"Forages/Fodders", "Crop " + std::to_string(i), "feed", "",
                                      10.0 + i % 40, 1.0 + i % 20, 90, 40, 40});
    for (int s = 1; s <= 300; ++s) table.setResidue(s, c, (i * s) % 17 * 0.01 + 0.01);
  }
  writeComponentTable(table, input() + "/feedstuff.tab", '.');
  const std::string err = m_folder.file("err");
  EXPECT_EQ(
      run(std::string("'") + PESCAVO_CLI + "' --input '" + input() + "' screen --scenarios >'" +
          m_folder.file("out") + "' 2>'" + err + "' & until [ -s '" + err +
          "' ] || ! kill -0 $!; do sleep 0.01; done; kill -INT $!; wait $!; echo $?"),
      "130\n");
  const std::vector<std::string> rows = lines(m_folder.read("out"));
  ASSERT_FALSE(rows.empty());
  EXPECT_EQ(rows[0].rfind("Number\tSubstance\t", 0), 0u);
  EXPECT_LT(rows.size(), 4801u);
  for (size_t k = 1; k < rows.size(); ++k)
    EXPECT_EQ(std::count(rows[k].begin(), rows[k].end(), '\t'), 8) << rows[k];
  EXPECT_EQ(m_folder.read("err"), "Screening 300 substances: 4800 runs\nStopped after " +
                                      std::to_string(rows.size() - 1) + " of 4800 runs.\n");
}

}  // namespace
}  // namespace pescavo
