#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QColor>
#include <QListWidget>
#include <QSettings>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "ScriptedDialogs.h"
#include "WidgetLookup.h"
#include "mainwindow/Hauptform.h"
#include "model/AllOptionsLayout.h"

// Readable failure messages for Qt's values.
inline void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }
inline void PrintTo(const QStringList& texts, std::ostream* out) {
  *out << texts.join("|").toStdString();
}
inline void PrintTo(const QColor& colour, std::ostream* out) {
  *out << colour.name().toStdString();
}

namespace pescavo {

// A copy of the sample tables in a folder of its own, and the main window started on it.
class HauptformTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::copy(PESCAVO_SAMPLE_INPUT, input());
    QSettings().remove(kAllOptionsSetting);  // as on a first start
  }
  void TearDown() override { window.reset(); }  // before its folder goes

  // Start-up as "START" (full) or "SIMPLE" does it; false when a table was refused.
  bool start(bool simple = false) {
    window = std::make_unique<Hauptform>(dialogs, '.');
    window->setStartFolder(m_folder.string());
    const bool started = window->startUp(input().string(), simple);
    if (started) window->show();
    return started;
  }

  std::filesystem::path input() const { return m_folder / "Input"; }
  std::string read(const std::filesystem::path& path) const {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void write(const std::filesystem::path& path, const std::string& bytes) const {
    std::ofstream(path, std::ios::binary) << bytes;
  }

  template <typename T = QWidget>
  T* find(const char* name) const {
    return child<T>(*window, name);
  }
  void click(const char* name) { QTest::mouseClick(find<QAbstractButton>(name), Qt::LeftButton); }
  static void click(QWidget& other, const char* name) { pescavo::click(other, name); }
  void trigger(const char* action) { find<QAction>(action)->trigger(); }
  bool shown(const char* name) const { return find(name)->isVisible(); }
  bool enabled(const char* name) const { return find(name)->isEnabled(); }
  QStringList items(const char* list) const {
    QStringList texts;
    auto* widget = find<QListWidget>(list);
    for (int p = 0; p < widget->count(); ++p) texts.append(widget->item(p)->text());
    return texts;
  }
  void chooseSubstance(int position) {
    find<QListWidget>("Schadstoffliste")->setCurrentRow(position);
  }

  ScriptedDialogs dialogs;
  std::unique_ptr<Hauptform> window;

 private:
  const QTemporaryDir m_scratch;  // its own: ctest runs the tests side by side
  const std::filesystem::path m_folder = m_scratch.path().toStdString();
};

}  // namespace pescavo
