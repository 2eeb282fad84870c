#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "tables/TableError.h"

namespace pescavo {

// A temporary input folder of the test's own.
struct TempFolder {
  std::string path = std::filesystem::temp_directory_path() / "pescavo-XXXXXX";
  std::error_code ignored;
  TempFolder() { EXPECT_NE(::mkdtemp(path.data()), nullptr); }
  ~TempFolder() { std::filesystem::remove_all(path, ignored); }
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path + "/" + name, std::ios::binary) << bytes;
    return path + "/" + name;
  }
};

// The refusal's message, or "no error".
template <typename Action>
std::string errorOf(Action action) {
  try {
    action();
  } catch (const TableError& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace pescavo
