// feedstuff.tab: reading, writing, the exit sort and the reset of the component table.

#include <cmath>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tables/ComponentTable.h"
#include "tables/NumericText.h"
#include "tables/TableError.h"
#include "tables/TextFile.h"

namespace pescavo {

namespace {

constexpr int kFixedCells = 9;
constexpr std::string_view kHeaderStart =
    "Category\tCrop\tCommodity\tIFN Code\tCP (%)\tCL (%)\tDM(%)\tmax carp(%)\tmax trout (%)";
constexpr std::string_view kResidueMarker = "ResidueInputValue";

std::string quoted(std::string_view text) {
  constexpr std::size_t kShown = 40;
  if (text.size() <= kShown) return "\"" + std::string(text) + "\"";
  return "\"" + std::string(text.substr(0, kShown)) + "...\"";
}

// What a data-line cell holds, for messages. Cells are 1-based as in the layout.
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
      "substance " + std::to_string(s) + " " + quoted(names[static_cast<std::size_t>(s - 1)]);
  if (cell % 2 == 0) return "the residue input value (0 STMR or 1 STMR-P) of " + substance;
  return "the residue value of " + substance;
}

bool onlyBlanks(std::string_view text) {
  return text.find_first_not_of(" \t\r") == std::string_view::npos;
}

std::vector<std::string_view> splitCells(std::string_view line) {
  std::vector<std::string_view> cells;
  for (std::size_t start = 0;;) {
    const std::size_t tab = line.find('\t', start);
    if (tab == std::string_view::npos) {
      cells.push_back(line.substr(start));
      return cells;
    }
    cells.push_back(line.substr(start, tab - start));
    start = tab + 1;
  }
}

// A cell is dropped by moving past the first TAB; without one the remainder stays.
void dropCell(std::string_view& rest) {
  const std::size_t tab = rest.find('\t');
  if (tab != std::string_view::npos) rest.remove_prefix(tab + 1);
}

// The header algorithm, followed by a check that its names account for every header cell:
// where they don't (an empty marker or name, a trailing TAB) the data lines would be read
// against the wrong substances.
std::vector<std::string> readHeader(std::string_view line, const std::string& path) {
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

  const std::vector<std::string_view> cells = splitCells(line);
  const int count = static_cast<int>(cells.size());
  if (count <= kFixedCells + 1) {
    throw TableError(path, 1, count + 1,
                     count <= kFixedCells
                         ? "expected a substance pair (\"ResidueInputValue\" and the substance's "
                           "name) after the nine component columns"
                         : "expected the name of substance 1");
  }
  for (int cell = kFixedCells + 1; cell <= count; cell += 2) {
    const int s = (cell - 8) / 2;
    if (cells[static_cast<std::size_t>(cell - 1)].empty()) {
      throw TableError(path, 1, cell,
                       "expected \"ResidueInputValue\" before substance " + std::to_string(s) +
                           ", found an empty cell" +
                           (cell == count ? " (a TAB at the end of the line?)" : ""));
    }
    if (cell == count) {
      throw TableError(path, 1, cell + 1, "expected the name of substance " + std::to_string(s));
    }
    if (cell + 1 < count && cells[static_cast<std::size_t>(cell)].empty()) {
      throw TableError(
          path, 1, cell + 1,
          "expected the name of substance " + std::to_string(s) + ", found an empty cell");
    }
  }
  if (static_cast<int>(names.size()) * 2 + kFixedCells != count) {
    throw TableError(path, 1, 0, "expected pairs of \"ResidueInputValue\" and a substance name");
  }
  if (names.size() > static_cast<std::size_t>(ComponentTable::kMaxSubstances)) {
    throw TableError(path, 1, kFixedCells + 2 * ComponentTable::kMaxSubstances + 1,
                     "expected at most 998 substances");
  }
  return names;
}

// Cuts one data line cell by cell, naming the cell when the line doesn't fit the header.
class DataLine {
 public:
  DataLine(std::string_view line, int lineNumber, const std::vector<std::string>& names,
           const std::string& path)
      : m_rest(line), m_line(lineNumber), m_names(names), m_path(path) {}

  std::string_view take() {
    ++m_cell;
    const std::size_t tab = m_rest.find('\t');
    if (tab == std::string_view::npos) {
      throw TableError(m_path, m_line, m_cell + 1,
                       "expected " + describeCell(m_cell + 1, m_names) +
                           "; the line ends after cell " + std::to_string(m_cell));
    }
    const std::string_view cell = m_rest.substr(0, tab);
    m_rest.remove_prefix(tab + 1);
    return cell;
  }

  std::string takeText() { return std::string(trimBlanks(take())); }

  double takeNumber() {
    const std::string_view text = take();
    return checkedNumber(text, m_cell);
  }

  std::int16_t takeBasis() {
    const std::string_view text = take();
    const double code = std::nearbyint(zahl(trimBlanks(text)));  // half to even
    if (code != 0 && code != 1) {
      throw TableError(m_path, m_line, m_cell,
                       "expected " + describeCell(m_cell, m_names) + ", found " + quoted(text));
    }
    return static_cast<std::int16_t>(code);
  }

