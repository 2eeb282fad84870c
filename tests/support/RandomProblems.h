#pragma once

// Programmes for the engine tests: hand-made feeds in one line, and seeded ones as Laden builds
// them from realistic tables, ties included.

#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "engine/OptimisationProblem.h"

namespace pescavo::testing {

// Variables {lipid, protein, residue, maxInclusion}, then PC, CC and F (bits 1, 2 and 4 of
// pseudo) as the set-up adds them: uncontaminated, limit 100 %.
OptimisationProblem feed(std::vector<std::array<double, 4>> v, double lipidTarget,
                         double proteinTarget, int pseudo = 0);

OptimisationResult solve(const OptimisationProblem& problem, Criterion criterion);

// The problem names its variables as Laden does: "Component j", then PC, CC, F.
struct RandomProblem {
  OptimisationProblem problem;
  Criterion criterion = Criterion::Maximum;
};

class RandomProblems {
 public:
  explicit RandomProblems(std::uint64_t seed) : m_engine(seed) {}

  // n up to 103, small ones (where ties bite most) more often; the same with every library.
  RandomProblem next() { return next(chance(0.4) ? integer(1, 8) : integer(1, 103)); }

  RandomProblem next(int n);

 private:
  double uniform(double low, double high) {
    return low + (high - low) * (static_cast<double>(m_engine() >> 11) * 0x1.0p-53);
  }
  int integer(int low, int high) { return low + static_cast<int>(m_engine() % (high - low + 1)); }
  bool chance(double probability) { return uniform(0, 1) < probability; }
  static double rounded(double value) { return std::round(value * 10) / 10; }
  std::mt19937_64 m_engine;
};

}  // namespace pescavo::testing
