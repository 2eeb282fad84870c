#include "reports/RtfWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "reports/TextAppender.h"
#include "reports/TextFiles.h"
#include "tables/TextFile.h"

namespace pescavo {

namespace {

// Copied as they are: printable ASCII other than RTF's special characters.
constexpr std::array<bool, 256> plainBytes() {
  std::array<bool, 256> plain{};
  for (int c = 0x20; c < 0x80; ++c) plain[c] = c != '\\' && c != '{' && c != '}';
  return plain;
}

constexpr std::array<bool, 256> kPlainBytes = plainBytes();

bool isPlain(char c) { return kPlainBytes[static_cast<unsigned char>(c)]; }

// One test for four bytes: report text has stretches of plain characters between its TABs and
// line ends.
bool fourPlain(const char* bytes) {
  return isPlain(bytes[0]) & isPlain(bytes[1]) & isPlain(bytes[2]) & isPlain(bytes[3]);
}

template <std::size_t N>
char* put(char* out, const char (&literal)[N]) {
  std::memcpy(out, literal, N - 1);
  return out + N - 1;
}

// RTF's \u takes a signed 16-bit number.
char* putUnicode(char* out, std::uint32_t unit) {
  const int value = unit > 0x7FFF ? static_cast<int>(unit) - 0x10000 : static_cast<int>(unit);
  out = put(out, "\\u");
  out = std::to_chars(out, out + 6, value).ptr;
  return put(out, "?");
}

char* putHexByte(char* out, unsigned char byte) {
  static const char kHex[] = "0123456789abcdef";
  const char escaped[4] = {'\\', '\'', kHex[byte >> 4], kHex[byte & 0x0F]};
  std::memcpy(out, escaped, sizeof escaped);
  return out + sizeof escaped;
}

// A UTF-8 sequence at text[i] as one or two \u units; a byte that starts none is a byte of the
// Windows code page the document declares. Advances i past the bytes taken.
char* putNonAscii(char* out, const std::string& text, std::size_t& i) {
  const std::size_t length = utf8SequenceLength(text, i);
  if (length == 0) return putHexByte(out, static_cast<unsigned char>(text[i++]));
  const std::uint32_t codePoint = decodeUtf8At(text, i, length);
  i += length;
  if (codePoint <= 0xFFFF) return putUnicode(out, codePoint);
  const std::uint32_t v = codePoint - 0x10000;
  out = putUnicode(out, 0xD800 + (v >> 10));
  return putUnicode(out, 0xDC00 + (v & 0x3FF));
}

// The escaped form of each ASCII character that is not plain, looked up rather than branched
// to: report text has one every few characters. Control characters are bytes of the code page.
struct AsciiEscape {
  char text[7];
  unsigned char length;
};

constexpr std::array<AsciiEscape, 128> asciiEscapes() {
  std::array<AsciiEscape, 128> escapes{};
  const auto set = [&escapes](int c, const char* text) {
    AsciiEscape& escape = escapes[c];
    escape = AsciiEscape{};
    while (text[escape.length] != '\0') {
      escape.text[escape.length] = text[escape.length];
      ++escape.length;
    }
  };
  const char hex[] = "0123456789abcdef";
  for (int c = 0; c < 0x20; ++c) {
    const char escaped[] = {'\\', '\'', hex[c >> 4], hex[c & 0x0F], '\0'};
    set(c, escaped);
  }
  set('\r', "\\par\r\n");
  set('\n', "\\par\r\n");
  set('\t', "\\tab ");
  set('\\', "\\\\");
  set('{', "\\{");
  set('}', "\\}");
  return escapes;
}

constexpr std::array<AsciiEscape, 128> kAsciiEscapes = asciiEscapes();

// The text is escaped in blocks, each into room for its worst case: one character taken
// gives at most six (a lone CR or LF), and the last may take three more bytes of UTF-8.
constexpr std::size_t kBlock = 512;
constexpr std::size_t kBlockRoom = 6 * (kBlock + 3);

void escapeTo(const std::string& text, TextAppender& appender) {
  const char* const data = text.data();
  const std::size_t size = text.size();
  std::size_t i = 0;
  while (i < size) {
    const std::size_t blockEnd = std::min(size, i + kBlock);
    char* out = appender.room(kBlockRoom);
    while (i < blockEnd) {
      while (i + 4 <= blockEnd && fourPlain(data + i)) {
        std::memcpy(out, data + i, 4);
        out += 4;
        i += 4;
      }
      while (i < blockEnd && isPlain(data[i])) *out++ = data[i++];
      if (i == blockEnd) break;
      const unsigned char c = static_cast<unsigned char>(data[i]);
      if (c >= 0x80) {
        out = putNonAscii(out, text, i);
        continue;
      }
      // The whole entry is copied; the room has space for it.
      const AsciiEscape& escape = kAsciiEscapes[c];
      std::memcpy(out, escape.text, sizeof escape.text);
      out += escape.length;
      // CR LF is one line end. data[size] is the string's NUL.
      i += (c == '\r' && data[i + 1] == '\n') ? 2 : 1;
    }
    appender.commit(out);
  }
}

// Escaping adds little to report text: a quarter more and one block's room save growing.
std::size_t expectedEscapedSize(std::size_t textSize) {
  return textSize + textSize / 4 + kBlockRoom;
}

void appendNumber(int value, TextAppender& out) {
  char number[16];
  const char* end = std::to_chars(number, number + sizeof number, value).ptr;
  out.append(number, static_cast<std::size_t>(end - number));
}

// Colour table: entry 0 stays the reader's automatic colour; runs refer to their own entry.
void appendHeader(const std::vector<int>& colours, TextAppender& out) {
  out.append(
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1"
      "{\\fonttbl{\\f0\\fmodern\\fcharset0 Courier New;}}\r\n{\\colortbl ;");
  for (int rgb : colours) {
    out.append("\\red");
    appendNumber((rgb >> 16) & 0xFF, out);
    out.append("\\green");
    appendNumber((rgb >> 8) & 0xFF, out);
    out.append("\\blue");
    appendNumber(rgb & 0xFF, out);
    out.append(";");
  }
  out.append("}\r\n\\pard\\f0\\fs20 ");
}

void appendRun(const std::string& text, bool bold, std::size_t colour, TextAppender& out) {
  out.append("{");
  if (bold) out.append("\\b");
  out.append("\\cf");
  appendNumber(static_cast<int>(colour), out);
  out.append(" ");
  escapeTo(text, out);
  out.append("}");
}

constexpr char kFooter[] = "\r\n}\r\n";

}  // namespace

void RtfWriter::escape(const std::string& text, std::string& out) {
  TextAppender appender(out, expectedEscapedSize(text.size()));
  escapeTo(text, appender);
}

std::string RtfWriter::document(const std::vector<RtfRun>& runs) {
  size_t textSize = 0;
  for (const RtfRun& run : runs) textSize += run.text.size();
  std::vector<int> colours;
  std::vector<size_t> colourOfRun;
  for (const RtfRun& run : runs) {
    const int rgb = (run.red << 16) | (run.green << 8) | run.blue;
    size_t index = 0;
    while (index < colours.size() && colours[index] != rgb) ++index;
    if (index == colours.size()) colours.push_back(rgb);
    colourOfRun.push_back(index + 1);
  }
  std::string rtf;
  TextAppender out(rtf,
                   256 + 48 * colours.size() + 16 * runs.size() + expectedEscapedSize(textSize));
  appendHeader(colours, out);
  for (size_t r = 0; r < runs.size(); ++r)
    appendRun(runs[r].text, runs[r].bold, colourOfRun[r], out);
  out.append(kFooter);
  out.finish();
  return rtf;
}

// One black run, without copying the text into it.
std::string RtfWriter::document(const std::string& plainText) {
  std::string rtf;
  TextAppender out(rtf, 256 + expectedEscapedSize(plainText.size()));
  appendHeader({0}, out);
  appendRun(plainText, false, 1, out);
  out.append(kFooter);
  out.finish();
  return rtf;
}

void RtfWriter::save(const std::string& path, const std::string& rtf, const FileReplacer& files) {
  replaceFile(path, {rtf}, files);
}

}  // namespace pescavo
