#pragma once

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

// Whole-file text helpers. Bytes go through unchanged; the two writers add CR LF after text.
// Failures throw ReportFileError.
void txt_AppendLine(const std::string& path, const std::string& text);
void txt_WriteAll(const std::string& path, const std::string& text);
// The whole file byte for byte, or the empty text when no file is there.
std::string txt_ReadAll(const std::string& path);

}  // namespace pescavo
