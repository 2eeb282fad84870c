#pragma once

#include <string>
#include <vector>

#include "tables/ComponentTable.h"
#include "tables/ComponentViews.h"

namespace pescavo {

// The two component lists of the main window and the moves between them: Fischfutter1 (the
// components available for the current substance, with their figures) and Fischfutter2 (those
// chosen for a run). List positions are 0-based; -1 means no current item.
class ComponentSelection {
 public:
  // Futterliste_aktualisieren: the available components of substance position (0-based);
  // the chosen list is emptied, but the buttons that take components out stay as they were.
  void refresh(const ComponentTable& table, int substance);
  // After loading a table: the lists of substance position, nothing to take out.
  void reset(const ComponentTable& table, int substance);

  const std::vector<ListEntry>& available() const { return m_available; }
  const std::vector<WorkingSetEntry>& workingSet() const { return m_workingSet; }
  const std::vector<ListEntry>& chosen() const { return m_chosen; }
  bool isSelected(int position) const { return m_selected.at(position); }
  int currentChosen() const { return m_currentChosen; }

  void setSelected(int position, bool selected) { m_selected.at(position) = selected; }
  void clearSelection() { m_selected.assign(m_available.size(), false); }
  void setCurrentChosen(int position) { m_currentChosen = position; }

  // The moves; each leaves a text at most once in the chosen list.
  void Rein();
  void alle_rein();
  void raus();
  void alle_raus();
  // SimpleMode: every available component takes part.
  void chooseAllAvailable();

  // "<---" and "<<----": switched on by a move in, off by the moves that empty the chosen list.
  bool removeEnabled() const { return m_removeEnabled; }
  // Counts the changes of the lists: every move in, a move out that took something out, a
  // refresh.
  int changes() const { return m_changes; }

  // Fischfutter1's information on the entry at position, the maximum inclusion for species
  // row `species`.
  std::string tooltipText(int position, int species, char decimalSeparator) const;
  // The tooltip a press on the list set, with the press point; dropped once the pointer has
  // left that point in both directions.
  void showTooltip(std::string text, int x, int y);
  void Fischfutter1_MouseMove(int x, int y);
  const std::string& availableTooltip() const { return m_availableTooltip; }

 private:
  std::vector<ListEntry> m_available;
  std::vector<WorkingSetEntry> m_workingSet;  // by position in m_available
  std::vector<bool> m_selected;
  std::vector<ListEntry> m_chosen;
  int m_currentChosen = -1;
  bool m_removeEnabled = false;
  int m_changes = 0;
  std::string m_availableTooltip;
  int m_pressX = 0;
  int m_pressY = 0;
};

}  // namespace pescavo
