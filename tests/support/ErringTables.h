#pragma once

#include "model/MainWindowModel.h"

namespace pescavo {

// The pinned case where the method errs: only 100 % of "Second" meets the carp targets, so its
// 5 mg/kg is the true minimum, yet the method reports 3 mg/kg from "First". Loaded with both
// components chosen and the criterion Minimum.
inline void loadErringTables(MainWindowModel& model) {
  ComponentTable table;
  table.addSubstance("Substance A");
  table.addComponent({"By-Products", "First", "feed", "", 20, 10, 100, 100, 100});
  table.addComponent({"By-Products", "Second", "feed", "", 35, 10, 100, 100, 100});
  table.setResidue(1, 1, 3);
  table.setResidue(1, 2, 5);
  model.load(table, {{"Common carp", 10, 35}}, {{60, 8}, {62, 9}, {65, 10}});
  model.selection().alle_rein();
  model.options().setCriterionOption(Criterion::Minimum);
}

}  // namespace pescavo
