#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tables/ComponentTable.h"

namespace pescavo {

// The file side shared by the table readers and writers. Failures throw TableError naming
// the path as given and the system's reason.

// A table file open for reading. Only a regular file of at most kMaxBytes is opened: the path
// is looked at first, so a pipe, a device or a folder is refused without reading from it (a
// pipe would block, /dev/zero would never end).
class TableFile {
 public:
  static constexpr std::uint64_t kMaxBytes = std::uint64_t{64} << 20;

  explicit TableFile(const std::string& path);
  ~TableFile();
  TableFile(const TableFile&) = delete;
  TableFile& operator=(const TableFile&) = delete;

  // Up to room bytes into `into`; 0 at the end of the file. A file that grows beyond
  // kMaxBytes while it is read is refused.
  std::size_t read(char* into, std::size_t room);
  std::uint64_t size() const { return m_size; }  // when it was opened
  const std::string& path() const { return m_path; }

 private:
  std::string m_path;
  int m_fd = -1;
  std::uint64_t m_size = 0;
  std::uint64_t m_done = 0;
};

// The whole file in one buffer sized from its length, with TableFile's checks.
std::string readFileBytes(const std::string& path);

// Replaces the file at path through FileReplacer::disk(), so a failed write never leaves a
// half-written table behind. The old file's permissions are kept; a new table is readable by
// all. A failed rename "cannot be replaced", anything before it "cannot be written".
void writeFileAtomic(const std::string& path, std::string_view bytes);

struct DecodedText {
  std::string text;  // UTF-8
  Encoding encoding = Encoding::Utf8;
};

// UTF-8 when the bytes are valid UTF-8 (a byte-order mark is dropped), otherwise
// Windows-1252 converted to UTF-8.
DecodedText decodeText(std::string bytes);

bool isValidUtf8(std::string_view bytes);

// Windows-1252 bytes as UTF-8 (the five undefined bytes become the C1 controls of that value).
std::string windows1252ToUtf8(std::string_view bytes);

// Length of the valid UTF-8 sequence at bytes[i] (1 for ASCII), 0 when it is not one.
std::size_t utf8SequenceLength(std::string_view bytes, std::size_t i);
// The code point of the sequence of that length at text[i].
char32_t decodeUtf8At(std::string_view text, std::size_t i, std::size_t length);

// Back to the file's encoding. Text that Windows-1252 cannot hold, or whose Windows-1252
// bytes would read back as UTF-8, is written as UTF-8 rather than changed; the reader
// recognises either.
std::string encodeText(const std::string& utf8, Encoding encoding);

// Lines end at LF, with or without CR before it; a final line end adds no empty line.
std::vector<std::string_view> splitLines(std::string_view text);

// Blanks (only) removed at both ends, as the table layout trims its cells.
std::string_view trimBlanks(std::string_view text);

}  // namespace pescavo
