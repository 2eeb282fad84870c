#pragma once

#include <cstddef>
#include <string_view>

namespace pescavo {

// Where the UTF-8 character holding byte pos starts, so that a cut or a Backspace never
// splits a character.
inline std::size_t characterStart(std::string_view text, std::size_t pos) {
  while (pos > 0 && (static_cast<unsigned char>(text[pos]) & 0xC0) == 0x80) --pos;
  return pos;
}

}  // namespace pescavo
