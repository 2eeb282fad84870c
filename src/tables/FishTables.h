#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pescavo {

struct FishSpecies {
  std::string name;
  double lipid = 0;    // target crude lipid, %
  double protein = 0;  // target crude protein, %
};

// Species.tab: species 0 is common carp, 1 rainbow trout. Throws TableError; besides the
// layout it refuses a target line without its own cell of one number from 0 to 100 for each
// species, a filled cell after them, a first line of targets (no header), and non-blank lines
// after line 3.
std::vector<FishSpecies> readSpeciesTable(const std::string& path);

struct FishMealGrade {
  double protein = 0;
  double lipid = 0;
};

// Fishmeal.tab, in file order; the third grade is the default. Throws TableError; besides the
// layout it refuses contents that are not one number from 0 to 100 and a first line that is a
// grade (no header).
std::vector<FishMealGrade> readFishmealTable(const std::string& path);

// The same readers on bytes held in memory; path only names the file in messages.
std::vector<FishSpecies> parseSpeciesTable(std::string_view bytes, const std::string& path);
std::vector<FishMealGrade> parseFishmealTable(std::string_view bytes, const std::string& path);

// "65 % protein, 10% lipid"
std::string fishmealItemText(const FishMealGrade& grade, char decimalSeparator);

}  // namespace pescavo
