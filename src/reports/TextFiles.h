#pragma once

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>

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
// Failures throw ReportFileError. Writing replaces the file as replaceFile does.
void txt_AppendLine(const std::string& path, const std::string& text);
void txt_WriteAll(const std::string& path, const std::string& text);
// The whole file byte for byte, or the empty text when no file is there.
std::string txt_ReadAll(const std::string& path);

// Replaces the file at path with the pieces one after another. They go to a new file in the
// same folder that is renamed over path only once all of it is on the disk, so a full disk or a
// crash leaves the old file as it was, never a truncated one. The new file keeps the old one's
// permissions. Throws ReportFileError naming path; no temporary file is left behind.
void replaceFile(const std::string& path, std::initializer_list<std::string_view> pieces);

}  // namespace pescavo
