// feedstuff.tab: reading, writing, the exit sort and the reset of the component table.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tables/ComponentTable.h"
#include "tables/NumericText.h"
#include "tables/TableCells.h"
#include "tables/TableError.h"
#include "tables/TableLines.h"
#include "tables/TextFile.h"

namespace pescavo {

namespace {

constexpr int kFixedCells = 9;
constexpr std::string_view kHeaderStart =
    "Category\tCrop\tCommodity\tIFN Code\tCP (%)\tCL (%)\tDM(%)\tmax carp(%)\tmax trout (%)";
constexpr std::string_view kResidueMarker = "ResidueInputValue";
constexpr double kMaxPercent = 100;
const std::string kAtMostComponents =
    "expected at most " + std::to_string(ComponentTable::kMaxComponents) + " components";

// CP + CL above 100. Decimal texts that add up to 100 may exceed it in binary by a rounding
// error, hence the margin; and the values are judged as the program writes them (15
// significant digits), so a table that loads still loads once it has been saved.
bool nutrientsOverflow(double cp, double cl) {
  constexpr double kMargin = 1e-9;
  if (cp + cl <= kMaxPercent - kMargin) return false;
  const auto written = [](double value) { return zahl(generalForm(value, '.')); };
  return written(cp) + written(cl) > kMaxPercent + kMargin;
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
      "substance " + std::to_string(s) + " " + quotedText(names[static_cast<std::size_t>(s - 1)]);
  if (cell % 2 == 0) return "the residue input value (0 STMR or 1 STMR-P) of " + substance;
  return "the residue value of " + substance;
}

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

// The header algorithm, followed by a check that its names account for every header cell:
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

// The header line as the first line of the file, or the refusal of an empty file.
std::vector<std::string> readFirstLine(TableLines& lines) {
  std::string_view line;
  if (!lines.next(line)) lines.refuse(1, 0, "expected the header line, found an empty file");
  return readHeader(line, lines);
}

}  // namespace

// Reads feedstuff.tab line by line straight into the table's rows. The common cells, as the
// program writes them ("0", "1", "0.25"), take a short path; every other cell goes through
// numberCell, which holds the rules.
class ComponentTableReader {
 public:
  explicit ComponentTableReader(TableLines& lines) : m_lines(lines) {}

  ComponentTable read() {
    m_names = readFirstLine(m_lines);
    m_table.m_substances = m_names;
    const std::size_t n = m_names.size();
    // Room for as many rows as the file can hold (a row has at least 2n + 8 TABs), so the
    // rows never move while they are read.
    const std::size_t rows = std::min<std::uint64_t>(ComponentTable::kMaxComponents,
                                                     m_lines.byteCount() / (2 * n + 9) + 1);
    m_table.m_components.reserve(rows);
    m_table.m_residues.reserve(rows * n);
    m_table.m_basis.reserve(rows * n);
    std::string_view line;
    while (m_lines.next(line)) {
      m_line = m_lines.lineNumber();
      if (m_line > ComponentTable::kMaxComponents + 1) {
        m_lines.refuse(m_line, 0, kAtMostComponents);
      }
      readRow(line);
    }
    decodeTexts();
    return std::move(m_table);
  }

 private:
  [[noreturn]] void refuseCell(int cell, std::string_view text, const std::string& form) {
    m_lines.refuse(
        m_line, cell,
        "expected " + describeCell(cell, m_names) + " as " + form + ", found " + quotedText(text));
  }

  // The cell at p up to its TAB; p moves past the TAB. Without one the line ends with this
  // cell, and the next is missing.
  std::string_view take(const char*& p, const char* end, int cell) {
    const void* tab = std::memchr(p, '\t', static_cast<std::size_t>(end - p));
    if (!tab) {
      m_lines.refuse(m_line, cell + 1,
                     "expected " + describeCell(cell + 1, m_names) + "; the line ends after cell " +
                         std::to_string(cell));
    }
    const std::string_view text(p, static_cast<std::size_t>(static_cast<const char*>(tab) - p));
    p = static_cast<const char*>(tab) + 1;
    return text;
  }

  double percent(const char*& p, const char* end, int cell) {
    const std::string_view text = take(p, end, cell);
    const std::optional<double> value = numberCell(text);
    if (!value || !(*value >= 0 && *value <= kMaxPercent))
      refuseCell(cell, text, "a number from 0 to 100");
    return *value;
  }

