#pragma once

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tables/FileReplacer.h"

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
void txt_AppendLine(const std::string& path, const std::string& text,
                    const FileReplacer& files = FileReplacer::disk());
void txt_WriteAll(const std::string& path, const std::string& text,
                  const FileReplacer& files = FileReplacer::disk());
// The whole file byte for byte, or the empty text when no file is there.
std::string txt_ReadAll(const std::string& path);

// Replaces the file at path with the pieces one after another, through files (see
// FileReplacer): the old file stays whole when that fails. A new report gets the mode the umask
// gives. Throws ReportFileError naming path.
void replaceFile(const std::string& path, std::initializer_list<std::string_view> pieces,
                 const FileReplacer& files = FileReplacer::disk());

}  // namespace pescavo
