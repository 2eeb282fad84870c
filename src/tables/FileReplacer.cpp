#include "tables/FileReplacer.h"

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

// open() rather than mkstemp() creates it, so that a new file gets the mode the umask and the
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
      fail(FileReplaceError::Step::Write);
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
    if (!ok) fail(FileReplaceError::Step::Write);
  }
  // A full disk may only show when the file is closed.
  void close() {
    const int fd = m_fd;
    m_fd = -1;
    check(::close(fd) == 0);
  }
  void renameOverTarget() {
    if (::rename(m_name.c_str(), m_target.c_str()) != 0) fail(FileReplaceError::Step::Rename);
    m_name.clear();
  }

 private:
  [[noreturn]] void fail(FileReplaceError::Step step) const {
    throw FileReplaceError(m_target, step, errno);
  }

  const std::string& m_target;
  std::string m_name;
  int m_fd = -1;
};

}  // namespace

FileReplaceError::FileReplaceError(const std::string& path, Step step, int error)
    : std::runtime_error(path + ": " + std::strerror(error)),
      m_path(path),
      m_step(step),
      m_error(error) {}

void FileReplacer::replace(const std::string& path, std::initializer_list<std::string_view> pieces,
                           NewFileMode mode) const {
  struct stat old {};
  const bool replacing = ::stat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode);
  NewFile file(path);
  if (replacing) {
    file.check(::fchmod(file.fd(), old.st_mode & 07777) == 0);
  } else if (mode == NewFileMode::ReadableByAll) {
    file.check(::fchmod(file.fd(), 0644) == 0);
  }
  file.check(writePieces(file.fd(), pieces));
  // Before the rename: a crash must not leave the file's name on data not yet on the disk.
  file.check(::fsync(file.fd()) == 0);
  file.close();
  file.renameOverTarget();
}

const FileReplacer& FileReplacer::disk() {
  static const FileReplacer kDisk;
  return kDisk;
}

}  // namespace pescavo
