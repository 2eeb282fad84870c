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

// "List of Feed Components": shows the editor's grid and forwards every event to it.
class Komponentenliste : public QDialog {
  Q_OBJECT

 public:
  // cursorFile names the hand pointer's file for the buttons; none: the usual pointer.
  Komponentenliste(ComponentTable& table, DesktopDialogs& dialogs, QWidget* parent = nullptr,
                   std::function<QString()> cursorFile = {});
  const ComponentEditor& editor() const { return m_editor; }

  void Neuer_Datensatz_Click();
  void Loeschen_Click();
  void Fertig_Click();
  void Command2_Click();
  void Command1_Click();
  void PrintButton_Click();
  void go2_Click();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void showCells();
  void showMarks();
  void takeCursor();
  void cellClicked();
  void placeOverCurrentCell(QWidget* editor);
  bool editBoxKey(int key, Qt::KeyboardModifiers modifiers, const QString& text);
  bool gridKey(int key, Qt::KeyboardModifiers modifiers, const QString& text);

  ComponentEditor m_editor;
  DesktopDialogs& m_dialogs;
  QTableWidget* m_grid;
  QLineEdit* m_edit;
  QComboBox* m_category;
  QLineEdit* m_search;
};

}  // namespace pescavo
