#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "engine/Dialogs.h"
#include "engine/MainWindowModel.h"

namespace pescavo::test {

class RecordingDialogs : public Dialogs {
 public:
  void information(const std::string& text) override { messages.push_back(text); }
  bool askYesNo(const std::string&) override { return true; }
  std::vector<std::string> messages;
};

// A fresh folder per test, removed afterwards.
class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    m_path = std::filesystem::temp_directory_path() /
             ("pescavo-reports-" + std::to_string(random()) + std::to_string(random()));
    std::filesystem::create_directories(m_path);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  std::string path() const { return m_path.string(); }
  std::string file(const std::string& name) const { return (m_path / name).string(); }

 private:
  std::filesystem::path m_path;
};

inline ListEntry entry(const std::string& text, const std::string& kategorie,
                       const std::string& basis) {
  ListEntry e;
  e.text = text;
  e.commodity = text;
  e.kategorie = kategorie;
  e.artSchadstoffwert = basis;
  return e;
}

// Tables of the main window without files: one substance, the two species, three grades.
inline void setUpTables(MainWindowModel& model, const std::string& substance) {
  model.table.addSubstance(substance);
  model.schadstoff = 0;
  model.species = {{"Common carp", 7.5, 30}, {"Rainbow trout", 20, 42}};
  model.fishmeal = {{60, 8}, {62, 9}, {64, 10}};
  model.fischmehl = 2;
}

}  // namespace pescavo::test
