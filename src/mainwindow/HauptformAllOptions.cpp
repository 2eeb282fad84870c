#include <QAction>
#include <QMenu>
#include <QSettings>

#include "mainwindow/Hauptform.h"
#include "model/AllOptionsLayout.h"

namespace pescavo {

// The switch is read before start-up, so that the first layout shown already has it.
void Hauptform::buildAllOptionsEntry(QMenu* program) {
  program->setToolTipsVisible(true);
  m_allOptions = program->addAction(QString::fromUtf8(kAllOptionsCaption));
  m_allOptions->setObjectName("allOptions");
  m_allOptions->setCheckable(true);
  m_allOptions->setShortcut(QKeySequence(QString::fromUtf8(kAllOptionsShortcut)));
  m_allOptions->setToolTip(QString::fromUtf8(kAllOptionsTooltip));
  const bool on = QSettings().value(kAllOptionsSetting, false).toBool();
  m_allOptions->setChecked(on);
  m_model->setAllOptions(on);
  connect(m_allOptions, &QAction::toggled, this, &Hauptform::allOptions_Toggled);
}

void Hauptform::allOptions_Toggled(bool on) {
  m_model->setAllOptions(on);
  QSettings().setValue(kAllOptionsSetting, on);
  showAll();
}

}  // namespace pescavo
