#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "reports/RtfWriter.h"
#include "reports/TextFiles.h"
#include "support/TempFolder.h"

namespace pescavo::test {
namespace {

namespace fs = std::filesystem;

// Every byte that could be mangled on the way: NUL, a lone CR and LF, TAB, UTF-8.
const std::string kAwkwardText = std::string("A\0B", 3) + "\r\n\t\xC3\xA9 line\rend\n";

class TextFilesTest : public ::testing::Test {
 protected:
  std::string file(const std::string& name) const { return m_folder.file(name); }
  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(m_folder.path()))
      found.push_back(entry.path().filename().string());
    std::sort(found.begin(), found.end());
    return found;
  }

  static mode_t modeOf(const std::string& path) {
    struct stat info {};
    ::stat(path.c_str(), &info);
    return info.st_mode & 07777;
  }

  TempFolder m_folder;
};

// Each report writer with the bytes it leaves in a file that held old.
struct Writer {
  const char* name;
  const char* file;
  std::function<void(const std::string&, const std::string&)> write;
  std::function<std::string(const std::string& old, const std::string& text)> expected;
};

std::vector<Writer> writers() {
  using Text = const std::string&;
  return {{"txt_WriteAll", "Report.txt", [](Text path, Text text) { txt_WriteAll(path, text); },
           [](Text, Text text) { return text + "\r\n"; }},
          {"txt_AppendLine", "Report.txt", [](Text path, Text text) { txt_AppendLine(path, text); },
           [](Text old, Text text) { return old + text + "\r\n"; }},
          {"RtfWriter::save", "Report.rtf", [](Text path, Text rtf) { RtfWriter::save(path, rtf); },
           [](Text, Text rtf) { return rtf; }}};
}

// An old file larger than any one read buffer and without a final line end, then a shorter
// text: the writer leaves exactly its bytes, and no other file. A temporary file is created
// private; the report must stay as readable as it was, and a new one follows the umask.
TEST_F(TextFilesTest, EachWriterLeavesItsBytesAndTheFilesMode) {
  std::string old;
  for (int i = 0; i < 300000; ++i) old += static_cast<char>(i * 7 % 251);
  mode_t mode = 0604;
  for (const Writer& w : writers()) {
    SCOPED_TRACE(w.name);
    const std::string path = file(w.file);
    m_folder.write(w.file, old);
    ASSERT_EQ(::chmod(path.c_str(), mode ^= 0060), 0);
    w.write(path, kAwkwardText);
    const std::string first = w.expected(old, kAwkwardText);
    EXPECT_TRUE(m_folder.read(w.file) == first);  // not printed: 300 kB
    w.write(path, "");
    EXPECT_TRUE(m_folder.read(w.file) == w.expected(first, ""));
    EXPECT_EQ(modeOf(path), mode);
    EXPECT_EQ(names(), std::vector<std::string>{w.file});
    fs::remove(path);
    const mode_t previous = ::umask(026);
    w.write(path, "new");
    ::umask(previous);
    EXPECT_EQ(m_folder.read(w.file), w.expected("", "new"));
    EXPECT_EQ(modeOf(path), 0640u);
    fs::remove(path);
  }
}

// A full disk, made with a file size limit in a child process: each write stops part way with
// EFBIG. The child reports through its exit code which writers misbehaved.
TEST_F(TextFilesTest, AFullDiskKeepsTheOldReportsAndLeavesNoTemporaryFile) {
  std::string oldText;
  for (int i = 0; i < 500; ++i) oldText += "old line " + std::to_string(i) + "\r\n";
  const std::string oldRtf = RtfWriter::document(oldText);
  m_folder.write("Report.txt", oldText);
  m_folder.write("Report.rtf", oldRtf);
  const rlim_t limit = 64 * 1024;
  ASSERT_LT(oldRtf.size(), limit);
  const std::string big(4 * limit, 'n');

  const pid_t child = ::fork();
  ASSERT_GE(child, 0) << std::strerror(errno);
  if (child == 0) {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{limit, limit};
    if (::setrlimit(RLIMIT_FSIZE, &small) != 0) ::_exit(100);
    int misbehaved = 0;
    const std::vector<Writer> all = writers();
    for (std::size_t i = 0; i < all.size(); ++i) {
      const std::string path = file(all[i].file);
      try {
        all[i].write(path, big);
        misbehaved |= 1 << i;
      } catch (const ReportFileError& e) {  // the report file's path and the system's reason
        if (e.file() != path ||
            e.what() != "Could not write the file " + path + ": " + std::strerror(EFBIG) + ".")
          misbehaved |= 1 << i;
      }
    }
    ::_exit(misbehaved);
  }

  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status)) << "status " << status;
  EXPECT_EQ(WEXITSTATUS(status), 0) << "bit i set: writer i did not fail with EFBIG naming the "
                                       "report (0 txt_WriteAll, 1 txt_AppendLine, 2 RtfWriter)";
  EXPECT_EQ(m_folder.read("Report.txt"), oldText);
  EXPECT_EQ(m_folder.read("Report.rtf"), oldRtf);
  EXPECT_EQ(names(), (std::vector<std::string>{"Report.rtf", "Report.txt"}));
}

}  // namespace
}  // namespace pescavo::test
