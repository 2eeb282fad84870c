#include "reports/TextFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <random>
#include <vector>

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

// False when there is no such file; otherwise its bytes and permissions, in one read.
bool readWhole(const std::string& path, std::string& content, mode_t& mode) {
  Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.get() < 0) {
    if (errno == ENOENT || errno == ENOTDIR) return false;
    fail("read", path, errno);
  }
  struct stat info;
  if (::fstat(file.get(), &info) != 0) fail("read", path, errno);
  mode = info.st_mode & 07777;
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

// open() rather than mkstemp() creates it, so that a new report gets the mode the umask and the
// folder's default ACL give any new file, without touching the process-wide umask.
int createBeside(const std::string& path, std::string& name) {
  static const char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  thread_local std::minstd_rand random(std::random_device{}());
  for (int attempt = 0; attempt < 100; ++attempt) {
    name = path + ".";
    for (int i = 0; i < 6; ++i) name += kLetters[random() % (sizeof kLetters - 1)];
    const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  return -1;
}

// Goes on after short writes; a full disk shows as a short write followed by a failing one.
bool writePieces(int fd, std::initializer_list<std::string_view> pieces) {
  std::vector<iovec> parts;
  parts.reserve(pieces.size());
  for (std::string_view piece : pieces)
    if (!piece.empty()) parts.push_back({const_cast<char*>(piece.data()), piece.size()});
  std::size_t first = 0;
  while (first < parts.size()) {
    const int count = static_cast<int>(std::min<std::size_t>(parts.size() - first, IOV_MAX));
    const ssize_t n = ::writev(fd, &parts[first], count);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    if (n == 0) {
      errno = EIO;
      return false;
    }
    std::size_t done = static_cast<std::size_t>(n);
    while (first < parts.size() && done >= parts[first].iov_len) done -= parts[first++].iov_len;
    if (done > 0) {
      parts[first].iov_base = static_cast<char*>(parts[first].iov_base) + done;
      parts[first].iov_len -= done;
    }
  }
  return true;
}

// The new content's file until it is renamed over the target; removed on any failure. Errors
// name the target: the temporary name means nothing to the user.
class NewFile {
 public:
  explicit NewFile(const std::string& target) : m_target(target) {
    m_fd = createBeside(target, m_name);
    if (m_fd < 0) {
      m_name.clear();
      fail("write", m_target, errno);
    }
  }
  ~NewFile() {
    if (m_fd >= 0) ::close(m_fd);
    if (!m_name.empty()) ::unlink(m_name.c_str());
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  int fd() const { return m_fd; }
  void check(bool ok) const {
    if (!ok) fail("write", m_target, errno);
  }
  // A full disk may only show when the file is closed.
  void close() {
    const int fd = m_fd;
    m_fd = -1;
    check(::close(fd) == 0);
  }
  void renameOverTarget() {
    check(::rename(m_name.c_str(), m_target.c_str()) == 0);
    m_name.clear();
  }

 private:
  const std::string& m_target;
  std::string m_name;
  int m_fd = -1;
};

void replace(const std::string& path, std::initializer_list<std::string_view> pieces,
             const mode_t* oldMode) {
  NewFile file(path);
  if (oldMode) file.check(::fchmod(file.fd(), *oldMode) == 0);
  file.check(writePieces(file.fd(), pieces));
  // Before the rename: a crash must not leave the report's name on data not yet on the disk.
  file.check(::fsync(file.fd()) == 0);
  file.close();
  file.renameOverTarget();
}

}  // namespace

ReportFileError::ReportFileError(const std::string& file, const std::string& message)
    : std::runtime_error(message), m_file(file) {}

void replaceFile(const std::string& path, std::initializer_list<std::string_view> pieces) {
  struct stat old;
  if (::stat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode)) {
    const mode_t mode = old.st_mode & 07777;
    replace(path, pieces, &mode);
  } else {
    replace(path, pieces, nullptr);
  }
}

// The old content and the new line go out as they are, without being joined into one string.
void txt_AppendLine(const std::string& path, const std::string& text) {
  std::string old;
  mode_t mode = 0;
  const bool existed = readWhole(path, old, mode);
  replace(path, {old, text, "\r\n"}, existed ? &mode : nullptr);
}

void txt_WriteAll(const std::string& path, const std::string& text) {
  replaceFile(path, {text, "\r\n"});
}

std::string txt_ReadAll(const std::string& path) {
  std::string content;
  mode_t mode = 0;
  readWhole(path, content, mode);
  return content;
}

}  // namespace pescavo
