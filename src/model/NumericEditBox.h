#pragma once

#include <string>
#include <string_view>

namespace pescavo {

// What a key does to the text of a numeric edit box.
struct EditBoxKey {
  bool taken = false;  // false: the key is dropped and text and caret are as they were
  std::string text;
  int caret = 0;
};

// The edit box EingabeSchadstoff over the residue grid: its text, its selection and its key
// filter. Positions count bytes of the UTF-8 text.
class NumericEditBox {
 public:
  // The numeric key filter on a box without a selection: digits, "." and Backspace edit as
  // typed, "," appends "." and puts the caret at the end, every other key is dropped.
  static EditBoxKey filter(std::string_view text, int caret, int key);

  const std::string& text() const { return m_text; }
  int selectionStart() const { return m_start; }
  int selectionLength() const { return m_length; }
  void set(std::string text, int selectionStart, int selectionLength);
  void selectAll() { set(m_text, 0, static_cast<int>(m_text.size())); }
  // The filter on the box, where a typed key replaces the selection; false when dropped.
  bool type(int key);

 private:
  std::string m_text;
  int m_start = 0;
  int m_length = 0;
};

}  // namespace pescavo
