#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "model/FeedRun.h"

namespace pescavo {

// Hand-made lists: what the component selection would hold for one substance, with the
// sample's species and fish-meal grades, and a run over them.
class HandMadeLists : public ::testing::Test {
 protected:
  void addAvailable(const std::string& text, const std::string& category, WorkingSetEntry entry) {
    available.push_back({text, "feed", category, "0"});
    working.push_back(std::move(entry));
  }
  RunInput input(char separator = '.') const {
    return {species, fishmeal, available, working, chosen, 7, separator};
  }

  std::vector<FishSpecies> species = {{"Common carp", 8, 35}, {"Rainbow trout", 15, 42}};
  std::vector<FishMealGrade> fishmeal = {{60, 12}, {62, 11}, {65, 10}, {68, 9}, {70, 8}};
  std::vector<ListEntry> available;
  std::vector<WorkingSetEntry> working;
  std::vector<ListEntry> chosen;
  FeedRun run;
};

}  // namespace pescavo
