#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "model/MainWindowModel.h"
#include "support/RecordingDialogs.h"

namespace pescavo {

// The main window's model over a hand-made table with the sample's species and fish-meal
// grades; every message and question is recorded.
class ModelFixture : public ::testing::Test {
 protected:
  void load(bool simple = false) { model.load(table, species, fishmeal, simple); }

  ComponentTable table;
  std::vector<FishSpecies> species = {{"Common carp", 8, 35}, {"Rainbow trout", 15, 42}};
  std::vector<FishMealGrade> fishmeal = {{60, 12}, {62, 11}, {65, 10}, {68, 9}, {70, 8}};
  RecordingDialogs dialogs;
  MainWindowModel model{dialogs, '.'};
};

}  // namespace pescavo
