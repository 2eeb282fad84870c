#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tables/ComponentTable.h"

namespace pescavo {

// The file side shared by the table readers and writers. Failures throw TableError naming
// the path as given and the system's reason.

std::string readFileBytes(const std::string& path);

// Writes a temporary file next to path and renames it over path, so a failed write never
// leaves a half-written table behind. The old file's permissions are kept.
void writeFileAtomic(const std::string& path, std::string_view bytes);

struct DecodedText {
  std::string text;  // UTF-8
  Encoding encoding = Encoding::Utf8;
};

// UTF-8 when the bytes are valid UTF-8 (a byte-order mark is dropped), otherwise
// Windows-1252 converted to UTF-8.
DecodedText decodeText(std::string bytes);

bool isValidUtf8(std::string_view bytes);

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
