#include <algorithm>

#include "database/Futterkomponenten.h"
#include "database/Komponentenliste.h"
#include "mainwindow/Hauptform.h"

namespace pescavo {

void Hauptform::MenuFischfutter_Click() {
  Komponentenliste editor(m_model->beginComponentEditing(), m_dialogs, this, cursorFile());
  const bool done = editor.exec() == QDialog::Accepted;
  m_model->endComponentEditing(done);
  showAll();
}

void Hauptform::Command1_Click() {
  Futterkomponenten overview(m_model->table(), std::max(m_model->substancePosition(), 0) + 1,
                             m_model->decimalSeparator(), m_dialogs, this, cursorFile());
  overview.exec();
}

}  // namespace pescavo
