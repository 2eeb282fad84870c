#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "cli/CliFixture.h"
#include "tables/ComponentTable.h"

namespace fs = std::filesystem;

namespace pescavo {
namespace {

constexpr size_t kRuns = 16;  // of a sweep

class CliScreenTest : public CliFixture {};

// screen passes its options on (a row is what verify says of that substance with the same
// options) and writes no report.
TEST_F(CliScreenTest, ScreenRowsAreTheRunsOfTheOtherCommands) {
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
  ASSERT_EQ(row.size(), 8u) << rows.back();
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
  ASSERT_EQ(runs.size(), 1 + kRuns * substances);
  const std::string last = "5\t" + lines(cli({"substances"}).out).back() + "\tRainbow trout\t";
  EXPECT_EQ(runs.back().rfind(last + "Maximum\t16\t", 0), 0u) << runs.back();
}

TEST_F(CliScreenTest, ScreenTakesTheOptionsOfTheRunsItMakes) {
  const Outcome csv = cli({"--decimal", ",", "screen", "--format", "csv", "--no-mrbd"});
  ASSERT_EQ(csv.status, 0) << csv.err;
  // The burden's decimal comma is quoted; the number of runs is said on stderr.
  EXPECT_TRUE(std::regex_search(lines(csv.out).at(1), std::regex(R"(,"\d+,\d{3}",(yes|no),)")))
      << csv.out;
  EXPECT_EQ(csv.err, "Screening 5 substances: 5 runs\n");
}

// Ctrl+C during a long screening: the runner stops, prints the rows done and says so.
TEST_F(CliScreenTest, CtrlCStopsAScreeningWithTheRowsDone) {
  ComponentTable table;
  for (int s = 1; s <= 300; ++s) table.addSubstance("Substance " + std::to_string(s));
  for (int i = 1; i <= 150; ++i) {
    const int c = table.addComponent({"Forages/Fodders", "Crop " + std::to_string(i), "feed", "",
                                      10.0 + i % 40, 1.0 + i % 20, 90, 40, 40});
    for (int s = 1; s <= 300; ++s) table.setResidue(s, c, (i * s) % 17 * 0.01 + 0.01);
  }
  writeComponentTable(table, input() + "/feedstuff.tab", '.');
  int out[2], err[2];
  ASSERT_EQ(::pipe(out), 0);
  ASSERT_EQ(::pipe(err), 0);
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    ::dup2(out[1], 1);
    ::dup2(err[1], 2);
    ::close(out[0]);
    ::close(err[0]);
    const std::string folder = input();
    ::execl(PESCAVO_CLI, PESCAVO_CLI, "--input", folder.c_str(), "screen", "--scenarios",
            static_cast<char*>(nullptr));
    ::_exit(127);
  }
  ::close(out[1]);
  ::close(err[1]);
  // The runner says how many runs it makes once Ctrl+C is in its hands.
  std::string said;
  char c = 0;
  while (said.find('\n') == std::string::npos && ::read(err[0], &c, 1) == 1) said += c;
  EXPECT_EQ(said, "Screening 300 substances: 4800 runs\n");
  ::kill(child, SIGINT);
  std::string printed, rest;
  char buffer[4096];
  for (ssize_t n; (n = ::read(out[0], buffer, sizeof buffer)) > 0;) printed.append(buffer, n);
  for (ssize_t n; (n = ::read(err[0], buffer, sizeof buffer)) > 0;) rest.append(buffer, n);
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
  EXPECT_EQ(WEXITSTATUS(status), 130);
  const std::vector<std::string> rows = lines(printed);
  ASSERT_FALSE(rows.empty());
  EXPECT_EQ(rows[0].rfind("Number\tSubstance\t", 0), 0u);
  EXPECT_LT(rows.size(), 4801u);
  for (size_t k = 1; k < rows.size(); ++k) EXPECT_EQ(cells(rows[k]).size(), 9u) << rows[k];
  EXPECT_EQ(rest, "Stopped after " + std::to_string(rows.size() - 1) + " of 4800 runs.\n");
}

}  // namespace
}  // namespace pescavo
