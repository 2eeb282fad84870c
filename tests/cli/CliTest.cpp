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

#include "cli/Cli.h"
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

// Runs the command line over a private copy of the sample tables that a test may break.
class CliTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_root = fs::temp_directory_path() /
             ("pescavo-cli-" +
              std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(m_root);
    fs::create_directories(m_root);
    fs::copy(PESCAVO_SAMPLE_INPUT, input());
    m_substance = lines(cli({"substances"}).out).at(0);
  }
  void TearDown() override { fs::remove_all(m_root); }

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
  std::string readFile(const std::string& name) const {
    std::ifstream in(m_root / name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }

  fs::path m_root;
  std::string m_substance;
};

TEST_F(CliTest, CheckDescribesTheTablesOrNamesWhatIsWrong) {
  const ComponentTable table = readComponentTable(input() + "/feedstuff.tab");
  Outcome o = cli({"check"});
  ASSERT_EQ(o.status, 0) << o.err;
  EXPECT_EQ(o.out, std::to_string(table.componentCount()) + " components, " +
                       std::to_string(table.substanceCount()) + " substances, 2 species, " +
                       std::to_string(readFishmealTable(input() + "/Fishmeal.tab").size()) +
                       " fish-meal grades\n");
  EXPECT_EQ(lines(cli({"substances"}).out).size(), size_t(table.substanceCount()));

  const struct {
    const char* file;
    int line;  // 0: the file is missing
    const char* text;
  } broken[] = {{"feedstuff.tab", 3, "By-Products\tWheat\tbran"},
                {"Species.tab", 1, "Species\tCommon carp\tRainbow trout\tTench"},
                {"Fishmeal.tab", 2, ""},
                {"feedstuff.tab", 0, ""},
                {"Species.tab", 0, ""},
                {"Fishmeal.tab", 0, ""}};
  for (const auto& b : broken) {
    fs::remove_all(input());
    fs::copy(PESCAVO_SAMPLE_INPUT, input());
    const fs::path path = fs::path(input()) / b.file;
    if (b.line == 0) {
      fs::remove(path);
    } else {
      std::vector<std::string> all = lines(readFile("Input/" + std::string(b.file)));
      all.at(b.line - 1) = b.text;
      std::ofstream out(path, std::ios::binary);
      for (const std::string& line : all) out << line << '\n';
    }
    o = cli({"check"});
    EXPECT_EQ(o.status, 2) << b.file;
    EXPECT_TRUE(o.out.empty());
    EXPECT_EQ(std::count(o.err.begin(), o.err.end(), '\n'), 1) << o.err;
    EXPECT_NE(o.err.find(b.file), std::string::npos) << o.err;
    if (b.line) {
      EXPECT_NE(o.err.find("line " + std::to_string(b.line)), std::string::npos) << o.err;
    }
  }
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
  EXPECT_EQ(report.out.rfind(std::string(70, '-') + "\r\n\r\nPescavo concerning " + m_substance, 0),
            0u);
  EXPECT_NE(report.out.find("RESULTS\r\n=======\r\n\r\n" + o.out.substr(0, o.out.size() - 8) +
                            " mg/kg (dry matter).\r\n"),
            std::string::npos);

  const Outcome none = cli({"optimize", "--substance", m_substance});
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.err, "Please add components.\n");
  EXPECT_EQ(cli({"report", "--substance", m_substance}).status, 1);
  for (const std::vector<std::string>& bad :
       {std::vector<std::string>{"optimize", "--all"},
        {"optimize", "--substance", "No such substance", "--all"},
        {"optimize", "--substance", m_substance, "--component", "Moon (dust)"},
        {"optimize", "--substance", m_substance, "--species", "pike"},
        {"optimize", "--substance", m_substance, "--criterion", "median"},
        {"optimize", "--substance", m_substance, "--fishmeal", "99"},
        {"optimize", "--substance", m_substance, "--fishmeal", "x"},
        {"--decimal", ";", "check"},
        {"optimize", "--substance", m_substance, "--bogus"},
        {"dance"}}) {
    const Outcome refused = cli(bad);
    EXPECT_EQ(refused.status, 2) << bad.back();
    EXPECT_FALSE(refused.err.empty());
  }
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
  EXPECT_LT(once.find("x1_"), once.find("x2_"));
}

