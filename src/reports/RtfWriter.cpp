#include "reports/RtfWriter.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "reports/TextFiles.h"
#include "tables/TextFile.h"

namespace pescavo {

namespace {

// RTF's \u takes a signed 16-bit number.
void appendUnicode(std::uint32_t unit, std::string& out) {
  const int value = unit > 0x7FFF ? static_cast<int>(unit) - 0x10000 : static_cast<int>(unit);
  out += "\\u" + std::to_string(value) + "?";
}

void appendHexByte(unsigned char byte, std::string& out) {
  static const char kHex[] = "0123456789abcdef";
  out += "\\'";
  out += kHex[byte >> 4];
  out += kHex[byte & 0x0F];
}

bool isPlain(unsigned char c) { return c >= 0x20 && c < 0x80 && c != '\\' && c != '{' && c != '}'; }

}  // namespace

void RtfWriter::escape(const std::string& text, std::string& out) {
  for (size_t i = 0; i < text.size();) {
    // Report text is mostly plain ASCII: copy such stretches in one go.
    size_t plainEnd = i;
    while (plainEnd < text.size() && isPlain(static_cast<unsigned char>(text[plainEnd])))
      ++plainEnd;
    if (plainEnd > i) {
      out.append(text, i, plainEnd - i);
      i = plainEnd;
      continue;
    }
    const unsigned char c = static_cast<unsigned char>(text[i]);
    if (c == '\r' || c == '\n') {
      out += "\\par\r\n";
      i += (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ? 2 : 1;
      continue;
    }
    if (c == '\t') {
      out += "\\tab ";
    } else if (c == '\\' || c == '{' || c == '}') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c < 0x20) {
      appendHexByte(c, out);
    } else if (c < 0x80) {
      out += static_cast<char>(c);
    } else {
      const size_t length = utf8SequenceLength(text, i);
      if (length == 0) {
        // Not UTF-8: a byte of the Windows code page the document declares.
        appendHexByte(c, out);
        ++i;
        continue;
      }
      const std::uint32_t codePoint = decodeUtf8At(text, i, length);
      if (codePoint > 0xFFFF) {
        const std::uint32_t v = codePoint - 0x10000;
        appendUnicode(0xD800 + (v >> 10), out);
        appendUnicode(0xDC00 + (v & 0x3FF), out);
      } else {
        appendUnicode(codePoint, out);
      }
      i += length;
      continue;
    }
    ++i;
  }
}

std::string RtfWriter::document(const std::vector<RtfRun>& runs) {
  // Colour table: entry 0 stays the reader's automatic colour; runs refer to their own entry.
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
  std::string out =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1"
      "{\\fonttbl{\\f0\\fmodern\\fcharset0 Courier New;}}\r\n{\\colortbl ;";
  for (int rgb : colours) {
    out += "\\red" + std::to_string((rgb >> 16) & 0xFF) + "\\green" +
           std::to_string((rgb >> 8) & 0xFF) + "\\blue" + std::to_string(rgb & 0xFF) + ";";
  }
  out += "}\r\n\\pard\\f0\\fs20 ";
  out.reserve(out.size() + textSize + textSize / 4 + 16 * runs.size() + 8);
  for (size_t r = 0; r < runs.size(); ++r) {
    out += "{";
    if (runs[r].bold) out += "\\b";
    out += "\\cf" + std::to_string(colourOfRun[r]) + " ";
    escape(runs[r].text, out);
    out += "}";
  }
  out += "\r\n}\r\n";
  return out;
}

std::string RtfWriter::document(const std::string& plainText) {
  RtfRun run;
  run.text = plainText;
  return document(std::vector<RtfRun>{run});
}

void RtfWriter::save(const std::string& path, const std::string& rtf) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  const auto fail = [&](int error) {
    throw ReportFileError(path,
                          "Could not write the file " + path + ": " + std::strerror(error) + ".");
  };
  if (!file) fail(errno);
  const bool written = std::fwrite(rtf.data(), 1, rtf.size(), file) == rtf.size();
  const int error = errno;
  if (std::fclose(file) != 0) fail(errno);
  if (!written) fail(error);
}

}  // namespace pescavo
