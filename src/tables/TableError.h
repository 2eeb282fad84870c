#pragma once

#include <stdexcept>
#include <string>

namespace pescavo {

// A table that cannot be read or written. what() is the one-line message for the user:
// the file, the line and the cell (when known) and what was expected.
class TableError : public std::runtime_error {
 public:
  // expected is the end of the message, e.g. "expected a residue value"; line and cell are
  // left out of the message when 0.
  TableError(std::string file, int line, int cell, const std::string& expected);
  explicit TableError(const std::string& message);

  const std::string& file() const { return m_file; }
  int line() const { return m_line; }  // 1-based, 0 when not about a line
  int cell() const { return m_cell; }  // 1-based, 0 when not about a cell

 private:
  std::string m_file;
  int m_line = 0;
  int m_cell = 0;
};

}  // namespace pescavo
