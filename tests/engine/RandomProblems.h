#pragma once

// Seeded programmes as Laden builds them from realistic tables: one or two decimals, zero
// residues, oils, fish-meal-like components and the ties real tables produce. The engine output
// is mapped by hand, so a seed gives the same problems with every standard library.

#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "engine/OptimisationProblem.h"

namespace pescavo::testing {

struct RandomProblem {
  OptimisationProblem problem;
  Criterion criterion = Criterion::Maximum;
  std::vector<std::string> names;  // per variable
};

class RandomProblems {
 public:
  explicit RandomProblems(std::uint64_t seed) : m_engine(seed) {}

  // n between 1 and 103, small programmes (where ties bite most) drawn more often.
  RandomProblem next() { return next(chance(0.4) ? integer(1, 8) : integer(1, 103)); }

  RandomProblem next(int n) {
    RandomProblem made;
    OptimisationProblem& p = made.problem;
    made.criterion = chance(0.5) ? Criterion::Maximum : Criterion::Minimum;
    const bool trout = chance(0.5);
    p.lipidTarget = trout ? 15 : 8, p.proteinTarget = trout ? 42 : 35;
    const bool mrbd = chance(0.5), allPseudo = chance(0.4);
    p.pc = n > 1 && (allPseudo || chance(0.5));
    p.cc = n > 1 + p.pc && (allPseudo || chance(0.5));
    p.f = n > 1 + p.pc + p.cc && (allPseudo || chance(0.5));
    p.n = n, p.chosenCount = n - p.pc - p.cc - p.f, p.unitOrder = 200;
    for (int j = 1; j <= p.chosenCount; ++j) {
      const double kind = uniform(0, 1);
      const bool oil = kind < 0.08, meal = !oil && kind < 0.16;
      double lipid = rounded(oil ? uniform(98.5, 99.9) : meal ? uniform(5, 12) : uniform(0.5, 25));
      double protein = rounded(oil ? uniform(0, 0.5) : meal ? uniform(60, 72) : uniform(2, 60));
      if (j > 1 && chance(0.1)) lipid = p.lipid.back(), protein = p.protein.back();
      if (chance(0.05)) lipid = p.lipidTarget;
      if (chance(0.05)) protein = p.proteinTarget;
      const double residue = chance(0.25) ? 0.0 : std::round(uniform(0.01, 5) * 100) / 100;
      const double limit = mrbd ? 5.0 * integer(1, 20) : 100.0;  // drawn before dry matter
      add(made, "Component " + std::to_string(j), lipid, protein, residue, limit,
          rounded(uniform(85, 95)));
      p.residueSum += residue;
    }
    if (p.residueSum == 0) p.residue[0] = p.residueSum = 0.5;  // the callers refuse such runs
    for (int j = 0; j < p.chosenCount; ++j) p.residue[j] = p.residue[j] / p.dryMatter[j] * 100;
    static const double grades[][2] = {{8, 70}, {10, 65}, {9.5, 64}, {12, 60}, {7, 72}};
    const int grade = p.pc ? integer(0, 4) : 0;
    if (p.pc) add(made, "PC", grades[grade][0], grades[grade][1], 0, 100, 0);
    if (p.cc) add(made, "CC", 0.1, 0.1, 0, 100, 0);
    if (p.f) add(made, "F", 100, 0, 0, 100, 0);
    return made;
  }

 private:
  double uniform(double low, double high) {
    return low + (high - low) * (static_cast<double>(m_engine() >> 11) * 0x1.0p-53);
  }
  int integer(int low, int high) {
    return low + static_cast<int>(m_engine() % static_cast<std::uint64_t>(high - low + 1));
  }
  bool chance(double probability) { return uniform(0, 1) < probability; }
  static double rounded(double value) { return std::round(value * 10) / 10; }

  static void add(RandomProblem& made, std::string name, double lipid, double protein,
                  double residue, double maxInclusion, double dryMatter) {
    OptimisationProblem& p = made.problem;
    p.lipid.push_back(lipid), p.protein.push_back(protein), p.residue.push_back(residue);
    p.maxInclusion.push_back(maxInclusion), p.dryMatter.push_back(dryMatter);
    p.ifnCode.push_back(dryMatter > 0 ? "4-00-" + std::to_string(100 + p.lipid.size()) : "");
    made.names.push_back(std::move(name));
  }

  std::mt19937_64 m_engine;
};

}  // namespace pescavo::testing
