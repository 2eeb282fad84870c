#include "tables/TableLines.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "tables/TableCells.h"
#include "tables/TableError.h"
#include "tables/TextFile.h"

namespace pescavo {

namespace {

constexpr std::size_t kBlockBytes = std::size_t{128} << 10;
// Enough of the file's start to tell UTF-16 by its NUL bytes.
constexpr std::size_t kStartBytes = 1024;
constexpr const char* kNulMessage = "expected text, found a NUL byte (is the file a table?)";

// A line with no NUL, no CR and no byte from 0x80 up needs no closer look: eight bytes at a
// time, each test true for a word that holds such a byte.
bool plainLine(std::string_view line) {
  constexpr std::uint64_t kOnes = 0x0101010101010101u;
  constexpr std::uint64_t kHigh = 0x8080808080808080u;
  std::size_t i = 0;
  for (; i + 8 <= line.size(); i += 8) {
    std::uint64_t word;
    std::memcpy(&word, line.data() + i, sizeof word);
    const std::uint64_t cr = word ^ (kOnes * '\r');
    if ((((word - kOnes) & ~word) | ((cr - kOnes) & ~cr) | word) & kHigh) return false;
  }
  for (; i < line.size(); ++i) {
    const auto byte = static_cast<unsigned char>(line[i]);
    if (byte == 0 || byte == '\r' || byte >= 0x80) return false;
  }
  return true;
}

// UTF-16 without a byte-order mark shows as NUL bytes in every other position: the high
// bytes of Latin text.
const char* utf16Order(std::string_view start) {
  if (start.size() >= 2) {
    if (start[0] == '\xFF' && start[1] == '\xFE') return "little-endian, with a byte-order mark";
    if (start[0] == '\xFE' && start[1] == '\xFF') return "big-endian, with a byte-order mark";
  }
  const std::size_t units = std::min(start.size(), kStartBytes) / 2;
  std::size_t evenNul = 0, oddNul = 0;
  for (std::size_t k = 0; k < units; ++k) {
    evenNul += start[2 * k] == '\0';
    oddNul += start[2 * k + 1] == '\0';
  }
  if (units == 0) return nullptr;
  if (4 * oddNul >= 3 * units && 4 * evenNul <= units) return "little-endian";
  if (4 * evenNul >= 3 * units && 4 * oddNul <= units) return "big-endian";
  return nullptr;
}

}  // namespace

TableLines::TableLines(const std::string& path)
    : m_name(path), m_file(std::make_unique<TableFile>(path)) {
  // Small tables fit one buffer of their own size; large ones are read a block at a time.
  m_buffer.resize(static_cast<std::size_t>(
      std::min<std::uint64_t>(m_file->size() + 1, std::uint64_t{kBlockBytes})));
  m_data = m_buffer.data();
  m_byteCount = m_file->size();
}

TableLines::TableLines(std::string_view bytes, const std::string& name)
    : m_name(name),
      m_data(bytes.data()),
      m_have(bytes.size()),
      m_atEnd(true),
      m_byteCount(bytes.size()) {}

TableLines::~TableLines() = default;

// Moves what is left of the block to its start and reads on behind it; false at the end.
bool TableLines::fill() {
  if (!m_file || m_atEnd) return false;
  const std::size_t left = m_have - m_pos;
  if (m_pos > 0) std::memmove(m_buffer.data(), m_buffer.data() + m_pos, left);
  m_pos = 0;
  m_have = left;
  if (m_have == m_buffer.size()) m_buffer.resize(m_buffer.size() * 2);  // a line this long
  m_data = m_buffer.data();
  const std::size_t got = m_file->read(m_buffer.data() + m_have, m_buffer.size() - m_have);
  if (got == 0) m_atEnd = true;
  m_have += got;
  return got > 0;
}

void TableLines::checkStart() {
  m_started = true;
  while (m_have < kStartBytes && fill()) {
  }
  const std::string_view start(m_data, m_have);
  if (const char* order = utf16Order(start)) {
    throw TableError(m_name, 0, 0,
                     std::string("expected UTF-8 or Windows-1252 text, found UTF-16 (") + order +
                         "): save the file as UTF-8 or Windows-1252 text");
  }
  // A NUL this early is refused now rather than after a search for the end of a line that a
  // file of zeros never has.
  if (const std::size_t nul = start.find('\0'); nul != std::string_view::npos) {
    const std::size_t lineStart = start.rfind('\n', nul) + 1;  // 0 without an LF before
    const auto line = 1 + std::count(start.begin(), start.begin() + lineStart, '\n');
    refuse(static_cast<int>(line), cellAt(start.substr(lineStart), nul - lineStart), kNulMessage);
  }
  if (start.substr(0, 3) == "\xEF\xBB\xBF") {
    m_byteOrderMark = true;
    m_pos = 3;
  }
}

bool TableLines::findLine(std::string_view& line) {
  std::size_t scanned = m_pos;  // no LF before this
  for (;;) {
    const void* found =
        scanned < m_have ? std::memchr(m_data + scanned, '\n', m_have - scanned) : nullptr;
    if (found) {
      std::size_t end = static_cast<std::size_t>(static_cast<const char*>(found) - m_data);
      const std::size_t start = m_pos;
      m_pos = end + 1;
      if (end > start && m_data[end - 1] == '\r') --end;
      line = std::string_view(m_data + start, end - start);
      return true;
    }
    const std::size_t offset = m_have - m_pos;
    if (!fill()) break;
    scanned = m_pos + offset;
  }
  if (m_pos == m_have) return false;
  // The last line without a line end; a CR alone at the very end is taken as its line end.
  std::size_t end = m_have;
  if (m_data[end - 1] == '\r') --end;
  line = std::string_view(m_data + m_pos, end - m_pos);
  m_pos = m_have;
  return true;
}

void TableLines::checkLine(std::string_view line) {
  if (plainLine(line)) return;
  const std::size_t nul = line.find('\0');
  const std::size_t cr = line.find('\r');
  if (nul != std::string_view::npos && nul < cr) {
    refuse(m_line, cellAt(line, nul), kNulMessage);
  }
  if (cr != std::string_view::npos) {
    if (m_line == 1) {
      refuse(1, 0,
             "expected lines ending in CR LF or LF, found CR-only line ends (a CR alone, as old "
             "Mac programs wrote them): save the file with Windows or Unix line ends");
    }
    refuse(m_line, cellAt(line, cr),
           "expected the line to end in CR LF or LF, found a CR alone inside it");
  }
  if (m_utf8 && !isValidUtf8(line)) m_utf8 = false;
}

bool TableLines::next(std::string_view& line) {
  if (!m_started) checkStart();
  if (!findLine(line)) return false;
  ++m_line;
  checkLine(line);
  return true;
}

Encoding TableLines::encoding() {
  if (!m_started) checkStart();
  std::string_view line;
  while (m_utf8 && findLine(line)) {
    if (!isValidUtf8(line)) m_utf8 = false;
  }
  return m_utf8 ? Encoding::Utf8 : Encoding::Windows1252;
}

std::string TableLines::text(std::string_view raw) {
  return encoding() == Encoding::Utf8 ? std::string(raw) : windows1252ToUtf8(raw);
}

void TableLines::refuse(int line, int cell, const std::string& expected) {
  // Only a message that quotes the file's own non-ASCII bytes needs the rest of the file read.
  const bool ascii = std::none_of(expected.begin(), expected.end(),
                                  [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
  if (ascii || encoding() == Encoding::Utf8) throw TableError(m_name, line, cell, expected);
  throw TableError(m_name, line, cell, windows1252ToUtf8(expected));
}

}  // namespace pescavo
