#pragma once

#include <cstddef>
#include <cstring>
#include <string>

namespace pescavo {

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

}  // namespace pescavo
