#pragma once

#include <QTableWidget>
#include <array>
#include <functional>

class QPushButton;

namespace pescavo {

struct ReportState;

// AllScnErgebnis: the scenario table of the last sweep as the core filled it, the header row
// and sixteen runs. Column 3 holds the green "Details" buttons, one per run, which stay on
// their rows however the table is scrolled or sized. They lie on a layer of their own over the
// table, a sibling of it, because a screen reader sees a table's cells but not widgets put
// into them. Two columns after it show each run's
// independent check and the true optimum; a run the check does not agree with is marked over
// the whole row, with the check's tooltip on every cell, so that it cannot be missed on screen,
// on paper or in the clipboard. The cells of the four columns keep the core's texts.
class ScenarioGrid : public QTableWidget {
 public:
  static constexpr int kColumns = 6;
  static constexpr int kVerdictColumn = 4;
  static constexpr int kTrueOptimumColumn = 5;

  explicit ScenarioGrid(QWidget* parent);
  void fill(const ReportState& report);
  QPushButton* detailsButton(int index) const { return m_buttons[index]; }
  void setButtonsShown(bool shown);
  // Details of run index + 1 was pressed.
  std::function<void(int index)> onDetails;

 protected:
  bool viewportEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  void setCell(int row, int column, const std::string& text, int alignment);
  void markRun(const ReportState& report, int run);
  void applyWidths();
  void fitCheckColumns();
  void fitHeaderHeight();
  // Lays the button layer over the viewport and each button over its cell; the layer takes
  // presses on the buttons only.
  void placeButtons();
  QWidget* m_layer = nullptr;
  bool m_buttonsShown = false;
  std::array<QPushButton*, 16> m_buttons{};
  int m_appliedWidth = -1;
};

}  // namespace pescavo