  std::int16_t basisCode(std::string_view text, int cell) {
    if (onlyBlanks(text)) return 0;  // as a new record has it: STMR
    const std::optional<double> value = numberCell(text);
    const double code = value ? std::nearbyint(*value) : -1;  // half to even
    if (code != 0 && code != 1) {
      m_lines.refuse(m_line, cell,
                     "expected " + describeCell(cell, m_names) + ", found " + quotedText(text));
    }
    return static_cast<std::int16_t>(code);
  }

  double residue(std::string_view text, int cell) {
    if (onlyBlanks(text)) return 0;
    const std::optional<double> value = numberCell(text);
    if (!value) refuseResidue(text, cell);
    return withinLimit(*value, text, cell);
  }

  // Every residue value passes here, whichever way its cell was read.
  double withinLimit(double value, std::string_view text, int cell) {
    if (value > ComponentTable::kMaxResidue) refuseResidue(text, cell);
    return value;
  }

  [[noreturn]] void refuseResidue(std::string_view text, int cell) {
    refuseCell(cell, text,
               "a number up to " + std::to_string(ComponentTable::kMaxResidue) +
                   " (mg/kg; empty reads as 0, a negative value means none)");
  }

  // The last residue runs to the end of the line; a TAB after it is ignored, anything after
  // that TAB would be a value the header has no substance for.
  double lastResidue(const char* p, const char* end, int cell) {
    const char* tab =
        static_cast<const char*>(std::memchr(p, '\t', static_cast<std::size_t>(end - p)));
    if (tab && !onlyBlanks(std::string_view(tab + 1, static_cast<std::size_t>(end - tab - 1)))) {
      m_lines.refuse(m_line, cell + 1,
                     "expected the end of the line after " + describeCell(cell, m_names) +
                         " (the header names " + std::to_string(m_names.size()) + " substances)");
    }
    return residue(std::string_view(p, static_cast<std::size_t>((tab ? tab : end) - p)), cell);
  }

  void readRow(std::string_view line) {
    if (line.empty()) m_lines.refuse(m_line, 0, "expected a component, found an empty line");
    const char* p = line.data();
    const char* const end = p + line.size();
    FeedComponent c;
    std::string* const texts[] = {&c.category, &c.crop, &c.commodity, &c.ifnCode};
    for (int k = 0; k < 4; ++k) *texts[k] = std::string(trimBlanks(take(p, end, k + 1)));
    const char* const cpStart = p;
    c.cp = percent(p, end, 5);
    const char* const clStart = p;
    c.cl = percent(p, end, 6);
    if (nutrientsOverflow(c.cp, c.cl)) {
      m_lines.refuse(
          m_line, 6,
          "expected the crude protein CP (%) and the crude lipid CL (%) to add up to "
          "at most 100, found " +
              quotedText(
                  std::string_view(cpStart, static_cast<std::size_t>(clStart - cpStart - 1))) +
              " + " +
              quotedText(std::string_view(clStart, static_cast<std::size_t>(p - clStart - 1))));
    }
    c.dm = percent(p, end, 7);
    c.maxCarp = percent(p, end, 8);
    c.maxTrout = percent(p, end, 9);
    m_table.m_components.push_back(std::move(c));

    const std::size_t n = m_names.size();
    const std::size_t first = m_table.m_residues.size();
    m_table.m_residues.resize(first + n);
    m_table.m_basis.resize(first + n);
    double* const residues = m_table.m_residues.data() + first;
    std::int16_t* const basis = m_table.m_basis.data() + first;
    for (std::size_t s = 0; s < n; ++s) {
      const int cell = kFixedCells + 1 + 2 * static_cast<int>(s);
      if (end - p >= 2 && (*p == '0' || *p == '1') && p[1] == '\t') {
        basis[s] = static_cast<std::int16_t>(*p - '0');
        p += 2;
      } else {
        basis[s] = basisCode(take(p, end, cell), cell);
      }
      const bool last = s + 1 == n;
      // Most residue cells of a large table are a single digit.
      const unsigned digit = p < end ? static_cast<unsigned char>(*p) - unsigned{'0'} : 10;
      if (digit < 10 && (last ? p + 1 == end : end - p >= 2 && p[1] == '\t')) {
        residues[s] = digit;
        p += last ? 1 : 2;
        continue;
      }
      double value;
      const char* const valueEnd = plainNumberCell(p, end, value);
      if (valueEnd && (valueEnd == end) == last) {
        withinLimit(value, std::string_view(p, static_cast<std::size_t>(valueEnd - p)), cell + 1);
        p = last ? valueEnd : valueEnd + 1;
      } else if (last) {
        value = lastResidue(p, end, cell + 1);
      } else {
        value = residue(take(p, end, cell + 1), cell + 1);
      }
      residues[s] = value;
    }
  }

