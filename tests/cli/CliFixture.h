#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "cli/Cli.h"
#include "support/TempFolder.h"

namespace pescavo {

// Runs the command line over a private copy of the sample tables that a test may break.
class CliFixture : public ::testing::Test {
 protected:
  struct Outcome {
    int status;
    std::string out;
    std::string err;
  };

  void SetUp() override {
    std::filesystem::copy(PESCAVO_SAMPLE_INPUT, input());
    m_substance = lines(cli({"substances"}).out).at(0);
  }

  std::string input() const { return (m_root / "Input").string(); }
  Outcome cli(std::vector<std::string> args) const {
    args.insert(args.begin(), {"--input", input(), "--report-folder", m_root.string()});
    std::ostringstream out, err;
    const int status = runCli(args, '.', out, err);
    return {status, out.str(), err.str()};
  }
  static std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) result.push_back(line);
    return result;
  }
  // The TAB-separated cells of a line; a trailing TAB ends with an empty cell.
  static std::vector<std::string> cells(const std::string& line) {
    std::vector<std::string> result;
    std::istringstream in(line);
    for (std::string cell; std::getline(in, cell, '\t');) result.push_back(cell);
    if (!line.empty() && line.back() == '\t') result.emplace_back();
    return result;
  }

  TempFolder m_folder;
  const std::filesystem::path& m_root = m_folder.path();
  std::string m_substance;
};

}  // namespace pescavo