  // The last residue value is the whole remainder, so a trailing TAB is ignored; anything
  // after that TAB would run into the number unseen.
  double takeLastResidue() {
    const int cell = m_cell + 1;
    const std::size_t tab = m_rest.find('\t');
    if (tab != std::string_view::npos && !onlyBlanks(m_rest.substr(tab + 1))) {
      throw TableError(m_path, m_line, cell + 1,
                       "expected the end of the line after " + describeCell(cell, m_names) +
                           " (the header names " + std::to_string(m_names.size()) + " substances)");
    }
    return checkedNumber(m_rest, cell);
  }

 private:
  double checkedNumber(std::string_view text, int cell) const {
    const double value = zahl(trimBlanks(text));
    if (!std::isfinite(value)) {
      throw TableError(m_path, m_line, cell,
                       "expected " + describeCell(cell, m_names) +
                           " as a number within range, found " + quoted(text));
    }
    return value;
  }

  std::string_view m_rest;
  int m_line;
  int m_cell = 0;
  const std::vector<std::string>& m_names;
  const std::string& m_path;
};

struct ComponentRow {
  FeedComponent component;
  std::vector<std::int16_t> basis;
  std::vector<double> residues;
};

ComponentRow readDataLine(std::string_view line, int lineNumber,
                          const std::vector<std::string>& names, const std::string& path) {
  if (line.empty()) {
    throw TableError(path, lineNumber, 0, "expected a component, found an empty line");
  }
  DataLine cells(line, lineNumber, names, path);
  ComponentRow row;
  FeedComponent& c = row.component;
  c.category = cells.takeText();
  c.crop = cells.takeText();
  c.commodity = cells.takeText();
  c.ifnCode = cells.takeText();
  c.cp = cells.takeNumber();
  c.cl = cells.takeNumber();
  c.dm = cells.takeNumber();
  c.maxCarp = cells.takeNumber();
  c.maxTrout = cells.takeNumber();
  const std::size_t n = names.size();
  row.basis.resize(n);
  row.residues.resize(n);
  for (std::size_t s = 0; s + 1 < n; ++s) {
    row.basis[s] = cells.takeBasis();
    row.residues[s] = cells.takeNumber();
  }
  row.basis[n - 1] = cells.takeBasis();
  row.residues[n - 1] = cells.takeLastResidue();
  return row;
}

void requireWritable(bool ok, const std::string& path, const std::string& problem) {
  if (!ok) throw TableError(path, 0, 0, "cannot be written: " + problem);
}

bool isCellText(std::string_view text) {
  return text.find_first_of("\t\n") == std::string_view::npos;
}

void appendNumber(std::string& out, double value, char separator, const std::string& path,
                  const std::string& what) {
  requireWritable(std::isfinite(value), path, what + " is not a finite number");
  out += generalForm(value, separator);
}

void checkNames(const ComponentTable& table, const std::string& path) {
  const int n = table.substanceCount();
  requireWritable(n >= 1, path, "the table holds no substance");
  for (int s = 1; s <= n; ++s) {
    const std::string& name = table.substanceName(s);
    const std::string which = "the name of substance " + std::to_string(s);
    requireWritable(isCellText(name), path, which + " holds a TAB or a line break");
    // Only the last name may be empty: the header can't show an empty name before others.
    requireWritable(!name.empty() || s == n, path, which + " is empty");
  }
}

void appendComponentLine(std::string& out, const ComponentTable& table, int i, char separator,
                         const std::string& path) {
  const FeedComponent& c = table.component(i);
  const std::string which = "component " + std::to_string(i);
  for (const std::string* text : {&c.category, &c.crop, &c.commodity, &c.ifnCode}) {
    requireWritable(isCellText(*text), path, "a text of " + which + " holds a TAB or a line break");
    out += *text;
    out += '\t';
  }
  const std::string values = "a value of " + which;
  appendNumber(out, c.cp, separator, path, values);
  out += '\t';
  appendNumber(out, c.cl, separator, path, values);
  out += '\t';
  appendNumber(out, c.dm, separator, path, values);
  out += '\t';
  appendNumber(out, c.maxCarp, separator, path, values);
  out += '\t';
  appendNumber(out, c.maxTrout, separator, path, values);
  for (int s = 1; s <= table.substanceCount(); ++s) {
    const std::int16_t code = table.basis(s, i);
    requireWritable(code == 0 || code == 1, path,
                    "the residue input value of substance " + std::to_string(s) + " for " + which +
                        " is neither 0 nor 1");
    out += '\t';
    out += code == 0 ? '0' : '1';
    out += '\t';
    appendNumber(out, table.residue(s, i), separator, path,
                 "the residue value of substance " + std::to_string(s) + " for " + which);
  }
  out += "\r\n";
}

std::string joinPath(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  return folder.back() == '/' ? folder + name : folder + "/" + name;
}

}  // namespace

