#pragma once

#include <string>
#include <vector>

#include "tables/FishTables.h"

namespace pescavo {

// The information images beside the main window's groups; Image1, the logo, opens About instead.
enum class InformationImage {
  Image2 = 2,  // fish species
  Image3,      // criteria
  Image4,      // restriction of feed components
  Image5,      // fish meal
  Image6,      // residue value
  Image7,      // carbohydrate concentrate
  Image8       // fat
};

// What the information window shows for an image: its caption and its text, whose lines are
// separated by a carriage return alone, as the texts were written.
struct InformationText {
  std::string caption;
  std::string text;
};

// The species' targets and the third fish-meal grade are read from the tables as loaded; with
// fewer than three grades the fish-meal text's last line is empty.
InformationText informationText(InformationImage image, const std::vector<FishSpecies>& species,
                                const std::vector<FishMealGrade>& fishmeal, char decimalSeparator);

}  // namespace pescavo
