#include "cli/Cli.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tables/ComponentTable.h"
#include "tables/FishTables.h"

namespace fs = std::filesystem;

namespace pescavo {
namespace {

struct Outcome {
  int status;
  std::string out;
  std::string err;
};

Outcome cli(std::vector<std::string> args, char decimal = '.') {
  std::ostringstream out, err;
  const int status = runCli(args, decimal, out, err);
  return {status, out.str(), err.str()};
}

std::vector<std::string> lines(const std::string& text) {
  std::vector<std::string> result;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) result.push_back(line);
  return result;
}

// A private copy of the sample tables that a test may break.
class CliFolderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_root = fs::temp_directory_path() /
             ("pescavo-cli-" + std::string(::testing::UnitTest::GetInstance()
                                                ->current_test_info()
                                                ->name()));
    fs::remove_all(m_root);
    fs::create_directories(m_root);
    fs::copy(PESCAVO_SAMPLE_INPUT, input());
  }
  void TearDown() override { fs::remove_all(m_root); }
  std::string input() const { return (m_root / "Input").string(); }
  void replaceLine(const std::string& file, int lineNumber, const std::string& text) {
    const fs::path path = fs::path(input()) / file;
    std::ifstream in(path, std::ios::binary);
    std::vector<std::string> all;
    for (std::string line; std::getline(in, line);) all.push_back(line);
    in.close();
    all.at(lineNumber - 1) = text;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    for (const std::string& line : all) out << line << '\n';
  }
  fs::path m_root;
};

const std::string kSample = PESCAVO_SAMPLE_INPUT;

std::string firstSubstance() { return lines(cli({"--input", kSample, "substances"}).out).at(0); }

TEST(CliTest, CheckDescribesTheSampleData) {
  const Outcome o = cli({"--input", kSample, "check"});
  ASSERT_EQ(o.status, 0) << o.err;
  const ComponentTable table = readComponentTable(kSample + "/feedstuff.tab");
  const size_t grades = readFishmealTable(kSample + "/Fishmeal.tab").size();
  EXPECT_EQ(o.out, std::to_string(table.componentCount()) + " components, " +
                       std::to_string(table.substanceCount()) + " substances, 2 species, " +
                       std::to_string(grades) + " fish-meal grades\n");
  const std::vector<std::string> names = lines(cli({"--input", kSample, "substances"}).out);
  ASSERT_EQ(static_cast<int>(names.size()), table.substanceCount());
  for (int s = 1; s <= table.substanceCount(); ++s) EXPECT_EQ(names[s - 1], table.substanceName(s));
}

TEST_F(CliFolderTest, BrokenTablesGiveOneLineAndExitTwo) {
  struct Case {
    std::string file;
    int line;
    std::string text;
  };
  const std::vector<Case> cases = {{"feedstuff.tab", 3, "By-Products\tWheat\tbran"},
                                   {"Species.tab", 1, "Species\tCommon carp\tRainbow trout\tTench"},
                                   {"Fishmeal.tab", 2, ""}};
  for (const Case& c : cases) {
    fs::remove_all(input());
    fs::copy(kSample, input());
    replaceLine(c.file, c.line, c.text);
    const Outcome o = cli({"--input", input(), "check"});
    EXPECT_EQ(o.status, 2) << c.file;
    EXPECT_EQ(std::count(o.err.begin(), o.err.end(), '\n'), 1) << o.err;
    EXPECT_NE(o.err.find(c.file), std::string::npos) << o.err;
    EXPECT_NE(o.err.find("line " + std::to_string(c.line)), std::string::npos) << o.err;
    EXPECT_TRUE(o.out.empty());
  }
  for (const char* file : {"feedstuff.tab", "Species.tab", "Fishmeal.tab"}) {
    fs::remove_all(input());
    fs::copy(kSample, input());
    fs::remove(fs::path(input()) / file);
    const Outcome o = cli({"--input", input(), "check"});
    EXPECT_EQ(o.status, 2) << file;
    EXPECT_NE(o.err.find(file), std::string::npos) << o.err;
  }
}

