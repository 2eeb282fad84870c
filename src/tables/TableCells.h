#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pescavo {

// Cells of the three tables: separated by one TAB, no quoting, no escaping. One reader for all
// of them, so that each rule for a cell lives in one place.

// "text" for messages, cut after 40 bytes (never inside a UTF-8 sequence).
std::string quotedText(std::string_view text);

// The text before the first TAB of rest, and rest moves past that TAB; false, and rest stays,
// when it holds no TAB.
bool takeCell(std::string_view& rest, std::string_view& cell);
// Drops the first cell: rest moves past its first TAB; without one it stays as it is.
void dropCell(std::string_view& rest);
std::vector<std::string_view> splitCells(std::string_view line);
// Nothing but blanks and TABs (a TAB at the end of a line is harmless).
bool onlyBlanks(std::string_view text);
// The 1-based cell of line that holds the byte at pos.
int cellAt(std::string_view line, std::size_t pos);

// A numeric cell. With its blanks removed the whole cell must be one number: an optional sign,
// digits with at most one "." or "," as decimal point, and an optional exponent of E or D
// (either case) with an optional sign and digits. The value is the one zahl gives the cell.
// Nothing for anything else: an empty cell, text, a number followed by text, a second decimal
// point or a thousands separator, &H and &O forms, NaN, Inf, and numbers beyond a double.
std::optional<double> numberCell(std::string_view cell);

// The cell as the program writes it, read from p up to the next TAB or end: an optional "-",
// digits and at most one ".". Gives the cell's end (its TAB, or end), or nullptr when the cell
// is of another form or needs more digits than this reading takes; numberCell reads those.
const char* plainNumberCell(const char* p, const char* end, double& value);

}  // namespace pescavo
