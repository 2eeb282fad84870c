#include <glpk.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "engine/IndependentCheck.h"
#include "engine/LpWriter.h"
#include "engine/RandomProblems.h"

namespace pescavo {
namespace {

namespace fs = std::filesystem;

class LpWriterTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    m_folder = fs::temp_directory_path() /
               ("pescavo-lp-" + std::string(info->name()) + "-" + std::to_string(::getpid()));
    fs::remove_all(m_folder);
    fs::create_directories(m_folder);
  }
  void TearDown() override { fs::remove_all(m_folder); }

  std::string save(const std::string& text, const std::string& name = "run.lp") {
    const fs::path path = m_folder / name;
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
  }

  fs::path m_folder;
};

TEST(LpVariableName, SaysWhichComponentAndStaysLegal) {
  EXPECT_EQ(lpVariableName(1, "Wheat grain"), "x1_Wheat_grain");
  EXPECT_EQ(lpVariableName(6, "PC"), "x6_PC");
  EXPECT_EQ(lpVariableName(12, "Maize, gluten meal (dry) 60%"), "x12_Maize_gluten_meal_dry_60");
  EXPECT_EQ(lpVariableName(3,
                           "R\xC3\xBC"
                           "ben-Schnitzel"),
            "x3_R_ben_Schnitzel");
  EXPECT_EQ(lpVariableName(4, ""), "x4");
  EXPECT_EQ(lpVariableName(5, "  ~~  "), "x5");
  // Long names are cut, never the number that keeps them unique.
  const std::string name = lpVariableName(103, std::string(300, 'a'));
  EXPECT_LE(name.size(), 49u);
  EXPECT_EQ(name.rfind("x103_aaa", 0), 0u);
}

TEST_F(LpWriterTest, IssueExampleReadsBackAsWritten) {
  OptimisationProblem p;
  p.n = 3;
  p.chosenCount = 2;
  p.f = true;
  p.lipid = {10, 10, 100};
  p.protein = {20, 35, 0};
  p.residue = {3.25, -0.1, 0};
  p.maxInclusion = {40, 100, 100};
  p.lipidTarget = 10;
  p.proteinTarget = 35;

  const std::string lp = writeLp(p, Criterion::Minimum, {"Wheat grain", "Soybean meal"});
  EXPECT_NE(lp.find("Minimize\n burden: "), std::string::npos);
  EXPECT_NE(lp.find(" - 0.10000000000000001 x2_Soybean_meal"), std::string::npos);
  EXPECT_NE(lp.find(" sum: 1 x1_Wheat_grain + 1 x2_Soybean_meal + 1 x3_F = 1\n"),
            std::string::npos);
  EXPECT_NE(lp.find(" 0 <= x1_Wheat_grain <= 0.40000000000000002\n"), std::string::npos);
  // Without names the pseudo-components still say what they are.
  EXPECT_NE(writeLp(p, Criterion::Maximum, {})
                .find("Maximize\n burden: 3.25 x1 - 0.10000000000000001 x2 + 0 x3_F\n"),
            std::string::npos);

  glp_term_out(GLP_OFF);
  glp_prob* read = glp_create_prob();
  ASSERT_EQ(glp_read_lp(read, nullptr, save(lp).c_str()), 0);
  EXPECT_EQ(glp_get_obj_dir(read), GLP_MIN);
  ASSERT_EQ(glp_get_num_cols(read), 3);
  EXPECT_STREQ(glp_get_col_name(read, 3), "x3_F");
  EXPECT_EQ(glp_get_obj_coef(read, 1), p.residue[0]);
  EXPECT_EQ(glp_get_obj_coef(read, 2), -0.1);
  EXPECT_EQ(glp_get_col_ub(read, 1), 0.4);
  glp_delete_prob(read);
}

TEST_F(LpWriterTest, SeededProblemsRoundTripExactlyThroughTheReader) {
  testing::RandomProblems problems(7);
  glp_term_out(GLP_OFF);
  for (int k = 0; k < 40; ++k) {
    const testing::RandomProblem made = problems.next();
    const OptimisationProblem& p = made.problem;
    SCOPED_TRACE("problem " + std::to_string(k));
    glp_prob* read = glp_create_prob();
    ASSERT_EQ(glp_read_lp(read, nullptr, save(writeLp(p, made.criterion, made.names)).c_str()), 0);
    ASSERT_EQ(glp_get_num_cols(read), p.n);
    ASSERT_EQ(glp_get_num_rows(read), 3);
    EXPECT_EQ(glp_get_obj_dir(read), made.criterion == Criterion::Maximum ? GLP_MAX : GLP_MIN);
    EXPECT_STREQ(glp_get_row_name(read, 1), "lipid");
    EXPECT_EQ(glp_get_row_lb(read, 1), p.lipidTarget);
    EXPECT_EQ(glp_get_row_ub(read, 2), p.proteinTarget);
    EXPECT_EQ(glp_get_row_lb(read, 3), 1.0);

    std::vector<int> index(p.n + 1);
    std::vector<double> value(p.n + 1);
    std::vector<std::vector<double>> rows(3, std::vector<double>(p.n, 0.0));
    for (int i = 1; i <= 3; ++i) {
      const int count = glp_get_mat_row(read, i, index.data(), value.data());
      for (int t = 1; t <= count; ++t) rows[i - 1][index[t] - 1] = value[t];
    }
    for (int j = 1; j <= p.n; ++j) {
      EXPECT_EQ(glp_get_obj_coef(read, j), p.residue[j - 1]);
      EXPECT_EQ(rows[0][j - 1], p.lipid[j - 1]);
      EXPECT_EQ(rows[1][j - 1], p.protein[j - 1]);
      EXPECT_EQ(rows[2][j - 1], 1.0);
      EXPECT_EQ(glp_get_col_lb(read, j), 0.0);
      EXPECT_EQ(glp_get_col_ub(read, j), p.maxInclusion[j - 1] / 100);
    }
    EXPECT_STREQ(glp_get_col_name(read, p.n), lpVariableName(p.n, made.names[p.n - 1]).c_str());
    glp_delete_prob(read);
  }
}

TEST_F(LpWriterTest, GlpsolFindsTheOptimumOfTheCheck) {
  testing::RandomProblems problems(11);
  int solved = 0;
  for (int k = 0; k < 6; ++k) {
    const testing::RandomProblem made = problems.next(k < 3 ? 5 : 40);
    const GlpkSolution truth = solveWithGlpk(made.problem, made.criterion);
    ASSERT_TRUE(truth.ran);
    const std::string lp = save(writeLp(made.problem, made.criterion, made.names));
    const std::string out = (m_folder / "run.txt").string();
    const std::string command = "glpsol --lp '" + lp + "' -o '" + out + "' > /dev/null 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    std::ifstream report(out);
    std::stringstream text;
    text << report.rdbuf();
    const std::string s = text.str();
    if (!truth.feasible) {
      EXPECT_EQ(s.find("Status:     OPTIMAL"), std::string::npos);
      continue;
    }
    ++solved;
    EXPECT_NE(s.find("Status:     OPTIMAL"), std::string::npos) << s;
    const std::size_t at = s.find("Objective:  burden = ");
    ASSERT_NE(at, std::string::npos) << s;
    const double optimum = std::atof(s.c_str() + at + 21);
    EXPECT_NEAR(optimum, truth.optimum, 1e-5 * std::abs(truth.optimum) + 1e-9);  // printed %.6g
  }
  EXPECT_GT(solved, 0);
}

}  // namespace
}  // namespace pescavo
