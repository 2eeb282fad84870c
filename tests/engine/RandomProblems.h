#pragma once

// Seeded generator of programmes as Laden builds them from realistic feed tables: figures
// with one or two decimals as the tables print them, zero residues, oils and fish-meal-like
// components, and the ties that real tables produce (equal figures, a component that meets
// a target on its own). The raw engine output is mapped by hand, so a seed gives the same
// problems with every standard library.

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
  static constexpr int kMaxVariables = 103;

  explicit RandomProblems(std::uint64_t seed) : m_engine(seed) {}

  // n between 1 and 103, small programmes (where ties bite most) drawn more often.
  RandomProblem next() {
    const int n = chance(0.4) ? integer(1, 8) : integer(1, kMaxVariables);
    return next(n);
  }

  RandomProblem next(int n) {
    RandomProblem made;
    OptimisationProblem& p = made.problem;
    made.criterion = chance(0.5) ? Criterion::Maximum : Criterion::Minimum;
    const bool trout = chance(0.5);
    p.lipidTarget = trout ? 15 : 8;
    p.proteinTarget = trout ? 42 : 35;
    const bool mrbd = chance(0.5);

    // The full layout always has all three pseudo-components.
    const bool allPseudo = chance(0.4);
    p.pc = n > 1 && (allPseudo || chance(0.5));
    p.cc = n > 1 + p.pc && (allPseudo || chance(0.5));
    p.f = n > 1 + p.pc + p.cc && (allPseudo || chance(0.5));
    p.n = n;
    p.chosenCount = n - p.pc - p.cc - p.f;
    p.unitOrder = 200;

    for (int j = 1; j <= p.chosenCount; ++j) addComponent(made, j, mrbd);
    if (p.residueSum == 0) {  // the callers refuse such runs
      p.residue[0] = 0.5;
      p.residueSum = 0.5;
    }
    for (int j = 0; j < p.chosenCount; ++j) p.residue[j] = p.residue[j] / p.dryMatter[j] * 100;

    if (p.pc) {
      static const double grades[][2] = {{8, 70}, {10, 65}, {9.5, 64}, {12, 60}, {7, 72}};
      const auto& grade = grades[integer(0, 4)];
      addPseudo(made, "PC", grade[0], grade[1]);
    }
    if (p.cc) addPseudo(made, "CC", 0.1, 0.1);
    if (p.f) addPseudo(made, "F", 100, 0);
    return made;
  }

 private:
  double uniform(double low, double high) {
    const double unit = static_cast<double>(m_engine() >> 11) * 0x1.0p-53;
    return low + (high - low) * unit;
  }
  int integer(int low, int high) {
    return low + static_cast<int>(m_engine() % static_cast<std::uint64_t>(high - low + 1));
  }
  bool chance(double probability) { return uniform(0, 1) < probability; }
  // Division by the scale gives the double nearest the decimal, as reading the table does.
  static double rounded(double value, double scale) { return std::round(value * scale) / scale; }

  void addComponent(RandomProblem& made, int j, bool mrbd) {
    OptimisationProblem& p = made.problem;
    double lipid, protein;
    const double kind = uniform(0, 1);
    if (kind < 0.08) {  // an oil
      lipid = rounded(uniform(98.5, 99.9), 10);
      protein = rounded(uniform(0, 0.5), 10);
    } else if (kind < 0.16) {  // fish-meal-like
      lipid = rounded(uniform(5, 12), 10);
      protein = rounded(uniform(60, 72), 10);
    } else {
      lipid = rounded(uniform(0.5, 25), 10);
      protein = rounded(uniform(2, 60), 10);
    }
    if (j > 1 && chance(0.1)) {  // the same figures as the previous component
      lipid = p.lipid.back();
      protein = p.protein.back();
    }
    if (chance(0.05)) lipid = p.lipidTarget;
    if (chance(0.05)) protein = p.proteinTarget;

    const double rawResidue = chance(0.25) ? 0.0 : rounded(uniform(0.01, 5), 100);
    p.lipid.push_back(lipid);
    p.protein.push_back(protein);
    p.residue.push_back(rawResidue);
    p.residueSum += rawResidue;
    p.maxInclusion.push_back(mrbd ? 5.0 * integer(1, 20) : 100.0);
    p.dryMatter.push_back(rounded(uniform(85, 95), 10));
    p.ifnCode.push_back("4-00-" + std::to_string(100 + j));
    made.names.push_back("Component " + std::to_string(j));
  }

  void addPseudo(RandomProblem& made, const char* name, double lipid, double protein) {
    OptimisationProblem& p = made.problem;
    p.lipid.push_back(lipid);
    p.protein.push_back(protein);
    p.residue.push_back(0);
    p.maxInclusion.push_back(100);
    p.dryMatter.push_back(0);
    p.ifnCode.push_back("");
    made.names.push_back(name);
  }

  std::mt19937_64 m_engine;
};

}  // namespace pescavo::testing
