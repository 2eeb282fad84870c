#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "ScriptedDialogs.h"
#include "WidgetLookup.h"
#include "model/MainWindowModel.h"
#include "model/ReportViewState.h"
#include "reports/TextFiles.h"

namespace pescavo::test {

// The text a command prints, or what it wrote to stderr when it failed.
inline std::string commandOutput(const std::string& command) {
  std::string output;
  if (FILE* pipe = popen((command + " 2>&1").c_str(), "r")) {
    char buffer[4096];
    for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) output.append(buffer, n);
    pclose(pipe);
  }
  return output;
}

// Page count and the text of one page of a PDF, through poppler-utils.
inline int pdfPages(const std::string& pdf) {
  const std::string info = commandOutput("pdfinfo '" + pdf + "'");
  const auto at = info.find("Pages:");
  EXPECT_NE(at, std::string::npos) << "pdfinfo (poppler-utils) is needed: " << info;
  return at == std::string::npos ? 0 : std::stoi(info.substr(at + 6));
}

inline std::string pdfPageText(const std::string& pdf, int page) {
  const std::string n = std::to_string(page);
  return commandOutput("pdftotext -layout -f " + n + " -l " + n + " '" + pdf + "' -");
}

// Whether the first page of a PDF is wider than high.
inline bool pdfLandscape(const std::string& pdf) {
  const std::string info = commandOutput("pdfinfo '" + pdf + "'");
  double width = 0, height = 0;
  const auto at = info.find("Page size:");
  if (at != std::string::npos)
    std::sscanf(info.c_str() + at, "Page size: %lf x %lf", &width, &height);
  EXPECT_GT(width, 0) << info;
  return width > height;
}

// A temporary start folder with a copy of the sample tables; the model started from it, its
// report files written there, and a stand-in for the main window.
class ReportWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string folder =
        (std::filesystem::temp_directory_path() / "pescavo-reportwindows-XXXXXX").string();
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    root = folder;
    std::filesystem::copy(PESCAVO_SAMPLE_INPUT, root / "Input",
                          std::filesystem::copy_options::recursive);
    model.startUp((root / "Input").string());
    model.report().reportFolder = root.string();
    mainWindow.show();
  }
  void TearDown() override {
    std::error_code ignored;
    std::filesystem::remove_all(root, ignored);
  }

  std::string file(const std::string& name) const { return (root / name).string(); }
  std::string reportFile() const { return txt_ReadAll(file("Report.txt")); }

  static QString caption(QWidget& window, const char* name) {
    auto* button = child<QPushButton>(window, name);
    return button ? button->text() : QString();
  }
  static bool shown(QWidget& window, const char* name) {
    QWidget* widget = child(window, name);
    return widget && widget->isVisible();
  }
  // The window shows what the core's view state says: each control's visibility and caption.
  static void expectView(QWidget& window, const ReportViewState::Controls& view) {
    const bool scenarioWindow = window.findChild<QWidget*>("BerichtNeu") != nullptr;
    const std::pair<const char*, bool> controls[] = {
        {scenarioWindow ? "BerichtNeu" : "Bericht", view.text},
        {"ErgebnisGrid", view.table},
        {"MSChart1", view.chart},
        {"Combo1", view.chartKinds},
        {"Label1", view.labels},
        {"TextFischname2", view.labels},
        {"Command1", view.command1},
        {"Command2", view.command2}};
    for (const auto& [name, visible] : controls) EXPECT_EQ(shown(window, name), visible) << name;
    EXPECT_EQ(caption(window, "Command1").toStdString(), view.command1Caption);
    EXPECT_EQ(caption(window, "Command2").toStdString(), view.command2Caption);
    if (scenarioWindow) return;
    EXPECT_EQ(shown(window, "Explanation"), view.explanation);
    EXPECT_EQ(shown(window, "Explain"), view.explain);
    EXPECT_EQ(caption(window, "Explain").toStdString(), view.explainCaption);
    EXPECT_EQ(shown(window, "AllScnErgebnis"), view.scenarioTable);
    EXPECT_EQ(shown(window, "Command4_0"), view.detailsButtons);
    EXPECT_EQ(shown(window, "Command3"), view.command3);
    if (view.command3) {
      EXPECT_EQ(caption(window, "Command3").toStdString(), view.command3Caption);
    }
  }

  // Chooses a chart kind as the user does, through the keyboard.
  static void chooseChart(QWidget& window, int kind) {
    auto* combo = child<QComboBox>(window, "Combo1");
    if (!combo) return;
    while (combo->currentIndex() < kind) QTest::keyClick(combo, Qt::Key_Down);
    while (combo->currentIndex() > kind) QTest::keyClick(combo, Qt::Key_Up);
  }

  std::filesystem::path root;
  ScriptedDialogs dialogs;
  MainWindowModel model{dialogs, '.'};
  QWidget mainWindow;
};

}  // namespace pescavo::test
