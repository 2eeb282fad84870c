#pragma once

#include <array>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "engine/Dialogs.h"
#include "engine/MainWindowModel.h"
#include "reports/Credits.h"

namespace pescavo::test {

struct RecordingDialogs : Dialogs {
  void information(const std::string& text) override { messages.push_back(text); }
  bool askYesNo(const std::string&) override { return true; }
  std::vector<std::string> messages;
};

struct TempFolder {
  std::filesystem::path root = std::filesystem::temp_directory_path() /
                               ("pescavo-reports-" + std::to_string(std::random_device()()));
  TempFolder() { std::filesystem::create_directories(root); }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(root, ignored);
  }
  std::string file(const std::string& name = "") const { return (root / name).string(); }
};

inline std::string header(const std::string& substance) {
  const std::string dashes(70, '-');
  return dashes + "\r\n\r\nPescavo concerning " + substance + "\r\n" + kCreditLine +
         "\r\n(Version: 08-Mar-2018)\r\n\r\n" + dashes + "\r\n\r\n";
}

// Name, max, DM ("-" for DM 0), residue, basis, dry-matter residue, share, load; '.' spelling.
using Row = std::array<std::string, 8>;
using Three = std::array<std::string, 3>;

// A report section for carp, byte for byte; fat, protein and fish-meal protein as printed.
inline std::string expectedSection(const std::vector<Row>& rows, const std::array<bool, 3>& on,
                                   const Three& shares, const std::string& criterion,
                                   const std::string& burden, const Three& targets, char sep) {
  const auto d = [sep](std::string number) {
    for (char& ch : number)
      if (ch == '.') ch = sep;
    return number;
  };
  const std::string fm = "Fish meal (" + d(targets[2]) + "% protein, " + d("10.00") + "% lipid)";
  // Every list spells the pseudo-components its own way.
  const std::string names[4][3] = {
      {fm + " ", "CC (0.1% protein,0.1 % lipid) ", "F (100 % lipid) "},
      {fm + "\t", "CC (0.1% protein, 0.1% lipid )\t", "F (100% lipid )\t"},
      {fm + "\t", "CC (0.1% protein, 0.1% lipid)\t", "F(100% lipid)\t"},
      {fm + "\t", "CC (0.1 % protein, 0.1% lipid)\t", "F (100% lipid)\t"}};
  const char* const units[4] = {"%", " mg/kg.", "%", "%"};
  const auto list = [&](auto cell, int pseudoList, const Three& values) {
    std::string s;
    for (const Row& r : rows) s += " " + r[0] + "\t" + cell(r) + "\r\n";
    for (int k = 0; pseudoList >= 0 && k < 3; ++k)
      if (on[k]) s += " " + names[pseudoList][k] + d(values[k]) + units[pseudoList] + "\r\n";
    return s;
  };
  std::string s = "INPUT\r\n=====\r\n\r\nTarget content for Common carp:\r\n Crude fat\t" +
                  d(targets[0]) + "%\r\n Crude protein\t" + d(targets[1]) + "%\r\n\r\n";
  s += "Maximum principal content of components in the diet:\r\n";
  s += list([&](const Row& r) { return d(r[1]) + "%"; }, 0, {"100.00", "100.00", "100.00"});
  s += "\r\nPercent dry matter of components:\r\n";
  s += list([&](const Row& r) { return r[2] == "-" ? r[2] : d(r[2]) + "%"; }, -1, {});
  s += "\r\nSubstance A residues in the components:\r\n";
  s += list([&](const Row& r) { return d(r[3]) + " mg/kg (" + r[4] + ")"; }, -1, {});
  s += "\r\n\r\nSubstance A residues in the components (dry matter):\r\n";
  s += list([&](const Row& r) { return d(r[5]) + " mg/kg (" + r[4] + " \\dry matter)"; }, 1,
            {"0.000", "0.000", "0.000"});
  s += "\r\n\r\nRESULTS\r\n=======\r\n\r\n" + criterion +
       " content dietary burden based on Substance A is " + d(burden) + " mg/kg (dry matter).";
  s += "\r\n\r\nThe respective composition of the feed is:\r\n";
  s += list([&](const Row& r) { return d(r[6]) + "%"; }, 2, shares);
  s += "\r\n\r\nThe dietary load of Substance A caused by the individual components is:\r\n";
  return s + list([&](const Row& r) { return d(r[7]) + "%"; }, 3, {"0.00", "0.00", "0.00"});
}

}  // namespace pescavo::test
