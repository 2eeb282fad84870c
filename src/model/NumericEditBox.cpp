#include "model/NumericEditBox.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "model/VirtualKeys.h"
#include "tables/NumericText.h"
#include "tables/Utf8.h"

namespace pescavo {

using namespace VirtualKey;

EditBoxKey NumericEditBox::filter(std::string_view text, int caret, int key) {
  EditBoxKey result{false, std::string(text), std::clamp(caret, 0, static_cast<int>(text.size()))};
  const std::optional<int> passed = filterKey(key, result.text, result.caret);
  if (!passed) {
    result.taken = key == ',';  // the comma has appended its point
    return result;
  }
  if (*passed == kEnter) return result;  // Enter commits; it is no character of the text
  const auto at = static_cast<std::size_t>(result.caret);
  if (*passed == kBackspace) {
    const std::size_t from = at == 0 ? 0 : characterStart(result.text, at - 1);
    result.text.erase(from, at - from);
    result.caret = static_cast<int>(from);
  } else {
    result.text.insert(at, 1, static_cast<char>(*passed));
    ++result.caret;
  }
  result.taken = true;
  return result;
}

void NumericEditBox::set(std::string text, int selectionStart, int selectionLength) {
  m_text = std::move(text);
  const int size = static_cast<int>(m_text.size());
  m_start = std::clamp(selectionStart, 0, size);
  m_length = std::clamp(selectionLength, 0, size - m_start);
}

bool NumericEditBox::type(int key) {
  std::string text = m_text;
  int caret = m_start + m_length;
  const bool typing = key == kBackspace || key == '.' || (key >= '0' && key <= '9');
  if (typing && m_length > 0) {  // a typed key first takes the selection away
    text.erase(static_cast<std::size_t>(m_start), static_cast<std::size_t>(m_length));
    caret = m_start;
    if (key == kBackspace) {
      set(std::move(text), caret, 0);
      return true;
    }
  }
  EditBoxKey result = filter(text, caret, key);
  if (!result.taken) return false;
  set(std::move(result.text), result.caret, 0);
  return true;
}

}  // namespace pescavo
