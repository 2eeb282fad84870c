#pragma once

#include "engine/OptimisationProblem.h"

namespace pescavo {

// MinMax's items: the criterion as the result sentence and the reports name it.
constexpr const char* kMinMaxItems[2] = {"Maximum content", "Minimum content"};

enum class Species { CommonCarp = 0, RainbowTrout = 1 };  // row of Species.tab

// Check1, Check4 and Check5: which pseudo-components join the feed.
struct PseudoComponents {
  bool pc = true;
  bool cc = true;
  bool f = true;
};

// Everything a run takes besides the tables and the components: the hidden choosers MinMax,
// Fischarten and Fischmehl, and the check boxes. A sweep hands each of its runs its own.
struct RunOptions {
  Criterion criterion = Criterion::Maximum;
  int species = 0;  // row of Species.tab
  PseudoComponents pseudo;
  bool mrbd = true;       // Check2: the maximum inclusions apply
  int fishmealGrade = 2;  // row of Fishmeal.tab
};

}  // namespace pescavo
