#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTextCursor>
#include <QTextEdit>

#include "desktop/Styles.h"
#include "mainwindow/Hauptform.h"
#include "tables/FishTables.h"

namespace pescavo {

void Hauptform::connectOptions() {
  const auto onClick = [this](ControlId name, auto handler) {
    connect(control<QAbstractButton>(name), &QAbstractButton::clicked, this, [this, handler] {
      handler();
      applyLayout();
    });
  };
  MainWindowModel& model = *m_model;
  onClick(C::Option1, [&model] { model.options().setCriterionOption(Criterion::Minimum); });
  onClick(C::Option2, [&model] { model.options().setCriterionOption(Criterion::Maximum); });
  onClick(C::Option3, [&model] { model.options().setSpeciesOption(Species::CommonCarp); });
  onClick(C::Option4, [&model] { model.options().setSpeciesOption(Species::RainbowTrout); });
  const auto pseudo = [this] {
    m_model->options().setPseudoComponents({control<QCheckBox>(C::Check1)->isChecked(),
                                            control<QCheckBox>(C::Check4)->isChecked(),
                                            control<QCheckBox>(C::Check5)->isChecked()});
  };
  for (ControlId check : {C::Check1, C::Check4, C::Check5}) onClick(check, pseudo);
  onClick(C::Check2,
          [this] { m_model->options().setMrbdLimits(control<QCheckBox>(C::Check2)->isChecked()); });
  const auto onChoice = [this](ControlId name, auto handler) {
    connect(control<QComboBox>(name), QOverload<int>::of(&QComboBox::activated), this,
            [this, handler](int position) {
              handler(position);
              applyLayout();
            });
  };
  onChoice(C::Fischarten, [&model](int position) { model.options().setSpecies(position); });
  onChoice(C::MinMax, [&model](int position) {
    model.options().setCriterion(position == 1 ? Criterion::Minimum : Criterion::Maximum);
  });
  onChoice(C::Fischmehl, [&model](int position) { model.options().setFishmealGrade(position); });
}

void Hauptform::showOptions() {
  const char separator = m_model->decimalSeparator();
  auto* species = control<QComboBox>(C::Fischarten);
  auto* fishmeal = control<QComboBox>(C::Fischmehl);
  if (species->count() != static_cast<int>(m_model->runInput().species.size())) {
    const QSignalBlocker quiet(species);
    species->clear();
    for (const FishSpecies& entry : m_model->runInput().species)
      species->addItem(QString::fromStdString(entry.name));
  }
  if (fishmeal->count() != static_cast<int>(m_model->runInput().fishmeal.size())) {
    const QSignalBlocker quiet(fishmeal);
    fishmeal->clear();
    for (const FishMealGrade& grade : m_model->runInput().fishmeal)
      fishmeal->addItem(QString::fromStdString(fishmealItemText(grade, separator)));
  }
  const auto set = [](QWidget* widget, auto apply) {
    const QSignalBlocker quiet(widget);
    apply();
  };
  set(species, [&] { species->setCurrentIndex(m_model->options().species()); });
  set(fishmeal, [&] { fishmeal->setCurrentIndex(m_model->options().fishmealGrade()); });
  auto* criterion = control<QComboBox>(C::MinMax);
  set(criterion,
      [&] { criterion->setCurrentIndex(m_model->options().criterion() == Criterion::Minimum); });
  const bool minimum = m_model->options().criterionOption() == Criterion::Minimum;
  control<QRadioButton>(minimum ? C::Option1 : C::Option2)->setChecked(true);
  const bool carp = m_model->options().speciesOption() == Species::CommonCarp;
  control<QRadioButton>(carp ? C::Option3 : C::Option4)->setChecked(true);
  const MainWindowModel::PseudoComponents pseudo = m_model->options().pseudoComponents();
  control<QCheckBox>(C::Check1)->setChecked(pseudo.pc);
  control<QCheckBox>(C::Check4)->setChecked(pseudo.cc);
  control<QCheckBox>(C::Check5)->setChecked(pseudo.f);
  control<QCheckBox>(C::Check2)->setChecked(m_model->options().mrbdLimits());
}

// The statement in bold, red above 0.1 mg/kg. The independent check's sentence stands apart
// under it: quiet when it agrees, unmistakable when it does not.
void Hauptform::showResult() {
  if (!m_model->visible(ControlId::Ergebnis)) return;
  auto* box = control<QTextEdit>(C::Ergebnis);
  box->clear();
  QTextCharFormat format;
  format.setFontWeight(QFont::Bold);
  format.setForeground(m_model->result().red ? QColor(255, 0, 0) : QColor(0, 0, 0));
  QTextCursor cursor(box->document());
  cursor.insertText(QString::fromStdString(m_model->result().text), format);
  box->moveCursor(QTextCursor::Start);
  auto* check = control<QLabel>(C::Gegenpruefung);
  const QString sentence = QString::fromStdString(m_model->lastRun().checkSentence());
  check->setText(sentence);
  check->setToolTip(sentence);
  const TextStyle style = checkSentenceStyle(m_model->lastRun().check().verdict);
  check->setAutoFillBackground(style.background.has_value());
  check->setStyleSheet(pescavo::styleSheet(style));
}

void Hauptform::Optimierung_Click() {
  m_model->Optimierung_Click();
  if (m_model->simpleMode()) fillChosen();
  showOptions();
  showResult();
  applyLayout();
}

}  // namespace pescavo
