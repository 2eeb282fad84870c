#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QTemporaryDir>
#include <cstdio>
#include <filesystem>
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

// Page count, first page's shape and one page's text of a PDF, through poppler-utils.
inline int pdfPages(const std::string& pdf) {
  const std::string info = commandOutput("pdfinfo '" + pdf + "'");
  const auto at = info.find("Pages:");
  EXPECT_NE(at, std::string::npos) << "pdfinfo (poppler-utils) is needed: " << info;
  return at == std::string::npos ? 0 : std::stoi(info.substr(at + 6));
}
inline bool pdfLandscape(const std::string& pdf) {
  const std::string info = commandOutput("pdfinfo '" + pdf + "'");
  double width = 0, height = 0;
  std::sscanf(info.c_str() + info.find("Page size:"), "Page size: %lf x %lf", &width, &height);
  EXPECT_GT(width, 0) << info;
  return width > height;
}
inline std::string pdfPageText(const std::string& pdf, int page) {
  const std::string n = std::to_string(page);
  return commandOutput("pdftotext -layout -f " + n + " -l " + n + " '" + pdf + "' -");
}

// A temporary start folder with a copy of the sample tables; the model started from it, its
// report files written there, and a stand-in for the main window.
class ReportWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::copy(PESCAVO_SAMPLE_INPUT, root / "Input");
    model.startUp((root / "Input").string());
    model.report().reportFolder = root.string();
    mainWindow.show();
  }

  std::string file(const std::string& name) const { return (root / name).string(); }
  std::string reportFile() const { return txt_ReadAll(file("Report.txt")); }

  static bool shown(QWidget& window, const char* name) {
    QWidget* widget = child(window, name);
    return widget && widget->isVisible();
  }
  static std::string caption(QWidget& window, const char* name) {
    auto* button = child<QPushButton>(window, name);
    return button ? button->text().toStdString() : "";
  }
  // The window shows what the core's view state says: each control's visibility and caption.
  static void expectView(QWidget& window, const ReportViewState::Controls& view) {
    const bool report = window.findChild<QWidget*>("BerichtNeu") == nullptr;
    std::vector<std::pair<const char*, bool>> controls = {
        {report ? "Bericht" : "BerichtNeu", view.text},
        {"ErgebnisGrid", view.table},
        {"MSChart1", view.chart},
        {"Combo1", view.chartKinds},
        {"Label1", view.labels},
        {"TextFischname2", view.labels},
        {"Command1", view.command1},
        {"Command2", view.command2}};
    if (report)
      controls.insert(controls.end(), {{"Explanation", view.explanation},
                                       {"Explain", view.explain},
                                       {"AllScnErgebnis", view.scenarioTable},
                                       {"Command4_0", view.detailsButtons},
                                       {"Command3", view.command3}});
    for (const auto& [name, visible] : controls) EXPECT_EQ(shown(window, name), visible) << name;
    EXPECT_EQ(caption(window, "Command1"), view.command1Caption);
    EXPECT_EQ(caption(window, "Command2"), view.command2Caption);
    if (!report) return;
    EXPECT_EQ(caption(window, "Explain"), view.explainCaption);
    if (view.command3) {
      EXPECT_EQ(caption(window, "Command3"), view.command3Caption);
    }
  }

  // Chooses a chart kind as the user does, through the keyboard.
  static void chooseChart(QWidget& window, int kind) {
    auto* combo = child<QComboBox>(window, "Combo1");
    while (combo->currentIndex() < kind) QTest::keyClick(combo, Qt::Key_Down);
    while (combo->currentIndex() > kind) QTest::keyClick(combo, Qt::Key_Up);
  }

  const QTemporaryDir scratch;
  const std::filesystem::path root = scratch.path().toStdString();
  ScriptedDialogs dialogs;
  MainWindowModel model{dialogs, '.'};
  QWidget mainWindow;
};

}  // namespace pescavo::test
