#include "reports/TextFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace pescavo {

namespace {

[[noreturn]] void fail(const char* verb, const std::string& path, int error) {
  throw ReportFileError(path, std::string("Could not ") + verb + " the file " + path + ": " +
                                  std::strerror(error) + ".");
}

class Descriptor {
 public:
  explicit Descriptor(int fd) : m_fd(fd) {}
  ~Descriptor() {
    if (m_fd >= 0) ::close(m_fd);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return m_fd; }

 private:
  int m_fd;
};

// False when there is no such file; otherwise its bytes.
bool readWhole(const std::string& path, std::string& content) {
  Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.get() < 0) {
    if (errno == ENOENT || errno == ENOTDIR) return false;
    fail("read", path, errno);
  }
  struct stat info;
  if (::fstat(file.get(), &info) != 0) fail("read", path, errno);
  content.resize(static_cast<std::size_t>(info.st_size));
  std::size_t got = 0;
  while (got < content.size()) {
    const ssize_t n = ::read(file.get(), &content[got], content.size() - got);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) fail("read", path, errno);
    if (n == 0) break;
    got += static_cast<std::size_t>(n);
  }
  content.resize(got);
  return true;
}

[[noreturn]] void failToWrite(const FileReplaceError& error) {
  fail("write", error.path(), error.error());
}

}  // namespace

ReportFileError::ReportFileError(const std::string& file, const std::string& message)
    : std::runtime_error(message), m_file(file) {}

void replaceFile(const std::string& path, std::initializer_list<std::string_view> pieces,
                 const FileReplacer& files) {
  try {
    files.replace(path, pieces, NewFileMode::FromUmask);
  } catch (const FileReplaceError& error) {
    failToWrite(error);
  }
}

// The old content and the new line go out as they are, without being joined into one string.
void txt_AppendLine(const std::string& path, const std::string& text, const FileReplacer& files) {
  std::string old;
  readWhole(path, old);
  replaceFile(path, {old, text, "\r\n"}, files);
}

void txt_WriteAll(const std::string& path, const std::string& text, const FileReplacer& files) {
  replaceFile(path, {text, "\r\n"}, files);
}

std::string txt_ReadAll(const std::string& path) {
  std::string content;
  readWhole(path, content);
  return content;
}

}  // namespace pescavo
