#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tables/ComponentTable.h"

namespace pescavo {

class TableFile;

// The lines of a table, from its file read in blocks (memory stays small whatever the file's
// size) or from bytes held in memory. Refuses what no table can hold: UTF-16 text, line ends of
// a CR alone, NUL bytes.
//
// Whether the text is UTF-8 or Windows-1252 depends on every byte of the file, so it is known
// only at the end: the readers keep their texts as they stand in the file and decode them once
// encoding() has the answer.
class TableLines {
 public:
  // The file at path. Throws TableError when it is not a regular file, is larger than 64 MiB
  // or cannot be read.
  explicit TableLines(const std::string& path);
  // Bytes held in memory, which must outlive this; name names the file in messages.
  TableLines(std::string_view bytes, const std::string& name);
  ~TableLines();
  TableLines(const TableLines&) = delete;
  TableLines& operator=(const TableLines&) = delete;

  // The next line without its line end (LF, or CR LF); false after the last one. A final line
  // end adds no empty line. The view holds until the next call.
  bool next(std::string_view& line);
  int lineNumber() const { return m_line; }  // of the line last given, 1-based
  const std::string& name() const { return m_name; }
  // The file's length when it was opened, or the bytes' length.
  std::uint64_t byteCount() const { return m_byteCount; }
  // Whether line 1 began with a UTF-8 byte-order mark, which next() leaves out.
  bool byteOrderMark() const { return m_byteOrderMark; }

  // The encoding of the whole file; lines not yet taken are read to decide it.
  Encoding encoding();
  // A text of the file as UTF-8.
  std::string text(std::string_view raw);

  // Throws TableError for the line and cell (0 when not about one), the file's texts in
  // `expected` decoded as the whole file decides.
  [[noreturn]] void refuse(int line, int cell, const std::string& expected);

 private:
  bool findLine(std::string_view& line);
  bool fill();
  void checkStart();
  void checkLine(std::string_view line);

  std::string m_name;
  std::unique_ptr<TableFile> m_file;
  std::vector<char> m_buffer;  // the block being read, for a file
  const char* m_data = nullptr;
  std::size_t m_pos = 0;   // start of the next line in m_data
  std::size_t m_have = 0;  // bytes of m_data held
  bool m_atEnd = false;    // no more bytes to read
  bool m_started = false;
  bool m_byteOrderMark = false;
  bool m_utf8 = true;  // every byte so far is UTF-8
  int m_line = 0;
  std::uint64_t m_byteCount = 0;
};

}  // namespace pescavo
