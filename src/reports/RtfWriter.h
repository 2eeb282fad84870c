#pragma once

#include <string>
#include <vector>

#include "tables/FileReplacer.h"

namespace pescavo {

// A stretch of rich text with one look. Text is UTF-8; CR LF, CR or LF end a paragraph.
struct RtfRun {
  std::string text;
  bool bold = false;
  int red = 0;
  int green = 0;
  int blue = 0;
};

// A small RTF writer: one fixed-pitch font, bold and colour per run, TABs as \tab, every
// character beyond ASCII as \uN? so that any word processor shows it whatever its code page.
class RtfWriter {
 public:
  static std::string document(const std::vector<RtfRun>& runs);
  static std::string document(const std::string& plainText);
  // Appends text to out with RTF's special characters and non-ASCII escaped.
  static void escape(const std::string& text, std::string& out);
  // Replaces the file through files; throws ReportFileError.
  static void save(const std::string& path, const std::string& rtf,
                   const FileReplacer& files = FileReplacer::disk());
};

}  // namespace pescavo
