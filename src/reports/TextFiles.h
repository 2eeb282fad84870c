#pragma once

#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <string>

namespace pescavo {

// A report file that could not be read or written. what() is the message for the user and
// names the file and the system's reason.
class ReportFileError : public std::runtime_error {
 public:
  ReportFileError(const std::string& file, const std::string& message);
  const std::string& file() const { return m_file; }

 private:
  std::string m_file;
};

// Appends to a string through its spare room, so that each of the many short pieces of a
// report costs one copy and no library call. The string has its true size again after
// finish() or when the appender goes.
class TextAppender {
 public:
  TextAppender(std::string& out, std::size_t expected) : m_out(out), m_used(out.size()) {
    m_out.resize(m_used + expected);
  }
  ~TextAppender() { finish(); }
  TextAppender(const TextAppender&) = delete;
  TextAppender& operator=(const TextAppender&) = delete;

  void append(const char* data, std::size_t size) {
    if (m_out.size() - m_used < size) m_out.resize(2 * (m_used + size));
    std::memcpy(&m_out[m_used], data, size);
    m_used += size;
  }
  template <std::size_t N>
  void append(const char (&literal)[N]) {
    append(literal, N - 1);
  }
  void append(const std::string& text) { append(text.data(), text.size()); }
  void finish() { m_out.resize(m_used); }

  // For writers that fill a stretch themselves: room() gives space for size characters,
  // commit() takes what was written up to end.
  char* room(std::size_t size) {
    if (m_out.size() - m_used < size) m_out.resize(2 * (m_used + size));
    return &m_out[m_used];
  }
  void commit(const char* end) { m_used = static_cast<std::size_t>(end - m_out.data()); }

 private:
  std::string& m_out;
  std::size_t m_used;
};

// Whole-file text helpers. Bytes go through unchanged; txt_AppendLine and txt_WriteAll add
// CR LF after text, txt_Append writes text alone in a single write. Failures throw
// ReportFileError.
void txt_AppendLine(const std::string& path, const std::string& text);
void txt_Append(const std::string& path, const std::string& text);
void txt_WriteAll(const std::string& path, const std::string& text);
// The whole file byte for byte, or the empty text when no file is there.
std::string txt_ReadAll(const std::string& path);

}  // namespace pescavo
