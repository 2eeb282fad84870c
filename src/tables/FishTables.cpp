#include "tables/FishTables.h"

#include <cmath>
#include <string_view>
#include <utility>

#include "tables/NumericText.h"
#include "tables/TableError.h"
#include "tables/TextFile.h"

namespace pescavo {

namespace {

constexpr int kSpeciesCount = 2;
constexpr int kMinGrades = 3;
constexpr int kMaxGrades = 11;

void dropCell(std::string_view& rest) {
  const std::size_t tab = rest.find('\t');
  if (tab != std::string_view::npos) rest.remove_prefix(tab + 1);
}

std::string quoted(std::string_view text) {
  constexpr std::size_t kShown = 40;
  if (text.size() <= kShown) return "\"" + std::string(text) + "\"";
  return "\"" + std::string(text.substr(0, kShown)) + "...\"";
}

std::vector<std::string> readSpeciesNames(std::string_view line, const std::string& path) {
  std::vector<std::string> names;
  std::string_view rest = line;
  while (!rest.empty() && names.size() <= kSpeciesCount) {
    dropCell(rest);
    const std::size_t tab = rest.find('\t');
    if (tab != std::string_view::npos) {
      names.emplace_back(trimBlanks(rest.substr(0, tab)));
    } else {
      names.emplace_back(rest);
      rest = {};
    }
  }
  if (names.size() > kSpeciesCount) {
    const std::string& third = names[kSpeciesCount];
    throw TableError(path, 1, kSpeciesCount + 2,
                     "expected two species names (common carp and rainbow trout), found a third" +
                         (third.empty() ? std::string(" (a TAB at the end of the line?)")
                                        : " name " + quoted(third)));
  }
  if (names.size() < kSpeciesCount) {
    throw TableError(path, 1, static_cast<int>(names.size()) + 2,
                     "expected two species names (common carp and rainbow trout)");
  }
  return names;
}

// A target line: the label, then one number per species. A species without its own cell
// takes the last one again, as the file has always been read.
void readTargets(std::string_view line, int lineNumber, std::vector<FishSpecies>& species,
                 const std::string& path) {
  std::string_view rest = line;
  for (std::size_t j = 0; j < species.size(); ++j) {
    dropCell(rest);
    const std::size_t tab = rest.find('\t');
    const double value =
        tab != std::string_view::npos ? zahl(trimBlanks(rest.substr(0, tab))) : zahl(rest);
    if (!std::isfinite(value)) {
      throw TableError(path, lineNumber, static_cast<int>(j) + 2,
                       "expected a target content in percent within range");
    }
    if (lineNumber == 2)
      species[j].lipid = value;
    else
      species[j].protein = value;
  }
}

// Fish-meal cells: the delimited-number rule reads "." only; TAB cells go through zahl.
std::vector<std::string_view> gradeFields(std::string_view line) {
  std::vector<std::string_view> fields;
  if (line.find('\t') != std::string_view::npos) {
    for (std::size_t start = 0;;) {
      const std::size_t tab = line.find('\t', start);
      fields.push_back(line.substr(start, tab == std::string_view::npos ? tab : tab - start));
      if (tab == std::string_view::npos) return fields;
      start = tab + 1;
    }
  }
  std::size_t i = 0;
  const auto skipBlanks = [&] {
    while (i < line.size() && line[i] == ' ') ++i;
  };
  skipBlanks();
  while (i < line.size()) {
    const std::size_t start = i;
    while (i < line.size() && line[i] != ' ' && line[i] != ',') ++i;
    fields.push_back(line.substr(start, i - start));
    skipBlanks();
    if (i < line.size() && line[i] == ',') {
      ++i;
      skipBlanks();
    }
  }
  return fields;
}

FishMealGrade readGrade(std::string_view line, int lineNumber, const std::string& path) {
  if (trimBlanks(line).empty()) {
    throw TableError(path, lineNumber, 0,
                     "expected a fish-meal grade (protein and lipid in percent), found an empty "
                     "line");
  }
  const bool tabbed = line.find('\t') != std::string_view::npos;
  const std::vector<std::string_view> fields = gradeFields(line);
  double values[2] = {0, 0};
  static const char* const kWhat[2] = {"the crude protein content (%)",
                                       "the crude lipid content (%)"};
  for (int k = 0; k < 2; ++k) {
    const std::string_view field = static_cast<std::size_t>(k) < fields.size()
                                       ? fields[static_cast<std::size_t>(k)]
                                       : std::string_view{};
    const double value = tabbed ? zahl(field) : leadingNumber(field);
    if (field.find_first_of("0123456789") == std::string_view::npos || !std::isfinite(value)) {
      throw TableError(
          path, lineNumber, k + 1,
          "expected " + std::string(kWhat[k]) + " as a number, found " + quoted(field));
    }
    values[k] = value;
  }
  for (std::size_t k = 2; k < fields.size(); ++k) {
    if (!trimBlanks(fields[k]).empty()) {
      throw TableError(path, lineNumber, static_cast<int>(k) + 1,
                       "expected the end of the line after the protein and lipid contents");
    }
  }
  return FishMealGrade{values[0], values[1]};
}

}  // namespace

std::vector<FishSpecies> parseSpeciesTable(std::string bytes, const std::string& path) {
  const DecodedText decoded = decodeText(std::move(bytes));
  const std::vector<std::string_view> lines = splitLines(decoded.text);
  if (lines.empty())
    throw TableError(path, 1, 0, "expected the species names, found an empty file");
  const std::vector<std::string> names = readSpeciesNames(lines[0], path);
  std::vector<FishSpecies> species(names.size());
  for (std::size_t j = 0; j < names.size(); ++j) species[j].name = names[j];
  static const char* const kTargets[2] = {"the crude lipid targets", "the crude protein targets"};
  for (int row = 1; row <= 2; ++row) {
    if (lines.size() <= static_cast<std::size_t>(row)) {
      throw TableError(
          path, row + 1, 0,
          std::string("expected ") + kTargets[row - 1] + ", found the end of the file");
    }
    readTargets(lines[static_cast<std::size_t>(row)], row + 1, species, path);
  }
  return species;
}

std::vector<FishSpecies> readSpeciesTable(const std::string& path) {
  return parseSpeciesTable(readFileBytes(path), path);
}

std::vector<FishMealGrade> parseFishmealTable(std::string bytes, const std::string& path) {
  const DecodedText decoded = decodeText(std::move(bytes));
  const std::vector<std::string_view> lines = splitLines(decoded.text);
  std::vector<FishMealGrade> grades;
  for (std::size_t k = 1; k < lines.size(); ++k) {
    const int lineNumber = static_cast<int>(k) + 1;
    if (grades.size() == kMaxGrades) {
      throw TableError(path, lineNumber, 0, "expected at most 11 fish-meal grades");
    }
    grades.push_back(readGrade(lines[k], lineNumber, path));
  }
  if (grades.size() < kMinGrades) {
    throw TableError(path, 0, 0,
                     "expected at least three fish-meal grades (the third is the default), found " +
                         std::to_string(grades.size()));
  }
  return grades;
}

std::vector<FishMealGrade> readFishmealTable(const std::string& path) {
  return parseFishmealTable(readFileBytes(path), path);
}

std::string fishmealItemText(const FishMealGrade& grade, char decimalSeparator) {
  return generalForm(grade.protein, decimalSeparator) + " % protein, " +
         generalForm(grade.lipid, decimalSeparator) + "% lipid";
}

}  // namespace pescavo
