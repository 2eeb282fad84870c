// The header line of feedstuff.tab and the names of its cells.

#include "tables/ComponentFileLayout.h"

#include <string>
#include <string_view>
#include <vector>

#include "tables/TableCells.h"

namespace pescavo {

namespace {

// A first line with a number where the header names CP (%) to max trout (%) is a component:
// the header is missing, and reading on would take that component's values for names.
void refuseDataAsHeader(const std::vector<std::string_view>& cells, TableLines& lines) {
  const std::vector<std::string_view> columns = splitCells(kHeaderStart);
  for (int cell = 5; cell <= kFixedCells && cell <= static_cast<int>(cells.size()); ++cell) {
    const std::string_view text = cells[static_cast<std::size_t>(cell - 1)];
    if (!numberCell(text)) continue;
    lines.refuse(1, cell,
                 "expected the header line, with " +
                     quotedText(columns[static_cast<std::size_t>(cell - 1)]) + " in cell " +
                     std::to_string(cell) + ", found " + quotedText(text) +
                     " (line 1 reads as a component: is the header missing?)");
  }
}

}  // namespace

std::string describeCell(int cell, const std::vector<std::string>& names) {
  static const char* const kFixed[kFixedCells] = {"the category",
                                                  "the crop",
                                                  "the commodity",
                                                  "the IFN code",
                                                  "the crude protein CP (%)",
                                                  "the crude lipid CL (%)",
                                                  "the dry matter DM(%)",
                                                  "the maximum inclusion for carp",
                                                  "the maximum inclusion for trout"};
  if (cell <= kFixedCells) return kFixed[cell - 1];
  const int s = (cell - 8) / 2;
  const std::string substance =
      "substance " + std::to_string(s) + " " + quotedText(names[static_cast<std::size_t>(s - 1)]);
  if (cell % 2 == 0) return "the residue input value (0 STMR or 1 STMR-P) of " + substance;
  return "the residue value of " + substance;
}

// where they don't (an empty marker or name, a trailing TAB) the data lines would be read
// against the wrong substances. The names are the file's bytes, not yet decoded.
std::vector<std::string> readHeader(std::string_view line, TableLines& lines) {
  const std::vector<std::string_view> cells = splitCells(line);
  refuseDataAsHeader(cells, lines);
  std::string_view rest = line;
  for (int k = 0; k < kFixedCells; ++k) dropCell(rest);
  std::vector<std::string> names;
  while (rest.find('\t') != std::string_view::npos && rest.find('\t') >= 1) {
    dropCell(rest);
    const std::size_t tab = rest.find('\t');
    if (tab != std::string_view::npos && tab >= 1) names.emplace_back(rest.substr(0, tab));
    dropCell(rest);
  }
  names.emplace_back(rest);

  const int count = static_cast<int>(cells.size());
  if (count <= kFixedCells + 1) {
    lines.refuse(1, count + 1,
                 count <= kFixedCells
                     ? "expected a substance pair (\"ResidueInputValue\" and the substance's "
                       "name) after the nine component columns"
                     : "expected the name of substance 1");
  }
  for (int cell = kFixedCells + 1; cell <= count; cell += 2) {
    const int s = (cell - 8) / 2;
    if (cells[static_cast<std::size_t>(cell - 1)].empty()) {
      lines.refuse(1, cell,
                   "expected \"ResidueInputValue\" before substance " + std::to_string(s) +
                       ", found an empty cell" +
                       (cell == count ? " (a TAB at the end of the line?)" : ""));
    }
    if (cell == count) {
      lines.refuse(1, cell + 1, "expected the name of substance " + std::to_string(s));
    }
    if (cell + 1 < count && cells[static_cast<std::size_t>(cell)].empty()) {
      lines.refuse(1, cell + 1,
                   "expected the name of substance " + std::to_string(s) + ", found an empty cell");
    }
  }
  if (static_cast<int>(names.size()) * 2 + kFixedCells != count) {
    lines.refuse(1, 0, "expected pairs of \"ResidueInputValue\" and a substance name");
  }
  if (names.size() > static_cast<std::size_t>(ComponentTable::kMaxSubstances)) {
    lines.refuse(
        1, kFixedCells + 2 * ComponentTable::kMaxSubstances + 1,
        "expected at most " + std::to_string(ComponentTable::kMaxSubstances) + " substances");
  }
  return names;
}

std::vector<std::string> readFirstLine(TableLines& lines) {
  std::string_view line;
  if (!lines.next(line)) lines.refuse(1, 0, "expected the header line, found an empty file");
  return readHeader(line, lines);
}

}  // namespace pescavo
