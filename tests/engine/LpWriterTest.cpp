#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "engine/IndependentCheck.h"
#include "engine/LpWriter.h"
#include "engine/RandomProblems.h"
#include "engine/SimplexOracles.h"

namespace pescavo {
namespace {

namespace fs = std::filesystem;

TEST(LpWriter, VariableNamesSayWhichComponentAndStayLegal) {
  EXPECT_EQ(lpVariableName(1, "Wheat grain"), "x1_Wheat_grain");
  EXPECT_EQ(lpVariableName(12, "Maize, gluten meal (dry) 60%"), "x12_Maize_gluten_meal_dry_60");
  EXPECT_EQ(lpVariableName(3, "R\u00fcben-Schnitzel"), "x3_R_ben_Schnitzel");
  EXPECT_EQ(lpVariableName(4, ""), "x4");
  EXPECT_EQ(lpVariableName(5, "  ~~  "), "x5");
  // Long names are cut, never the number that keeps them unique.
  const std::string name = lpVariableName(103, std::string(300, 'a'));
  EXPECT_EQ(name, "x103_" + std::string(43, 'a'));
}

TEST(LpWriter, WritesTheProgrammeWithRoundTripNumbers) {
  const OptimisationProblem p = testing::feed({{10, 20, 3.25, 40}, {10, 35, -0.1, 100}}, 10, 35, 4);
  const std::string lp = writeLp(p, Criterion::Minimum, {"Wheat grain", "Soybean meal"});
  for (const char* line : {"Minimize\n burden: 3.25 x1_Wheat_grain - 0.10000000000000001 "
                           "x2_Soybean_meal + 0 x3_F\nSubject To\n",
                           " lipid: 10 x1_Wheat_grain + 10 x2_Soybean_meal + 100 x3_F = 10\n",
                           " sum: 1 x1_Wheat_grain + 1 x2_Soybean_meal + 1 x3_F = 1\nBounds\n",
                           " 0 <= x1_Wheat_grain <= 0.40000000000000002\n 0 <= x2_Soybean_meal"})
    EXPECT_NE(lp.find(line), std::string::npos) << line << "\n" << lp;
  // Without names the pseudo-components still say what they are.
  EXPECT_NE(writeLp(p, Criterion::Maximum, {})
                .find("Maximize\n burden: 3.25 x1 - 0.10000000000000001 x2 + 0 x3_F\n"),
            std::string::npos);
}

TEST(LpWriter, GlpsolReadsItBackAndFindsTheOptimumOfTheCheck) {
  const fs::path folder = fs::temp_directory_path() / ("pescavo-lp-" + std::to_string(::getpid()));
  fs::create_directories(folder);
  const std::string lp = (folder / "run.lp").string(), out = (folder / "run.txt").string();
  testing::RandomProblems problems(11);
  int solved = 0;
  for (int k = 0; k < 6; ++k) {
    const testing::RandomProblem made = problems.next(k < 3 ? 5 : 40);  // 40: wrapped lines
    const GlpkSolution truth = solveWithGlpk(made.problem, made.criterion);
    ASSERT_TRUE(truth.ran);
    std::ofstream(lp, std::ios::binary) << writeLp(made.problem, made.criterion, made.names);
    const std::string command = "glpsol --lp '" + lp + "' -o '" + out + "' > /dev/null 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    std::ifstream report(out);
    const std::string s((std::istreambuf_iterator<char>(report)), {});
    const int n = made.problem.n;
    EXPECT_NE(s.find(lpVariableName(n, made.names[n - 1])), std::string::npos) << s;
    EXPECT_EQ(s.find("Status:     OPTIMAL") != std::string::npos, truth.feasible) << s;
    if (!truth.feasible) continue;
    ++solved;
    const std::size_t at = s.find("Objective:  burden = ");
    ASSERT_NE(at, std::string::npos) << s;
    EXPECT_NEAR(std::atof(s.c_str() + at + 21), truth.optimum,  // printed with 6 digits
                1e-5 * std::abs(truth.optimum) + 1e-9);
  }
  EXPECT_GT(solved, 0);
  fs::remove_all(folder);
}

}  // namespace
}  // namespace pescavo
