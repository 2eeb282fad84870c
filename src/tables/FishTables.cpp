#include "tables/FishTables.h"

#include <optional>
#include <string_view>

#include "tables/NumericText.h"
#include "tables/TableCells.h"
#include "tables/TableLines.h"
#include "tables/TextFile.h"

namespace pescavo {

namespace {

constexpr int kSpeciesCount = 2;
constexpr int kMinGrades = 3;
constexpr int kMaxGrades = 11;
constexpr double kMaxPercent = 100;

bool isPercent(const std::optional<double>& value) {
  return value && *value >= 0 && *value <= kMaxPercent;
}

// The first cell of rest that holds more than blanks, and its number when rest begins with
// cell `first`; nothing when there is none.
std::optional<std::string_view> firstFilledCell(std::string_view rest, int first, int& cell) {
  cell = first;
  for (std::string_view text;; ++cell) {
    const bool more = takeCell(rest, text);
    if (!more) text = rest;
    if (!onlyBlanks(text)) return text;
    if (!more) return std::nullopt;
  }
}

// The names as the file holds them (decoded at the end). A name that is a number means that
// line 1 is a line of targets.
std::vector<std::string> readSpeciesNames(std::string_view line, TableLines& lines) {
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
  for (std::size_t j = 0; j < names.size() && j < kSpeciesCount; ++j) {
    if (numberCell(names[j])) {
      lines.refuse(1, static_cast<int>(j) + 2,
                   "expected the header line with the species names, found " +
                       quotedText(names[j]) + " (line 1 reads as targets: is the header missing?)");
    }
  }
  if (names.size() > kSpeciesCount) {
    const std::string& third = names[kSpeciesCount];
    lines.refuse(1, kSpeciesCount + 2,
                 "expected two species names (common carp and rainbow trout), found a third" +
                     (third.empty() ? std::string(" (a TAB at the end of the line?)")
                                    : " name " + quotedText(third)));
  }
  if (names.size() < kSpeciesCount) {
    lines.refuse(1, static_cast<int>(names.size()) + 2,
                 "expected two species names (common carp and rainbow trout)");
  }
  return names;
}

// A target line: the label, then one number per species, each in its own cell.
void readTargets(std::string_view line, int lineNumber, const std::vector<std::string>& names,
                 std::vector<FishSpecies>& species, TableLines& lines) {
  const std::string kind = lineNumber == 2 ? "crude lipid" : "crude protein";
  std::string_view rest = line;
  int cell = 1;
  for (std::size_t j = 0; j < species.size(); ++j) {
    ++cell;
    if (rest.find('\t') == std::string_view::npos) {
      lines.refuse(lineNumber, cell,
                   "expected the " + kind + " target (%) of " + quotedText(names[j]) +
                       (j == 0 ? " after the label" : "") + ", found the end of the line");
    }
    dropCell(rest);
    const std::size_t tab = rest.find('\t');
    const std::string_view text = tab != std::string_view::npos ? rest.substr(0, tab) : rest;
    const std::optional<double> value = numberCell(text);
    if (!isPercent(value)) {
      lines.refuse(lineNumber, cell,
                   "expected the " + kind + " target (%) of " + quotedText(names[j]) +
                       " as a number from 0 to 100, found " + quotedText(text));
    }
    (lineNumber == 2 ? species[j].lipid : species[j].protein) = *value;
  }
  std::string_view after = rest;
  if (after.find('\t') == std::string_view::npos) return;
  dropCell(after);
  int extra = 0;
  if (const auto text = firstFilledCell(after, cell + 1, extra)) {
    lines.refuse(lineNumber, extra,
                 "expected the end of the line after the targets of the two species, found " +
                     quotedText(*text));
  }
}

// Fish-meal cells: the delimited-number rule reads "." only; TAB cells go through zahl.
std::vector<std::string_view> gradeFields(std::string_view line) {
  if (line.find('\t') != std::string_view::npos) return splitCells(line);
  std::vector<std::string_view> fields;
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

// Line 1 is the header; two numbers there are a grade, so the header is missing.
void checkFishmealHeader(std::string_view line, TableLines& lines) {
  const std::vector<std::string_view> fields = gradeFields(line);
  if (fields.size() >= 2 && numberCell(fields[0]) && numberCell(fields[1])) {
    lines.refuse(1, 1,
                 "expected the header line (the column names, such as \"Crude protein (%)\"), "
                 "found the numbers " +
                     quotedText(fields[0]) + " and " + quotedText(fields[1]) +
                     " (line 1 reads as a fish-meal grade: is the header missing?)");
  }
}

FishMealGrade readGrade(std::string_view line, int lineNumber, TableLines& lines) {
  if (trimBlanks(line).empty()) {
    lines.refuse(lineNumber, 0,
                 "expected a fish-meal grade (protein and lipid in percent), found an empty "
                 "line");
  }
  const std::vector<std::string_view> fields = gradeFields(line);
  double values[2] = {0, 0};
  static const char* const kWhat[2] = {"the crude protein content (%)",
                                       "the crude lipid content (%)"};
  for (int k = 0; k < 2; ++k) {
    const std::string_view field = static_cast<std::size_t>(k) < fields.size()
                                       ? fields[static_cast<std::size_t>(k)]
                                       : std::string_view{};
    const std::optional<double> value = numberCell(field);
    if (!isPercent(value)) {
      lines.refuse(lineNumber, k + 1,
                   "expected " + std::string(kWhat[k]) + " as a number from 0 to 100, found " +
                       quotedText(field));
    }
    values[k] = *value;
  }
  for (std::size_t k = 2; k < fields.size(); ++k) {
    if (!onlyBlanks(fields[k])) {
      lines.refuse(lineNumber, static_cast<int>(k) + 1,
                   "expected the end of the line after the protein and lipid contents");
    }
  }
  return FishMealGrade{values[0], values[1]};
}

std::vector<FishSpecies> readSpecies(TableLines& lines) {
  std::string_view line;
  if (!lines.next(line)) lines.refuse(1, 0, "expected the species names, found an empty file");
  const std::vector<std::string> names = readSpeciesNames(line, lines);
  std::vector<FishSpecies> species(names.size());
  static const char* const kTargets[2] = {"the crude lipid targets", "the crude protein targets"};
  for (int row = 1; row <= 2; ++row) {
    if (!lines.next(line)) {
      lines.refuse(row + 1, 0,
                   std::string("expected ") + kTargets[row - 1] + ", found the end of the file");
    }
    readTargets(line, row + 1, names, species, lines);
  }
  while (lines.next(line)) {
    int cell = 0;
    if (const auto text = firstFilledCell(line, 1, cell)) {
      lines.refuse(lines.lineNumber(), cell,
                   "expected the end of the file after the crude protein targets of line 3, "
                   "found " +
                       quotedText(*text));
    }
  }
  for (std::size_t j = 0; j < names.size(); ++j) species[j].name = lines.text(names[j]);
  return species;
}

std::vector<FishMealGrade> readFishmeal(TableLines& lines) {
  std::vector<FishMealGrade> grades;
  std::string_view line;
  if (lines.next(line)) checkFishmealHeader(line, lines);
  while (lines.next(line)) {
    if (grades.size() == kMaxGrades) {
      lines.refuse(lines.lineNumber(), 0, "expected at most 11 fish-meal grades");
    }
    grades.push_back(readGrade(line, lines.lineNumber(), lines));
  }
  if (grades.size() < kMinGrades) {
    lines.refuse(0, 0,
                 "expected at least three fish-meal grades (the third is the default), found " +
                     std::to_string(grades.size()));
  }
  return grades;
}

}  // namespace

std::vector<FishSpecies> parseSpeciesTable(std::string_view bytes, const std::string& path) {
  TableLines lines(bytes, path);
  return readSpecies(lines);
}

std::vector<FishSpecies> readSpeciesTable(const std::string& path) {
  TableLines lines(path);
  return readSpecies(lines);
}

std::vector<FishMealGrade> parseFishmealTable(std::string_view bytes, const std::string& path) {
  TableLines lines(bytes, path);
  return readFishmeal(lines);
}

std::vector<FishMealGrade> readFishmealTable(const std::string& path) {
  TableLines lines(path);
  return readFishmeal(lines);
}

std::string fishmealItemText(const FishMealGrade& grade, char decimalSeparator) {
  return generalForm(grade.protein, decimalSeparator) + " % protein, " +
         generalForm(grade.lipid, decimalSeparator) + "% lipid";
}

}  // namespace pescavo