  // Texts were kept as the file's bytes until its encoding was known.
  void decodeTexts() {
    const Encoding encoding = m_lines.encoding();
    m_table.m_encoding = encoding;
    if (encoding == Encoding::Utf8) return;
    for (std::string& name : m_table.m_substances) name = m_lines.text(name);
    for (FeedComponent& c : m_table.m_components) {
      for (std::string* text : {&c.category, &c.crop, &c.commodity, &c.ifnCode})
        *text = m_lines.text(*text);
    }
  }

  TableLines& m_lines;
  ComponentTable m_table;
  std::vector<std::string> m_names;  // as in the file, for messages
  int m_line = 0;
};

namespace {

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

ComponentTable parseComponentTable(std::string_view bytes, const std::string& path) {
  TableLines lines(bytes, path);
  return ComponentTableReader(lines).read();
}

ComponentTable readComponentTable(const std::string& path) {
  TableLines lines(path);
  return ComponentTableReader(lines).read();
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

std::string sortComponentText(std::string_view bytes, const std::string& path) {
  TableLines lines(bytes, path);
  std::string_view line;
  if (!lines.next(line)) lines.refuse(1, 0, "expected the header line, found an empty file");
  const std::vector<std::string> names = readHeader(line, lines);
  std::string header(line);
  const int cellCount = 2 * static_cast<int>(names.size()) + kFixedCells;

  std::vector<std::vector<std::string>> rows;
  while (lines.next(line)) {
    const int lineNumber = lines.lineNumber();
    if (lineNumber > ComponentTable::kMaxComponents + 1) {
      lines.refuse(lineNumber, 0, kAtMostComponents);
    }
    if (line.empty()) lines.refuse(lineNumber, 0, "expected a component, found an empty line");
    std::string_view rest = line;
    std::vector<std::string> cells;
    cells.reserve(static_cast<std::size_t>(cellCount));
    bool ended = false;
    for (int c = 1; c <= cellCount; ++c) {
      if (ended) {
        lines.refuse(lineNumber, c,
                     "expected " + describeCell(c, names) + "; the line ends after cell " +
                         std::to_string(c - 1));
      }
      std::string_view cell;
      if (!takeCell(rest, cell)) {
        cell = rest;  // the last cell needs no TAB after it
        rest = {};
        ended = true;
      }
      cells.emplace_back(trimBlanks(cell));
    }
    if (!onlyBlanks(rest)) {
      lines.refuse(lineNumber, cellCount + 1,
                   "expected the end of the line after " + describeCell(cellCount, names));
    }
    rows.push_back(std::move(cells));
  }
  // Categories compare as UTF-8 text, whatever the file's encoding.
  const Encoding encoding = lines.encoding();
  if (encoding == Encoding::Windows1252) {
    if (lines.byteOrderMark()) header.insert(0, "\xEF\xBB\xBF");  // part of the text then
    header = lines.text(header);
    for (auto& cells : rows) {
      for (std::string& cell : cells) cell = lines.text(cell);
    }
  }

  // The exchange sort as the program has always done it: rows of equal category may change
  // their relative order, the categories end up ascending in byte order.
  for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
    for (std::size_t j = i + 1; j < rows.size(); ++j) {
      if (rows[i][0] > rows[j][0]) std::swap(rows[i], rows[j]);
    }
  }

  std::string out = header;
  out += "\r\n";
  for (const auto& cells : rows) {
    for (const std::string& cell : cells) {
      out += cell;
      out += '\t';
    }
    out += "\r\n";
  }
  return encodeText(out, encoding);
}

void sortComponentFile(const std::string& path) {
  writeFileAtomic(path, sortComponentText(readFileBytes(path), path));
}

ComponentTable resetComponentTable(const std::string& inputFolder) {
  const std::string pristine = joinPath(inputFolder, "feedstuff1.tab");
  const std::string current = joinPath(inputFolder, "feedstuff.tab");
  // A pristine copy that cannot be read must not replace a database that can.
  const std::string bytes = readFileBytes(pristine);
  ComponentTable table = parseComponentTable(bytes, pristine);
  writeFileAtomic(current, bytes);
  return table;
}

}  // namespace pescavo
