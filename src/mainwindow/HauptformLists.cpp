#include <QListWidget>
#include <QSignalBlocker>

#include "mainwindow/Hauptform.h"

namespace pescavo {

namespace {

void fill(QListWidget& list, const std::vector<ListEntry>& entries) {
  QStringList texts;
  texts.reserve(static_cast<int>(entries.size()));
  for (const ListEntry& entry : entries) texts.append(QString::fromStdString(entry.text));
  list.clear();
  list.addItems(texts);
}

}  // namespace

void Hauptform::fillSubstances() {
  auto* list = control<QListWidget>(C::Schadstoffliste);
  const QSignalBlocker quiet(list);
  const ComponentTable& table = m_model->database().table();
  QStringList names;
  names.reserve(table.substanceCount());
  for (int s = 1; s <= table.substanceCount(); ++s)
    names.append(QString::fromStdString(table.substanceName(s)));
  list->clear();
  list->addItems(names);
  list->setCurrentRow(m_model->substancePosition());
}

void Hauptform::fillAvailable() {
  QListWidget* list = m_available;
  const QSignalBlocker quiet(list);
  fill(*list, m_model->selection().available());
  list->setToolTip(QString());
}

void Hauptform::fillChosen() {
  auto* list = control<QListWidget>(C::Fischfutter2);
  const QSignalBlocker quiet(list);
  fill(*list, m_model->selection().chosen());
  if (m_model->selection().currentChosen() >= 0)
    list->setCurrentRow(m_model->selection().currentChosen());
}

void Hauptform::showAvailableSelection() {
  QListWidget* list = m_available;
  const QSignalBlocker quiet(list);
  for (int p = 0; p < list->count(); ++p)
    list->item(p)->setSelected(m_model->selection().isSelected(p));
}

void Hauptform::forwardAvailableSelection() {
  QListWidget* list = m_available;
  m_model->selection().clearSelection();
  for (const QListWidgetItem* item : list->selectedItems())
    m_model->selection().setSelected(list->row(item), true);
}

void Hauptform::Schadstoffliste_Click(int row) {
  if (row < 0) return;
  m_model->selectSubstance(row);
  fillAvailable();
  fillChosen();
  applyLayout();
}

void Hauptform::moveComponents(void (ComponentSelection::*move)()) {
  (m_model->selection().*move)();
  fillChosen();
  applyLayout();
}

void Hauptform::availablePressed() {
  QListWidget* list = m_available;
  m_model->Fischfutter1_MouseDown(list->currentRow(), m_pressPoint.x(), m_pressPoint.y());
  list->setToolTip(QString::fromStdString(m_model->selection().availableTooltip()));
}

void Hauptform::availableMoved(const QPoint& position) {
  m_model->selection().Fischfutter1_MouseMove(position.x(), position.y());
  QListWidget* list = m_available;
  if (m_model->selection().availableTooltip().empty() && !list->toolTip().isEmpty())
    list->setToolTip(QString());
}

}  // namespace pescavo
