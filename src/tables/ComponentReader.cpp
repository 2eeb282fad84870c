// Reading feedstuff.tab into the component table, and its reset from the pristine copy.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tables/ComponentFileLayout.h"
#include "tables/ComponentTable.h"
#include "tables/NumericText.h"
#include "tables/TableCells.h"
#include "tables/TableLines.h"
#include "tables/TextFile.h"

namespace pescavo {

namespace {

constexpr double kMaxPercent = 100;

// CP + CL above 100. Decimal texts that add up to 100 may exceed it in binary by a rounding
// error, hence the margin; and the values are judged as the program writes them (15
// significant digits), so a table that loads still loads once it has been saved.
bool nutrientsOverflow(double cp, double cl) {
  constexpr double kMargin = 1e-9;
  if (cp + cl <= kMaxPercent - kMargin) return false;
  const auto written = [](double value) { return zahl(generalForm(value, '.')); };
  return written(cp) + written(cl) > kMaxPercent + kMargin;
}

std::string joinPath(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  return folder.back() == '/' ? folder + name : folder + "/" + name;
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

ComponentTable parseComponentTable(std::string_view bytes, const std::string& path) {
  TableLines lines(bytes, path);
  return ComponentTableReader(lines).read();
}

ComponentTable readComponentTable(const std::string& path) {
  TableLines lines(path);
  return ComponentTableReader(lines).read();
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
