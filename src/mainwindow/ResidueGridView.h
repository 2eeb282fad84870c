#pragma once

#include <QEvent>
#include <QObject>
#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "model/ResidueGrid.h"

class QKeyEvent;
class QRect;
class QWidget;
class QTableWidget;

namespace pescavo {

// The platform's virtual key code of a key, as the model's key handlers take them (digits 48
// to 57, keypad digits 96 to 105, "," 188, "." 190, keypad "." 110, Backspace 8, Enter 13,
// Escape 27, Delete 46, letters 65 to 90); 0 for a key without one.
int virtualKey(const QKeyEvent& event);

// Hands the events of the kinds it is given, of the widgets it watches, to a handler before
// they get them; the handler's true keeps an event from its widget. Other kinds never reach the
// handler: a window's hide events still come while its destructor has already run.
class EventHook : public QObject {
 public:
  using Handler = std::function<bool(QObject* watched, QEvent* event)>;
  EventHook(std::initializer_list<QEvent::Type> types, Handler handler, QObject* parent)
      : QObject(parent), m_types(types), m_handler(std::move(handler)) {}
  void watch(QObject* object) { object->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (std::find(m_types.begin(), m_types.end(), event->type()) == m_types.end()) return false;
    return m_handler(watched, event);
  }

 private:
  std::vector<QEvent::Type> m_types;
  Handler m_handler;
};

// The residue grid schadstoffwerte as the model's ResidueGrid has it, and what the user does
// in it. The model's header row 0 is the table's horizontal header, so model row r is table
// row r - 1; both kinds of rows meet only here. Showing compares with what is on screen and
// touches only the cells that changed: the largest database has 1000 rows.
class ResidueGridView : public QObject {
  Q_OBJECT

 public:
  explicit ResidueGridView(QTableWidget* table);

  QTableWidget* table() const { return m_table; }
  // Texts, marks, current cell and selection of the model's grid.
  void show(const ResidueGrid& grid);
  void setColumnWidths(const std::array<int, ResidueGrid::kColumns>& twips);
  // Twips the frame and the vertical scroll bar take of the grid's width.
  int chromeWidth() const;
  // The cell's rectangle in twips, measured from the inside of the grid's border, where it
  // is now (possibly out of view) or after scrolling it into view.
  TwipsRect cellPlace(int row, int column) const;
  TwipsRect cellRect(int row, int column);
  // Where the cells are shown, in the coordinates of parent.
  QRect cellsOn(const QWidget* parent) const;
  int topRow() const;  // the first row shown, in model rows
  void setTopRow(int row);
  int headerHeight() const;  // pixels

 signals:
  // The current cell and the other end of its row selection, in model rows.
  void cursorChanged(int row, int column, int selectionEnd);
  void clicked();
  void keyPressed(int key, bool control);
  void wheelTurned(int rotation);
  void scrolled();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void rebuild(const ResidueGrid& grid);
  void showCursor(const ResidueGrid& grid);
  void reportCursor();
  // The current table row and column and the other end of the selection, in model rows.
  std::array<int, 3> cursor() const;

  QTableWidget* m_table;
  // What the table shows, by model row (0 is the header).
  std::vector<std::array<std::string, ResidueGrid::kColumns>> m_texts;
  std::vector<std::array<bool, ResidueGrid::kColumns>> m_marks;
  bool m_showing = false;  // the table follows the model: nothing to report back
  bool m_pressed = false;  // a press on the cells, which its release makes a click
};

}  // namespace pescavo