TEST_F(CliTest, SweepWritesBothReportFiles) {
  const Outcome o = cli({"sweep", "--substance", m_substance, "--all"});
  ASSERT_EQ(o.status, 0) << o.err;
  const auto rows = lines(o.out);
  ASSERT_EQ(rows.size(), 16u);
  EXPECT_EQ(rows[0].rfind("1\tWithout PC, CC, F \t", 0), 0u);
  EXPECT_EQ(rows[3].rfind("4\tPC - \"maximum reasonable balanced diet (MRBD)\"\t", 0), 0u);
  // One press of "Open Full Report File": header block and summary before the runs.
  const std::string report = readFile("Report.txt");
  EXPECT_EQ(report.rfind(std::string(70, '-') + "\r\n\r\nPescavo concerning " + m_substance, 0),
            0u);
  EXPECT_NE(report.find("REPORT\r\n\r\nScenario\tMaximum Residue Value\r\n"), std::string::npos);
  EXPECT_EQ(readFile("Report.rtf").substr(0, 5), "{\\rtf");
}

// Every sample substance, both criteria and species: the method and GLPK agree on all sixteen
// runs. A change of the sample tables that breaks this is a finding to pin.
TEST_F(CliTest, IndependentCheckAgreesOnTheSampleData) {
  for (const std::string& name : lines(cli({"substances"}).out)) {
    for (const char* criterion : {"max", "min"}) {
      for (const char* species : {"carp", "trout"}) {
        const Outcome o = cli({"verify", "--scenarios", "--substance", name, "--all", "--criterion",
                               criterion, "--species", species});
        EXPECT_EQ(o.status, 0) << name << " " << criterion << " " << species << "\n" << o.out;
        const auto rows = lines(o.out);
        ASSERT_EQ(rows.size(), 16u);
        for (size_t run = 0; run < rows.size(); ++run) {
          // "N, agrees, the reported burden, the same true optimum" ("-" and "not solvable").
          std::istringstream fields(rows[run]);
          std::string number, verdict, reported, optimum;
          std::getline(fields, number, '\t'), std::getline(fields, verdict, '\t');
          std::getline(fields, reported, '\t'), std::getline(fields, optimum);
          EXPECT_EQ(number, std::to_string(run + 1));
          EXPECT_EQ(verdict, "agrees");
          EXPECT_EQ(reported == "-" ? "not solvable" : reported, optimum) << rows[run];
        }
      }
    }
  }
  const Outcome single = cli({"verify", "--substance", m_substance, "--all"});
  ASSERT_EQ(single.status, 0);
  EXPECT_EQ(lines(single.out).at(1).rfind("Independent check: agrees", 0), 0u);
  EXPECT_EQ(cli({"verify", "--substance", m_substance}).status, 1);
}

std::string run(const std::string& command) {
  std::string output;
  if (FILE* pipe = popen(command.c_str(), "r")) {
    char buffer[4096];
    while (size_t n = fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, n);
    pclose(pipe);
  }
  return output;
}

// The programme `lp` writes, solved by glpsol, has the optimum that `optimize` reports.
TEST_F(CliTest, LpSolvedByGlpsolMatchesTheOptimisation) {
  if (run("command -v glpsol").empty()) GTEST_SKIP() << "glpsol is not installed";
  const std::string cli = std::string("'") + PESCAVO_CLI + "' --input '" + input() + "' ";
  const std::string lpFile = (m_root / "run.lp").string(), solution = (m_root / "run.txt").string();
  for (const std::string& name : lines(this->cli({"substances"}).out)) {
    for (const char* criterion : {"max", "min"}) {
      const std::string options = "--substance '" + name + "' --all --criterion " + criterion;
      run(cli + "lp " + options + " > '" + lpFile + "'");
      run("glpsol --lp '" + lpFile + "' -w '" + solution + "' > /dev/null 2>&1");
      // "s bas <rows> <columns> <primal status> <dual status> <objective>"
      std::istringstream fields(run("grep '^s bas' '" + solution + "'"));
      std::string word, primal, objective;
      fields >> word >> word >> word >> word >> primal >> word >> objective;
      ASSERT_EQ(primal, "f") << name << " " << criterion;
      char rounded[32];
      std::snprintf(rounded, sizeof rounded, " is %.3f mg/kg.", std::stod(objective) + 1e-12);
      EXPECT_NE(run(cli + "optimize " + options).find(rounded), std::string::npos)
          << name << " " << criterion << ": glpsol " << objective;
    }
  }
}

}  // namespace
}  // namespace pescavo
