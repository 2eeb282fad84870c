#include "tables/TableError.h"

#include <utility>

namespace pescavo {

namespace {

std::string composeMessage(const std::string& file, int line, int cell,
                           const std::string& expected) {
  std::string message = file + ": ";
  if (line > 0) {
    message += "line " + std::to_string(line);
    if (cell > 0) message += ", cell " + std::to_string(cell);
    message += ": ";
  }
  return message + expected;
}

}  // namespace

TableError::TableError(std::string file, int line, int cell, const std::string& expected)
    : std::runtime_error(composeMessage(file, line, cell, expected)),
      m_file(std::move(file)),
      m_line(line),
      m_cell(cell) {}

TableError::TableError(const std::string& message) : std::runtime_error(message) {}

}  // namespace pescavo