TEST(CliTest, OptimizePrintsTheStatement) {
  const std::string name = firstSubstance();
  const Outcome o = cli({"--input", kSample, "optimize", "--substance", name, "--all"});
  ASSERT_EQ(o.status, 0) << o.err;
  const std::regex statement("Maximum content dietary burden based on " + std::string("(.*)") +
                             R"( is (\d+)\.(\d{3}) mg/kg\.\n)");
  std::smatch match;
  ASSERT_TRUE(std::regex_match(o.out, match, statement)) << o.out;
  EXPECT_EQ(match[1], name);

  const Outcome comma =
      cli({"--input", kSample, "--decimal", ",", "optimize", "--substance", name, "--all"});
  std::string expected = o.out;
  expected[expected.rfind('.', expected.size() - 8)] = ',';
  EXPECT_EQ(comma.out, expected);

  const Outcome minimum = cli({"--input", kSample, "optimize", "--substance", name, "--all",
                               "--criterion", "min", "--species", "trout"});
  ASSERT_EQ(minimum.status, 0) << minimum.err;
  EXPECT_EQ(minimum.out.rfind("Minimum content dietary burden based on ", 0), 0u);
}

TEST(CliTest, ComponentsAreMovedInTheOrderGiven) {
  const std::string name = firstSubstance();
  const std::vector<std::string> available =
      lines(cli({"--input", kSample, "components", "--substance", name}).out);
  ASSERT_GE(available.size(), 3u);
  // Moving the same component twice is the same as moving it once.
  const Outcome twice = cli({"--input", kSample, "lp", "--substance", name, "--component",
                             available[2], "--component", available[0], "--component",
                             available[2]});
  ASSERT_EQ(twice.status, 0) << twice.err;
  const Outcome once = cli({"--input", kSample, "lp", "--substance", name, "--component",
                            available[2], "--component", available[0]});
  EXPECT_EQ(twice.out, once.out);
  EXPECT_LT(once.out.find("x1_"), once.out.find("x2_"));
}

TEST(CliTest, RefusalsAndBadOptions) {
  const std::string name = firstSubstance();
  Outcome o = cli({"--input", kSample, "optimize", "--substance", name});
  EXPECT_EQ(o.status, 1);
  EXPECT_EQ(o.err, "Please add components.\n");
  EXPECT_TRUE(o.out.empty());

  o = cli({"--input", kSample, "optimize", "--substance", "No such substance", "--all"});
  EXPECT_EQ(o.status, 2);
  EXPECT_NE(o.err.find("No such substance"), std::string::npos);
  o = cli({"--input", kSample, "optimize", "--substance", name, "--component", "Moon (dust)"});
  EXPECT_EQ(o.status, 2);
  EXPECT_NE(o.err.find("Moon (dust)"), std::string::npos);
  for (const std::vector<std::string>& bad :
       {std::vector<std::string>{"optimize", "--all"},
        {"optimize", "--substance", name, "--species", "pike"},
        {"optimize", "--substance", name, "--criterion", "median"},
        {"optimize", "--substance", name, "--fishmeal", "99"},
        {"optimize", "--substance", name, "--fishmeal", "x"},
        {"--decimal", ";", "check"},
        {"optimize", "--substance", name, "--bogus"},
        {"dance"}}) {
    std::vector<std::string> args = {"--input", kSample};
    args.insert(args.end(), bad.begin(), bad.end());
    EXPECT_EQ(cli(args).status, 2) << bad.back();
  }
}

TEST(CliTest, ReportPrintsOnlyTheReportText) {
  const std::string name = firstSubstance();
  const Outcome o = cli({"--input", kSample, "report", "--substance", name, "--all"});
  ASSERT_EQ(o.status, 0) << o.err;
  EXPECT_EQ(o.out.rfind(std::string(70, '-') + "\r\n\r\nPescavo concerning " + name + "\r\n", 0), 0u);
  const Outcome statement = cli({"--input", kSample, "optimize", "--substance", name, "--all"});
  // The statement's " mg/kg." ends the results line as " mg/kg (dry matter).".
  const std::string result =
      statement.out.substr(0, statement.out.size() - 8) + " mg/kg (dry matter).\r\n";
  EXPECT_NE(o.out.find("RESULTS\r\n=======\r\n\r\n" + result), std::string::npos) << o.out;
  EXPECT_EQ(cli({"--input", kSample, "report", "--substance", name}).status, 1);
}

