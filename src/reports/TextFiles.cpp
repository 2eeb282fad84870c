#include "reports/TextFiles.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace pescavo {

namespace {

std::string failure(const char* verb, const std::string& path, int error) {
  return std::string("Could not ") + verb + " the file " + path + ": " + std::strerror(error) + ".";
}

// The file is unbuffered: each piece goes to the system in one write, without a copy.
void writeText(const std::string& path, const std::string& text, const char* mode) {
  std::FILE* file = std::fopen(path.c_str(), mode);
  if (!file) throw ReportFileError(path, failure("write", path, errno));
  std::setvbuf(file, nullptr, _IONBF, 0);
  const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size() &&
                       std::fwrite("\r\n", 1, 2, file) == 2;
  const int error = errno;
  // A full disk may only show when the file is closed.
  const bool closed = std::fclose(file) == 0;
  if (!written || !closed)
    throw ReportFileError(path, failure("write", path, written ? errno : error));
}

}  // namespace

ReportFileError::ReportFileError(const std::string& file, const std::string& message)
    : std::runtime_error(message), m_file(file) {}

void txt_AppendLine(const std::string& path, const std::string& text) {
  writeText(path, text, "ab");
}

void txt_WriteAll(const std::string& path, const std::string& text) { writeText(path, text, "wb"); }

std::string txt_ReadAll(const std::string& path) {
  std::error_code ignored;
  if (!std::filesystem::exists(path, ignored)) return std::string();
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (!file) throw ReportFileError(path, failure("read", path, errno));
  std::string content;
  char buffer[65536];
  size_t got;
  while ((got = std::fread(buffer, 1, sizeof buffer, file)) > 0) content.append(buffer, got);
  const bool failed = std::ferror(file) != 0;
  const int error = errno;
  std::fclose(file);
  if (failed) throw ReportFileError(path, failure("read", path, error));
  return content;
}

}  // namespace pescavo
