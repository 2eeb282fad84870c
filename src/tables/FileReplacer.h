#pragma once

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>

namespace pescavo {

// A file that could not be replaced: the file, the step that failed and the system's error
// number. Each caller words the message its own way.
class FileReplaceError : public std::runtime_error {
 public:
  enum class Step { Write, Rename };
  FileReplaceError(const std::string& path, Step step, int error);
  const std::string& path() const { return m_path; }
  Step step() const { return m_step; }
  int error() const { return m_error; }

 private:
  std::string m_path;
  Step m_step;
  int m_error;
};

// The permissions of a file made where none was before (an old file's are always kept).
enum class NewFileMode {
  FromUmask,     // 0666 less the umask and the folder's default ACL, as any new file
  ReadableByAll  // 0644, whatever the umask
};

// Writes whole files by replacing them. The pieces go one after another into a new file in the
// same folder, which is renamed over the target only once all of it is on the disk: a full disk
// or a crash leaves the old file as it was, never a truncated one, and no temporary file stays
// behind. The program writes through disk(); a test hands in one of its own to see what a
// failed write leaves.
class FileReplacer {
 public:
  virtual ~FileReplacer() = default;
  // Throws FileReplaceError naming path.
  virtual void replace(const std::string& path, std::initializer_list<std::string_view> pieces,
                       NewFileMode mode) const;

  static const FileReplacer& disk();
};

}  // namespace pescavo
