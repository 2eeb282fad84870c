// The exit sort of feedstuff.tab: its rows by category, every cell kept as written.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tables/ComponentFileLayout.h"
#include "tables/ComponentTable.h"
#include "tables/TableCells.h"
#include "tables/TableLines.h"
#include "tables/TextFile.h"

namespace pescavo {

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

}  // namespace pescavo
