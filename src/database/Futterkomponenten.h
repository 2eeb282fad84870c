#pragma once

#include <QDialog>
#include <QString>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "model/ComponentEditor.h"

class QComboBox;
class QLineEdit;
class QTableWidget;

namespace pescavo {

class DesktopDialogs;

// "Components": the available components of the current substance, read-only.
class Futterkomponenten : public QDialog {
  Q_OBJECT

 public:
  // substance is 1-based; names are the substance list's items. cursorFile names the hand
  // pointer's file for the buttons; none: the usual pointer.
  Futterkomponenten(const ComponentTable& table, int substance, char decimalSeparator,
                    DesktopDialogs& dialogs, QWidget* parent = nullptr,
                    std::function<QString()> cursorFile = {});

  void Go3_Click();
  void Command2_Click();
  void PrintButton_Click();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::vector<std::array<std::string, 10>> m_rows;
  DesktopDialogs& m_dialogs;
  QComboBox* m_substances;
  QTableWidget* m_grid;
  QLineEdit* m_search;
};

}  // namespace pescavo