TEST_F(CliFolderTest, SweepWritesBothReportFiles) {
  const std::string name = firstSubstance();
  const std::string folder = m_root.string();
  const Outcome o = cli({"--input", input(), "--report-folder", folder, "sweep", "--substance",
                         name, "--all"});
  ASSERT_EQ(o.status, 0) << o.err;
  const std::vector<std::string> rows = lines(o.out);
  ASSERT_EQ(rows.size(), 16u);
  EXPECT_EQ(rows[0].rfind("1\tWithout PC, CC, F \t", 0), 0u);
  EXPECT_EQ(rows[3].rfind("4\tPC - \"maximum reasonable balanced diet (MRBD)\"\t", 0), 0u);
  std::ifstream txt(m_root / "Report.txt", std::ios::binary);
  const std::string report((std::istreambuf_iterator<char>(txt)), {});
  // One press of "Open Full Report File": header block, summary, then the runs.
  EXPECT_EQ(report.rfind(std::string(70, '-') + "\r\n\r\nPescavo concerning " + name, 0), 0u);
  EXPECT_NE(report.find("REPORT\r\n\r\nScenario\tMaximum Residue Value\r\n"), std::string::npos);
  EXPECT_TRUE(fs::exists(m_root / "Report.rtf"));
  EXPECT_EQ(std::ifstream(m_root / "Report.rtf").get(), '{');
}

// Every sample substance, both criteria and species: the method and GLPK agree on all sixteen
// runs of the sweep. A change to the sample tables that breaks this is a finding to pin.
TEST_F(CliFolderTest, IndependentCheckAgreesOnTheSampleData) {
  for (const std::string& name : lines(cli({"--input", input(), "substances"}).out)) {
    for (const char* criterion : {"max", "min"}) {
      for (const char* species : {"carp", "trout"}) {
        const Outcome o =
            cli({"--input", input(), "--report-folder", m_root.string(), "verify", "--scenarios",
                 "--substance", name, "--all", "--criterion", criterion, "--species", species});
        EXPECT_EQ(o.status, 0) << name << " " << criterion << " " << species << "\n" << o.out;
        EXPECT_EQ(lines(o.out).size(), 16u);
      }
    }
  }
  const Outcome single =
      cli({"--input", input(), "verify", "--substance", firstSubstance(), "--all"});
  ASSERT_EQ(single.status, 0);
  EXPECT_EQ(lines(single.out).at(1).rfind("Independent check: agrees", 0), 0u);
  EXPECT_EQ(cli({"--input", input(), "verify", "--substance", firstSubstance()}).status, 1);
}

// The programme written by lp, solved by glpsol, gives the optimum that verify names.
std::string run(const std::string& command) {
  std::string output;
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return output;
  char buffer[4096];
  while (size_t n = fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, n);
  pclose(pipe);
  return output;
}

TEST_F(CliFolderTest, LpSolvedByGlpsolMatchesTheOptimisation) {
  if (run("command -v glpsol").empty()) GTEST_SKIP() << "glpsol is not installed";
  const std::string cliPath = PESCAVO_CLI;
  const std::vector<std::string> names = lines(cli({"--input", input(), "substances"}).out);
  int compared = 0;
  for (const std::string& name : names) {
    for (const char* criterion : {"max", "min"}) {
      const std::string lpFile = (m_root / "run.lp").string();
      const std::string solution = (m_root / "run.txt").string();
      const std::string options = "--substance '" + name + "' --all --criterion " + criterion;
      run("'" + cliPath + "' --input '" + input() + "' lp " + options + " > '" + lpFile + "'");
      run("glpsol --lp '" + lpFile + "' -w '" + solution + "' > /dev/null 2>&1");
      // glpsol's plain-text solution: "s bas <rows> <cols> <prim> <dual> <objective>"
      std::ifstream in(solution);
      std::string line, objective;
      while (std::getline(in, line)) {
        if (line.rfind("s bas", 0) == 0) {
          std::istringstream fields(line);
          std::string word, prim;
          for (int k = 0; k < 4; ++k) fields >> word;
          fields >> prim >> word >> objective;
          if (prim != "f") objective = "infeasible";
        }
      }
      ASSERT_FALSE(objective.empty()) << name << " " << criterion;
      const Outcome verify = cli({"--input", input(), "verify", "--substance", name, "--all",
                                  "--criterion", criterion});
      const Outcome optimize = cli({"--input", input(), "optimize", "--substance", name,
                                    "--all", "--criterion", criterion});
      if (objective == "infeasible") {
        EXPECT_EQ(optimize.status, 1) << name;
        continue;
      }
      char rounded[32];
      std::snprintf(rounded, sizeof rounded, "%.3f", std::stod(objective) + 1e-12);
      if (verify.status == 0) {
        EXPECT_NE(optimize.out.find(std::string(" is ") + rounded + " mg/kg."), std::string::npos)
            << name << " " << criterion << ": glpsol " << objective << ", " << optimize.out;
      } else {
        EXPECT_NE(verify.out.find(rounded), std::string::npos) << verify.out;
      }
      ++compared;
    }
  }
  EXPECT_GE(compared, 8);
}

}  // namespace
}  // namespace pescavo