ComponentTable parseComponentTable(std::string bytes, const std::string& path) {
  DecodedText decoded = decodeText(std::move(bytes));
  const std::vector<std::string_view> lines = splitLines(decoded.text);
  if (lines.empty()) throw TableError(path, 1, 0, "expected the header line, found an empty file");
  const std::vector<std::string> names = readHeader(lines[0], path);

  ComponentTable table;
  table.setEncoding(decoded.encoding);
  for (const std::string& name : names) table.addSubstance(name);
  for (std::size_t k = 1; k < lines.size(); ++k) {
    const int lineNumber = static_cast<int>(k) + 1;
    if (k > static_cast<std::size_t>(ComponentTable::kMaxComponents)) {
      throw TableError(path, lineNumber, 0, "expected at most 1000 components");
    }
    ComponentRow row = readDataLine(lines[k], lineNumber, names, path);
    const int i = table.addComponent(std::move(row.component));
    for (std::size_t s = 0; s < names.size(); ++s) {
      table.setBasis(static_cast<int>(s) + 1, i, row.basis[s]);
      table.setResidue(static_cast<int>(s) + 1, i, row.residues[s]);
    }
  }
  return table;
}

ComponentTable readComponentTable(const std::string& path) {
  return parseComponentTable(readFileBytes(path), path);
}

std::string formatComponentTable(const ComponentTable& table, char decimalSeparator,
                                 const std::string& path) {
  checkNames(table, path);
  std::string out(kHeaderStart);
  for (int s = 1; s <= table.substanceCount(); ++s) {
    out += '\t';
    out += kResidueMarker;
    out += '\t';
    out += table.substanceName(s);
  }
  out += "\r\n";
  for (int i = 1; i <= table.componentCount(); ++i) {
    appendComponentLine(out, table, i, decimalSeparator, path);
  }
  return encodeText(out, table.encoding());
}

void writeComponentTable(const ComponentTable& table, const std::string& path,
                         char decimalSeparator) {
  writeFileAtomic(path, formatComponentTable(table, decimalSeparator, path));
}

std::string sortComponentText(std::string bytes, const std::string& path) {
  DecodedText decoded = decodeText(std::move(bytes));
  const std::vector<std::string_view> lines = splitLines(decoded.text);
  if (lines.empty()) throw TableError(path, 1, 0, "expected the header line, found an empty file");
  const std::vector<std::string> names = readHeader(lines[0], path);
  const int cellCount = 2 * static_cast<int>(names.size()) + kFixedCells;
  if (lines.size() - 1 > static_cast<std::size_t>(ComponentTable::kMaxComponents)) {
    throw TableError(path, ComponentTable::kMaxComponents + 2, 0,
                     "expected at most 1000 components");
  }

  std::vector<std::vector<std::string>> rows;
  rows.reserve(lines.size() - 1);
  for (std::size_t k = 1; k < lines.size(); ++k) {
    const int lineNumber = static_cast<int>(k) + 1;
    if (lines[k].empty()) {
      throw TableError(path, lineNumber, 0, "expected a component, found an empty line");
    }
    std::string line(lines[k]);
    line += '\t';
    std::string_view rest = line;
    std::vector<std::string> cells;
    cells.reserve(static_cast<std::size_t>(cellCount));
    for (int c = 1; c <= cellCount; ++c) {
      const std::size_t tab = rest.find('\t');
      if (tab == std::string_view::npos) {
        throw TableError(path, lineNumber, c,
                         "expected " + describeCell(c, names) + "; the line ends after cell " +
                             std::to_string(c - 1));
      }
      cells.emplace_back(trimBlanks(rest.substr(0, tab)));
      rest.remove_prefix(tab + 1);
    }
    if (!onlyBlanks(rest)) {
      throw TableError(path, lineNumber, cellCount + 1,
                       "expected the end of the line after " + describeCell(cellCount, names));
    }
    rows.push_back(std::move(cells));
  }

  // The exchange sort as the program has always done it: rows of equal category may change
  // their relative order, the categories end up ascending in byte order.
  for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
    for (std::size_t j = i + 1; j < rows.size(); ++j) {
      if (rows[i][0] > rows[j][0]) std::swap(rows[i], rows[j]);
    }
  }

  std::string out(lines[0]);
  out += "\r\n";
  for (const auto& cells : rows) {
    for (const std::string& cell : cells) {
      out += cell;
      out += '\t';
    }
    out += "\r\n";
  }
  return encodeText(out, decoded.encoding);
}

void sortComponentFile(const std::string& path) {
  writeFileAtomic(path, sortComponentText(readFileBytes(path), path));
}

ComponentTable resetComponentTable(const std::string& inputFolder) {
  const std::string pristine = joinPath(inputFolder, "feedstuff1.tab");
  const std::string current = joinPath(inputFolder, "feedstuff.tab");
  writeFileAtomic(current, readFileBytes(pristine));
  return readComponentTable(current);
}

}  // namespace pescavo
