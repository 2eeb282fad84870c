#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace pescavo {

// A fresh folder of the test's own, removed with all it holds when the test ends.
class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "pescavo-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    m_path = name;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return m_path; }
  std::string file(const std::string& name = "") const {
    return name.empty() ? m_path.string() : (m_path / name).string();
  }
  // The bytes of a file in the folder; "" where there is none.
  std::string read(const std::string& name) const {
    std::ifstream in(m_path / name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }
  void write(const std::string& name, const std::string& bytes) const {
    std::ofstream(m_path / name, std::ios::binary) << bytes;
  }

 private:
  std::filesystem::path m_path;
};

}  // namespace pescavo
